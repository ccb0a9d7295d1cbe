#pragma once

#include "agent/acs/ByteReader.h"
#include "agent/acs/CharacterData.h"

namespace agent::acs
{

// Reads an animation block: transition, return animation and frames. The block's own name is
// ignored in favour of `listName`, the name in the animation list.
Animation readAnimation(ByteReader& in, const QString& listName);

} // namespace agent::acs
