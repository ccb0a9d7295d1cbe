#pragma once

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

// Sounds made for the sound tests, and measures on 22050 Hz mono recordings of them.
namespace speechtest
{

// The sum of the products of samples from `start` with those `lag` later.
inline double correlation(const std::vector<qint16>& samples, qsizetype start, qsizetype count,
                          qsizetype lag = 0)
{
    double sum = 0;
    for (qsizetype i = start; i < start + count; ++i)
        sum += double(samples[i]) * samples[i + lag];
    return sum;
}

// A half-second sine at `hz` made with sox in `folder`: 16-bit PCM at `rate` with `channels`,
// then converted with sox's `encoding` options (e.g. "-e ms-adpcm"), as a character stores
// its sounds. Empty when sox cannot make it.
inline QByteArray soxTone(const QTemporaryDir& folder, const QString& name, int rate, double hz,
                          const QStringList& encoding, int channels = 1)
{
    const QString plain = folder.filePath(name + u"-in.wav"_qs);
    const QString coded = folder.filePath(name + u".wav"_qs);
    const QStringList steps[] = {
        {u"-n"_qs, u"-r"_qs, QString::number(rate), u"-c"_qs, QString::number(channels), u"-b"_qs,
         u"16"_qs, plain, u"synth"_qs, u"0.5"_qs, u"sine"_qs, QString::number(hz), u"vol"_qs,
         u"0.5"_qs},
        QStringList{plain} + encoding + QStringList{coded},
    };
    for (const QStringList& arguments : steps) {
        QProcess sox;
        sox.start(u"sox"_qs, arguments);
        if (!sox.waitForFinished(10000) || sox.exitStatus() != QProcess::NormalExit ||
            sox.exitCode() != 0)
            return {};
    }
    QFile file(coded);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline double rms(const std::vector<qint16>& samples)
{
    const auto n = qsizetype(samples.size());
    return n ? std::sqrt(correlation(samples, 0, n) / double(n)) : 0;
}

// The share of the signal's energy below about 300 Hz: high for voiced speech, whose
// fundamental lies there, low for whispering, which is noise shaped by the mouth.
inline double lowFrequencyShare(const std::vector<qint16>& samples)
{
    // Two one-pole low-pass stages at 300 Hz.
    const double a = std::exp(-2 * std::numbers::pi * 300.0 / 22050.0);
    double first = 0, second = 0, low = 0;
    for (const qint16 s : samples) {
        first = (1 - a) * s + a * first;
        second = (1 - a) * first + a * second;
        low += second * second;
    }
    const double all = correlation(samples, 0, qsizetype(samples.size()));
    return all > 0 ? low / all : 0;
}

// The median fundamental frequency, in Hz, of the voiced 40 ms frames (by autocorrelation
// between 50 and 400 Hz); 0 when nothing is voiced.
inline double medianPitchHz(const std::vector<qint16>& samples)
{
    constexpr qsizetype Frame = 882;
    constexpr int ShortestLag = 22050 / 400;
    constexpr int LongestLag = 22050 / 50;
    std::vector<double> pitches;
    for (qsizetype start = 0; start + Frame + LongestLag <= qsizetype(samples.size());
         start += Frame) {
        int bestLag = 0;
        double best = 0;
        for (int lag = ShortestLag; lag <= LongestLag; ++lag) {
            const double sum = correlation(samples, start, Frame, lag);
            if (sum > best) {
                best = sum;
                bestLag = lag;
            }
        }
        // Voiced: the signal repeats itself closely after one period.
        const double energy = correlation(samples, start, Frame);
        if (energy > 0 && best / energy > 0.6)
            pitches.push_back(22050.0 / bestLag);
    }
    if (pitches.empty())
        return 0;
    std::nth_element(pitches.begin(), pitches.begin() + pitches.size() / 2, pitches.end());
    return pitches[pitches.size() / 2];
}

// The amplitude of the sine at `hz` in the samples, averaged over all of them.
inline double toneLevel(const std::vector<qint16>& samples, double hz)
{
    if (samples.empty())
        return 0;
    const double step = 2 * std::numbers::pi * hz / 22050.0;
    double re = 0, im = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        re += samples[i] * std::cos(step * double(i));
        im += samples[i] * std::sin(step * double(i));
    }
    return 2 * std::hypot(re, im) / double(samples.size());
}

// The number of samples in 10 ms blocks whose level stands above the silence between words.
inline qint64 audibleSamples(const std::vector<qint16>& samples)
{
    constexpr qsizetype Block = 220;
    constexpr double Threshold = 300;
    qint64 count = 0;
    for (qsizetype start = 0; start + Block <= qsizetype(samples.size()); start += Block)
        if (std::sqrt(correlation(samples, start, Block) / Block) > Threshold)
            count += Block;
    return count;
}

} // namespace speechtest
