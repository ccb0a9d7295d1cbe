#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace agent::listen
{

// 10 ms at 16 kHz: the frame step of the recogniser.
constexpr int SamplesPerFrame = 160;

// The level of each whole frame in decibels relative to one sample step (silence is 0 dB,
// full-scale sound about 90 dB).
std::vector<double> frameLevels(std::span<const std::int16_t> samples);

} // namespace agent::listen
