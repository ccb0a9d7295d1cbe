#include "agent/acs/AcsFile.h"

#include "SyntheticCharacter.h"

#include <functional>
#include <gtest/gtest.h>

using namespace agent::acs;
using namespace agent::acs::testing;

constexpr qsizetype ImageListLocatorAt = 20;
constexpr qsizetype CharacterInfoFixedBytes = 41;

// The file offset of image `index`'s record, found through the header and the image list.
qsizetype imageRecord(const QByteArray& file, std::uint32_t index)
{
    return u32At(file, u32At(file, ImageListLocatorAt) + 4 + 12 * index);
}

void expectError(const QByteArray& file, const char* message)
{
    try {
        readAcs(file);
        ADD_FAILURE() << "no error, expected " << message;
    } catch (const FormatError& error) {
        EXPECT_NE(std::string(error.what()).find(message), std::string::npos) << error.what();
    }
}

// The synthetic character's file with bytes patched, or written after an edit.
QByteArray patched(const std::function<void(QByteArray&)>& patch)
{
    QByteArray file = writeAcs(syntheticCharacter());
    patch(file);
    return file;
}

QByteArray edited(const std::function<void(CharacterData&)>& edit)
{
    CharacterData character = syntheticCharacter();
    edit(character);
    return writeAcs(character);
}

TEST(AcsRoundTrip, ReadsBackWhatWasWritten)
{
    for (bool voice : {true, false})
        for (bool balloon : {true, false})
            for (bool compress : {true, false}) {
                const CharacterData original = syntheticCharacter({voice, balloon});
                EXPECT_TRUE(readAcs(writeAcs(original, {compress})) == original)
                    << voice << balloon << compress;
            }
    const CharacterData character = syntheticCharacter();
    EXPECT_LT(writeAcs(character, {true}).size(), writeAcs(character, {false}).size());
}

// Palette entries are stored blue first, balloon colours red first: a swap in either shows
// wrong colours on every character, and a round trip alone cannot see it.
TEST(AcsRoundTrip, StoresColoursInTheirOwnByteOrder)
{
    // An empty string is its count alone, a non-empty one ends with a 0x0000 terminator; the
    // palette's position after the font name checks both.
    const std::pair<QString, qsizetype> cases[] = {{"Sans", 4 + 2 * 5}, {QString(), 4}};
    for (const auto& [fontName, fontNameBytes] : cases) {
        CharacterData character = syntheticCharacter({false, true});
        character.palette[0] = 0x00112233;
        character.balloon->background = QColor(0xFF, 0xFE, 0xE1);
        character.balloon->fontName = fontName;
        const QByteArray file = writeAcs(character);
        const qsizetype balloon = u32At(file, 4) + CharacterInfoFixedBytes;
        EXPECT_EQ(file.mid(balloon + 6, 4), QByteArray::fromHex("FFFEE100"));
        const qsizetype palette = balloon + 14 + fontNameBytes + 10;
        EXPECT_EQ(u32At(file, palette), 256u) << fontName.toStdString();
        EXPECT_EQ(file.mid(palette + 4, 4), QByteArray::fromHex("33221100"));
    }
}

// Unpaired UTF-16 surrogates come from careless tools; they must read as U+FFFD, not fail.
TEST(AcsRoundTrip, ReplacesUnpairedSurrogates)
{
    CharacterData character = syntheticCharacter();
    character.localizedInfo[1].name = QString::fromUtf16(u"\xD83Dz\xDE00\xD83D\xDE00\xD83D");
    EXPECT_EQ(readAcs(writeAcs(character)).localizedInfo[1].name,
              QString::fromUtf16(u"\xFFFDz\xFFFD\xD83D\xDE00\xFFFD"));
}

TEST(AcsRoundTrip, WriterKeepsFlagsInStepWithTheOptionalBlocks)
{
    CharacterData character = syntheticCharacter({false, false});
    character.flags |= flags::VoiceTts | flags::BalloonRoundRect;
    const CharacterData read = readAcs(writeAcs(character));
    EXPECT_EQ(read.flags & (flags::VoiceTts | flags::BalloonRoundRect), 0u);
    EXPECT_EQ(read.flags & flags::SystemCharacter, flags::SystemCharacter);
}

TEST(AcsRoundTrip, WriterRefusesWhatTheFileCannotState)
{
    const std::function<void(CharacterData&)> wrongSizeAndTooManyBranches[] = {
        [](CharacterData& c) { c.images[1].pixels.chop(1); },
        [](CharacterData& c) { c.animations[0].frames[0].branches.resize(256); }};
    for (const auto& edit : wrongSizeAndTooManyBranches)
        EXPECT_THROW(edited(edit), FormatError);
}

