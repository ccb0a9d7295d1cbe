#include "agent/sheet/EngineSettings.h"

#include <QStandardPaths>

namespace agent
{

namespace
{

const QString SpeechOutputKey = QStringLiteral("Output/SpeechOutput");
const QString BalloonKey = QStringLiteral("Output/Balloon");
const QString SoundEffectsKey = QStringLiteral("Output/SoundEffects");

} // namespace

EngineSettings::EngineSettings() : m_file(filePath(), QSettings::IniFormat) {}

QString EngineSettings::filePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/character-engine/engine.conf");
}

bool EngineSettings::speechOutputEnabled() const
{
    return m_file.value(SpeechOutputKey, true).toBool();
}

void EngineSettings::setSpeechOutputEnabled(bool on)
{
    setValue(SpeechOutputKey, on);
}

bool EngineSettings::balloonEnabled() const
{
    return m_file.value(BalloonKey, true).toBool();
}

void EngineSettings::setBalloonEnabled(bool on)
{
    setValue(BalloonKey, on);
}

bool EngineSettings::soundEffectsEnabled() const
{
    return m_file.value(SoundEffectsKey, true).toBool();
}

void EngineSettings::setSoundEffectsEnabled(bool on)
{
    setValue(SoundEffectsKey, on);
}

QVariant EngineSettings::value(const QString& key, const QVariant& fallback) const
{
    return m_file.value(key, fallback);
}

void EngineSettings::setValue(const QString& key, const QVariant& value)
{
    m_file.setValue(key, value);
    m_file.sync();
}

} // namespace agent
