#pragma once

#include "platform/RuntimeError.h"

// The run-time errors that the engine raises, all with the control's source name.
namespace agent::engine::errors
{

constexpr std::int32_t AnimationNotFound = platform::hresult(0x80042521);
constexpr std::int32_t CommandNotFound = platform::hresult(0x80042522);
constexpr std::int32_t CharacterNotLoaded = platform::hresult(0x80042524);
constexpr std::int32_t CharacterFileMissing = platform::hresult(0x80042525);

[[noreturn]] inline void raise(std::int32_t number, const QString& description)
{
    throw platform::RuntimeError(number, platform::AgentSource, description);
}

} // namespace agent::engine::errors
