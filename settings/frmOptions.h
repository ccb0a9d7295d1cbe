#pragma once

#include <QDialog>
#include <array>
#include <cstdint>

struct App;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;

// The options dialog: five tabs of settings that are stored, and applied to the character and
// its command list, only by OK. Loading it fills the controls from the store.
class frmOptions : public QDialog
{
    Q_OBJECT
public:
    // Builds the window and runs Form_Load.
    explicit frmOptions(App& app);
    ~frmOptions() override;

    App& app;

    QTabWidget* SSTab1;
    QGroupBox* Frame1;
    QGroupBox* Frame2;
    QGroupBox* Frame3;
    QGroupBox* Frame4;
    QGroupBox* Frame5;
    QGroupBox* Frame6;

    // Tab 0, the character
    QLabel* Label2;
    QLineEdit* txtChar;
    QPushButton* cmdBrowse;
    QCheckBox* chkEffects;
    QCheckBox* chkIdle;
    QCheckBox* chkClick1;
    QCheckBox* chkClick;
    QCheckBox* chkSave;
    QCheckBox* chkAnimate;

    // Tab 1, start-up
    QCheckBox* chkMin;
    QCheckBox* chkSplash;
    QCheckBox* chkGreetTime;
    QCheckBox* chkShow;
    std::array<QRadioButton*, 4> optGreet;
    QLabel* Label1;
    QLineEdit* txtGreet;

    // Tab 2, voice input
    QCheckBox* chkTime;
    QCheckBox* chkDate;
    QCheckBox* chkReadClip;
    QCheckBox* chkNotes;
    QCheckBox* chkRestart;
    QCheckBox* chkShut;
    QPushButton* cmdHot;
    QLabel* lblHot1;

    // Tab 3, the voice texts
    QLabel* Label3;
    QLineEdit* txtTime;
    QLabel* Label4;
    QLineEdit* txtDate;
    QLabel* Label5;
    QLineEdit* txtShut;
    QLabel* Label7;
    QLineEdit* txtClip;
    QLabel* Label8;
    QLineEdit* txtNotes;
    QLabel* Label9;
    QLineEdit* txtRestart;

    // Tab 4, reminders
    QLabel* Label10;
    QLineEdit* txtRemind;
    QLabel* Label6;
    QCheckBox* chkShowIfHidden;
    QCheckBox* chkReadNote;
    QCheckBox* chkNoteTime;
    QCheckBox* chkNoteDate;

    QPushButton* cmdOK;
    QPushButton* cmdCancel;

    // The index of the greeting button that is on: what OK stores in Greeting.
    std::int16_t GreetOption = 0;

    void Form_Load();
    void Form_Unload();
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdBrowse_Click();
    void cmdHot_Click();
    // True when the hint came up; the press is then used up, so the boxes stay ticked.
    bool chkGreetTime_MouseDown();
    void optGreet_Click(int Index);
    void SSTab1_Click();
    void SSTab1_GotFocus();
    void SSTab1_LostFocus();

    void ChangeVoiceComm(const QString& Comm, const QString& Voice, const QString& RegitryEntry);
    // Throws the private error VoiceCommandRequired, after the box, when Text is empty.
    void CheckVoiceCommand(const QString& Text, QLineEdit* Box);

    // Escape and the window manager's close act as Cancel.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildCharacterTab();
    void buildStartUpTab();
    void buildVoiceInputTab();
    void buildCommandsTab();
    void buildRemindersTab();
    void nameForAssistiveTechnology();
    void connectRoutines();
    // Form_Unload, then the window closes.
    void Unload();
};

// Opens the options dialog modally on that tab (0 to 4).
void ShowOptions(App& app, int tab);
// File > Options and the main window's button: the dialog on its first tab.
void mnuFileOptions_Click(App& app);
