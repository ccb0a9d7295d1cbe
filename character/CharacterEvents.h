#pragma once

struct App;

// The button that shows or hides the character, and the character's events that keep the
// main window in step with it.
void cmdShow_Click(App& app);
void Agent1_Show(App& app);
void Agent1_Hide(App& app);
void Agent1_IdleStart(App& app);
void Agent1_Shutdown(App& app);
