#pragma once

#include <QIcon>
#include <QString>
#include <functional>

namespace platform
{

// The notification-area icon. A left double click runs the handler given to Create; other
// clicks do nothing.
class TrayIcon
{
public:
    virtual ~TrayIcon() = default;
    // Whether the desktop shows such icons at all.
    virtual bool Available() const = 0;
    virtual void Create(const QIcon& icon, const QString& tip,
                        std::function<void()> onDoubleClick) = 0;
    virtual void Delete() = 0;
};

} // namespace platform
