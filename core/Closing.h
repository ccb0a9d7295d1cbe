#pragma once

struct App;

// Why the main window is asked to unload, numbered as the unload events are given it.
enum class UnloadMode {
    FormControlMenu = 0, // the close box or the window menu
    FormCode = 1,        // the program's own exit
    AppWindows = 2,      // the desktop session ends
    AppTaskManager = 3,  // the system asks the program to end
};

// Before the unload. The close box refuses it and only hides the window (gives true); the
// system's request to end hides the character first.
bool Form_QueryUnload(App& app, UnloadMode mode);
// The unload of the main window: removes the tray icon (except while saving now) and saves
// the window values if the user asked for that.
void Form_Unload(App& app);
// Saves the window values at once; the window stays and so does the tray icon.
void mnuFileSavenow_Click(App& app);
// The orderly ends: the unload's events for that mode, then the end of the program.
void UnloadAndEnd(App& app, UnloadMode mode);
void mnuFileExit_Click(App& app);
