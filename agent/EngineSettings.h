#pragma once

#include <QObject>
#include <QSettings>
#include <QString>
#include <QVariant>

namespace agent
{

// The engine's own settings file, $XDG_CONFIG_HOME/character-engine/engine.conf, read once
// into the one object of the process that the engine, the speech output and the recogniser
// share. A choice made on the property sheet is saved at once and announced by changed().
// Other parts of the engine keep their own keys here through value()/setValue(), each under
// a group of its own (e.g. "SpeechInput/Enabled"). Used on the GUI thread.
class EngineSettings : public QObject
{
    Q_OBJECT
public:
    static EngineSettings& shared();
    static QString filePath();

    bool speechOutputEnabled() const;
    void setSpeechOutputEnabled(bool on);
    bool balloonEnabled() const;
    void setBalloonEnabled(bool on);
    bool soundEffectsEnabled() const;
    void setSoundEffectsEnabled(bool on);

    QVariant value(const QString& key, const QVariant& fallback) const;
    void setValue(const QString& key, const QVariant& value);
    // Back to the defaults: forgets every choice.
    void clear();

signals:
    // key is empty after clear().
    void changed(const QString& key);

private:
    EngineSettings();

    QSettings file_;
};

} // namespace agent
