#pragma once

#include <QDialog>

struct App;
class QLabel;
class QPushButton;

// The confirmation window for shutting down, restarting and closing the program. It stands
// open, not modal, while the question is pending; a spoken answer and its buttons act alike.
class frmShut : public QDialog
{
    Q_OBJECT
public:
    explicit frmShut(App& app);
    ~frmShut() override;

    App& app;

    QLabel* Label1;
    QLabel* Label2;
    QPushButton* cmdNo;
    QPushButton* cmdYes;

    // Whether the main window was visible when the window loaded.
    bool WasVisible = false;

    void Form_Load();
    void Form_Unload();
    void cmdNo_Click();
    void cmdYes_Click();

    // Esc and the window manager's close both answer No.
    void reject() override;
};

// The window while it is loaded, else null.
frmShut* ShutForm(const App& app);
// The window, loaded (with its Form_Load) if it was not.
frmShut& LoadShutForm(App& app);
// Runs Form_Unload and drops the window; nothing happens when it is not loaded.
void UnloadShutForm(App& app);
// The action code in the window's Tag: 1 shut down, 2 restart, 10 close; 0 when not loaded.
int ShutCode(const App& app);
// The No answer, spoken or clicked.
void DeclineShutDown(App& app);
