#pragma once

struct App;

// Reads Apps.cfg into the character's commands and the table of paths.
void LoadApps(App& app);
