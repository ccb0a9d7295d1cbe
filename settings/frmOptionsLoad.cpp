#include "commands/VoiceCommands.h"
#include "core/App.h"
#include "core/Conversions.h"
#include "core/OnTop.h"
#include "core/ReportError.h"
#include "core/frmMain.h"
#include "settings/frmOptions.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <cmath>

namespace
{

constexpr std::int32_t InvalidPropertyValue = 380;
constexpr std::int32_t NoSuchControl = 340;

// The whole number that a stored text begins with.
int WholeNumber(const QString& text)
{
    return int(std::nearbyint(Conversions::Val(text)));
}

// A check box holds 0 or 1; any other stored number is refused as the box would refuse it.
void SetCheckValue(QCheckBox* box, int value)
{
    if (value != 0 && value != 1)
        throw platform::RuntimeError(InvalidPropertyValue, QStringLiteral("Quorl"),
                                     QStringLiteral("Invalid property value"));
    box->setChecked(value == 1);
}

} // namespace

void frmOptions::Form_Load()
{
    const auto& s = app.Settings;
    const auto text = [&s](QLineEdit* box, const char* name, const char* defaultValue) {
        return [=, &s] {
            box->setText(s.Get(QLatin1String(name), QString::fromLatin1(defaultValue)));
        };
    };
    const auto check = [&s](QCheckBox* box, const char* name, const char* defaultValue) {
        return [=, &s] {
            SetCheckValue(box,
                          WholeNumber(s.Get(QLatin1String(name), QLatin1String(defaultValue))));
        };
    };
    const auto greeting = [&s] {
        return WholeNumber(s.Get(QStringLiteral("Greeting"), QStringLiteral("0")));
    };

    RunSteps(app, false, 7,
             {
                 [&] { ShowVoiceComms(app, false); },
                 [&] { app.ModalOpen = 1; },
                 [&] { SSTab1_GotFocus(); },
                 [&] {
                     if (app.OnTop)
                         SetOnTop(app, false);
                 },
                 [&] { txtChar->setText(s.ReadText(QStringLiteral("Character"))); },
                 text(txtTime, "TimeCmd", "What is the time?"),
                 text(txtDate, "DateCmd", "What is the date?"),
                 text(txtShut, "ShutCmd", "Shut Down"),
                 text(txtClip, "ClipCmd", "Read from clip board"),
                 text(txtNotes, "NotesCmd", "Notes and Reminders"),
                 text(txtRestart, "RestartCmd", "Restart Windows"),
                 text(txtRemind, "ReminderText", "You have a reminder"),
                 [&] { SetCheckValue(chkAnimate, WholeNumber(app.AnimateRead)); },
                 check(chkClick, "Click", "0"),
                 check(chkClick1, "Click1", "1"),
                 [&] { chkSave->setChecked(app.MainForm->mnuFileSave->isChecked()); },
                 check(chkIdle, "IdleAnimations", "1"),
                 check(chkEffects, "SoundEffects", "1"),
                 check(chkMin, "StartMinimized", "1"),
                 check(chkShow, "Show", "1"),
                 check(chkSplash, "Splash", "1"),
                 // Switching the button on runs its click, which ticks chkGreetTime; the stored
                 // state of that box is read after it.
                 [&] {
                     const int index = greeting();
                     if (index < 0 || index >= int(optGreet.size()))
                         throw platform::RuntimeError(
                             NoSuchControl, QStringLiteral("Quorl"),
                             QStringLiteral("Control array element '%1' doesn't exist").arg(index));
                     optGreet[std::size_t(index)]->setChecked(true);
                 },
                 [&] { GreetOption = std::int16_t(greeting()); },
                 check(chkGreetTime, "TimeGreeting", "1"),
                 text(txtGreet, "GreetingText", " "),
                 check(chkShut, "ShutDown", "1"),
                 check(chkTime, "EnTime", "1"),
                 check(chkDate, "EnDate", "1"),
                 check(chkReadClip, "EnReadClip", "1"),
                 check(chkNotes, "EnNotes", "1"),
                 check(chkRestart, "EnRestart", "1"),
                 check(chkNoteDate, "NoteDate", "1"),
                 check(chkNoteTime, "NoteTime", "1"),
                 check(chkShowIfHidden, "ShowIfHidden", "1"),
                 check(chkReadNote, "ReadNote", "1"),
             });
}
