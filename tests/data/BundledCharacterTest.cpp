#include "agent/acs/AcsFile.h"
#include "make-character/FrameComposer.h"

#include <QFile>
#include <gtest/gtest.h>
#include <set>

using namespace agent::acs;

const CharacterData& character()
{
    static const CharacterData loaded = [] {
        QFile file(QStringLiteral(QUORL_BUNDLED_CHARACTER));
        if (!file.open(QIODevice::ReadOnly))
            throw std::runtime_error("the bundled character was not built");
        return readAcs(file.readAll());
    }();
    return loaded;
}

const Animation* animation(const QString& name)
{
    for (const Animation& candidate : character().animations)
        if (candidate.name.compare(name, Qt::CaseInsensitive) == 0)
            return &candidate;
    return nullptr;
}

struct ExitPath {
    int lastShown = -1;
    int framesShown = 0;
    bool ended = false;
};

// Follows the exit branches from `frame` the way a player leaves an animation.
ExitPath followExits(const Animation& animation, int frame)
{
    ExitPath path;
    const int count = static_cast<int>(animation.frames.size());
    for (int step = 0; step < 3 * count && frame < count; ++step) {
        const Frame& current = animation.frames[static_cast<std::size_t>(frame)];
        if (current.duration > 0) {
            path.lastShown = frame;
            ++path.framesShown;
        }
        if (current.exitFrame == frame || current.exitFrame == -1) {
            frame = count;
            break;
        }
        frame = current.exitFrame >= 0 ? current.exitFrame : frame + 1;
    }
    path.ended = frame >= count;
    return path;
}

// The frames of normal play taking only certain branches; empty when it never ends.
std::vector<int> certainPlay(const Animation& animation)
{
    std::vector<int> shown;
    const int count = static_cast<int>(animation.frames.size());
    int frame = 0;
    for (int step = 0; step < 3 * count; ++step) {
        if (frame >= count)
            return shown;
        const Frame& current = animation.frames[static_cast<std::size_t>(frame)];
        if (current.duration > 0)
            shown.push_back(frame);
        int next = frame + 1;
        for (const Branch& branch : current.branches)
            if (branch.probability >= 100)
                next = branch.frame;
        frame = next;
    }
    return {};
}

TEST(BundledCharacter, IsSmallAndIntroducesItselfWithVoiceAndReadableBalloon)
{
    EXPECT_LT(QFile(QStringLiteral(QUORL_BUNDLED_CHARACTER)).size(), 500 * 1024);

    ASSERT_FALSE(character().localizedInfo.empty());
    const LocalizedInfo& info = character().localizedInfo.front();
    EXPECT_EQ(info.name, "Lumo");
    EXPECT_FALSE(info.description.isEmpty());

    EXPECT_TRUE(character().voice.has_value());

    ASSERT_TRUE(character().balloon.has_value());
    const BalloonInfo& balloon = *character().balloon;
    EXPECT_GE(balloon.lines, 2);
    EXPECT_LE(balloon.lines, 3);
    EXPECT_GE(balloon.charsPerLine, 25);
    EXPECT_LE(balloon.charsPerLine, 35);
    EXPECT_LT(balloon.text.lightness(), 80);
    EXPECT_GT(balloon.background.lightness(), 220);
    EXPECT_FALSE(balloon.fontName.isEmpty());
}

TEST(BundledCharacter, HasEveryStateWithAnimationsThatExist)
{
    for (const char* required :
         {"Showing", "Hiding", "Speaking", "IdlingLevel1", "IdlingLevel2", "IdlingLevel3",
          "MovingLeft", "MovingRight", "MovingUp", "MovingDown"}) {
        SCOPED_TRACE(required);
        const State* found = nullptr;
        for (const State& state : character().states)
            if (state.name.compare(QLatin1String(required), Qt::CaseInsensitive) == 0)
                found = &state;
        ASSERT_NE(found, nullptr);
        EXPECT_FALSE(found->animations.isEmpty());
        for (const QString& name : found->animations)
            EXPECT_NE(animation(name), nullptr) << name.toStdString();
    }
}

