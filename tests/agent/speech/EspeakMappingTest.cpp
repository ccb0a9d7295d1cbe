#include "agent/speech/MouthShapes.h"
#include "agent/speech/VoiceChoice.h"

#include <gtest/gtest.h>

namespace agent::speech
{
namespace
{

using acs::Mouth;

TEST(VoiceChoiceTest, VoiceForPitchRateWhisperAndCharacter)
{
    // Voice, female character, whisper variant installed, and the voice chosen.
    const std::vector<std::tuple<VoiceParams, bool, bool, EspeakVoice>> cases{
        {{false, 100, 150, 65535}, false, true, {"en-us", 51, 158}},
        {{false, 0, 0, 65535}, false, true, {"en-us", 50, 175}},
        {{false, 40, 50, 65535}, false, true, {"en-us", 0, 80}},
        {{false, 63, 79, 65535}, false, true, {"en-us", 0, 83}},
        {{false, 200, 150, 65535}, false, true, {"en-us+f2", 55, 158}},
        {{false, 400, 1000, 65535}, false, true, {"en-us+f2", 100, 450}},
        {{false, 168, 150, 65535}, false, true, {"en-us", 100, 158}},
        {{true, 100, 150, 65535}, false, true, {"en-us+whisper", 51, 158}},
        {{true, 250, 150, 65535}, false, true, {"en-us+whisperf", 77, 158}},
        {{true, 100, 150, 65535}, false, false, {"en-us", 51, 158}},
        {{false, 0, 0, 65535}, true, true, {"en-us+f2", 50, 175}},
        {{false, 125, 150, 65535}, true, true, {"en-us+f2", 0, 158}},
        {{false, 100, 150, 65535}, true, true, {"en-us", 51, 158}},
    };
    for (const auto& [params, female, whisperInstalled, expected] : cases) {
        const EspeakVoice voice = chooseEspeakVoice(params, female, whisperInstalled);
        EXPECT_EQ(voice, expected) << voice.name.constData() << " " << voice.pitch << " "
                                   << voice.rate << " for " << params.pitchHz << " Hz";
    }
}

TEST(MouthShapesTest, PhonemeToMouth)
{
    // One phoneme of each shape, stress marks, a length mark, and a consonant not listed.
    const std::vector<std::pair<const char*, Mouth>> cases{
        {"m", Mouth::Closed},      {"_:", Mouth::Closed},     {"", Mouth::Closed},
        {"'aI", Mouth::OpenWide4}, {"eI", Mouth::OpenWide3},  {",@", Mouth::OpenWide2},
        {"oU", Mouth::OpenMedium}, {"u:", Mouth::OpenNarrow}, {"tS", Mouth::OpenWide1},
        {"x", Mouth::OpenWide1},
    };
    for (const auto& [phoneme, mouth] : cases)
        EXPECT_EQ(mouthForPhoneme(QByteArrayView(phoneme)), mouth) << phoneme;
}

} // namespace
} // namespace agent::speech
