#include "agent/acs/CharacterInfoReader.h"

#include "agent/acs/FormatContext.h"

namespace agent::acs
{
namespace
{

// Bytes that every list item takes at least, so counts can be checked before allocating.
constexpr qsizetype MinLocalizedInfoBytes = 2 + 3 * 4;
constexpr qsizetype MinStateBytes = 4 + 2;
constexpr qsizetype MinStringBytes = 4;

QColor readColorRef(ByteReader& in)
{
    const std::uint8_t red = in.u8();
    const std::uint8_t green = in.u8();
    const std::uint8_t blue = in.u8();
    in.u8();
    return QColor(red, green, blue);
}

VoiceInfo readVoice(ByteReader& in)
{
    VoiceInfo voice;
    voice.engine = in.guid();
    voice.mode = in.guid();
    voice.speed = in.u32();
    voice.pitch = in.u16();
    if (in.u8() != 0) {
        VoiceExtra extra;
        extra.language = in.u16();
        extra.dialect = in.string();
        extra.gender = in.u16();
        extra.age = in.u16();
        extra.style = in.string();
        voice.extra = extra;
    }
    return voice;
}

BalloonInfo readBalloon(ByteReader& in)
{
    BalloonInfo balloon;
    balloon.lines = in.u8();
    balloon.charsPerLine = in.u8();
    balloon.text = readColorRef(in);
    balloon.background = readColorRef(in);
    balloon.border = readColorRef(in);
    balloon.fontName = in.string();
    balloon.fontHeight = in.i32();
    balloon.fontWeight = in.u16();
    balloon.strikeOut = in.u16() != 0;
    balloon.italic = in.u8() != 0;
    in.u8();
    return balloon;
}

std::vector<std::uint32_t> readPalette(ByteReader& in)
{
    const std::uint32_t count = in.u32();
    in.checkCount(count, 4, "palette entries");
    std::vector<std::uint32_t> palette;
    palette.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t blue = in.u8();
        const std::uint32_t green = in.u8();
        const std::uint32_t red = in.u8();
        in.u8();
        palette.push_back((red << 16) | (green << 8) | blue);
    }
    return palette;
}

std::vector<State> readStates(ByteReader& in)
{
    const std::uint16_t count = in.u16();
    in.checkCount(count, MinStateBytes, "states");
    std::vector<State> states(count);
    for (State& state : states) {
        state.name = in.string();
        const std::uint16_t names = in.u16();
        in.checkCount(names, MinStringBytes, "animation names");
        for (std::uint16_t i = 0; i < names; ++i)
            state.animations.append(in.string());
    }
    return states;
}

std::vector<LocalizedInfo> readLocalizedInfo(ByteReader in)
{
    const std::uint16_t count = in.u16();
    in.checkCount(count, MinLocalizedInfoBytes, "localized infos");
    std::vector<LocalizedInfo> infos(count);
    for (LocalizedInfo& info : infos) {
        info.language = in.u16();
        info.name = in.string();
        info.description = in.string();
        info.extraData = in.string();
    }
    return infos;
}

} // namespace

void readCharacterInfo(QByteArrayView file, Locator block, CharacterData& character)
{
    ByteReader in = ByteReader::at(file, block);
    character.minorVersion = in.u16();
    character.majorVersion = in.u16();
    const Locator localized = in.locator();
    character.guid = in.guid();
    character.width = in.u16();
    character.height = in.u16();
    character.transparentIndex = in.u8();
    character.flags = in.u32();
    character.unknown = in.u32();
    if (character.flags & flags::VoiceTts)
        character.voice = withContext(QStringLiteral("voice info"), [&] { return readVoice(in); });
    if (character.flags & flags::BalloonRoundRect)
        character.balloon =
            withContext(QStringLiteral("balloon info"), [&] { return readBalloon(in); });
    character.palette = withContext(QStringLiteral("palette"), [&] { return readPalette(in); });
    withContext(QStringLiteral("tray icon"), [&] {
        if (in.u8() != 0) {
            TrayIconData icon;
            icon.mask = in.dataBlock();
            icon.color = in.dataBlock();
            character.trayIcon = icon;
        }
    });
    character.states = withContext(QStringLiteral("state list"), [&] { return readStates(in); });
    character.localizedInfo = withContext(QStringLiteral("localized info"), [&] {
        return readLocalizedInfo(ByteReader::at(file, localized));
    });
}

} // namespace agent::acs
