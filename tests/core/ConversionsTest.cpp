#include "core/Conversions.h"

#include "core/Cp1252.h"
#include "core/Utf8Validator.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace Conversions;

TEST(ConversionsTest, ValTakesTheLeadingNumber)
{
    const std::pair<QString, double> cases[] = {{"42", 42}, {"42.5", 42.5}, {"  -3abc", -3},
                                                {"1 2", 1}, {"", 0},        {"abc", 0},
                                                {"-", 0},   {"True", 0}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(Val(text), value) << text.toStdString();
    EXPECT_EQ((QStringList{SingleText(3.1f), SingleText(11.0f), NumberText(3), NumberText(-3)}),
              (QStringList{"3.1", "11", " 3", "-3"}));
}

TEST(Cp1252Test, EncodesEachCharacterAsOneByte)
{
    const std::pair<QString, QByteArray> cases[] = {
        {u"Caf\u00e9 \u00ff"_qs, "Caf\xe9 \xff"},
        {u"\u20ac \u2013 \u201cq\u201d \u0178"_qs, "\x80 \x96 \x93q\x94 \x9f"},
        // Characters outside the code page, one "?" each, also beyond the 16-bit range.
        {QString::fromUcs4(U"a\U0001F600b"), "a?b"},
        {u"\u0100"_qs, "?"},
    };
    for (const auto& [text, bytes] : cases)
        EXPECT_EQ(Cp1252::Encode(text), bytes) << text.toStdString();

    QByteArray all;
    for (int b = 0; b < 256; ++b)
        all.append(char(b));
    const QString text = Cp1252::Decode(all);
    EXPECT_EQ(text[0x80], QChar(0x20AC));
    EXPECT_EQ(text[0x9F], QChar(0x0178));
    EXPECT_EQ(Cp1252::Encode(text), all);
}

TEST(Cp1252Test, FixedFields)
{
    EXPECT_EQ(Cp1252::FixedField("ab", 5), "ab   ");
    EXPECT_EQ(Cp1252::FixedField("abcdefg", 5), "abcde");
    EXPECT_EQ(Cp1252::FixedField(QString(), 3), "   ");
    // Width is in bytes of the code page, not in UTF-16 units.
    EXPECT_EQ(Cp1252::FixedField(QString::fromUcs4(U"\U0001F600\u00e9x"), 2), "?\xe9");
    // Reading a field removes only the blanks outside.
    EXPECT_EQ(Cp1252::ReadField("  a b  "), "a b");
    EXPECT_EQ(Cp1252::ReadField("    "), QString());
    EXPECT_EQ(Cp1252::ReadField("\ta\t "), "\ta\t");
    EXPECT_EQ(Cp1252::ReadField(" \x80 "), u"\u20ac"_qs);
}

// Files are checked block by block, so a sequence may be split anywhere.
TEST(Utf8ValidatorTest, WholeInputAndSplitAtEveryPosition)
{
    const std::pair<QByteArray, bool> cases[] = {
        {"plain text\r\n", true},
        {"caf\xC3\xA9", true},
        {"\xE2\x80\x9Cq\xE2\x80\x9D \xE2\x82\xAC", true},
        {"\xF0\x9F\x98\x80", true},
        {"\xF4\x8F\xBF\xBF", true},         // the highest code point
        {"caf\xE9", false},                 // a lone Windows-1252 byte, cut off at the end
        {QByteArray("a\x80") + "b", false}, // a stray continuation
        {"\xC0\xAF", false},                // overlong forms
        {"\xE0\x80\xAF", false},
        {"\xF0\x80\x80\xAF", false},
        {"\xED\xA0\x80", false},           // a surrogate
        {"\xF4\x90\x80\x80", false},       // above U+10FFFF
        {"\xF8\x88\x80\x80\x80", false},   // an invalid lead
        {QByteArray("\xC3") + "A", false}, // a lead followed by ASCII
    };
    for (const auto& [bytes, valid] : cases) {
        for (qsizetype cut = 0; cut <= bytes.size(); ++cut) {
            Utf8Validator validator;
            validator.feed(bytes.constData(), std::size_t(cut));
            validator.feed(bytes.constData() + cut, std::size_t(bytes.size() - cut));
            EXPECT_EQ(validator.valid(), valid) << bytes.toHex().constData() << " cut at " << cut;
        }
    }
}
