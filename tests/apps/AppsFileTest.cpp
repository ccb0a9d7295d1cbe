#include "apps/AppsFile.h"

#include "apps/LoadApps.h"
#include "fakes/CharacterFixture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// The application records, the file that holds them, and their loading as commands.

QByteArray blanks(int n)
{
    return QByteArray(n, ' ');
}

// Cutting, padding and trimming the fields, and the code page, are the fixed fields' own.
TEST(AppRecordTest, EncodesToTheExactBytesOfTheFile)
{
    const std::pair<AppRecord, QByteArray> cases[] = {
        {{u"Caf\u00e9 \u2013 R\u00e9sum\u00e9 \u20ac"_qs, "(Cafe|Coffee)", u"/opt/caf\u00e9/run"_qs,
          1, 0},
         "Caf\xe9 \x96 R\xe9sum\xe9 \x80" + blanks(35) + "(Cafe|Coffee)" + blanks(37) +
             "/opt/caf\xe9/run" + blanks(242) + QByteArray("\x01\x00\x00\x00", 4)},
        // The byte order of the flags shows with values above 255 and below 0.
        {{"x", "y", "z", 0x0102, -2},
         "x" + blanks(49) + "y" + blanks(49) + "z" + blanks(254) +
             QByteArray("\x02\x01\xfe\xff", 4)},
    };
    for (const auto& [record, bytes] : cases) {
        ASSERT_EQ(EncodeAppRecord(record).size(), 359);
        EXPECT_EQ(EncodeAppRecord(record).toHex(), bytes.toHex()) << record.Title.toStdString();
        EXPECT_EQ(DecodeAppRecord(bytes), record) << record.Title.toStdString();
    }
}

// A file cut inside its second record: the missing bytes read as blanks and zero.
TEST(AppsFileTest, AShortLastRecordIsFilledAndAnAbsentFileIsEmpty)
{
    QTemporaryDir dir;
    const QString name = dir.filePath("Apps.cfg");
    EXPECT_TRUE(ReadAppsFile(name).empty());
    const AppRecord one = {"Title 1", "Voice 1", "/usr/bin/one --arg", 1, 1};
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        (EncodeAppRecord(one) + EncodeAppRecord({"T2", "V2", "/usr/bin/two", 1, 1})).left(539));
    file.close();
    EXPECT_EQ(ReadAppsFile(name),
              (std::vector<AppRecord>{one, {"T2", "V2", "/usr/bin/two", 0, 0}}));
}

struct LoadAppsTest : CharacterFixture, ::testing::Test {
    LoadAppsTest() { app.AppPath = dir.path(); }
    QTemporaryDir dir;
    const QString file = AppsFilePath(dir.path());
};

// Any flag other than zero counts as true.
TEST_F(LoadAppsTest, FlagsAreTrueUnlessZeroAndNothingLoadsWithoutSpeechInput)
{
    WriteAppsFile(file, {{"T", "V", "p", -1, 256}});
    LoadApps(app);
    EXPECT_EQ(fp.agent->calls, QStringList{"Commands.Add( 1,T,V,1,1)"});

    fp.agent->calls.clear();
    fp.agent->speechInputInstalled = false;
    app.AppPaths = {QString(), "left over"};
    LoadApps(app);
    EXPECT_EQ(app.AppPaths.size(), 1u);
    EXPECT_TRUE(fp.agent->calls.isEmpty());
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}

TEST_F(LoadAppsTest, AFileThatCannotBeOpenedShowsTheFileReadErrorBox)
{
    ASSERT_TRUE(QDir().mkpath(file));
    LoadApps(app);
    ASSERT_EQ(fp.dialogs.boxes.size(), 2u);
    EXPECT_EQ(fp.dialogs.boxes[0],
              (fakes::Box{platform::BoxIcon::Critical, platform::BoxButtons::OK, "File Read Error",
                          "Please send the following info to " + SupportAddress +
                              " to help with a fix:\r\n" + file}));
    ASSERT_EQ(errorBoxes().size(), 1);
    EXPECT_TRUE(errorBoxes()[0].contains("( 10.1 )"));
    EXPECT_EQ(app.AppPaths.size(), 1u);
    EXPECT_TRUE(fp.agent->calls.isEmpty());
}

TEST_F(LoadAppsTest, AFailingRecordKeepsTheCommandsBeforeItAndLeavesItsSlotEmpty)
{
    WriteAppsFile(file, {{"Editor", "Open the editor", "/usr/bin/gedit --new-window", 1, 1},
                         {"Hidden", "(Hidden|Secret)", "secret", 0, 1},
                         {"Mail", "Mail", "mutt", 1, 0}});
    fp.agent->failCalls("Commands.Add( 2,", {1234, "Agent.Control.1", "refused"});
    LoadApps(app);
    EXPECT_EQ(fp.agent->calls, QStringList{"Commands.Add( 1,Editor,Open the editor,1,1)"});
    EXPECT_EQ(app.AppPaths, (std::vector<QString>{QString(), "/usr/bin/gedit --new-window",
                                                  QString(), QString()}));
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    ASSERT_EQ(errorBoxes().size(), 1);
    EXPECT_TRUE(errorBoxes()[0].contains("( 10.2 )"));
}
