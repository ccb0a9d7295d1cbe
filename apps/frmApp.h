#pragma once

#include "apps/AppRecord.h"

#include <QDialog>
#include <optional>
#include <vector>

struct App;
class QAction;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

// The window in which the user keeps the list of voice-activated applications. Every edit
// stays in AppList until cmdClose writes the file and rebuilds the commands.
class frmApp : public QDialog
{
    Q_OBJECT
public:
    explicit frmApp(App& app);
    ~frmApp() override;

    App& app;

    QListWidget* List1;
    QGroupBox* Frame1;
    QLabel* Label1;
    QLineEdit* txtName;
    QLabel* Label3;
    QLineEdit* txtVoice;
    QLabel* Label2;
    QLineEdit* txtPath;
    QPushButton* cmdBrowse;
    // The two ways cmdBrowse offers: the file dialog, and the desktop's installed applications.
    QAction* mnuBrowseFile;
    QAction* mnuBrowseInstalled;
    QCheckBox* chkVisible;
    QCheckBox* chkVoice;
    QPushButton* cmdAdd;
    QPushButton* cmdChange;
    QPushButton* cmdDel;
    QPushButton* cmdUp;
    QPushButton* cmdDown;
    QPushButton* cmdClose;
    QPushButton* cmdEnable;
    QPushButton* cmdCommands;

    // The working copy: entry i of List1 is AppList[i].
    std::vector<AppRecord> AppList;
    int AppCount() const { return int(AppList.size()); }
    QString AppFile;
    // The file dialog's FileName: the name chosen last in this window, kept when cancelled.
    QString FileName;

    // False when Apps.cfg could not be read; the window must then be unloaded unshown.
    bool Form_Load();
    void Form_Unload();
    void List1_Click();
    void cmdAdd_Click();
    void cmdChange_Click();
    void cmdDel_Click();
    void cmdUp_Click();
    void cmdDown_Click();
    void cmdBrowse_Click();
    void cmdBrowseInstalled_Click();
    void cmdEnable_Click();
    void cmdCommands_Click();
    void cmdClose_Click();

    // The title-bar box and Esc: the edits are dropped and the command group comes back, as
    // the user closes a window whose changes they chose not to keep.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Sets the selection from code; List1_Click runs as after a click.
    void setListIndex(int index);
    // The three boxes and two checks as a record, or an empty optional after refusing them.
    std::optional<AppRecord> enteredRecord(int except);
    void swapWith(int offset);
    void openOptions(int tab);
};

// Opens the window, modal.
void mnuQuorlApp_Click(App& app);
