#pragma once

#include "agent/acs/CharacterData.h"

#include <QObject>
#include <QString>
#include <memory>
#include <vector>

class QWidget;

// The seams between the engine's character runtime and its speech parts, so that each can
// be built and tested alone and the runtime can run with test doubles.
namespace agent
{

// The engine's audio: speech and frame sounds alike, mono 16-bit at this rate.
constexpr int AudioSampleRate = 22050;

// The voice of the loaded character, from its file's voice info.
struct VoiceDefaults {
    int pitchHz = 0;
    int speedWpm = 0;
    int gender = 0; // 0 neutral, 1 female, 2 male
};

// Speaks one utterance at a time. The text may hold the speech tags (\chr=, \pit=, \spd=,
// \vol=, \map=). Progress comes back as signals on the GUI thread.
class SpeechOutput : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    // True when speech can be produced (the synthesiser and its data loaded).
    virtual bool available() const = 0;
    virtual void speak(const QString& taggedText, const VoiceDefaults& voice) = 0;
    // Cuts the current utterance short; finished(false) follows.
    virtual void stop() = 0;
    // Plays a frame sound (AudioSampleRate, mono) at once, mixed with whatever is being said,
    // on the same output. Without a sound server it is skipped.
    virtual void playSound(std::shared_ptr<const std::vector<qint16>> samples) = 0;

signals:
    // The balloon text shown so far, which grows word by word as the words are heard, and the
    // whole text the utterance shows.
    void balloonTextChanged(const QString& shownSoFar, const QString& wholeText);
    void mouthChanged(agent::acs::Mouth mouth);
    // ok is false when the utterance could not be spoken or was stopped.
    void finished(bool ok);
};

// One entry of the character's command list as the recogniser needs it.
struct VoicePhrase {
    QString name;
    QString voice; // a phrase, or alternatives "(a | b)"
};

// Listens for the voice texts of the enabled commands.
class SpeechRecognizer : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    // True when the recogniser and its acoustic model load.
    virtual bool installed() const = 0;
    // The user's switch on the property sheet.
    virtual bool enabled() const = 0;
    virtual void setPhrases(const std::vector<VoicePhrase>& phrases) = 0;
    // The controls for the property sheet's "Speech" page, owned by the caller; null when
    // the recogniser has none.
    virtual QWidget* createSettingsPage() { return nullptr; }

signals:
    void commandRecognized(const QString& name);
    // Listening could not start, e.g. another program holds the microphone (0x80040317,
    // source "Agent.Control.1").
    void listeningFailed(int number, const QString& source, const QString& description);
};

} // namespace agent
