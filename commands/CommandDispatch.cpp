#include "commands/CommandDispatch.h"

#include "character/SayText.h"
#include "clock/SayDate.h"
#include "clock/SayTime.h"
#include "commands/VoiceCommands.h"
#include "commands/frmShut.h"
#include "core/App.h"
#include "core/Closing.h"
#include "core/Controls.h"
#include "core/Conversions.h"
#include "core/ReportError.h"
#include "core/frmMain.h"
#include "reading/ReadingControls.h"

#include <QAction>
#include <QLabel>
#include <array>
#include <cmath>

namespace
{

struct Confirmation {
    QString name;
    QString label;
    QString tag;
    QString question;
};

const std::array<Confirmation, 3> Confirmations = {{
    {QStringLiteral("Shut"), QStringLiteral("Shut Down"), QStringLiteral("1"),
     QStringLiteral("Are you sure you want to shut down?")},
    {QStringLiteral("Restart"), QStringLiteral("Restart"), QStringLiteral("2"),
     QStringLiteral("Are you sure you want to restart?")},
    {QStringLiteral("CloseQuorl"), QStringLiteral("Close Quorl"), QStringLiteral("10"),
     QStringLiteral("Are you sure you want to close Quorl?")},
}};

const Confirmation* FindConfirmation(const QString& name)
{
    for (const Confirmation& confirmation : Confirmations)
        if (confirmation.name == name)
            return &confirmation;
    return nullptr;
}

void AskConfirmation(App& app, const Confirmation& confirmation)
{
    app.ConfirmPending = true;
    frmShut& form = LoadShutForm(app);
    form.Label1->setText(confirmation.label);
    setTag(&form, confirmation.tag);
    SayText(app, confirmation.question, true);
    CharacterCommands(app).Command(QStringLiteral("No")).setEnabled(true);
    CharacterCommands(app).Command(QStringLiteral("Yes")).setEnabled(true);
    form.show();
    form.raise();
    form.activateWindow();
}

void AnswerYes(App& app)
{
    if (!app.ConfirmPending)
        return;
    app.ConfirmPending = false;
    const int code = ShutCode(app);
    if (code == 1 || code == 2) {
        if (app.MainForm->mnuFileSave->isChecked())
            mnuFileSavenow_Click(app);
        app.P.power.ExitWindowsEx(unsigned(code), 0);
        app.P.process.End();
    }
    UnloadShutForm(app);
    mnuFileExit_Click(app);
}

void AnswerNo(App& app)
{
    if (app.ConfirmPending)
        DeclineShutDown(app);
}

void RunApplication(App& app, const QString& name)
{
    const auto upperBound = double(app.AppPaths.size() - 1);
    if (upperBound == 0)
        return;
    try {
        const double number = Conversions::Val(name);
        if (number == 0 || number > upperBound)
            return;
        const QString caption = CharacterCommands(app).Command(name).Caption();
        SayText(app, QStringLiteral("Running ") + caption + QLatin1Char('.'), true);
        const auto slot = std::size_t(std::lround(number));
        app.P.shell.StartCommandLine(app.AppPaths.at(slot).trimmed());
    } catch (const platform::RuntimeError& error) {
        SayText(app,
                QStringLiteral("I am unable to run your application because ") + error.Description +
                    QLatin1Char('.'),
                false);
    }
}

} // namespace

// The control's own failures while listening for commands are reported as the dispatch's.
void Agent1_Error(App& app, const platform::RuntimeError& error)
{
    ReportError(app, false, 6, error);
}

// Speech and the popup menu both arrive here, and nothing tells them apart.
void Agent1_Command(App& app, const platform::UserInput& UserInput)
{
    const QString& name = UserInput.Name;
    try {
        if (name == QLatin1String("Clip"))
            Read_Click(app);
        else if (name == QLatin1String("Notes"))
            // The menu entry's own routine opens the notes window, as a click on it does.
            app.MainForm->mnuQuorlReminders->trigger();
        else if (name == QLatin1String("Time"))
            SayTime(app);
        else if (name == QLatin1String("Date"))
            SayDate(app);
        else if (const Confirmation* confirmation = FindConfirmation(name))
            AskConfirmation(app, *confirmation);
        else if (name == QLatin1String("Yes"))
            AnswerYes(app);
        else if (name == QLatin1String("No"))
            AnswerNo(app);
        else
            RunApplication(app, name);
    } catch (const platform::RuntimeError& error) {
        ReportError(app, false, 6, error);
    }
}
