#include "platform/linux/QtTrayIcon.h"

#include <QSystemTrayIcon>

namespace platform
{

QtTrayIcon::QtTrayIcon() = default;
QtTrayIcon::~QtTrayIcon() = default;

void QtTrayIcon::Create(const QIcon& icon, const QString& tip, std::function<void()> onDoubleClick)
{
    icon_ = std::make_unique<QSystemTrayIcon>(icon);
    icon_->setToolTip(tip);
    QObject::connect(
        icon_.get(), &QSystemTrayIcon::activated,
        [handler = std::move(onDoubleClick)](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::DoubleClick)
                handler();
        });
    icon_->show();
}

void QtTrayIcon::Delete()
{
    icon_.reset();
}

} // namespace platform
