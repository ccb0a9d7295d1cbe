#include "agent/speech/MouthShapes.h"

#include <gtest/gtest.h>

namespace agent::speech
{
namespace
{

using acs::Mouth;

TEST(MouthShapesTest, PhonemeToMouth)
{
    const std::vector<std::pair<const char*, Mouth>> cases{
        {"p", Mouth::Closed},      {"b", Mouth::Closed},      {"m", Mouth::Closed},
        {"_", Mouth::Closed},      {"_:", Mouth::Closed},     {"", Mouth::Closed},
        {"a", Mouth::OpenWide4},   {"aI", Mouth::OpenWide4},  {"'aI", Mouth::OpenWide4},
        {"A:", Mouth::OpenWide4},  {"E", Mouth::OpenWide3},   {"eI", Mouth::OpenWide3},
        {"3:", Mouth::OpenWide3},  {"I", Mouth::OpenWide2},   {"i:", Mouth::OpenWide2},
        {"@", Mouth::OpenWide2},   {",@", Mouth::OpenWide2},  {"0", Mouth::OpenMedium},
        {"O:", Mouth::OpenMedium}, {"oU", Mouth::OpenMedium}, {"OI", Mouth::OpenMedium},
        {"u:", Mouth::OpenNarrow}, {"U", Mouth::OpenNarrow},  {"w", Mouth::OpenNarrow},
        {"t", Mouth::OpenWide1},   {"s", Mouth::OpenWide1},   {"tS", Mouth::OpenWide1},
        {"n", Mouth::OpenWide1},   {"f", Mouth::OpenWide1},   {"x", Mouth::OpenWide1},
    };
    for (const auto& [phoneme, mouth] : cases)
        EXPECT_EQ(mouthForPhoneme(QByteArrayView(phoneme)), mouth) << phoneme;
}

} // namespace
} // namespace agent::speech
