#include "agent/runtime/CharacterRuntime.h"

#include "agent/runtime/BalloonWindow.h"
#include "agent/runtime/CharacterLookup.h"
#include "agent/runtime/CharacterWindow.h"
#include "agent/runtime/FrameSequencer.h"
#include "agent/runtime/MoveDirection.h"
#include "agent/runtime/SoundEffects.h"

#include <cmath>

namespace agent::runtime
{

namespace
{

constexpr int SlideStepMs = 15;

} // namespace

CharacterRuntime::CharacterRuntime(std::shared_ptr<const acs::CharacterData> character,
                                   SpeechOutput& speech, VoiceDefaults voice, RuntimeTiming timing,
                                   std::uint32_t seed)
    : character_(std::move(character)), speech_(speech), voice_(voice), timing_(timing),
      random_(seed), renderer_(character_), player_(character_, random_),
      window_(std::make_unique<CharacterWindow>(QSize(character_->width, character_->height))),
      balloon_(std::make_unique<BalloonWindow>(character_->balloon.value_or(acs::BalloonInfo{}),
                                               character_->flags)),
      sounds_(std::make_unique<SoundEffects>(character_->sounds, speech))
{
    connect(&player_, &AnimationPlayer::frameShown, this, &CharacterRuntime::onFrameShown);
    connect(&player_, &AnimationPlayer::soundCue, this, [this](int sound) {
        if (soundEffectsOn_)
            sounds_->play(sound);
    });
    connect(window_.get(), &CharacterWindow::clicked, this, &CharacterRuntime::clicked);
    connect(window_.get(), &CharacterWindow::menuRequested, this, &CharacterRuntime::menuRequested);
    connect(window_.get(), &CharacterWindow::dragged, this, [this](QPoint topLeft) {
        position_ = topLeft;
        if (balloon_->isVisible())
            balloon_->placeNear(window_->geometry());
    });

    balloonHideTimer_.setSingleShot(true);
    connect(&balloonHideTimer_, &QTimer::timeout, balloon_.get(), &QWidget::hide);
    slideTimer_.setInterval(SlideStepMs);
    connect(&slideTimer_, &QTimer::timeout, this, &CharacterRuntime::slideStep);
    idleTimer_.setSingleShot(true);
    connect(&idleTimer_, &QTimer::timeout, this, &CharacterRuntime::idleTick);
    connect(&idleLevelTimer_, &QTimer::timeout, this, &CharacterRuntime::deepenIdle);
}

CharacterRuntime::~CharacterRuntime()
{
    interruptAll();
}

platform::Request CharacterRuntime::show(bool fast)
{
    Job job(Job::Kind::Show);
    job.fast = fast;
    return enqueue(std::move(job));
}

platform::Request CharacterRuntime::hide()
{
    return enqueue(Job(Job::Kind::Hide));
}

platform::Request CharacterRuntime::play(int animation)
{
    Job job(Job::Kind::Play);
    job.animation = animation;
    return enqueue(std::move(job));
}

platform::Request CharacterRuntime::moveTo(QPoint topLeft)
{
    Job job(Job::Kind::Move);
    job.target = topLeft;
    return enqueue(std::move(job));
}

platform::Request CharacterRuntime::speak(const QString& text)
{
    Job job(Job::Kind::Speak);
    job.text = text;
    return enqueue(std::move(job));
}

void CharacterRuntime::userHide()
{
    interruptAll();
    Job job(Job::Kind::Hide);
    job.cause = UserHid;
    enqueue(std::move(job));
}

void CharacterRuntime::setIdleOn(bool on)
{
    idleOn_ = on;
    if (on)
        scheduleIdle();
    else
        cancelIdle();
}

bool CharacterRuntime::balloonVisible() const
{
    return balloon_->isVisible();
}

void CharacterRuntime::setBalloonVisible(bool visible)
{
    balloonHideTimer_.stop();
    if (!visible) {
        balloon_->hide();
    } else if (visible_ && !balloon_->text().isEmpty()) {
        balloon_->placeNear(window_->geometry());
        balloon_->show();
    }
}

void CharacterRuntime::setBalloonEnabled(bool enabled)
{
    balloonEnabled_ = enabled;
    if (!enabled)
        setBalloonVisible(false);
}

platform::Request CharacterRuntime::enqueue(Job job)
{
    job.serial = nextSerial_++;
    platform::Request request = job.request;
    cancelIdle();
    // A Play followed by a Speak stops at its speaking frame, so that the speech comes with
    // the gesture instead of after it.
    if (job.kind == Job::Kind::Speak && queue_.empty() && active_ &&
        active_->kind == Job::Kind::Play) {
        if (const auto frame = sequencer::speakingFrame(character_->animations[active_->animation]))
            player_.setStopFrame(*frame);
    }
    queue_.push_back(std::move(job));
    schedulePump();
    return request;
}

void CharacterRuntime::schedulePump()
{
    if (pumpScheduled_)
        return;
    pumpScheduled_ = true;
    QTimer::singleShot(0, this, [this] {
        pumpScheduled_ = false;
        pump();
    });
}

void CharacterRuntime::pump()
{
    if (active_)
        return;
    if (queue_.empty()) {
        scheduleIdle();
        return;
    }
    active_ = std::move(queue_.front());
    queue_.pop_front();
    active_->request->setStatus(platform::AgentRequest::InProgress);
    const Job& job = *active_;
    switch (job.kind) {
    case Job::Kind::Show:
        runShow(job);
        break;
    case Job::Kind::Hide:
        runHide(job);
        break;
    case Job::Kind::Play:
        runPlay(job);
        break;
    case Job::Kind::Move:
        runMove(job);
        break;
    case Job::Kind::Speak:
        runSpeak(job);
        break;
    }
}

void CharacterRuntime::complete(unsigned serial, int status)
{
    if (!isActive(serial))
        return;
    active_->request->setStatus(status);
    active_.reset();
    loopFrames_.clear();
    schedulePump();
}

void CharacterRuntime::interruptAll()
{
    cancelIdle();
    player_.stop();
    slideTimer_.stop();
    slideDone_ = {};
    if (!speechConnections_.empty()) {
        // Disconnected first: the finished(false) that stop() brings belongs to nobody now.
        disconnectSpeech();
        speech_.stop();
    }
    mouth_.reset();
    if (active_)
        active_->request->setStatus(platform::AgentRequest::Interrupted);
    active_.reset();
    for (const Job& job : queue_)
        job.request->setStatus(platform::AgentRequest::Interrupted);
    queue_.clear();
    balloonHideTimer_.stop();
    balloon_->hide();
    redraw();
}

void CharacterRuntime::runShow(const Job& job)
{
    const unsigned serial = job.serial;
    const int cause = job.cause;
    if (visible_) {
        complete(serial, platform::AgentRequest::Complete);
        return;
    }
    visible_ = true;
    window_->move(position_);
    const int animation = job.fast ? -1 : pickFromState(QStringLiteral("Showing"));
    if (animation < 0) {
        holdRestingPose();
        window_->show();
        finishShow(serial, cause);
        return;
    }
    player_.clear();
    window_->show();
    player_.play(animation, [this, serial, cause] { finishShow(serial, cause); });
}

void CharacterRuntime::finishShow(unsigned serial, int cause)
{
    if (!isActive(serial))
        return;
    complete(serial, platform::AgentRequest::Complete);
    emit shown(cause);
}

void CharacterRuntime::runHide(const Job& job)
{
    const unsigned serial = job.serial;
    const int cause = job.cause;
    if (!visible_) {
        complete(serial, platform::AgentRequest::Complete);
        return;
    }
    player_.leave([this, serial, cause] {
        const int animation = pickFromState(QStringLiteral("Hiding"));
        if (animation < 0)
            finishHide(serial, cause);
        else
            player_.play(animation, [this, serial, cause] { finishHide(serial, cause); });
    });
}

void CharacterRuntime::finishHide(unsigned serial, int cause)
{
    if (!isActive(serial))
        return;
    window_->hide();
    balloonHideTimer_.stop();
    balloon_->hide();
    visible_ = false;
    player_.clear();
    complete(serial, platform::AgentRequest::Complete);
    emit hidden(cause);
}

void CharacterRuntime::runPlay(const Job& job)
{
    const unsigned serial = job.serial;
    const int animation = job.animation;
    if (animation < 0 || animation >= static_cast<int>(character_->animations.size())) {
        complete(serial, platform::AgentRequest::Failed);
        return;
    }
    // Nothing can be seen of a hidden character; its animation counts as played.
    if (!visible_) {
        complete(serial, platform::AgentRequest::Complete);
        return;
    }
    player_.leave([this, serial, animation] {
        std::optional<int> stopAt;
        if (!queue_.empty() && queue_.front().kind == Job::Kind::Speak)
            stopAt = sequencer::speakingFrame(character_->animations[animation]);
        loopFrames_.clear();
        player_.play(
            animation, [this, serial] { complete(serial, platform::AgentRequest::Complete); },
            stopAt);
    });
}

void CharacterRuntime::runMove(const Job& job)
{
    const unsigned serial = job.serial;
    const QPoint target = job.target;
    if (!visible_ || target == position_) {
        position_ = target;
        window_->move(target);
        complete(serial, platform::AgentRequest::Complete);
        return;
    }
    const int animation = pickFromState(movingState(position_, target));
    player_.leave([this, serial, target, animation] {
        const auto finish = [this, serial] {
            player_.leave([this, serial] { complete(serial, platform::AgentRequest::Complete); });
        };
        if (animation < 0) {
            slideTo(target, finish);
        } else if (!sequencer::endsOnItsOwn(character_->animations[animation])) {
            // A walk cycle keeps going while the window slides.
            player_.play(animation, {});
            slideTo(target, finish);
        } else {
            // The last frame of the move stays while the window slides.
            player_.play(animation, [this, target, finish] { slideTo(target, finish); });
        }
    });
}

void CharacterRuntime::slideTo(QPoint target, std::function<void()> done)
{
    slideFrom_ = position_;
    slideTo_ = target;
    slideDone_ = std::move(done);
    slideClock_.start();
    slideTimer_.start();
}

void CharacterRuntime::slideStep()
{
    const double progress =
        timing_.move <= 0 ? 1.0
                          : std::min(1.0, double(slideClock_.elapsed()) / double(timing_.move));
    const QPointF travelled = QPointF(slideTo_ - slideFrom_) * progress;
    position_ = slideFrom_ + travelled.toPoint();
    window_->move(position_);
    if (balloon_->isVisible())
        balloon_->placeNear(window_->geometry());
    if (progress >= 1.0) {
        slideTimer_.stop();
        if (auto done = std::exchange(slideDone_, {}))
            done();
    }
}

void CharacterRuntime::runSpeak(const Job& job)
{
    const unsigned serial = job.serial;
    const QString text = job.text;
    // A hidden character says nothing: the user may have hidden it to silence it.
    if (!visible_) {
        complete(serial, platform::AgentRequest::Failed);
        return;
    }
    const int animation = displayedFrameSpeaks() ? -1 : speakingAnimation();
    if (animation < 0) {
        beginSpeech(serial, text);
        return;
    }
    player_.leave([this, serial, text, animation] {
        player_.play(
            animation, [this, serial, text] { beginSpeech(serial, text); },
            sequencer::speakingFrame(character_->animations[animation]));
    });
}

void CharacterRuntime::beginSpeech(unsigned serial, const QString& text)
{
    if (!isActive(serial))
        return;
    balloonHideTimer_.stop();
    balloon_->hide();
    balloon_->setText({});
    mouth_ = acs::Mouth::Closed;
    redraw();
    speechConnections_ = {
        connect(&speech_, &SpeechOutput::balloonTextChanged, this,
                &CharacterRuntime::showBalloonText),
        connect(&speech_, &SpeechOutput::mouthChanged, this,
                [this](acs::Mouth mouth) {
                    mouth_ = mouth;
                    redraw();
                }),
        connect(&speech_, &SpeechOutput::finished, this,
                [this, serial](bool ok) { endSpeech(serial, ok); }),
    };
    speech_.speak(text, voice_);
}

void CharacterRuntime::endSpeech(unsigned serial, bool ok)
{
    disconnectSpeech();
    mouth_.reset();
    redraw();
    if (balloon_->isVisible() && !(character_->flags & acs::flags::BalloonNoAutoHide))
        balloonHideTimer_.start(timing_.balloonHide);
    complete(serial, ok ? platform::AgentRequest::Complete : platform::AgentRequest::Failed);
}

void CharacterRuntime::disconnectSpeech()
{
    for (const QMetaObject::Connection& connection : speechConnections_)
        disconnect(connection);
    speechConnections_.clear();
}

void CharacterRuntime::showBalloonText(const QString& shownSoFar, const QString& wholeText)
{
    const bool paced = !(character_->flags & acs::flags::BalloonNoAutoPace);
    if (!balloonEnabled_ || character_->flags & acs::flags::BalloonNone ||
        (paced ? shownSoFar : wholeText).trimmed().isEmpty())
        return;
    balloon_->setText(wholeText, shownSoFar.size());
    balloon_->placeNear(window_->geometry());
    balloon_->show();
}

void CharacterRuntime::scheduleIdle()
{
    if (!idleOn_ || !visible_ || active_ || !queue_.empty() || idleLevel_ > 0)
        return;
    idleTimer_.start(timing_.idleDelay);
}

void CharacterRuntime::cancelIdle()
{
    idleTimer_.stop();
    idleLevelTimer_.stop();
    idleLevel_ = 0;
}

void CharacterRuntime::idleTick()
{
    if (!idleOn_ || !visible_ || active_ || !queue_.empty())
        return;
    if (idleLevel_ == 0) {
        idleLevel_ = 1;
        idleLevelTimer_.start(timing_.idleLevel);
        emit idleStarted();
    }
    int animation = -1;
    for (int level = idleLevel_; level >= 1 && animation < 0; --level)
        animation = pickFromState(QStringLiteral("IdlingLevel%1").arg(level));
    if (animation < 0) {
        idleTimer_.start(timing_.idleGap);
        return;
    }
    player_.leave([this, animation] {
        if (idleLevel_ == 0)
            return;
        player_.play(animation, [this] {
            if (idleLevel_ > 0)
                idleTimer_.start(timing_.idleGap);
        });
    });
}

void CharacterRuntime::deepenIdle()
{
    if (idleLevel_ > 0 && idleLevel_ < 3)
        ++idleLevel_;
    if (idleLevel_ >= 3)
        idleLevelTimer_.stop();
}

void CharacterRuntime::onFrameShown(int, int frame)
{
    redraw();
    if (!active_ || active_->kind != Job::Kind::Play || player_.animation() != active_->animation ||
        !player_.isLooping())
        return;
    // A looping animation never ends by itself: its request completes after one round, and
    // the animation goes on until the next operation leaves it.
    if (!loopFrames_.insert(frame).second)
        complete(active_->serial, platform::AgentRequest::Complete);
}

void CharacterRuntime::redraw()
{
    const int animation = player_.animation();
    const int frame = player_.displayedFrame();
    if (animation < 0 || frame < 0) {
        QImage blank(character_->width, character_->height, QImage::Format_ARGB32_Premultiplied);
        blank.fill(Qt::transparent);
        window_->setPicture(blank);
        return;
    }
    window_->setPicture(renderer_.render(character_->animations[animation].frames[frame], mouth_));
}

bool CharacterRuntime::displayedFrameSpeaks() const
{
    const int animation = player_.animation();
    const int frame = player_.displayedFrame();
    return animation >= 0 && frame >= 0 &&
           !character_->animations[animation].frames[frame].overlays.empty();
}

int CharacterRuntime::pickFromState(const QString& state)
{
    const std::vector<int> animations = stateAnimations(*character_, state);
    if (animations.empty())
        return -1;
    return animations[random_.uniform(0, static_cast<int>(animations.size()) - 1)];
}

int CharacterRuntime::speakingAnimation()
{
    const int animation = pickFromState(QStringLiteral("Speaking"));
    return animation >= 0 ? animation : findAnimation(*character_, QStringLiteral("RestPose"));
}

void CharacterRuntime::holdRestingPose()
{
    int animation = findAnimation(*character_, QStringLiteral("RestPose"));
    if (animation < 0)
        animation = pickFromState(QStringLiteral("Speaking"));
    if (animation < 0 && !character_->animations.empty())
        animation = 0;
    if (animation < 0 || character_->animations[animation].frames.empty()) {
        player_.clear();
        return;
    }
    player_.hold(animation, 0);
}

} // namespace agent::runtime
