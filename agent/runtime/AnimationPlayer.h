#pragma once

#include "agent/acs/CharacterData.h"
#include "agent/runtime/RandomSource.h"

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace agent::runtime
{

// Plays the animations of one character frame by frame on the GUI thread. It only decides
// which frame is displayed and for how long; drawing is up to the receiver of frameShown.
// Continuations given to play() and leave() run from the event loop, never inside the call.
class AnimationPlayer : public QObject
{
    Q_OBJECT
public:
    AnimationPlayer(std::shared_ptr<const acs::CharacterData> character, RandomSource& random,
                    QObject* parent = nullptr);

    // Plays from frame 0 until the animation ends; with stopAt, done also comes when that
    // frame is displayed, which then stays.
    void play(int animation, std::function<void()> done, std::optional<int> stopAt = {});
    // Narrows or sets the stop frame of the animation being played.
    void setStopFrame(int frame);

    // Leaves the displayed animation through its exit branches, then plays its return
    // animation if it names one. done comes at once when there is nothing to leave.
    void leave(std::function<void()> done);

    // Displays one frame and keeps it.
    void hold(int animation, int frame);
    // Displays nothing.
    void clear();
    // Keeps the displayed frame and drops whatever was under way, with its continuation.
    void stop();

    int animation() const { return animation_; }
    int displayedFrame() const { return displayed_; }
    // True for an animation whose play cannot end without leaving it.
    bool isLooping() const;

signals:
    // animation and frame are -1 when nothing is displayed.
    void frameShown(int animation, int frame);
    void soundCue(int sound);

private:
    enum class Mode { Holding, Playing, Exiting };

    void advance();
    void advancePlaying();
    void advanceExiting();
    void startReturnOrFinish();
    void show(int frame);
    void finish();
    const acs::Animation& current() const { return character_->animations[animation_]; }

    std::shared_ptr<const acs::CharacterData> character_;
    RandomSource& random_;
    QTimer timer_;
    Mode mode_ = Mode::Holding;
    int animation_ = -1;
    int displayed_ = -1;
    int cursor_ = -1;
    bool cursorIsDisplayed_ = false;
    bool left_ = true;
    bool playingReturn_ = false;
    std::optional<int> stopAt_;
    std::vector<int> exitPath_;
    std::size_t exitPosition_ = 0;
    std::function<void()> done_;
    // Tells a deferred continuation that the player has since moved on.
    unsigned generation_ = 0;
};

} // namespace agent::runtime
