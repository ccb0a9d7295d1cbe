#pragma once

class QString;
struct App;

// What the user works with during a reading: pause and continue, next line, the text box and
// the clipboard, the ignored characters, and the clicks on the character that act on them.
void cmdCont_Click(App& app);
void cmdNext_Click(App& app);
void cmdTalk_Click(App& app);
void Read_Click(App& app);
void chkIgnore_Click(App& app);
// A left click reads the clipboard and a right click pauses or continues, where the user
// switched that on.
void Agent1_Click(App& app, const QString& characterId, int button);
