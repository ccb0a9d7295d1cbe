#include "agent/runtime/AnimationPlayer.h"

#include "TestCharacter.h"
#include "agent/runtime/FrameSequencer.h"

#include <QTest>
#include <gtest/gtest.h>
#include <map>

using namespace agent;
using namespace agent::runtime;
using namespace agent::runtime::testing;

namespace
{

using Shown = std::vector<std::pair<int, int>>;

// A player that records the frames it shows and the sounds it cues.
struct Recorder {
    Recorder(std::shared_ptr<const acs::CharacterData> data, RandomSource& random)
        : player(std::move(data), random)
    {
        QObject::connect(&player, &AnimationPlayer::frameShown, [this](int animation, int frame) {
            shown.emplace_back(animation, frame);
        });
        QObject::connect(&player, &AnimationPlayer::soundCue,
                         [this](int sound) { sounds.push_back(sound); });
    }

    AnimationPlayer player;
    Shown shown;
    std::vector<int> sounds;
};

class AnimationPlayerTest : public ::testing::Test
{
protected:
    // Builds the player over the given animations; frames show image 0.
    void load(std::vector<acs::Animation> animations)
    {
        auto character = std::make_shared<acs::CharacterData>(blankCharacter(8, 8));
        character->animations = std::move(animations);
        data = character;
        rec = std::make_unique<Recorder>(data, random);
    }

    // Another player showing `frames` frames proves a wait for nothing to happen long enough.
    bool whileAnotherShows(std::size_t frames)
    {
        Recorder other(data, random);
        other.player.play(0, [] {});
        return QTest::qWaitFor([&] { return other.shown.size() >= frames; }, 5000);
    }

    bool playToEnd(int animation, std::optional<int> stopAt = {})
    {
        bool done = false;
        rec->player.play(
            animation, [&done] { done = true; }, stopAt);
        return QTest::qWaitFor([&done] { return done; }, 5000);
    }

    bool leave()
    {
        bool done = false;
        rec->player.leave([&done] { done = true; });
        return QTest::qWaitFor([&done] { return done; }, 5000);
    }

    static acs::Frame step(std::uint16_t duration, std::int16_t exit = -2)
    {
        acs::Frame result = frame({{0, 0, 0}}, duration);
        result.exitFrame = exit;
        return result;
    }

