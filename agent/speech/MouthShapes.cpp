#include "agent/speech/MouthShapes.h"

#include <array>
#include <string_view>
#include <utility>

namespace agent::speech
{

namespace
{

using acs::Mouth;

// The lookup takes the longest entry that starts the phoneme name, so "aI" wins over "a" and
// "oU" over "o"; consonants not listed open the mouth a little.
constexpr std::array<std::pair<std::string_view, Mouth>, 44> PhonemeMouths{{
    {"p", Mouth::Closed},      {"b", Mouth::Closed},     {"m", Mouth::Closed},
    {"_", Mouth::Closed},      {"a", Mouth::OpenWide4},  {"aa", Mouth::OpenWide4},
    {"A", Mouth::OpenWide4},   {"aI", Mouth::OpenWide4}, {"aU", Mouth::OpenWide4},
    {"E", Mouth::OpenWide3},   {"e", Mouth::OpenWide3},  {"eI", Mouth::OpenWide3},
    {"V", Mouth::OpenWide3},   {"3", Mouth::OpenWide3},  {"I", Mouth::OpenWide2},
    {"i", Mouth::OpenWide2},   {"@", Mouth::OpenWide2},  {"0", Mouth::OpenMedium},
    {"O", Mouth::OpenMedium},  {"o", Mouth::OpenMedium}, {"oU", Mouth::OpenMedium},
    {"OI", Mouth::OpenMedium}, {"U", Mouth::OpenNarrow}, {"u", Mouth::OpenNarrow},
    {"w", Mouth::OpenNarrow},  {"W", Mouth::OpenNarrow}, {"t", Mouth::OpenWide1},
    {"d", Mouth::OpenWide1},   {"n", Mouth::OpenWide1},  {"N", Mouth::OpenWide1},
    {"l", Mouth::OpenWide1},   {"r", Mouth::OpenWide1},  {"s", Mouth::OpenWide1},
    {"z", Mouth::OpenWide1},   {"S", Mouth::OpenWide1},  {"Z", Mouth::OpenWide1},
    {"T", Mouth::OpenWide1},   {"D", Mouth::OpenWide1},  {"k", Mouth::OpenWide1},
    {"g", Mouth::OpenWide1},   {"h", Mouth::OpenWide1},  {"j", Mouth::OpenWide1},
    {"f", Mouth::OpenWide1},   {"v", Mouth::OpenWide1},
}};

} // namespace

acs::Mouth mouthForPhoneme(QByteArrayView phoneme)
{
    // Stress marks stand before the vowel they belong to.
    while (!phoneme.isEmpty() && (phoneme.front() == '\'' || phoneme.front() == ','))
        phoneme = phoneme.sliced(1);
    if (phoneme.isEmpty())
        return Mouth::Closed;

    const std::string_view name(phoneme.data(), phoneme.size());
    std::size_t bestLength = 0;
    Mouth best = Mouth::OpenWide1;
    for (const auto& [prefix, mouth] : PhonemeMouths) {
        if (prefix.size() > bestLength && name.starts_with(prefix)) {
            bestLength = prefix.size();
            best = mouth;
        }
    }
    return best;
}

} // namespace agent::speech
