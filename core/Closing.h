#pragma once

struct App;

// The unload of the main window: removes the tray icon (except while saving now) and saves
// the window values if the user asked for that.
void Form_Unload(App& app);
// Saves the window values at once; the window stays and so does the tray icon.
void mnuFileSavenow_Click(App& app);
// The orderly end: unloads the main window, then ends the program.
void mnuFileExit_Click(App& app);
