#include "character/SayText.h"
#include "core/App.h"
#include "core/Controls.h"
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

QString ReadingCaption(const App& app)
{
    return app.ReadingClip ? QStringLiteral("Quorl - Reading From Clip Board")
                           : QStringLiteral("Quorl - Reading ") + app.MainForm->ReadFileName;
}

} // namespace

void frmMain::cmdCont_Click()
{
    if (Timer2->isActive()) {
        cmdCont->setText(QStringLiteral("&Continue"));
        Timer2->stop();
        setWindowTitle(ReadingCaption(app) + QStringLiteral(" (Paused)"));
        return;
    }
    cmdCont->setText(QStringLiteral("&Pause"));
    Timer2->start();
    setWindowTitle(ReadingCaption(app));
    // The tick keeps waiting for the last piece, not for this animation.
    if (ReadAnimationOn(app))
        app.Character->Play(QStringLiteral("Read"));
}

void frmMain::cmdNext_Click()
{
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
        txtText->setPlainText(app.LineBuffer.toString());
        setTag(cmdNext, QStringLiteral("1"));
    } catch (const platform::RuntimeError& error) {
        ReportError(app, false, 1.0f, error);
    }
}

void frmMain::cmdTalk_Click()
{
    if (ReadAnimationOn(app))
        app.LastRequest = app.Character->Play(QStringLiteral("Read"));
    SayText(app, RemoveIgnored(app, txtText->toPlainText()), false);
    if (ReadAnimationOn(app))
        app.LastRequest = app.Character->Play(QStringLiteral("ReadReturn"));
    txtText->setFocus();
}

void frmMain::Read_Click()
{
    if (ReadAnimationOn(app))
        app.LastRequest = app.Character->Play(QStringLiteral("Read"));
    SayText(app, RemoveIgnored(app, app.P.clipboard.Text()), false);
}

void frmMain::chkIgnore_Click()
{
    const bool on = chkIgnore->isChecked();
    txtIgnore->setEnabled(on);
    txtIgnore1->setEnabled(on);
}
