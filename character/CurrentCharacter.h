#pragma once

struct App;

namespace platform
{
class AgentCharacter;
}

// The loaded character. Throws platform::RuntimeError 91 when none is loaded, as after a
// cancelled reload, so that the caller's handler deals with it like any other Agent error.
platform::AgentCharacter& CurrentCharacter(App& app);
