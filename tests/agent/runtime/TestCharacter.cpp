#include "TestCharacter.h"

#include <tuple>

namespace agent::runtime::testing
{

namespace
{

constexpr std::uint32_t Palette[] = {0x00FF00FF, 0x00FF0000, 0x0000FF00,
                                     0x000000FF, 0x00FFFFFF, 0x00000000};

} // namespace

QRgb rgba(Colour colour)
{
    return colour == Clear ? 0u : 0xFF000000u | Palette[colour];
}

acs::Image solidImage(int width, int height, Colour colour, bool hole)
{
    acs::Image image;
    image.width = std::uint16_t(width);
    image.height = std::uint16_t(height);
    image.pixels.fill(char(colour), qsizetype(image.stride()) * height);
    if (hole) {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width / 2; ++x)
                image.pixels[y * image.stride() + x] = char(Clear);
    }
    return image;
}

acs::Frame frame(std::initializer_list<acs::FrameImage> images, std::uint16_t duration)
{
    acs::Frame result;
    result.images = images;
    result.duration = duration;
    return result;
}

acs::Animation animation(const QString& name, std::vector<acs::Frame> frames,
                         acs::Transition transition)
{
    acs::Animation result;
    result.name = name;
    result.frames = std::move(frames);
    result.transition = transition;
    return result;
}

acs::CharacterData blankCharacter(int width, int height)
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

acs::CharacterData fullCharacter()
{
    acs::CharacterData character = blankCharacter();
    const auto imageOf = [](Colour colour) { return std::uint32_t(colour) - 1; };
    const auto colourFrame = [&imageOf](Colour colour, std::uint16_t duration = 1) {
        return frame({{imageOf(colour), 0, 0}}, duration);
    };
    const std::uint32_t mouthImage = std::uint32_t(character.images.size());
    character.images.push_back(solidImage(8, 8, Black));

    acs::Frame rest = frame({{imageOf(Blue), 0, 0}, {imageOf(White), 0, 0}});
    for (std::uint8_t mouth = 0; mouth < 7; ++mouth) {
        acs::Overlay overlay;
        overlay.mouth = acs::Mouth(mouth);
        overlay.image = std::uint16_t(mouthImage);
        overlay.x = 4;
        overlay.y = 4;
        rest.overlays.push_back(overlay);
    }
    rest.exitFrame = -1;

    acs::Animation loop = animation(QStringLiteral("Loop"),
                                    {colourFrame(Red), colourFrame(Green), colourFrame(Blue)});
    loop.frames[2].branches = {{0, 100}};
    for (acs::Frame& step : loop.frames)
        step.exitFrame = 3;

    character.animations = {
        animation(QStringLiteral("Show"), {colourFrame(Green), colourFrame(White)}),
        animation(QStringLiteral("Hide"), {colourFrame(White), colourFrame(Green)}),
        animation(QStringLiteral("RestPose"), {rest}),
        animation(QStringLiteral("Wave"), {colourFrame(Red), colourFrame(Blue)}),
        loop,
    };
    character.states = {{QStringLiteral("Showing"), {QStringLiteral("SHOW")}},
                        {QStringLiteral("Hiding"), {QStringLiteral("Hide")}},
                        {QStringLiteral("Speaking"), {QStringLiteral("RestPose")}}};
    const std::tuple<const char*, const char*, Colour> oneFrame[] = {
        {"IdlingLevel1", "Idle1", Red},      {"IdlingLevel2", "Idle2", Green},
        {"IdlingLevel3", "Idle3", Blue},     {"MovingLeft", "MoveLeft", Red},
        {"MovingRight", "MoveRight", Green}, {"MovingUp", "MoveUp", Blue},
        {"MovingDown", "MoveDown", Black},
    };
    for (const auto& [state, name, colour] : oneFrame) {
        character.animations.push_back(animation(QLatin1String(name), {colourFrame(colour)}));
        character.states.push_back({QLatin1String(state), {QLatin1String(name)}});
    }
    return character;
}

} // namespace agent::runtime::testing
