#pragma once

#include "agent/engine/EngineCharacter.h"
#include "platform/Agent.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace agent::engine
{

// The loaded characters by id.
class EngineCharacters : public platform::AgentCharacters
{
public:
    using Factory = std::function<std::unique_ptr<EngineCharacter>(
        const QString& id, std::shared_ptr<const acs::CharacterData> character)>;

    // changed: a character was loaded or unloaded.
    EngineCharacters(Factory factory, std::function<void()> changed);

    // Loading an id that is in use replaces that character.
    void Load(const QString& id, const QString& file) override;
    EngineCharacter& Character(const QString& id) override;
    // An id that is not loaded is passed over.
    void Unload(const QString& id) override;

    std::vector<EngineCharacter*> all() const;

private:
    Factory factory_;
    std::function<void()> changed_;
    std::map<QString, std::unique_ptr<EngineCharacter>> loaded_;
};

} // namespace agent::engine
