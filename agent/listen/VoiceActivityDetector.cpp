#include "agent/listen/VoiceActivityDetector.h"

#include "agent/listen/FrameLevels.h"

#include <algorithm>

namespace agent::listen
{

namespace
{
constexpr double SpeechAboveFloorDb = 12;
// Below this nothing counts as speech, however quiet the room (about -60 dBFS).
constexpr double MinimumSpeechDb = 30;
constexpr int FramesToStart = 3;
constexpr int QuietFramesToEnd = 50;
constexpr std::size_t PrerollFrames = 20;
constexpr std::size_t MaxUtteranceSamples = 10 * 16000;
// The floor follows quiet at once and loudness only slowly, so speech does not raise it.
constexpr double FloorRisePerFrame = 0.05;
} // namespace

std::vector<std::vector<std::int16_t>>
VoiceActivityDetector::feed(std::span<const std::int16_t> samples)
{
    std::vector<std::vector<std::int16_t>> finished;
    pending_.insert(pending_.end(), samples.begin(), samples.end());
    std::size_t used = 0;
    for (; used + SamplesPerFrame <= pending_.size(); used += SamplesPerFrame) {
        const std::span<const std::int16_t> frame(pending_.data() + used, SamplesPerFrame);
        addFrame(frame, frameLevels(frame).front(), finished);
    }
    pending_.erase(pending_.begin(), pending_.begin() + used);
    return finished;
}

void VoiceActivityDetector::addFrame(std::span<const std::int16_t> frame, double level,
                                     std::vector<std::vector<std::int16_t>>& finished)
{
    noiseFloor_ = noiseFloor_ < 0 ? level : std::min(level, noiseFloor_ + FloorRisePerFrame);
    const bool loud = level >= std::max(MinimumSpeechDb, noiseFloor_ + SpeechAboveFloorDb);

    if (!inUtterance_) {
        preroll_.emplace_back(frame.begin(), frame.end());
        if (preroll_.size() > PrerollFrames)
            preroll_.pop_front();
        loudRun_ = loud ? loudRun_ + 1 : 0;
        if (loudRun_ < FramesToStart)
            return;
        inUtterance_ = true;
        quietRun_ = 0;
        for (const auto& earlier : preroll_)
            utterance_.insert(utterance_.end(), earlier.begin(), earlier.end());
        preroll_.clear();
        return;
    }
    utterance_.insert(utterance_.end(), frame.begin(), frame.end());
    quietRun_ = loud ? 0 : quietRun_ + 1;
    if (quietRun_ >= QuietFramesToEnd || utterance_.size() >= MaxUtteranceSamples) {
        finished.push_back(std::move(utterance_));
        utterance_.clear();
        inUtterance_ = false;
        loudRun_ = 0;
    }
}

} // namespace agent::listen
