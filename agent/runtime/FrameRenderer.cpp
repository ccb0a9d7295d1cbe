#include "agent/runtime/FrameRenderer.h"

#include <QPainter>

namespace agent::runtime
{

namespace
{

const acs::Overlay* overlayFor(const acs::Frame& frame, std::optional<acs::Mouth> mouth)
{
    if (!mouth)
        return nullptr;
    for (const acs::Overlay& overlay : frame.overlays) {
        if (overlay.mouth == *mouth)
            return &overlay;
    }
    return nullptr;
}

} // namespace

FrameRenderer::FrameRenderer(std::shared_ptr<const acs::CharacterData> character)
    : character_(std::move(character)), colours_(256, qRgb(0, 0, 0)),
      cache_(character_->images.size())
{
    const std::size_t count = std::min<std::size_t>(character_->palette.size(), colours_.size());
    for (std::size_t i = 0; i < count; ++i)
        colours_[i] = 0xFF000000u | (character_->palette[i] & 0x00FFFFFFu);
    colours_[character_->transparentIndex] = 0;
}

const QImage& FrameRenderer::image(std::uint32_t index) const
{
    static const QImage none;
    if (index >= cache_.size())
        return none;
    std::optional<QImage>& slot = cache_[index];
    if (!slot)
        slot = decode(character_->images[index]);
    return *slot;
}

QImage FrameRenderer::decode(const acs::Image& source) const
{
    const int width = source.width;
    const int height = source.height;
    const qsizetype stride = source.stride();
    if (!source.present || width == 0 || height == 0 || source.pixels.size() < stride * height)
        return {};

    QImage decoded(width, height, QImage::Format_ARGB32_Premultiplied);
    const auto* pixels = reinterpret_cast<const std::uint8_t*>(source.pixels.constData());
    for (int y = 0; y < height; ++y) {
        // Rows are stored bottom-up.
        const std::uint8_t* row = pixels + (height - 1 - y) * stride;
        auto* out = reinterpret_cast<QRgb*>(decoded.scanLine(y));
        for (int x = 0; x < width; ++x)
            out[x] = colours_[row[x]];
    }
    return decoded;
}

QImage FrameRenderer::render(const acs::Frame& frame, std::optional<acs::Mouth> mouth) const
{
    QImage canvas(character_->width, character_->height, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    const acs::Overlay* overlay = overlayFor(frame, mouth);

    // Alpha is only ever 0 or 255, so source-over drawing gives binary transparency.
    QPainter painter(&canvas);
    const std::size_t top = overlay && overlay->replaceTopImage ? 1 : 0;
    for (std::size_t i = frame.images.size(); i > top; --i) {
        const acs::FrameImage& layer = frame.images[i - 1];
        const QImage& picture = image(layer.image);
        if (!picture.isNull())
            painter.drawImage(layer.x, layer.y, picture);
    }
    if (overlay) {
        const QImage& picture = image(overlay->image);
        if (!picture.isNull())
            painter.drawImage(overlay->x, overlay->y, picture);
    }
    return canvas;
}

} // namespace agent::runtime
