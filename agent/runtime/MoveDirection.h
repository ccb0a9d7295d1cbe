#pragma once

#include <QPoint>
#include <QString>

namespace agent::runtime
{

// The Moving state for a move between two top-left corners, along the longer axis. Left and
// right are the character's own, and it faces the viewer: going right on screen is MovingLeft.
QString movingState(QPoint from, QPoint to);

} // namespace agent::runtime
