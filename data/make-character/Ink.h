#pragma once

#include <QColor>

// The character's colours. A dark outline around light fills keeps it readable on light and
// dark desktops alike; flat fills keep the palette small and the edges clean at 1x.
namespace lumo::ink
{

inline const QColor outline{0x23, 0x2d, 0x48};
inline const QColor body{0xa9, 0xdd, 0xf0};
inline const QColor bodyShade{0x84, 0xc0, 0xdb};
inline const QColor bodyLight{0xe1, 0xf5, 0xfc};
inline const QColor belly{0xec, 0xf9, 0xfc};
inline const QColor cheek{0xf6, 0xa7, 0xb7};
inline const QColor eyeShine{0xff, 0xff, 0xff};
inline const QColor mouth{0x7a, 0x2b, 0x3b};
inline const QColor tongue{0xf0, 0x7c, 0x8e};
inline const QColor bulb{0xff, 0xd4, 0x5a};
inline const QColor bulbGlow{0xff, 0xf3, 0xb0};
inline const QColor bookCover{0xd9, 0x5f, 0x4b};
inline const QColor page{0xff, 0xf8, 0xe6};
inline const QColor pageShade{0xea, 0xdf, 0xc4};
inline const QColor pageLine{0x9a, 0xa3, 0xb8};
inline const QColor puff{0xf4, 0xf8, 0xfb};
inline const QColor spark{0xff, 0xe0, 0x6a};

// Stroke width of every outline, in pixels of the 128 x 128 frame.
constexpr double outlineWidth = 2.4;

} // namespace lumo::ink
