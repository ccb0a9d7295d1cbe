#include "agent/runtime/FrameRenderer.h"

#include <benchmark/benchmark.h>
#include <memory>

using namespace agent;

namespace
{

constexpr int Size = 128;
constexpr std::uint8_t Transparent = 0;

// A palette image whose pixels run through the colours, with a transparent ring around it
// so that drawing has to skip pixels as a real character does.
acs::Image patternImage(int width, int height, int seed)
{
    acs::Image image;
    image.width = std::uint16_t(width);
    image.height = std::uint16_t(height);
    image.pixels.resize(qsizetype(image.stride()) * height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool edge = x < 4 || y < 4 || x >= width - 4 || y >= height - 4;
            image.pixels[y * image.stride() + x] =
                char(edge ? Transparent : 1 + (x + y + seed) % 250);
        }
    }
    return image;
}

// A 128 x 128 character with a frame of a body, eyes and a hand, and a mouth overlay.
std::shared_ptr<acs::CharacterData> character()
{
    auto data = std::make_shared<acs::CharacterData>();
    data->width = Size;
    data->height = Size;
    data->transparentIndex = Transparent;
    for (std::uint32_t i = 0; i < 256; ++i)
        data->palette.push_back((i * 0x010203u) & 0xFFFFFFu);
    data->images = {patternImage(Size, Size, 0), patternImage(40, 16, 1), patternImage(32, 48, 2),
                    patternImage(Size, Size, 3)};
    return data;
}

acs::Frame speakingFrame()
{
    acs::Frame frame;
    frame.images = {{1, 44, 30}, {2, 90, 60}, {0, 0, 0}};
    acs::Overlay mouth;
    mouth.mouth = acs::Mouth::OpenWide2;
    mouth.image = 3;
    frame.overlays.push_back(mouth);
    return frame;
}

void BM_ComposeFrame(benchmark::State& state)
{
    const runtime::FrameRenderer renderer(character());
    const acs::Frame frame = speakingFrame();
    const std::optional<acs::Mouth> mouth =
        state.range(0) ? std::optional(acs::Mouth::OpenWide2) : std::nullopt;
    for (auto _ : state)
        benchmark::DoNotOptimize(renderer.render(frame, mouth));
    state.SetItemsProcessed(state.iterations());
    state.SetLabel(state.range(0) ? "frames with mouth overlay" : "frames");
}
BENCHMARK(BM_ComposeFrame)->Arg(0)->Arg(1);

// The first drawing of a frame, which decodes its images from palette indexes.
void BM_ComposeFrameCold(benchmark::State& state)
{
    const auto data = character();
    const acs::Frame frame = speakingFrame();
    for (auto _ : state) {
        const runtime::FrameRenderer renderer(data);
        benchmark::DoNotOptimize(renderer.render(frame));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ComposeFrameCold);

} // namespace
