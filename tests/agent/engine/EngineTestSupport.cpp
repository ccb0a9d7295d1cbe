#include "EngineTestSupport.h"

#include "agent/acs/AcsFile.h"

#include <QFile>
#include <QWidget>

namespace agent::engine::testing
{

void FakeRecognizer::setPhrases(const std::vector<VoicePhrase>& list)
{
    phrases = list;
    ++updates;
}

QWidget* FakeRecognizer::createSettingsPage()
{
    auto* page = new QWidget;
    page->setObjectName(QStringLiteral("speech input controls"));
    return page;
}

void RecordingEvents::Agent1_Click(const QString& id, int button, int shift, int x, int y)
{
    events << QStringLiteral("Click %1 %2 %3").arg(id).arg(button).arg(shift);
    clickPositions << QPoint(x, y);
}

void RecordingEvents::Agent1_Show(const QString& id, int cause)
{
    events << QStringLiteral("Show %1 %2").arg(id).arg(cause);
}

void RecordingEvents::Agent1_Hide(const QString& id, int cause)
{
    events << QStringLiteral("Hide %1 %2").arg(id).arg(cause);
}

void RecordingEvents::Agent1_IdleStart(const QString& id)
{
    events << QStringLiteral("IdleStart %1").arg(id);
}

void RecordingEvents::Agent1_Command(const platform::UserInput& input)
{
    events << QStringLiteral("Command %1").arg(input.Name);
}

void RecordingEvents::Agent1_Shutdown()
{
    events << QStringLiteral("Shutdown");
}

void RecordingEvents::Agent1_Error(const platform::RuntimeError& error)
{
    events << QStringLiteral("Error %1 %2").arg(error.Number).arg(error.Source);
}

QString writeCharacterFile(const QTemporaryDir& folder, const acs::CharacterData& character,
                           const QString& fileName)
{
    const QString path = folder.filePath(fileName);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(acs::writeAcs(character)) < 0)
        return {};
    return path;
}

} // namespace agent::engine::testing
