#include "agent/runtime/AnimationPlayer.h"

#include "agent/runtime/CharacterLookup.h"
#include "agent/runtime/FrameSequencer.h"

namespace agent::runtime
{

AnimationPlayer::AnimationPlayer(std::shared_ptr<const acs::CharacterData> character,
                                 RandomSource& random, QObject* parent)
    : QObject(parent), character_(std::move(character)), random_(random)
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &AnimationPlayer::advance);
}

void AnimationPlayer::play(int animation, std::function<void()> done, std::optional<int> stopAt)
{
    timer_.stop();
    ++generation_;
    animation_ = animation;
    cursor_ = 0;
    cursorIsDisplayed_ = false;
    left_ = false;
    playingReturn_ = false;
    stopAt_ = stopAt;
    done_ = std::move(done);
    mode_ = Mode::Playing;
    timer_.start(0);
}

void AnimationPlayer::setStopFrame(int frame)
{
    if (mode_ == Mode::Playing && !playingReturn_)
        stopAt_ = frame;
}

void AnimationPlayer::leave(std::function<void()> done)
{
    timer_.stop();
    ++generation_;
    done_ = std::move(done);
    if (left_ || animation_ < 0) {
        mode_ = Mode::Holding;
        exitPath_.clear();
        exitPosition_ = 0;
        QTimer::singleShot(0, this, [this, generation = generation_] {
            if (generation == generation_)
                finish();
        });
        return;
    }
    exitPath_ = displayed_ >= 0 ? sequencer::exitPath(current(), displayed_) : std::vector<int>{};
    exitPosition_ = 0;
    playingReturn_ = false;
    mode_ = Mode::Exiting;
    timer_.start(0);
}

void AnimationPlayer::hold(int animation, int frame)
{
    stop();
    animation_ = animation;
    left_ = false;
    show(frame);
}

void AnimationPlayer::clear()
{
    stop();
    animation_ = -1;
    displayed_ = -1;
    left_ = true;
    emit frameShown(-1, -1);
}

void AnimationPlayer::stop()
{
    timer_.stop();
    ++generation_;
    mode_ = Mode::Holding;
    done_ = {};
}

bool AnimationPlayer::isLooping() const
{
    return animation_ >= 0 && !sequencer::endsOnItsOwn(current());
}

void AnimationPlayer::advance()
{
    if (mode_ == Mode::Playing)
        advancePlaying();
    else if (mode_ == Mode::Exiting)
        advanceExiting();
}

void AnimationPlayer::advancePlaying()
{
    const acs::Animation& animation = current();
    const int count = static_cast<int>(animation.frames.size());
    if (cursorIsDisplayed_)
        cursor_ = sequencer::nextFrame(animation, cursor_, random_);
    cursorIsDisplayed_ = false;

    // Zero-duration frames are passed through without being shown; a chain of them that
    // branches back on itself would otherwise never give the event loop back.
    const int limit = 10 * count + 10;
    for (int steps = 0; cursor_ >= 0 && cursor_ < count && steps < limit; ++steps) {
        const acs::Frame& frame = animation.frames[cursor_];
        if (frame.duration > 0) {
            show(cursor_);
            if (stopAt_ == cursor_) {
                finish();
                return;
            }
            cursorIsDisplayed_ = true;
            timer_.start(frame.duration * 10);
            return;
        }
        cursor_ = sequencer::nextFrame(animation, cursor_, random_);
    }
    if (playingReturn_)
        left_ = true;
    finish();
}

void AnimationPlayer::advanceExiting()
{
    const acs::Animation& animation = current();
    while (exitPosition_ < exitPath_.size()) {
        const int index = exitPath_[exitPosition_++];
        const acs::Frame& frame = animation.frames[index];
        if (frame.duration > 0) {
            show(index);
            timer_.start(frame.duration * 10);
            return;
        }
    }
    startReturnOrFinish();
}

void AnimationPlayer::startReturnOrFinish()
{
    const acs::Animation& animation = current();
    const int returnAnimation = animation.transition == acs::Transition::ReturnAnimation
                                    ? findAnimation(*character_, animation.returnAnimation)
                                    : -1;
    if (returnAnimation < 0 || returnAnimation == animation_ ||
        !sequencer::endsOnItsOwn(character_->animations[returnAnimation])) {
        left_ = true;
        finish();
        return;
    }
    animation_ = returnAnimation;
    cursor_ = 0;
    cursorIsDisplayed_ = false;
    playingReturn_ = true;
    stopAt_.reset();
    mode_ = Mode::Playing;
    advancePlaying();
}

void AnimationPlayer::show(int frame)
{
    displayed_ = frame;
    emit frameShown(animation_, frame);
    const int sound = current().frames[frame].sound;
    if (sound >= 0)
        emit soundCue(sound);
}

void AnimationPlayer::finish()
{
    mode_ = Mode::Holding;
    if (auto done = std::exchange(done_, {}))
        done();
}

} // namespace agent::runtime
