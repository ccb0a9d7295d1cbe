#pragma once

class QDateTime;
struct App;
struct NoteRow;

// Whether the note's reminder falls due at that local time, to the minute: its reminder is on
// (Remind exactly 1) and every clock field that its kind uses matches. Values out of range and
// unknown kinds never match.
bool ReminderDue(const NoteRow& row, const QDateTime& local);

// The once-a-minute pass: every note due, in record order, gets the reminder window, modal for
// the kinds that hold the pass and without the modal flag for Weekly.
void RemindTimer_Timer(App& app);

// Announces, in the order they came up, the reminders that fell due while the reminder window
// was open and are still due now; nothing while that window is open or a pass is under way.
void AnnounceWaitingReminders(App& app);
