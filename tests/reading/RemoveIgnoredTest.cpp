#include "reading/RemoveIgnored.h"

#include "ReadingFixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace
{

struct RemoveIgnoredTest : ReadingFixture, ::testing::Test {
};

TEST_F(RemoveIgnoredTest, Cases)
{
    struct Case {
        const char* name;
        bool on;
        QString first;
        QString second;
        QString text;
        QString result;
    };
    const Case cases[] = {
        {"box cleared keeps everything", false, ">", "*", "> a * b", "> a * b"},
        {"the two default characters", true, ">", "*", "> a * b >>", " a  b "},
        {"a and A drop both cases", true, "a", "A", "Aa banana", " bnn"},
        {"a alone keeps A", true, "a", "", "Aa banana", "A bnn"},
        {"empty boxes match nothing", true, "", "", "any text", "any text"},
        {"a space box is empty", true, " ", "", "a b", "a b"},
        {"empty text", true, "a", "b", "", ""},
    };
    for (const Case& c : cases) {
        form().chkIgnore->setChecked(c.on);
        form().txtIgnore->setText(c.first);
        form().txtIgnore1->setText(c.second);
        const QString text = c.text;
        EXPECT_EQ(RemoveIgnored(app, text), c.result) << c.name;
        EXPECT_EQ(text, c.text) << c.name << ": the argument changed";
    }
}

// A long text is filtered past the points where the event queue runs.
TEST_F(RemoveIgnoredTest, LongText)
{
    form().chkIgnore->setChecked(true);
    form().txtIgnore->setText(QStringLiteral("*"));
    QString text;
    QString expected;
    for (int i = 0; i < 3000; ++i) {
        text += i % 7 == 0 ? QLatin1Char('*') : QLatin1Char('a' + i % 26);
        if (i % 7 != 0)
            expected += QLatin1Char('a' + i % 26);
    }
    EXPECT_EQ(RemoveIgnored(app, text), expected);
}

} // namespace
