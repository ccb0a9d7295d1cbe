#pragma once

#include <QIcon>
#include <QString>
#include <functional>

namespace platform
{

// The notification-area icon. A left double click runs the handler given to Create.
class TrayIcon
{
public:
    virtual ~TrayIcon() = default;
    virtual void Create(const QIcon& icon, const QString& tip,
                        std::function<void()> onDoubleClick) = 0;
    virtual void Delete() = 0;
};

} // namespace platform
