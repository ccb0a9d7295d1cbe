#pragma once

#include "agent/EngineServices.h"
#include "agent/listen/VoiceGrammar.h"

#include <QObject>
#include <QSet>
#include <QString>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace agent::listen
{

class Pronouncer;
class SphinxDecoder;

// What became of one utterance.
struct Utterance {
    QString words; // what the grammar heard, empty when nothing matched
    QString name;  // the command's name; empty when nothing was accepted
    double confidence = 0;
};

// Lives on the recogniser's own thread: owns the decoder and the grammar, and turns
// utterances into command names. An utterance is decoded piece by piece as its audio
// arrives, so that little is left to do when it ends.
class RecognitionWorker : public QObject
{
    Q_OBJECT
public:
    explicit RecognitionWorker(QString modelFolder);
    ~RecognitionWorker() override;

    // Loads the acoustic model; loadFailed() tells when that does not work.
    void load();
    void setPhrases(const std::vector<VoicePhrase>& phrases);
    void setThreshold(double threshold) { threshold_ = threshold; }

    // A new start drops an unfinished utterance; finishing one reports recognized().
    void startUtterance();
    void addAudio(const std::vector<std::int16_t>& samples);
    void finishUtterance();

signals:
    void recognized(const agent::listen::Utterance& utterance);
    void loadFailed(const QString& description);

private:
    void applyPhrases(const std::vector<VoicePhrase>& phrases);
    void warnOnce(const QStringList& voices);

    QString modelFolder_;
    std::unique_ptr<SphinxDecoder> decoder_;
    std::unique_ptr<Pronouncer> pronouncer_;
    VoiceGrammar grammar_;
    // The grammar cannot change while an utterance is decoded: it waits for the end.
    std::optional<std::vector<VoicePhrase>> pendingPhrases_;
    double threshold_ = 0;
    QSet<QString> warned_;
};

} // namespace agent::listen
