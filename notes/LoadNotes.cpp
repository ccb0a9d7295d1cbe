#include "notes/LoadNotes.h"

#include "core/App.h"
#include "core/ReportError.h"
#include "core/frmMain.h"
#include "notes/NotesFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTimer>

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

namespace
{

// The box for a file that cannot be opened; true when the user asks to try again.
bool RetryOpening(App& app, const QString& fileName, const QString& description)
{
    if (app.P.dialogs.MsgBox(BoxIcon::Critical, BoxButtons::RetryCancel,
                             QStringLiteral("Cannot Open ") + fileName,
                             description) == BoxAnswer::Retry)
        return true;
    app.P.dialogs.MsgBox(BoxIcon::Warning, BoxButtons::OK, QStringLiteral("Notes File"),
                         QStringLiteral("Notes file has not been loaded"));
    return false;
}

// Fills the table row by row; the rows read before an error stay.
void ReadRows(App& app, const QString& fileName)
{
    QTimer& timer = *app.MainForm->RemindTimer;
    NotesFileReader reader(fileName);
    const int n = reader.Count();
    if (n == 0)
        return;
    app.NoteTable.assign(std::size_t(n) + 1, NoteRow{});
    for (int i = 1; i <= n; ++i) {
        QCoreApplication::processEvents();
        // A load that ran meanwhile has left its own table, which is kept.
        if (app.NoteTable.size() != std::size_t(n) + 1)
            return;
        const NoteRow row = reader.ReadSchedule(i);
        app.NoteTable[std::size_t(i)] = row;
        if (row.Remind == 1 && !timer.isActive())
            timer.start();
    }
}

// One attempt; true when the user asks to try again.
bool LoadOnce(App& app)
{
    const QString fileName = NotesFilePath(app.AppPath);
    app.NoteTable.assign(1, NoteRow{});
    app.MainForm->RemindTimer->stop();
    const QFileInfo info(fileName);
    if (!info.exists() || info.size() == 0)
        return false;
    {
        // Opened on its own first, so that a file that cannot be opened gets its own box and
        // every later error the general report.
        QFile file(fileName);
        if (!file.open(QIODevice::ReadOnly))
            return RetryOpening(app, fileName, file.errorString());
    }
    try {
        ReadRows(app, fileName);
    } catch (const platform::RuntimeError& error) {
        ReportError(app, false, 8.0f, error);
    }
    return false;
}

} // namespace

void LoadNotes(App& app)
{
    while (LoadOnce(app)) {
    }
}
