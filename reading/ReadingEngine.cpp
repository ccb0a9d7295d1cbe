#include "character/SayText.h"
#include "core/App.h"
#include "core/Controls.h"
#include "core/Conversions.h"
#include "core/Main.h"
#include "core/ReportError.h"
#include "core/frmMain.h"
#include "reading/ReadAnimation.h"
#include "reading/ReadingPieces.h"
#include "reading/RemoveIgnored.h"

#include <QAction>
#include <QCoreApplication>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QTimer>

namespace
{

// Timer events can arrive while a tick lets the event queue run; a tick never starts inside
// another.
bool TickRunning = false;

// A file reading is sized one unit beyond its bytes; a long text gets a wider margin.
constexpr int FileProgressMargin = 1;

// The line in hand holds nothing but spaces, counting the segments of a long line that are
// still in the file.
bool LineBlank(const App& app)
{
    return app.LineBuffer.isBlank() && app.ReadingFile.restOfLineBlank();
}

// Keeps at least a whole piece of a long line in hand, so that pieces are cut as if the
// line had been read whole.
void TopUpLineBuffer(App& app)
{
    while (app.LineBuffer.size() <= PieceLimit && app.ReadingFile.lineContinues())
        app.LineBuffer.append(app.ReadingFile.readMore());
}

void FeedFromText(App& app)
{
    frmMain& f = *app.MainForm;
    TakeChunk(app);
    f.txtText->setPlainText(f.ChunkText);
    AdvanceProgress(app);
    // The text went through RemoveIgnored before the reading began.
    SayText(app, f.ChunkText, false);
    f.ChunkText.clear();
}

void FeedFromFile(App& app)
{
    frmMain& f = *app.MainForm;
    TextFile& file = app.ReadingFile;
    if (f.Splitting == 0 && Conversions::Val(Tag(f.cmdNext)) == 0 && !file.atEnd())
        app.LineBuffer = file.readLine();
    while (LineBlank(app) && !file.atEnd()) {
        app.LineBuffer = file.readLine();
        QCoreApplication::processEvents();
    }
    if (app.LineBuffer.size() > PieceLimit || f.Splitting == 1) {
        f.Splitting = 1;
        TopUpLineBuffer(app);
        TakeChunk(app);
        if (LineBlank(app))
            f.Splitting = 0;
    } else {
        f.ChunkText = app.LineBuffer.toString();
    }
    AdvanceProgress(app);
    f.txtText->setPlainText(f.ChunkText);
    SayText(app, RemoveIgnored(app, f.ChunkText), false);
    setTag(f.cmdNext, QStringLiteral("0"));
    f.ChunkText.clear();
}

// The reading ends on the tick that hands over its last piece, while that piece is spoken.
void EndReadingAtItsEnd(App& app)
{
    // A Stop that ran while the queue was let run has ended the reading already.
    if (!ReadingActive(app))
        return;
    frmMain& f = *app.MainForm;
    const bool done =
        app.ReadingClip ? app.LineBuffer.isEmpty() : app.ReadingFile.atEnd() && f.Splitting == 0;
    if (done)
        f.cmdStop_Click();
}

} // namespace

void frmMain::mnuFileRead_Click()
{
    platform::OpenFileRequest request;
    request.filter = QStringLiteral("Text Files (*.txt) |*.txt|All Files (*.*) |*.*");
    request.title = QStringLiteral("Open Text File to Read..");
    request.initialDir = app.AppPath;
    ReadFileName.clear();
    ReadFileName = app.P.dialogs.OpenFile(request);
    if (ReadFileName.isEmpty()) {
        mnuFileOptions->setEnabled(true);
        cmdOptions->setEnabled(true);
        mnuQuorlApp->setEnabled(true);
        return;
    }
    try {
        app.ReadingFile.open(ReadFileName);
        ScaleProgress(app, app.ReadingFile.size(), FileProgressMargin);
        app.ProgressPos = 0.0f;
        ProgressBar1->setValue(0);
        app.LineBuffer.clear();
        ChunkText.clear();
        Splitting = 0;
        setTag(cmdNext, QStringLiteral("0"));
        if (ReadAnimationOn(app))
            app.LastRequest = app.Character->Play(QStringLiteral("Read"));
        if (!app.Character->Visible())
            app.LastRequest = app.Character->Show();
        Timer2->start();
        setTag(mnuFileRead, QStringLiteral("1"));
        setWindowTitle(QStringLiteral("Quorl - Reading ") + ReadFileName);
    } catch (const platform::RuntimeError& error) {
        app.P.dialogs.MsgBox(platform::BoxIcon::Critical, platform::BoxButtons::OK,
                             QStringLiteral("File Error"), error.Description);
        setTag(mnuFileRead, QStringLiteral("0"));
        app.ReadingFile.close();
    }
}

void frmMain::Timer2_Timer()
{
    if (TickRunning)
        return;
    TickRunning = true;
    const auto tickEnded = qScopeGuard([] { TickRunning = false; });
    try {
        using platform::AgentRequest;
        const int status = app.LastRequest ? app.LastRequest->Status() : AgentRequest::Complete;
        if (status == AgentRequest::Complete || status == AgentRequest::Interrupted ||
            status == AgentRequest::Failed) {
            if (app.ReadingClip)
                FeedFromText(app);
            else
                FeedFromFile(app);
        }
        EndReadingAtItsEnd(app);
    } catch (const platform::RuntimeError& error) {
        ReportError(app, false, 2.0f, error);
    }
}

void frmMain::cmdStop_Click()
{
    if (ReadAnimationOn(app))
        app.LastRequest = app.Character->Play(QStringLiteral("ReadReturn"));
    if (!app.ReadingClip)
        app.ReadingFile.close();
    ProgressBar1->setValue(0);
    Timer2->stop();
    setTag(mnuFileRead, QStringLiteral("0"));
    app.ReadingClip = false;
    UpdateReadingControls(app);
    setWindowTitle(QStringLiteral("Quorl"));
}
