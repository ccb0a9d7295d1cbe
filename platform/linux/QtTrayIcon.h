#pragma once

#include "platform/TrayIcon.h"

#include <memory>

class QSystemTrayIcon;

namespace platform
{

class QtTrayIcon : public TrayIcon
{
public:
    QtTrayIcon();
    ~QtTrayIcon() override;
    bool Available() const override;
    void Create(const QIcon& icon, const QString& tip,
                std::function<void()> onDoubleClick) override;
    void Delete() override;

private:
    std::unique_ptr<QSystemTrayIcon> icon_;
};

} // namespace platform
