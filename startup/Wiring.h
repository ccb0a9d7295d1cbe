#pragma once

struct App;

// Connects the main window's signals and the character control's events to the subsystems'
// routines, and sets the hooks through which a lower folder calls a higher one. This is the
// one place that knows every subsystem.
void WireProgram(App& app);
