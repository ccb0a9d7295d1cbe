#include "core/RecordFile.h"

#include "core/FileErrors.h"
#include "core/ReplaceFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(RecordFileTest, CountRoundsToTheNearestRecordWithTiesToEven)
{
    const struct {
        qint64 length;
        int recordLength;
        int count;
    } cases[] = {
        {179, 359, 0}, {180, 359, 1}, {32767LL * 359 + 179, 359, 32767},
        {283, 566, 0}, {849, 566, 2},
    };
    for (const auto& c : cases)
        EXPECT_EQ(RecordFile::Count(c.length, c.recordLength), c.count) << c.length;
    EXPECT_THROW(RecordFile::Count(32767LL * 359 + 180, 359), platform::RuntimeError);
    EXPECT_THROW(RecordFile::Count(32768LL * 566, 566), platform::RuntimeError);
}

TEST(RecordFileTest, AReplaceThatFailsHalfWayLeavesTheOldFileWholeAndNothingBeside)
{
    QTemporaryDir dir;
    const QString name = dir.filePath(QStringLiteral("Notes.cfg"));
    const QByteArray old(566 * 2, 'x');
    {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(old);
    }
    EXPECT_THROW(ReplaceFile(name,
                             [](QIODevice& file) {
                                 file.write(QByteArray(566, 'y'));
                                 throw FileAccessError(QStringLiteral("No space left on device"));
                             }),
                 platform::RuntimeError);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), old);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("Notes.cfg")});

    RecordFile::Replace(name, {});
    EXPECT_FALSE(QFile::exists(name));
}
