#include "agent/acs/AcsFile.h"
#include "agent/acs/AnimationReader.h"
#include "agent/acs/ByteReader.h"
#include "agent/acs/CharacterInfoReader.h"
#include "agent/acs/DecodeBudget.h"
#include "agent/acs/FormatContext.h"
#include "agent/acs/ImageReader.h"

namespace agent::acs
{
namespace
{

constexpr std::uint32_t AcsSignature = 0xABCDABC3;
constexpr qsizetype HeaderBytes = 36;
constexpr qsizetype ListEntryBytes = 12;
constexpr qsizetype MinAnimationEntryBytes = 4 + 8;
// Parsed frames take several times the bytes they occupy in the file.
constexpr qsizetype AnimationMemoryPerFileByte = 8;

void checkSignature(std::uint32_t signature)
{
    switch (signature) {
    case AcsSignature:
        return;
    case 0xABCDABC4:
    case 0xABCDABC2:
        failFormat(QStringLiteral("unsupported format: a web character (ACF) file, not an ACS "
                                  "character file"));
    case 0xABCDABC1:
        failFormat(QStringLiteral("unsupported format: 1.5-era character data"));
    case 0xE011CFD0:
        failFormat(QStringLiteral("unsupported format: an OLE compound file (a 1.5-era "
                                  "character)"));
    default:
        failFormat(QStringLiteral("not a character file (signature 0x%1)")
                       .arg(signature, 8, 16, QLatin1Char('0')));
    }
}

// Reads a ULONG-counted list of (locator, checksum) entries.
std::vector<Locator> readLocatorList(ByteReader in)
{
    const std::uint32_t count = in.u32();
    in.checkCount(count, ListEntryBytes, "entries");
    std::vector<Locator> entries(count);
    for (Locator& entry : entries) {
        entry = in.locator();
        in.u32();
    }
    return entries;
}

std::vector<Animation> readAnimations(QByteArrayView file, Locator list, DecodeBudget& budget)
{
    ByteReader in = ByteReader::at(file, list);
    const std::uint32_t count = in.u32();
    in.checkCount(count, MinAnimationEntryBytes, "animations");
    std::vector<Animation> animations;
    animations.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        const QString name = in.string();
        const Locator block = in.locator();
        animations.push_back(
            withContext(QStringLiteral("animation %1 \"%2\"").arg(i).arg(name), [&] {
                ByteReader blockReader = ByteReader::at(file, block);
                budget.charge(qsizetype(block.size) * AnimationMemoryPerFileByte);
                return readAnimation(blockReader, name);
            }));
    }
    return animations;
}

std::vector<Image> readImages(QByteArrayView file, Locator list, DecodeBudget& budget)
{
    const std::vector<Locator> records = readLocatorList(ByteReader::at(file, list));
    std::vector<Image> images;
    images.reserve(records.size());
    for (std::size_t i = 0; i < records.size(); ++i)
        images.push_back(withContext(QStringLiteral("image %1").arg(i),
                                     [&] { return readImage(file, records[i], budget); }));
    return images;
}

std::vector<QByteArray> readSounds(QByteArrayView file, Locator list, DecodeBudget& budget)
{
    const std::vector<Locator> records = readLocatorList(ByteReader::at(file, list));
    std::vector<QByteArray> sounds;
    sounds.reserve(records.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
        withContext(QStringLiteral("sound %1").arg(i), [&] {
            ByteReader in = ByteReader::at(file, records[i]);
            budget.charge(in.remaining());
            sounds.push_back(in.bytes(in.remaining()));
        });
    }
    return sounds;
}

// Consumers index the image and audio lists with these values directly, so a file whose
// frames point outside the lists is refused here rather than crashing a renderer later.
void checkReferences(const CharacterData& character)
{
    const std::size_t imageCount = character.images.size();
    const std::size_t soundCount = character.sounds.size();
    auto checkImage = [&](std::uint32_t image) {
        if (image >= imageCount)
            failFormat(
                QStringLiteral("image %1 out of range (%2 images)").arg(image).arg(imageCount));
    };
    for (std::size_t a = 0; a < character.animations.size(); ++a) {
        const Animation& animation = character.animations[a];
        withContext(QStringLiteral("animation %1 \"%2\"").arg(a).arg(animation.name), [&] {
            for (std::size_t f = 0; f < animation.frames.size(); ++f) {
                const Frame& frame = animation.frames[f];
                withContext(QStringLiteral("frame %1").arg(f), [&] {
                    for (const FrameImage& image : frame.images)
                        checkImage(image.image);
                    for (const Overlay& overlay : frame.overlays)
                        checkImage(overlay.image);
                    if (frame.sound < -1 ||
                        (frame.sound >= 0 && std::size_t(frame.sound) >= soundCount))
                        failFormat(QStringLiteral("sound %1 out of range (%2 sounds)")
                                       .arg(frame.sound)
                                       .arg(soundCount));
                });
            }
        });
    }
}

} // namespace

CharacterData readAcs(const QByteArray& file)
{
    ByteReader header(file);
    if (file.size() < 4)
        failFormat(
            QStringLiteral("file of %1 bytes is too short for a character file").arg(file.size()));
    checkSignature(header.u32());
    if (file.size() < HeaderBytes)
        failFormat(QStringLiteral("header: file of %1 bytes ends inside the %2-byte header")
                       .arg(file.size())
                       .arg(HeaderBytes));
    const Locator characterInfo = header.locator();
    const Locator animationList = header.locator();
    const Locator imageList = header.locator();
    const Locator audioList = header.locator();

    CharacterData character;
    DecodeBudget budget(file.size());
    withContext(QStringLiteral("character info"),
                [&] { readCharacterInfo(file, characterInfo, character); });
    character.animations = withContext(QStringLiteral("animation list"),
                                       [&] { return readAnimations(file, animationList, budget); });
    character.images = withContext(QStringLiteral("image list"),
                                   [&] { return readImages(file, imageList, budget); });
    character.sounds = withContext(QStringLiteral("audio list"),
                                   [&] { return readSounds(file, audioList, budget); });
    checkReferences(character);
    return character;
}

} // namespace agent::acs
