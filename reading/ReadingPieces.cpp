#include "reading/ReadingPieces.h"

#include "core/App.h"
#include "core/frmMain.h"

#include <QCoreApplication>
#include <QProgressBar>
#include <algorithm>

namespace
{

constexpr int CutAfter = 180;
// The event queue runs this often while a piece is cut, often enough to keep the window
// responsive without paying for a pass through the queue on every character.
constexpr int YieldEvery = 50;
// The progress bar counts in 16-bit steps.
constexpr qint64 LongestUnscaledSource = 32700;

} // namespace

void TakeChunk(App& app)
{
    QString& chunk = app.MainForm->ChunkText;
    for (int i = 1; i <= PieceLimit; ++i) {
        if (i % YieldEvery == 1)
            QCoreApplication::processEvents();
        // Read anew at every character: a click during the yield may have replaced the line.
        const QStringView rest = app.LineBuffer.view();
        const bool inside = i <= rest.size();
        if (inside)
            chunk.append(rest[i - 1]);
        if ((inside && i > CutAfter && rest[i - 1] == QLatin1Char(' ')) ||
            chunk.size() == rest.size())
            break;
    }
    app.LineBuffer.dropFront(chunk.size());
}

void AdvanceProgress(App& app)
{
    QProgressBar& bar = *app.MainForm->ProgressBar1;
    app.ProgressPos = app.ProgressScale * float(app.MainForm->ChunkText.size()) + app.ProgressPos;
    if (float(bar.maximum()) < app.ProgressPos)
        bar.setValue(bar.maximum());
    else
        bar.setValue(int(app.ProgressPos));
}

void ScaleProgress(App& app, qint64 length, int margin)
{
    QProgressBar& bar = *app.MainForm->ProgressBar1;
    if (length < LongestUnscaledSource + 1) {
        // A bar whose range is empty shows Qt's busy animation; an empty source leaves it empty.
        bar.setMaximum(qMax(1, int(length)));
        app.ProgressScale = 1.0f;
    } else {
        app.ProgressScale = float(LongestUnscaledSource) / float(length);
        bar.setMaximum(int(app.ProgressScale * float(length)) + margin);
    }
}
