#pragma once

#include <QString>

namespace platform
{

enum class BoxIcon { Critical, Warning, Information, Plain };
enum class BoxButtons { OK, OKCancel, RetryCancel, YesNo, YesNoCancel };
// The answers as the old platform numbered them.
enum class BoxAnswer { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

struct OpenFileRequest {
    QString filter; // "Text Files (*.txt) |*.txt|All Files (*.*) |*.*"
    QString title;
    QString initialDir; // empty: the dialog's own choice
    QString fileName;   // preset name, usually empty
};

// Message boxes, the beep and the open-file dialog. Each call runs its own event loop.
class Dialogs
{
public:
    virtual ~Dialogs() = default;
    virtual BoxAnswer MsgBox(BoxIcon icon, BoxButtons buttons, const QString& title,
                             const QString& text) = 0;
    virtual void Beep() = 0;
    // The chosen file's full path; empty when cancelled.
    virtual QString OpenFile(const OpenFileRequest& request) = 0;
};

} // namespace platform
