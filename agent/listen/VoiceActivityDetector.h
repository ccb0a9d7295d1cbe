#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <vector>

namespace agent::listen
{

// Cuts a continuous 16 kHz stream into utterances for hands-free listening: a stretch of
// frames clearly louder than the background starts one, half a second of quiet ends it.
class VoiceActivityDetector
{
public:
    // Utterances that ended within these samples, each with a little of the quiet before it.
    std::vector<std::vector<std::int16_t>> feed(std::span<const std::int16_t> samples);
    bool inUtterance() const { return inUtterance_; }

private:
    void addFrame(std::span<const std::int16_t> frame, double level,
                  std::vector<std::vector<std::int16_t>>& finished);

    std::vector<std::int16_t> pending_; // samples short of a whole frame
    std::deque<std::vector<std::int16_t>> preroll_;
    std::vector<std::int16_t> utterance_;
    double noiseFloor_ = -1; // dB; negative until the first frame
    int loudRun_ = 0;
    int quietRun_ = 0;
    bool inUtterance_ = false;
};

} // namespace agent::listen
