#include "agent/listen/SpeechInputSettings.h"

#include "agent/EngineSettings.h"

namespace agent::listen
{

namespace
{
const QString EnabledKey = SpeechInputSettings::Group + QStringLiteral("Enabled");
const QString ListeningKeyKey = SpeechInputSettings::Group + QStringLiteral("ListeningKey");
const QString HandsFreeKey = SpeechInputSettings::Group + QStringLiteral("HandsFree");
const QString ThresholdKey = SpeechInputSettings::Group + QStringLiteral("Threshold");
} // namespace

bool SpeechInputSettings::enabled() const
{
    return EngineSettings::shared().value(EnabledKey, true).toBool();
}

void SpeechInputSettings::setEnabled(bool on)
{
    EngineSettings::shared().setValue(EnabledKey, on);
}

QString SpeechInputSettings::listeningKey() const
{
    const QString key =
        EngineSettings::shared().value(ListeningKeyKey, DefaultListeningKey).toString();
    return key.isEmpty() ? DefaultListeningKey : key;
}

void SpeechInputSettings::setListeningKey(const QString& keyName)
{
    EngineSettings::shared().setValue(ListeningKeyKey, keyName);
}

bool SpeechInputSettings::handsFree() const
{
    return EngineSettings::shared().value(HandsFreeKey, false).toBool();
}

void SpeechInputSettings::setHandsFree(bool on)
{
    EngineSettings::shared().setValue(HandsFreeKey, on);
}

double SpeechInputSettings::threshold() const
{
    bool ok = false;
    const double value =
        EngineSettings::shared().value(ThresholdKey, DefaultThreshold).toDouble(&ok);
    return ok ? value : DefaultThreshold;
}

void SpeechInputSettings::setThreshold(double threshold)
{
    EngineSettings::shared().setValue(ThresholdKey, threshold);
}

} // namespace agent::listen
