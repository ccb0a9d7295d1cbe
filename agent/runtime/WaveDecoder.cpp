#include "agent/runtime/WaveDecoder.h"

#include "agent/EngineServices.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <sndfile.h>

namespace agent::runtime
{

namespace
{

// Longer than any frame sound; guards against a header that claims hours of audio.
constexpr sf_count_t LongestSeconds = 120;

// libsndfile reads the bytes through these callbacks, so the sound never touches a file.
struct Reader {
    const QByteArray& data;
    sf_count_t position = 0;
};

sf_count_t length(void* reader)
{
    return static_cast<Reader*>(reader)->data.size();
}

sf_count_t seek(sf_count_t offset, int whence, void* reader)
{
    auto* in = static_cast<Reader*>(reader);
    const sf_count_t base = whence == SEEK_CUR   ? in->position
                            : whence == SEEK_END ? in->data.size()
                                                 : 0;
    in->position = std::clamp<sf_count_t>(base + offset, 0, in->data.size());
    return in->position;
}

sf_count_t read(void* destination, sf_count_t count, void* reader)
{
    auto* in = static_cast<Reader*>(reader);
    const sf_count_t n = std::clamp<sf_count_t>(in->data.size() - in->position, 0, count);
    std::memcpy(destination, in->data.constData() + in->position, size_t(n));
    in->position += n;
    return n;
}

sf_count_t write(const void*, sf_count_t, void*)
{
    return 0;
}

sf_count_t tell(void* reader)
{
    return static_cast<Reader*>(reader)->position;
}

// Linear interpolation: frame sounds are short effects, mostly at half the output rate.
std::vector<qint16> resampled(const std::vector<float>& mono, int rate)
{
    const double step = double(rate) / AudioSampleRate;
    const auto count = qsizetype(std::floor(double(mono.size() - 1) / step)) + 1;
    std::vector<qint16> out(size_t(std::max<qsizetype>(count, 0)));
    for (qsizetype i = 0; i < qsizetype(out.size()); ++i) {
        const double at = double(i) * step;
        const auto left = qsizetype(at);
        const qsizetype right = std::min<qsizetype>(left + 1, qsizetype(mono.size()) - 1);
        const double fraction = at - double(left);
        const double value = mono[left] * (1 - fraction) + mono[right] * fraction;
        out[i] = qint16(std::lround(std::clamp(value, -1.0, 1.0) * 32767));
    }
    return out;
}

} // namespace

std::vector<qint16> decodeWave(const QByteArray& wave)
{
    SF_VIRTUAL_IO io{length, seek, read, write, tell};
    Reader reader{wave};
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> file(
        sf_open_virtual(&io, SFM_READ, &info, &reader), sf_close);
    if (!file || info.channels <= 0 || info.samplerate <= 0 || info.frames <= 0 ||
        info.frames > LongestSeconds * info.samplerate)
        return {};
    std::vector<float> interleaved(size_t(info.frames * info.channels));
    const sf_count_t frames = sf_readf_float(file.get(), interleaved.data(), info.frames);
    if (frames <= 0)
        return {};
    std::vector<float> mono(static_cast<size_t>(frames));
    for (sf_count_t i = 0; i < frames; ++i) {
        float sum = 0;
        for (int channel = 0; channel < info.channels; ++channel)
            sum += interleaved[size_t(i * info.channels + channel)];
        mono[size_t(i)] = sum / float(info.channels);
    }
    return resampled(mono, info.samplerate);
}

} // namespace agent::runtime
