#include "agent/runtime/AnimationPlayer.h"

#include "TestCharacter.h"

#include <QTest>
#include <gtest/gtest.h>

using namespace agent;
using namespace agent::runtime;
using namespace agent::runtime::testing;

namespace
{

using Shown = std::vector<std::pair<int, int>>;

class AnimationPlayerTest : public ::testing::Test
{
protected:
    // Builds the player over the given animations; frames show image 0.
    void load(std::vector<acs::Animation> animations)
    {
        auto data = std::make_shared<acs::CharacterData>(blankCharacter(8, 8));
        data->animations = std::move(animations);
        player = std::make_unique<AnimationPlayer>(data, random);
        QObject::connect(
            player.get(), &AnimationPlayer::frameShown,
            [this](int animation, int frame) { shown.emplace_back(animation, frame); });
        QObject::connect(player.get(), &AnimationPlayer::soundCue,
                         [this](int sound) { sounds.push_back(sound); });
    }

    bool playToEnd(int animation, std::optional<int> stopAt = {})
    {
        bool done = false;
        player->play(
            animation, [&done] { done = true; }, stopAt);
        return QTest::qWaitFor([&done] { return done; }, 5000);
    }

    bool leave()
    {
        bool done = false;
        player->leave([&done] { done = true; });
        return QTest::qWaitFor([&done] { return done; }, 5000);
    }

    static acs::Frame step(std::uint16_t duration, std::int16_t exit = -2)
    {
        acs::Frame result = frame({{0, 0, 0}}, duration);
        result.exitFrame = exit;
        return result;
    }

    RandomSource random{42};
    std::unique_ptr<AnimationPlayer> player;
    Shown shown;
    std::vector<int> sounds;
};

TEST_F(AnimationPlayerTest, ZeroDurationFramesAreNotShownButBranch)
{
    acs::Animation animation = agent::runtime::testing::animation(
        QStringLiteral("A"), {step(1), step(0), step(1), step(1), step(0)});
    animation.frames[1].branches = {{3, 100}};
    animation.frames[3].sound = 2;
    load({animation});
    ASSERT_TRUE(playToEnd(0));
    EXPECT_EQ(shown, (Shown{{0, 0}, {0, 3}}));
    EXPECT_EQ(sounds, std::vector<int>{2});
    EXPECT_EQ(player->displayedFrame(), 3) << "the last shown frame stays";
}

TEST_F(AnimationPlayerTest, ZeroDurationCycleEnds)
{
    acs::Animation animation =
        agent::runtime::testing::animation(QStringLiteral("A"), {step(1), step(0)});
    animation.frames[1].branches = {{1, 100}};
    load({animation});
    EXPECT_TRUE(playToEnd(0));
}

TEST_F(AnimationPlayerTest, StopsAtTheStopFrame)
{
    load({agent::runtime::testing::animation(QStringLiteral("A"), {step(1), step(1), step(1)})});
    ASSERT_TRUE(playToEnd(0, 1));
    EXPECT_EQ(shown, (Shown{{0, 0}, {0, 1}}));
    QTest::qWait(50);
    EXPECT_EQ(shown.size(), 2u) << "the stop frame stays";
}

TEST_F(AnimationPlayerTest, LeavesALoopThroughItsExitBranches)
{
    acs::Animation loop = agent::runtime::testing::animation(
        QStringLiteral("Loop"), {step(1, 3), step(1, 0), step(1, 1), step(0)});
    loop.frames[2].branches = {{0, 100}};
    load({loop});
    bool ended = false;
    player->play(0, [&ended] { ended = true; });
    ASSERT_TRUE(QTest::qWaitFor([this] { return shown.size() >= 5; }, 5000));
    EXPECT_FALSE(ended);
    EXPECT_TRUE(player->isLooping());
    const int from = player->displayedFrame();
    shown.clear();
    ASSERT_TRUE(leave());
    Shown expected;
    for (int frame = from - 1; frame >= 0; --frame)
        expected.emplace_back(0, frame);
    EXPECT_EQ(shown, expected) << "from frame " << from;
    EXPECT_FALSE(ended) << "leaving drops the play continuation";
    shown.clear();
    QTest::qWait(50);
    EXPECT_TRUE(shown.empty());
}

TEST_F(AnimationPlayerTest, EndedAnimationIsLeftFromItsLastShownFrame)
{
    // The "return is built in" layout: the gesture replays backwards on leaving.
    acs::Animation explain = agent::runtime::testing::animation(
        QStringLiteral("Explain"), {step(1, 3), step(1, 0), step(1, 1), step(0, -1)},
        acs::Transition::ExitBranches);
    load({explain});
    ASSERT_TRUE(playToEnd(0));
    shown.clear();
    ASSERT_TRUE(leave());
    EXPECT_EQ(shown, (Shown{{0, 1}, {0, 0}}));
    shown.clear();
    ASSERT_TRUE(leave());
    EXPECT_TRUE(shown.empty()) << "an animation is left only once";
}

TEST_F(AnimationPlayerTest, ReturnAnimationPlaysOnLeaving)
{
    acs::Animation read = agent::runtime::testing::animation(QStringLiteral("Read"), {step(1)},
                                                             acs::Transition::ReturnAnimation);
    read.returnAnimation = QStringLiteral("READRETURN");
    load({read,
          agent::runtime::testing::animation(QStringLiteral("ReadReturn"), {step(1), step(1)})});
    ASSERT_TRUE(playToEnd(0));
    shown.clear();
    ASSERT_TRUE(leave());
    EXPECT_EQ(shown, (Shown{{1, 0}, {1, 1}}));
    shown.clear();
    ASSERT_TRUE(leave());
    EXPECT_TRUE(shown.empty());
}

TEST_F(AnimationPlayerTest, StopDropsTheContinuation)
{
    load({agent::runtime::testing::animation(QStringLiteral("A"), {step(1), step(1), step(1)})});
    bool done = false;
    player->play(0, [&done] { done = true; });
    player->stop();
    QTest::qWait(80);
    EXPECT_FALSE(done);
    EXPECT_TRUE(shown.empty());
}

} // namespace
