#pragma once

#include "agent/acs/CharacterData.h"

#include <QImage>
#include <memory>
#include <optional>
#include <vector>

namespace agent::runtime
{

// Composes the frames of one character into RGBA pictures of the character's size.
class FrameRenderer
{
public:
    explicit FrameRenderer(std::shared_ptr<const acs::CharacterData> character);

    // The frame as it is seen; with a mouth, the frame's overlay of that shape (if it has one)
    // is drawn on top.
    QImage render(const acs::Frame& frame, std::optional<acs::Mouth> mouth = {}) const;

    // The decoded image, premultiplied ARGB with alpha 0 on transparent pixels; null for an
    // empty placeholder, an unknown index or pixel data too short for its size.
    const QImage& image(std::uint32_t index) const;

private:
    QImage decode(const acs::Image& image) const;

    std::shared_ptr<const acs::CharacterData> character_;
    std::vector<QRgb> colours_;
    mutable std::vector<std::optional<QImage>> cache_;
};

} // namespace agent::runtime
