#include "agent/runtime/BalloonWindow.h"

#include <gtest/gtest.h>

using namespace agent;
using namespace agent::runtime;

TEST(BalloonWindowTest, FixedToLinesAndCharactersPerLineOrSizedToTheText)
{
    acs::BalloonInfo style; // two lines
    style.charsPerLine = 20;
    const int fixedWidth = BalloonWindow(style).width();
    for (const std::uint32_t flags : {0u, acs::flags::BalloonSizeToText}) {
        BalloonWindow balloon(style, flags);
        balloon.setText(QStringLiteral("Hi"));
        const QSize shortText = balloon.size();
        balloon.setText(u"word "_qs.repeated(60));
        const QSize manyLines = balloon.size();
        balloon.setText(QStringLiteral("one two three four five six seven eight nine ten"));
        const QSize twoLines = balloon.size();

        EXPECT_EQ(manyLines.height(), twoLines.height()) << flags << ": never more than two lines";
        EXPECT_TRUE(manyLines.width() <= fixedWidth && manyLines.width() > fixedWidth * 3 / 4)
            << flags << ": never more than 20 characters, " << manyLines.width();
        if (flags & acs::flags::BalloonSizeToText) {
            EXPECT_LT(shortText.width(), twoLines.width() / 2) << "short text, narrow balloon";
            EXPECT_LT(shortText.height(), twoLines.height()) << "short text, one line";
        } else {
            EXPECT_EQ(shortText, twoLines) << "the balloon keeps its size";
        }
    }
}

// Words come as they are heard (all at once without pacing); long text scrolls by lines so
// that the latest word heard is always in view.
TEST(BalloonWindowTest, LongTextScrollsWithTheWordsHeard)
{
    acs::BalloonInfo style; // two lines
    style.charsPerLine = 16;
    QStringList words;
    for (int i = 1; i <= 40; ++i)
        words << QStringLiteral("w%1").arg(i);
    const QString text = words.join(QLatin1Char(' '));
    for (const std::uint32_t flags : {0u, acs::flags::BalloonNoAutoPace}) {
        const bool paced = !(flags & acs::flags::BalloonNoAutoPace);
        BalloonWindow balloon(style, flags);
        qsizetype heard = 0;
        for (int i = 0; i < words.size(); ++i) {
            heard = text.indexOf(words[i], heard) + words[i].size();
            balloon.setText(text, heard);
            const QStringList visible = balloon.visibleText().split(QLatin1Char(' '));
            EXPECT_TRUE(visible.contains(words[i])) << flags << ": " << i;
            EXPECT_LT(visible.size(), 12) << "two short lines in view";
            if (paced) {
                EXPECT_EQ(visible.last(), words[i]) << "nothing before it is heard";
            }
        }
        if (!paced) {
            balloon.setText(text, 0);
            EXPECT_GT(balloon.visibleText().split(QLatin1Char(' ')).size(), 2)
                << "unpaced: the first lines at once";
        }
    }
}
