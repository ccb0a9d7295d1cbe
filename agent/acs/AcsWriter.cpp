#include "agent/acs/AcsFile.h"
#include "agent/acs/ByteWriter.h"
#include "agent/acs/CharacterInfoWriter.h"
#include "agent/acs/Compressor.h"
#include "agent/acs/CountLimit.h"
#include "agent/acs/FormatContext.h"

namespace agent::acs
{
namespace
{

constexpr std::uint32_t AcsSignature = 0xABCDABC3;
constexpr qsizetype CharacterInfoLocatorAt = 4;
constexpr qsizetype AnimationListLocatorAt = 12;
constexpr qsizetype ImageListLocatorAt = 20;
constexpr qsizetype AudioListLocatorAt = 28;

void writeOverlay(ByteWriter& out, const Overlay& overlay)
{
    out.u8(std::uint8_t(overlay.mouth));
    out.u8(overlay.replaceTopImage ? 1 : 0);
    out.u16(overlay.image);
    out.u8(0);
    out.u8(overlay.region.isEmpty() ? 0 : 1);
    out.u16(std::uint16_t(overlay.x));
    out.u16(std::uint16_t(overlay.y));
    out.u16(overlay.centerX);
    out.u16(overlay.centerY);
    if (!overlay.region.isEmpty())
        out.dataBlock(overlay.region);
}

void writeFrame(ByteWriter& out, const Frame& frame)
{
    out.u16(countFor<std::uint16_t>(frame.images.size(), "frame images"));
    for (const FrameImage& image : frame.images) {
        out.u32(image.image);
        out.u16(std::uint16_t(image.x));
        out.u16(std::uint16_t(image.y));
    }
    out.u16(std::uint16_t(frame.sound));
    out.u16(frame.duration);
    out.u16(std::uint16_t(frame.exitFrame));
    out.u8(countFor<std::uint8_t>(frame.branches.size(), "branches"));
    for (const Branch& branch : frame.branches) {
        out.u16(branch.frame);
        out.u16(branch.probability);
    }
    out.u8(countFor<std::uint8_t>(frame.overlays.size(), "mouth overlays"));
    for (const Overlay& overlay : frame.overlays)
        writeOverlay(out, overlay);
}

Locator writeAnimation(ByteWriter& out, const Animation& animation)
{
    const std::uint32_t start = out.position();
    out.string(animation.name);
    out.u8(std::uint8_t(animation.transition));
    out.string(animation.returnAnimation);
    out.u16(countFor<std::uint16_t>(animation.frames.size(), "frames"));
    for (const Frame& frame : animation.frames)
        writeFrame(out, frame);
    return out.since(start);
}

Locator writeImage(ByteWriter& out, const Image& image, bool compressed)
{
    const std::uint32_t start = out.position();
    if (!image.present) {
        out.u8(0);
        return out.since(start);
    }
    const qsizetype pixelBytes = qsizetype(image.stride()) * image.height;
    if (image.pixels.size() != pixelBytes)
        failFormat(QStringLiteral("%1 pixel bytes for a %2 x %3 image, which needs %4")
                       .arg(image.pixels.size())
                       .arg(image.width)
                       .arg(image.height)
                       .arg(pixelBytes));
    out.u8(1);
    out.u16(image.width);
    out.u16(image.height);
    out.u8(compressed ? 1 : 0);
    out.dataBlock(compressed ? compress(image.pixels) : image.pixels);
    if (compressed && !image.region.isEmpty()) {
        const QByteArray region = compress(image.region);
        out.u32(std::uint32_t(region.size()));
        out.u32(std::uint32_t(image.region.size()));
        out.bytes(region);
    } else {
        out.u32(0);
        out.u32(std::uint32_t(image.region.size()));
        out.bytes(image.region);
    }
    return out.since(start);
}

void writeLocatorList(ByteWriter& out, const std::vector<Locator>& entries, const char* what)
{
    out.u32(countFor<std::uint32_t>(entries.size(), what));
    for (const Locator& entry : entries) {
        out.locator(entry);
        out.u32(0);
    }
}

} // namespace

QByteArray writeAcs(const CharacterData& character, const WriteOptions& options)
{
    ByteWriter out;
    out.u32(AcsSignature);
    for (int i = 0; i < 4; ++i)
        out.locator({});

    std::vector<Locator> animations;
    for (const Animation& animation : character.animations)
        animations.push_back(withContext(QStringLiteral("animation \"%1\"").arg(animation.name),
                                         [&] { return writeAnimation(out, animation); }));
    std::vector<Locator> images;
    for (std::size_t i = 0; i < character.images.size(); ++i)
        images.push_back(withContext(QStringLiteral("image %1").arg(i), [&] {
            return writeImage(out, character.images[i], options.compressImages);
        }));
    std::vector<Locator> sounds;
    for (const QByteArray& sound : character.sounds) {
        const std::uint32_t start = out.position();
        out.bytes(sound);
        sounds.push_back(out.since(start));
    }

    std::uint32_t start = out.position();
    out.u32(countFor<std::uint32_t>(animations.size(), "animations"));
    for (std::size_t i = 0; i < animations.size(); ++i) {
        out.string(character.animations[i].name);
        out.locator(animations[i]);
    }
    out.patchLocator(AnimationListLocatorAt, out.since(start));

    start = out.position();
    writeLocatorList(out, images, "images");
    out.patchLocator(ImageListLocatorAt, out.since(start));

    start = out.position();
    writeLocatorList(out, sounds, "sounds");
    out.patchLocator(AudioListLocatorAt, out.since(start));

    out.patchLocator(CharacterInfoLocatorAt, writeCharacterInfo(out, character));
    return out.data();
}

} // namespace agent::acs
