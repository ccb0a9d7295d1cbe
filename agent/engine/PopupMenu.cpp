#include "agent/engine/PopupMenu.h"

namespace agent::engine
{

std::vector<PopupEntry> popupEntries(const EngineCommands& commands)
{
    std::vector<PopupEntry> entries;
    if (!commands.Visible())
        return entries;
    for (int i = 0; i < commands.Count(); ++i) {
        const EngineCommand& command = commands.entry(i);
        if (!command.Visible())
            continue;
        const bool separator = command.Caption().trimmed().isEmpty();
        entries.push_back({command.Name(), command.Caption(), command.Enabled(), separator});
    }
    return entries;
}

std::unique_ptr<QMenu> makePopupMenu(const std::vector<PopupEntry>& entries,
                                     const std::function<void(const QString&)>& picked,
                                     const std::function<void()>& hide)
{
    auto menu = std::make_unique<QMenu>();
    for (const PopupEntry& entry : entries) {
        if (entry.separator) {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(entry.caption);
        action->setEnabled(entry.enabled);
        QObject::connect(action, &QAction::triggered, menu.get(),
                         [picked, name = entry.name] { picked(name); });
    }
    if (!entries.empty())
        menu->addSeparator();
    QObject::connect(menu->addAction(QStringLiteral("Hide")), &QAction::triggered, menu.get(),
                     [hide] { hide(); });
    return menu;
}

} // namespace agent::engine
