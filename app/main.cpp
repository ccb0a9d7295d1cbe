#include "agent/engine/AgentEngine.h"
#include "agent/listen/PocketSphinxRecognizer.h"
#include "agent/speech/EspeakSpeechOutput.h"
#include "core/App.h"
#include "core/Main.h"
#include "platform/linux/FileRegistryStore.h"
#include "platform/linux/LogindPower.h"
#include "platform/linux/QtDialogs.h"
#include "platform/linux/QtShell.h"
#include "platform/linux/QtSystem.h"
#include "platform/linux/QtTrayIcon.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileInfo>

#include <cstdio>

namespace {

bool haveDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

// The character that comes with the program: installed beside the program's share folder, or
// in the build tree's data folder when run from there.
QString findBundledCharacter()
{
    const QDir programFolder(QCoreApplication::applicationDirPath());
    for (const QString& folder : {QStringLiteral("../share/quorl"), QStringLiteral("../data")}) {
        const QDir dir(programFolder.filePath(folder));
        const QStringList files = dir.entryList({QStringLiteral("*.acs")}, QDir::Files, QDir::Name);
        if (!files.isEmpty())
            return QFileInfo(dir.filePath(files.first())).canonicalFilePath();
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

    platform::FileRegistryStore store(platform::FileRegistryStore::defaultFileName());
    platform::QtDialogs dialogs;
    platform::SystemClock clock;
    platform::QtScreen screen;
    platform::QtClipboard clipboard;
    platform::QtShell shell;
    platform::LogindPower power;
    platform::LockFileInstance instance;
    platform::ExitProcess process;
    platform::QtTrayIcon tray;
    platform::Platform platform{
        store, dialogs, clock, screen, clipboard, shell, power, instance, process, tray,
        createEngine,
        [](QDialog& dialog) { dialog.exec(); },
        findBundledCharacter(),
    };

    App app(platform);
    Main(app);
    return application.exec();
}
