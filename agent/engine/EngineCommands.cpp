#include "agent/engine/EngineCommands.h"

#include "agent/engine/EngineErrors.h"

namespace agent::engine
{

EngineCommands::EngineCommands(std::function<void()> listeningChanged)
    : listeningChanged_(std::move(listeningChanged))
{
}

void EngineCommands::Add(const QString& name, const QString& caption, const QString& voice,
                         bool enabled, bool visible)
{
    EngineCommand entry(name, caption, voice, enabled, visible, listeningChanged_);
    if (EngineCommand* existing = find(name))
        *existing = std::move(entry);
    else
        entries_.push_back(std::make_unique<EngineCommand>(std::move(entry)));
    listeningChanged_();
}

void EngineCommands::RemoveAll()
{
    entries_.clear();
    listeningChanged_();
}

EngineCommand& EngineCommands::Command(const QString& name)
{
    if (EngineCommand* entry = find(name))
        return *entry;
    errors::raise(errors::CommandNotFound,
                  QStringLiteral("The command list has no command named \"%1\".").arg(name));
}

EngineCommand& EngineCommands::At(int index)
{
    if (index < 0 || index >= Count())
        errors::raise(errors::CommandNotFound,
                      QStringLiteral("The command list has no entry at position %1.").arg(index));
    return *entries_[index];
}

std::vector<VoicePhrase> EngineCommands::phrases() const
{
    std::vector<VoicePhrase> list;
    for (const auto& entry : entries_) {
        if (entry->Enabled() && !entry->Voice().trimmed().isEmpty())
            list.push_back({entry->Name(), entry->Voice()});
    }
    return list;
}

const EngineCommand* EngineCommands::enabledEntry(const QString& name) const
{
    const EngineCommand* entry = find(name);
    return entry && entry->Enabled() ? entry : nullptr;
}

EngineCommand* EngineCommands::find(const QString& name) const
{
    for (const auto& entry : entries_) {
        if (entry->Name() == name)
            return entry.get();
    }
    return nullptr;
}

} // namespace agent::engine
