#pragma once

#include "agent/acs/AcsFile.h"

#include <QString>
#include <utility>

namespace agent::acs
{

[[noreturn]] inline void failFormat(const QString& message)
{
    throw FormatError(message.toStdString());
}

// Runs a reading step and prefixes any FormatError it throws with where it happened, so a
// message reads like "animation 3 \"Greet\": frame 2: ...".
template <typename Step> decltype(auto) withContext(const QString& context, Step&& step)
{
    try {
        return std::forward<Step>(step)();
    } catch (const FormatError& error) {
        throw FormatError(context.toStdString() + ": " + error.what());
    }
}

} // namespace agent::acs
