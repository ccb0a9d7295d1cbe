#pragma once

#include "platform/Agent.h"
#include "platform/RuntimeError.h"

#include <QRegularExpression>
#include <QStringList>
#include <map>
#include <memory>
#include <set>
#include <vector>

// A character control for tests: records every call in order as text, lets a test set each
// request's Status and each property, fail chosen calls, and raise each event.
namespace fakes
{

inline QString flag(bool value)
{
    return value ? QStringLiteral("1") : QStringLiteral("0");
}

inline platform::RuntimeError notFound(const QString& what)
{
    return platform::RuntimeError(platform::errors::ElementNotFound, platform::AgentSource,
                                  what + QStringLiteral(" not found"));
}

struct FakeRequest : platform::AgentRequest {
    int Status() const override { return status; }
    int status = Complete;
};

// What the control and its parts share: the calls made to them and how loading goes.
class CallLog
{
public:
    // Every call, in order: "Speak(text)", "Play(Read)", "Show(0)", "Hide()", "MoveTo(0,0)",
    // "Load(G,file)", "Unload(G)", "Commands.Add(Clip,Read From Clip Board,Clip Board,1,1)", ...
    QStringList calls;

    // Makes every later call whose text starts with prefix throw this error.
    void failCalls(const QString& prefix, const platform::RuntimeError& error)
    {
        failing_.emplace_back(prefix, error);
    }
    void throwIfFailing(const QString& call) const
    {
        for (const auto& [prefix, error] : failing_)
            if (call.startsWith(prefix))
                throw error;
    }
    void record(const QString& call)
    {
        throwIfFailing(call);
        calls << call;
    }
    platform::Request request(const QString& call)
    {
        record(call);
        lastRequest_ = std::make_shared<FakeRequest>();
        return lastRequest_;
    }
    // The request made last, complete unless a test changes its Status.
    std::shared_ptr<FakeRequest> lastRequest() const { return lastRequest_; }

    // Files that Load refuses as not being character files.
    std::set<QString> badFiles;
    // Characters loaded from now on report other clients.
    bool loadWithOtherClients = false;

private:
    std::vector<std::pair<QString, platform::RuntimeError>> failing_;
    std::shared_ptr<FakeRequest> lastRequest_;
};

// Caption, Voice and Visible of one command or of the list; a change is logged as
// "<prefix>Property=value".
template <class Interface> class FakeCaptioned : public Interface
{
public:
    FakeCaptioned(CallLog& log, QString prefix, QString caption = {}, QString voice = {},
                  bool visible = true)
        : log_(log), prefix_(std::move(prefix)), caption_(std::move(caption)),
          voice_(std::move(voice)), visible_(visible)
    {
    }
    QString Caption() const override { return caption_; }
    void setCaption(const QString& caption) override { set(caption_, caption, "Caption", caption); }
    QString Voice() const override { return voice_; }
    void setVoice(const QString& voice) override { set(voice_, voice, "Voice", voice); }
    bool Visible() const override { return visible_; }
    void setVisible(bool visible) override { set(visible_, visible, "Visible", flag(visible)); }

protected:
    template <typename T>
    void set(T& field, const T& value, const char* property, const QString& text)
    {
        log_.record(prefix_ + QLatin1String(property) + QLatin1Char('=') + text);
        field = value;
    }

    CallLog& log_;
    QString prefix_, caption_, voice_;
    bool visible_;
};

class FakeCommand : public FakeCaptioned<platform::AgentCommand>
{
public:
    FakeCommand(CallLog& log, const QString& name, const QString& caption, const QString& voice,
                bool enabled, bool visible)
        : FakeCaptioned(log, "Command(" + name + ").", caption, voice, visible), name_(name),
          enabled_(enabled)
    {
    }
    QString Name() const override { return name_; }
    bool Enabled() const override { return enabled_; }
    void setEnabled(bool enabled) override { set(enabled_, enabled, "Enabled", flag(enabled)); }

private:
    QString name_;
    bool enabled_;
};

class FakeCommands : public FakeCaptioned<platform::AgentCommands>
{
public:
    explicit FakeCommands(CallLog& log) : FakeCaptioned(log, QStringLiteral("Commands.")) {}
    void Add(const QString& name, const QString& caption, const QString& voice, bool enabled,
             bool visible) override
    {
        log_.record(QStringLiteral("Commands.Add(%1,%2,%3,%4,%5)")
                        .arg(name, caption, voice, flag(enabled), flag(visible)));
        entries_.push_back(
            std::make_unique<FakeCommand>(log_, name, caption, voice, enabled, visible));
    }
    void RemoveAll() override
    {
        log_.record(QStringLiteral("Commands.RemoveAll()"));
        entries_.clear();
    }
    platform::AgentCommand& Command(const QString& name) override
    {
        log_.throwIfFailing(QStringLiteral("Commands.Command(") + name);
        for (auto& entry : entries_)
            if (entry->Name() == name)
                return *entry;
        throw notFound(QStringLiteral("command ") + name);
    }
    int Count() const override { return int(entries_.size()); }
    platform::AgentCommand& At(int index) override { return *entries_.at(size_t(index)); }

private:
    std::vector<std::unique_ptr<FakeCommand>> entries_;
};

class FakeBalloon : public platform::AgentBalloon
{
public:
    explicit FakeBalloon(CallLog& log) : log_(log) {}
    bool Visible() const override { return visible; }
    void setVisible(bool v) override
    {
        log_.record(QStringLiteral("Balloon.Visible=") + flag(v));
        visible = v;
    }
    bool visible = false;

private:
    CallLog& log_;
};

class FakeCharacter : public platform::AgentCharacter
{
public:
    explicit FakeCharacter(CallLog& log) : balloon(log), commands(log), log_(log) {}

