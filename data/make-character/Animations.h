#pragma once

#include "agent/acs/CharacterData.h"

#include <vector>

namespace lumo
{

class PartLibrary;

using Animations = std::vector<agent::acs::Animation>;

// Show, Hide, RestPose and Blink.
Animations basicAnimations(const PartLibrary& library);
// Greet, Wave, Explain and GetAttention: gestures the character can speak at the end of.
Animations gestureAnimations(const PartLibrary& library);
// Read, ReadContinued and ReadReturn.
Animations readingAnimations(const PartLibrary& library);
// What the character does when left alone, from glancing around to dozing off.
Animations idleAnimations(const PartLibrary& library);
// MoveLeft, MoveRight, MoveUp and MoveDown.
Animations movingAnimations(const PartLibrary& library);

} // namespace lumo
