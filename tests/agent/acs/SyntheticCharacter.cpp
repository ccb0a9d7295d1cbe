#include "SyntheticCharacter.h"

namespace agent::acs::testing
{

constexpr std::uint8_t Transparent = 10;

static Image makeImage(std::uint16_t width, std::uint16_t height, std::uint8_t seed)
{
    Image image;
    image.width = width;
    image.height = height;
    image.pixels.resize(qsizetype(image.stride()) * height);
    for (qsizetype i = 0; i < image.pixels.size(); ++i)
        image.pixels[i] = char((i * 7 + seed) % 3 == 0 ? Transparent : (i + seed) % 256);
    // An RGNDATA header with no rectangles: the region block is carried, not interpreted.
    image.region =
        QByteArray::fromHex("20000000010000000000000020000000") + QByteArray(16, char(seed));
    return image;
}

static QByteArray makeWave(int samples)
{
    QByteArray wave("RIFF....WAVEfmt ");
    wave += QByteArray::fromHex("10000000010001001f4000001f400000010008006461746100000000");
    for (int i = 0; i < samples; ++i)
        wave.append(char(128 + (i % 16) * 4));
    return wave;
}

static Frame plainFrame(std::uint32_t image, std::int16_t x, std::int16_t y, std::uint16_t duration)
{
    return {{{image, x, y}}, -1, duration, -2, {}, {}};
}

static Animation greet()
{
    Animation animation{u"Greet"_qs, Transition::ExitBranches, {}, {}};
    for (std::uint32_t i = 0; i < 4; ++i) {
        Frame frame = plainFrame(i % 3, std::int16_t(-3 * int(i)), 2, 10);
        frame.exitFrame = std::int16_t(int(i) - 1);
        animation.frames.push_back(frame);
    }
    animation.frames[0].exitFrame = 4;
    animation.frames[1].images.push_back({4, -7, -1});
    animation.frames[1].sound = 1;
    for (std::uint8_t mouth = 0; mouth < 7; ++mouth)
        animation.frames[3].overlays.push_back(
            {.mouth = Mouth(mouth),
             .replaceTopImage = mouth == 2,
             .image = std::uint16_t(5 + mouth % 2),
             .x = -2,
             .y = 4,
             .centerX = 31,
             .centerY = std::uint16_t(40 + mouth),
             .region = mouth == 6 ? QByteArray::fromHex("2000000001000000") : QByteArray()});
    animation.frames.push_back({{}, -1, 0, -1, {}, {}}); // blank and never shown: no duration
    return animation;
}

CharacterData syntheticCharacter(const SyntheticOptions& options)
{
    CharacterData character;
    character.guid.bytes = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    character.width = 37;
    character.height = 29;
    character.transparentIndex = Transparent;
    character.flags = flags::SystemCharacter | flags::BalloonSizeToText |
                      (options.voice ? flags::VoiceTts : flags::VoiceNone) |
                      (options.balloon ? flags::BalloonRoundRect : flags::BalloonNone);
    character.localizedInfo = {{0x0409, "Pim", u"A test character \U0001F600"_qs, "one^^two"},
                               {0x0007, "Pim", "Eine Testfigur", QString()}};
    if (options.voice) {
        character.voice =
            VoiceInfo{{}, {}, 157, 64, VoiceExtra{0x0409, "Standard", 2, 30, "Business"}};
        character.voice->engine.bytes.fill(0xAB);
    }
    if (options.balloon) {
        BalloonInfo balloon;
        balloon.text = QColor(1, 2, 3);
        balloon.border = QColor(200, 100, 50);
        balloon.fontName = QStringLiteral("Sans");
        balloon.fontWeight = 700;
        balloon.italic = true;
        character.balloon = balloon;
    }
    for (std::uint32_t i = 0; i < 256; ++i)
        character.palette.push_back((i << 16) | ((255 - i) << 8) | (i * 3 % 256));
    character.palette[Transparent] = 0x00FF00FF;
    character.trayIcon = TrayIconData{QByteArray(48, char(0x28)), QByteArray(104, char(0x11))};
    character.states = {
        {"SPEAKING", {"GREET"}}, {"IDLINGLEVEL1", {"IDLE1_1", "READ"}}, {"Hearing", {}}};
    Animation idle{u"Idle1_1"_qs,
                   Transition::None,
                   {},
                   {plainFrame(0, 0, 0, 15), plainFrame(3, 1, 0, 0), plainFrame(1, 0, 0, 20)}};
    idle.frames[1].branches = {{0, 30}, {2, 50}, {1, 20}};
    idle.frames[2].sound = 0;
    idle.frames[2].exitFrame = 2;
    Animation read{u"Read"_qs,
                   Transition::ReturnAnimation,
                   u"READRETURN"_qs,
                   {plainFrame(2, 0, 0, 10), plainFrame(0, 0, 0, 10)}};
    read.frames[1].branches = {{0, 100}};
    const Animation readReturn{u"ReadReturn"_qs, Transition::None, {}, {plainFrame(1, 0, 0, 10)}};
    character.animations = {greet(), idle, read, readReturn};

    const Image placeholder{false, 0, 0, {}, {}};
    character.images = {makeImage(37, 29, 1), makeImage(13, 7, 2), makeImage(1, 1, 3),
                        placeholder,          makeImage(6, 5, 4),  makeImage(37, 29, 5),
                        makeImage(253, 2, 6)};
    character.images[2].region.clear();
    character.sounds = {makeWave(300), makeWave(17)};
    return character;
}

} // namespace agent::acs::testing
