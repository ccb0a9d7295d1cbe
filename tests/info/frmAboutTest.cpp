#include "info/frmAbout.h"

#include "fakes/LoadedProgram.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

const QString ToolKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";

struct frmAboutTest : ::testing::Test, fakes::LoadedProgram {
    void setMachineValue(const QString& key, const QString& name, const QByteArray& data,
                         std::uint32_t type = platform::RegistryStore::String)
    {
        platform::RegistryStore::Handle handle = 0;
        fp.store.RegCreateKeyA(platform::HKEY_LOCAL_MACHINE, key, handle);
        fp.store.RegSetValueExA(handle, name, type, data);
        fp.store.RegCloseKey(handle);
    }
};

TEST_F(frmAboutTest, OpensOverTheMainWindowAndOKRestoresTheCommands)
{
    form().mnuViewTop->setChecked(true);
    app.OnTop = true;
    const auto state = [&] {
        return std::tuple(int(app.ModalOpen), app.OnTop, character().commands.Visible());
    };
    fp.onModal = [&](QDialog& dialog) {
        auto& about = static_cast<frmAbout&>(dialog);
        EXPECT_EQ(dialog.parentWidget(), &form());
        EXPECT_EQ(state(), std::tuple(1, false, false));
        EXPECT_EQ((QStringList{about.lblVersion->text(), about.lblTitle->text(),
                               about.cmdSysInfo->text()}),
                  (QStringList{"Version 1.6.45", "Kestrane Quorl", "&System Info.."}));
        about.Label4_Click();
        about.cmdOK->click();
    };
    form().mnuAboutAbout->trigger();
    EXPECT_EQ(state(), std::tuple(0, true, true));
    // The home page link is clicked in the window, so this also shows that it came up.
    EXPECT_EQ(fp.shell.urls, QStringList{HomePageUrl});
    EXPECT_EQ(form().mnuAboutAbout->shortcut(), QKeySequence("Ctrl+A"));
}

TEST_F(frmAboutTest, AnimationStartsWithTheSecondPictureAtTheFirstTick)
{
    frmAbout about(app);
    about.show();
    EXPECT_TRUE(about.Timer1->isActive());
    QLabel** image = about.Image2;
    const auto shown = [&] { return std::pair(image[0]->isVisible(), image[1]->isVisible()); };
    EXPECT_EQ(shown(), std::pair(true, false));
    QSignalSpy ticks(about.Timer1, &QTimer::timeout);
    ASSERT_TRUE(ticks.wait(2000));
    EXPECT_EQ(shown(), std::pair(false, true));
    about.Timer1_Timer();
    EXPECT_EQ(shown(), std::pair(true, false));
}

TEST_F(frmAboutTest, SystemInformationTool)
{
    QTemporaryDir folder;
    const QString tool = "/usr/bin/hardinfo", inFolder = folder.filePath("MSINFO32.EXE");
    QFile(inFolder).open(QIODevice::WriteOnly);
    const struct {
        const char* name;
        QString toolPath;
        QString folder;
        bool failsToStart;
        QStringList started;
    } cases[] = {
        {"first key, started without a test", tool, {}, false, {tool}},
        {"first key, the start fails", tool, {}, true, {}},
        {"second key with the file", {}, folder.path(), false, {inFolder}},
        {"second key without the file", {}, "/nowhere", false, {}},
        {"no key", {}, {}, false, {}},
    };
    const fakes::Box unavailable = {platform::BoxIcon::Plain, platform::BoxButtons::OK, "Quorl",
                                    "System Information Is Unavailable At This Time"};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        fp.store = fakes::FakeStore();
        fp.dialogs.boxes.clear();
        fp.shell.started.clear();
        if (!c.toolPath.isEmpty())
            setMachineValue(ToolKey, "PATH", c.toolPath.toUtf8());
        if (!c.folder.isEmpty())
            setMachineValue("SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO",
                            c.folder.toUtf8());
        if (c.failsToStart)
            fp.shell.failing[c.toolPath] = "not found";
        frmAbout about(app);
        about.cmdSysInfo->click();
        fp.shell.failing.clear();
        EXPECT_EQ(fp.shell.started, c.started);
        EXPECT_EQ(fp.dialogs.boxes, std::vector(c.started.isEmpty() ? 1 : 0, unavailable));
    }
}

TEST_F(frmAboutTest, KeyValueOfANumberReadsAsItsDecimalDigits)
{
    setMachineValue(ToolKey, "Number", QByteArray("\x10\x01\x00\x00", 4),
                    platform::RegistryStore::Dword);
    frmAbout about(app);
    QString value = "kept";
    EXPECT_TRUE(about.GetKeyValue(platform::HKEY_LOCAL_MACHINE, ToolKey, "Number", value));
    // Codes from last to first, each in hexadecimal without padding: "0" "0" "1" "10".
    EXPECT_EQ(value, QString::number(0x0110));
    EXPECT_FALSE(about.GetKeyValue(platform::HKEY_LOCAL_MACHINE, ToolKey, "Missing", value));
    EXPECT_EQ(value, QString());
}
