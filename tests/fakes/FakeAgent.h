#pragma once

#include "platform/Agent.h"
#include "platform/RuntimeError.h"

#include <QStringList>
#include <map>
#include <memory>
#include <set>
#include <vector>

// A character control for tests: records every call in order as text, lets a test set each
// request's Status and each property, fail chosen calls, and raise each event.
namespace fakes
{

class FakeRequest : public platform::AgentRequest
{
public:
    explicit FakeRequest(int status) : status(status) {}
    int Status() const override { return status; }
    int status;
};

class FakeCommand : public platform::AgentCommand
{
public:
    FakeCommand(QStringList& log, QString name, QString caption, QString voice, bool enabled,
                bool visible)
        : log_(log), name_(std::move(name)), caption_(std::move(caption)), voice_(std::move(voice)),
          enabled_(enabled), visible_(visible)
    {
    }
    QString Name() const override { return name_; }
    QString Caption() const override { return caption_; }
    void setCaption(const QString& caption) override { set(caption_, caption, "Caption", caption); }
    QString Voice() const override { return voice_; }
    void setVoice(const QString& voice) override { set(voice_, voice, "Voice", voice); }
    bool Enabled() const override { return enabled_; }
    void setEnabled(bool enabled) override { set(enabled_, enabled, "Enabled", flag(enabled)); }
    bool Visible() const override { return visible_; }
    void setVisible(bool visible) override { set(visible_, visible, "Visible", flag(visible)); }

    static QString flag(bool value) { return value ? QStringLiteral("1") : QStringLiteral("0"); }

private:
    // Logs "Command(Name).Property=value" and sets the property.
    template <typename T>
    void set(T& field, const T& value, const char* property, const QString& text)
    {
        log_ << QStringLiteral("Command(%1).%2=%3").arg(name_, QLatin1String(property), text);
        field = value;
    }

    QStringList& log_;
    QString name_, caption_, voice_;
    bool enabled_, visible_;
};

class FakeAgent;

class FakeCommands : public platform::AgentCommands
{
public:
    explicit FakeCommands(FakeAgent& agent) : agent_(agent) {}
    QString Caption() const override { return caption_; }
    void setCaption(const QString& caption) override { set(caption_, caption, "Caption", caption); }
    QString Voice() const override { return voice_; }
    void setVoice(const QString& voice) override { set(voice_, voice, "Voice", voice); }
    bool Visible() const override { return visible_; }
    void setVisible(bool visible) override
    {
        set(visible_, visible, "Visible", FakeCommand::flag(visible));
    }
    void Add(const QString& name, const QString& caption, const QString& voice, bool enabled,
             bool visible) override;
    void RemoveAll() override;
    platform::AgentCommand& Command(const QString& name) override;
    int Count() const override { return int(entries_.size()); }
    platform::AgentCommand& At(int index) override { return *entries_.at(size_t(index)); }

private:
    // Logs "Commands.Property=value" and sets the property, unless the call is set to fail.
    template <typename T>
    void set(T& field, const T& value, const char* property, const QString& text)
    {
        log(QLatin1String(property), text);
        field = value;
    }
    void log(const QString& property, const QString& value);
    FakeAgent& agent_;
    QString caption_, voice_;
    bool visible_ = true;
    std::vector<std::unique_ptr<FakeCommand>> entries_;
};

class FakeBalloon : public platform::AgentBalloon
{
public:
    explicit FakeBalloon(QStringList& log) : log_(log) {}
    bool Visible() const override { return visible; }
    void setVisible(bool v) override
    {
        log_ << QStringLiteral("Balloon.Visible=") + FakeCommand::flag(v);
        visible = v;
    }
    bool visible = false;

private:
    QStringList& log_;
};

class FakeCharacter : public platform::AgentCharacter
{
public:
    explicit FakeCharacter(FakeAgent& agent);

