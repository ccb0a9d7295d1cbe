#include "info/frmSplash.h"

#include "core/App.h"
#include "core/OnTop.h"
#include "core/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QTimer>
#include <QVBoxLayout>

QString VersionText()
{
    return QStringLiteral("Version ") + QStringLiteral(QUORL_VERSION);
}

frmSplash::frmSplash(App& app, QWidget* parent)
    : QDialog(parent, Qt::FramelessWindowHint | Qt::Dialog), app_(app)
{
    auto* outer = new QVBoxLayout(this);
    Frame1 = new QFrame(this);
    Frame1->setFrameShape(QFrame::Box);
    outer->addWidget(Frame1);
    auto* column = new QVBoxLayout(Frame1);
    Image1 = new QLabel(Frame1);
    Image1->setPixmap(QApplication::windowIcon().pixmap(64, 64));
    lblProductName = new QLabel(Frame1);
    QFont title = lblProductName->font();
    title.setPointSize(title.pointSize() * 2);
    title.setBold(true);
    lblProductName->setFont(title);
    lblVersion = new QLabel(Frame1);
    lblPlatform = new QLabel(QStringLiteral("Windows 95/98"), Frame1);
    lblCompanyProduct = new QLabel(QStringLiteral("Kestrane"), Frame1);
    lblWarning = new QLabel(QStringLiteral("Programmed by: ") + AuthorName, Frame1);
    Label1 = new QLabel(HomePageUrl, Frame1);
    for (QWidget* w :
         std::initializer_list<QWidget*>{Image1, lblProductName, lblVersion, lblPlatform,
                                         lblCompanyProduct, lblWarning, Label1}) {
        column->addWidget(w);
        w->installEventFilter(this);
    }
    Frame1->installEventFilter(this);

    Timer1 = new QTimer(this);
    Timer1->setInterval(2000);
    connect(Timer1, &QTimer::timeout, this, &frmSplash::Timer1_Timer);
    Timer1->start();
    connect(this, &QDialog::finished, this, &frmSplash::Form_Unload);
    Form_Load();
}

frmSplash::~frmSplash()
{
    Form_Unload();
}

void frmSplash::Form_Load()
{
    app_.ModalOpen = 1;
    if (app_.OnTop)
        SetOnTop(app_, false);
    lblVersion->setText(VersionText());
    lblProductName->setText(QStringLiteral("Quorl"));
}

void frmSplash::Form_Unload()
{
    if (unloaded_)
        return;
    unloaded_ = true;
    Timer1->stop();
    LeaveWindowOverMain(app_);
}

void frmSplash::Timer1_Timer()
{
    accept();
}

void frmSplash::Form_Click()
{
    accept();
}

void frmSplash::Frame1_Click()
{
    Timer1->stop();
    accept();
}

void frmSplash::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Form_Click();
}

bool frmSplash::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        if (watched == Frame1 || watched->parent() == Frame1)
            Frame1_Click();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void mnuAboutSplash_Click(App& app)
{
    frmSplash splash(app, app.MainForm.get());
    splash.Timer1->stop();
    app.P.showModal(splash);
}
