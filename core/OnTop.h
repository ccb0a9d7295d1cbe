#pragma once

struct App;

// Puts the main window above other windows and shows it (true), or takes it out of that band
// (false), without moving or resizing it. App::OnTop holds the state last given.
void SetOnTop(App& app, bool flag);