    platform::Request Speak(const QString& text) override
    {
        return log_.request("Speak(" + text + ")");
    }
    platform::Request Play(const QString& animation) override
    {
        if (!animations.count(animation))
            throw notFound(QStringLiteral("animation ") + animation);
        return log_.request(QStringLiteral("Play(") + animation + QLatin1Char(')'));
    }
    platform::Request Show(bool fast) override { return log_.request("Show(" + flag(fast) + ")"); }
    platform::Request Hide() override { return log_.request(QStringLiteral("Hide()")); }
    platform::Request MoveTo(std::int16_t x, std::int16_t y) override
    {
        return log_.request(QStringLiteral("MoveTo(%1,%2)").arg(x).arg(y));
    }

    bool Visible() const override { return visible; }
    QString Name() const override { return name; }
    int Left() const override { return left; }
    int Top() const override { return top; }
    int Pitch() const override { return pitch; }
    int Speed() const override { return speed; }
    bool HasOtherClients() const override { return hasOtherClients; }
    void setIdleOn(bool on) override { log_.record("IdleOn=" + flag(on)); }
    void setSoundEffectsOn(bool on) override { log_.record("SoundEffectsOn=" + flag(on)); }
    platform::AgentBalloon& Balloon() override { return balloon; }
    platform::AgentCommands& Commands() override { return commands; }

