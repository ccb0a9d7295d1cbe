#include "startup/Main.h"

#include "core/App.h"
#include "core/frmMain.h"
#include "fakes/FakePlatform.h"

#include <QDir>
#include <gtest/gtest.h>

using platform::BoxIcon;
using platform::RuntimeError;

namespace
{

struct MainTest : ::testing::Test {
    fakes::FakePlatform fp;
    App app{fp.platform};

    MainTest() { fp.dialogs.files = {QStringLiteral("/chars/pip.acs")}; }

    // Runs Main; true when the program ended on the way.
    bool runMain()
    {
        try {
            Main(app);
        } catch (const fakes::ProgramEnded&) {
            return true;
        }
        return false;
    }

    QStringList boxTitles() const
    {
        QStringList titles;
        for (const auto& box : fp.dialogs.boxes)
            titles << box.title;
        return titles;
    }
};

TEST_F(MainTest, SecondInstanceIsRefusedBeforeAnythingIsTouched)
{
    fp.instance.previousRunning = true;
    EXPECT_TRUE(runMain());
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].icon, BoxIcon::Warning);
    EXPECT_EQ(fp.dialogs.boxes[0].title, QStringLiteral("Quorl"));
    EXPECT_EQ(fp.dialogs.boxes[0].text, QStringLiteral("Quorl is already running!"));
    EXPECT_TRUE(fp.store.writes.isEmpty());
    EXPECT_EQ(fp.agent, nullptr);
    EXPECT_EQ(app.MainForm, nullptr);
}

TEST_F(MainTest, AppPathIsTheUsersDataFolder)
{
    runMain();
    EXPECT_TRUE(app.AppPath.endsWith(QStringLiteral("/Kestrane/Quorl")));
    EXPECT_TRUE(QDir(app.AppPath).exists());
}

TEST_F(MainTest, VersionMigration)
{
    struct Case {
        std::optional<QString> version;
        bool migrates;
    };
    for (const Case& c : {Case{QStringLiteral("42"), true}, Case{QStringLiteral("43"), false},
                          Case{std::nullopt, true}, Case{QStringLiteral("42.5"), false},
                          Case{QStringLiteral("forty"), true}}) {
        fakes::FakePlatform fp;
        fp.dialogs.files = {QStringLiteral("/chars/pip.acs")};
        if (c.version)
            fp.store.setValue(QStringLiteral("Version"), *c.version);
        fp.store.setValue(QStringLiteral("Top"), QStringLiteral("True"));
        App app(fp.platform);
        try {
            Main(app);
        } catch (const fakes::ProgramEnded&) {
        }
        SCOPED_TRACE(c.version.value_or(QStringLiteral("<missing>")).toStdString());
        EXPECT_EQ(fp.store.value(QStringLiteral("Version")),
                  c.migrates ? QStringLiteral("43") : c.version);
        EXPECT_EQ(fp.store.value(QStringLiteral("Top")),
                  c.migrates ? QStringLiteral("0") : QStringLiteral("True"));
    }
}

TEST_F(MainTest, NoCharacterControlIsReportedAsAgentMissing)
{
    fp.agentMissing = true;
    EXPECT_TRUE(runMain());
    EXPECT_EQ(boxTitles(), QStringList{QStringLiteral("Microsoft Agent Not Installed")});
    EXPECT_TRUE(app.MainForm == nullptr || !app.MainForm->isVisible());
}

TEST_F(MainTest, SpeechOutputOffEndsTheProgram)
{
    fp.onModal = [this](QDialog&) { fp.agent->audioOutputEnabled = false; };
    EXPECT_TRUE(runMain());
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(fp.dialogs.boxes[0].title, QStringLiteral("Speech is disabled"));
    EXPECT_EQ(fp.dialogs.boxes[0].text,
              QStringLiteral("Speech output is not installed or has been disabled. Visit ") +
                  HomePageUrl +
                  QStringLiteral(" to download a speech engine. If you have already done that, "
                                 "click the right mouse button on Microsoft Agent icon on your "
                                 "system tray, click on 'Microsoft Agent Properties'. In the "
                                 "'Output' tab, check all the check boxes."));
}

TEST_F(MainTest, NoSpeechInputEngineEndsTheProgram)
{
    fp.onModal = [this](QDialog&) { fp.agent->speechInputInstalled = false; };
    EXPECT_TRUE(runMain());
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].icon, BoxIcon::Plain);
    EXPECT_EQ(fp.dialogs.boxes[0].title, QStringLiteral("Speech Engine not Installed"));
    EXPECT_EQ(fp.dialogs.boxes[0].text,
              QStringLiteral("You don't have a compatible input speech engine installed, visit ") +
                  HomePageUrl + QStringLiteral(" to download the Command and Control Engine."));
}

TEST_F(MainTest, SpeechInputOffOpensTheSpeechPageWarnsAndGoesOn)
{
    fp.onModal = [this](QDialog&) { fp.agent->speechInputEnabled = false; };
    runMain();
    EXPECT_EQ(fp.agent->propertySheetPage, QStringLiteral("Speech"));
    EXPECT_TRUE(fp.agent->propertySheetVisible);
    ASSERT_FALSE(fp.dialogs.boxes.empty());
    EXPECT_EQ(fp.dialogs.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(fp.dialogs.boxes[0].title, QStringLiteral("Enable Speech Engine"));
    EXPECT_EQ(fp.dialogs.boxes[0].text,
              QStringLiteral("Speech engine is not enabled. Please enable Speech Input and then "
                             "press Ok. Otherwise, input features of Quorl will not work."));
    EXPECT_EQ(fp.process.ends, 0);
}

TEST_F(MainTest, SilentErrorsWhileTestingTheEnginesLetStartUpGoOn)
{
    fp.onModal = [this](QDialog&) {
        fp.agent->failCalls(
            QStringLiteral("AudioOutput.Enabled"),
            RuntimeError(platform::errors::SpeechInputError, platform::AgentSource, {}));
        fp.agent->failCalls(QStringLiteral("SpeechInput.Installed"),
                            RuntimeError(platform::errors::ObjectError, platform::AgentSource, {}));
        fp.agent->speechInputEnabled = false;
    };
    runMain();
    EXPECT_EQ(fp.process.ends, 0);
    ASSERT_FALSE(fp.dialogs.boxes.empty());
    EXPECT_EQ(fp.dialogs.boxes[0].title, QStringLiteral("Enable Speech Engine"));
}

TEST_F(MainTest, SplashShowsModallyUnlessSwitchedOff)
{
    runMain();
    EXPECT_EQ(fp.modalWindows, QStringList{QStringLiteral("frmSplash")});
    EXPECT_EQ(fp.store.value(QStringLiteral("Splash")), QStringLiteral("1"));
    EXPECT_EQ(app.ModalOpen, 0);

    fakes::FakePlatform quiet;
    quiet.dialogs.files = {QStringLiteral("/chars/pip.acs")};
    quiet.store.setValue(QStringLiteral("Splash"), QStringLiteral("0"));
    App second(quiet.platform);
    try {
        Main(second);
    } catch (const fakes::ProgramEnded&) {
    }
    EXPECT_TRUE(quiet.modalWindows.isEmpty());
}

} // namespace
