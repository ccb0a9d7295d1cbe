// The two costs of notes that grow with their number: loading the largest Notes.cfg that the
// 16-bit record count allows, and one scheduler tick over as many notes, all with their
// reminder on and none due, on the real clock. Goal: under 50 ms each.
#include "core/App.h"
#include "core/frmMain.h"
#include "fakes/FakePlatform.h"
#include "notes/LoadNotes.h"
#include "notes/NotesFile.h"
#include "notes/RemindTimer.h"
#include "platform/linux/QtSystem.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>

namespace
{

constexpr int MostNotes = 32767;

void StartQt()
{
    static int argc = 1;
    static char name[] = "bench_notes";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication application(argc, argv);
}

// Daily reminders at a minute that is never now: the hour "13" does not exist.
NoteRecord NeverDue(int i)
{
    NoteRecord note;
    note.Remind = 1;
    note.Kind = std::int16_t(i % 5);
    note.HourIndex = 12;
    note.AmPm = 1;
    note.MinuteIndex = std::int16_t(i % 60);
    note.NoteName = QStringLiteral("Note %1").arg(i);
    note.NoteText = QStringLiteral("Text of note %1, long enough to be like a real one.").arg(i);
    return note;
}

// The fake platform with the real clock, and the main window.
struct Program {
    fakes::FakePlatform fp;
    platform::SystemClock clock;
    platform::Platform platform{fp.store,
                                fp.dialogs,
                                clock,
                                fp.screen,
                                fp.clipboard,
                                fp.shell,
                                fp.power,
                                fp.instance,
                                fp.process,
                                fp.endRequests,
                                fp.tray,
                                fp.platform.createAgent,
                                fp.platform.showModal,
                                QString()};
    QTemporaryDir dir;
    std::unique_ptr<App> app = [this] {
        auto made = std::make_unique<App>(platform);
        made->MainForm = std::make_unique<frmMain>(*made);
        made->AppPath = dir.path();
        return made;
    }();
};

void BM_LoadNotes(benchmark::State& state)
{
    StartQt();
    Program program;
    std::vector<NoteRecord> notes;
    for (int i = 0; i < MostNotes; ++i)
        notes.push_back(NeverDue(i));
    WriteNotesFile(NotesFilePath(program.app->AppPath), notes);
    for (auto _ : state)
        LoadNotes(*program.app);
    if (program.app->NoteTable.size() != MostNotes + 1 ||
        !program.app->MainForm->RemindTimer->isActive())
        state.SkipWithError("the notes did not load");
}

void BM_RemindTick(benchmark::State& state)
{
    StartQt();
    Program program;
    program.app->NoteTable.assign(1, NoteRow{});
    for (int i = 0; i < MostNotes; ++i)
        program.app->NoteTable.push_back(NeverDue(i));
    for (auto _ : state)
        RemindTimer_Timer(*program.app);
    if (program.app->RemindForm || !program.fp.dialogs.boxes.empty())
        state.SkipWithError("a note fell due");
}

BENCHMARK(BM_LoadNotes)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_RemindTick)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
