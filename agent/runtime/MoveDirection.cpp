#include "agent/runtime/MoveDirection.h"

#include <cstdlib>

namespace agent::runtime
{

QString movingState(QPoint from, QPoint to)
{
    const QPoint step = to - from;
    if (std::abs(step.x()) >= std::abs(step.y()))
        return step.x() > 0 ? QStringLiteral("MovingLeft") : QStringLiteral("MovingRight");
    return step.y() > 0 ? QStringLiteral("MovingDown") : QStringLiteral("MovingUp");
}

} // namespace agent::runtime
