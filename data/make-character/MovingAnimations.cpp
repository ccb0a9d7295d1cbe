#include "AnimationBuilder.h"
#include "Animations.h"

namespace lumo
{

using agent::acs::Transition;

namespace
{

// The engine holds the last shown frame while the window travels, then leaves through the
// exit branches back to the neutral pose.
agent::acs::Animation move(const PartLibrary& library, const QString& name, const Pose& setOff,
                           const Pose& travelling)
{
    AnimationBuilder move(library, name, Transition::ExitBranches);
    move.frame(setOff, 6);
    move.frame(travelling, 10);
    move.endFrame();
    move.exitBackwards();
    return move.take();
}

} // namespace

// Directions are the character's own, as it faces the user: moving to its left takes it
// towards the right of the screen.
Animations movingAnimations(const PartLibrary& library)
{
    const QString right = QStringLiteral("eyes.right");
    const QString left = QStringLiteral("eyes.left");
    const QString up = QStringLiteral("eyes.up");
    const QString down = QStringLiteral("eyes.down");
    Animations animations;
    animations.push_back(move(library, QStringLiteral("MoveLeft"),
                              Pose().withEyes(right).withArms(ArmPose::Down, ArmPose::Half),
                              Pose()
                                  .withEyes(right)
                                  .withArms(ArmPose::Back, ArmPose::Half)
                                  .movedBy(0, -3)
                                  .with({QStringLiteral("puffs.left")})));
    animations.push_back(move(library, QStringLiteral("MoveRight"),
                              Pose().withEyes(left).withArms(ArmPose::Half, ArmPose::Down),
                              Pose()
                                  .withEyes(left)
                                  .withArms(ArmPose::Half, ArmPose::Back)
                                  .movedBy(0, -3)
                                  .with({QStringLiteral("puffs.right")})));
    animations.push_back(move(library, QStringLiteral("MoveUp"),
                              Pose().withEyes(up).withArms(ArmPose::Half, ArmPose::Half),
                              Pose()
                                  .withEyes(up)
                                  .withArms(ArmPose::Up, ArmPose::Up)
                                  .movedBy(0, -4)
                                  .with({QStringLiteral("puffs.below")})));
    animations.push_back(move(library, QStringLiteral("MoveDown"), Pose().withEyes(down),
                              Pose()
                                  .withEyes(down)
                                  .withArms(ArmPose::Half, ArmPose::Half)
                                  .movedBy(0, 2)
                                  .with({QStringLiteral("puffs.above")})));
    return animations;
}

} // namespace lumo
