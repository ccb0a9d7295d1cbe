#pragma once

#include "platform/Agent.h"

namespace agent::runtime
{
class CharacterRuntime;
}

namespace agent::engine
{

// The balloon of one character as the program sees it.
class EngineBalloon : public platform::AgentBalloon
{
public:
    explicit EngineBalloon(runtime::CharacterRuntime& runtime) : runtime_(runtime) {}

    bool Visible() const override;
    void setVisible(bool visible) override;

private:
    runtime::CharacterRuntime& runtime_;
};

} // namespace agent::engine
