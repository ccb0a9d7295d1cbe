#pragma once

class QString;
struct App;

// Loads the character file File as "G", places it, applies the voice defaults, the command
// list and the character options. With KeepLoaded the loaded character stays where it is and
// only the list and options are applied again. A file that fails to load brings the user a
// box and the open dialog; at the first load a refusal ends the program. File becomes the
// path that was chosen.
void LoadCharacter(App& app, bool FirstLoad, QString& File, bool KeepLoaded);
