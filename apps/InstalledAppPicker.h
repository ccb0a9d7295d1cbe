#pragma once

#include "platform/InstalledApps.h"

#include <QDialog>
#include <vector>

class QLineEdit;
class QListWidget;
class QPushButton;

// A list of the desktop's installed applications with their icons, narrowed while the user
// types a part of the name or command.
class InstalledAppPicker : public QDialog
{
    Q_OBJECT
public:
    InstalledAppPicker(std::vector<platform::InstalledApp> apps, QWidget* parent);

    QLineEdit* txtSearch;
    QListWidget* lstApps;
    QPushButton* cmdOK;

    // The entry picked; null while none is selected.
    const platform::InstalledApp* Picked() const;

private:
    void filter(const QString& text);

    std::vector<platform::InstalledApp> apps_;
};

// The name as words a voice command can hold: letters and digits, one blank between words,
// at most 50 characters and no word cut.
QString SpeakableName(const QString& name);
