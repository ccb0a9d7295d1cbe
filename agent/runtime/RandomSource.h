#pragma once

#include <cstdint>
#include <random>

namespace agent::runtime
{

// The engine's one source of chance (branches, idle picks); seeded so that tests repeat.
class RandomSource
{
public:
    explicit RandomSource(std::uint32_t seed = std::random_device{}()) : engine_(seed) {}

    // A whole number from low to high, both included.
    int uniform(int low, int high)
    {
        return std::uniform_int_distribution<int>(low, high)(engine_);
    }

private:
    std::mt19937 engine_;
};

} // namespace agent::runtime
