#pragma once

#include "agent/acs/CharacterData.h"

namespace agent::acs::testing
{

struct SyntheticOptions {
    bool voice = true;
    bool balloon = true;
};

// A small character that uses every structure of the file: shared and placeholder images of
// odd widths, branches, exit branches, a speaking frame with all seven mouths, sounds,
// upper-case states and two languages.
CharacterData syntheticCharacter(const SyntheticOptions& options = {});

} // namespace agent::acs::testing
