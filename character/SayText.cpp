#include "character/SayText.h"

#include "character/CurrentCharacter.h"
#include "core/App.h"
#include "core/ReadingState.h"
#include "core/frmMain.h"

#include <QAction>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <algorithm>

namespace
{

bool OnlySpaces(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c == QLatin1Char(' '); });
}

constexpr int LongestSpokenText = 200;

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
    if (f.FileReadingOn() || Text.size() <= LongestSpokenText) {
        app.LastRequest = character.Speak(SpeechLine(app, Text));
        if (!KeepTextBox)
            f.txtText->setPlainText(Text);
        return;
    }
    app.Hooks.StartLongTextReading(Text);
}
