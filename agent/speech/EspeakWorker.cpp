#include "agent/speech/EspeakWorker.h"

#include "agent/speech/BalloonProgress.h"
#include "agent/speech/MouthShapes.h"
#include "agent/speech/VoiceChoice.h"

#include <QFileInfo>
#include <algorithm>
#include <cmath>
#include <espeak-ng/speak_lib.h>

namespace agent::speech
{

namespace
{

constexpr int BufferMs = 50;
constexpr int FullVolume = 100;

// What the synthesis callback adds to while one run is spoken.
struct RunCapture {
    const std::atomic<quint64>* cancelUpTo = nullptr;
    quint64 id = 0;
    SynthesizedSpeech* out = nullptr;
    BalloonProgress* balloon = nullptr;
    qint64 runStart = 0;
    double gain = 1.0;
    bool stopped = false;
};

int onSynthesis(short* wav, int count, espeak_EVENT* events)
{
    auto* capture = static_cast<RunCapture*>(events->user_data);
    if (!capture)
        return 0;
    for (const espeak_EVENT* event = events; event->type != espeakEVENT_LIST_TERMINATED; ++event) {
        const qint64 at = capture->runStart + event->sample;
        if (event->type == espeakEVENT_WORD)
            capture->balloon->word(event->text_position, event->length, event->sample);
        else if (event->type == espeakEVENT_PHONEME)
            capture->out->mouth.add(at, mouthForPhoneme(QByteArrayView(
                                            event->id.string, qstrnlen(event->id.string, 8))));
        else if (event->type == espeakEVENT_END)
            capture->out->mouth.add(at, acs::Mouth::Closed);
    }
    if (wav && count > 0) {
        auto& samples = capture->out->samples;
        for (int i = 0; i < count; ++i)
            samples.push_back(qint16(std::lround(wav[i] * capture->gain)));
    }
    if (capture->id <= capture->cancelUpTo->load()) {
        capture->stopped = true;
        return 1;
    }
    return 0;
}

} // namespace

bool EspeakWorker::initialise()
{
    const int rate =
        espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, BufferMs, nullptr,
                          espeakINITIALIZE_PHONEME_EVENTS | espeakINITIALIZE_DONT_EXIT);
    if (rate != SynthesizedSpeech::SampleRate)
        return false;
    initialised_ = true;
    const char* dataPath = nullptr;
    espeak_Info(&dataPath);
    const QString variants = QString::fromLocal8Bit(dataPath) + QStringLiteral("/voices/!v/");
    whisperInstalled_ = dataPath && QFileInfo::exists(variants + QStringLiteral("whisper")) &&
                        QFileInfo::exists(variants + QStringLiteral("whisperf"));
    return useVoice("en-us");
}

bool EspeakWorker::useVoice(const QByteArray& name)
{
    if (name == voiceName_)
        return true;
    if (espeak_SetVoiceByName(name.constData()) != EE_OK)
        return false;
    voiceName_ = name;
    return true;
}

std::shared_ptr<SynthesizedSpeech> EspeakWorker::synthesize(quint64 id,
                                                            const std::atomic<quint64>& cancelUpTo,
                                                            const SpeechPlan& plan,
                                                            bool femaleCharacter)
{
    auto out = std::make_shared<SynthesizedSpeech>();
    out->shownText = plan.shownText;
    BalloonProgress balloon(plan, out->shownLength);
    out->complete = initialised_;
    for (const SpeechRun& run : plan.runs) {
        if (!out->complete || id <= cancelUpTo.load()) {
            out->complete = false;
            break;
        }
        if (run.spoken.trimmed().isEmpty())
            continue;
        const EspeakVoice voice = chooseEspeakVoice(run.voice, femaleCharacter, whisperInstalled_);
        if (!useVoice(voice.name)) {
            out->complete = false;
            break;
        }
        espeak_SetParameter(espeakRATE, voice.rate, 0);
        espeak_SetParameter(espeakPITCH, voice.pitch, 0);
        espeak_SetParameter(espeakVOLUME, FullVolume, 0);

        RunCapture capture;
        capture.cancelUpTo = &cancelUpTo;
        capture.id = id;
        capture.out = out.get();
        capture.balloon = &balloon;
        capture.runStart = qint64(out->samples.size());
        balloon.startRun(run, capture.runStart);
        capture.gain = std::clamp(run.voice.volume, 0, 65535) / 65535.0;
        const QByteArray text = run.spoken.toUtf8();
        espeak_SetSynthCallback(onSynthesis);
        const espeak_ERROR result =
            espeak_Synth(text.constData(), size_t(text.size() + 1), 0, POS_CHARACTER, 0,
                         espeakCHARS_UTF8, nullptr, &capture);
        if (result != EE_OK || capture.stopped)
            out->complete = false;
    }
    return out;
}

QString EspeakWorker::phonemesOf(const QString& word)
{
    if (!initialised_ || !useVoice("en-us"))
        return {};
    const QByteArray text = word.toUtf8();
    const void* cursor = text.constData();
    constexpr int BlankSeparated = ' ' << 8;
    QStringList parts;
    while (cursor) {
        const char* phonemes = espeak_TextToPhonemes(&cursor, espeakCHARS_UTF8, BlankSeparated);
        if (phonemes && *phonemes)
            parts << QString::fromUtf8(phonemes).trimmed();
    }
    return parts.join(u' ');
}

} // namespace agent::speech
