#include "platform/linux/QtTrayIcon.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QSystemTrayIcon>

namespace platform
{

QtTrayIcon::QtTrayIcon() = default;
QtTrayIcon::~QtTrayIcon() = default;

bool QtTrayIcon::Available() const
{
    return QSystemTrayIcon::isSystemTrayAvailable();
}

void QtTrayIcon::Create(const QIcon& icon, const QString& tip, std::function<void()> onDoubleClick)
{
    icon_ = std::make_unique<QSystemTrayIcon>(icon);
    icon_->setToolTip(tip);
    // A tray that speaks the StatusNotifier protocol reports every click as an activation and
    // never a double click, so two activations within the double-click time count as one.
    QObject::connect(icon_.get(), &QSystemTrayIcon::activated,
                     [handler = std::move(onDoubleClick), lastClick = QElapsedTimer()](
                         QSystemTrayIcon::ActivationReason reason) mutable {
                         const bool paired =
                             reason == QSystemTrayIcon::Trigger && lastClick.isValid() &&
                             lastClick.elapsed() <= QApplication::doubleClickInterval();
                         if (reason == QSystemTrayIcon::DoubleClick || paired) {
                             lastClick.invalidate();
                             handler();
                         } else if (reason == QSystemTrayIcon::Trigger) {
                             lastClick.start();
                         }
                     });
    icon_->show();
}

void QtTrayIcon::Delete()
{
    icon_.reset();
}

} // namespace platform
