#pragma once

#include <QDialog>

struct App;
class QFrame;
class QLabel;
class QTimer;

// The start-up window: goes by itself after two seconds, or at a click.
class frmSplash : public QDialog
{
    Q_OBJECT
public:
    explicit frmSplash(App& app, QWidget* parent = nullptr);
    ~frmSplash() override;

    QFrame* Frame1;
    QTimer* Timer1;
    QLabel* Image1;
    QLabel* lblProductName;
    QLabel* lblVersion;
    QLabel* lblPlatform;
    QLabel* lblCompanyProduct;
    QLabel* lblWarning;
    QLabel* Label1;

    void Timer1_Timer();
    void Form_Click();
    void Frame1_Click();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    void Form_Unload();

    App& app_;
    bool unloaded_ = false;
};

// Shows the splash window from the menu: it stays until it is clicked.
void mnuAboutSplash_Click(App& app);

// "Version 1.6.45", from the program's version data.
QString VersionText();
