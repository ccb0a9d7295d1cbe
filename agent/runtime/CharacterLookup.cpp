#include "agent/runtime/CharacterLookup.h"

namespace agent::runtime
{

int findAnimation(const acs::CharacterData& character, const QString& name)
{
    if (name.isEmpty())
        return -1;
    for (std::size_t i = 0; i < character.animations.size(); ++i) {
        if (character.animations[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    }
    return -1;
}

std::vector<int> stateAnimations(const acs::CharacterData& character, const QString& state)
{
    std::vector<int> found;
    for (const acs::State& candidate : character.states) {
        if (candidate.name.compare(state, Qt::CaseInsensitive) != 0)
            continue;
        for (const QString& name : candidate.animations) {
            const int index = findAnimation(character, name);
            if (index >= 0)
                found.push_back(index);
        }
    }
    return found;
}

} // namespace agent::runtime
