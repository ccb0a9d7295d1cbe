#pragma once

#include "agent/acs/CharacterData.h"

#include <QString>
#include <vector>

// Finding animations and states by name; names match without regard to case.
namespace agent::runtime
{

// The index of the animation, or -1.
int findAnimation(const acs::CharacterData& character, const QString& name);

// The indexes of the state's animations that exist; empty for an unknown state.
std::vector<int> stateAnimations(const acs::CharacterData& character, const QString& state);

} // namespace agent::runtime
