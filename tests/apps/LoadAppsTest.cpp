#include "apps/LoadApps.h"

#include "apps/AppsFile.h"
#include "commands/CharacterFixture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace
{

const platform::RuntimeError AddRefused(1234, QStringLiteral("Agent.Control.1"),
                                        QStringLiteral("refused"));

class LoadAppsTest : public CharacterFixture
{
protected:
    LoadAppsTest() { app.AppPath = dir.path(); }

    void writeApps(const std::vector<AppRecord>& records)
    {
        WriteAppsFile(AppsFilePath(app.AppPath), records);
    }

    QTemporaryDir dir;
    const std::vector<AppRecord> three{
        {QStringLiteral("Editor"), QStringLiteral("Open the editor"),
         QStringLiteral("/usr/bin/gedit --new-window"), 1, 1},
        {QStringLiteral("Hidden"), QStringLiteral("(Hidden|Secret)"), QStringLiteral("secret"), 0,
         1},
        {QStringLiteral("Mail"), QStringLiteral("Mail"), QStringLiteral("mutt"), 1, 0},
    };
};

TEST_F(LoadAppsTest, EachRecordBecomesACommandAndAPath)
{
    writeApps(three);
    app.AppPaths = {QString(), QStringLiteral("left over")};
    LoadApps(app);
    EXPECT_EQ(fp.agent->calls,
              QStringList({QStringLiteral("Commands.Add( 1,Editor,Open the editor,1,1)"),
                           QStringLiteral("Commands.Add( 2,Hidden,(Hidden|Secret),1,0)"),
                           QStringLiteral("Commands.Add( 3,Mail,Mail,0,1)")}));
    EXPECT_EQ(app.AppPaths,
              (std::vector<QString>{QString(), QStringLiteral("/usr/bin/gedit --new-window"),
                                    QStringLiteral("secret"), QStringLiteral("mutt")}));
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}

TEST_F(LoadAppsTest, AnyFlagOtherThanZeroCountsAsTrue)
{
    writeApps({{QStringLiteral("T"), QStringLiteral("V"), QStringLiteral("p"), -1, 256}});
    LoadApps(app);
    EXPECT_EQ(fp.agent->calls, QStringList{QStringLiteral("Commands.Add( 1,T,V,1,1)")});
}

TEST_F(LoadAppsTest, NothingToLoadLeavesTheTableEmptyWithoutABox)
{
    const QString name = AppsFilePath(dir.path());
    const std::function<void()> setups[] = {
        [] {},
        [&] { QFile(name).open(QIODevice::WriteOnly); },
        [&] {
            QFile file(name);
            file.open(QIODevice::WriteOnly);
            file.write(QByteArray(179, 'x'));
        },
        [&] {
            writeApps(three);
            fp.agent->speechInputInstalled = false;
        },
    };
    for (std::size_t i = 0; i < std::size(setups); ++i) {
        setups[i]();
        app.AppPaths = {QString(), QStringLiteral("left over")};
        LoadApps(app);
        EXPECT_EQ(app.AppPaths.size(), 1u) << i;
        EXPECT_TRUE(fp.agent->calls.isEmpty()) << i;
        EXPECT_TRUE(fp.dialogs.boxes.empty()) << i;
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
    EXPECT_EQ(box.title, QStringLiteral("File Read Error"));
    EXPECT_EQ(box.text, QStringLiteral("Please send the following info to ") + SupportAddress +
                            QStringLiteral(" to help with a fix:\r\n") + AppsFilePath(dir.path()));
    ASSERT_EQ(errorBoxes().size(), 1);
    EXPECT_TRUE(errorBoxes()[0].contains(QStringLiteral("( 10.1 )")));
    EXPECT_EQ(app.AppPaths.size(), 1u);
    EXPECT_TRUE(fp.agent->calls.isEmpty());
}

TEST_F(LoadAppsTest, AFailingRecordKeepsTheCommandsBeforeItAndLeavesItsSlotEmpty)
{
    writeApps(three);
    fp.agent->failCalls(QStringLiteral("Commands.Add( 2,"), AddRefused);
    LoadApps(app);
    EXPECT_EQ(fp.agent->calls,
              QStringList{QStringLiteral("Commands.Add( 1,Editor,Open the editor,1,1)")});
    EXPECT_EQ(app.AppPaths,
              (std::vector<QString>{QString(), QStringLiteral("/usr/bin/gedit --new-window"),
                                    QString(), QString()}));
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    ASSERT_EQ(errorBoxes().size(), 1);
    EXPECT_TRUE(errorBoxes()[0].contains(QStringLiteral("( 10.2 )")));
}

} // namespace
