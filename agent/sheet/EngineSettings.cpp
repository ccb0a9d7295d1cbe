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

EngineSettings::EngineSettings() : file_(filePath(), QSettings::IniFormat) {}

QString EngineSettings::filePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/character-engine/engine.conf");
}

bool EngineSettings::speechOutputEnabled() const
{
    return file_.value(SpeechOutputKey, true).toBool();
}

void EngineSettings::setSpeechOutputEnabled(bool on)
{
    setValue(SpeechOutputKey, on);
}

bool EngineSettings::balloonEnabled() const
{
    return file_.value(BalloonKey, true).toBool();
}

void EngineSettings::setBalloonEnabled(bool on)
{
    setValue(BalloonKey, on);
}

bool EngineSettings::soundEffectsEnabled() const
{
    return file_.value(SoundEffectsKey, true).toBool();
}

void EngineSettings::setSoundEffectsEnabled(bool on)
{
    setValue(SoundEffectsKey, on);
}

QVariant EngineSettings::value(const QString& key, const QVariant& fallback) const
{
    return file_.value(key, fallback);
}

void EngineSettings::setValue(const QString& key, const QVariant& value)
{
    file_.setValue(key, value);
    file_.sync();
}

} // namespace agent
