#include "commands/VoiceCommands.h"

#include "core/App.h"
#include "core/Conversions.h"
#include "core/ReportError.h"

namespace
{

const QString Blank = QStringLiteral(" ");
const QString GroupName = QStringLiteral("Quorl");

} // namespace

platform::AgentCommands& CharacterCommands(App& app)
{
    constexpr std::int32_t ObjectNotSet = 91;
    if (!app.Character)
        throw platform::RuntimeError(ObjectNotSet, QStringLiteral("Quorl"),
                                     QStringLiteral("No character is loaded"));
    return app.Character->Commands();
}

void SetVoiceCommands(App& app)
{
    constexpr float Where = 5;
    QString TimeCmd, DateCmd, ShutCmd, NotesCmd, ClipCmd, RestartCmd;
    bool installed = false;
    RunSteps(
        app, false, Where,
        {[&] {
             TimeCmd =
                 app.Settings.Get(QStringLiteral("TimeCmd"), QStringLiteral("What is the time"));
         },
         [&] {
             DateCmd =
                 app.Settings.Get(QStringLiteral("DateCmd"), QStringLiteral("What is the date"));
         },
         [&] {
             ShutCmd = app.Settings.Get(QStringLiteral("ShutCmd"), QStringLiteral("Shut Down"));
         },
         [&] { NotesCmd = app.Settings.Get(QStringLiteral("NotesCmd"), QStringLiteral("Notes")); },
         [&] {
             ClipCmd = app.Settings.Get(QStringLiteral("ClipCmd"), QStringLiteral("Clip Board"));
         },
         [&] {
             RestartCmd =
                 app.Settings.Get(QStringLiteral("RestartCmd"), QStringLiteral("Restart Windows"));
         },
         [&] { installed = app.Agent1 && app.Agent1->SpeechInputInstalled(); }});
    if (!installed)
        return;

    const auto commands = [&app]() -> platform::AgentCommands& { return CharacterCommands(app); };
    const auto add = [&](const QString& name, const QString& caption, const QString& voice,
                         bool enabled, bool visible) {
        return [=, &commands] { commands().Add(name, caption, voice, enabled, visible); };
    };
    const auto enable = [&app](const QString& comm, const QString& entryName) {
        return [=, &app] { EnableVoiceComm(app, comm, entryName); };
    };
    RunSteps(
        app, false, Where,
        {[&] { commands().RemoveAll(); },
         [&] { commands().setCaption(GroupName); },
         [&] { commands().setVoice(GroupName); },
         [&] { commands().setVisible(true); },
         add(QStringLiteral("Clip"), QStringLiteral("Read From Clip Board"), ClipCmd, true, true),
         add(QStringLiteral("Notes"), QStringLiteral("Notes && Reminders"), NotesCmd, true, true),
         add(QStringLiteral("Time"), QStringLiteral("What is the Time?"), TimeCmd, true, true),
         add(QStringLiteral("Date"), QStringLiteral("What is the Date?"), DateCmd, true, true),
         add(QStringLiteral("Shut"), QStringLiteral("Shut Down Windows"), ShutCmd, true, true),
         add(QStringLiteral("Restart"), QStringLiteral("Restart Windows"), RestartCmd, true, true),
         enable(QStringLiteral("Clip"), QStringLiteral("EnReadClip")),
         enable(QStringLiteral("Notes"), QStringLiteral("EnNotes")),
         enable(QStringLiteral("Time"), QStringLiteral("EnTime")),
         enable(QStringLiteral("Date"), QStringLiteral("EnDate")),
         enable(QStringLiteral("Restart"), QStringLiteral("EnRestart")),
         enable(QStringLiteral("Shut"), QStringLiteral("Shutdown")),
         add(QStringLiteral("CloseQuorl"), QStringLiteral("Close Quorl"),
             QStringLiteral("(Quit Quorl | Close Quorl)"), true, true),
         add(QStringLiteral("Yes"), QStringLiteral("Yes"), QStringLiteral("(Yes)"), false, false),
         add(QStringLiteral("No"), QStringLiteral("No"), QStringLiteral("(No)"), false, false),
         add(Blank, Blank, Blank, false, true)});
}

void EnableVoiceComm(App& app, const QString& Comm, const QString& EntryName)
{
    try {
        const bool on = Conversions::Val(app.Settings.Get(EntryName, QStringLiteral("1"))) != 0;
        platform::AgentCommand& command = CharacterCommands(app).Command(Comm);
        command.setEnabled(on);
        command.setVisible(on);
    } catch (const platform::RuntimeError& error) {
        ReportError(app, false, 15, error);
    }
}

// Only the group's visibility changes: its spoken name stays "Quorl" while a window is open,
// since nothing depends on it then.
void ShowVoiceComms(App& app, bool Show)
{
    try {
        CharacterCommands(app).setVisible(Show);
    } catch (const platform::RuntimeError&) {
    }
}
