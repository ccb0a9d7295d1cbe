#pragma once

#include "agent/acs/ByteWriter.h"
#include "agent/acs/CharacterData.h"

namespace agent::acs
{

// Appends the character info block, with the localized info list at its end, and returns the
// block's locator. The voice and balloon flags follow the presence of their blocks.
Locator writeCharacterInfo(ByteWriter& out, const CharacterData& character);

} // namespace agent::acs
