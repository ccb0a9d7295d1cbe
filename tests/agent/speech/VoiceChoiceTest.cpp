#include "agent/speech/VoiceChoice.h"

#include <gtest/gtest.h>

namespace agent::speech
{
namespace
{

TEST(VoiceChoiceTest, PitchSettingFollowsTheMeasuredCurve)
{
    const std::vector<std::tuple<const PitchCurve*, int, int>> cases{
        {&MalePitchCurve, 40, 0},     {&MalePitchCurve, 63, 0},      {&MalePitchCurve, 80, 25},
        {&MalePitchCurve, 99, 50},    {&MalePitchCurve, 90, 38},     {&MalePitchCurve, 129, 75},
        {&MalePitchCurve, 168, 100},  {&MalePitchCurve, 200, 100},   {&FemalePitchCurve, 190, 50},
        {&FemalePitchCurve, 200, 55}, {&FemalePitchCurve, 320, 100}, {&FemalePitchCurve, 400, 100},
    };
    for (const auto& [curve, hz, setting] : cases)
        EXPECT_EQ(pitchSettingFor(*curve, hz), setting) << hz << " Hz";
}

TEST(VoiceChoiceTest, RateSetting)
{
    const std::vector<std::pair<int, int>> cases{{0, 175}, {150, 158}, {95, 100},
                                                 {50, 80}, {79, 83},   {1000, 450}};
    for (const auto& [wpm, setting] : cases)
        EXPECT_EQ(rateSettingFor(wpm), setting) << wpm << " wpm";
}

TEST(VoiceChoiceTest, VoiceForPitchWhisperAndCharacter)
{
    struct Case {
        VoiceParams voice;
        bool female;
        bool whisperInstalled;
        EspeakVoice expected;
    };
    const std::vector<Case> cases{
        {{false, 100, 150, 65535}, false, true, {"en-us", 51, 158}},
        {{false, 0, 0, 65535}, false, true, {"en-us", 50, 175}},
        {{false, 200, 150, 65535}, false, true, {"en-us+f2", 55, 158}},
        {{false, 168, 150, 65535}, false, true, {"en-us", 100, 158}},
        {{true, 100, 150, 65535}, false, true, {"en-us+whisper", 51, 158}},
        {{true, 250, 150, 65535}, false, true, {"en-us+whisperf", 77, 158}},
        {{true, 100, 150, 65535}, false, false, {"en-us", 51, 158}},
        {{false, 0, 0, 65535}, true, true, {"en-us+f2", 50, 175}},
        {{false, 150, 150, 65535}, true, true, {"en-us+f2", 24, 158}},
        {{false, 100, 150, 65535}, true, true, {"en-us", 51, 158}},
    };
    for (const Case& c : cases) {
        const EspeakVoice voice = chooseEspeakVoice(c.voice, c.female, c.whisperInstalled);
        EXPECT_EQ(voice, c.expected) << voice.name.constData() << " " << voice.pitch << " "
                                     << voice.rate << " for " << c.voice.pitchHz << " Hz";
    }
}

} // namespace
} // namespace agent::speech
