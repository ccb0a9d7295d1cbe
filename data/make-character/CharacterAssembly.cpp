#include "CharacterAssembly.h"

#include "Animations.h"
#include "PartLibrary.h"
#include "Parts.h"
#include "Quantizer.h"

namespace lumo
{
namespace
{

using namespace agent::acs;

constexpr std::uint16_t english = 0x0409;

// Fixed, so that every build of the character has the same identity.
constexpr Guid characterGuid{{0x6c, 0x75, 0x6d, 0x6f, 0x3a, 0x91, 0x4e, 0x2b, 0x9d, 0x07, 0x51,
                              0xc4, 0x8a, 0x2e, 0x13, 0xf6}};

std::vector<State> states()
{
    auto state = [](const char* name, std::initializer_list<const char*> animations) {
        State state{QLatin1String(name), {}};
        for (const char* animation : animations)
            state.animations << QLatin1String(animation);
        return state;
    };
    return {
        state("Showing", {"Show"}),
        state("Hiding", {"Hide"}),
        state("Speaking", {"RestPose"}),
        state("IdlingLevel1", {"Blink", "Idle1_1", "Idle1_2"}),
        state("IdlingLevel2", {"Blink", "Idle1_1", "Idle1_2", "Idle2_1"}),
        state("IdlingLevel3", {"Idle3_1"}),
        state("MovingLeft", {"MoveLeft"}),
        state("MovingRight", {"MoveRight"}),
        state("MovingUp", {"MoveUp"}),
        state("MovingDown", {"MoveDown"}),
    };
}

VoiceInfo voice()
{
    VoiceInfo voice;
    voice.speed = 160;
    voice.pitch = 120;
    voice.extra = VoiceExtra{english, QString(), 0, 12, QStringLiteral("Friendly")};
    return voice;
}

BalloonInfo balloon()
{
    BalloonInfo balloon;
    balloon.lines = 3;
    balloon.charsPerLine = 30;
    balloon.text = QColor(0x1f, 0x26, 0x33);
    balloon.background = QColor(0xfd, 0xfb, 0xee);
    balloon.border = QColor(0x23, 0x2d, 0x48);
    balloon.fontName = QStringLiteral("Sans Serif");
    balloon.fontHeight = -13;
    balloon.fontWeight = 400;
    return balloon;
}

} // namespace

PartLibrary drawParts()
{
    PartLibrary parts;
    addBodyParts(parts);
    addFaceParts(parts);
    addArmParts(parts);
    addPropParts(parts);
    addEffectParts(parts);
    return parts;
}

CharacterData assembleCharacter(const PartLibrary& parts)
{
    CharacterData character;
    character.guid = characterGuid;
    character.width = frameSize;
    character.height = frameSize;
    character.flags = flags::VoiceTts | flags::BalloonRoundRect;
    character.localizedInfo.push_back(
        {english, QStringLiteral("Lumo"),
         QStringLiteral("A small, cheerful sprite with a light on its antenna. Lumo greets you, "
                        "reads to you and keeps you company on the desktop."),
         QString()});
    character.voice = voice();
    character.balloon = balloon();
    character.states = states();

    for (const auto& group :
         {basicAnimations(parts), gestureAnimations(parts), readingAnimations(parts),
          idleAnimations(parts), movingAnimations(parts)})
        character.animations.insert(character.animations.end(), group.begin(), group.end());

    std::vector<QImage> pictures;
    for (const PartImage& part : parts.images())
        pictures.push_back(part.pixels);
    IndexedImages indexed = quantize(pictures);
    character.transparentIndex = transparentIndex;
    character.palette = std::move(indexed.palette);
    character.images = std::move(indexed.images);
    return character;
}

} // namespace lumo
