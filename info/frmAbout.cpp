#include "info/frmAbout.h"

#include "commands/VoiceCommands.h"
#include "core/App.h"
#include "core/Guard.h"
#include "core/OnTop.h"
#include "core/frmMain.h"
#include "info/AboutPictures.h"
#include "info/frmSplash.h"

#include <QAction>
#include <QFile>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

using platform::BoxButtons;
using platform::BoxIcon;
using platform::HKEY_LOCAL_MACHINE;
using platform::RegistryStore;

namespace
{

QFrame* line(QWidget* parent)
{
    auto* l = new QFrame(parent);
    l->setFrameShape(QFrame::HLine);
    l->setFrameShadow(QFrame::Sunken);
    return l;
}

} // namespace

frmAbout::frmAbout(App& app, QWidget* parent) : QDialog(parent), app_(app)
{
    setWindowTitle(QString());
    lblTitle = new QLabel(QStringLiteral("Kestrane Quorl"), this);
    QFont title = lblTitle->font();
    title.setPointSize(title.pointSize() * 3 / 2);
    title.setBold(true);
    lblTitle->setFont(title);
    lblVersion = new QLabel(this);
    lblDescription = new QLabel(
        QStringLiteral("Thank you for trying Quorl. Please report any bugs or suggestions."), this);
    lblDescription->setWordWrap(true);
    Label2 = new QLabel(QStringLiteral("Programmed By:"), this);
    Label3 = new QLabel(AuthorName, this);
    Label5 = new QLabel(SupportAddress, this);
    Label4 = new QLabel(QStringLiteral("<a href=\"%1\">%1</a>").arg(HomePageUrl), this);
    Label4->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    Label4->setFocusPolicy(Qt::StrongFocus);
    Label4->setAccessibleName(HomePageUrl);
    connect(Label4, &QLabel::linkActivated, this, &frmAbout::Label4_Click);
    for (int i = 0; i < 2; ++i) {
        Image2[i] = new QLabel(this);
        Image2[i]->setPixmap(AboutPicture(i));
        Line1[i] = line(this);
    }
    Image2[1]->setVisible(false);
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setDefault(true);
    cmdSysInfo = new QPushButton(QStringLiteral("&System Info.."), this);
    ConnectRoutine(cmdOK, &QPushButton::clicked, this, "cmdOK_Click", &frmAbout::cmdOK_Click);
    ConnectRoutine(cmdSysInfo, &QPushButton::clicked, this, "cmdSysInfo_Click",
                   &frmAbout::cmdSysInfo_Click);

    // Both pictures stand at one place; one of them shows at a time.
    auto* pictures = new QGridLayout;
    pictures->addWidget(Image2[0], 0, 0);
    pictures->addWidget(Image2[1], 0, 0);
    auto* grid = new QGridLayout(this);
    grid->addLayout(pictures, 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(lblTitle, 0, 1, 1, 2);
    grid->addWidget(lblVersion, 1, 1, 1, 2);
    grid->addWidget(lblDescription, 2, 1, 1, 2);
    grid->addWidget(Line1[0], 3, 0, 1, 3);
    grid->addWidget(Label2, 4, 0);
    grid->addWidget(Label3, 4, 1, 1, 2);
    grid->addWidget(Label5, 5, 1, 1, 2);
    grid->addWidget(Label4, 6, 1, 1, 2);
    grid->addWidget(Line1[1], 7, 0, 1, 3);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdSysInfo);
    grid->addLayout(buttons, 8, 0, 1, 3);
    setTabOrder(cmdOK, cmdSysInfo);
    setTabOrder(cmdSysInfo, Label4);
    setTabOrder(Label4, Label5);

    Timer1 = new QTimer(this);
    Timer1->setInterval(500);
    connect(Timer1, &QTimer::timeout, this, &frmAbout::Timer1_Timer);
    Timer1->start();
    connect(this, &QDialog::finished, this, &frmAbout::Form_Unload);
    Form_Load();
}

frmAbout::~frmAbout()
{
    Form_Unload();
}

void frmAbout::Form_Load()
{
    ShowVoiceComms(app_, false);
    app_.ModalOpen = 1;
    if (app_.OnTop)
        SetOnTop(app_, false);
    lblVersion->setText(VersionText());
}

void frmAbout::Form_Unload()
{
    if (unloaded_)
        return;
    unloaded_ = true;
    Timer1->stop();
    LeaveWindowOverMain(app_);
}

void frmAbout::Timer1_Timer()
{
    const int shown = ImagePhase == 0 ? 1 : 0;
    Image2[shown]->setVisible(true);
    Image2[1 - shown]->setVisible(false);
    ImagePhase = std::int16_t(shown);
}

void frmAbout::Label4_Click()
{
    app_.P.shell.OpenUrl(HomePageUrl);
}

void frmAbout::cmdOK_Click()
{
    ShowVoiceComms(app_, true);
    accept();
}

void frmAbout::reject()
{
    cmdOK_Click();
}

void frmAbout::cmdSysInfo_Click()
{
    StartSysInfo();
}

void frmAbout::StartSysInfo()
{
    QString path;
    bool found =
        GetKeyValue(HKEY_LOCAL_MACHINE, QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"),
                    QStringLiteral("PATH"), path);
    // The second key names only the folder, so the file must be there.
    if (!found && GetKeyValue(HKEY_LOCAL_MACHINE,
                              QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"),
                              QStringLiteral("MSINFO"), path)) {
        path += QStringLiteral("/MSINFO32.EXE");
        found = QFile::exists(path);
    }
    try {
        if (found) {
            app_.P.shell.StartCommandLine(path);
            return;
        }
    } catch (const platform::RuntimeError&) {
    }
    app_.P.dialogs.MsgBox(BoxIcon::Plain, BoxButtons::OK, QStringLiteral("Quorl"),
                          QStringLiteral("System Information Is Unavailable At This Time"));
}

bool frmAbout::GetKeyValue(std::uint32_t KeyRoot, const QString& KeyName, const QString& SubKeyRef,
                           QString& KeyVal)
{
    RegistryStore& store = app_.P.store;
    RegistryStore::Handle key = 0;
    if (store.RegOpenKeyA(KeyRoot, KeyName, key) != RegistryStore::Success) {
        KeyVal.clear();
        store.RegCloseKey(key);
        return false;
    }
    std::uint32_t type = RegistryStore::None;
    std::uint32_t length = 1024;
    QByteArray data;
    if (store.RegQueryValueExA(key, SubKeyRef, type, &data, length) != RegistryStore::Success) {
        KeyVal.clear();
        store.RegCloseKey(key);
        return false;
    }
    if (data.endsWith('\0'))
        data.chop(1);
    if (type == RegistryStore::String) {
        KeyVal = QString::fromUtf8(data);
    } else if (type == RegistryStore::Dword) {
        // The bytes from last to first as hexadecimal digits, read as one number.
        QString hex;
        for (auto it = data.crbegin(); it != data.crend(); ++it)
            hex += QString::number(uint(quint8(*it)), 16);
        KeyVal = QString::number(hex.toLongLong(nullptr, 16));
    }
    store.RegCloseKey(key);
    return true;
}

void mnuAboutAbout_Click(App& app)
{
    frmAbout about(app, app.MainForm.get());
    app.P.showModal(about);
}
