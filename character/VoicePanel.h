#pragma once

struct App;

// The voice panel of the main window: the sliders rebuild their voice tags, the defaults
// button restores the character's own voice, and the menu shows or hides the panel.
void cmdDefaults_Click(App& app);
void sdrPitch_Change(App& app);
void sdrSpeed_Change(App& app);
void sdrVolume_Change(App& app);
void mnuViewVoice_Click(App& app);
