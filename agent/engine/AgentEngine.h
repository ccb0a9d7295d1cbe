#pragma once

#include "agent/EngineServices.h"
#include "agent/engine/EngineCharacters.h"
#include "agent/engine/SpeechChannel.h"
#include "agent/runtime/RuntimeTiming.h"
#include "platform/Agent.h"

#include <QObject>
#include <memory>
#include <optional>

namespace agent
{
class PropertySheet;
}

namespace agent::engine
{

struct EngineOptions {
    runtime::RuntimeTiming timing;
    // Fixed for repeatable tests; otherwise each character draws its own.
    std::optional<std::uint32_t> seed;
};

// The character control: characters, their requests and commands, the speech flags and the
// property sheet. Events reach the sink from the event loop, never from inside a call.
class AgentEngine : public platform::Agent
{
public:
    AgentEngine(std::unique_ptr<SpeechOutput> speech, std::unique_ptr<SpeechRecognizer> recognizer,
                EngineOptions options = {});
    ~AgentEngine() override;

    bool AudioOutputEnabled() const override;
    bool SpeechInputInstalled() const override;
    bool SpeechInputEnabled() const override;

    void setPropertySheetPage(const QString& page) override;
    void setPropertySheetVisible(bool visible) override;

    EngineCharacters& Characters() override { return characters_; }

    void setEventSink(platform::AgentEvents* sink) override { sink_ = sink; }

    PropertySheet& propertySheet();

private:
    std::unique_ptr<EngineCharacter> makeCharacter(const QString& id,
                                                   std::shared_ptr<const acs::CharacterData> data);
    void raise(std::function<void(platform::AgentEvents&)> event);
    void updatePhrases();
    void applyOutputSettings();

    std::unique_ptr<SpeechOutput> speech_;
    SpeechChannel channel_;
    std::unique_ptr<SpeechRecognizer> recognizer_;
    EngineOptions options_;
    QObject eventContext_;
    platform::AgentEvents* sink_ = nullptr;
    std::unique_ptr<PropertySheet> sheet_;
    // Last, so that the characters go before the speech parts they use.
    EngineCharacters characters_;
};

} // namespace agent::engine
