#pragma once

#include "agent/acs/CharacterData.h"

namespace lumo
{

class PartLibrary;

// Every part of the character, drawn once.
PartLibrary drawParts();

// The whole character file's content: identity, voice, balloon, states, animations, pictures.
agent::acs::CharacterData assembleCharacter(const PartLibrary& parts);

} // namespace lumo
