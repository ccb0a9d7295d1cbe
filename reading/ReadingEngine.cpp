#include "reading/ReadingEngine.h"

#include "character/CurrentCharacter.h"
#include "character/SayText.h"
#include "core/App.h"
#include "core/ReadingState.h"
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

// A file reading is sized one unit beyond its bytes; a long text gets a wider margin.
constexpr int FileProgressMargin = 1;
constexpr int LongTextProgressMargin = 10;

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
    if (f.Splitting == 0 && !f.NextLineTaken() && !file.atEnd())
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
    f.setNextLineTaken(false);
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
        cmdStop_Click(app);
}

} // namespace

void mnuFileRead_Click(App& app)
{
    frmMain& f = *app.MainForm;
    QString& ReadFileName = f.ReadFileName;
    platform::OpenFileRequest request;
    request.filter = QStringLiteral("Text Files (*.txt) |*.txt|All Files (*.*) |*.*");
    request.title = QStringLiteral("Open Text File to Read..");
    request.initialDir = app.AppPath;
    ReadFileName.clear();
    ReadFileName = app.P.dialogs.OpenFile(request);
    if (ReadFileName.isEmpty()) {
        f.mnuFileOptions->setEnabled(true);
        f.cmdOptions->setEnabled(true);
        f.mnuQuorlApp->setEnabled(true);
        return;
    }
    try {
        app.ReadingFile.open(ReadFileName);
        ScaleProgress(app, app.ReadingFile.size(), FileProgressMargin);
        app.ProgressPos = 0.0f;
        f.ProgressBar1->setValue(0);
        app.LineBuffer.clear();
        f.ChunkText.clear();
        f.Splitting = 0;
        f.setNextLineTaken(false);
        if (ReadAnimationOn(app))
            app.LastRequest = CurrentCharacter(app).Play(QStringLiteral("Read"));
        if (!CurrentCharacter(app).Visible())
            app.LastRequest = CurrentCharacter(app).Show();
        f.Timer2->start();
        f.setFileReadingOn(true);
        f.setWindowTitle(QStringLiteral("Quorl - Reading ") + ReadFileName);
    } catch (const platform::RuntimeError& error) {
        app.P.dialogs.MsgBox(platform::BoxIcon::Critical, platform::BoxButtons::OK,
                             QStringLiteral("File Error"), error.Description);
        f.setFileReadingOn(false);
        app.ReadingFile.close();
    }
}

void Timer2_Timer(App& app)
{
    if (app.TickRunning)
        return;
    app.TickRunning = true;
    const auto tickEnded = qScopeGuard([&app] { app.TickRunning = false; });
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

void cmdStop_Click(App& app)
{
    frmMain& f = *app.MainForm;
    if (ReadAnimationOn(app))
        app.LastRequest = CurrentCharacter(app).Play(QStringLiteral("ReadReturn"));
    if (!app.ReadingClip)
        app.ReadingFile.close();
    f.ProgressBar1->setValue(0);
    f.Timer2->stop();
    f.setFileReadingOn(false);
    app.ReadingClip = false;
    UpdateReadingControls(app);
    f.setWindowTitle(QStringLiteral("Quorl"));
}

void StartPiecewiseReading(App& app, const QString& Text)
{
    frmMain& f = *app.MainForm;
    ScaleProgress(app, Text.size(), LongTextProgressMargin);
    app.ProgressPos = 0.0f;
    f.setWindowTitle(QStringLiteral("Quorl - Reading From Clip Board"));
    app.ReadingClip = true;
    app.LineBuffer = Text;
    f.Timer2->start();
}
