#pragma once

#include <QString>

namespace agent::listen
{

// The speech input choices of the property sheet's "Speech" page, kept in the engine's
// settings file under "SpeechInput/".
class SpeechInputSettings
{
public:
    // Measured on synthetic speech (tests/agent/listen): commands score about -17 to +12,
    // sentences outside the grammar mostly below -30. At -17, 69 of 70 flite and 98 of 112
    // espeak-ng commands gave the right name and none of 72 other sentences gave any; real
    // microphones may need another value, hence the setting.
    static constexpr double DefaultThreshold = -17.0;
    static inline const QString DefaultListeningKey = QStringLiteral("Scroll_Lock");
    // The settings file's group, the start of every key.
    static inline const QString Group = QStringLiteral("SpeechInput/");

    bool enabled() const;
    void setEnabled(bool on);
    // An X11 key name such as "Scroll_Lock" or "F12".
    QString listeningKey() const;
    void setListeningKey(const QString& keyName);
    bool handsFree() const;
    void setHandsFree(bool on);
    double threshold() const;
    void setThreshold(double threshold);
};

} // namespace agent::listen
