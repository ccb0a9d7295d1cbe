#include "agent/runtime/FrameRenderer.h"

#include "TestCharacter.h"

#include <gtest/gtest.h>
#include <optional>

using namespace agent;
using namespace agent::runtime;
using namespace agent::runtime::testing;

// Images 0..4 are full-size Red, Green, Blue, White, Black; 5 is a 4x4 Blue square, 6 an empty
// placeholder, 7 a 3x2 image whose top row is transparent and bottom row White, 8 a 4x4 Blue
// square with a byte of its pixel data missing.
static std::shared_ptr<acs::CharacterData> character()
{
    auto data = std::make_shared<acs::CharacterData>(blankCharacter(16, 16));
    data->images.push_back(solidImage(4, 4, Blue));
    data->images.push_back({false, 0, 0, {}, {}});
    acs::Image rows = solidImage(3, 2, White);
    std::fill_n(rows.pixels.data() + rows.stride(), 3, char(Clear)); // stored second: the top row
    data->images.push_back(rows);
    data->images.push_back(solidImage(4, 4, Blue));
    data->images.back().pixels.chop(1);
    return data;
}

static acs::Frame withOverlay(acs::Frame frame, acs::Mouth mouth, bool replace)
{
    frame.overlays.push_back({mouth, replace, 5, 10, 10, 0, 0, {}});
    return frame;
}

TEST(FrameRendererTest, ComposesLayersOffsetsTransparencyAndOverlays)
{
    // Each case: the frame, the mouth drawn and the colours expected at (x, y).
    using Probes = std::vector<std::tuple<int, int, Colour>>;
    const std::tuple<const char*, acs::Frame, std::optional<acs::Mouth>, Probes> cases[] = {
        {"negative offsets clip",
         frame({{5, -2, -3}}),
         {},
         {{0, 0, Blue}, {1, 0, Blue}, {2, 0, Clear}, {0, 1, Clear}}},
        {"clipped at the far edge", frame({{5, 14, 14}}), {}, {{15, 15, Blue}, {13, 13, Clear}}},
        {"unknown image index is skipped", frame({{99, 0, 0}, {5, 0, 0}}), {}, {{0, 0, Blue}}},
        {"placeholders and short pixel data draw nothing",
         frame({{6, 0, 0}, {8, 0, 0}, {0, 0, 0}}),
         {},
         {{0, 0, Red}}},
        {"rows are stored bottom-up, transparent pixels show the layer below",
         frame({{7, 0, 0}, {0, 0, 0}}),
         {},
         {{0, 0, Red}, {2, 1, White}, {5, 1, Red}}},
        {"overlay of the mouth drawn last",
         withOverlay(frame({{1, 0, 0}}), acs::Mouth::OpenWide2, false),
         acs::Mouth::OpenWide2,
         {{10, 10, Blue}, {13, 13, Blue}, {9, 9, Green}}},
        {"overlay of another mouth is not drawn",
         withOverlay(frame({{1, 0, 0}}), acs::Mouth::OpenWide2, false),
         acs::Mouth::Closed,
         {{10, 10, Green}}},
        {"no mouth: no overlay",
         withOverlay(frame({{1, 0, 0}}), acs::Mouth::Closed, false),
         {},
         {{10, 10, Green}}},
        {"replace flag omits the top image",
         withOverlay(frame({{1, 0, 0}, {0, 0, 0}}), acs::Mouth::Closed, true),
         acs::Mouth::Closed,
         {{0, 0, Red}, {10, 10, Blue}}},
    };
    const FrameRenderer renderer(character());
    for (const auto& [name, frame, mouth, probes] : cases) {
        const QImage picture = renderer.render(frame, mouth);
        ASSERT_EQ(picture.size(), QSize(16, 16)) << name;
        for (const auto& [x, y, expected] : probes)
            EXPECT_EQ(picture.pixel(x, y), rgba(expected)) << name << " at " << x << "," << y;
    }
}