TEST(AcsReaderErrors, RefusesEveryTruncation)
{
    const QByteArray file = writeAcs(syntheticCharacter());
    for (qsizetype size = 0; size < file.size(); ++size)
        EXPECT_THROW(readAcs(file.left(size)), FormatError) << "truncated to " << size;
}

TEST(AcsReaderErrors, NamesOtherFormatsCorruptStructuresAndValuesOutsideTheirLists)
{
    const QByteArray body(64, '\0');
    const std::pair<QByteArray, const char*> cases[] = {
        {QByteArray::fromHex("C4ABCDAB") + body, "unsupported format: a web character (ACF) file"},
        {QByteArray::fromHex("C2ABCDAB") + body, "unsupported format: a web character (ACF) file"},
        {QByteArray::fromHex("C1ABCDAB") + body, "unsupported format: 1.5-era character data"},
        {QByteArray::fromHex("D0CF11E0A1B11AE1") + body,
         "unsupported format: an OLE compound file"},
        {QByteArray("RIFF") + body, "not a character file (signature 0x46464952)"},
        {QByteArray("AB"), "file of 2 bytes is too short"},
        {QByteArray::fromHex("C3ABCDAB0000"), "header: file of 6 bytes ends inside"},
        {patched([](QByteArray& f) { putU32(f, 12, 0xFFFFFFF0); }),
         "animation list: locator beyond end of file"},
        {patched([](QByteArray& f) { putU32(f, u32At(f, ImageListLocatorAt), 0xFFFFFFFF); }),
         "image list: 4294967295 entries cannot fit"},
        {patched([](QByteArray& f) { f[imageRecord(f, 1) + 10] = 1; }),
         "image list: image 1: compressed data does not start with 0x00"},
        {patched([](QByteArray& f) { putU32(f, imageRecord(f, 1) + 6, 0x7FFFFFFF); }),
         "image list: image 1: pixel data: needs 2147483647 bytes"},
        {edited([](CharacterData& c) { c.animations[1].frames[2].images[0].image = 7; }),
         "animation 1 \"Idle1_1\": frame 2: image 7 out of range (7 images)"},
        {edited([](CharacterData& c) { c.animations[0].frames[3].overlays[6].image = 99; }),
         "frame 3: image 99 out of range"},
        {edited([](CharacterData& c) { c.animations[2].frames[0].sound = 2; }),
         "animation 2 \"Read\": frame 0: sound 2 out of range (2 sounds)"},
        {edited([](CharacterData& c) { c.animations[2].frames[0].sound = -3; }),
         "sound -3 out of range"},
        {edited([](CharacterData& c) { c.animations[3].transition = Transition(3); }),
         "animation 3 \"ReadReturn\": unknown transition type 3"},
        {edited([](CharacterData& c) { c.animations[0].frames[3].overlays[1].mouth = Mouth(7); }),
         "frame 3: overlay 1: unknown mouth type 7"},
    };
    for (const auto& [file, message] : cases)
        expectError(file, message);
}

TEST(AcsReaderErrors, ReadsShortImageRecordsAsPlaceholders)
{
    // Image 2's list entry gives its record a size of 9 bytes.
    const CharacterData character = readAcs(
        patched([](QByteArray& f) { putU32(f, u32At(f, ImageListLocatorAt) + 8 + 12 * 2, 9); }));
    EXPECT_FALSE(character.images[2].present);
    EXPECT_TRUE(character.images[1].present);
}

// Many list entries can name one small record that expands a thousandfold; the reader must
// stop long before it has allocated gigabytes.
TEST(AcsReaderErrors, StopsSharedRecordsFromExhaustingMemory)
{
    CharacterData character = syntheticCharacter();
    character.images[0] = {true, 4000, 4000, QByteArray(4000 * 4000, char(10)), {}};
    QByteArray file = writeAcs(character);
    QByteArray entry(12, '\0'); // image 0's list entry: its record's offset and size
    putU32(entry, 0, std::uint32_t(imageRecord(file, 0)));
    putU32(entry, 4, u32At(file, u32At(file, ImageListLocatorAt) + 8));
    const std::uint32_t list = std::uint32_t(file.size());
    constexpr std::uint32_t copies = 1000;
    file += QByteArray(4, '\0') + entry.repeated(copies);
    putU32(file, list, copies);
    putU32(file, ImageListLocatorAt, list);
    putU32(file, ImageListLocatorAt + 4, 4 + 12 * copies);
    expectError(file, "decoded data would exceed");
}
