#pragma once

class QString;
struct App;

// The one speech path: shows a hidden character, joins the voice tags to the text and queues
// it. A text over 200 characters outside a file reading starts a piecewise reading instead,
// which Timer2 carries out. KeepTextBox false puts the text into the text box.
void SayText(App& app, const QString& Text, bool KeepTextBox);
