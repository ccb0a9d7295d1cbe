#pragma once

#include <QByteArray>
#include <QStringList>
#include <vector>

class QTemporaryDir;

// Sounds made for the sound tests, and measures on 22050 Hz mono recordings of them.
namespace speechtest
{

// A half-second sine at `hz` made with sox in `folder`: 16-bit PCM at `rate` with `channels`,
// then converted with sox's `encoding` options (e.g. "-e ms-adpcm"), as a character stores
// its sounds. Empty when sox cannot make it.
QByteArray soxTone(const QTemporaryDir& folder, const QString& name, int rate, double hz,
                   const QStringList& encoding, int channels = 1);

double rms(const std::vector<qint16>& samples);

// The share of the signal's energy below about 300 Hz: high for voiced speech, whose
// fundamental lies there, low for whispering, which is noise shaped by the mouth.
double lowFrequencyShare(const std::vector<qint16>& samples);

// The median fundamental frequency, in Hz, of the voiced 40 ms frames (by autocorrelation
// between 50 and 400 Hz); 0 when nothing is voiced.
double medianPitchHz(const std::vector<qint16>& samples);

// The amplitude of the sine at `hz` in the samples, averaged over all of them.
double toneLevel(const std::vector<qint16>& samples, double hz);

// The number of samples in 10 ms blocks whose level stands above the silence between words.
qint64 audibleSamples(const std::vector<qint16>& samples);

} // namespace speechtest
