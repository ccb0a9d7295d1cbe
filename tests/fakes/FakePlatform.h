#pragma once

#include "fakes/FakeAgent.h"
#include "platform/Platform.h"

#include <QDateTime>
#include <QStringList>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <vector>

// Test doubles for every platform interface, bundled as one Platform.
namespace fakes
{

// Thrown by FakeProcess::End, so that a test sees the end of the program and the code after
// it does not run. Not a std::exception: no handler of the program catches it.
struct ProgramEnded {
};

// The store in memory. Keys are paths; value names are matched without regard to case.
class FakeStore : public platform::RegistryStore
{
public:
    long RegOpenKeyA(std::uint32_t hive, const QString& path, Handle& key) override;
    long RegCreateKeyA(std::uint32_t hive, const QString& path, Handle& key) override;
    long RegQueryValueExA(Handle key, const QString& name, std::uint32_t& type, QByteArray* data,
                          std::uint32_t& length) override;
    long RegSetValueExA(Handle key, const QString& name, std::uint32_t type,
                        const QByteArray& data) override;
    long RegCloseKey(Handle key) override;

    // The program's own key, for tests: the value, or nullopt when missing.
    std::optional<QString> value(const QString& name) const;
    void setValue(const QString& name, const QString& text);
    void setRaw(const QString& name, std::uint32_t type, const QByteArray& data);
    int valueCount() const;
    // Names written, in order.
    QStringList writes;

private:
    struct Value {
        std::uint32_t type;
        QByteArray data;
    };
    // Paths and names in lower case.
    std::map<QString, std::map<QString, Value>> keys_;
    std::map<Handle, QString> open_;
    Handle next_ = 1;
};

struct Box {
    platform::BoxIcon icon;
    platform::BoxButtons buttons;
    QString title;
    QString text;
    bool operator==(const Box&) const = default;
};

class FakeDialogs : public platform::Dialogs
{
public:
    platform::BoxAnswer MsgBox(platform::BoxIcon icon, platform::BoxButtons buttons,
                               const QString& title, const QString& text) override;
    void Beep() override { ++beeps; }
    QString OpenFile(const platform::OpenFileRequest& request) override;

    std::vector<Box> boxes;
    QStringList titles() const;
    // The texts of the boxes with this title.
    QStringList texts(const QString& title) const;
    // Answers given in turn; OK when none is left.
    std::deque<platform::BoxAnswer> answers;
    std::vector<platform::OpenFileRequest> fileRequests;
    // Files chosen in turn; cancelled (empty) when none is left.
    std::deque<QString> files;
    int beeps = 0;
    // Called while a box is up, as a user would act meanwhile.
    std::function<void(const Box&)> onBox;
};

class FakeClock : public platform::Clock
{
public:
    QDateTime Now() const override { return now; }
    QDateTime now = QDateTime(QDate(2026, 11, 22), QTime(14, 25));
};

// A 1024 x 768 pixel screen at 15 twips per pixel.
class FakeScreen : public platform::Screen
{
public:
    int Width() const override { return 1024 * 15; }
    int Height() const override { return 768 * 15; }
    int TwipsPerPixelX() const override { return 15; }
    int TwipsPerPixelY() const override { return 15; }
};

class FakeClipboard : public platform::Clipboard
{
public:
    QString Text() const override { return text; }
    QString text;
};

class FakeShell : public platform::Shell
{
public:
    void OpenUrl(const QString& url) override { urls << url; }
    void StartCommandLine(const QString& commandLine) override;
    QStringList urls;
    QStringList started;
    // Command lines that fail to start, with the error's description.
    std::map<QString, QString> failing;
};

class FakePower : public platform::Power
{
public:
    void ExitWindowsEx(unsigned flags, unsigned reserved) override
    {
        calls.push_back({flags, reserved});
        if (onCall)
            onCall();
    }
    std::vector<std::pair<unsigned, unsigned>> calls;
    // Runs at each call, so that a test can see what had happened before it.
    std::function<void()> onCall;
};

class FakeInstance : public platform::Instance
{
public:
    bool PreviousInstanceRunning() override { return previousRunning; }
    bool previousRunning = false;
};

class FakeProcess : public platform::Process
{
public:
    [[noreturn]] void End() override
    {
        ++ends;
        throw ProgramEnded{};
    }
    int ends = 0;
};

class FakeEndRequests : public platform::EndRequests
{
public:
    void Watch(std::function<void()> onTerminate, std::function<void()> onSessionEnd) override
    {
        terminate = std::move(onTerminate);
        sessionEnd = std::move(onSessionEnd);
    }
    std::function<void()> terminate;
    std::function<void()> sessionEnd;
};

class FakeTray : public platform::TrayIcon
{
public:
    bool Available() const override { return available; }
    void Create(const QIcon&, const QString&, std::function<void()> onDoubleClick) override
    {
        doubleClick = std::move(onDoubleClick);
        shown = true;
    }
    void Delete() override { shown = false; }
    bool available = true;
    bool shown = false;
    std::function<void()> doubleClick;
};

// All the fakes, and the Platform made of them. createAgent makes a FakeAgent (kept in
// `agent`) unless agentMissing is set, in which case it throws error 339.
class FakePlatform
{
public:
    FakePlatform();

    FakeStore store;
    FakeDialogs dialogs;
    FakeClock clock;
    FakeScreen screen;
    FakeClipboard clipboard;
    FakeShell shell;
    FakePower power;
    FakeInstance instance;
    FakeProcess process;
    FakeEndRequests endRequests;
    FakeTray tray;
    bool agentMissing = false;
    FakeAgent* agent = nullptr;
    // Runs while one of the program's windows is shown modally; by default it closes at once.
    std::function<void(QDialog&)> onModal;
    QStringList modalWindows;

    platform::Platform platform;
};

} // namespace fakes
