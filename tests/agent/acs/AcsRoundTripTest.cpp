#include "SyntheticCharacter.h"
#include "agent/acs/AcsFile.h"

#include <gtest/gtest.h>

using namespace agent::acs;
using namespace agent::acs::testing;

constexpr qsizetype CharacterInfoFixedBytes = 41;

TEST(AcsRoundTrip, ReadsBackWhatWasWritten)
{
    struct Case {
        const char* name;
        SyntheticOptions character;
        bool compress;
    };
    const Case cases[] = {
        {"voice and balloon, compressed", {true, true}, true},
        {"voice and balloon, raw", {true, true}, false},
        {"voice only", {true, false}, true},
        {"balloon only", {false, true}, false},
        {"neither", {false, false}, true},
    };
    for (const Case& c : cases) {
        const CharacterData original = syntheticCharacter(c.character);
        const QByteArray file = writeAcs(original, {c.compress});
        const CharacterData read = readAcs(file);
        EXPECT_EQ(read.voice.has_value(), c.character.voice) << c.name;
        EXPECT_EQ(read.balloon.has_value(), c.character.balloon) << c.name;
        EXPECT_FALSE(read.images[3].present) << c.name;
        EXPECT_EQ(read.animations[0].frames[3].overlays.size(), 7u) << c.name;
        EXPECT_EQ(read.localizedInfo[0].description, original.localizedInfo[0].description)
            << c.name;
        EXPECT_TRUE(read == original) << c.name;
    }
}

TEST(AcsRoundTrip, CompressionShrinksTheFile)
{
    const CharacterData character = syntheticCharacter();
    EXPECT_LT(writeAcs(character, {true}).size(), writeAcs(character, {false}).size());
}

// Palette entries are stored blue first, balloon colours red first: a swap in either shows
// wrong colours on every character, and a round trip alone cannot see it.
TEST(AcsRoundTrip, StoresColoursInTheirOwnByteOrder)
{
    // An empty string is its count alone, a non-empty one ends with a 0x0000 terminator; the
    // palette's position after the font name checks both.
    struct Case {
        QString fontName;
        qsizetype fontNameBytes;
    };
    const Case cases[] = {{"Sans", 4 + 2 * 5}, {QString(), 4}};
    for (const Case& c : cases) {
        CharacterData character = syntheticCharacter({false, true});
        character.palette[0] = 0x00112233;
        character.balloon->background = QColor(0xFF, 0xFE, 0xE1);
        character.balloon->fontName = c.fontName;
        const QByteArray file = writeAcs(character);
        const qsizetype balloon = u32At(file, 4) + CharacterInfoFixedBytes;
        EXPECT_EQ(file.mid(balloon + 6, 4), QByteArray::fromHex("FFFEE100"));
        const qsizetype palette = balloon + 14 + c.fontNameBytes + 10;
        EXPECT_EQ(u32At(file, palette), 256u) << c.fontName.toStdString();
        EXPECT_EQ(file.mid(palette + 4, 4), QByteArray::fromHex("33221100"));
    }
}

// Unpaired UTF-16 surrogates come from careless tools; they must read as U+FFFD, not fail.
TEST(AcsRoundTrip, ReplacesUnpairedSurrogates)
{
    CharacterData character = syntheticCharacter();
    const QChar high(char16_t(0xD83D));
    const QChar low(char16_t(0xDE00));
    character.localizedInfo[1].name =
        QString(high) + "a" + QString(low) + QString(high) + QString(low) + QString(high);
    const CharacterData read = readAcs(writeAcs(character));
    const QChar bad = QChar::ReplacementCharacter;
    EXPECT_EQ(read.localizedInfo[1].name,
              QString(bad) + "a" + QString(bad) + QString(high) + QString(low) + QString(bad));
}

TEST(AcsRoundTrip, WriterKeepsFlagsInStepWithTheOptionalBlocks)
{
    CharacterData character = syntheticCharacter({true, false});
    character.flags |= flags::BalloonRoundRect;
    character.voice.reset();
    const CharacterData read = readAcs(writeAcs(character));
    EXPECT_EQ(read.flags & (flags::VoiceTts | flags::BalloonRoundRect), 0u);
    EXPECT_EQ(read.flags & flags::SystemCharacter, flags::SystemCharacter);
}

TEST(AcsRoundTrip, WriterRefusesWhatTheFileCannotState)
{
    CharacterData wrongSize = syntheticCharacter();
    wrongSize.images[1].pixels.chop(1);
    CharacterData tooManyBranches = syntheticCharacter();
    tooManyBranches.animations[0].frames[0].branches.resize(256);
    for (const CharacterData& character : {wrongSize, tooManyBranches})
        EXPECT_THROW(writeAcs(character), FormatError);
}
