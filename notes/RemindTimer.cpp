#include "notes/RemindTimer.h"

#include "core/App.h"
#include "core/Controls.h"
#include "core/frmMain.h"
#include "notes/frmRemind.h"

#include <QCoreApplication>
#include <QDateTime>
#include <algorithm>

namespace
{

enum Kind { Once = 0, Daily = 1, Weekly = 2, Monthly = 3, Yearly = 4 };

// The hour on a 24-hour clock that the twelve-hour list positions stand for: "12" "AM" is 0,
// "12" "PM" is 12.
int Hour(const NoteRow& row)
{
    int hour = row.HourIndex + 1 + (row.AmPm == 1 ? 12 : 0);
    if (row.AmPm == 0 && hour == 12)
        hour = 0;
    if (row.AmPm == 1 && hour == 24)
        hour = 12;
    return hour;
}

// There is one reminder window. A reminder that falls due while it is open (a tick during a
// modal reminder, or a note behind a Weekly one) waits until that window has closed and no pass
// is under way, and is announced then if it is still due, that is if its minute has not passed;
// a note that a pass reaches while it waits is announced by the pass instead, and the note that
// the open window shows does not wait behind itself. A Weekly reminder never holds the pass;
// one that comes up while another modal window of the program is open appears on top of that
// window (see ShowRemindForm).
void Announce(App& app, int number, bool modal)
{
    std::vector<int>& waiting = app.WaitingReminders;
    waiting.erase(std::remove(waiting.begin(), waiting.end(), number), waiting.end());
    if (const frmRemind* open = RemindForm(app)) {
        if (open->RecordNumber != number)
            waiting.push_back(number);
        return;
    }
    setTag(app.MainForm.get(), QString::number(number));
    ShowRemindForm(app, modal);
}

} // namespace

bool ReminderDue(const NoteRow& row, const QDateTime& local)
{
    if (row.Remind != 1)
        return false;
    // The minute of the day in one step: the scheduler asks this of every note every minute.
    const int minuteOfDay = local.time().msecsSinceStartOfDay() / 60000;
    if (minuteOfDay % 60 != row.MinuteIndex || minuteOfDay / 60 != Hour(row))
        return false;
    const QDate date = local.date();
    const bool day = date.day() == row.Day;
    const bool month = date.month() == row.Every + 1;
    switch (row.Kind) {
    case Once:
        return day && month && date.year() == row.Year;
    case Daily:
        return true;
    case Weekly:
        // Sunday is weekday 1.
        return date.dayOfWeek() % 7 + 1 == row.Every + 1;
    case Monthly:
        return day;
    case Yearly:
        return day && month;
    default:
        return false;
    }
}

void RemindTimer_Timer(App& app)
{
    struct Pass {
        explicit Pass(App& app) : app(app) { ++app.RemindPasses; }
        ~Pass() { --app.RemindPasses; }
        App& app;
    };
    {
        const Pass pass(app);
        const std::size_t last = app.NoteTable.size() - 1;
        for (std::size_t i = 1; i <= last; ++i) {
            QCoreApplication::processEvents();
            // The notes window, reached from a reminder or while events ran, can have replaced
            // the table with a shorter one.
            if (i >= app.NoteTable.size())
                break;
            const NoteRow row = app.NoteTable[i];
            // The clock is read afresh for every note: one behind a modal reminder is compared
            // with the time at which that window closed.
            if (ReminderDue(row, app.P.clock.Now()))
                Announce(app, int(i), row.Kind != Weekly);
        }
    }
    AnnounceWaitingReminders(app);
}

void AnnounceWaitingReminders(App& app)
{
    std::vector<int>& waiting = app.WaitingReminders;
    while (app.RemindPasses == 0 && !app.RemindForm && !waiting.empty()) {
        const int number = waiting.front();
        waiting.erase(waiting.begin());
        if (std::size_t(number) >= app.NoteTable.size())
            continue;
        const NoteRow row = app.NoteTable[std::size_t(number)];
        if (ReminderDue(row, app.P.clock.Now()))
            Announce(app, number, row.Kind != Weekly);
    }
}
