#pragma once

#include "agent/acs/CharacterData.h"

#include <QImage>
#include <optional>

namespace lumo
{

// Draws one frame of a character the way a player shows it: images from the last listed to
// the first, the transparent index skipped, and, while speaking, the mouth overlay on top.
QImage composeFrame(const agent::acs::CharacterData& character, const agent::acs::Frame& frame,
                    std::optional<agent::acs::Mouth> mouth = std::nullopt);

} // namespace lumo
