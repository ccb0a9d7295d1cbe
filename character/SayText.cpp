#include "character/SayText.h"

#include "character/CurrentCharacter.h"
#include "core/App.h"
#include "core/Controls.h"
#include "core/Conversions.h"
#include "core/Main.h"
#include "core/frmMain.h"
#include "reading/ReadingPieces.h"

#include <QAction>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTimer>
#include <algorithm>

namespace
{

bool OnlySpaces(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c == QLatin1Char(' '); });
}

constexpr int LongestSpokenText = 200;
// A long text's bar gets more room past its end than a file's.
constexpr int LongTextProgressMargin = 10;

QString CharacterTag(const frmMain& f)
{
    return f.chkWhisper->isChecked() ? QStringLiteral("\\chr=\"whisper\"\\")
                                     : QStringLiteral("\\chr=\"normal\"\\");
}

QString SpeechLine(const App& app, const QString& Text)
{
    const frmMain& f = *app.MainForm;
    const QString tags = CharacterTag(f) + app.PitchTag + app.SpeedTag + app.VolumeTag;
    if (f.chkBalloon->checkState() == Qt::Unchecked)
        return tags + Text;
    // The map tag speaks the text and gives the balloon an empty one.
    return tags + QStringLiteral("\\map=\"") + Text + QStringLiteral("\"=\"\"\\");
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

} // namespace

void SayText(App& app, const QString& Text, bool KeepTextBox)
{
    if (OnlySpaces(Text))
        return;
    frmMain& f = *app.MainForm;
    platform::AgentCharacter& character = CurrentCharacter(app);
    if (!character.Visible())
        app.LastRequest = character.Show();
    UpdateReadingControls(app);
    if (Conversions::Val(Tag(f.mnuFileRead)) == 1 || Text.size() <= LongestSpokenText) {
        app.LastRequest = character.Speak(SpeechLine(app, Text));
        if (!KeepTextBox)
            f.txtText->setPlainText(Text);
        return;
    }
    StartPiecewiseReading(app, Text);
}
