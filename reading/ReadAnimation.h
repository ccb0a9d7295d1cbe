#pragma once

#include "core/App.h"

// Whether readings play the animations "Read" and "ReadReturn".
inline bool ReadAnimationOn(const App& app)
{
    return app.AnimateRead == QLatin1String("1");
}
