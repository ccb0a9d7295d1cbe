#pragma once

#include <QPixmap>

// The two phases of the about window's animation: the character's face, then the same face
// winking with its mouth open.
QPixmap AboutPicture(int phase);