    RandomSource random{42};
    std::shared_ptr<const acs::CharacterData> data;
    std::unique_ptr<Recorder> rec;
};

TEST_F(AnimationPlayerTest, ZeroDurationFramesAreNotShownButBranch)
{
    acs::Animation branching =
        animation(QStringLiteral("A"), {step(1), step(0), step(1), step(1), step(0)});
    branching.frames[1].branches = {{3, 100}};
    branching.frames[3].sound = 2;
    load({branching});
    ASSERT_TRUE(playToEnd(0));
    EXPECT_EQ(rec->shown, (Shown{{0, 0}, {0, 3}}));
    EXPECT_EQ(rec->sounds, std::vector<int>{2});
    EXPECT_EQ(rec->player.displayedFrame(), 3) << "the last shown frame stays";

    acs::Animation cycle = animation(QStringLiteral("A"), {step(1), step(0)});
    cycle.frames[1].branches = {{1, 100}};
    load({cycle});
    EXPECT_TRUE(playToEnd(0)) << "a cycle of zero-duration frames ends";
}

TEST_F(AnimationPlayerTest, StopsAtTheStopFrame)
{
    load({animation(QStringLiteral("A"), std::vector<acs::Frame>(5, step(1)))});
    ASSERT_TRUE(playToEnd(0, 1));
    EXPECT_EQ(rec->shown, (Shown{{0, 0}, {0, 1}}));
    ASSERT_TRUE(whileAnotherShows(5));
    EXPECT_EQ(rec->shown.size(), 2u) << "the stop frame stays";
}

TEST_F(AnimationPlayerTest, StopDropsTheContinuation)
{
    load({animation(QStringLiteral("A"), {step(1), step(1), step(1)})});
    bool done = false;
    rec->player.play(0, [&done] { done = true; });
    rec->player.stop();
    ASSERT_TRUE(whileAnotherShows(3));
    EXPECT_FALSE(done);
    EXPECT_TRUE(rec->shown.empty());
}

TEST_F(AnimationPlayerTest, LeavesALoopThroughItsExitBranches)
{
    acs::Animation loop =
        animation(QStringLiteral("Loop"), {step(1, 3), step(1, 0), step(1, 1), step(0)});
    loop.frames[2].branches = {{0, 100}};
    load({loop});
    bool ended = false;
    rec->player.play(0, [&ended] { ended = true; });
    ASSERT_TRUE(QTest::qWaitFor([this] { return rec->shown.size() >= 5; }, 5000));
    EXPECT_TRUE(rec->player.isLooping());
    const int from = rec->player.displayedFrame();
    rec->shown.clear();
    ASSERT_TRUE(leave());
    Shown expected;
    for (int frame = from - 1; frame >= 0; --frame)
        expected.emplace_back(0, frame);
    EXPECT_EQ(rec->shown, expected) << "from frame " << from;

    rec->shown.clear();
    ASSERT_TRUE(whileAnotherShows(5));
    EXPECT_TRUE(rec->shown.empty()) << "the loop does not resume";
    EXPECT_FALSE(ended) << "leaving drops the play continuation";
}

TEST_F(AnimationPlayerTest, AnEndedAnimationIsLeftOnceThroughItsWayBack)
{
    // Explain has its return built in and replays backwards; Read names a return animation.
    const acs::Animation explain =
        animation(QStringLiteral("Explain"), {step(1, 3), step(1, 0), step(1, 1), step(0, -1)},
                  acs::Transition::ExitBranches);
    acs::Animation read =
        animation(QStringLiteral("Read"), {step(1)}, acs::Transition::ReturnAnimation);
    read.returnAnimation = QStringLiteral("READRETURN");
    const acs::Animation readReturn = animation(QStringLiteral("ReadReturn"), {step(1), step(1)});
    const std::pair<std::vector<acs::Animation>, Shown> cases[] = {
        {{explain}, {{0, 1}, {0, 0}}},
        {{read, readReturn}, {{1, 0}, {1, 1}}},
    };
    for (const auto& [animations, expected] : cases) {
        load(animations);
        ASSERT_TRUE(playToEnd(0));
        rec->shown.clear();
        ASSERT_TRUE(leave());
        EXPECT_EQ(rec->shown, expected);
        rec->shown.clear();
        ASSERT_TRUE(leave());
        EXPECT_TRUE(rec->shown.empty()) << "an animation is left only once";
    }
}

acs::Animation frames(int count)
{
    std::vector<acs::Frame> list(count, frame({{0, 0, 0}}));
    return animation(QStringLiteral("A"), list);
}

TEST(FrameSequencerTest, BranchesFollowTheirProbabilities)
{
    acs::Animation branching = frames(6);
    branching.frames[1].branches = {{4, 30}, {0, 50}};
    RandomSource random(1234);
    std::map<int, int> taken;
    const int draws = 20000;
    for (int i = 0; i < draws; ++i) {
        const int next = sequencer::nextFrame(branching, 1, random);
        ++taken[next];
    }
    ASSERT_EQ(taken.size(), 3u);
    EXPECT_NEAR(taken[4] / double(draws), 0.30, 0.015);
    EXPECT_NEAR(taken[0] / double(draws), 0.50, 0.015);
    EXPECT_NEAR(taken[2] / double(draws), 0.20, 0.015);
}

struct ExitCase {
    const char* name;
    std::vector<std::int16_t> exits;
    int from;
    std::vector<int> path;
};

TEST(FrameSequencerTest, ExitPathsEnd)
{
    const std::vector<ExitCase> cases = {
        {"no exit branches: the following frames", {-2, -2, -2, -2}, 1, {2, 3}},
        {"minus one also goes on", {-1, -1, -1}, 0, {1, 2}},
        {"exit to itself ends the path", {-2, 1, -2}, 1, {}},
        {"backwards to a blank end", {4, 0, 1, 2, -1}, 3, {2, 1, 0, 4}},
        {"exit past the end", {7, -2}, 0, {}},
    };
    for (const ExitCase& test : cases) {
        acs::Animation exiting = frames(int(test.exits.size()));
        for (std::size_t i = 0; i < test.exits.size(); ++i)
            exiting.frames[i].exitFrame = test.exits[i];
        EXPECT_EQ(sequencer::exitPath(exiting, test.from), test.path) << test.name;
    }
    acs::Animation cycle = frames(3);
    for (int i = 0; i < 3; ++i)
        cycle.frames[i].exitFrame = std::int16_t((i + 1) % 3);
    const std::size_t cut = sequencer::exitPath(cycle, 0).size();
    EXPECT_TRUE(cut >= 3 && cut <= 9) << "a cycle of exits is cut off: " << cut;
}

TEST(FrameSequencerTest, TellsLoopingAnimationsAndSpeakingFrames)
{
    acs::Animation loop = frames(3);
    loop.frames[2].branches = {{0, 100}};
    EXPECT_FALSE(sequencer::endsOnItsOwn(loop));

    acs::Animation mostlyLoop = loop;
    mostlyLoop.frames[2].branches = {{0, 90}};
    EXPECT_TRUE(sequencer::endsOnItsOwn(mostlyLoop));

    acs::Animation zeroChance = loop;
    zeroChance.frames[2].branches = {{0, 0}, {1, 100}};
    EXPECT_FALSE(sequencer::endsOnItsOwn(zeroChance));

    acs::Animation speaking = frames(5);
    speaking.frames[1].branches = {{3, 100}};
    speaking.frames[2].overlays.resize(1);
    speaking.frames[3].overlays.resize(1);
    EXPECT_EQ(sequencer::speakingFrame(speaking), 3) << "frame 2 is never reached";
    speaking.frames[3].overlays.clear();
    EXPECT_EQ(sequencer::speakingFrame(speaking), 2) << "only stored frame with overlays";
    EXPECT_EQ(sequencer::speakingFrame(frames(2)), std::nullopt);
}

} // namespace
