#include "AnimationBuilder.h"
#include "Animations.h"

namespace lumo
{

using agent::acs::Transition;

namespace
{

const QString happy = QStringLiteral("eyes.happy");
const QString wide = QStringLiteral("eyes.wide");

agent::acs::Animation greet(const PartLibrary& library)
{
    AnimationBuilder greet(library, QStringLiteral("Greet"), Transition::ExitBranches);
    greet.frame(Pose().withEyes(happy), 6);
    greet.frame(Pose().withEyes(happy).withArms(ArmPose::Half, ArmPose::Half).movedBy(0, -2), 6);
    greet.frame(Pose().withEyes(happy).withArms(ArmPose::Up, ArmPose::Up).movedBy(0, -5), 12);
    greet.speakingFrame(Pose().withArms(ArmPose::Half, ArmPose::Half), 10);
    greet.endFrame();
    greet.exitBackwards();
    return greet.take();
}

agent::acs::Animation wave(const PartLibrary& library)
{
    AnimationBuilder wave(library, QStringLiteral("Wave"), Transition::ExitBranches);
    wave.frame(Pose().withArms(ArmPose::Down, ArmPose::Half), 5);
    const int raised =
        wave.frame(Pose().withEyes(happy).withArms(ArmPose::Down, ArmPose::WaveHigh), 7);
    wave.frame(Pose().withEyes(happy).withArms(ArmPose::Down, ArmPose::WaveLow), 7);
    wave.frame(Pose().withEyes(happy).withArms(ArmPose::Down, ArmPose::WaveHigh), 7);
    wave.frame(Pose().withEyes(happy).withArms(ArmPose::Down, ArmPose::WaveLow), 7);
    const int speaking = wave.speakingFrame(Pose().withArms(ArmPose::Down, ArmPose::WaveHigh), 10);
    wave.endFrame();
    wave.exitBackwards();
    // Lowering the hand from anywhere in the wave, rather than waving once more backwards.
    for (int frame = raised + 1; frame <= speaking; ++frame)
        wave.exitTo(frame, raised);
    return wave.take();
}

agent::acs::Animation explain(const PartLibrary& library)
{
    AnimationBuilder explain(library, QStringLiteral("Explain"), Transition::ExitBranches);
    explain.frame(Pose().withArms(ArmPose::Half, ArmPose::Half), 6);
    explain.speakingFrame(Pose().withArms(ArmPose::Out, ArmPose::Out), 10);
    explain.endFrame();
    explain.exitBackwards();
    return explain.take();
}

agent::acs::Animation getAttention(const PartLibrary& library)
{
    const QStringList bang{QStringLiteral("bang")};
    AnimationBuilder hop(library, QStringLiteral("GetAttention"), Transition::ExitBranches);
    const int start = hop.frame(
        Pose().withEyes(wide).withArms(ArmPose::Half, ArmPose::Half).movedBy(0, -3).with(bang), 6);
    hop.frame(Pose().withEyes(wide).withArms(ArmPose::Up, ArmPose::Up).movedBy(0, -7).with(bang),
              8);
    const int landed =
        hop.frame(Pose().withEyes(wide).withArms(ArmPose::Half, ArmPose::Half).with(bang), 6);
    hop.frame(Pose().withEyes(wide).withArms(ArmPose::Up, ArmPose::Up).movedBy(0, -7).with(bang),
              8);
    const int last = hop.frame(Pose().withArms(ArmPose::Up, ArmPose::Up).with(bang), 12);
    hop.endFrame();
    hop.exitBackwards();
    for (int frame = landed + 1; frame <= last; ++frame)
        hop.exitTo(frame, landed);
    hop.exitTo(landed, start);
    return hop.take();
}

} // namespace

Animations gestureAnimations(const PartLibrary& library)
{
    Animations animations;
    animations.push_back(greet(library));
    animations.push_back(wave(library));
    animations.push_back(explain(library));
    animations.push_back(getAttention(library));
    return animations;
}

} // namespace lumo
