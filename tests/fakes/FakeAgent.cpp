#include "fakes/FakeAgent.h"

namespace fakes
{

namespace
{

QString flag(bool value)
{
    return value ? QStringLiteral("1") : QStringLiteral("0");
}

platform::RuntimeError notFound(const QString& what)
{
    return platform::RuntimeError(platform::errors::ElementNotFound, platform::AgentSource,
                                  what + QStringLiteral(" not found"));
}

} // namespace

FakeCommand::FakeCommand(QStringList& log, QString name, QString caption, QString voice,
                         bool enabled, bool visible)
    : log_(log), name_(std::move(name)), caption_(std::move(caption)), voice_(std::move(voice)),
      enabled_(enabled), visible_(visible)
{
}

void FakeCommand::setCaption(const QString& caption)
{
    log_ << QStringLiteral("Command(%1).Caption=%2").arg(name_, caption);
    caption_ = caption;
}

void FakeCommand::setVoice(const QString& voice)
{
    log_ << QStringLiteral("Command(%1).Voice=%2").arg(name_, voice);
    voice_ = voice;
}

void FakeCommand::setEnabled(bool enabled)
{
    log_ << QStringLiteral("Command(%1).Enabled=%2").arg(name_, flag(enabled));
    enabled_ = enabled;
}

void FakeCommand::setVisible(bool visible)
{
    log_ << QStringLiteral("Command(%1).Visible=%2").arg(name_, flag(visible));
    visible_ = visible;
}

void FakeCommands::setCaption(const QString& caption)
{
    agent_.throwIfFailing(QStringLiteral("Commands.Caption"));
    agent_.calls << QStringLiteral("Commands.Caption=") + caption;
    caption_ = caption;
}

void FakeCommands::setVoice(const QString& voice)
{
    agent_.throwIfFailing(QStringLiteral("Commands.Voice"));
    agent_.calls << QStringLiteral("Commands.Voice=") + voice;
    voice_ = voice;
}

void FakeCommands::setVisible(bool visible)
{
    agent_.throwIfFailing(QStringLiteral("Commands.Visible"));
    agent_.calls << QStringLiteral("Commands.Visible=") + flag(visible);
    visible_ = visible;
}

void FakeCommands::Add(const QString& name, const QString& caption, const QString& voice,
                       bool enabled, bool visible)
{
    const QString call = QStringLiteral("Commands.Add(%1,%2,%3,%4,%5)")
                             .arg(name, caption, voice, flag(enabled), flag(visible));
    agent_.throwIfFailing(call);
    agent_.calls << call;
    entries_.push_back(
        std::make_unique<FakeCommand>(agent_.calls, name, caption, voice, enabled, visible));
}

void FakeCommands::RemoveAll()
{
    agent_.throwIfFailing(QStringLiteral("Commands.RemoveAll"));
    agent_.calls << QStringLiteral("Commands.RemoveAll()");
    entries_.clear();
}

platform::AgentCommand& FakeCommands::Command(const QString& name)
{
    agent_.throwIfFailing(QStringLiteral("Commands.Command(") + name);
    for (auto& entry : entries_)
        if (entry->Name() == name)
            return *entry;
    throw notFound(QStringLiteral("command ") + name);
}

void FakeBalloon::setVisible(bool v)
{
    log_ << QStringLiteral("Balloon.Visible=") + flag(v);
    visible = v;
}

FakeCharacter::FakeCharacter(FakeAgent& agent, QString file)
    : file(std::move(file)), balloon(agent.calls), commands(agent), agent_(agent)
{
}

platform::Request FakeCharacter::request(const QString& call)
{
    agent_.throwIfFailing(call);
    agent_.calls << call;
    auto r = std::make_shared<FakeRequest>(call, agent_.newRequestStatus);
    agent_.requests.push_back(r);
    return r;
}

platform::Request FakeCharacter::Speak(const QString& text)
{
    return request(QStringLiteral("Speak(") + text + QLatin1Char(')'));
}

platform::Request FakeCharacter::Play(const QString& animation)
{
    if (!animations.count(animation))
        throw notFound(QStringLiteral("animation ") + animation);
    return request(QStringLiteral("Play(") + animation + QLatin1Char(')'));
}

platform::Request FakeCharacter::Show(bool fast)
{
    return request(QStringLiteral("Show(") + flag(fast) + QLatin1Char(')'));
}

platform::Request FakeCharacter::Hide()
{
    return request(QStringLiteral("Hide()"));
}

platform::Request FakeCharacter::MoveTo(std::int16_t x, std::int16_t y)
{
    return request(QStringLiteral("MoveTo(%1,%2)").arg(x).arg(y));
}

void FakeCharacter::setIdleOn(bool on)
{
    agent_.calls << QStringLiteral("IdleOn=") + flag(on);
    idleOn = on;
}

void FakeCharacter::setSoundEffectsOn(bool on)
{
    agent_.calls << QStringLiteral("SoundEffectsOn=") + flag(on);
    soundEffectsOn = on;
}

void FakeCharacters::Load(const QString& id, const QString& file)
{
    const QString call = QStringLiteral("Load(%1,%2)").arg(id, file);
    agent_.throwIfFailing(call);
    agent_.calls << call;
    if (file.isEmpty() || agent_.badFiles.count(file))
        throw platform::RuntimeError(platform::errors::BadFileFormat, platform::AgentSource,
                                     QStringLiteral("not a character file: ") + file);
    loaded[id] = std::make_unique<FakeCharacter>(agent_, file);
    loaded[id]->hasOtherClients = agent_.loadWithOtherClients;
}

platform::AgentCharacter& FakeCharacters::Character(const QString& id)
{
    const auto it = loaded.find(id);
    if (it == loaded.end())
        throw notFound(QStringLiteral("character ") + id);
    return *it->second;
}

void FakeCharacters::Unload(const QString& id)
{
    agent_.calls << QStringLiteral("Unload(%1)").arg(id);
    loaded.erase(id);
}

FakeAgent::FakeAgent() : characters(*this) {}

bool FakeAgent::AudioOutputEnabled() const
{
    throwIfFailing(QStringLiteral("AudioOutput.Enabled"));
    return audioOutputEnabled;
}

bool FakeAgent::SpeechInputInstalled() const
{
    throwIfFailing(QStringLiteral("SpeechInput.Installed"));
    return speechInputInstalled;
}

bool FakeAgent::SpeechInputEnabled() const
{
    throwIfFailing(QStringLiteral("SpeechInput.Enabled"));
    return speechInputEnabled;
}

void FakeAgent::setPropertySheetPage(const QString& page)
{
    calls << QStringLiteral("PropertySheet.Page=") + page;
    propertySheetPage = page;
}

void FakeAgent::setPropertySheetVisible(bool visible)
{
    calls << QStringLiteral("PropertySheet.Visible=") + flag(visible);
    propertySheetVisible = visible;
}

QStringList FakeAgent::spoken() const
{
    QStringList texts;
    for (const QString& call : calls)
        if (call.startsWith(QStringLiteral("Speak(")))
            texts << call.mid(6, call.size() - 7);
    return texts;
}

QStringList FakeAgent::callsStartingWith(const QString& prefix) const
{
    QStringList found;
    for (const QString& call : calls)
        if (call.startsWith(prefix))
            found << call;
    return found;
}

void FakeAgent::failCalls(const QString& prefix, const platform::RuntimeError& error)
{
    failing_.emplace_back(prefix, error);
}

void FakeAgent::throwIfFailing(const QString& call) const
{
    for (const auto& [prefix, error] : failing_)
        if (call.startsWith(prefix))
            throw error;
}

FakeCharacter* FakeAgent::character(const QString& id)
{
    const auto it = characters.loaded.find(id);
    return it == characters.loaded.end() ? nullptr : it->second.get();
}

void FakeAgent::raiseClick(int button, const QString& id)
{
    events->Agent1_Click(id, button, 0, 0, 0);
}
void FakeAgent::raiseShow(const QString& id)
{
    if (auto* c = character(id))
        c->visible = true;
    events->Agent1_Show(id, 0);
}
void FakeAgent::raiseHide(const QString& id)
{
    if (auto* c = character(id))
        c->visible = false;
    events->Agent1_Hide(id, 0);
}
void FakeAgent::raiseIdleStart(const QString& id)
{
    events->Agent1_IdleStart(id);
}
void FakeAgent::raiseCommand(const QString& name)
{
    events->Agent1_Command({name});
}
void FakeAgent::raiseShutdown()
{
    events->Agent1_Shutdown();
}
void FakeAgent::raiseError(const platform::RuntimeError& error)
{
    events->Agent1_Error(error);
}

} // namespace fakes
