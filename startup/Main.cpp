#include "startup/Main.h"

#include "apps/LoadApps.h"
#include "clock/Greet.h"
#include "core/App.h"
#include "core/AppPath.h"
#include "core/Conversions.h"
#include "core/ReadingState.h"
#include "core/ReportError.h"
#include "core/frmMain.h"
#include "info/frmSplash.h"
#include "notes/LoadNotes.h"
#include "settings/LoadSettings.h"
#include "startup/Wiring.h"

using platform::BoxButtons;
using platform::BoxIcon;

namespace
{

// Settings of generation 42 and older kept a topmost flag that no longer means the same.
void MigrateSettings(App& app)
{
    if (Conversions::Val(app.Settings.ReadText(QStringLiteral("Version"))) <= 42) {
        app.Settings.Write(QStringLiteral("Top"), QStringLiteral("0"));
        app.Settings.Write(QStringLiteral("Version"), QStringLiteral("43"));
    }
}

// The window's own load: the splash window, which start-up waits for.
void Form_Load(App& app)
{
    if (Conversions::Val(app.Settings.Get(QStringLiteral("Splash"), QStringLiteral("1"))) == 1) {
        frmSplash splash(app);
        app.P.showModal(splash);
    }
}

void LoadMainForm(App& app)
{
    app.Agent1 = app.P.createAgent();
    app.MainForm = std::make_unique<frmMain>(app);
    WireProgram(app);
    Form_Load(app);
}

} // namespace

void Main(App& app)
{
    try {
        if (app.P.instance.PreviousInstanceRunning()) {
            app.P.dialogs.MsgBox(BoxIcon::Warning, BoxButtons::OK, QStringLiteral("Quorl"),
                                 QStringLiteral("Quorl is already running!"));
            app.P.process.End();
        }
        app.AppPath = PrepareAppPath();
        PlaceBundledCharacter(app.AppPath, app.P.bundledCharacter);
        app.ConfirmPending = false;
        app.ModalOpen = 0;
        MigrateSettings(app);
        LoadMainForm(app);
        CheckSpeechEngines(app);
    } catch (const platform::RuntimeError& error) {
        ReportError(app, true, 3.1f, error);
        return;
    }
    try {
        LoadSettings(app);
        WatchEndRequests(app);
        UpdateReadingControls(app);
        LoadApps(app);
        LoadNotes(app);
        Greet(app);
    } catch (const platform::RuntimeError& error) {
        ReportError(app, true, 3.2f, error);
    }
}

void CheckSpeechEngines(App& app)
{
    platform::Agent& agent = *app.Agent1;
    auto& dialogs = app.P.dialogs;
    RunSteps(
        app, true, 11.0f,
        {
            [&] {
                if (agent.AudioOutputEnabled())
                    return;
                dialogs.MsgBox(
                    BoxIcon::Critical, BoxButtons::OK, QStringLiteral("Speech is disabled"),
                    QStringLiteral("Speech output is not installed or has been disabled. Visit ") +
                        HomePageUrl +
                        QStringLiteral(
                            " to download a speech engine. If you have already done that, "
                            "click the right mouse button on Microsoft Agent icon on your "
                            "system tray, click on 'Microsoft Agent Properties'. In the "
                            "'Output' tab, check all the check boxes."));
                app.P.process.End();
            },
            [&] {
                if (agent.SpeechInputInstalled())
                    return;
                dialogs.MsgBox(BoxIcon::Plain, BoxButtons::OK,
                               QStringLiteral("Speech Engine not Installed"),
                               QStringLiteral("You don't have a compatible input speech engine "
                                              "installed, visit ") +
                                   HomePageUrl +
                                   QStringLiteral(" to download the Command and Control Engine."));
                app.P.process.End();
            },
            [&] {
                if (agent.SpeechInputEnabled())
                    return;
                agent.setPropertySheetPage(QStringLiteral("Speech"));
                agent.setPropertySheetVisible(true);
                dialogs.MsgBox(
                    BoxIcon::Critical, BoxButtons::OK, QStringLiteral("Enable Speech Engine"),
                    QStringLiteral("Speech engine is not enabled. Please enable Speech Input "
                                   "and then press Ok. Otherwise, input features of Quorl "
                                   "will not work."));
            },
        });
}
