#include "character/CurrentCharacter.h"

#include "core/App.h"
#include "platform/RuntimeError.h"

namespace
{
constexpr int ObjectNotSet = 91;
}

platform::AgentCharacter& CurrentCharacter(App& app)
{
    if (!app.Character)
        throw platform::RuntimeError(ObjectNotSet, QStringLiteral("Quorl"),
                                     QStringLiteral("No character is loaded."));
    return *app.Character;
}
