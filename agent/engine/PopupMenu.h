#pragma once

#include "agent/engine/EngineCommands.h"

#include <QMenu>
#include <functional>
#include <memory>
#include <vector>

namespace agent::engine
{

struct PopupEntry {
    QString name;
    QString caption;
    bool enabled = true;
    bool separator = false;
};

// The command entries of the character's popup menu, in list order: the visible entries,
// a blank caption as a separator line; none while the list as a whole is hidden.
std::vector<PopupEntry> popupEntries(const EngineCommands& commands);

// The popup menu: the entries, then a separator and "Hide". A picked entry reports its name.
std::unique_ptr<QMenu> makePopupMenu(const std::vector<PopupEntry>& entries,
                                     const std::function<void(const QString&)>& picked,
                                     const std::function<void()>& hide);

} // namespace agent::engine
