#pragma once

#include "agent/EngineServices.h"
#include "agent/acs/AcsFile.h"
#include "agent/acs/CharacterData.h"
#include "platform/Agent.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QWidget>
#include <functional>
#include <vector>

namespace agent::engine::testing
{

class FakeRecognizer : public SpeechRecognizer
{
    Q_OBJECT
public:
    // Installed and switched on, or neither.
    bool installed() const override { return isInstalled; }
    bool enabled() const override { return isInstalled; }
    void setPhrases(const std::vector<VoicePhrase>& list) override { phrases = list; }
    QWidget* createSettingsPage() override { return settingsPage = new QWidget; }

    bool isInstalled = true;
    std::vector<VoicePhrase> phrases;
    QWidget* settingsPage = nullptr;
};

// Records every event as one line of text, e.g. "Show G 0" or "Command Time".
class RecordingEvents : public platform::AgentEvents
{
public:
    void Agent1_Click(const QString& id, int button, int shift, int, int) override
    {
        events << QStringLiteral("Click %1 %2 %3").arg(id).arg(button).arg(shift);
    }
    void Agent1_Show(const QString& id, int cause) override
    {
        events << QStringLiteral("Show %1 %2").arg(id).arg(cause);
    }
    void Agent1_Hide(const QString& id, int cause) override
    {
        events << QStringLiteral("Hide %1 %2").arg(id).arg(cause);
    }
    void Agent1_IdleStart(const QString& id) override { events << "IdleStart " + id; }
    void Agent1_Command(const platform::UserInput& input) override
    {
        events << "Command " + input.Name;
    }
    void Agent1_Shutdown() override { events << QStringLiteral("Shutdown"); }
    void Agent1_Error(const platform::RuntimeError& error) override
    {
        events << QStringLiteral("Error %1 %2").arg(error.Number).arg(error.Source);
    }

    QStringList events;
};

// The error the call throws; number 0 when it throws none.
inline platform::RuntimeError errorOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const platform::RuntimeError& error) {
        return error;
    }
    return {0, {}, {}};
}

// Writes the character as an .acs file in a temporary folder and gives its path.
inline QString writeCharacterFile(const QTemporaryDir& folder, const acs::CharacterData& character)
{
    QFile file(folder.filePath(QStringLiteral("test.acs")));
    if (!file.open(QIODevice::WriteOnly) || file.write(acs::writeAcs(character)) < 0)
        return {};
    return file.fileName();
}

} // namespace agent::engine::testing
