#include "apps/AppRecord.h"

#include <gtest/gtest.h>

namespace
{

QByteArray blanks(int n)
{
    return QByteArray(n, ' ');
}

QByteArray flags(const char (&bytes)[5])
{
    return QByteArray(bytes, 4);
}

TEST(AppRecordTest, EncodesToTheExactBytesOfTheFile)
{
    const QString fifty = QStringLiteral("Fifty characters of title, with no blank after it!");
    ASSERT_EQ(fifty.size(), 50);

    struct Case {
        AppRecord record;
        QByteArray bytes;
    };
    const Case cases[] = {
        {{QStringLiteral("Editor"), QStringLiteral("Open the editor"),
          QStringLiteral("/usr/bin/gedit --new-window"), 1, 1},
         QByteArray("Editor") + blanks(44) + QByteArray("Open the editor") + blanks(35) +
             QByteArray("/usr/bin/gedit --new-window") + blanks(228) + flags("\x01\x00\x01\x00")},
        {{fifty, QStringLiteral("Title"), QString(), 0, 1},
         fifty.toLatin1() + QByteArray("Title") + blanks(45) + blanks(255) +
             flags("\x00\x00\x01\x00")},
        {{QStringLiteral("Caf\u00e9 \u2013 R\u00e9sum\u00e9 \u20ac"),
          QStringLiteral("(Cafe|Coffee)"), QStringLiteral("/opt/caf\u00e9/run"), 1, 0},
         QByteArray("Caf\xe9 \x96 R\xe9sum\xe9 \x80") + blanks(35) + QByteArray("(Cafe|Coffee)") +
             blanks(37) + QByteArray("/opt/caf\xe9/run") + blanks(242) + flags("\x01\x00\x00\x00")},
        // The byte order of the flags shows with values above 255 and below 0.
        {{QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z"), 0x0102, -2},
         QByteArray("x") + blanks(49) + QByteArray("y") + blanks(49) + QByteArray("z") +
             blanks(254) + flags("\x02\x01\xfe\xff")},
    };
    for (const Case& c : cases) {
        const QByteArray bytes = EncodeAppRecord(c.record);
        ASSERT_EQ(bytes.size(), 359);
        EXPECT_EQ(bytes.toHex(), c.bytes.toHex()) << c.record.Title.toStdString();
        EXPECT_EQ(DecodeAppRecord(c.bytes), c.record) << c.record.Title.toStdString();
    }
}

TEST(AppRecordTest, LongTextsAreCutAtTheirFieldWidth)
{
    const AppRecord record{QString(60, QLatin1Char('t')), QString(51, QLatin1Char('v')),
                           QStringLiteral("/bin/") + QString(300, QLatin1Char('p')), 1, 1};
    const AppRecord back = DecodeAppRecord(EncodeAppRecord(record));
    EXPECT_EQ(back.Title, QString(50, QLatin1Char('t')));
    EXPECT_EQ(back.Voice, QString(50, QLatin1Char('v')));
    EXPECT_EQ(back.Path, record.Path.left(255));
}

TEST(AppRecordTest, DecodingRemovesBlanksOnBothSides)
{
    const QByteArray bytes = QByteArray("  Mail ") + blanks(43) + QByteArray(" mail") + blanks(45) +
                             QByteArray("   /usr/bin/mutt  ") + blanks(237) +
                             flags("\x01\x00\x01\x00");
    const AppRecord record = DecodeAppRecord(bytes);
    EXPECT_EQ(record.Title, QStringLiteral("Mail"));
    EXPECT_EQ(record.Voice, QStringLiteral("mail"));
    EXPECT_EQ(record.Path, QStringLiteral("/usr/bin/mutt"));
}

TEST(AppRecordTest, MissingBytesOfAShortRecordReadAsBlanksAndZero)
{
    const QByteArray full = EncodeAppRecord({QStringLiteral("Title"), QStringLiteral("Voice"),
                                             QStringLiteral("/usr/bin/program"), 1, 1});
    const AppRecord record = DecodeAppRecord(full.left(180));
    EXPECT_EQ(record.Title, QStringLiteral("Title"));
    EXPECT_EQ(record.Voice, QStringLiteral("Voice"));
    EXPECT_EQ(record.Path, QStringLiteral("/usr/bin/program"));
    EXPECT_EQ(record.ShowInPopup, 0);
    EXPECT_EQ(record.VoiceActivated, 0);
}

} // namespace
