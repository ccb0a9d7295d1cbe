#include "agent/engine/EngineCharacter.h"

#include "agent/engine/CharacterName.h"
#include "agent/engine/CharacterVoice.h"
#include "agent/engine/EngineErrors.h"
#include "agent/engine/PopupMenu.h"
#include "agent/runtime/CharacterLookup.h"

namespace agent::engine
{

EngineCharacter::EngineCharacter(QString id, std::shared_ptr<const acs::CharacterData> character,
                                 std::unique_ptr<SpeechOutput> speech,
                                 const runtime::RuntimeTiming& timing, std::uint32_t seed,
                                 RaiseEvent raise, std::function<void()> listeningChanged)
    : id_(std::move(id)),
      name_(characterName(character->localizedInfo, languageId(QLocale::system()))),
      voice_(characterVoice(*character)), raise_(std::move(raise)), speech_(std::move(speech)),
      runtime_(std::make_unique<runtime::CharacterRuntime>(std::move(character), *speech_, voice_,
                                                           timing, seed)),
      balloon_(*runtime_), commands_(std::move(listeningChanged))
{
    runtime::CharacterRuntime* events = runtime_.get();
    QObject::connect(events, &runtime::CharacterRuntime::shown, events, [this](int cause) {
        raise_([id = id_, cause](platform::AgentEvents& sink) { sink.Agent1_Show(id, cause); });
    });
    QObject::connect(events, &runtime::CharacterRuntime::hidden, events, [this](int cause) {
        raise_([id = id_, cause](platform::AgentEvents& sink) { sink.Agent1_Hide(id, cause); });
    });
    QObject::connect(events, &runtime::CharacterRuntime::idleStarted, events, [this] {
        raise_([id = id_](platform::AgentEvents& sink) { sink.Agent1_IdleStart(id); });
    });
    QObject::connect(events, &runtime::CharacterRuntime::clicked, events,
                     [this](int button, int shift, int x, int y) {
                         raise_([id = id_, button, shift, x, y](platform::AgentEvents& sink) {
                             sink.Agent1_Click(id, button, shift, x, y);
                         });
                     });
    QObject::connect(events, &runtime::CharacterRuntime::menuRequested, events,
                     [this](QPoint position) { openMenu(position); });
}

platform::Request EngineCharacter::Speak(const QString& text)
{
    return runtime_->speak(text);
}

platform::Request EngineCharacter::Play(const QString& animation)
{
    const int index = runtime::findAnimation(runtime_->character(), animation);
    if (index < 0)
        errors::raise(errors::AnimationNotFound,
                      QStringLiteral("The character \"%1\" has no animation named \"%2\".")
                          .arg(name_, animation));
    return runtime_->play(index);
}

platform::Request EngineCharacter::Show(bool fast)
{
    return runtime_->show(fast);
}

platform::Request EngineCharacter::Hide()
{
    return runtime_->hide();
}

platform::Request EngineCharacter::MoveTo(std::int16_t x, std::int16_t y)
{
    return runtime_->moveTo(QPoint(x, y));
}

void EngineCharacter::setSoundEffectsOn(bool on)
{
    soundEffectsOn_ = on;
    runtime_->setSoundEffectsOn(soundEffectsOn_ && engineSoundEffects_);
}

void EngineCharacter::applyEngineSwitches(bool balloon, bool soundEffects)
{
    engineSoundEffects_ = soundEffects;
    runtime_->setBalloonEnabled(balloon);
    runtime_->setSoundEffectsOn(soundEffectsOn_ && engineSoundEffects_);
}

void EngineCharacter::openMenu(QPoint globalPosition)
{
    menu_ = makePopupMenu(
        popupEntries(commands_),
        [this](const QString& name) {
            if (!commands_.enabledEntry(name))
                return;
            raise_([name](platform::AgentEvents& sink) { sink.Agent1_Command({name}); });
        },
        [this] { runtime_->userHide(); });
    menu_->popup(globalPosition);
}

} // namespace agent::engine
