#include "agent/runtime/FrameSequencer.h"

#include "TestCharacter.h"

#include <gtest/gtest.h>
#include <map>

using namespace agent;
using namespace agent::runtime;
using namespace agent::runtime::testing;

namespace
{

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
    for (int i = 0; i < draws; ++i)
        ++taken[sequencer::nextFrame(branching, 1, random)];
    ASSERT_EQ(taken.size(), 3u);
    EXPECT_NEAR(taken[4] / double(draws), 0.30, 0.015);
    EXPECT_NEAR(taken[0] / double(draws), 0.50, 0.015);
    EXPECT_NEAR(taken[2] / double(draws), 0.20, 0.015);
    EXPECT_EQ(sequencer::nextFrame(branching, 3, random), 4);
}

TEST(FrameSequencerTest, SameSeedSameChoices)
{
    acs::Animation branching = frames(3);
    branching.frames[0].branches = {{2, 50}};
    RandomSource first(7);
    RandomSource second(7);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(sequencer::nextFrame(branching, 0, first),
                  sequencer::nextFrame(branching, 0, second));
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
        {"exit frame jumps", {-2, 3, -2, -2}, 1, {3}},
        {"exit to itself ends the path", {-2, 1, -2}, 1, {}},
        {"last frame exits to itself", {-2, -2, 2}, 0, {1, 2}},
        {"backwards to a blank end", {4, 0, 1, 2, -1}, 3, {2, 1, 0, 4}},
        {"exit past the end", {7, -2}, 0, {}},
    };
    for (const ExitCase& test : cases) {
        acs::Animation exiting = frames(int(test.exits.size()));
        for (std::size_t i = 0; i < test.exits.size(); ++i)
            exiting.frames[i].exitFrame = test.exits[i];
        EXPECT_EQ(sequencer::exitPath(exiting, test.from), test.path) << test.name;
    }
}

TEST(FrameSequencerTest, ExitCyclesAreCutOff)
{
    acs::Animation cycle = frames(3);
    cycle.frames[0].exitFrame = 1;
    cycle.frames[1].exitFrame = 2;
    cycle.frames[2].exitFrame = 0;
    const std::vector<int> path = sequencer::exitPath(cycle, 0);
    EXPECT_LE(path.size(), 9u);
    EXPECT_GE(path.size(), 3u);
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
