#pragma once

#include "agent/EngineServices.h"

namespace agent::engine
{

// The voice the character's file asks for. Where the file leaves pitch or speed to the
// speech engine (or has no voice section), the engine's own middle values are used:
// 100 Hz, a usual male speaking pitch, and 150 words per minute, an unhurried reading pace.
VoiceDefaults characterVoice(const acs::CharacterData& character);

} // namespace agent::engine
