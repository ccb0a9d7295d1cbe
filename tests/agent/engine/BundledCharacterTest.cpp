#include "EngineTestSupport.h"
#include "FakeSpeechOutput.h"
#include "RequestWait.h"
#include "agent/acs/AcsFile.h"
#include "agent/engine/AgentEngine.h"
#include "agent/runtime/BalloonWindow.h"
#include "agent/runtime/CharacterRuntime.h"
#include "agent/runtime/CharacterWindow.h"

#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

using namespace agent;
using namespace agent::runtime;
using namespace agent::runtime::testing;
using agent::engine::testing::FakeRecognizer;
using agent::engine::testing::RecordingEvents;
using Status = platform::AgentRequest;

namespace
{

// The character that ships with the program.
std::shared_ptr<const acs::CharacterData> bundled()
{
    QFile file(QStringLiteral(BUNDLED_CHARACTER));
    return file.open(QIODevice::ReadOnly)
               ? std::make_shared<const acs::CharacterData>(acs::readAcs(file.readAll()))
               : nullptr;
}

// In each corner of the screen the balloon stays on it, its tail towards the character.
TEST(BalloonPlacementTest, InEveryCornerTheBalloonStaysOnScreenAndShowsEveryWord)
{
    const auto data = bundled();
    ASSERT_TRUE(data && data->balloon) << BUNDLED_CHARACTER;
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

    for (const bool bottom : {false, true}) {
        for (const bool right : {false, true}) {
            SCOPED_TRACE(std::string(bottom ? "bottom-" : "top-") + (right ? "right" : "left"));
            const QPoint topLeft(right ? screen.right() + 1 - size.width() : screen.left(),
                                 bottom ? screen.bottom() + 1 - size.height() : screen.top());
            FakeSpeechOutput speech(25);
            CharacterRuntime runtime(data, speech, {}, {}, 7);
            runtime.setIdleOn(false);
            runtime.moveTo(topLeft);
            runtime.show(true);
            const platform::Request speak = runtime.speak(sentence);
            BalloonWindow& balloon = runtime.balloon();

            QSet<QString> seen;
            bool checked = false;
            for (int i = 0; i < 4000 && !isFinished(speak); ++i) {
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
                EXPECT_EQ(shape.bottom() < character.top(), bottom);
                EXPECT_GE(tip.x(), character.left());
                EXPECT_LE(tip.x(), character.right());
                EXPECT_LE(std::abs(tip.y() - (bottom ? character.top() : character.bottom())), 4)
                    << "the tail points at the character";

                const QImage picture = balloon.grab().toImage();
                const QPoint local = tip - shape.topLeft() + QPoint(0, bottom ? -4 : 4);
                EXPECT_GT(qAlpha(picture.pixel(local)), 0) << "the tail reaches towards its tip";
                EXPECT_EQ(picture.pixel(3, picture.height() / 2), style.background.rgb());
                EXPECT_EQ(picture.pixel(0, picture.height() / 2), style.border.rgb());
                EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0) << "see-through around the shape";
            }
            EXPECT_EQ(speak->Status(), Status::Complete);
            EXPECT_TRUE(checked);
            for (const QString& word : words)
                EXPECT_TRUE(seen.contains(word)) << word.toStdString();
        }
    }
}

// Every animation plays to an end, and so does the program's reading sequence.
TEST(BundledCharacterTest, EveryAnimationAndTheReadingSequenceComplete)
{
    const auto data = bundled();
    ASSERT_TRUE(data) << BUNDLED_CHARACTER;

    RecordingEvents events;
    engine::AgentEngine engine(std::make_unique<FakeSpeechOutput>(5),
                               std::make_unique<FakeRecognizer>());
    engine.setEventSink(&events);
    engine.Characters().Load("G", QStringLiteral(BUNDLED_CHARACTER));
    platform::AgentCharacter& character = engine.Characters().Character("G");
    character.setIdleOn(false);
    EXPECT_FALSE(character.Name().isEmpty());

    ASSERT_TRUE(waitFinished(character.Show(), 20000));
    for (const acs::Animation& animation : data->animations) {
        const platform::Request played = character.Play(animation.name);
        ASSERT_TRUE(waitFinished(played, 20000)) << animation.name.toStdString();
        EXPECT_EQ(played->Status(), Status::Complete) << animation.name.toStdString();
    }
    const std::vector<platform::Request> reading = {
        character.Play("Read"),
        character.Speak("A line read aloud."),
        character.Play("ReadReturn"),
        character.MoveTo(300, 200),
        character.Hide(),
    };
    for (const platform::Request& request : reading) {
        ASSERT_TRUE(waitFinished(request, 20000));
        EXPECT_EQ(request->Status(), Status::Complete);
    }
    EXPECT_EQ(character.Left(), 300);
    EXPECT_FALSE(character.Visible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.events.size() == 2; }, 2000));
    EXPECT_EQ(events.events, (QStringList{"Show G 0", "Hide G 0"}));
}

} // namespace
