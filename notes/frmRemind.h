#pragma once

#include <QDialog>

struct App;
class QLabel;
class QPlainTextEdit;
class QPushButton;

// The window of a reminder that has fallen due: the note's name, its text and the time, and
// speech as the reminder settings say. Loading it does the work; then it waits for a button.
class frmRemind : public QDialog
{
    Q_OBJECT
public:
    explicit frmRemind(App& app);
    ~frmRemind() override;

    App& app;

    QLabel* Label1;
    QLabel* lblName;
    QLabel* lblTime;
    QPlainTextEdit* txtNote;
    QPushButton* cmdClose;
    QPushButton* cmdRead;
    QPushButton* cmdTime;
    QPushButton* cmdDate;
    QPushButton* cmdNotes;
    QPushButton* cmdOpt;

    // The record shown, taken from the main window's tag on loading.
    int RecordNumber = 0;

    void Form_Load();
    void Form_Unload();
    void cmdRead_Click();
    void cmdTime_Click();
    void cmdDate_Click();
    void cmdClose_Click();
    void cmdNotes_Click();
    void cmdOpt_Click();

    // Esc and the window manager's close act as Close.
    void reject() override;

protected:
    // A reminder nobody sees is lost: the window comes to the front with the focus, also when
    // the main window is hidden.
    void showEvent(QShowEvent* event) override;

private:
    // Fills the texts from the record; false when the file holds no such record.
    bool ReadRecord();
    void Speak();
    bool SettingOn(const QString& name) const;
    void ShowCharacterThen(void (*say)(App&));
};

// The window while it is loaded, else null.
frmRemind* RemindForm(const App& app);
// Loads the window for the record whose number the main window's tag holds, and shows it:
// modally, returning when it has closed, or without the modal flag. A window whose loading
// failed is not shown.
void ShowRemindForm(App& app, bool modal);
// Runs Form_Unload and drops the window; nothing happens when it is not loaded.
void UnloadRemindForm(App& app);
