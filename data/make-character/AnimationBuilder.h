#pragma once

#include "Pose.h"
#include "agent/acs/CharacterData.h"

namespace lumo
{

class PartLibrary;

// Builds one animation frame by frame from poses. Frame indexes are 0-based.
class AnimationBuilder
{
public:
    AnimationBuilder(const PartLibrary& library, const QString& name,
                     agent::acs::Transition transition);

    int frame(const Pose& pose, std::uint16_t duration);
    // A frame the character can speak on: it carries all seven mouth overlays.
    int speakingFrame(const Pose& pose, std::uint16_t duration);
    // A blank zero-duration frame: normal play and exit paths end on it without showing it.
    int endFrame();

    void exitTo(int frame, int target);
    void branch(int frame, int target, std::uint16_t probability);
    // The usual way back for gestures: every frame exits to the one before it, the first
    // to the end frame, so leaving replays the gesture backwards.
    void exitBackwards();
    // An exit path reaching this frame ends on it.
    void stopExitAt(int frame);
    // Every frame before `target` exits straight to it.
    void exitAllTo(int target);

    agent::acs::Animation take();

private:
    agent::acs::Frame& at(int frame);

    const PartLibrary& library_;
    agent::acs::Animation animation_;
};

// The frame images of a pose, top-most first; the mouth is always the top image.
agent::acs::Frame frameOf(const PartLibrary& library, const Pose& pose, std::uint16_t duration);

} // namespace lumo
