#pragma once

struct App;

// Connects the main window's signals and the character control's events to the subsystems'
// routines, and sets the hooks through which a lower folder calls a higher one. This is the
// one place that knows every subsystem.
void WireProgram(App& app);
// From here on the system's request to end and the session's end take the orderly routes that
// save; before it, the window does not hold the user's values yet.
void WatchEndRequests(App& app);
