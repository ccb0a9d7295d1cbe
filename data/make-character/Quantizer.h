#pragma once

#include "agent/acs/CharacterData.h"

#include <QImage>
#include <cstdint>
#include <vector>

namespace lumo
{

// Pictures in the file's form: one shared palette, one 8-bit image per picture.
struct IndexedImages {
    std::vector<std::uint32_t> palette; // 256 entries, 0x00RRGGBB
    std::vector<agent::acs::Image> images;
};

// The palette index of transparent pixels; its colour is a key that no drawn pixel uses.
constexpr std::uint8_t transparentIndex = 0;
constexpr std::uint32_t transparentKey = 0xFF00FF;

// Reduces the opaque colours of all images together to at most 255 (median cut, weighted by
// how often a colour is used), so that frequent flat fills keep their exact colour. Pixels
// with alpha below 128 become transparent.
IndexedImages quantize(const std::vector<QImage>& images);

} // namespace lumo
