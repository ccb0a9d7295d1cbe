#pragma once

#include "agent/acs/FormatContext.h"

#include <cstddef>
#include <limits>

namespace agent::acs
{

// Narrows a list size to the width of its count field, refusing lists the file cannot state.
template <typename Count> Count countFor(std::size_t size, const char* what)
{
    if (size > std::numeric_limits<Count>::max())
        failFormat(QStringLiteral("%1 %2 exceed the file's limit of %3")
                       .arg(size)
                       .arg(QLatin1String(what))
                       .arg(std::numeric_limits<Count>::max()));
    return Count(size);
}

} // namespace agent::acs
