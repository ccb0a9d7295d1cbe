#include "EngineTestSupport.h"
#include "FakeSpeechOutput.h"
#include "RequestWait.h"
#include "agent/acs/AcsFile.h"
#include "agent/engine/AgentEngine.h"

#include <QFile>
#include <QTest>
#include <gtest/gtest.h>

using namespace agent;
using namespace agent::engine;
using namespace agent::engine::testing;
using agent::runtime::testing::waitFinished;
using Status = platform::AgentRequest;

// Every animation of the character that ships with the program plays to an end, and the
// program's own sequence of operations runs through.
TEST(BundledCharacterTest, EveryAnimationAndTheReadingSequenceComplete)
{
    QFile file(QStringLiteral(BUNDLED_CHARACTER));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << BUNDLED_CHARACTER;
    const acs::CharacterData data = acs::readAcs(file.readAll());

    RecordingEvents events;
    AgentEngine engine(std::make_unique<runtime::testing::FakeSpeechOutput>(5),
                       std::make_unique<FakeRecognizer>());
    engine.setEventSink(&events);
    engine.Characters().Load("G", QStringLiteral(BUNDLED_CHARACTER));
    platform::AgentCharacter& character = engine.Characters().Character("G");
    character.setIdleOn(false);
    EXPECT_FALSE(character.Name().isEmpty());

    ASSERT_TRUE(waitFinished(character.Show(), 20000));
    for (const acs::Animation& animation : data.animations) {
        const platform::Request played = character.Play(animation.name);
        ASSERT_TRUE(waitFinished(played, 20000)) << animation.name.toStdString();
        EXPECT_EQ(played->Status(), Status::Complete) << animation.name.toStdString();
    }
    const std::vector<platform::Request> reading = {
        character.Play("Read"),
        character.Speak("A line read aloud."),
        character.Play("ReadReturn"),
        character.MoveTo(300, 200),
        character.Hide(),
    };
    for (const platform::Request& request : reading) {
        ASSERT_TRUE(waitFinished(request, 20000));
        EXPECT_EQ(request->Status(), Status::Complete);
    }
    EXPECT_EQ(character.Left(), 300);
    EXPECT_FALSE(character.Visible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return events.events.size() == 2; }, 2000));
    EXPECT_EQ(events.events, (QStringList{"Show G 0", "Hide G 0"}));
}
