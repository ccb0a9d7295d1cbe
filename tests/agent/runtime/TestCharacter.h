#pragma once

#include "agent/acs/CharacterData.h"

#include <QColor>
#include <initializer_list>
#include <vector>

// Characters built in memory for the runtime and engine tests, with a few plain colours so
// that a test can tell from one pixel which layer it sees.
namespace agent::runtime::testing
{

enum Colour : std::uint8_t { Clear = 0, Red = 1, Green = 2, Blue = 3, White = 4, Black = 5 };

QRgb rgba(Colour colour);

// A w x h image of one colour; `hole` makes its left half transparent.
acs::Image solidImage(int width, int height, Colour colour, bool hole = false);
acs::Frame frame(std::initializer_list<acs::FrameImage> images, std::uint16_t duration = 1);
acs::Animation animation(const QString& name, std::vector<acs::Frame> frames,
                         acs::Transition transition = acs::Transition::None);

// A character with the palette and one image of each colour (index = colour - 1, full size)
// and no animations.
acs::CharacterData blankCharacter(int width = 32, int height = 32);

// blankCharacter with animations for every state the runtime uses:
// "Show" (Showing), "Hide" (Hiding), "RestPose" (Speaking; Blue over White, overlays for every
// mouth: image Black at (4, 4) 8x8), "Idle1".."Idle3" (IdlingLevel1..3), "MoveLeft".."MoveDown"
// (MovingLeft..MovingDown), "Wave" and "Loop" (a 100 % branch back to its first frame, exit
// branches to its end).
acs::CharacterData fullCharacter();

} // namespace agent::runtime::testing
