#include "agent/engine/CharacterName.h"
#include "agent/engine/CharacterVoice.h"

#include <gtest/gtest.h>

using namespace agent;
using namespace agent::engine;

TEST(CharacterInfoTest, NameFollowsTheUsersLanguage)
{
    const std::vector<acs::LocalizedInfo> names = {
        {0x0407, "Kurt", {}, {}},
        {0x0809, "Colin", {}, {}},
        {0x0409, " Bob ", {}, {}},
        {0x0C07, "Franz", {}, {}},
    };
    const std::pair<std::uint16_t, const char*> cases[] = {
        {0x0C07, "Franz"}, // exact
        {0x0807, "Kurt"},  // same primary language, first of them
        {0x040C, "Colin"}, // no French: the first English entry
        {0, "Colin"},
    };
    for (const auto& [language, expected] : cases)
        EXPECT_EQ(characterName(names, language), QString::fromLatin1(expected))
            << std::hex << language;
    EXPECT_EQ(characterName({{0x0411, "Taro", {}, {}}}, 0x0407), "Taro");
    EXPECT_EQ(characterName({}, 0x0409), QString());
    EXPECT_EQ(characterName({names[2]}, 0x0409), "Bob");
}

TEST(CharacterInfoTest, LanguageIdsOfLocales)
{
    EXPECT_EQ(languageId(QLocale(QLocale::English, QLocale::UnitedStates)), 0x0409);
    EXPECT_EQ(languageId(QLocale(QLocale::English, QLocale::UnitedKingdom)), 0x0809);
    EXPECT_EQ(languageId(QLocale(QLocale::C)), 0);
}

TEST(CharacterInfoTest, VoiceDefaultsWhenTheFileHasNone)
{
    // The engine's default marks, zeros, and no voice section at all.
    const acs::VoiceInfo zeros{{}, {}, 0, 0, {}};
    for (const auto& voice :
         {std::optional(acs::VoiceInfo{}), std::optional(zeros), std::optional<acs::VoiceInfo>()}) {
        acs::CharacterData character;
        character.voice = voice;
        const VoiceDefaults result = characterVoice(character);
        EXPECT_EQ(std::pair(result.pitchHz, result.speedWpm), std::pair(100, 150));
    }
}
