#include "FrameComposer.h"

namespace lumo
{
namespace
{

using namespace agent::acs;

void drawImage(const CharacterData& character, QImage& canvas, std::size_t index, int left, int top)
{
    if (index >= character.images.size())
        return;
    const Image& image = character.images[index];
    if (!image.present)
        return;
    for (int y = 0; y < image.height; ++y) {
        const int canvasY = top + y;
        if (canvasY < 0 || canvasY >= canvas.height())
            continue;
        const auto* row = reinterpret_cast<const std::uint8_t*>(image.pixels.constData()) +
                          (image.height - 1 - y) * image.stride();
        auto* out = reinterpret_cast<QRgb*>(canvas.scanLine(canvasY));
        for (int x = 0; x < image.width; ++x) {
            const int canvasX = left + x;
            if (canvasX < 0 || canvasX >= canvas.width() || row[x] == character.transparentIndex)
                continue;
            out[canvasX] = 0xFF000000u | character.palette.at(row[x]);
        }
    }
}

} // namespace

QImage composeFrame(const CharacterData& character, const Frame& frame, std::optional<Mouth> mouth)
{
    QImage canvas(character.width, character.height, QImage::Format_ARGB32);
    canvas.fill(Qt::transparent);
    const Overlay* overlay = nullptr;
    if (mouth)
        for (const Overlay& candidate : frame.overlays)
            if (candidate.mouth == *mouth)
                overlay = &candidate;
    const std::size_t first = (overlay && overlay->replaceTopImage) ? 1 : 0;
    for (std::size_t i = frame.images.size(); i-- > first;) {
        const FrameImage& image = frame.images[i];
        drawImage(character, canvas, image.image, image.x, image.y);
    }
    if (overlay)
        drawImage(character, canvas, overlay->image, overlay->x, overlay->y);
    return canvas;
}

} // namespace lumo
