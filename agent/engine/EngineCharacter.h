#pragma once

#include "agent/EngineServices.h"
#include "agent/engine/EngineBalloon.h"
#include "agent/engine/EngineCommands.h"
#include "agent/runtime/CharacterRuntime.h"
#include "platform/Agent.h"

#include <QMenu>
#include <functional>
#include <memory>

namespace agent::engine
{

// Hands an event to the program; the engine delivers it later from the event loop.
using RaiseEvent = std::function<void(std::function<void(platform::AgentEvents&)>)>;

// One loaded character as the program drives it.
class EngineCharacter : public platform::AgentCharacter
{
public:
    EngineCharacter(QString id, std::shared_ptr<const acs::CharacterData> character,
                    std::unique_ptr<SpeechOutput> speech, const runtime::RuntimeTiming& timing,
                    std::uint32_t seed, RaiseEvent raise, std::function<void()> listeningChanged);

    platform::Request Speak(const QString& text) override;
    platform::Request Play(const QString& animation) override;
    platform::Request Show(bool fast = false) override;
    platform::Request Hide() override;
    platform::Request MoveTo(std::int16_t x, std::int16_t y) override;

    bool Visible() const override { return runtime_->isVisible(); }
    QString Name() const override { return name_; }
    int Left() const override { return runtime_->position().x(); }
    int Top() const override { return runtime_->position().y(); }
    int Pitch() const override { return voice_.pitchHz; }
    int Speed() const override { return voice_.speedWpm; }
    bool HasOtherClients() const override { return false; }

    void setIdleOn(bool on) override { runtime_->setIdleOn(on); }
    void setSoundEffectsOn(bool on) override;

    EngineBalloon& Balloon() override { return balloon_; }
    EngineCommands& Commands() override { return commands_; }

    // The property sheet's switches, which apply to every character.
    void applyEngineSwitches(bool balloon, bool soundEffects);

    runtime::CharacterRuntime& runtime() { return *runtime_; }

private:
    void openMenu(QPoint globalPosition);

    QString id_;
    QString name_;
    VoiceDefaults voice_;
    RaiseEvent raise_;
    // The character's seat on the engine's speech channel; the runtime speaks through it.
    std::unique_ptr<SpeechOutput> speech_;
    std::unique_ptr<runtime::CharacterRuntime> runtime_;
    EngineBalloon balloon_;
    EngineCommands commands_;
    std::unique_ptr<QMenu> menu_;
    bool soundEffectsOn_ = true;
    bool engineSoundEffects_ = true;
};

} // namespace agent::engine
