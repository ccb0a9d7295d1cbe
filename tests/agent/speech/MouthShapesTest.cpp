#include "agent/speech/MouthShapes.h"

#include <gtest/gtest.h>

namespace agent::speech
{
namespace
{

using acs::Mouth;

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
