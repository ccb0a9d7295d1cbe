#pragma once

struct App;

// Tells the present time through the character; the text box keeps its text.
void SayTime(App& app);
