#include "agent/engine/AgentEngine.h"

#include "agent/EngineSettings.h"
#include "agent/sheet/PropertySheet.h"

#include <QLoggingCategory>
#include <random>

namespace agent::engine
{

namespace
{

Q_LOGGING_CATEGORY(lcEngine, "agent.engine", QtWarningMsg)

} // namespace

AgentEngine::AgentEngine(std::unique_ptr<SpeechOutput> speech,
                         std::unique_ptr<SpeechRecognizer> recognizer, EngineOptions options)
    : speech_(std::move(speech)), channel_(*speech_), recognizer_(std::move(recognizer)),
      options_(options),
      characters_(
          [this](const QString& id, std::shared_ptr<const acs::CharacterData> data) {
              return makeCharacter(id, std::move(data));
          },
          [this] { updatePhrases(); })
{
    QObject::connect(&EngineSettings::shared(), &EngineSettings::changed, &eventContext_,
                     [this](const QString& key) {
                         if (key.isEmpty() || key.startsWith(QLatin1String("Output/")))
                             applyOutputSettings();
                     });
    if (recognizer_) {
        QObject::connect(
            recognizer_.get(), &SpeechRecognizer::commandRecognized, &eventContext_,
            [this](const QString& name) {
                for (EngineCharacter* character : characters_.all()) {
                    if (character->Commands().enabledEntry(name)) {
                        raise([name](platform::AgentEvents& sink) { sink.Agent1_Command({name}); });
                        return;
                    }
                }
            });
        QObject::connect(
            recognizer_.get(), &SpeechRecognizer::listeningFailed, &eventContext_,
            [this](int number, const QString& source, const QString& description) {
                const platform::RuntimeError error(number, source, description);
                raise([error](platform::AgentEvents& sink) { sink.Agent1_Error(error); });
            });
    }
}

AgentEngine::~AgentEngine() = default;

bool AgentEngine::AudioOutputEnabled() const
{
    return speech_->available() && EngineSettings::shared().speechOutputEnabled();
}

bool AgentEngine::SpeechInputInstalled() const
{
    return recognizer_ && recognizer_->installed();
}

bool AgentEngine::SpeechInputEnabled() const
{
    return recognizer_ && recognizer_->enabled();
}

void AgentEngine::setPropertySheetPage(const QString& page)
{
    propertySheet().setPage(page);
}

void AgentEngine::setPropertySheetVisible(bool visible)
{
    if (!visible) {
        if (sheet_)
            sheet_->hide();
        return;
    }
    PropertySheet& sheet = propertySheet();
    sheet.show();
    sheet.raise();
    sheet.activateWindow();
}

PropertySheet& AgentEngine::propertySheet()
{
    if (!sheet_) {
        sheet_ = std::make_unique<PropertySheet>();
        if (QWidget* page = recognizer_ ? recognizer_->createSettingsPage() : nullptr)
            sheet_->setSpeechPage(page);
    }
    return *sheet_;
}

std::unique_ptr<EngineCharacter>
AgentEngine::makeCharacter(const QString& id, std::shared_ptr<const acs::CharacterData> data)
{
    const std::uint32_t seed = options_.seed.value_or(std::random_device{}());
    auto character = std::make_unique<EngineCharacter>(
        id, std::move(data), channel_.seat(), options_.timing, seed,
        [this](std::function<void(platform::AgentEvents&)> event) { raise(std::move(event)); },
        [this] { updatePhrases(); });
    const EngineSettings& settings = EngineSettings::shared();
    character->applyEngineSwitches(settings.balloonEnabled(), settings.soundEffectsEnabled());
    return character;
}

void AgentEngine::raise(std::function<void(platform::AgentEvents&)> event)
{
    QMetaObject::invokeMethod(
        &eventContext_,
        [this, event = std::move(event)] {
            if (!sink_)
                return;
            // The program's handlers are its own business, but nothing may escape into the
            // event loop.
            try {
                event(*sink_);
            } catch (const std::exception& error) {
                qCWarning(lcEngine) << "event handler failed:" << error.what();
            } catch (...) {
                qCWarning(lcEngine) << "event handler failed";
            }
        },
        Qt::QueuedConnection);
}

void AgentEngine::updatePhrases()
{
    if (!recognizer_)
        return;
    std::vector<VoicePhrase> phrases;
    for (EngineCharacter* character : characters_.all()) {
        const std::vector<VoicePhrase> own = character->Commands().phrases();
        phrases.insert(phrases.end(), own.begin(), own.end());
    }
    recognizer_->setPhrases(phrases);
}

void AgentEngine::applyOutputSettings()
{
    const EngineSettings& settings = EngineSettings::shared();
    for (EngineCharacter* character : characters_.all())
        character->applyEngineSwitches(settings.balloonEnabled(), settings.soundEffectsEnabled());
}

} // namespace agent::engine
