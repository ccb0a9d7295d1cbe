#pragma once

#include <QString>

struct App;
class QSlider;

// The voice panel of the main window: the sliders rebuild their voice tags, the defaults
// button restores the character's own voice, and the menu shows or hides the panel.
void cmdDefaults_Click(App& app);
void sdrPitch_Change(App& app);
void sdrSpeed_Change(App& app);
void sdrVolume_Change(App& app);
void mnuViewVoice_Click(App& app);

// Puts a voice value on its slider and in its tag. A value beyond the slider's range (a
// character's own pitch or speed may lie there) stays whole in the tag, and the slider shows
// its nearest end.
void SetVoiceValue(QSlider& slider, QString& tag, QString (*tagOf)(int), int value);
