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
    // Part of an utterance. The first piece of one starts with a little of the quiet before
    // it; the last is marked.
    struct Piece {
        std::vector<std::int16_t> samples;
        bool ends = false;
    };
    // The speech within these samples, as it is heard: each utterance comes in one or more
    // pieces, so that it can be decoded before it ends.
    std::vector<Piece> feed(std::span<const std::int16_t> samples);
    bool inUtterance() const { return inUtterance_; }

private:
    void addFrame(std::span<const std::int16_t> frame, double level, std::vector<Piece>& pieces);

    std::vector<std::int16_t> pending_; // samples short of a whole frame
    std::deque<std::vector<std::int16_t>> preroll_;
    std::size_t utteranceSamples_ = 0;
    double noiseFloor_ = -1; // dB; negative until the first frame
    int loudRun_ = 0;
    int quietRun_ = 0;
    bool inUtterance_ = false;
};

} // namespace agent::listen
