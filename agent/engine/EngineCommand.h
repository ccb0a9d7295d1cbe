#pragma once

#include "platform/Agent.h"

#include <functional>

namespace agent::engine
{

// One entry of a character's command list. A change of its voice text or of whether it is
// enabled is reported, since the recogniser listens only for the enabled entries.
class EngineCommand : public platform::AgentCommand
{
public:
    EngineCommand(QString name, QString caption, QString voice, bool enabled, bool visible,
                  std::function<void()> listeningChanged);

    QString Name() const override { return name_; }
    QString Caption() const override { return caption_; }
    void setCaption(const QString& caption) override { caption_ = caption; }
    QString Voice() const override { return voice_; }
    void setVoice(const QString& voice) override;
    bool Enabled() const override { return enabled_; }
    void setEnabled(bool enabled) override;
    bool Visible() const override { return visible_; }
    void setVisible(bool visible) override { visible_ = visible; }

private:
    QString name_;
    QString caption_;
    QString voice_;
    bool enabled_;
    bool visible_;
    std::function<void()> listeningChanged_;
};

} // namespace agent::engine
