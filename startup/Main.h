#pragma once

struct App;

// The program's entry routine: refuses a second instance, migrates old settings, loads the
// main window with the character control, tests the speech engines and brings up settings,
// character, applications, notes and the greeting. Events drive the program afterwards.
void Main(App& app);

void CheckSpeechEngines(App& app);
