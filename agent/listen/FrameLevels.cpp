#include "agent/listen/FrameLevels.h"

#include <cmath>

namespace agent::listen
{

std::vector<double> frameLevels(std::span<const std::int16_t> samples)
{
    std::vector<double> levels;
    levels.reserve(samples.size() / SamplesPerFrame);
    for (std::size_t start = 0; start + SamplesPerFrame <= samples.size();
         start += SamplesPerFrame) {
        double energy = 0;
        for (int i = 0; i < SamplesPerFrame; ++i)
            energy += double(samples[start + i]) * samples[start + i];
        levels.push_back(10 * std::log10(1 + energy / SamplesPerFrame));
    }
    return levels;
}

} // namespace agent::listen
