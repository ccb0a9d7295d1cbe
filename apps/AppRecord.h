#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>

// One application of Apps.cfg, with its texts free of the blanks that fill their fields.
struct AppRecord {
    QString Title;
    QString Voice;
    QString Path;
    std::int16_t ShowInPopup = 0;
    std::int16_t VoiceActivated = 0;

    bool operator==(const AppRecord&) const = default;
};

// The record on disk: title 50, voice 50, path 255 bytes of Windows-1252 filled with blanks,
// then the two flags as little-endian 16-bit integers.
namespace AppRecordLayout
{
constexpr int TitleWidth = 50;
constexpr int VoiceWidth = 50;
constexpr int PathWidth = 255;
constexpr int FlagsOffset = TitleWidth + VoiceWidth + PathWidth;
constexpr int Length = FlagsOffset + 4;
} // namespace AppRecordLayout

QByteArray EncodeAppRecord(const AppRecord& record);
// Bytes missing at the end of a short record read as blanks in the texts and 0 in the flags.
AppRecord DecodeAppRecord(const QByteArray& bytes);
