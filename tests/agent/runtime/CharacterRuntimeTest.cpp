#include "agent/runtime/CharacterRuntime.h"

#include "FakeSpeechOutput.h"
#include "TestCharacter.h"
#include "agent/runtime/BalloonWindow.h"
#include "agent/runtime/CharacterLookup.h"
#include "agent/runtime/CharacterWindow.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <set>

using namespace agent;
using namespace agent::runtime;
using namespace agent::runtime::testing;
using Status = platform::AgentRequest;

class CharacterRuntimeTest : public ::testing::Test
{
protected:
    std::unique_ptr<CharacterRuntime> make(SpeechOutput& output)
    {
        return std::make_unique<CharacterRuntime>(std::make_shared<acs::CharacterData>(character),
                                                  output, VoiceDefaults{}, timing, 99);
    }

    CharacterRuntime& runtime()
    {
        if (!runtime_) {
            runtime_ = make(speech);
            runtime_->setIdleOn(false);
        }
        return *runtime_;
    }

    int animation(const char* name) const { return findAnimation(character, QLatin1String(name)); }

    QRgb pixel(int x, int y) { return runtime().window().picture().pixel(x, y); }

    // Polls until `until` holds, noting the colour at (x, y) of every picture seen.
    std::set<QRgb> coloursSeen(int x, int y, const std::function<bool()>& until)
    {
        std::set<QRgb> seen;
        for (int i = 0; i < 1000 && !until(); ++i) {
            seen.insert(pixel(x, y));
            QTest::qWait(2);
        }
        return seen;
    }

    acs::CharacterData character = fullCharacter();
    FakeSpeechOutput speech{5};
    RuntimeTiming timing{
        .idleDelay = 40, .idleGap = 10, .idleLevel = 150, .move = 60, .balloonHide = 40};
    std::unique_ptr<CharacterRuntime> runtime_;
};

TEST_F(CharacterRuntimeTest, RequestsRunOneAfterTheOtherInCallOrder)
{
    const std::vector<platform::Request> requests = {
        runtime().show(false),
        runtime().play(animation("Wave")),
        runtime().play(animation("Loop")),
        runtime().speak(QStringLiteral("one two three")),
        runtime().moveTo({40, 30}),
        runtime().hide(),
    };
    for (const platform::Request& request : requests)
        EXPECT_EQ(request->Status(), Status::Pending) << "calls return before anything runs";

    for (int i = 0; i < 2000 && !isFinished(requests.back()); ++i) {
        for (std::size_t later = 0; later < requests.size(); ++later) {
            if (requests[later]->Status() == Status::Pending)
                continue;
            for (std::size_t earlier = 0; earlier < later; ++earlier)
                ASSERT_TRUE(isFinished(requests[earlier]))
                    << "request " << later << " started before " << earlier << " ended";
        }
        QTest::qWait(2);
    }
    for (const platform::Request& request : requests)
        EXPECT_EQ(request->Status(), Status::Complete);
    EXPECT_EQ(speech.spoken, QStringList{QStringLiteral("one two three")});
    EXPECT_FALSE(runtime().isVisible());
    EXPECT_EQ(runtime().position(), QPoint(40, 30));
}

TEST_F(CharacterRuntimeTest, RequestsWithNothingToDoOrThatCannotRun)
{
    QSignalSpy shown(&runtime(), &CharacterRuntime::shown);
    QSignalSpy hidden(&runtime(), &CharacterRuntime::hidden);
    std::vector<platform::Request> requests = {runtime().hide(), runtime().play(animation("Wave")),
                                               runtime().speak(QStringLiteral("unheard"))};
    runtime().show(true);
    requests.push_back(runtime().show(false));
    ASSERT_TRUE(waitFinished(requests.back()));
    EXPECT_EQ(std::pair(shown.size(), hidden.size()), (std::pair<qsizetype, qsizetype>(1, 0)));
    EXPECT_EQ(pixel(0, 0), rgba(Blue)) << "a fast show puts up the rest pose";

    speech.failNext = true;
    for (const platform::Request& request :
         {runtime().speak(QStringLiteral("no luck")), runtime().speak(QString()),
          runtime().play(-1), runtime().play(int(character.animations.size()))})
        requests.push_back(request);
    ASSERT_TRUE(waitFinished(requests.back()));
    std::vector<int> statuses;
    for (const platform::Request& request : requests)
        statuses.push_back(request->Status());
    EXPECT_EQ(statuses, (std::vector<int>{Status::Complete, Status::Complete, Status::Failed,
                                          Status::Complete, Status::Failed, Status::Complete,
                                          Status::Failed, Status::Failed}))
        << "hide, play, speak while hidden; show again; failed, empty speech; bad animations";
    EXPECT_FALSE(speech.spoken.contains(QStringLiteral("unheard")));
}

