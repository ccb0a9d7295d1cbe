#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>

namespace agent
{

// The engine's own settings file, $XDG_CONFIG_HOME/character-engine/engine.conf. Each object
// reads the file afresh, so a choice made on the property sheet reaches everyone at once.
// Other parts of the engine keep their own keys here through value()/setValue(), each under
// a group of its own (e.g. "SpeechInput/Enabled").
class EngineSettings
{
public:
    EngineSettings();

    static QString filePath();

    bool speechOutputEnabled() const;
    void setSpeechOutputEnabled(bool on);
    bool balloonEnabled() const;
    void setBalloonEnabled(bool on);
    bool soundEffectsEnabled() const;
    void setSoundEffectsEnabled(bool on);

    QVariant value(const QString& key, const QVariant& fallback) const;
    void setValue(const QString& key, const QVariant& value);

private:
    QSettings file_;
};

} // namespace agent
