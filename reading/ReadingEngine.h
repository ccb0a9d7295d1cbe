#pragma once

class QString;
struct App;

// The reading engine: a file or a long text handed to speech piece by piece by Timer2, which
// waits for the last piece's request to finish before it feeds the next.
void mnuFileRead_Click(App& app);
void Timer2_Timer(App& app);
// Ends either kind of reading; what is queued is still spoken.
void cmdStop_Click(App& app);
// The reading of a text over 200 characters, which SayText hands over.
void StartPiecewiseReading(App& app, const QString& Text);
