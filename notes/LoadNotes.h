#pragma once

struct App;

// Reads Notes.cfg into the table of schedule rows.
void LoadNotes(App& app);
