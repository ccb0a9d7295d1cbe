#pragma once

#include <QtGlobal>

struct App;

// A piece handed to speech has at most this many characters.
inline constexpr int PieceLimit = 200;

// Moves the next piece from LineBuffer into the main window's ChunkText, which is empty on
// entry: up to 200 characters, ending early at the first space after position 180.
void TakeChunk(App& app);

// Adds ChunkText to the progress, keeping the bar within its maximum.
void AdvanceProgress(App& app);

// Sizes the progress bar for a source of length units: one unit each up to 32700, scaled
// down to 32700 beyond that, plus the margin.
void ScaleProgress(App& app, qint64 length, int margin);
