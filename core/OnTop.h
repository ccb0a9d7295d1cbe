#pragma once

struct App;

// Puts the main window above other windows and shows it (true), or takes it out of that band
// (false), without moving or resizing it. App::OnTop holds the state last given.
void SetOnTop(App& app, bool flag);

// A window over the main window goes: the tray's double click works again, and the main window
// returns to the top if the user asked for that.
void LeaveWindowOverMain(App& app);
