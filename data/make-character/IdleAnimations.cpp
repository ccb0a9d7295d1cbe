#include "AnimationBuilder.h"
#include "Animations.h"

namespace lumo
{

using agent::acs::Transition;

namespace
{

const QString closed = QStringLiteral("eyes.closed");

agent::acs::Animation lookAround(const PartLibrary& library)
{
    AnimationBuilder look(library, QStringLiteral("Idle1_1"), Transition::None);
    look.frame(Pose(), 10);
    look.frame(Pose().withEyes(QStringLiteral("eyes.left")), 40);
    const int between = look.frame(Pose(), 8);
    look.frame(Pose().withEyes(QStringLiteral("eyes.right")), 40);
    look.frame(Pose(), 8);
    const int blink = look.frame(Pose().withEyes(closed), 6);
    const int done = look.frame(Pose(), 10);
    look.branch(between, blink, 50);
    look.exitAllTo(done);
    return look.take();
}

agent::acs::Animation twinkle(const PartLibrary& library)
{
    const QString up = QStringLiteral("eyes.up");
    AnimationBuilder twinkle(library, QStringLiteral("Idle1_2"), Transition::None);
    twinkle.frame(Pose().withEyes(up), 12);
    twinkle.frame(Pose().withEyes(up).with({QStringLiteral("glow.1")}), 8);
    twinkle.frame(Pose().withEyes(up).with({QStringLiteral("glow.2")}), 12);
    twinkle.frame(Pose().withEyes(up).with({QStringLiteral("glow.1")}), 8);
    twinkle.frame(Pose().withEyes(QStringLiteral("eyes.happy")), 12);
    twinkle.exitAllTo(twinkle.frame(Pose(), 10));
    return twinkle.take();
}

agent::acs::Animation stretch(const PartLibrary& library)
{
    AnimationBuilder stretch(library, QStringLiteral("Idle2_1"), Transition::None);
    stretch.frame(Pose().withEyes(closed).withArms(ArmPose::Half, ArmPose::Half), 10);
    const int yawn = stretch.frame(Pose()
                                       .withEyes(closed)
                                       .withMouth(mouthPart(4))
                                       .withArms(ArmPose::Up, ArmPose::Up)
                                       .movedBy(0, -3),
                                   50);
    const int lowering = stretch.frame(
        Pose().withEyes(closed).withMouth(mouthPart(6)).withArms(ArmPose::Half, ArmPose::Half), 10);
    stretch.frame(Pose().withEyes(QStringLiteral("eyes.half")), 8);
    stretch.exitAllTo(stretch.frame(Pose(), 10));
    stretch.exitTo(yawn, lowering);
    return stretch.take();
}

// Dozes off and snores until something happens; the exit branches wake it up.
agent::acs::Animation doze(const PartLibrary& library)
{
    const Pose asleep = Pose().withEyes(closed).movedBy(0, 2);
    AnimationBuilder doze(library, QStringLiteral("Idle3_1"), Transition::None);
    doze.frame(Pose().withEyes(QStringLiteral("eyes.half")), 30);
    doze.frame(asleep, 30);
    const int snore = doze.frame(Pose(asleep).with({QStringLiteral("zzz.1")}), 40);
    doze.frame(Pose(asleep).with({QStringLiteral("zzz.1"), QStringLiteral("zzz.2")}), 40);
    doze.frame(Pose(asleep).with({QStringLiteral("zzz.2"), QStringLiteral("zzz.3")}), 40);
    doze.frame(Pose(asleep).with({QStringLiteral("zzz.3")}), 30);
    const int again = doze.frame(asleep, 0);
    const int waking = doze.frame(Pose().withEyes(QStringLiteral("eyes.half")), 10);
    const int awake = doze.frame(Pose().withEyes(QStringLiteral("eyes.wide")), 8);
    doze.frame(Pose(), 10);
    doze.branch(again, snore, 100);
    doze.exitAllTo(waking);
    doze.exitTo(waking, awake);
    return doze.take();
}

} // namespace

Animations idleAnimations(const PartLibrary& library)
{
    Animations animations;
    animations.push_back(lookAround(library));
    animations.push_back(twinkle(library));
    animations.push_back(stretch(library));
    animations.push_back(doze(library));
    return animations;
}

} // namespace lumo
