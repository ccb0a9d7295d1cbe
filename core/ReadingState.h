#pragma once

class QString;
struct App;

// Whether a file or a long text is being read.
bool ReadingActive(const App& app);

// Enables the reading controls by whether a reading is active.
void UpdateReadingControls(App& app);

// The window caption of the reading in progress, as it stands while the reading runs.
QString ReadingCaption(const App& app);

// Pauses the reading in progress as the pause button does: the button offers to continue,
// the feeding of pieces stops and the caption says so. The piece already queued is spoken.
void PauseReading(App& app);
