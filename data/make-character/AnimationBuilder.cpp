#include "AnimationBuilder.h"

#include "PartLibrary.h"

#include <stdexcept>

namespace lumo
{
namespace
{

using agent::acs::Frame;
using agent::acs::FrameImage;

FrameImage place(const PartLibrary& library, const QString& part, QPoint offset)
{
    const PartImage& image = library.image(part);
    const QPoint at = image.origin + offset;
    return {static_cast<std::uint32_t>(library.index(part)), static_cast<std::int16_t>(at.x()),
            static_cast<std::int16_t>(at.y())};
}

bool heldInFront(ArmPose pose)
{
    return pose == ArmPose::Hold;
}

} // namespace

Frame frameOf(const PartLibrary& library, const Pose& pose, std::uint16_t duration)
{
    Frame frame;
    frame.duration = duration;
    auto add = [&](const QString& part, QPoint offset) {
        frame.images.push_back(place(library, part, offset));
    };
    if (pose.visible)
        add(pose.mouth, pose.offset);
    for (const QString& effect : pose.effects)
        add(effect, {});
    if (!pose.visible)
        return frame;

    add(pose.eyes, pose.offset);
    const std::pair<Side, ArmPose> arms[] = {{Side::Left, pose.leftArm},
                                             {Side::Right, pose.rightArm}};
    for (const auto& [side, armPose] : arms)
        if (heldInFront(armPose))
            add(armPart(side, armPose), pose.offset);
    for (const QString& prop : pose.props)
        add(prop, pose.offset);
    add(QStringLiteral("body"), pose.offset);
    for (const auto& [side, armPose] : arms)
        if (!heldInFront(armPose))
            add(armPart(side, armPose), pose.offset);
    return frame;
}

AnimationBuilder::AnimationBuilder(const PartLibrary& library, const QString& name,
                                   agent::acs::Transition transition)
    : library_(library)
{
    animation_.name = name;
    animation_.transition = transition;
}

int AnimationBuilder::frame(const Pose& pose, std::uint16_t duration)
{
    animation_.frames.push_back(frameOf(library_, pose, duration));
    return static_cast<int>(animation_.frames.size()) - 1;
}

int AnimationBuilder::speakingFrame(const Pose& pose, std::uint16_t duration)
{
    if (!pose.visible)
        throw std::logic_error("a speaking frame needs the character");
    const int index = frame(pose, duration);
    for (int shape = 0; shape <= 6; ++shape) {
        const QString part = mouthPart(shape);
        const PartImage& image = library_.image(part);
        const QPoint topLeft = image.origin + pose.offset;
        const QPoint centre = topLeft + QPoint(image.pixels.width() / 2, image.pixels.height() / 2);
        agent::acs::Overlay overlay;
        overlay.mouth = static_cast<agent::acs::Mouth>(shape);
        // The frame's top image is its mouth, which the speaking mouth takes the place of.
        overlay.replaceTopImage = true;
        overlay.image = static_cast<std::uint16_t>(library_.index(part));
        overlay.x = static_cast<std::int16_t>(topLeft.x());
        overlay.y = static_cast<std::int16_t>(topLeft.y());
        overlay.centerX = static_cast<std::uint16_t>(centre.x());
        overlay.centerY = static_cast<std::uint16_t>(centre.y());
        at(index).overlays.push_back(overlay);
    }
    return index;
}

int AnimationBuilder::endFrame()
{
    Frame blank;
    blank.duration = 0;
    animation_.frames.push_back(std::move(blank));
    return static_cast<int>(animation_.frames.size()) - 1;
}

void AnimationBuilder::exitTo(int frame, int target)
{
    at(target);
    at(frame).exitFrame = static_cast<std::int16_t>(target);
}

void AnimationBuilder::branch(int frame, int target, std::uint16_t probability)
{
    at(target);
    at(frame).branches.push_back({static_cast<std::uint16_t>(target), probability});
}

void AnimationBuilder::exitBackwards()
{
    const int last = static_cast<int>(animation_.frames.size()) - 1;
    if (last < 1 || animation_.frames.back().duration != 0)
        throw std::logic_error("exitBackwards needs an end frame: " +
                               animation_.name.toStdString());
    exitTo(0, last);
    for (int frame = 1; frame < last; ++frame)
        exitTo(frame, frame - 1);
}

void AnimationBuilder::stopExitAt(int frame)
{
    at(frame).exitFrame = -1;
}

void AnimationBuilder::exitAllTo(int target)
{
    for (int frame = 0; frame < target; ++frame)
        exitTo(frame, target);
}

agent::acs::Animation AnimationBuilder::take()
{
    return std::move(animation_);
}

agent::acs::Frame& AnimationBuilder::at(int frame)
{
    if (frame < 0 || frame >= static_cast<int>(animation_.frames.size()))
        throw std::out_of_range("no frame " + std::to_string(frame) + " in " +
                                animation_.name.toStdString());
    return animation_.frames[static_cast<std::size_t>(frame)];
}

} // namespace lumo
