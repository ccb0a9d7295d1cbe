#include "core/Utf8Validator.h"

#include <QByteArray>
#include <gtest/gtest.h>

namespace
{

struct Case {
    const char* name;
    QByteArray bytes;
    bool valid;
};

const Case Cases[] = {
    {"empty", "", true},
    {"ascii", "plain text\r\n", true},
    {"two-byte", "caf\xC3\xA9", true},
    {"three-byte", "\xE2\x80\x9Cq\xE2\x80\x9D \xE2\x82\xAC", true},
    {"four-byte", "\xF0\x9F\x98\x80", true},
    {"highest code point", "\xF4\x8F\xBF\xBF", true},
    {"lone Windows-1252 byte", "caf\xE9", false},
    {"stray continuation",
     "a\x80"
     "b",
     false},
    {"overlong two-byte", "\xC0\xAF", false},
    {"overlong three-byte", "\xE0\x80\xAF", false},
    {"overlong four-byte", "\xF0\x80\x80\xAF", false},
    {"surrogate", "\xED\xA0\x80", false},
    {"above U+10FFFF", "\xF4\x90\x80\x80", false},
    {"invalid lead", "\xF8\x88\x80\x80\x80", false},
    {"cut off at the end", "ok\xE2\x82", false},
    {"lead followed by ascii",
     "\xC3"
     "A",
     false},
};

TEST(Utf8ValidatorTest, WholeInput)
{
    for (const Case& c : Cases) {
        Utf8Validator validator;
        validator.feed(c.bytes.constData(), std::size_t(c.bytes.size()));
        EXPECT_EQ(validator.valid(), c.valid) << c.name;
    }
}

// Files are checked block by block, so a sequence may be split anywhere.
TEST(Utf8ValidatorTest, SplitAtEveryPosition)
{
    for (const Case& c : Cases) {
        for (qsizetype cut = 0; cut <= c.bytes.size(); ++cut) {
            Utf8Validator validator;
            validator.feed(c.bytes.constData(), std::size_t(cut));
            validator.feed(c.bytes.constData() + cut, std::size_t(c.bytes.size() - cut));
            EXPECT_EQ(validator.valid(), c.valid) << c.name << " cut at " << cut;
        }
    }
}

} // namespace
