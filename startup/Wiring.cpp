#include "startup/Wiring.h"

#include "apps/frmApp.h"
#include "character/CharacterEvents.h"
#include "character/VoicePanel.h"
#include "clock/SayDate.h"
#include "clock/SayTime.h"
#include "commands/CommandDispatch.h"
#include "commands/VoiceCommands.h"
#include "core/App.h"
#include "core/Closing.h"
#include "core/Guard.h"
#include "core/MainWindow.h"
#include "core/frmMain.h"
#include "info/frmAbout.h"
#include "info/frmSplash.h"
#include "notes/RemindTimer.h"
#include "notes/frmNotes.h"
#include "reading/ReadingControls.h"
#include "reading/ReadingEngine.h"
#include "settings/frmOptions.h"

#include <QAction>
#include <QCheckBox>
#include <QPushButton>
#include <QSlider>
#include <QTimer>

namespace
{

// The character control's events, each handed to its subsystem's routine.
class ProgramEvents : public platform::AgentEvents
{
public:
    explicit ProgramEvents(App& app) : app_(app) {}

    void Agent1_Click(const QString& characterId, int button, int, int, int) override
    {
        RunGuarded("Agent1_Click", [&] { ::Agent1_Click(app_, characterId, button); });
    }
    void Agent1_Show(const QString&, int) override
    {
        RunGuarded("Agent1_Show", [&] { ::Agent1_Show(app_); });
    }
    void Agent1_Hide(const QString&, int) override
    {
        RunGuarded("Agent1_Hide", [&] { ::Agent1_Hide(app_); });
    }
    void Agent1_IdleStart(const QString&) override
    {
        RunGuarded("Agent1_IdleStart", [&] { ::Agent1_IdleStart(app_); });
    }
    void Agent1_Command(const platform::UserInput& input) override
    {
        RunGuarded("Agent1_Command", [&] { ::Agent1_Command(app_, input); });
    }
    void Agent1_Shutdown() override { ::Agent1_Shutdown(app_); }
    void Agent1_Error(const platform::RuntimeError& error) override
    {
        RunGuarded("Agent1_Error", [&] { ::Agent1_Error(app_, error); });
    }

private:
    App& app_;
};

void SetHooks(App& app)
{
    app.Hooks.StartLongTextReading = [&app](const QString& text) {
        StartPiecewiseReading(app, text);
    };
    app.Hooks.SetVoiceCommands = [&app] { SetVoiceCommands(app); };
    app.Hooks.ShowOptions = [&app](int tab) { ShowOptions(app, tab); };
}

void ConnectWindow(App& app)
{
    frmMain& f = *app.MainForm;
    auto on = [&app, &f](auto* sender, auto signal, const char* name, void (*routine)(App&)) {
        QObject::connect(sender, signal, &f, Guarded(name, [&app, routine] { routine(app); }));
    };
    on(f.cmdShow, &QPushButton::clicked, "cmdShow_Click", cmdShow_Click);
    on(f.cmdDefaults, &QPushButton::clicked, "cmdDefaults_Click", cmdDefaults_Click);
    on(f.sdrPitch, &QSlider::valueChanged, "sdrPitch_Change", sdrPitch_Change);
    on(f.sdrSpeed, &QSlider::valueChanged, "sdrSpeed_Change", sdrSpeed_Change);
    on(f.sdrVolume, &QSlider::valueChanged, "sdrVolume_Change", sdrVolume_Change);
    // These two routines turn their own check marks over, so Qt's toggle is taken back first.
    auto onChecked = [&app, &f](QAction* action, const char* name, void (*routine)(App&)) {
        QObject::connect(action, &QAction::triggered, &f,
                         [&app, action, name, routine](bool checked) {
                             action->setChecked(!checked);
                             RunGuarded(name, [&app, routine] { routine(app); });
                         });
    };
    onChecked(f.mnuViewVoice, "mnuViewVoice_Click", mnuViewVoice_Click);
    onChecked(f.mnuViewTop, "mnuViewTop_Click", mnuViewTop_Click);
    on(f.mnuQuorlTime, &QAction::triggered, "mnuQuorlTime_Click", SayTime);
    on(f.mnuQuorlDate, &QAction::triggered, "mnuQuorlDate_Click", SayDate);
    on(f.mnuQuorlReminders, &QAction::triggered, "mnuQuorlReminders_Click",
       mnuQuorlReminders_Click);
    on(f.mnuFileRead, &QAction::triggered, "mnuFileRead_Click", mnuFileRead_Click);
    on(f.Timer2, &QTimer::timeout, "Timer2_Timer", Timer2_Timer);
    on(f.RemindTimer, &QTimer::timeout, "RemindTimer_Timer", RemindTimer_Timer);
    on(f.cmdStop, &QPushButton::clicked, "cmdStop_Click", cmdStop_Click);
    on(f.cmdCont, &QPushButton::clicked, "cmdCont_Click", cmdCont_Click);
    on(f.cmdNext, &QPushButton::clicked, "cmdNext_Click", cmdNext_Click);
    on(f.cmdTalk, &QPushButton::clicked, "cmdTalk_Click", cmdTalk_Click);
    on(f.Read, &QPushButton::clicked, "Read_Click", Read_Click);
    on(f.chkIgnore, &QCheckBox::clicked, "chkIgnore_Click", chkIgnore_Click);
    on(f.mnuFileSavenow, &QAction::triggered, "mnuFileSavenow_Click", mnuFileSavenow_Click);
    on(f.mnuFileExit, &QAction::triggered, "mnuFileExit_Click", mnuFileExit_Click);
    on(f.mnuFileOptions, &QAction::triggered, "mnuFileOptions_Click", mnuFileOptions_Click);
    on(f.cmdOptions, &QPushButton::clicked, "cmdOptions_Click", mnuFileOptions_Click);
    on(f.mnuFileAgent, &QAction::triggered, "mnuFileAgent_Click", mnuFileAgent_Click);
    on(f.mnuFileInstall, &QAction::triggered, "mnuFileInstall_Click", mnuFileInstall_Click);
    on(f.mnuFileDownload, &QAction::triggered, "mnuFileDownload_Click", mnuFileDownload_Click);
    on(f.mnuAboutSite, &QAction::triggered, "mnuAboutSite_Click", mnuAboutSite_Click);
    on(f.mnuAboutSplash, &QAction::triggered, "mnuAboutSplash_Click", mnuAboutSplash_Click);
    on(f.mnuQuorlApp, &QAction::triggered, "mnuQuorlApp_Click", mnuQuorlApp_Click);
    on(f.Command1, &QPushButton::clicked, "Command1_Click", Command1_Click);
    on(f.mnuAboutAbout, &QAction::triggered, "mnuAboutAbout_Click", mnuAboutAbout_Click);
}

} // namespace

void WatchEndRequests(App& app)
{
    app.P.endRequests.Watch(
        Guarded("Form_QueryUnload", [&app] { UnloadAndEnd(app, UnloadMode::AppTaskManager); }),
        Guarded("Form_QueryUnload", [&app] { UnloadAndEnd(app, UnloadMode::AppWindows); }));
}

void WireProgram(App& app)
{
    SetHooks(app);
    ConnectWindow(app);
    app.Events = std::make_unique<ProgramEvents>(app);
    app.Agent1->setEventSink(app.Events.get());
}
