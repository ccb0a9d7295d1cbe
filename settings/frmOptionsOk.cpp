#include "apps/LoadApps.h"
#include "character/CurrentCharacter.h"
#include "character/LoadCharacter.h"
#include "commands/VoiceCommands.h"
#include "core/App.h"
#include "core/Conversions.h"
#include "core/ReportError.h"
#include "core/frmMain.h"
#include "settings/frmOptions.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QTabWidget>
#include <algorithm>

using platform::BoxButtons;
using platform::BoxIcon;

namespace
{

// Raised when a voice box is empty; ends the first stage of OK without a message of its own.
constexpr std::int32_t VoiceCommandRequired = 65456343;
constexpr int CommandsTab = 3;

QString CheckText(const QCheckBox* box)
{
    return box->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
}

bool OnlyBlanks(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c == QLatin1Char(' '); });
}

// Plays "Read" and then "ReadReturn", letting errors pass; a character without "Read" gets
// the box, and the tick goes.
void TryReadAnimation(App& app, QCheckBox* chkAnimate)
{
    try {
        CurrentCharacter(app).Play(QStringLiteral("Read"));
    } catch (const platform::RuntimeError&) {
        QString name;
        try {
            name = CurrentCharacter(app).Name();
        } catch (const platform::RuntimeError&) {
        }
        app.P.dialogs.MsgBox(BoxIcon::Critical, BoxButtons::OK, QStringLiteral("Character Error"),
                             name + QStringLiteral(" does not support the read animation."));
        chkAnimate->setChecked(false);
        return;
    }
    try {
        CurrentCharacter(app).Play(QStringLiteral("ReadReturn"));
    } catch (const platform::RuntimeError&) {
    }
}

} // namespace

void frmOptions::CheckVoiceCommand(const QString& Text, QLineEdit* Box)
{
    if (!Text.isEmpty())
        return;
    app.P.dialogs.MsgBox(BoxIcon::Critical, BoxButtons::OK,
                         QStringLiteral("Voice Command Required"),
                         QStringLiteral("Voice commands cannot be empty"));
    SSTab1->setCurrentIndex(CommandsTab);
    Box->setFocus();
    throw platform::RuntimeError(VoiceCommandRequired, QStringLiteral("Quorl"),
                                 QStringLiteral("Voice commands cannot be empty"));
}

// The text is stored even when the running character has no such command.
void frmOptions::ChangeVoiceComm(const QString& Comm, const QString& Voice,
                                 const QString& RegitryEntry)
{
    try {
        CharacterCommands(app).Command(Comm).setVoice(Voice);
    } catch (const platform::RuntimeError&) {
    }
    try {
        app.Settings.Write(RegitryEntry, Voice);
    } catch (const platform::RuntimeError&) {
    }
}

void frmOptions::cmdOK_Click()
{
    const auto& s = app.Settings;
    // First stage: any failure ends OK here, and the dialog stays open with what was typed.
    try {
        if (txtChar->text().isEmpty()) {
            app.P.dialogs.MsgBox(BoxIcon::Critical, BoxButtons::OK,
                                 QStringLiteral("Character not specified"),
                                 QStringLiteral("Please specify a character file (ACS file)"));
            txtChar->setFocus();
            return;
        }
        for (QLineEdit* box : {txtDate, txtTime, txtShut, txtNotes, txtClip, txtRestart})
            CheckVoiceCommand(box->text(), box);
        s.Write(QStringLiteral("SoundEffects"), CheckText(chkEffects));
        s.Write(QStringLiteral("IdleAnimations"), CheckText(chkIdle));
        s.Write(QStringLiteral("Show"), CheckText(chkShow));
        // Another letter case is another file name.
        QString file = txtChar->text();
        const bool sameCharacter = s.ReadText(QStringLiteral("Character")) == file;
        LoadCharacter(app, false, file, sameCharacter);
    } catch (const platform::RuntimeError&) {
        return;
    }

    const auto store = [&s](const char* name, const QCheckBox* box) {
        return [=, &s] { s.Write(QLatin1String(name), CheckText(box)); };
    };
    const auto voice = [this](const char* comm, const QLineEdit* box, const char* entry) {
        return
            [=, this] { ChangeVoiceComm(QLatin1String(comm), box->text(), QLatin1String(entry)); };
    };
    const auto enable = [this](const char* comm, const char* entry) {
        return [=, this] { EnableVoiceComm(app, QLatin1String(comm), QLatin1String(entry)); };
    };
    bool testAnimation = false;
    bool wasVisible = false;
    RunSteps(app, false, 16,
             {
                 voice("Time", txtTime, "TimeCmd"),
                 voice("Date", txtDate, "DateCmd"),
                 voice("Shut", txtShut, "ShutCmd"),
                 voice("Clip", txtClip, "ClipCmd"),
                 voice("Notes", txtNotes, "NotesCmd"),
                 voice("Restart", txtRestart, "RestartCmd"),
                 store("TimeGreeting", chkGreetTime),
                 store("Shutdown", chkShut),
                 store("EnTime", chkTime),
                 store("EnDate", chkDate),
                 store("EnReadClip", chkReadClip),
                 store("EnNotes", chkNotes),
                 store("EnRestart", chkRestart),
                 enable("Clip", "EnReadClip"),
                 enable("Notes", "EnNotes"),
                 enable("Time", "EnTime"),
                 enable("Date", "EnDate"),
                 enable("Restart", "EnRestart"),
                 enable("Shut", "Shutdown"),
                 store("StartMinimized", chkMin),
                 [&] { s.Write(QStringLiteral("Greeting"), QString::number(GreetOption)); },
                 // An empty text would read as missing next time.
                 [&] {
                     if (txtGreet->text().isEmpty())
                         txtGreet->setText(QStringLiteral(" "));
                 },
                 [&] { s.Write(QStringLiteral("GreetingText"), txtGreet->text()); },
                 store("Click", chkClick),
                 store("Click1", chkClick1),
                 [&] { app.MainForm->mnuFileSave->setChecked(chkSave->isChecked()); },
                 [&] {
                     s.Write(QStringLiteral("SaveSettings"),
                             Conversions::BoolText(app.MainForm->mnuFileSave->isChecked()));
                 },
                 store("Splash", chkSplash),
                 store("ShowIfHidden", chkShowIfHidden),
                 store("ReadNote", chkReadNote),
                 store("NoteTime", chkNoteTime),
                 store("NoteDate", chkNoteDate),
                 [&] {
                     if (OnlyBlanks(txtRemind->text()))
                         txtRemind->setText(QStringLiteral(" "));
                 },
                 [&] { s.Write(QStringLiteral("ReminderText"), txtRemind->text()); },
                 // The reading animation is tried once, with the character shown for the test.
                 [&] { testAnimation = chkAnimate->isChecked(); },
                 [&] {
                     if (testAnimation)
                         wasVisible = CurrentCharacter(app).Visible();
                 },
                 [&] {
                     if (testAnimation)
                         CurrentCharacter(app).Show();
                 },
                 [&] {
                     if (testAnimation)
                         TryReadAnimation(app, chkAnimate);
                 },
                 [&] {
                     if (!testAnimation)
                         return;
                     if (wasVisible)
                         CurrentCharacter(app).Show();
                     else
                         CurrentCharacter(app).Hide();
                 },
                 [&] {
                     app.AnimateRead = CheckText(chkAnimate);
                     s.Write(QStringLiteral("Animate"), app.AnimateRead);
                 },
                 [&] { ShowVoiceComms(app, true); },
                 [&] { LoadApps(app); },
                 [&] { Unload(); },
             });
}
