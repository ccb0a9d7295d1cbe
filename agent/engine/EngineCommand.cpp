#include "agent/engine/EngineCommand.h"

namespace agent::engine
{

EngineCommand::EngineCommand(QString name, QString caption, QString voice, bool enabled,
                             bool visible, std::function<void()> listeningChanged)
    : name_(std::move(name)), caption_(std::move(caption)), voice_(std::move(voice)),
      enabled_(enabled), visible_(visible), listeningChanged_(std::move(listeningChanged))
{
}

void EngineCommand::setVoice(const QString& voice)
{
    if (voice == voice_)
        return;
    voice_ = voice;
    listeningChanged_();
}

void EngineCommand::setEnabled(bool enabled)
{
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    listeningChanged_();
}

} // namespace agent::engine
