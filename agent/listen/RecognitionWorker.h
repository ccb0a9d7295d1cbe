#pragma once

#include "agent/EngineServices.h"
#include "agent/listen/VoiceGrammar.h"

#include <QObject>
#include <QSet>
#include <QString>
#include <cstdint>
#include <memory>
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
// utterances into command names.
class RecognitionWorker : public QObject
{
    Q_OBJECT
public:
    RecognitionWorker();
    ~RecognitionWorker() override;

    // Loads the acoustic model; false when PocketSphinx or the model is missing.
    bool load();
    void setPhrases(const std::vector<VoicePhrase>& phrases);
    void setThreshold(double threshold) { threshold_ = threshold; }
    void recognize(const std::vector<std::int16_t>& samples);

signals:
    void recognized(const agent::listen::Utterance& utterance);

private:
    void warnOnce(const QStringList& voices);

    std::unique_ptr<SphinxDecoder> decoder_;
    std::unique_ptr<Pronouncer> pronouncer_;
    VoiceGrammar grammar_;
    double threshold_ = 0;
    QSet<QString> warned_;
};

} // namespace agent::listen
