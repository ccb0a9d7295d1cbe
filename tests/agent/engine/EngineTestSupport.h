#pragma once

#include "agent/EngineServices.h"
#include "agent/acs/CharacterData.h"
#include "platform/Agent.h"

#include <QPoint>
#include <QStringList>
#include <QTemporaryDir>
#include <vector>

namespace agent::engine::testing
{

class FakeRecognizer : public SpeechRecognizer
{
    Q_OBJECT
public:
    bool installed() const override { return installed_; }
    bool enabled() const override { return enabled_; }
    void setPhrases(const std::vector<VoicePhrase>& phrases) override;
    QWidget* createSettingsPage() override;

    bool installed_ = true;
    bool enabled_ = true;
    std::vector<VoicePhrase> phrases;
    int updates = 0;
};

// Records every event as one line of text, e.g. "Show G 0" or "Command Time".
class RecordingEvents : public platform::AgentEvents
{
public:
    void Agent1_Click(const QString& id, int button, int shift, int x, int y) override;
    void Agent1_Show(const QString& id, int cause) override;
    void Agent1_Hide(const QString& id, int cause) override;
    void Agent1_IdleStart(const QString& id) override;
    void Agent1_Command(const platform::UserInput& input) override;
    void Agent1_Shutdown() override;
    void Agent1_Error(const platform::RuntimeError& error) override;

    QStringList events;
    QList<QPoint> clickPositions;
};

// Writes the character as an .acs file in a temporary folder and gives its path.
QString writeCharacterFile(const QTemporaryDir& folder, const acs::CharacterData& character,
                           const QString& fileName = QStringLiteral("test.acs"));

} // namespace agent::engine::testing
