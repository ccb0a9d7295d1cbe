#pragma once

#include "agent/EngineServices.h"
#include "agent/engine/EngineCommand.h"
#include "platform/Agent.h"

#include <functional>
#include <memory>
#include <vector>

namespace agent::engine
{

// A character's command list: the popup menu entries and the phrases listened for.
class EngineCommands : public platform::AgentCommands
{
public:
    // listeningChanged: the phrases to listen for may have changed.
    explicit EngineCommands(std::function<void()> listeningChanged);

    QString Caption() const override { return caption_; }
    void setCaption(const QString& caption) override { caption_ = caption; }
    QString Voice() const override { return voice_; }
    void setVoice(const QString& voice) override { voice_ = voice; }
    bool Visible() const override { return visible_; }
    void setVisible(bool visible) override { visible_ = visible; }
    // A name that is already in the list takes over that entry, in its place.
    void Add(const QString& name, const QString& caption, const QString& voice, bool enabled,
             bool visible) override;
    void RemoveAll() override;
    EngineCommand& Command(const QString& name) override;
    int Count() const override { return static_cast<int>(entries_.size()); }
    EngineCommand& At(int index) override;
    const EngineCommand& entry(int index) const { return *entries_[index]; }

    // The voice texts of the enabled entries that have one.
    std::vector<VoicePhrase> phrases() const;
    // The entry of that name if it is enabled, else null.
    const EngineCommand* enabledEntry(const QString& name) const;

private:
    EngineCommand* find(const QString& name) const;

    QString caption_;
    QString voice_;
    bool visible_ = true;
    std::vector<std::unique_ptr<EngineCommand>> entries_;
    std::function<void()> listeningChanged_;
};

} // namespace agent::engine
