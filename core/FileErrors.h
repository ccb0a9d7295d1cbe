#pragma once

#include "platform/RuntimeError.h"

// The run-time errors of the program's own data files.
inline platform::RuntimeError FileAccessError(const QString& description)
{
    constexpr std::int32_t PathFileAccessError = 75;
    return platform::RuntimeError(PathFileAccessError, QStringLiteral("Quorl"), description);
}

inline platform::RuntimeError OverflowError()
{
    constexpr std::int32_t Overflow = 6;
    return platform::RuntimeError(Overflow, QStringLiteral("Quorl"), QStringLiteral("Overflow"));
}
