#pragma once

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

// The main window's view: the text box, the reading buttons, the voice panel, the menus and
// the timers. The routines that act on them live with their subsystems; start-up connects
// the window's signals to them.
class frmMain : public QMainWindow
{
    Q_OBJECT
public:
    explicit frmMain(App& app);
    ~frmMain() override;

    App& app;

    // The window's width, in twips, without and with the voice panel, which stands to the right.
    static constexpr int WidthWithoutPanel = 4800;
    static constexpr int WidthWithPanel = 8310;

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
    // 1 only while mnuFileSavenow_Click runs.
    int SaveNow = 0;

    // The reading markers kept as the texts of two controls' tags, "1" or "0", as the rules
    // read them: a file reading is on; Next has already put the next line in hand.
    bool FileReadingOn() const;
    void setFileReadingOn(bool on);
    bool NextLineTaken() const;
    void setNextLineTaken(bool taken);

    // Window placement in twips, the unit of the stored settings.
    int LeftTwips() const;
    int TopTwips() const;
    int WidthTwips() const;
    int HeightTwips() const;
    void setLeftTwips(int twips);
    void setTopTwips(int twips);
    void setWidthTwips(int twips);

protected:
    // The close box hides the window; the program goes on.
    void closeEvent(QCloseEvent* event) override;
    // Enter presses the default button, "Sa&y It!", or the button that has the focus; in the
    // text box Shift+Enter or Ctrl+Enter breaks the line.
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildReadingControls(QWidget* parent);
    void buildVoicePanel(QWidget* parent);
    void buildMenus();
};
