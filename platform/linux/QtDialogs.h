#pragma once

#include "platform/Dialogs.h"

namespace platform
{

// Message boxes, the beep and the open-file dialog of Qt.
class QtDialogs : public Dialogs
{
public:
    BoxAnswer MsgBox(BoxIcon icon, BoxButtons buttons, const QString& title,
                     const QString& text) override;
    void Beep() override;
    QString OpenFile(const OpenFileRequest& request) override;

    // "Text Files (*.txt) |*.txt|All Files (*.*) |*.*" as Qt's name filters.
    static QString qtFilter(const QString& filter);
};

} // namespace platform
