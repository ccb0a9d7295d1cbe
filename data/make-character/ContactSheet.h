#pragma once

#include "agent/acs/CharacterData.h"

#include <QColor>
#include <QImage>

namespace lumo
{

// Every frame of every animation, one animation per row, on the given background, with the
// frame durations; a last row shows the speaking pose with each of its mouths. For looking
// at the art, on a light and on a dark desktop colour.
QImage contactSheet(const agent::acs::CharacterData& character, const QColor& background);

} // namespace lumo
