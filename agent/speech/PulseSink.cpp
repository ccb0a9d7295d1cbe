#include "agent/speech/PulseSink.h"

#include "agent/speech/SynthesizedSpeech.h"

#include <pulse/simple.h>

namespace agent::speech
{

namespace
{

// A short server-side buffer keeps the played position, and a stop, close to what is heard.
constexpr quint32 BufferedMs = 80;

} // namespace

std::unique_ptr<PulseSink> PulseSink::connect()
{
    const pa_sample_spec format{PA_SAMPLE_S16NE, SynthesizedSpeech::SampleRate, 1};
    pa_buffer_attr buffering;
    buffering.maxlength = quint32(-1);
    buffering.tlength = quint32(SynthesizedSpeech::SampleRate * BufferedMs / 1000 * sizeof(qint16));
    buffering.prebuf = quint32(-1);
    buffering.minreq = quint32(-1);
    buffering.fragsize = quint32(-1);
    pa_simple* stream = pa_simple_new(nullptr, "character-engine", PA_STREAM_PLAYBACK, nullptr,
                                      "speech", &format, nullptr, &buffering, nullptr);
    if (!stream)
        return nullptr;
    return std::unique_ptr<PulseSink>(new PulseSink(stream));
}

PulseSink::~PulseSink()
{
    pa_simple_free(stream_);
}

bool PulseSink::write(const qint16* samples, qsizetype count)
{
    return pa_simple_write(stream_, samples, size_t(count) * sizeof(qint16), nullptr) == 0;
}

qint64 PulseSink::pendingSamples()
{
    int error = 0;
    const pa_usec_t latency = pa_simple_get_latency(stream_, &error);
    if (latency == pa_usec_t(-1))
        return 0;
    return qint64(latency * SynthesizedSpeech::SampleRate / 1000000);
}

void PulseSink::discardPending()
{
    pa_simple_flush(stream_, nullptr);
}

} // namespace agent::speech
