#include "apps/AppsFile.h"

#include "core/ReplaceFile.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{

AppRecord record(int i)
{
    return {QStringLiteral("Title %1").arg(i), QStringLiteral("Voice %1").arg(i),
            QStringLiteral("/usr/bin/program%1 --arg").arg(i), std::int16_t(i % 2), 1};
}

QByteArray fileBytes(const QString& name)
{
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

void writeBytes(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

class AppsFileTest : public ::testing::Test
{
protected:
    QTemporaryDir dir;
    QString name = AppsFilePath(dir.path());
};

TEST_F(AppsFileTest, TheFileIsInTheDataFolder)
{
    EXPECT_EQ(AppsFilePath(QStringLiteral("/data/Quorl")), QStringLiteral("/data/Quorl/Apps.cfg"));
}

TEST_F(AppsFileTest, FilesOfEachLengthGiveTheirRecords)
{
    QByteArray three;
    for (int i = 1; i <= 3; ++i)
        three += EncodeAppRecord(record(i));
    const struct {
        int length;
        std::size_t records;
    } cases[] = {{0, 0}, {179, 0}, {180, 1}, {359, 1}, {539, 2}, {3 * 359, 3}};
    for (const auto& c : cases) {
        writeBytes(name, three.left(c.length));
        const std::vector<AppRecord> records = ReadAppsFile(name);
        ASSERT_EQ(records.size(), c.records) << c.length;
        for (std::size_t i = 0; i < records.size(); ++i)
            EXPECT_EQ(records[i].Title, record(int(i) + 1).Title) << c.length;
        if (c.length == 539) {
            EXPECT_EQ(records[1].Path, record(2).Path.left(180 - 100));
        }
    }
}

TEST_F(AppsFileTest, AnAbsentFileIsAnEmptyList)
{
    EXPECT_TRUE(ReadAppsFile(name).empty());
}

TEST_F(AppsFileTest, AFileThatCannotBeOpenedIsAnError)
{
    ASSERT_TRUE(QDir().mkpath(name));
    EXPECT_THROW(ReadAppsFile(name), platform::RuntimeError);
}

TEST_F(AppsFileTest, WrittenRecordsReadBackTheSameAndAreExactBytes)
{
    const std::vector<AppRecord> records{record(1), record(2), record(3)};
    WriteAppsFile(name, records);
    EXPECT_EQ(fileBytes(name), EncodeAppRecord(records[0]) + EncodeAppRecord(records[1]) +
                                   EncodeAppRecord(records[2]));
    EXPECT_EQ(ReadAppsFile(name), records);
}

TEST_F(AppsFileTest, AnEmptyListLeavesNoFile)
{
    WriteAppsFile(name, {record(1)});
    ASSERT_TRUE(QFile::exists(name));
    WriteAppsFile(name, {});
    EXPECT_FALSE(QFile::exists(name));
    WriteAppsFile(name, {});
    EXPECT_FALSE(QFile::exists(name));
}

TEST_F(AppsFileTest, AWriteThatFailsHalfWayLeavesTheOldFileWhole)
{
    WriteAppsFile(name, {record(1), record(2)});
    const QByteArray old = fileBytes(name);

    struct WriterKilled {
    };
    EXPECT_THROW(ReplaceFile(name,
                             [](QIODevice& file) {
                                 file.write(EncodeAppRecord(record(9)));
                                 file.write(QByteArray(100, 'x'));
                                 throw WriterKilled{};
                             }),
                 WriterKilled);

    EXPECT_EQ(fileBytes(name), old);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{QStringLiteral("Apps.cfg")});
}

TEST_F(AppsFileTest, AFolderThatCannotBeWrittenIsAnError)
{
    const QString missing = dir.path() + QStringLiteral("/missing/Apps.cfg");
    EXPECT_THROW(WriteAppsFile(missing, {record(1)}), platform::RuntimeError);
    EXPECT_FALSE(QFile::exists(missing));
}

} // namespace
