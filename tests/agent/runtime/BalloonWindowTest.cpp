#include "agent/runtime/BalloonWindow.h"

#include <QFontMetrics>
#include <gtest/gtest.h>

using namespace agent;
using namespace agent::runtime;

namespace
{

TEST(BalloonWindowTest, DrawnInTheCharactersColours)
{
    acs::BalloonInfo own;
    own.background = QColor(10, 20, 30);
    own.border = QColor(200, 0, 0);
    struct Case {
        const char* name;
        acs::BalloonInfo style;
        QRgb background;
        QRgb border;
    };
    const Case cases[] = {
        {"defaults", acs::BalloonInfo{}, qRgb(255, 255, 225), qRgb(0, 0, 0)},
        {"the file's colours", own, qRgb(10, 20, 30), qRgb(200, 0, 0)},
    };
    for (const Case& test : cases) {
        BalloonWindow balloon(test.style);
        balloon.setText(QStringLiteral("Hello"));
        const QImage picture = balloon.grab().toImage();
        EXPECT_EQ(picture.pixel(0, 0) & 0xFFFFFF, test.border & 0xFFFFFF) << test.name;
        EXPECT_EQ(picture.pixel(2, 2) & 0xFFFFFF, test.background & 0xFFFFFF) << test.name;
    }
}

TEST(BalloonWindowTest, SizedToTheTextWithinLinesAndCharactersPerLine)
{
    acs::BalloonInfo style;
    style.lines = 2;
    style.charsPerLine = 20;
    BalloonWindow balloon(style);
    const QSize empty = balloon.size();

    balloon.setText(QStringLiteral("Hi"));
    const QSize shortText = balloon.size();
    balloon.setText(QStringLiteral("one two three four five six seven eight nine ten"));
    const QSize twoLines = balloon.size();
    balloon.setText(QString(QStringLiteral("word ")).repeated(60));
    const QSize manyLines = balloon.size();

    EXPECT_EQ(shortText.height(), empty.height());
    EXPECT_LT(shortText.width(), twoLines.width()) << "short text, narrow balloon";
    EXPECT_GT(twoLines.height(), shortText.height());
    QFont font(style.fontName);
    font.setPixelSize(13);
    const int widest = QFontMetrics(font).averageCharWidth() * 20 + 12;
    EXPECT_EQ(manyLines.height(), twoLines.height()) << "never more than two lines";
    EXPECT_LE(manyLines.width(), widest) << "never more than 20 characters a line";
    EXPECT_GT(manyLines.width(), widest / 2);
    EXPECT_EQ(balloon.text(), QString(QStringLiteral("word ")).repeated(60));
}

} // namespace
