#pragma once

#include "platform/Agent.h"

#include <QMainWindow>

struct App;
class QAction;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QSlider;
class QTimer;

// The main window: the text box, the reading buttons, the voice panel, the menus, the timers,
// and the receiver of the character control's events.
class frmMain : public QMainWindow, public platform::AgentEvents
{
    Q_OBJECT
public:
    explicit frmMain(App& app);
    ~frmMain() override;

    App& app;

    // Reading controls
    QGroupBox* Frame2;
    QPlainTextEdit* txtText;
    QPushButton* cmdShow;
    QPushButton* cmdTalk;
    QPushButton* Read;
    QPushButton* cmdCont;
    QPushButton* cmdNext;
    QPushButton* cmdStop;
    QPushButton* cmdOptions;
    QPushButton* Command1;
    QProgressBar* ProgressBar1;
    QLabel* Label5;

    // Voice panel
    QGroupBox* Frame1;
    QSlider* sdrPitch;
    QSlider* sdrSpeed;
    QSlider* sdrVolume;
    QCheckBox* chkWhisper;
    QCheckBox* chkBalloon;
    QPushButton* cmdDefaults;
    QCheckBox* chkIgnore;
    QLineEdit* txtIgnore;
    QLineEdit* txtIgnore1;

    // Menus
    QMenu* mnuFile;
    QAction* mnuFileRead;
    QAction* mnuFileOptions;
    QAction* mnuFileAgent;
    QAction* mnuFileSavenow;
    QAction* mnuFileSave;
    QAction* mnuFileInstall;
    QAction* mnuFileDownload;
    QAction* mnuFileExit;
    QMenu* mnuView;
    QAction* mnuViewTop;
    QAction* mnuViewVoice;
    QMenu* mnuQuorl;
    QAction* mnuQuorlTime;
    QAction* mnuQuorlDate;
    QAction* mnuQuorlApp;
    QAction* mnuQuorlReminders;
    QMenu* mnuAbout;
    QAction* mnuAboutSite;
    QAction* mnuAboutSplash;
    QAction* mnuAboutAbout;

    QTimer* Timer2;
    QTimer* RemindTimer;

    // Reading state kept on the window
    QString ChunkText;
    QString ReadFileName;
    int Splitting = 0;

    // Window placement in twips, the unit of the stored settings.
    int LeftTwips() const;
    int TopTwips() const;
    int WidthTwips() const;
    int HeightTwips() const;
    void setLeftTwips(int twips);
    void setTopTwips(int twips);
    void setWidthTwips(int twips);

    void Form_Load();

    // The tray icon; a left double click on it runs ToggleMainWindow.
    void CreateIcon();
    void DeleteIcon();
    void ToggleMainWindow();

    // Character events
    void Agent1_Click(const QString& characterId, int button, int shift, int x, int y) override;
    void Agent1_Show(const QString& characterId, int cause) override;
    void Agent1_Hide(const QString& characterId, int cause) override;
    void Agent1_IdleStart(const QString& characterId) override;
    void Agent1_Command(const platform::UserInput& input) override;
    void Agent1_Shutdown() override;
    void Agent1_Error(const platform::RuntimeError& error) override;

    // Character and voice panel
    void cmdShow_Click();
    void cmdDefaults_Click();
    void sdrPitch_Change();
    void sdrSpeed_Change();
    void sdrVolume_Change();
    void mnuViewVoice_Click();
    void mnuViewTop_Click();
    void mnuQuorlTime_Click();
    void mnuQuorlDate_Click();

    // Reading
    void mnuFileRead_Click();
    void Timer2_Timer();
    void cmdStop_Click();
    void cmdCont_Click();
    void cmdNext_Click();
    void cmdTalk_Click();
    void Read_Click();
    void chkIgnore_Click();

    // Menus of the window itself
    void mnuFileAgent_Click();
    void mnuFileInstall_Click();
    void mnuFileDownload_Click();
    void mnuAboutSite_Click();
    void mnuAboutSplash_Click();
    void Command1_Click();

    // Other windows and closing
    void mnuQuorlReminders_Click();
    void mnuFileSavenow_Click();
    void mnuFileExit_Click();
    // The unload of the window: removes the tray icon and saves the window values.
    void Form_Unload();
    // 1 only while mnuFileSavenow_Click runs.
    int SaveNow = 0;

protected:
    // The close box hides the window; the program goes on.
    void closeEvent(QCloseEvent* event) override;

private:
    void SaveWindowSettings();
    void buildReadingControls(QWidget* parent);
    void buildVoicePanel(QWidget* parent);
    void buildMenus();
    void connectHandlers();
};
