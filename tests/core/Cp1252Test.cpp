#include "core/Cp1252.h"

#include <gtest/gtest.h>

namespace
{

struct Case {
    QString text;
    QByteArray bytes;
};

TEST(Cp1252Test, EncodesEachCharacterAsOneByte)
{
    const Case cases[] = {
        {QStringLiteral("Plain ASCII"), QByteArray("Plain ASCII")},
        {QStringLiteral("Caf\u00e9 \u00ff"), QByteArray("Caf\xe9 \xff")},
        {QStringLiteral("\u20ac \u2013 \u201cq\u201d \u0178"),
         QByteArray("\x80 \x96 \x93q\x94 \x9f")},
        {QStringLiteral("\u0161\u017e\u2122"), QByteArray("\x9a\x9e\x99")},
        // Characters outside the code page, one "?" each, also beyond the 16-bit range.
        {QStringLiteral("\u65e5\u672c"), QByteArray("??")},
        {QString::fromUcs4(U"a\U0001F600b"), QByteArray("a?b")},
        {QStringLiteral("\u0100"), QByteArray("?")},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Cp1252::Encode(c.text), c.bytes) << c.text.toStdString();
}

TEST(Cp1252Test, EveryByteDecodesAndEncodesBack)
{
    QByteArray all;
    for (int b = 0; b < 256; ++b)
        all.append(char(b));
    const QString text = Cp1252::Decode(all);
    EXPECT_EQ(text.size(), 256);
    EXPECT_EQ(text[0x80], QChar(0x20AC));
    EXPECT_EQ(text[0x9F], QChar(0x0178));
    EXPECT_EQ(Cp1252::Encode(text), all);
}

TEST(Cp1252Test, FixedFieldsAreFilledOrCutToTheirWidth)
{
    EXPECT_EQ(Cp1252::FixedField(QStringLiteral("ab"), 5), QByteArray("ab   "));
    EXPECT_EQ(Cp1252::FixedField(QStringLiteral("abcdefg"), 5), QByteArray("abcde"));
    EXPECT_EQ(Cp1252::FixedField(QString(), 3), QByteArray("   "));
    // Width is in bytes of the code page, not in UTF-16 units.
    EXPECT_EQ(Cp1252::FixedField(QString::fromUcs4(U"\U0001F600\u00e9x"), 2), QByteArray("?\xe9"));
}

TEST(Cp1252Test, ReadingAFieldRemovesOnlyTheBlanksOutside)
{
    EXPECT_EQ(Cp1252::ReadField(QByteArray("  a b  ")), QStringLiteral("a b"));
    EXPECT_EQ(Cp1252::ReadField(QByteArray("    ")), QString());
    EXPECT_EQ(Cp1252::ReadField(QByteArray("\ta\t ")), QStringLiteral("\ta\t"));
    EXPECT_EQ(Cp1252::ReadField(QByteArray(" \x80 ")), QStringLiteral("\u20ac"));
}

} // namespace
