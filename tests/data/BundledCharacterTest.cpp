#include "agent/acs/AcsFile.h"
#include "agent/runtime/CharacterLookup.h"
#include "agent/runtime/FrameSequencer.h"
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
    const int index = agent::runtime::findAnimation(character(), name);
    return index < 0 ? nullptr : &character().animations[std::size_t(index)];
}

// The frames shown, `from` first, as the player leaves the animation from frame `from`.
std::vector<int> shownWhenLeaving(const Animation& animation, int from)
{
    std::vector<int> shown = agent::runtime::sequencer::exitPath(animation, from);
    shown.insert(shown.begin(), from);
    std::erase_if(shown, [&](int i) { return animation.frames[std::size_t(i)].duration == 0; });
    return shown;
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
    EXPECT_EQ(std::pair(info.name, info.description.isEmpty()), std::pair(u"Lumo"_qs, false));
    EXPECT_TRUE(character().voice.has_value());
    ASSERT_TRUE(character().balloon.has_value());
    const BalloonInfo& balloon = *character().balloon;
    EXPECT_TRUE(balloon.lines >= 2 && balloon.lines <= 3) << int(balloon.lines);
    EXPECT_TRUE(balloon.charsPerLine >= 25 && balloon.charsPerLine <= 35)
        << int(balloon.charsPerLine);
    EXPECT_LT(balloon.text.lightness(), 80);
    EXPECT_GT(balloon.background.lightness(), 220);
    EXPECT_FALSE(balloon.fontName.isEmpty());
}

TEST(BundledCharacter, HasEveryStateWithAnimationsThatExist)
{
    for (const char* required :
         {"Showing", "Hiding", "Speaking", "IdlingLevel1", "IdlingLevel2", "IdlingLevel3",
          "MovingLeft", "MovingRight", "MovingUp", "MovingDown"})
        EXPECT_FALSE(agent::runtime::stateAnimations(character(), QLatin1String(required)).empty())
            << required;
    for (const State& state : character().states)
        for (const QString& name : state.animations)
            EXPECT_NE(animation(name), nullptr) << name.toStdString();
}

TEST(BundledCharacter, BranchesStayInTheirAnimationAndEveryExitPathEnds)
{
    for (const Animation& animation : character().animations) {
        SCOPED_TRACE(animation.name.toStdString());
        const int count = static_cast<int>(animation.frames.size());
        for (int index = 0; index < count; ++index) {
            const Frame& frame = animation.frames[std::size_t(index)];
            int probability = 0;
            for (const Branch& branch : frame.branches) {
                EXPECT_LT(branch.frame, count);
                probability += branch.probability;
            }
            EXPECT_LE(probability, 100);
            EXPECT_LT(frame.exitFrame, count);
            EXPECT_LT(agent::runtime::sequencer::exitPath(animation, index).size(),
                      std::size_t(count))
                << "a cycle of exits from frame " << index;
        }
    }
}

enum Use { Plain = 0, Speaking = 1, Gesture = 2, SelfContained = 4, Dozing = 8 };

// Speaking: the frame held at the end of normal play has a mouth for every sound.
// Gesture: leaving from that held pose goes back through exit branches to the first frame.
// SelfContained: from any frame, leaving gets back to the neutral pose within four frames, so
// the next animation starts where it left off. Dozing: loops until interrupted.
TEST(BundledCharacter, HasTheAnimationsTheProgramAndPlayerUse)
{
    const std::pair<int, std::vector<const char*>> used[] = {
        {Plain, {"Hide"}},
        {Speaking, {"RestPose", "Read", "ReadContinued"}},
        {Speaking | Gesture, {"Greet", "Wave", "Explain"}},
        {Gesture, {"GetAttention", "MoveLeft", "MoveRight", "MoveUp", "MoveDown"}},
        {SelfContained, {"Show", "Blink", "ReadReturn", "Idle1_1", "Idle1_2", "Idle2_1"}},
        {SelfContained | Dozing, {"Idle3_1"}},
    };
    const QImage neutral = lumo::composeFrame(character(), animation("RestPose")->frames.front());
    for (const auto& [use, names] : used) {
        for (const char* name : names) {
            SCOPED_TRACE(name);
            const Animation* found = animation(QLatin1String(name));
            ASSERT_NE(found, nullptr);
            const std::vector<int> shown = certainPlay(*found);
            ASSERT_EQ(shown.empty(), bool(use & Dozing));
            if (use & Speaking) {
                std::set<Mouth> mouths;
                for (const Overlay& overlay : found->frames[std::size_t(shown.back())].overlays)
                    mouths.insert(overlay.mouth);
                EXPECT_EQ(mouths.size(), 7u);
            }
            if (use & Gesture) {
                EXPECT_EQ(found->transition, Transition::ExitBranches);
                EXPECT_EQ(shownWhenLeaving(*found, shown.back()).back(), 0);
            }
            for (int frame = 0; (use & SelfContained) && frame < int(found->frames.size());
                 ++frame) {
                const std::vector<int> path = shownWhenLeaving(*found, frame);
                EXPECT_LE(path.size(), 4u) << "from frame " << frame;
                ASSERT_FALSE(path.empty()) << "from frame " << frame;
                EXPECT_EQ(lumo::composeFrame(character(), found->frames[std::size_t(path.back())]),
                          neutral)
                    << "from frame " << frame;
            }
        }
    }
}
