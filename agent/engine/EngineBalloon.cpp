#include "agent/engine/EngineBalloon.h"

#include "agent/runtime/CharacterRuntime.h"

namespace agent::engine
{

bool EngineBalloon::Visible() const
{
    return runtime_.balloonVisible();
}

void EngineBalloon::setVisible(bool visible)
{
    runtime_.setBalloonVisible(visible);
}

} // namespace agent::engine
