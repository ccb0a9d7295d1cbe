#include "agent/listen/VoiceActivityDetector.h"

#include <cmath>
#include <gtest/gtest.h>

namespace agent::listen
{
namespace
{

constexpr bool Quiet = false; // a little hiss
constexpr bool Tone = true;   // 220 Hz

std::vector<std::int16_t> audio(std::initializer_list<std::pair<double, bool>> parts, int hiss = 20)
{
    std::vector<std::int16_t> samples;
    for (const auto& [seconds, tone] : parts)
        for (std::size_t i = 0; i < std::size_t(seconds * 16000); ++i)
            samples.push_back(
                tone ? std::int16_t(8000 * std::sin(2 * M_PI * 220 * double(i) / 16000))
                     : std::int16_t((i * 7919 % 201) - 100) * hiss / 100);
    return samples;
}

TEST(VoiceActivityDetector, CutsUtterancesAtHalfASecondOfQuiet)
{
    struct Case {
        const char* what;
        std::vector<std::int16_t> audio;
        std::vector<double> seconds; // length of each utterance found, roughly
        bool unfinished = false;
    };
    const Case cases[] = {
        {"quiet only", audio({{3, Quiet}}), {}},
        {"short gap inside",
         audio({{1, Quiet}, {0.5, Tone}, {0.3, Quiet}, {0.5, Tone}, {1, Quiet}}),
         {2.0}},
        {"two bursts",
         audio({{1, Quiet}, {0.5, Tone}, {1, Quiet}, {0.5, Tone}, {1, Quiet}}),
         {1.2, 1.2}},
        {"clicks too short", audio({{1, Quiet}, {0.02, Tone}, {1, Quiet}}), {}},
        {"burst at the end, unfinished", audio({{1, Quiet}, {1, Tone}}), {}, true},
        // A loud constant sound from the start becomes the floor; speech must stand above it.
        {"steady hum", audio({{3, Quiet}}, 3000), {}},
    };
    for (const Case& c : cases) {
        VoiceActivityDetector detector;
        std::vector<std::vector<std::int16_t>> found;
        bool open = false;
        // In uneven pieces, as a sound server delivers them.
        for (std::size_t at = 0; at < c.audio.size(); at += 1234) {
            const std::size_t n = std::min<std::size_t>(1234, c.audio.size() - at);
            for (const auto& piece : detector.feed({c.audio.data() + at, n})) {
                if (!open)
                    found.emplace_back();
                found.back().insert(found.back().end(), piece.samples.begin(), piece.samples.end());
                open = !piece.ends;
            }
        }
        EXPECT_EQ(open, c.unfinished) << c.what;
        EXPECT_EQ(detector.inUtterance(), c.unfinished) << c.what;
        if (open)
            found.pop_back();
        ASSERT_EQ(found.size(), c.seconds.size()) << c.what;
        for (std::size_t i = 0; i < found.size(); ++i)
            EXPECT_NEAR(double(found[i].size()) / 16000, c.seconds[i], 0.15) << c.what;
    }
}

} // namespace
} // namespace agent::listen
