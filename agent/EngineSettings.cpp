#include "agent/EngineSettings.h"

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

EngineSettings& EngineSettings::shared()
{
    static EngineSettings settings;
    return settings;
}

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
    if (file_.contains(key) && file_.value(key) == value)
        return;
    file_.setValue(key, value);
    file_.sync();
    emit changed(key);
}

void EngineSettings::clear()
{
    file_.clear();
    file_.sync();
    emit changed(QString());
}

} // namespace agent
