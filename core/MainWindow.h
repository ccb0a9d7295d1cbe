#pragma once

struct App;

// The main window's own routines: the tray icon, showing and hiding the window, always on top
// and the web pages of its menus.
void CreateIcon(App& app);
void DeleteIcon(App& app);
// Hides the window; where the desktop has no tray to bring it back, minimizes it instead.
void HideMainWindow(App& app);
// Shows a hidden window or hides a shown one; a shown window comes back on top if it was.
void ToggleMainWindow(App& app);
void Command1_Click(App& app);
void mnuViewTop_Click(App& app);
void mnuFileAgent_Click(App& app);
void mnuFileInstall_Click(App& app);
void mnuFileDownload_Click(App& app);
void mnuAboutSite_Click(App& app);
