#include "fakes/FakeAgent.h"

namespace fakes
{

namespace
{

platform::RuntimeError notFound(const QString& what)
{
    return platform::RuntimeError(platform::errors::ElementNotFound, platform::AgentSource,
                                  what + QStringLiteral(" not found"));
}

} // namespace

void FakeCommands::log(const QString& property, const QString& value)
{
    agent_.throwIfFailing("Commands." + property);
    agent_.calls << "Commands." + property + "=" + value;
}

void FakeCommands::Add(const QString& name, const QString& caption, const QString& voice,
                       bool enabled, bool visible)
{
    const QString call =
        QStringLiteral("Commands.Add(%1,%2,%3,%4,%5)")
            .arg(name, caption, voice, FakeCommand::flag(enabled), FakeCommand::flag(visible));
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

FakeCharacter::FakeCharacter(FakeAgent& agent)
    : balloon(agent.calls), commands(agent), agent_(agent)
{
}

platform::Request FakeCharacter::request(const QString& call)
{
    agent_.throwIfFailing(call);
    agent_.calls << call;
    agent_.lastRequest_ = std::make_shared<FakeRequest>(platform::AgentRequest::Complete);
    return agent_.lastRequest_;
}

platform::Request FakeCharacter::Play(const QString& animation)
{
    if (!animations.count(animation))
        throw notFound(QStringLiteral("animation ") + animation);
    return request(QStringLiteral("Play(") + animation + QLatin1Char(')'));
}

void FakeCharacter::log(const char* property, bool on)
{
    agent_.calls << QLatin1String(property) + FakeCommand::flag(on);
}

void FakeCharacters::Load(const QString& id, const QString& file)
{
    const QString call = QStringLiteral("Load(%1,%2)").arg(id, file);
    agent_.throwIfFailing(call);
    agent_.calls << call;
    if (file.isEmpty() || agent_.badFiles.count(file))
        throw platform::RuntimeError(platform::errors::BadFileFormat, platform::AgentSource,
                                     QStringLiteral("not a character file: ") + file);
    loaded[id] = std::make_unique<FakeCharacter>(agent_);
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

void FakeAgent::setPropertySheetPage(const QString& page)
{
    calls << QStringLiteral("PropertySheet.Page=") + page;
    propertySheetPage = page;
}

void FakeAgent::setPropertySheetVisible(bool visible)
{
    calls << QStringLiteral("PropertySheet.Visible=") + FakeCommand::flag(visible);
    propertySheetVisible = visible;
}

QStringList FakeAgent::spoken() const
{
    QStringList texts = callsStartingWith(QStringLiteral("Speak("));
    for (QString& text : texts)
        text = text.mid(6, text.size() - 7);
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

} // namespace fakes
