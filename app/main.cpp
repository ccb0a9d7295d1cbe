#include "startup/Main.h"

#include "agent/engine/AgentEngine.h"
#include "agent/listen/PocketSphinxRecognizer.h"
#include "agent/speech/EspeakSpeechOutput.h"
#include "core/App.h"
#include "core/StartupTrace.h"
#include "platform/linux/FileRegistryStore.h"
#include "platform/linux/LogindPower.h"
#include "platform/linux/QtDialogs.h"
#include "platform/linux/QtShell.h"
#include "platform/linux/QtSystem.h"
#include "platform/linux/QtTrayIcon.h"
#include "platform/linux/SignalEndRequests.h"
#include "platform/linux/SystemInfoKeys.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QTimer>
#include <cstdio>

namespace
{

bool haveDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

// A file that comes with the program: installed in the share folder beside the program's
// folder, or in the build tree's data folder when run from there.
QString findInstalled(const QString& installed, const QString& inBuildTree)
{
    const QDir programFolder(QCoreApplication::applicationDirPath());
    for (const QString& candidate :
         {QStringLiteral("../share/") + installed, QStringLiteral("../data/") + inBuildTree}) {
        const QFileInfo file(programFolder.filePath(candidate));
        if (file.isFile())
            return file.canonicalFilePath();
    }
    return {};
}

std::unique_ptr<platform::Agent> createEngine()
{
    return std::make_unique<agent::engine::AgentEngine>(
        std::make_unique<agent::speech::EspeakSpeechOutput>(),
        std::make_unique<agent::listen::PocketSphinxRecognizer>());
}

} // namespace

int main(int argc, char** argv)
{
    TraceStartup("main");
    if (!haveDisplay()) {
        std::fputs("Quorl needs a graphical desktop session, and none was found (DISPLAY and "
                   "WAYLAND_DISPLAY are not set).\nOn a machine without a display, run it "
                   "under a virtual X server: xvfb-run -a quorl\n",
                   stderr);
        return 1;
    }
    // The character stands on the X11 desktop, which Wayland desktops provide through XWayland.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb");

    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quorl"));
    QApplication::setOrganizationName(QStringLiteral("Kestrane"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(
        QIcon::fromTheme(QStringLiteral("quorl"),
                         QIcon(findInstalled(QStringLiteral("icons/hicolor/256x256/apps/quorl.png"),
                                             QStringLiteral("quorl-256.png")))));

    platform::FileRegistryStore settingsFile(platform::FileRegistryStore::defaultFileName());
    platform::SystemInfoKeys store(settingsFile);
    platform::QtDialogs dialogs;
    platform::SystemClock clock;
    platform::QtScreen screen;
    platform::QtClipboard clipboard;
    platform::QtShell shell;
    platform::LogindPower power;
    platform::LockFileInstance instance;
    platform::ExitProcess process;
    process.AtEnd([&instance] { instance.Release(); });
    platform::SignalEndRequests endRequests;
    platform::QtTrayIcon tray;
    platform::Platform platform{
        store,
        dialogs,
        clock,
        screen,
        clipboard,
        shell,
        power,
        instance,
        process,
        endRequests,
        tray,
        createEngine,
        [](QDialog& dialog) { dialog.exec(); },
        findInstalled(QStringLiteral("quorl/lumo.acs"), QStringLiteral("lumo.acs")),
    };

    App app(platform);
    Main(app);
    TraceStartup("main form loaded");
    QTimer::singleShot(0, [] { TraceStartup("event loop running"); });
    return application.exec();
}
