#pragma once

struct App;

// Turns the stored settings into the state of the main window, the voice tags and the
// character, at start-up.
void LoadSettings(App& app);
