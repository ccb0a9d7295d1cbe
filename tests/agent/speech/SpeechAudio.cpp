#include "SpeechAudio.h"

#include <cmath>
#include <numbers>

namespace speechtest
{

double rms(const std::vector<qint16>& samples)
{
    if (samples.empty())
        return 0;
    double sum = 0;
    for (const qint16 s : samples)
        sum += double(s) * s;
    return std::sqrt(sum / double(samples.size()));
}

double lowFrequencyShare(const std::vector<qint16>& samples)
{
    // Two one-pole low-pass stages at 300 Hz.
    const double a = std::exp(-2 * std::numbers::pi * 300.0 / 22050.0);
    double first = 0, second = 0, low = 0, all = 0;
    for (const qint16 s : samples) {
        first = (1 - a) * s + a * first;
        second = (1 - a) * first + a * second;
        low += second * second;
        all += double(s) * s;
    }
    return all > 0 ? low / all : 0;
}

qint64 audibleSamples(const std::vector<qint16>& samples)
{
    constexpr qsizetype Block = 220;
    constexpr double Threshold = 300;
    qint64 count = 0;
    for (qsizetype start = 0; start + Block <= qsizetype(samples.size()); start += Block) {
        double sum = 0;
        for (qsizetype i = start; i < start + Block; ++i)
            sum += double(samples[i]) * samples[i];
        if (std::sqrt(sum / Block) > Threshold)
            count += Block;
    }
    return count;
}

} // namespace speechtest
