#include "agent/runtime/AnimationPlayer.h"

#include "TestCharacter.h"
#include "agent/runtime/FrameSequencer.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <map>

using namespace agent;
using namespace agent::runtime;
using namespace agent::runtime::testing;

using Shown = std::vector<std::pair<int, int>>;

static acs::Frame step(std::uint16_t duration, std::int16_t exit = -2)
{
    return {{{0, 0, 0}}, -1, duration, exit, {}, {}};
}

static acs::Animation steps(int count)
{
    return animation(QStringLiteral("A"), std::vector<acs::Frame>(count, step(1)));
}

class AnimationPlayerTest : public ::testing::Test
{
protected:
    // Builds a player over the given animations that records the frames it shows and the
    // sounds it cues; frames show image 0.
    void load(std::vector<acs::Animation> animations)
    {
        auto character = std::make_shared<acs::CharacterData>(blankCharacter(8, 8));
        character->animations = std::move(animations);
        data = character;
        player = std::make_unique<AnimationPlayer>(data, random);
        shown.clear();
        QObject::connect(
            player.get(), &AnimationPlayer::frameShown,
            [this](int animation, int frame) { shown.emplace_back(animation, frame); });
        QObject::connect(player.get(), &AnimationPlayer::soundCue,
                         [this](int sound) { sounds.push_back(sound); });
    }

