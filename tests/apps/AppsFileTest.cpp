#include "apps/AppsFile.h"

#include "apps/LoadApps.h"
#include "fakes/CharacterFixture.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// The application records, the file that holds them, and their loading as commands.

QByteArray blanks(int n)
{
    return QByteArray(n, ' ');
}

QByteArray flags(const char (&bytes)[5])
{
    return QByteArray(bytes, 4);
}

AppRecord record(int i)
{
    return {QString("Title %1").arg(i), QString("Voice %1").arg(i),
            QString("/usr/bin/program%1 --arg").arg(i), 1, 1};
}

TEST(AppRecordTest, EncodesToTheExactBytesOfTheFile)
{
    const QString fifty = "Fifty characters of title, with no blank after it!";
    ASSERT_EQ(fifty.size(), 50);
    const std::pair<AppRecord, QByteArray> cases[] = {
        {{"Editor", "Open the editor", "/usr/bin/gedit --new-window", 1, 1},
         "Editor" + blanks(44) + "Open the editor" + blanks(35) + "/usr/bin/gedit --new-window" +
             blanks(228) + flags("\x01\x00\x01\x00")},
        {{fifty, "Title", QString(), 0, 1},
         fifty.toLatin1() + "Title" + blanks(45) + blanks(255) + flags("\x00\x00\x01\x00")},
        {{u"Caf\u00e9 \u2013 R\u00e9sum\u00e9 \u20ac"_qs, "(Cafe|Coffee)", u"/opt/caf\u00e9/run"_qs,
          1, 0},
         "Caf\xe9 \x96 R\xe9sum\xe9 \x80" + blanks(35) + "(Cafe|Coffee)" + blanks(37) +
             "/opt/caf\xe9/run" + blanks(242) + flags("\x01\x00\x00\x00")},
        // The byte order of the flags shows with values above 255 and below 0.
        {{"x", "y", "z", 0x0102, -2},
         "x" + blanks(49) + "y" + blanks(49) + "z" + blanks(254) + flags("\x02\x01\xfe\xff")},
    };
    for (const auto& [record, bytes] : cases) {
        ASSERT_EQ(EncodeAppRecord(record).size(), 359);
        EXPECT_EQ(EncodeAppRecord(record).toHex(), bytes.toHex()) << record.Title.toStdString();
        EXPECT_EQ(DecodeAppRecord(bytes), record) << record.Title.toStdString();
    }
}

TEST(AppRecordTest, DecodingCutsTrimsAndFillsFields)
{
    // Long texts are cut at their field width.
    const AppRecord longTexts{QString(60, 't'), QString(51, 'v'), "/bin/" + QString(300, 'p'), 1,
                              1};
    EXPECT_EQ(DecodeAppRecord(EncodeAppRecord(longTexts)),
              (AppRecord{QString(50, 't'), QString(50, 'v'), longTexts.Path.left(255), 1, 1}));
    // Blanks go on both sides.
    EXPECT_EQ(DecodeAppRecord("  Mail " + blanks(43) + " mail" + blanks(45) + "   /usr/bin/mutt  " +
                              blanks(237) + flags("\x01\x00\x01\x00")),
              (AppRecord{"Mail", "mail", "/usr/bin/mutt", 1, 1}));
}

struct AppsFileTest : ::testing::Test {
    QTemporaryDir dir;
    QString name = AppsFilePath(dir.path());
};

TEST_F(AppsFileTest, FilesOfEachLengthGiveTheirRecords)
{
    EXPECT_EQ(AppsFilePath("/data/Quorl"), "/data/Quorl/Apps.cfg");
    EXPECT_TRUE(ReadAppsFile(name).empty()) << "an absent file is an empty list";
    const QByteArray three =
        EncodeAppRecord(record(1)) + EncodeAppRecord(record(2)) + EncodeAppRecord(record(3));
    const std::pair<int, std::size_t> cases[] = {{0, 0},   {179, 0}, {180, 1},
                                                 {359, 1}, {539, 2}, {3 * 359, 3}};
    for (const auto& [length, count] : cases) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(three.left(length));
        file.close();
        const std::vector<AppRecord> records = ReadAppsFile(name);
        ASSERT_EQ(records.size(), count) << length;
        for (std::size_t i = 0; i < records.size(); ++i)
            EXPECT_EQ(records[i].Title, record(int(i) + 1).Title) << length;
        // The missing bytes of a short record read as blanks and zero.
        if (length == 539) {
            EXPECT_EQ(records[1], (AppRecord{"Title 2", "Voice 2", record(2).Path.left(80), 0, 0}));
        }
    }
}

TEST_F(AppsFileTest, WrittenRecordsReadBackTheSameAndAnEmptyListLeavesNoFile)
{
    const std::vector<AppRecord> records{record(1), record(2), record(3)};
    WriteAppsFile(name, records);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), EncodeAppRecord(records[0]) + EncodeAppRecord(records[1]) +
                                  EncodeAppRecord(records[2]));
    EXPECT_EQ(ReadAppsFile(name), records);
    for (int i = 0; i < 2; ++i) {
        WriteAppsFile(name, {});
        EXPECT_FALSE(QFile::exists(name));
    }
}

TEST_F(AppsFileTest, FilesThatCannotBeOpenedAreErrors)
{
    const QString missing = dir.path() + "/missing/Apps.cfg";
    EXPECT_THROW(WriteAppsFile(missing, {record(1)}), platform::RuntimeError);
    EXPECT_FALSE(QFile::exists(missing));
    ASSERT_TRUE(QDir().mkpath(name));
    EXPECT_THROW(ReadAppsFile(name), platform::RuntimeError);
}

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
