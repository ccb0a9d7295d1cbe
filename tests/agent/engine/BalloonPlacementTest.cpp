#include "FakeSpeechOutput.h"
#include "RequestWait.h"
#include "agent/acs/AcsFile.h"
#include "agent/runtime/BalloonWindow.h"
#include "agent/runtime/CharacterRuntime.h"
#include "agent/runtime/CharacterWindow.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

using namespace agent;
using namespace agent::runtime;
using namespace agent::runtime::testing;
using Status = platform::AgentRequest;

namespace
{

// What a user sees around the character: the desktop, the character and its balloon, each
// drawn with its own transparency.
QImage screenshot(CharacterRuntime& runtime)
{
    const QRect character = runtime.window().geometry();
    const QRect balloon = runtime.balloon().geometry();
    const QRect area = character.united(balloon)
                           .adjusted(-12, -12, 12, 12)
                           .intersected(QGuiApplication::primaryScreen()->geometry());
    QImage picture(area.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(QColor(0x4a, 0x6d, 0x8c));
    QPainter painter(&picture);
    painter.drawImage(character.topLeft() - area.topLeft(), runtime.window().picture());
    painter.drawImage(balloon.topLeft() - area.topLeft(), runtime.balloon().grab().toImage());
    return picture;
}

// The character that ships with the program, in each corner of the screen, says a long
// sentence: the balloon stays on the screen with its tail towards the character, in the
// file's colours, and every word is in view at some point while it is spoken. With
// BALLOON_SCREENSHOTS set to a folder, the test leaves its pictures there.
TEST(BalloonPlacementTest, InEveryCornerTheBalloonStaysOnScreenAndShowsEveryWord)
{
    QFile file(QStringLiteral(BUNDLED_CHARACTER));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << BUNDLED_CHARACTER;
    const auto data = std::make_shared<const acs::CharacterData>(acs::readAcs(file.readAll()));
    ASSERT_TRUE(data->balloon);
    const acs::BalloonInfo& style = *data->balloon;
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize size(data->width, data->height);

    const QString sentence = QStringLiteral(
        "Good morning! Today is Monday, the twenty-third of November, and the sky over the city "
        "is clear and bright. You have three reminders for today: call the dentist before noon, "
        "buy fresh bread on the way home, and water the plants on the balcony. Your notes are "
        "saved, and I will read any of them aloud whenever you ask me.");
    const QStringList words = sentence.split(QLatin1Char(' '));
    ASSERT_EQ(words.size(), 60);

    struct Corner {
        const char* name;
        QPoint topLeft;
        bool balloonAbove;
    };
    const Corner corners[] = {
        {"top-left", screen.topLeft(), false},
        {"top-right", QPoint(screen.right() + 1 - size.width(), screen.top()), false},
        {"bottom-left", QPoint(screen.left(), screen.bottom() + 1 - size.height()), true},
        {"bottom-right", screen.bottomRight() + QPoint(1, 1) - QPoint(size.width(), size.height()),
         true},
    };
    for (const Corner& corner : corners) {
        SCOPED_TRACE(corner.name);
        FakeSpeechOutput speech(25);
        CharacterRuntime runtime(data, speech, {}, {}, 7);
        runtime.setIdleOn(false);
        runtime.moveTo(corner.topLeft);
        runtime.show(true);
        const platform::Request speak = runtime.speak(sentence);
        BalloonWindow& balloon = runtime.balloon();

        QSet<QString> seen;
        bool checked = false;
        while (!isFinished(speak)) {
            QTest::qWait(5);
            if (!balloon.isVisible())
                continue;
            const QStringList visible = balloon.visibleText().split(QLatin1Char(' '));
            seen.unite(QSet<QString>(visible.begin(), visible.end()));
            if (checked || !balloon.visibleText().contains(QStringLiteral("dentist")))
                continue;
            checked = true;
            const QRect character = runtime.window().geometry();
            const QRect shape = balloon.geometry();
            const QPoint tip = balloon.tailTip();
            EXPECT_TRUE(screen.contains(shape)) << "wholly on screen";
            EXPECT_EQ(shape.bottom() < character.top(), corner.balloonAbove);
            EXPECT_GE(tip.x(), character.left());
            EXPECT_LE(tip.x(), character.right());
            EXPECT_LE(
                std::abs(tip.y() - (corner.balloonAbove ? character.top() : character.bottom())), 4)
                << "the tail points at the character";

            const QImage picture = balloon.grab().toImage();
            const QPoint local = tip - shape.topLeft() + QPoint(0, corner.balloonAbove ? -4 : 4);
            EXPECT_GT(qAlpha(picture.pixel(local)), 0) << "the tail reaches towards its tip";
            EXPECT_EQ(picture.pixel(3, picture.height() / 2), style.background.rgb());
            EXPECT_EQ(picture.pixel(0, picture.height() / 2), style.border.rgb());
            EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0) << "see-through around the shape";
            const QString folder = qEnvironmentVariable("BALLOON_SCREENSHOTS");
            if (!folder.isEmpty())
                screenshot(runtime).save(
                    QDir(folder).filePath(QStringLiteral("balloon-%1.png").arg(corner.name)));
        }
        EXPECT_EQ(speak->Status(), Status::Complete);
        EXPECT_TRUE(checked);
        for (const QString& word : words)
            EXPECT_TRUE(seen.contains(word)) << word.toStdString();
    }
}

} // namespace
