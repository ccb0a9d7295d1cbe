#pragma once

#include <QImage>

namespace lumo
{

class PartLibrary;

// The program icon: the character's friendly face, drawn from the same art at full quality
// (smooth edges, no palette) at size x size pixels.
QImage paintIcon(const PartLibrary& parts, int size);

} // namespace lumo