TEST(BundledCharacter, HasTheAnimationsTheProgramAndPlayerUse)
{
    const std::pair<const char*, bool> used[] = {
        {"Show", false},    {"Hide", false},         {"RestPose", true},      {"Blink", false},
        {"Read", true},     {"ReadContinued", true}, {"ReadReturn", false},   {"Greet", true},
        {"Wave", true},     {"Explain", true},       {"GetAttention", false}, {"Idle1_1", false},
        {"Idle3_1", false}, {"MoveLeft", false},     {"MoveRight", false},    {"MoveUp", false},
        {"MoveDown", false}};
    for (const auto& [name, speaking] : used) {
        SCOPED_TRACE(name);
        const Animation* found = animation(QLatin1String(name));
        ASSERT_NE(found, nullptr);
        if (!speaking)
            continue;
        // The speaking frame is the last one shown in normal play.
        const std::vector<int> shown = certainPlay(*found);
        ASSERT_FALSE(shown.empty());
        std::set<Mouth> mouths;
        for (const Overlay& overlay : found->frames[std::size_t(shown.back())].overlays)
            mouths.insert(overlay.mouth);
        EXPECT_EQ(mouths.size(), 7u) << "a mouth for every sound";
    }
}

TEST(BundledCharacter, BranchesStayInTheirAnimation)
{
    for (const Animation& animation : character().animations) {
        SCOPED_TRACE(animation.name.toStdString());
        const int count = static_cast<int>(animation.frames.size());
        for (const Frame& frame : animation.frames) {
            int probability = 0;
            for (const Branch& branch : frame.branches) {
                EXPECT_LT(branch.frame, count);
                probability += branch.probability;
            }
            EXPECT_LE(probability, 100);
            EXPECT_LT(frame.exitFrame, count);
        }
    }
}

TEST(BundledCharacter, EveryExitPathEnds)
{
    for (const Animation& animation : character().animations) {
        for (int frame = 0; frame < static_cast<int>(animation.frames.size()); ++frame) {
            SCOPED_TRACE(animation.name.toStdString() + " frame " + std::to_string(frame));
            EXPECT_TRUE(followExits(animation, frame).ended);
        }
    }
}

// Animations that end on their own in the neutral pose also get back to it, quickly, when they
// are interrupted, so the next animation starts where they left off.
TEST(BundledCharacter, SelfContainedAnimationsReturnToTheNeutralPose)
{
    const QImage neutral = lumo::composeFrame(character(), animation("RestPose")->frames.front());
    for (const char* name :
         {"Show", "Blink", "ReadReturn", "Idle1_1", "Idle1_2", "Idle2_1", "Idle3_1"}) {
        const Animation& played = *animation(QLatin1String(name));
        for (int frame = 0; frame < static_cast<int>(played.frames.size()); ++frame) {
            SCOPED_TRACE(std::string(name) + " frame " + std::to_string(frame));
            const ExitPath path = followExits(played, frame);
            EXPECT_LE(path.framesShown, 4);
            const int last = path.lastShown;
            ASSERT_GE(last, 0);
            EXPECT_EQ(
                lumo::composeFrame(character(), played.frames[static_cast<std::size_t>(last)]),
                neutral);
        }
    }
}

TEST(BundledCharacter, DozingLoopsUntilInterrupted)
{
    EXPECT_TRUE(certainPlay(*animation("Idle3_1")).empty());
}

TEST(BundledCharacter, GesturesReturnThroughExitBranches)
{
    for (const char* name : {"Greet", "Wave", "Explain", "GetAttention", "MoveLeft", "MoveRight",
                             "MoveUp", "MoveDown"}) {
        SCOPED_TRACE(name);
        const Animation& gesture = *animation(QLatin1String(name));
        EXPECT_EQ(gesture.transition, Transition::ExitBranches);
        const std::vector<int> shown = certainPlay(gesture);
        ASSERT_FALSE(shown.empty());
        EXPECT_EQ(followExits(gesture, shown.back()).lastShown, 0)
            << "leaving from the held pose goes back to the first frame";
    }
}