    // Another player showing `frames` frames proves a wait for nothing to happen long enough.
    bool whileAnotherShows(int frames)
    {
        AnimationPlayer other(data, random);
        QSignalSpy otherShown(&other, &AnimationPlayer::frameShown);
        other.play(0, [] {});
        return QTest::qWaitFor([&] { return otherShown.size() >= frames; }, 5000);
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

    RandomSource random{42};
    std::shared_ptr<const acs::CharacterData> data;
    std::unique_ptr<AnimationPlayer> player;
    Shown shown;
    std::vector<int> sounds;
};

TEST_F(AnimationPlayerTest, ZeroDurationFramesAreNotShownButBranch)
{
    acs::Animation branching =
        animation(QStringLiteral("A"), {step(1), step(0), step(1), step(1), step(0)});
    branching.frames[1].branches = {{3, 100}};
    branching.frames[3].sound = 2;
    load({branching});
    ASSERT_TRUE(playToEnd(0));
    EXPECT_EQ(shown, (Shown{{0, 0}, {0, 3}}));
    EXPECT_EQ(sounds, std::vector<int>{2});
    EXPECT_EQ(player->displayedFrame(), 3) << "the last shown frame stays";

    acs::Animation cycle = animation(QStringLiteral("A"), {step(1), step(0)});
    cycle.frames[1].branches = {{1, 100}};
    load({cycle});
    EXPECT_TRUE(playToEnd(0)) << "a cycle of zero-duration frames ends";
}

TEST_F(AnimationPlayerTest, StopsAtTheStopFrame)
{
    load({steps(5)});
    ASSERT_TRUE(playToEnd(0, 1));
    EXPECT_EQ(shown, (Shown{{0, 0}, {0, 1}}));
    ASSERT_TRUE(whileAnotherShows(5));
    EXPECT_EQ(shown.size(), 2u) << "the stop frame stays";
}

TEST_F(AnimationPlayerTest, StopDropsTheContinuation)
{
    load({steps(3)});
    bool done = false;
    player->play(0, [&done] { done = true; });
    player->stop();
    ASSERT_TRUE(whileAnotherShows(3));
    EXPECT_FALSE(done);
    EXPECT_TRUE(shown.empty());
}

TEST_F(AnimationPlayerTest, LeavesALoopThroughItsExitBranches)
{
    acs::Animation loop =
        animation(QStringLiteral("Loop"), {step(1, 3), step(1, 0), step(1, 1), step(0)});
    loop.frames[2].branches = {{0, 100}};
    load({loop});
    bool ended = false;
    player->play(0, [&ended] { ended = true; });
    ASSERT_TRUE(QTest::qWaitFor([this] { return shown.size() >= 5; }, 5000));
    EXPECT_TRUE(player->isLooping());
    const int from = player->displayedFrame();
    shown.clear();
    ASSERT_TRUE(leave());
    Shown expected;
    for (int frame = from - 1; frame >= 0; --frame)
        expected.emplace_back(0, frame);
    EXPECT_EQ(shown, expected) << "from frame " << from;

    shown.clear();
    ASSERT_TRUE(whileAnotherShows(5));
    EXPECT_TRUE(shown.empty()) << "the loop does not resume";
    EXPECT_FALSE(ended) << "leaving drops the play continuation";
}

TEST_F(AnimationPlayerTest, AnEndedAnimationIsLeftOnceThroughItsWayBack)
{
    // Explain has its return built in and replays backwards; Read names a return animation.
    const acs::Animation explain =
        animation(QStringLiteral("Explain"), {step(1, 3), step(1, 0), step(1, 1), step(0, -1)},
                  acs::Transition::ExitBranches);
    const acs::Animation read{
        u"Read"_qs, acs::Transition::ReturnAnimation, u"READRETURN"_qs, {step(1)}};
    const acs::Animation readReturn = animation(QStringLiteral("ReadReturn"), {step(1), step(1)});
    const std::pair<std::vector<acs::Animation>, Shown> cases[] = {
        {{explain}, {{0, 1}, {0, 0}}},
        {{read, readReturn}, {{1, 0}, {1, 1}}},
    };
    for (const auto& [animations, expected] : cases) {
        load(animations);
        ASSERT_TRUE(playToEnd(0));
        shown.clear();
        ASSERT_TRUE(leave());
        EXPECT_EQ(shown, expected);
        shown.clear();
        ASSERT_TRUE(leave());
        EXPECT_TRUE(shown.empty()) << "an animation is left only once";
    }
}

TEST(FrameSequencerTest, BranchesFollowTheirProbabilities)
{
    acs::Animation branching = steps(6);
    branching.frames[1].branches = {{4, 30}, {0, 50}};
    RandomSource random(1234);
    std::map<int, int> taken;
    const int draws = 20000;
    for (int i = 0; i < draws; ++i)
        ++taken[sequencer::nextFrame(branching, 1, random)];
    ASSERT_EQ(taken.size(), 3u);
    for (const auto& [next, share] : {std::pair{4, 0.30}, {0, 0.50}, {2, 0.20}})
        EXPECT_NEAR(taken[next] / double(draws), share, 0.015) << next;
}

TEST(FrameSequencerTest, ExitPathsEnd)
{
    const std::tuple<const char*, std::vector<std::int16_t>, int, std::vector<int>> cases[] = {
        {"no exit branches: the following frames", {-2, -2, -2, -2}, 1, {2, 3}},
        {"minus one also goes on", {-1, -1, -1}, 0, {1, 2}},
        {"exit to itself ends the path", {-2, 1, -2}, 1, {}},
        {"backwards to a blank end", {4, 0, 1, 2, -1}, 3, {2, 1, 0, 4}},
        {"exit past the end", {7, -2}, 0, {}},
        {"a cycle is cut off after 3 x 3 steps", {1, 2, 0}, 0, {1, 2, 0, 1, 2, 0, 1, 2, 0}},
    };
    for (const auto& [name, exits, from, path] : cases) {
        acs::Animation exiting = steps(int(exits.size()));
        for (std::size_t i = 0; i < exits.size(); ++i)
            exiting.frames[i].exitFrame = exits[i];
        EXPECT_EQ(sequencer::exitPath(exiting, from), path) << name;
    }
}

TEST(FrameSequencerTest, TellsLoopingAnimationsAndSpeakingFrames)
{
    // The last frame's branches: always back, mostly back, a 0 % way out and a sure way back.
    const std::pair<std::vector<acs::Branch>, bool> loops[] = {
        {{{0, 100}}, false}, {{{0, 90}}, true}, {{{0, 0}, {1, 100}}, false}};
    for (const auto& [branches, ends] : loops) {
        acs::Animation loop = steps(3);
        loop.frames[2].branches = branches;
        EXPECT_EQ(sequencer::endsOnItsOwn(loop), ends) << branches.front().probability;
    }

    acs::Animation speaking = steps(5);
    speaking.frames[1].branches = {{3, 100}};
    speaking.frames[2].overlays.resize(1);
    speaking.frames[3].overlays.resize(1);
    EXPECT_EQ(sequencer::speakingFrame(speaking), 3) << "frame 2 is never reached";
    speaking.frames[3].overlays.clear();
    EXPECT_EQ(sequencer::speakingFrame(speaking), 2) << "only stored frame with overlays";
    EXPECT_EQ(sequencer::speakingFrame(steps(2)), std::nullopt);
}
