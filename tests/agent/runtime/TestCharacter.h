#pragma once

#include "agent/acs/CharacterData.h"
#include "platform/Agent.h"

#include <QColor>
#include <QTest>
#include <initializer_list>
#include <tuple>
#include <vector>

// Characters built in memory for the runtime and engine tests, with a few plain colours so
// that a test can tell from one pixel which layer it sees, and waits on their requests.
namespace agent::runtime::testing
{

enum Colour : std::uint8_t { Clear = 0, Red = 1, Green = 2, Blue = 3, White = 4, Black = 5 };

inline constexpr std::uint32_t Palette[] = {0x00FF00FF, 0x00FF0000, 0x0000FF00,
                                            0x000000FF, 0x00FFFFFF, 0x00000000};

inline QRgb rgba(Colour colour)
{
    return colour == Clear ? 0u : 0xFF000000u | Palette[colour];
}

inline acs::Image solidImage(int width, int height, Colour colour)
{
    acs::Image image;
    image.width = std::uint16_t(width);
    image.height = std::uint16_t(height);
    image.pixels.fill(char(colour), qsizetype(image.stride()) * height);
    return image;
}

inline acs::Frame frame(std::initializer_list<acs::FrameImage> images, std::uint16_t duration = 1)
{
    return {images, -1, duration, -2, {}, {}};
}

inline acs::Animation animation(const QString& name, std::vector<acs::Frame> frames,
                                acs::Transition transition = acs::Transition::None)
{
    return {name, transition, {}, std::move(frames)};
}

// A character with the palette and one image of each colour (index = colour - 1, full size)
// and no animations.
inline acs::CharacterData blankCharacter(int width = 32, int height = 32)
{
    acs::CharacterData character;
    character.width = std::uint16_t(width);
    character.height = std::uint16_t(height);
    character.transparentIndex = Clear;
    character.palette.assign(std::begin(Palette), std::end(Palette));
    character.palette.resize(256, 0);
    for (Colour colour : {Red, Green, Blue, White, Black})
        character.images.push_back(solidImage(width, height, colour));
    character.localizedInfo = {{0x0409, QStringLiteral("Testy"), {}, {}}};
    return character;
}

// blankCharacter with animations for every state the runtime uses:
// "Show" (Showing), "Hide" (Hiding), "RestPose" (Speaking; Blue over White, overlays for every
// mouth: image Black at (4, 4) 8x8), "Idle1".."Idle3" (IdlingLevel1..3), "MoveLeft".."MoveDown"
// (MovingLeft..MovingDown), "Wave" and "Loop" (a 100 % branch back to its first frame, exit
// branches to its end). States name their animations in upper case.
inline acs::CharacterData fullCharacter()
{
    acs::CharacterData character = blankCharacter();
    const std::tuple<const char*, const char*, std::vector<Colour>> plain[] = {
        {"Showing", "Show", {Green, White}},
        {"Hiding", "Hide", {White, Green}},
        {"", "Wave", {Red, Blue}},
        {"", "Loop", {Red, Green, Blue}},
        {"IdlingLevel1", "Idle1", {Red}},
        {"IdlingLevel2", "Idle2", {Green}},
        {"IdlingLevel3", "Idle3", {Blue}},
        {"MovingLeft", "MoveLeft", {Red}},
        {"MovingRight", "MoveRight", {Green}},
        {"MovingUp", "MoveUp", {Blue}},
        {"MovingDown", "MoveDown", {Black}},
    };
    for (const auto& [state, name, colours] : plain) {
        std::vector<acs::Frame> frames;
        for (const Colour colour : colours)
            frames.push_back(frame({{std::uint32_t(colour) - 1, 0, 0}}));
        character.animations.push_back(animation(QLatin1String(name), frames));
        if (*state)
            character.states.push_back(
                {QLatin1String(state), {QString::fromLatin1(name).toUpper()}});
    }
    acs::Animation& loop = character.animations[3];
    loop.frames[2].branches = {{0, 100}};
    for (acs::Frame& step : loop.frames)
        step.exitFrame = 3;

    acs::Frame rest = frame({{Blue - 1, 0, 0}, {White - 1, 0, 0}});
    character.images.push_back(solidImage(8, 8, Black)); // image 5, after the five colours
    for (std::uint8_t mouth = 0; mouth < 7; ++mouth)
        rest.overlays.push_back({acs::Mouth(mouth), false, 5, 4, 4, 0, 0, {}});
    character.animations.push_back(animation(QStringLiteral("RestPose"), {rest}));
    character.states.push_back({QStringLiteral("Speaking"), {QStringLiteral("RestPose")}});
    return character;
}

// True once the request has run: complete, failed or interrupted.
inline bool isFinished(const platform::Request& request)
{
    const int status = request->Status();
    return status != platform::AgentRequest::Pending &&
           status != platform::AgentRequest::InProgress;
}

inline bool waitFinished(const platform::Request& request, int timeoutMs = 5000)
{
    return QTest::qWaitFor([&request] { return isFinished(request); }, timeoutMs);
}

} // namespace agent::runtime::testing
