#include "EngineTestSupport.h"
#include "FakeSpeechOutput.h"
#include "TestCharacter.h"
#include "TestSpeech.h"
#include "agent/engine/AgentEngine.h"
#include "character/LoadCharacter.h"
#include "core/App.h"
#include "core/frmMain.h"
#include "fakes/FakePlatform.h"
#include "settings/frmOptions.h"
#include "startup/Wiring.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{

// The program on the real character control and recogniser, with speech output faked: what
// the options dialog stores as a voice text is what the recogniser then listens for.
TEST(ChangedVoiceTextTest, TheRecogniserHearsTheNewPhraseAndNotTheOld)
{
    auto ownRecognizer = std::make_unique<agent::listen::PocketSphinxRecognizer>();
    if (!ownRecognizer->installed())
        GTEST_SKIP() << "the recogniser's model is not installed";
    agent::listen::PocketSphinxRecognizer& recognizer = *ownRecognizer;

    fakes::FakePlatform fp;
    App app(fp.platform);
    app.Agent1 = std::make_unique<agent::engine::AgentEngine>(
        std::make_unique<agent::runtime::testing::FakeSpeechOutput>(), std::move(ownRecognizer));
    app.MainForm = std::make_unique<frmMain>(app);
    WireProgram(app);
    QTemporaryDir folder;
    app.AppPath = folder.path();
    QString file = agent::engine::testing::writeCharacterFile(
        folder, agent::runtime::testing::fullCharacter());
    LoadCharacter(app, true, file, false);

    fp.onModal = [](QDialog& dialog) {
        auto& form = static_cast<frmOptions&>(dialog);
        form.txtTime->setText("Tell me the time");
        form.cmdOK->click();
    };
    ShowOptions(app, 3);

    const auto heard = [&recognizer](const QString& text) {
        return listentest::heardName(recognizer, listentest::spokenWav(text)).toStdString();
    };
    EXPECT_EQ(heard("Tell me the time"), "Time");
    EXPECT_NE(heard("What is the time"), "Time");
}

} // namespace
