#include "agent/speech/EspeakWorker.h"

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
    const EspeakWorker* worker = nullptr;
    quint64 id = 0;
    const SpeechPlan* plan = nullptr;
    const SpeechRun* run = nullptr;
    SynthesizedSpeech* out = nullptr;
    qint64 runStart = 0;
    double gain = 1.0;
    // espeak-ng counts code points; QString counts UTF-16 units.
    std::vector<qsizetype> codePointStarts;
    qsizetype shownSoFar = 0;
    bool stopped = false;
};

std::vector<qsizetype> codePointStarts(const QString& text)
{
    std::vector<qsizetype> starts;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text[i].isLowSurrogate())
            starts.push_back(i);
    }
    starts.push_back(text.size());
    return starts;
}

void addWord(RunCapture& capture, const espeak_EVENT& event)
{
    const auto& starts = capture.codePointStarts;
    const qsizetype first = std::clamp<qsizetype>(event.text_position - 1, 0, starts.size() - 1);
    const qsizetype last = std::clamp<qsizetype>(first + event.length, 0, starts.size() - 1);
    const qsizetype end =
        capture.plan->shownEndAfterWord(*capture.run, starts[first], starts[last] - starts[first]);
    capture.shownSoFar = std::max(capture.shownSoFar, end);
    capture.out->shownLength.add(capture.runStart + event.sample, capture.shownSoFar);
}

int onSynthesis(short* wav, int count, espeak_EVENT* events)
{
    auto* capture = static_cast<RunCapture*>(events->user_data);
    if (!capture)
        return 0;
    for (const espeak_EVENT* event = events; event->type != espeakEVENT_LIST_TERMINATED; ++event) {
        const qint64 at = capture->runStart + event->sample;
        if (event->type == espeakEVENT_WORD && event->length > 0)
            addWord(*capture, *event);
        else if (event->type == espeakEVENT_PHONEME)
            capture->out->mouth.add(at, mouthForPhoneme(QByteArrayView(
                                            event->id.string, qstrnlen(event->id.string, 8))));
        else if (event->type == espeakEVENT_END)
            capture->out->mouth.add(at, acs::Mouth::Closed);
    }
    if (wav && count > 0) {
        auto& samples = capture->out->samples;
        samples.reserve(samples.size() + count);
        for (int i = 0; i < count; ++i)
            samples.push_back(qint16(std::lround(wav[i] * capture->gain)));
    }
    if (capture->worker->cancelled(capture->id)) {
        capture->stopped = true;
        return 1;
    }
    return 0;
}

} // namespace

void EspeakWorker::shutdown()
{
    if (m_initialised)
        espeak_Terminate();
    m_initialised = false;
}

bool EspeakWorker::initialise()
{
    const int rate =
        espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, BufferMs, nullptr,
                          espeakINITIALIZE_PHONEME_EVENTS | espeakINITIALIZE_DONT_EXIT);
    if (rate != SynthesizedSpeech::SampleRate)
        return false;
    m_initialised = true;
    espeak_SetSynthCallback(onSynthesis);
    const char* dataPath = nullptr;
    espeak_Info(&dataPath);
    m_whisperInstalled =
        dataPath &&
        QFileInfo::exists(QString::fromLocal8Bit(dataPath) +
                          QStringLiteral("/voices/!v/whisper")) &&
        QFileInfo::exists(QString::fromLocal8Bit(dataPath) + QStringLiteral("/voices/!v/whisperf"));
    return useVoice("en-us");
}

bool EspeakWorker::useVoice(const QByteArray& name)
{
    if (name == m_voiceName)
        return true;
    if (espeak_SetVoiceByName(name.constData()) != EE_OK)
        return false;
    m_voiceName = name;
    return true;
}

void EspeakWorker::cancel(quint64 id)
{
    quint64 current = m_cancelUpTo.load();
    while (current < id && !m_cancelUpTo.compare_exchange_weak(current, id)) {
    }
}

std::shared_ptr<SynthesizedSpeech> EspeakWorker::synthesize(quint64 id, const SpeechPlan& plan,
                                                            bool femaleCharacter)
{
    auto out = std::make_shared<SynthesizedSpeech>();
    out->shownText = plan.shownText;
    out->complete = m_initialised;
    for (const SpeechRun& run : plan.runs) {
        if (!out->complete || cancelled(id)) {
            out->complete = false;
            break;
        }
        if (run.spoken.trimmed().isEmpty())
            continue;
        const EspeakVoice voice = chooseEspeakVoice(run.voice, femaleCharacter, m_whisperInstalled);
        if (!useVoice(voice.name)) {
            out->complete = false;
            break;
        }
        espeak_SetParameter(espeakRATE, voice.rate, 0);
        espeak_SetParameter(espeakPITCH, voice.pitch, 0);
        espeak_SetParameter(espeakVOLUME, FullVolume, 0);

        RunCapture capture;
        capture.worker = this;
        capture.id = id;
        capture.plan = &plan;
        capture.run = &run;
        capture.out = out.get();
        capture.runStart = qint64(out->samples.size());
        capture.gain = std::clamp(run.voice.volume, 0, 65535) / 65535.0;
        capture.codePointStarts = codePointStarts(run.spoken);
        const QByteArray text = run.spoken.toUtf8();
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
    if (!m_initialised || !useVoice("en-us"))
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
