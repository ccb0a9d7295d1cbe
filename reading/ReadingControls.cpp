#include "reading/ReadingControls.h"

#include "character/CurrentCharacter.h"
#include "character/SayText.h"
#include "core/App.h"
#include "core/Conversions.h"
#include "core/ReadingState.h"
#include "core/ReportError.h"
#include "core/frmMain.h"
#include "reading/ReadAnimation.h"
#include "reading/RemoveIgnored.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

namespace
{
constexpr int LeftButton = 1;
constexpr int RightButton = 2;
} // namespace

void cmdCont_Click(App& app)
{
    frmMain& f = *app.MainForm;
    if (f.Timer2->isActive()) {
        PauseReading(app);
        return;
    }
    f.cmdCont->setText(QStringLiteral("&Pause"));
    f.Timer2->start();
    f.setWindowTitle(ReadingCaption(app));
    // The tick keeps waiting for the last piece, not for this animation.
    if (ReadAnimationOn(app))
        CurrentCharacter(app).Play(QStringLiteral("Read"));
}

void cmdNext_Click(App& app)
{
    frmMain& f = *app.MainForm;
    try {
        TextFile& file = app.ReadingFile;
        if (file.atEnd()) {
            app.P.dialogs.MsgBox(platform::BoxIcon::Warning, platform::BoxButtons::OK,
                                 QStringLiteral("Finished Reading"), QStringLiteral("End of File"));
            return;
        }
        app.LineBuffer = file.readLine();
        while (app.LineBuffer.isEmpty() && !file.atEnd())
            app.LineBuffer = file.readLine();
        f.txtText->setPlainText(app.LineBuffer.toString());
        f.setNextLineTaken(true);
    } catch (const platform::RuntimeError& error) {
        ReportError(app, false, 1.0f, error);
    }
}

void cmdTalk_Click(App& app)
{
    frmMain& f = *app.MainForm;
    if (ReadAnimationOn(app))
        app.LastRequest = CurrentCharacter(app).Play(QStringLiteral("Read"));
    SayText(app, RemoveIgnored(app, f.txtText->toPlainText()), false);
    if (ReadAnimationOn(app))
        app.LastRequest = CurrentCharacter(app).Play(QStringLiteral("ReadReturn"));
    f.txtText->setFocus();
}

void Read_Click(App& app)
{
    if (ReadAnimationOn(app))
        app.LastRequest = CurrentCharacter(app).Play(QStringLiteral("Read"));
    SayText(app, RemoveIgnored(app, app.P.clipboard.Text()), false);
}

void chkIgnore_Click(App& app)
{
    frmMain& f = *app.MainForm;
    const bool on = f.chkIgnore->isChecked();
    f.txtIgnore->setEnabled(on);
    f.txtIgnore1->setEnabled(on);
}

void Agent1_Click(App& app, const QString& characterId, int button)
{
    if (characterId != CharacterId)
        return;
    if (button == LeftButton) {
        if (Conversions::Val(app.Settings.ReadText(QStringLiteral("Click1"))) == 1)
            Read_Click(app);
    } else if (button == RightButton) {
        if (Conversions::Val(app.Settings.ReadText(QStringLiteral("Click"))) == 1 &&
            ReadingActive(app) && app.MainForm->cmdCont->isEnabled())
            cmdCont_Click(app);
    }
}
