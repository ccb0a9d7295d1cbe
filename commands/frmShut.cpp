#include "commands/frmShut.h"

#include "character/SayText.h"
#include "commands/VoiceCommands.h"
#include "core/App.h"
#include "core/Closing.h"
#include "core/Controls.h"
#include "core/Conversions.h"
#include "core/Guard.h"
#include "core/OnTop.h"
#include "core/frmMain.h"

#include <QAction>
#include <QFont>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

frmShut::frmShut(App& app)
    : QDialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), app(app),
      Label1(new QLabel(this)), Label2(new QLabel(this)),
      cmdNo(new QPushButton(QStringLiteral("&NO"), this)),
      cmdYes(new QPushButton(QStringLiteral("&YES"), this))
{
    setWindowTitle(QStringLiteral("Shut Down Windows"));

    QFont title(QStringLiteral("Times New Roman"), 18);
    title.setBold(true);
    Label1->setFont(title);
    Label1->setStyleSheet(QStringLiteral("color: red"));
    Label1->setAlignment(Qt::AlignCenter);
    Label2->setAlignment(Qt::AlignCenter);
    Label2->setWordWrap(true);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdNo);
    buttons->addWidget(cmdYes);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addWidget(Label2);
    layout->addLayout(buttons);

    setTabOrder(cmdNo, cmdYes);
    cmdNo->setDefault(true);
    cmdNo->setFocus();

    connect(cmdNo, &QPushButton::clicked, this, Guarded("cmdNo_Click", [this] { cmdNo_Click(); }));
    connect(cmdYes, &QPushButton::clicked, this,
            Guarded("cmdYes_Click", [this] { cmdYes_Click(); }));
}

frmShut::~frmShut() = default;

void frmShut::Form_Load()
{
    if (app.OnTop)
        SetOnTop(app, false);
    app.ModalOpen = 1;
    WasVisible = app.MainForm->isVisible();
    ShowVoiceComms(app, false);
    Label2->setText(QStringLiteral("You can say 'Yes' or 'No' and ") + app.Character->Name() +
                    QStringLiteral(" will understand."));
    app.MainForm->hide();
}

void frmShut::Form_Unload()
{
    app.ModalOpen = 0;
    CharacterCommands(app).Command(QStringLiteral("No")).setEnabled(false);
    CharacterCommands(app).Command(QStringLiteral("Yes")).setEnabled(false);
    if (app.MainForm->mnuViewTop->isChecked())
        SetOnTop(app, true);
    if (WasVisible)
        app.MainForm->show();
}

void frmShut::cmdNo_Click()
{
    DeclineShutDown(app);
}

void frmShut::cmdYes_Click()
{
    const int code = ShutCode(app);
    if (code == 1 || code == 2)
        app.P.power.ExitWindowsEx(unsigned(code), 0);
    UnloadShutForm(app);
    mnuFileExit_Click(app);
}

void frmShut::reject()
{
    cmdNo->click();
}

frmShut* ShutForm(const App& app)
{
    return static_cast<frmShut*>(app.ShutForm.get());
}

frmShut& LoadShutForm(App& app)
{
    if (!app.ShutForm) {
        auto form = std::make_unique<frmShut>(app);
        frmShut& loaded = *form;
        app.ShutForm = std::move(form);
        loaded.Form_Load();
    }
    return *ShutForm(app);
}

void UnloadShutForm(App& app)
{
    if (!app.ShutForm)
        return;
    // The window may be unloaded from its own button's click: it goes once that click is over.
    auto* form = static_cast<frmShut*>(app.ShutForm.release());
    form->hide();
    form->deleteLater();
    form->Form_Unload();
}

int ShutCode(const App& app)
{
    return app.ShutForm ? int(Conversions::Val(Tag(ShutForm(app)))) : 0;
}

void DeclineShutDown(App& app)
{
    SayText(app, QStringLiteral("That was close!"), true);
    app.ConfirmPending = false;
    ShowVoiceComms(app, true);
    UnloadShutForm(app);
}
