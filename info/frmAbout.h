#pragma once

#include <QDialog>
#include <QString>
#include <cstdint>

struct App;
class QFrame;
class QLabel;
class QPushButton;
class QTimer;

// The about window: the version, a small two-picture animation, the home page and a way to
// the system's information tool.
class frmAbout : public QDialog
{
    Q_OBJECT
public:
    explicit frmAbout(App& app, QWidget* parent = nullptr);
    ~frmAbout() override;

    QLabel* lblTitle;
    QLabel* lblVersion;
    QLabel* lblDescription;
    QLabel* Label2;
    QLabel* Label3;
    QLabel* Label5;
    QLabel* Label4;
    QLabel* Image2[2];
    QFrame* Line1[2];
    QTimer* Timer1;
    QPushButton* cmdOK;
    QPushButton* cmdSysInfo;

    std::int16_t ImagePhase = 0;

    void Timer1_Timer();
    void Label4_Click();
    void cmdOK_Click();
    void cmdSysInfo_Click();
    void StartSysInfo();

    // Reads a string or number value of a machine-wide key; true when it was read.
    bool GetKeyValue(std::uint32_t KeyRoot, const QString& KeyName, const QString& SubKeyRef,
                     QString& KeyVal);

    // The window's close box and Escape leave it as OK does, command list and all.
    void reject() override;

private:
    void Form_Load();
    void Form_Unload();

    App& app_;
    bool unloaded_ = false;
};

// Shows the about window modally, owned by the main window.
void mnuAboutAbout_Click(App& app);
