#pragma once

struct App;

// Tells today's date through the character; the text box keeps its text.
void SayDate(App& app);
