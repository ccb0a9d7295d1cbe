#include "AnimationBuilder.h"
#include "Animations.h"

namespace lumo
{

using agent::acs::Transition;

Animations basicAnimations(const PartLibrary& library)
{
    Animations animations;

    AnimationBuilder show(library, QStringLiteral("Show"), Transition::None);
    show.frame(nothing({QStringLiteral("spark.small")}), 8);
    show.frame(Pose()
                   .withEyes(QStringLiteral("eyes.closed"))
                   .movedBy(0, 64)
                   .with({QStringLiteral("spark.ring")}),
               6);
    show.frame(Pose()
                   .withEyes(QStringLiteral("eyes.closed"))
                   .movedBy(0, 24)
                   .with({QStringLiteral("spark.ring")}),
               6);
    show.frame(Pose()
                   .withEyes(QStringLiteral("eyes.happy"))
                   .withArms(ArmPose::Up, ArmPose::Up)
                   .movedBy(0, -5),
               8);
    show.frame(Pose().withEyes(QStringLiteral("eyes.happy")).withArms(ArmPose::Half, ArmPose::Half),
               6);
    const int shown = show.frame(Pose(), 10);
    show.exitAllTo(shown);
    animations.push_back(show.take());

    AnimationBuilder hide(library, QStringLiteral("Hide"), Transition::None);
    hide.frame(Pose().withEyes(QStringLiteral("eyes.happy")), 8);
    hide.frame(Pose()
                   .withEyes(QStringLiteral("eyes.closed"))
                   .withArms(ArmPose::Up, ArmPose::Up)
                   .movedBy(0, -5),
               6);
    hide.frame(Pose()
                   .withEyes(QStringLiteral("eyes.closed"))
                   .movedBy(0, 28)
                   .with({QStringLiteral("spark.ring")}),
               5);
    hide.frame(Pose()
                   .withEyes(QStringLiteral("eyes.closed"))
                   .movedBy(0, 70)
                   .with({QStringLiteral("spark.ring")}),
               5);
    hide.frame(nothing({QStringLiteral("spark.small")}), 6);
    hide.frame(nothing(), 10);
    animations.push_back(hide.take());

    // The speaking pose of last resort; its single frame never leads anywhere.
    AnimationBuilder rest(library, QStringLiteral("RestPose"), Transition::None);
    const int pose = rest.speakingFrame(Pose(), 10);
    rest.stopExitAt(pose);
    animations.push_back(rest.take());

    AnimationBuilder blink(library, QStringLiteral("Blink"), Transition::None);
    blink.frame(Pose().withEyes(QStringLiteral("eyes.half")), 4);
    blink.frame(Pose().withEyes(QStringLiteral("eyes.closed")), 6);
    blink.frame(Pose().withEyes(QStringLiteral("eyes.half")), 4);
    const int open = blink.frame(Pose(), 10);
    blink.exitAllTo(open);
    animations.push_back(blink.take());

    return animations;
}

} // namespace lumo
