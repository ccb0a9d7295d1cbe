#pragma once

#include "fakes/FakeAgent.h"
#include "platform/Platform.h"

#include <QDateTime>
#include <QDialog>
#include <QStringList>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <vector>

// Texts in failure messages as text, not as bytes.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

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
    long RegOpenKeyA(std::uint32_t hive, const QString& path, Handle& key) override
    {
        if (keys_.count(path.toLower()))
            return RegCreateKeyA(hive, path, key);
        key = 0;
        return NotFound;
    }
    long RegCreateKeyA(std::uint32_t, const QString& path, Handle& key) override
    {
        keys_[path.toLower()];
        key = next_++;
        open_[key] = path.toLower();
        return Success;
    }
    long RegQueryValueExA(Handle key, const QString& name, std::uint32_t& type, QByteArray* data,
                          std::uint32_t& length) override
    {
        const Value* v = open_.count(key) ? find(open_[key], name) : nullptr;
        if (!v)
            return NotFound;
        type = v->type;
        length = std::uint32_t(v->data.size());
        if (data)
            *data = v->data;
        return Success;
    }
    long RegSetValueExA(Handle key, const QString& name, std::uint32_t type,
                        const QByteArray& data) override
    {
        if (!open_.count(key))
            return NotFound;
        writes << name;
        keys_[open_[key]][name.toLower()] = {type, data};
        return Success;
    }
    long RegCloseKey(Handle key) override
    {
        open_.erase(key);
        return Success;
    }

    // The program's own key, for tests: the value, or nullopt when missing.
    std::optional<QString> value(const QString& name) const
    {
        const Value* v = find(ProgramKey, name);
        return v ? std::optional(QString::fromUtf8(v->data)) : std::nullopt;
    }
    void setValue(const QString& name, const QString& text) { setRaw(name, String, text.toUtf8()); }
    void setRaw(const QString& name, std::uint32_t type, const QByteArray& data)
    {
        keys_[ProgramKey][name.toLower()] = {type, data};
    }
    int valueCount() const
    {
        return keys_.count(ProgramKey) ? int(keys_.at(ProgramKey).size()) : 0;
    }
    // Names written, in order.
    QStringList writes;

private:
    struct Value {
        std::uint32_t type;
        QByteArray data;
    };
    inline static const QString ProgramKey = QStringLiteral("software\\kestrane\\quorl");
    const Value* find(const QString& path, const QString& name) const
    {
        const auto k = keys_.find(path);
        if (k == keys_.end())
            return nullptr;
        const auto v = k->second.find(name.toLower());
        return v == k->second.end() ? nullptr : &v->second;
    }
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

inline void PrintTo(const Box& box, std::ostream* out)
{
    *out << '{' << int(box.icon) << ", " << int(box.buttons) << ", ";
    PrintTo(box.title, out);
    *out << ", ";
    PrintTo(box.text, out);
    *out << '}';
}

// The first of the queue, taken off it; `none` when the queue is empty.
template <typename T> T takeFront(std::deque<T>& queue, T none)
{
    if (queue.empty())
        return none;
    T first = std::move(queue.front());
    queue.pop_front();
    return first;
}

struct FakeDialogs : platform::Dialogs {
    platform::BoxAnswer MsgBox(platform::BoxIcon icon, platform::BoxButtons buttons,
                               const QString& title, const QString& text) override
    {
        boxes.push_back({icon, buttons, title, text});
        if (onBox)
            onBox(boxes.back());
        return takeFront(answers, platform::BoxAnswer::OK);
    }
    void Beep() override { ++beeps; }
    QString OpenFile(const platform::OpenFileRequest& request) override
    {
        fileRequests.push_back(request);
        return takeFront(files, QString());
    }

    std::vector<Box> boxes;
    QStringList titles() const
    {
        QStringList found;
        for (const Box& box : boxes)
            found << box.title;
        return found;
    }
    // The texts of the boxes with this title.
    QStringList texts(const QString& title) const
    {
        QStringList found;
        for (const Box& box : boxes)
            if (box.title == title)
                found << box.text;
        return found;
    }
    // Answers given in turn; OK when none is left.
    std::deque<platform::BoxAnswer> answers;
    std::vector<platform::OpenFileRequest> fileRequests;
    // Files chosen in turn; cancelled (empty) when none is left.
    std::deque<QString> files;
    int beeps = 0;
    // Called while a box is up, as a user would act meanwhile.
    std::function<void(const Box&)> onBox;
};

struct FakeClock : platform::Clock {
    QDateTime Now() const override { return now; }
    QDateTime now = QDateTime(QDate(2026, 11, 22), QTime(14, 25));
};

// A 1024 x 768 pixel screen at 15 twips per pixel.
struct FakeScreen : platform::Screen {
    int Width() const override { return 1024 * 15; }
    int Height() const override { return 768 * 15; }
    int TwipsPerPixelX() const override { return 15; }
    int TwipsPerPixelY() const override { return 15; }
};

struct FakeClipboard : platform::Clipboard {
    QString Text() const override { return text; }
    QString text;
};

struct FakeShell : platform::Shell {
    void OpenUrl(const QString& url) override { urls << url; }
    void StartCommandLine(const QString& commandLine) override
    {
        const auto it = failing.find(commandLine);
        if (it != failing.end())
            throw platform::RuntimeError(platform::errors::FileNotFound, QStringLiteral("Quorl"),
                                         it->second);
        started << commandLine;
    }
    QStringList urls;
    QStringList started;
    // Command lines that fail to start, with the error's description.
    std::map<QString, QString> failing;
};

struct FakePower : platform::Power {
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

struct FakeInstance : platform::Instance {
    bool PreviousInstanceRunning() override { return previousRunning; }
    bool previousRunning = false;
};

struct FakeProcess : platform::Process {
    [[noreturn]] void End() override
    {
        ++ends;
        throw ProgramEnded{};
    }
    int ends = 0;
};

struct FakeEndRequests : platform::EndRequests {
    void Watch(std::function<void()> onTerminate, std::function<void()> onSessionEnd) override
    {
        terminate = std::move(onTerminate);
        sessionEnd = std::move(onSessionEnd);
    }
    std::function<void()> terminate;
    std::function<void()> sessionEnd;
};

struct FakeTray : platform::TrayIcon {
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

    platform::Platform platform = ::platform::Platform(
        store, dialogs, clock, screen, clipboard, shell, power, instance, process, endRequests,
        tray, std::bind_front(&FakePlatform::createAgent, this),
        std::bind_front(&FakePlatform::showModal, this), QString());

private:
    std::unique_ptr<platform::Agent> createAgent()
    {
        if (agentMissing)
            throw platform::RuntimeError(platform::errors::AgentNotInstalled,
                                         QStringLiteral("Quorl"),
                                         QStringLiteral("Can't create object"));
        auto created = std::make_unique<FakeAgent>();
        agent = created.get();
        return created;
    }
    void showModal(QDialog& dialog)
    {
        modalWindows << QString::fromLatin1(dialog.metaObject()->className());
        if (onModal)
            onModal(dialog);
    }
};

} // namespace fakes
