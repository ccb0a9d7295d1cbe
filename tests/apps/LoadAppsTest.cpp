#include "apps/LoadApps.h"

#include "apps/AppsFile.h"
#include "fakes/CharacterFixture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

struct LoadAppsTest : CharacterFixture, ::testing::Test {
    LoadAppsTest() { app.AppPath = dir.path(); }
    void writeApps(const std::vector<AppRecord>& records)
    {
        WriteAppsFile(AppsFilePath(app.AppPath), records);
    }
    QTemporaryDir dir;
    const std::vector<AppRecord> three{
        {"Editor", "Open the editor", "/usr/bin/gedit --new-window", 1, 1},
        {"Hidden", "(Hidden|Secret)", "secret", 0, 1},
        {"Mail", "Mail", "mutt", 1, 0},
    };
};

TEST_F(LoadAppsTest, EachRecordBecomesACommandAndAPath)
{
    writeApps(three);
    app.AppPaths = {QString(), "left over"};
    LoadApps(app);
    EXPECT_EQ(fp.agent->calls, QStringList({"Commands.Add( 1,Editor,Open the editor,1,1)",
                                            "Commands.Add( 2,Hidden,(Hidden|Secret),1,0)",
                                            "Commands.Add( 3,Mail,Mail,0,1)"}));
    EXPECT_EQ(app.AppPaths,
              (std::vector<QString>{QString(), "/usr/bin/gedit --new-window", "secret", "mutt"}));
    EXPECT_TRUE(fp.dialogs.boxes.empty());

    // Any flag other than zero counts as true.
    fp.agent->calls.clear();
    writeApps({{"T", "V", "p", -1, 256}});
    LoadApps(app);
    EXPECT_EQ(fp.agent->calls, QStringList{"Commands.Add( 1,T,V,1,1)"});
}

TEST_F(LoadAppsTest, NothingToLoadLeavesTheTableEmptyWithoutABox)
{
    const QString name = AppsFilePath(dir.path());
    const std::pair<const char*, std::function<void()>> setups[] = {
        {"no file", [] {}},
        {"empty file", [&] { QFile(name).open(QIODevice::WriteOnly); }},
        {"less than half a record",
         [&] {
             QFile file(name);
             file.open(QIODevice::WriteOnly);
             file.write(QByteArray(179, 'x'));
         }},
        {"no speech input",
         [&] {
             writeApps(three);
             fp.agent->speechInputInstalled = false;
         }},
    };
    for (const auto& [what, setup] : setups) {
        setup();
        app.AppPaths = {QString(), "left over"};
        LoadApps(app);
        EXPECT_EQ(app.AppPaths.size(), 1u) << what;
        EXPECT_TRUE(fp.agent->calls.isEmpty()) << what;
        EXPECT_TRUE(fp.dialogs.boxes.empty()) << what;
    }
}

TEST_F(LoadAppsTest, AFileThatCannotBeOpenedShowsTheFileReadErrorBox)
{
    ASSERT_TRUE(QDir().mkpath(AppsFilePath(dir.path())));
    LoadApps(app);
    ASSERT_EQ(fp.dialogs.boxes.size(), 2u);
    const fakes::Box& box = fp.dialogs.boxes[0];
    EXPECT_EQ(box.icon, platform::BoxIcon::Critical);
    EXPECT_EQ(box.buttons, platform::BoxButtons::OK);
    EXPECT_EQ(box.title, "File Read Error");
    EXPECT_EQ(box.text, "Please send the following info to " + SupportAddress +
                            " to help with a fix:\r\n" + AppsFilePath(dir.path()));
    ASSERT_EQ(errorBoxes().size(), 1);
    EXPECT_TRUE(errorBoxes()[0].contains("( 10.1 )"));
    EXPECT_EQ(app.AppPaths.size(), 1u);
    EXPECT_TRUE(fp.agent->calls.isEmpty());
}

TEST_F(LoadAppsTest, AFailingRecordKeepsTheCommandsBeforeItAndLeavesItsSlotEmpty)
{
    writeApps(three);
    fp.agent->failCalls("Commands.Add( 2,", {1234, "Agent.Control.1", "refused"});
    LoadApps(app);
    EXPECT_EQ(fp.agent->calls, QStringList{"Commands.Add( 1,Editor,Open the editor,1,1)"});
    EXPECT_EQ(app.AppPaths, (std::vector<QString>{QString(), "/usr/bin/gedit --new-window",
                                                  QString(), QString()}));
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    ASSERT_EQ(errorBoxes().size(), 1);
    EXPECT_TRUE(errorBoxes()[0].contains("( 10.2 )"));
}
