#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

// A character file in memory, as its structures stand in the file. Indexes are 0-based.
namespace agent::acs
{

struct Guid {
    std::array<std::uint8_t, 16> bytes{};

    bool operator==(const Guid&) const = default;
};

struct LocalizedInfo {
    std::uint16_t language = 0;
    QString name;
    QString description;
    QString extraData;

    bool operator==(const LocalizedInfo&) const = default;
};

struct VoiceExtra {
    std::uint16_t language = 0;
    QString dialect;
    std::uint16_t gender = 0;
    std::uint16_t age = 0;
    QString style;

    bool operator==(const VoiceExtra&) const = default;
};

struct VoiceInfo {
    Guid engine;
    Guid mode;
    std::uint32_t speed = 0xFFFFFFFFu; // words per minute; all ones: engine default
    std::uint16_t pitch = 0xFFFF;      // Hz; 0xFFFF: engine default
    std::optional<VoiceExtra> extra;

    bool operator==(const VoiceInfo&) const = default;
};

struct BalloonInfo {
    std::uint8_t lines = 2;
    std::uint8_t charsPerLine = 28;
    QColor text = Qt::black;
    QColor background = QColor(255, 255, 225);
    QColor border = Qt::black;
    QString fontName = QStringLiteral("Sans Serif");
    std::int32_t fontHeight = -13;
    std::uint16_t fontWeight = 400;
    bool strikeOut = false;
    bool italic = false;

    bool operator==(const BalloonInfo&) const = default;
};

struct TrayIconData {
    QByteArray mask;  // header-less 1-bpp DIB
    QByteArray color; // header-less colour DIB

    bool operator==(const TrayIconData&) const = default;
};

struct State {
    QString name;
    QStringList animations;

    bool operator==(const State&) const = default;
};

struct FrameImage {
    std::uint32_t image = 0;
    std::int16_t x = 0;
    std::int16_t y = 0;

    bool operator==(const FrameImage&) const = default;
};

struct Branch {
    std::uint16_t frame = 0;
    std::uint16_t probability = 0; // percent

    bool operator==(const Branch&) const = default;
};

enum class Mouth : std::uint8_t {
    Closed = 0,
    OpenWide1 = 1,
    OpenWide2 = 2,
    OpenWide3 = 3,
    OpenWide4 = 4,
    OpenMedium = 5,
    OpenNarrow = 6
};

struct Overlay {
    Mouth mouth = Mouth::Closed;
    bool replaceTopImage = false;
    std::uint16_t image = 0;
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t centerX = 0;
    std::uint16_t centerY = 0;
    QByteArray region; // RGNDATA, empty when absent

    bool operator==(const Overlay&) const = default;
};

struct Frame {
    std::vector<FrameImage> images;
    std::int16_t sound = -1;     // index into the audio list; -1 none
    std::uint16_t duration = 10; // 1/100 s
    std::int16_t exitFrame = -2; // negative: no exit branch
    std::vector<Branch> branches;
    std::vector<Overlay> overlays;

    bool operator==(const Frame&) const = default;
};

enum class Transition : std::uint8_t { ReturnAnimation = 0, ExitBranches = 1, None = 2 };

struct Animation {
    QString name; // the name of the animation list, the canonical key
    Transition transition = Transition::None;
    QString returnAnimation;
    std::vector<Frame> frames;

    bool operator==(const Animation&) const = default;
};

// An image as stored: 8-bit palette indexes, rows bottom-up, each padded to 4 bytes.
struct Image {
    bool present = true;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    QByteArray pixels; // decompressed, stride * height bytes
    QByteArray region; // decompressed RGNDATA, may be empty

    int stride() const { return (width + 3) & ~3; }

    bool operator==(const Image&) const = default;
};

struct CharacterData {
    std::uint16_t minorVersion = 1;
    std::uint16_t majorVersion = 2;
    Guid guid;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint8_t transparentIndex = 0;
    std::uint32_t flags = 0;
    std::uint32_t unknown = 2;
    std::vector<LocalizedInfo> localizedInfo;
    std::optional<VoiceInfo> voice;     // flags & 0x20
    std::optional<BalloonInfo> balloon; // flags & 0x200
    std::vector<std::uint32_t> palette; // 0x00RRGGBB
    std::optional<TrayIconData> trayIcon;
    std::vector<State> states;
    std::vector<Animation> animations;
    std::vector<Image> images;
    std::vector<QByteArray> sounds; // complete RIFF/WAVE files

    bool operator==(const CharacterData&) const = default;
};

namespace flags
{
constexpr std::uint32_t VoiceNone = 0x00000010;
constexpr std::uint32_t VoiceTts = 0x00000020;
constexpr std::uint32_t BalloonNone = 0x00000100;
constexpr std::uint32_t BalloonRoundRect = 0x00000200;
constexpr std::uint32_t BalloonSizeToText = 0x00010000;
constexpr std::uint32_t BalloonNoAutoHide = 0x00020000;
constexpr std::uint32_t BalloonNoAutoPace = 0x00040000;
constexpr std::uint32_t SystemCharacter = 0x00100000;
} // namespace flags

} // namespace agent::acs