TEST_F(CharacterRuntimeTest, SpeechMovesTheMouthAndFillsTheBalloon)
{
    runtime().show(true);
    const platform::Request speak = runtime().speak(QStringLiteral("a b c d e f g h"));
    const std::set<QRgb> mouth = coloursSeen(5, 5, [&] { return isFinished(speak); });
    EXPECT_TRUE(mouth.count(rgba(Black))) << "the mouth overlay is drawn while speaking";
    EXPECT_EQ(pixel(5, 5), rgba(Blue)) << "and goes when the speech ends";
    EXPECT_EQ(runtime().balloon().text(), QStringLiteral("a b c d e f g h"));
    EXPECT_TRUE(runtime().balloonVisible());
}

TEST_F(CharacterRuntimeTest, BalloonFollowsTheCharactersStyleFlags)
{
    const std::tuple<const char*, std::uint32_t, bool, bool> cases[] = {
        {"paced, hidden after", 0, false, false},
        {"NOAUTOPACE", acs::flags::BalloonNoAutoPace, true, false},
        {"NOAUTOHIDE", acs::flags::BalloonNoAutoHide, false, true},
    };
    const QString text = QStringLiteral("one two three four");
    for (const auto& [name, flags, wholeTextAtOnce, staysAfterTheSpeech] : cases) {
        // A plain balloon speaking alongside shows when a balloon that stays has waited enough.
        FakeSpeechOutput controlSpeech{5};
        character.flags = 0;
        const auto control = make(controlSpeech);
        character.flags = flags;
        runtime_.reset();
        runtime().show(true);
        control->show(true);
        const platform::Request speak = runtime().speak(text);
        control->speak(text);
        ASSERT_TRUE(QTest::qWaitFor([this] { return runtime().balloonVisible(); }, 2000));
        EXPECT_EQ(runtime().balloon().visibleText() == text, wholeTextAtOnce) << name;
        ASSERT_TRUE(waitFinished(speak));
        if (staysAfterTheSpeech) {
            ASSERT_TRUE(QTest::qWaitFor([&] { return !control->balloonVisible(); }, 2000));
            EXPECT_TRUE(runtime().balloonVisible()) << name;
        } else {
            EXPECT_TRUE(QTest::qWaitFor([this] { return !runtime().balloonVisible(); }, 2000))
                << name;
        }
    }
}

TEST_F(CharacterRuntimeTest, UserHideInterruptsEverything)
{
    runtime().show(true);
    const platform::Request speaking = runtime().speak(QStringLiteral("a long long long text"));
    const platform::Request waiting = runtime().play(animation("Wave"));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !speech.spoken.isEmpty(); }, 2000));
    runtime().userHide();
    EXPECT_EQ(speaking->Status(), Status::Interrupted);
    EXPECT_EQ(waiting->Status(), Status::Interrupted);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !runtime().isVisible(); }, 2000));
    EXPECT_FALSE(runtime().balloonVisible());
}

TEST_F(CharacterRuntimeTest, IdlingDeepensLevelByLevel)
{
    QSignalSpy idle(&runtime(), &CharacterRuntime::idleStarted);
    runtime().setIdleOn(true);
    ASSERT_TRUE(waitFinished(runtime().show(true)));
    const std::set<QRgb> seen =
        coloursSeen(0, 0, [&] { return pixel(0, 0) == rgba(Blue) && idle.size() > 0; });
    EXPECT_EQ(idle.size(), 1);
    EXPECT_TRUE(seen.count(rgba(Red))) << "level 1";
    EXPECT_TRUE(seen.count(rgba(Green))) << "level 2";

    runtime().setIdleOn(false);
    ASSERT_TRUE(waitFinished(runtime().play(animation("Wave"))));
    idle.clear();
    const auto control = make(speech);
    QSignalSpy controlIdle(control.get(), &CharacterRuntime::idleStarted);
    control->show(true);
    ASSERT_TRUE(controlIdle.wait(2000)) << "a character with idle on idles meanwhile";
    EXPECT_EQ(idle.size(), 0) << "idle off: no idling";
}

TEST_F(CharacterRuntimeTest, MovesSlideThroughTheDirectionAnimation)
{
    ASSERT_TRUE(waitFinished(runtime().moveTo({10, 20})));
    EXPECT_EQ(runtime().position(), QPoint(10, 20)) << "a hidden character moves at once";
    runtime().show(true);
    const platform::Request right = runtime().moveTo({90, 25});
    const std::set<QRgb> seen = coloursSeen(0, 0, [&] { return isFinished(right); });
    EXPECT_TRUE(seen.count(rgba(Red))) << "going right on screen is the character's left";
    EXPECT_FALSE(seen.count(rgba(Green)));
    EXPECT_EQ(runtime().position(), QPoint(90, 25));
}
