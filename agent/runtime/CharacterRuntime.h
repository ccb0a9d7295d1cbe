#pragma once

#include "agent/EngineServices.h"
#include "agent/runtime/AnimationPlayer.h"
#include "agent/runtime/FrameRenderer.h"
#include "agent/runtime/QueuedRequest.h"
#include "agent/runtime/RandomSource.h"
#include "agent/runtime/RuntimeTiming.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <QTimer>
#include <deque>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace agent::runtime
{

class BalloonWindow;
class CharacterWindow;
class SoundEffects;

// Why a character was shown or hidden, as the show and hide events report it.
enum VisibilityCause : int { ProgramRequest = 0, UserHid = 1 };

// One character on the desktop: its window and balloon, and the queue of its operations,
// which run strictly one after the other. Between operations it idles.
class CharacterRuntime : public QObject
{
    Q_OBJECT
public:
    CharacterRuntime(std::shared_ptr<const acs::CharacterData> character, SpeechOutput& speech,
                     VoiceDefaults voice, RuntimeTiming timing = {},
                     std::uint32_t seed = std::random_device{}());
    ~CharacterRuntime() override;

    platform::Request show(bool fast);
    platform::Request hide();
    // animation: an index into the character's animations; another number fails the request.
    platform::Request play(int animation);
    platform::Request moveTo(QPoint topLeft);
    platform::Request speak(const QString& text);
    // The user's hide from the popup menu: everything queued or running is interrupted.
    void userHide();

    bool isVisible() const { return visible_; }
    QPoint position() const { return position_; }
    void setIdleOn(bool on);
    void setSoundEffectsOn(bool on) { soundEffectsOn_ = on; }
    bool balloonVisible() const;
    void setBalloonVisible(bool visible);
    // The user's choice of whether speech shows a balloon at all.
    void setBalloonEnabled(bool enabled);

    const acs::CharacterData& character() const { return *character_; }
    CharacterWindow& window() { return *window_; }
    BalloonWindow& balloon() { return *balloon_; }

signals:
    void shown(int cause);
    void hidden(int cause);
    void idleStarted();
    void clicked(int button, int shift, int x, int y);
    void menuRequested(QPoint globalPosition);

private:
    struct Job {
        enum class Kind { Show, Hide, Play, Move, Speak };
        explicit Job(Kind kind) : kind(kind) {}
        Kind kind;
        std::shared_ptr<QueuedRequest> request = std::make_shared<QueuedRequest>();
        unsigned serial = 0;
        bool fast = false;
        int animation = -1;
        QPoint target;
        QString text;
        int cause = ProgramRequest;
    };

    platform::Request enqueue(Job job);
    void schedulePump();
    void pump();
    bool isActive(unsigned serial) const { return active_ && active_->serial == serial; }
    void complete(unsigned serial, int status);
    void interruptAll();

    void runShow(const Job& job);
    void runHide(const Job& job);
    void runPlay(const Job& job);
    void runMove(const Job& job);
    void runSpeak(const Job& job);

    void finishShow(unsigned serial, int cause);
    void finishHide(unsigned serial, int cause);
    void slideTo(QPoint target, std::function<void()> done);
    void slideStep();
    void beginSpeech(unsigned serial, const QString& text);
    void endSpeech(unsigned serial, bool ok);
    void disconnectSpeech();
    void showBalloonText(const QString& shownSoFar, const QString& wholeText);

    void scheduleIdle();
    void cancelIdle();
    void idleTick();
    void deepenIdle();

    void onFrameShown(int animation, int frame);
    void redraw();
    bool displayedFrameSpeaks() const;
    // A random animation of the state, or -1.
    int pickFromState(const QString& state);
    int speakingAnimation();
    void holdRestingPose();

    std::shared_ptr<const acs::CharacterData> character_;
    SpeechOutput& speech_;
    VoiceDefaults voice_;
    RuntimeTiming timing_;
    RandomSource random_;
    FrameRenderer renderer_;
    AnimationPlayer player_;
    std::unique_ptr<CharacterWindow> window_;
    std::unique_ptr<BalloonWindow> balloon_;
    std::unique_ptr<SoundEffects> sounds_;

    std::deque<Job> queue_;
    std::optional<Job> active_;
    unsigned nextSerial_ = 1;
    bool pumpScheduled_ = false;
    // Frames seen by a Play of a looping animation; the request completes after one round.
    std::set<int> loopFrames_;

    bool visible_ = false;
    QPoint position_;
    bool idleOn_ = true;
    bool soundEffectsOn_ = true;
    bool balloonEnabled_ = true;

    std::optional<acs::Mouth> mouth_;
    std::vector<QMetaObject::Connection> speechConnections_;
    QTimer balloonHideTimer_;

    QTimer slideTimer_;
    QElapsedTimer slideClock_;
    QPoint slideFrom_;
    QPoint slideTo_;
    std::function<void()> slideDone_;

    QTimer idleTimer_;
    QTimer idleLevelTimer_;
    int idleLevel_ = 0;
};

} // namespace agent::runtime