    platform::Request Speak(const QString& text) override { return request("Speak(" + text + ")"); }
    platform::Request Play(const QString& animation) override;
    platform::Request Show(bool fast) override
    {
        return request("Show(" + FakeCommand::flag(fast) + ")");
    }
    platform::Request Hide() override { return request("Hide()"); }
    platform::Request MoveTo(std::int16_t x, std::int16_t y) override
    {
        return request(QStringLiteral("MoveTo(%1,%2)").arg(x).arg(y));
    }

    bool Visible() const override { return visible; }
    QString Name() const override { return name; }
    int Left() const override { return left; }
    int Top() const override { return top; }
    int Pitch() const override { return pitch; }
    int Speed() const override { return speed; }
    bool HasOtherClients() const override { return hasOtherClients; }
    void setIdleOn(bool on) override { log("IdleOn=", on); }
    void setSoundEffectsOn(bool on) override { log("SoundEffectsOn=", on); }
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
    platform::Request request(const QString& call);
    void log(const char* property, bool on);
    FakeAgent& agent_;
};

class FakeCharacters : public platform::AgentCharacters
{
public:
    explicit FakeCharacters(FakeAgent& agent) : agent_(agent) {}
    void Load(const QString& id, const QString& file) override;
    platform::AgentCharacter& Character(const QString& id) override;
    void Unload(const QString& id) override;

    std::map<QString, std::unique_ptr<FakeCharacter>> loaded;

private:
    FakeAgent& agent_;
};

class FakeAgent : public platform::Agent
{
public:
    FakeAgent();

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
    void setPropertySheetPage(const QString& page) override;
    void setPropertySheetVisible(bool visible) override;
    platform::AgentCharacters& Characters() override { return characters; }
    void setEventSink(platform::AgentEvents* sink) override { events = sink; }

    // Every call, in order: "Speak(text)", "Play(Read)", "Show(0)", "Hide()", "MoveTo(0,0)",
    // "Load(G,file)", "Unload(G)", "Commands.Add(Clip,Read From Clip Board,Clip Board,1,1)", ...
    QStringList calls;
    // The texts given to Speak, in order.
    QStringList spoken() const;
    // The calls that start with prefix, in order.
    QStringList callsStartingWith(const QString& prefix) const;

    // Makes every later call whose text starts with prefix throw this error.
    void failCalls(const QString& prefix, const platform::RuntimeError& error);
    void throwIfFailing(const QString& call) const;
    // Files that Load refuses as not being character files.
    std::set<QString> badFiles;
    // Characters loaded from now on report other clients.
    bool loadWithOtherClients = false;

    // The request made last, complete unless a test changes its Status.
    std::shared_ptr<FakeRequest> lastRequest() const { return lastRequest_; }

    bool audioOutputEnabled = true;
    bool speechInputInstalled = true;
    bool speechInputEnabled = true;
    QString propertySheetPage;
    bool propertySheetVisible = false;

    FakeCharacter* character(const QString& id = QStringLiteral("G"));

    // Raising the events, as the control would.
    void raiseClick(int button, const QString& id = QStringLiteral("G"))
    {
        events->Agent1_Click(id, button, 0, 0, 0);
    }
    void raiseShow(const QString& id = QStringLiteral("G"));
    void raiseHide(const QString& id = QStringLiteral("G"));
    void raiseIdleStart(const QString& id = QStringLiteral("G")) { events->Agent1_IdleStart(id); }
    void raiseCommand(const QString& name) { events->Agent1_Command({name}); }
    void raiseShutdown() { events->Agent1_Shutdown(); }
    void raiseError(const platform::RuntimeError& error) { events->Agent1_Error(error); }

    platform::AgentEvents* events = nullptr;
    FakeCharacters characters;

private:
    friend class FakeCharacter;
    std::vector<std::pair<QString, platform::RuntimeError>> failing_;
    std::shared_ptr<FakeRequest> lastRequest_;
};

} // namespace fakes
