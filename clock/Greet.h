#pragma once

struct App;

// The start-up greeting: the word for the hour, then the time, the date and the user's text.
void Greet(App& app);
