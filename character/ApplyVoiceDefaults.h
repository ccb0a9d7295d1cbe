#pragma once

struct App;

// Puts the pitch and speed sliders and tags to the character's own values and the volume to
// the top of its slider. A step that fails is passed over in silence.
void ApplyVoiceDefaults(App& app);
