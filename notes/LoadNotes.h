#pragma once

struct App;

// Rebuilds the table of schedule rows from Notes.cfg, and runs the reminder timer only when
// some note has its reminder on (Remind exactly 1). No file or an empty one is no error.
void LoadNotes(App& app);
