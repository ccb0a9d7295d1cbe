#pragma once

#include "agent/acs/ByteReader.h"
#include "agent/acs/CharacterData.h"

namespace agent::acs
{

// Fills the character-wide fields (size, flags, voice, balloon, palette, tray icon, states,
// localized info) from the character info block.
void readCharacterInfo(QByteArrayView file, Locator block, CharacterData& character);

} // namespace agent::acs