    bool visible = false;
    QString name = QStringLiteral("Testy");
    int left = 0;
    int top = 0;
    int pitch = 120;
    int speed = 160;
    bool hasOtherClients = false;
    // Animations that Play accepts; any other name throws as the real control does.
    std::set<QString> animations{QStringLiteral("Read"), QStringLiteral("ReadReturn"),
                                 QStringLiteral("ReadContinued"), QStringLiteral("Greet")};
    FakeBalloon balloon;
    FakeCommands commands;

private:
    CallLog& log_;
};

class FakeCharacters : public platform::AgentCharacters
{
public:
    explicit FakeCharacters(CallLog& log) : log_(log) {}
    void Load(const QString& id, const QString& file) override
    {
        log_.record(QStringLiteral("Load(%1,%2)").arg(id, file));
        if (file.isEmpty() || log_.badFiles.count(file))
            throw platform::RuntimeError(platform::errors::BadFileFormat, platform::AgentSource,
                                         QStringLiteral("not a character file: ") + file);
        loaded[id] = std::make_unique<FakeCharacter>(log_);
        loaded[id]->hasOtherClients = log_.loadWithOtherClients;
    }
    platform::AgentCharacter& Character(const QString& id) override
    {
        const auto it = loaded.find(id);
        if (it == loaded.end())
            throw notFound(QStringLiteral("character ") + id);
        return *it->second;
    }
    void Unload(const QString& id) override
    {
        log_.record(QStringLiteral("Unload(%1)").arg(id));
        loaded.erase(id);
    }

    std::map<QString, std::unique_ptr<FakeCharacter>> loaded;

private:
    CallLog& log_;
};

struct FakeAgent : platform::Agent, CallLog {
    bool AudioOutputEnabled() const override
    {
        throwIfFailing(QStringLiteral("AudioOutput.Enabled"));
        return audioOutputEnabled;
    }
    bool SpeechInputInstalled() const override
    {
        throwIfFailing(QStringLiteral("SpeechInput.Installed"));
        return speechInputInstalled;
    }
    bool SpeechInputEnabled() const override
    {
        throwIfFailing(QStringLiteral("SpeechInput.Enabled"));
        return speechInputEnabled;
    }
    void setPropertySheetPage(const QString& page) override
    {
        record(QStringLiteral("PropertySheet.Page=") + page);
        propertySheetPage = page;
    }
    void setPropertySheetVisible(bool visible) override
    {
        record(QStringLiteral("PropertySheet.Visible=") + flag(visible));
        propertySheetVisible = visible;
    }
    platform::AgentCharacters& Characters() override { return characters; }
    void setEventSink(platform::AgentEvents* sink) override { events = sink; }

    // The texts given to Speak, in order.
    QStringList spoken() const
    {
        QStringList texts = callsStartingWith(QStringLiteral("Speak("));
        for (QString& text : texts)
            text = text.mid(6, text.size() - 7);
        return texts;
    }
    // The calls that start with prefix, in order.
    QStringList callsStartingWith(const QString& prefix) const
    {
        return calls.filter(
            QRegularExpression(QLatin1Char('^') + QRegularExpression::escape(prefix)));
    }

    bool audioOutputEnabled = true;
    bool speechInputInstalled = true;
    bool speechInputEnabled = true;
    QString propertySheetPage;
    bool propertySheetVisible = false;

    FakeCharacter* character(const QString& id = QStringLiteral("G"))
    {
        const auto it = characters.loaded.find(id);
        return it == characters.loaded.end() ? nullptr : it->second.get();
    }

    // Raising the events, as the control would.
    void raiseClick(int button, const QString& id = QStringLiteral("G"))
    {
        events->Agent1_Click(id, button, 0, 0, 0);
    }
    void raiseShow(const QString& id = QStringLiteral("G"))
    {
        if (auto* c = character(id))
            c->visible = true;
        events->Agent1_Show(id, 0);
    }
    void raiseHide()
    {
        if (auto* c = character())
            c->visible = false;
        events->Agent1_Hide(QStringLiteral("G"), 0);
    }
    void raiseIdleStart() { events->Agent1_IdleStart(QStringLiteral("G")); }
    void raiseCommand(const QString& name) { events->Agent1_Command({name}); }
    void raiseShutdown() { events->Agent1_Shutdown(); }
    void raiseError(const platform::RuntimeError& error) { events->Agent1_Error(error); }

    platform::AgentEvents* events = nullptr;
    FakeCharacters characters{*this};
};

} // namespace fakes
