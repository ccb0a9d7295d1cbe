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

std::vector<VoiceActivityDetector::Piece>
VoiceActivityDetector::feed(std::span<const std::int16_t> samples)
{
    std::vector<Piece> pieces;
    pending_.insert(pending_.end(), samples.begin(), samples.end());
    std::size_t used = 0;
    for (; used + SamplesPerFrame <= pending_.size(); used += SamplesPerFrame) {
        const std::span<const std::int16_t> frame(pending_.data() + used, SamplesPerFrame);
        addFrame(frame, frameLevels(frame).front(), pieces);
    }
    pending_.erase(pending_.begin(), pending_.begin() + used);
    return pieces;
}

void VoiceActivityDetector::addFrame(std::span<const std::int16_t> frame, double level,
                                     std::vector<Piece>& pieces)
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
        utteranceSamples_ = 0;
        pieces.emplace_back();
        for (const auto& earlier : preroll_) {
            pieces.back().samples.insert(pieces.back().samples.end(), earlier.begin(),
                                         earlier.end());
            utteranceSamples_ += earlier.size();
        }
        preroll_.clear();
        return;
    }
    if (pieces.empty() || pieces.back().ends)
        pieces.emplace_back();
    Piece& piece = pieces.back();
    piece.samples.insert(piece.samples.end(), frame.begin(), frame.end());
    utteranceSamples_ += frame.size();
    quietRun_ = loud ? 0 : quietRun_ + 1;
    if (quietRun_ >= QuietFramesToEnd || utteranceSamples_ >= MaxUtteranceSamples) {
        piece.ends = true;
        inUtterance_ = false;
        loudRun_ = 0;
    }
}

} // namespace agent::listen
