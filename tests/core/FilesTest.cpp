#include "core/FileErrors.h"
#include "core/RecordFile.h"
#include "core/ReplaceFile.h"
#include "core/TextFile.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

struct TextFileTest : ::testing::Test {
    QString write(const QByteArray& bytes)
    {
        const QString path = dir.filePath("t.txt");
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return path;
    }

    QStringList lines(const QByteArray& bytes)
    {
        file.open(write(bytes));
        QStringList result;
        while (!file.atEnd())
            result << file.readLine();
        return result;
    }

    QTemporaryDir dir;
    TextFile file;
};

TEST_F(TextFileTest, LineEndsAndEncoding)
{
    const QString expected =
        QString::fromUtf8("caf\xC3\xA9 \xE2\x80\x9Cq\xE2\x80\x9D \xE2\x82\xAC");
    const struct {
        const char* name;
        QByteArray bytes;
        bool utf8;
        QStringList lines;
    } cases[] = {
        {"each line end, the last line without one", "a\rb\nc\r\nd", true, {"a", "b", "c", "d"}},
        {"LF CR is two line ends", "a\n\rb", true, {"a", "", "b"}},
        {"blank lines kept", "a\n\n\nb\n", true, {"a", "", "", "b"}},
        {"a lone line end", "\r\n", true, {""}},
        {"empty file", "", true, {}},
        // The encoding follows the whole file.
        {"UTF-8", "caf\xC3\xA9 \xE2\x80\x9Cq\xE2\x80\x9D \xE2\x82\xAC\r\n", true, {expected}},
        {"Windows-1252", "caf\xE9 \x93q\x94 \x80\r\n", false, {expected}},
        {"UTF-8 with byte order mark", "\xEF\xBB\xBFone\r\ntwo", true, {"one", "two"}},
        {"undefined Windows-1252 byte", "a\x81\x62", false, {"a\u0081b"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(lines(c.bytes), c.lines) << c.name;
        EXPECT_EQ(file.isUtf8(), c.utf8) << c.name;
        EXPECT_EQ(file.size(), c.bytes.size()) << c.name;
    }
}

// One stray byte far beyond the first block makes the whole file single-byte text.
TEST_F(TextFileTest, LateStrayByteMakesTheWholeFileSingleByte)
{
    QByteArray bytes = "caf\xC3\xA9\n";
    for (int i = 0; i < 200; ++i)
        bytes += QByteArray(999, 'x') + '\n';
    bytes += "\xE9";
    const QStringList read = lines(bytes);
    EXPECT_FALSE(file.isUtf8());
    ASSERT_EQ(read.size(), 202);
    EXPECT_EQ(read.front(), "caf\u00C3\u00A9");
    EXPECT_EQ(read.back(), "\u00E9");
}

TEST_F(TextFileTest, LongLineComesInSegmentsThatJoinToTheLine)
{
    // Two-byte characters, so that a segment boundary falls inside a character unless the
    // reader avoids it; an odd count of bytes before them shifts the boundaries.
    const QString line = "x" + QString(150000, QChar(0x00E9)) + " end";
    file.open(write(line.toUtf8() + "\r\nnext\r\n"));

    QString joined = file.readLine();
    int segments = 1;
    EXPECT_FALSE(file.atEnd()) << "the line \"next\" follows";
    while (file.lineContinues()) {
        const QString segment = file.readMore();
        EXPECT_LE(segment.toUtf8().size(), TextFile::SegmentBytes);
        joined += segment;
        ++segments;
    }
    EXPECT_EQ(joined, line);
    EXPECT_EQ(segments, 5);

    // readLine passes over the rest of a long line.
    const QByteArray longLine(3 * TextFile::SegmentBytes, 'a');
    file.open(write(longLine + "\nsecond"));
    EXPECT_EQ(file.readLine().size(), TextFile::SegmentBytes);
    EXPECT_EQ(file.readLine(), "second");
    EXPECT_FALSE(file.lineContinues());
    EXPECT_TRUE(file.atEnd());

    // The end is known while the last line is still in segments.
    file.open(write(QByteArray(2 * TextFile::SegmentBytes, 'a') + "\r\n"));
    file.readLine();
    EXPECT_TRUE(file.lineContinues());
    EXPECT_TRUE(file.atEnd()) << "no line follows the one in hand";
}

TEST_F(TextFileTest, BlankRestOfLongLine)
{
    const struct {
        const char* name;
        QByteArray tail;
        bool blank;
    } cases[] = {
        {"spaces to the end", QByteArray(TextFile::SegmentBytes * 2, ' '), true},
        {"a word after many spaces", QByteArray(TextFile::SegmentBytes * 2, ' ') + "word", false},
        {"a tab counts as text", QByteArray(TextFile::SegmentBytes * 2, ' ') + "\t", false},
    };
    for (const auto& c : cases) {
        file.open(write(QByteArray(TextFile::SegmentBytes, 'a') + c.tail + "\nnext"));
        file.readLine();
        ASSERT_TRUE(file.lineContinues()) << c.name;
        EXPECT_EQ(file.restOfLineBlank(), c.blank) << c.name;
    }
}

TEST_F(TextFileTest, MissingFileAndClosedFile)
{
    try {
        file.open(dir.filePath("missing.txt"));
        FAIL() << "no error";
    } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.Number, platform::errors::FileNotFound);
        EXPECT_EQ(error.Description, "File not found");
    }
    EXPECT_THROW(file.open(dir.path()), platform::RuntimeError);

    file.open(write("one\ntwo\n"));
    file.readLine();
    file.close();
    EXPECT_TRUE(file.atEnd());
    EXPECT_TRUE(file.readLine().isEmpty());
}

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
    ReplaceFile(name, [&](QIODevice& file) { file.write(old); });
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
