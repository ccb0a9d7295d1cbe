#pragma once

#include <QtGlobal>
#include <vector>

// Measures on 22050 Hz mono speech for the speech tests.
namespace speechtest
{

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
