#pragma once

#include <QString>

// The voice tags that SayText puts before every line, each whole with both backslashes.
inline QString PitchTagOf(int value)
{
    return QStringLiteral("\\pit=%1\\").arg(value);
}
inline QString SpeedTagOf(int value)
{
    return QStringLiteral("\\spd=%1\\").arg(value);
}
inline QString VolumeTagOf(int value)
{
    return QStringLiteral("\\vol=%1\\").arg(value);
}
