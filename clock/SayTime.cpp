#include "clock/SayTime.h"

#include "character/SayText.h"
#include "clock/TimeSentence.h"
#include "core/App.h"
#include "core/frmMain.h"

#include <QCheckBox>
#include <QSignalBlocker>

void SayTime(App& app)
{
    QCheckBox& balloon = *app.MainForm->chkBalloon;
    const QTime now = app.P.clock.Now().time();
    const bool hidden = balloon.checkState() == Qt::Checked;
    const QString sentence = TimeSentence(now.hour(), now.minute(), hidden);
    const int minute = now.minute();
    if (!hidden || minute == 0 || minute >= 10) {
        SayText(app, sentence, true);
        return;
    }
    // The sentence gives the balloon its empty texts itself, so SayText must not wrap it.
    const QSignalBlocker quiet(balloon);
    balloon.setChecked(false);
    SayText(app, sentence, true);
    balloon.setChecked(true);
}
