#pragma once

#include "agent/acs/CharacterData.h"
#include "agent/runtime/RandomSource.h"

#include <optional>
#include <vector>

// The rules that pick the next frame of an animation. An index at or past the frame count
// means the animation has ended.
namespace agent::runtime::sequencer
{

// Normal play: a branch taken by chance, else the following frame.
int nextFrame(const acs::Animation& animation, int index, RandomSource& random);

// The frames visited when the animation is left from the displayed frame `from`, in order,
// not counting `from`. The path follows exit frames, else the following frame (no chance is
// taken); it stops at the end, at a frame that exits to itself, and after 3 x frameCount steps
// so that a cycle of exit frames cannot hold the character forever.
std::vector<int> exitPath(const acs::Animation& animation, int from);

// False when every way through the animation loops back, so that only leaving ends it.
bool endsOnItsOwn(const acs::Animation& animation);

// The frame that carries the mouth overlays: the first one that normal play reaches from
// frame 0, else the first one stored.
std::optional<int> speakingFrame(const acs::Animation& animation);

} // namespace agent::runtime::sequencer
