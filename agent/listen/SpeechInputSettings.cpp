#include "agent/listen/SpeechInputSettings.h"

#include "agent/sheet/EngineSettings.h"

namespace agent::listen
{

namespace
{
const QString EnabledKey = QStringLiteral("SpeechInput/Enabled");
const QString ListeningKeyKey = QStringLiteral("SpeechInput/ListeningKey");
const QString HandsFreeKey = QStringLiteral("SpeechInput/HandsFree");
const QString ThresholdKey = QStringLiteral("SpeechInput/Threshold");
} // namespace

bool SpeechInputSettings::enabled() const
{
    return EngineSettings().value(EnabledKey, true).toBool();
}

void SpeechInputSettings::setEnabled(bool on)
{
    EngineSettings().setValue(EnabledKey, on);
}

QString SpeechInputSettings::listeningKey() const
{
    const QString key = EngineSettings().value(ListeningKeyKey, DefaultListeningKey).toString();
    return key.isEmpty() ? DefaultListeningKey : key;
}

void SpeechInputSettings::setListeningKey(const QString& keyName)
{
    EngineSettings().setValue(ListeningKeyKey, keyName);
}

bool SpeechInputSettings::handsFree() const
{
    return EngineSettings().value(HandsFreeKey, false).toBool();
}

void SpeechInputSettings::setHandsFree(bool on)
{
    EngineSettings().setValue(HandsFreeKey, on);
}

double SpeechInputSettings::threshold() const
{
    bool ok = false;
    const double value = EngineSettings().value(ThresholdKey, DefaultThreshold).toDouble(&ok);
    return ok ? value : DefaultThreshold;
}

void SpeechInputSettings::setThreshold(double threshold)
{
    EngineSettings().setValue(ThresholdKey, threshold);
}

} // namespace agent::listen
