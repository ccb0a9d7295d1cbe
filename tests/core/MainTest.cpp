#include "startup/Main.h"

#include "core/App.h"
#include "core/frmMain.h"
#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

using platform::BoxButtons;
using platform::BoxIcon;
using platform::RuntimeError;

struct MainRun {
    fakes::FakePlatform fp;
    App app{fp.platform};
    bool ended = false;

    explicit MainRun(const std::map<QString, QString>& values = {},
                     const std::function<void(fakes::FakePlatform&)>& prepare = {})
    {
        fp.dialogs.files = {"/chars/pip.acs"};
        for (const auto& [name, value] : values)
            fp.store.setValue(name, value);
        if (prepare)
            prepare(fp);
        try {
            Main(app);
        } catch (const fakes::ProgramEnded&) {
            ended = true;
        }
    }
};

TEST(MainTest, SecondInstanceIsRefusedBeforeAnythingIsTouched)
{
    const MainRun run({}, [](fakes::FakePlatform& fp) { fp.instance.previousRunning = true; });
    EXPECT_TRUE(run.ended);
    EXPECT_EQ(run.fp.dialogs.boxes,
              (std::vector<fakes::Box>{
                  {BoxIcon::Warning, BoxButtons::OK, "Quorl", "Quorl is already running!"}}));
    EXPECT_EQ(run.fp.agent, nullptr);
    EXPECT_EQ(run.app.MainForm, nullptr);
}

TEST(MainTest, TheSplashShowsUntilTurnedOff)
{
    const MainRun run;
    EXPECT_EQ(run.fp.modalWindows, QStringList{"frmSplash"});
    EXPECT_EQ(run.fp.store.value("Splash"), "1");
    EXPECT_EQ(run.app.ModalOpen, 0);
    EXPECT_TRUE(MainRun(std::map<QString, QString>{{"Splash", "0"}}).fp.modalWindows.isEmpty());
}

TEST(MainTest, VersionMigration)
{
    const std::pair<std::optional<QString>, bool> cases[] = {
        {"42", true}, {"43", false}, {std::nullopt, true}, {"42.5", false}};
    for (const auto& [version, migrates] : cases) {
        SCOPED_TRACE(version.value_or("<missing>").toStdString());
        std::map<QString, QString> values{{"Top", "True"}};
        if (version)
            values["Version"] = *version;
        const MainRun run(values);
        EXPECT_EQ(run.fp.store.value("Version"), migrates ? std::optional<QString>("43") : version);
        EXPECT_EQ(run.fp.store.value("Top"), migrates ? "0" : "True");
    }
}

TEST(MainTest, NoCharacterControlIsReportedAsAgentMissing)
{
    const MainRun run({}, [](fakes::FakePlatform& fp) { fp.agentMissing = true; });
    EXPECT_TRUE(run.ended);
    EXPECT_EQ(run.fp.dialogs.titles(), QStringList{"Microsoft Agent Not Installed"});
    EXPECT_TRUE(run.app.MainForm == nullptr || !run.app.MainForm->isVisible());
}

// The engines are tested once the window is up, that is while the splash is shown.
TEST(MainTest, SpeechEnginesThatAreMissingOrOff)
{
    const RuntimeError silent(platform::errors::SpeechInputError, platform::AgentSource, {});
    const fakes::Box enable{BoxIcon::Critical, BoxButtons::OK, "Enable Speech Engine",
                            "Speech engine is not enabled. Please enable Speech Input and then "
                            "press Ok. Otherwise, input features of Quorl will not work."};
    const struct {
        const char* name;
        std::function<void(fakes::FakeAgent&)> engines;
        fakes::Box box;
        bool ends;
    } cases[] = {
        {"speech output off",
         [](fakes::FakeAgent& a) { a.audioOutputEnabled = false; },
         {BoxIcon::Critical, BoxButtons::OK, "Speech is disabled",
          "Speech output is not installed or has been disabled. Visit " + HomePageUrl +
              " to download a speech engine. If you have already done that, click the right mouse "
              "button on Microsoft Agent icon on your system tray, click on 'Microsoft Agent "
              "Properties'. In the 'Output' tab, check all the check boxes."},
         true},
        {"no speech input engine",
         [](fakes::FakeAgent& a) { a.speechInputInstalled = false; },
         {BoxIcon::Plain, BoxButtons::OK, "Speech Engine not Installed",
          "You don't have a compatible input speech engine installed, visit " + HomePageUrl +
              " to download the Command and Control Engine."},
         true},
        {"speech input off", [](fakes::FakeAgent& a) { a.speechInputEnabled = false; }, enable,
         false},
        // Errors that the reporter passes over while testing let start-up go on.
        {"silent errors",
         [&](fakes::FakeAgent& a) {
             a.failCalls("AudioOutput.Enabled", silent);
             a.failCalls("SpeechInput.Installed",
                         {platform::errors::ObjectError, platform::AgentSource, {}});
             a.speechInputEnabled = false;
         },
         enable, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const MainRun run({}, [&](fakes::FakePlatform& fp) {
            fp.onModal = [&](QDialog&) { c.engines(*fp.agent); };
        });
        EXPECT_EQ(run.ended, c.ends);
        ASSERT_FALSE(run.fp.dialogs.boxes.empty());
        EXPECT_EQ(run.fp.dialogs.boxes[0], c.box);
        if (c.ends) {
            EXPECT_EQ(run.fp.dialogs.boxes.size(), 1u);
        }
        if (c.box.title == enable.title) {
            EXPECT_EQ(run.fp.agent->propertySheetPage, "Speech");
            EXPECT_TRUE(run.fp.agent->propertySheetVisible);
        }
    }
}
