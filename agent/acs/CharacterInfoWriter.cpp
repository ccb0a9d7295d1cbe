#include "agent/acs/CharacterInfoWriter.h"

#include "agent/acs/CountLimit.h"

namespace agent::acs
{
namespace
{

constexpr qsizetype LocalizedLocatorOffset = 4;

std::uint32_t storedFlags(const CharacterData& character)
{
    std::uint32_t result = character.flags & ~(flags::VoiceTts | flags::BalloonRoundRect);
    if (character.voice)
        result |= flags::VoiceTts;
    if (character.balloon)
        result |= flags::BalloonRoundRect;
    return result;
}

void writeColorRef(ByteWriter& out, const QColor& color)
{
    out.u8(std::uint8_t(color.red()));
    out.u8(std::uint8_t(color.green()));
    out.u8(std::uint8_t(color.blue()));
    out.u8(0);
}

void writeVoice(ByteWriter& out, const VoiceInfo& voice)
{
    out.guid(voice.engine);
    out.guid(voice.mode);
    out.u32(voice.speed);
    out.u16(voice.pitch);
    out.u8(voice.extra ? 1 : 0);
    if (voice.extra) {
        out.u16(voice.extra->language);
        out.string(voice.extra->dialect);
        out.u16(voice.extra->gender);
        out.u16(voice.extra->age);
        out.string(voice.extra->style);
    }
}

void writeBalloon(ByteWriter& out, const BalloonInfo& balloon)
{
    out.u8(balloon.lines);
    out.u8(balloon.charsPerLine);
    writeColorRef(out, balloon.text);
    writeColorRef(out, balloon.background);
    writeColorRef(out, balloon.border);
    out.string(balloon.fontName);
    out.u32(std::uint32_t(balloon.fontHeight));
    out.u16(balloon.fontWeight);
    out.u16(balloon.strikeOut ? 1 : 0);
    out.u8(balloon.italic ? 1 : 0);
    out.u8(0);
}

void writePalette(ByteWriter& out, const std::vector<std::uint32_t>& palette)
{
    out.u32(countFor<std::uint32_t>(palette.size(), "palette entries"));
    for (std::uint32_t rgb : palette) {
        out.u8(std::uint8_t(rgb));
        out.u8(std::uint8_t(rgb >> 8));
        out.u8(std::uint8_t(rgb >> 16));
        out.u8(0);
    }
}

void writeStates(ByteWriter& out, const std::vector<State>& states)
{
    out.u16(countFor<std::uint16_t>(states.size(), "states"));
    for (const State& state : states) {
        out.string(state.name);
        out.u16(countFor<std::uint16_t>(std::size_t(state.animations.size()), "state animations"));
        for (const QString& name : state.animations)
            out.string(name);
    }
}

void writeLocalizedInfo(ByteWriter& out, const std::vector<LocalizedInfo>& infos)
{
    out.u16(countFor<std::uint16_t>(infos.size(), "localized infos"));
    for (const LocalizedInfo& info : infos) {
        out.u16(info.language);
        out.string(info.name);
        out.string(info.description);
        out.string(info.extraData);
    }
}

} // namespace

Locator writeCharacterInfo(ByteWriter& out, const CharacterData& character)
{
    const std::uint32_t start = out.position();
    out.u16(character.minorVersion);
    out.u16(character.majorVersion);
    out.locator({});
    out.guid(character.guid);
    out.u16(character.width);
    out.u16(character.height);
    out.u8(character.transparentIndex);
    out.u32(storedFlags(character));
    out.u32(character.unknown);
    if (character.voice)
        writeVoice(out, *character.voice);
    if (character.balloon)
        writeBalloon(out, *character.balloon);
    writePalette(out, character.palette);
    out.u8(character.trayIcon ? 1 : 0);
    if (character.trayIcon) {
        out.dataBlock(character.trayIcon->mask);
        out.dataBlock(character.trayIcon->color);
    }
    writeStates(out, character.states);
    const std::uint32_t localizedStart = out.position();
    writeLocalizedInfo(out, character.localizedInfo);
    out.patchLocator(start + LocalizedLocatorOffset, out.since(localizedStart));
    return out.since(start);
}

} // namespace agent::acs
