#pragma once

#include "platform/RuntimeError.h"

#include <QString>
#include <cstdint>
#include <memory>

// The character control that the program drives: characters, their queued requests, the
// command list, the speech flags and the property sheet. Every failing member throws
// platform::RuntimeError. All calls and events happen on the GUI thread.
namespace platform
{

// A queued operation of a character. Status: 2 pending, 4 in progress, 0 complete,
// 1 failed, 3 interrupted.
class AgentRequest
{
public:
    enum : int { Complete = 0, Failed = 1, Pending = 2, Interrupted = 3, InProgress = 4 };
    virtual ~AgentRequest() = default;
    virtual int Status() const = 0;
};
using Request = std::shared_ptr<AgentRequest>;

class AgentCommand
{
public:
    virtual ~AgentCommand() = default;
    virtual QString Name() const = 0;
    virtual QString Caption() const = 0;
    virtual void setCaption(const QString& caption) = 0;
    virtual QString Voice() const = 0;
    virtual void setVoice(const QString& voice) = 0;
    virtual bool Enabled() const = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual bool Visible() const = 0;
    virtual void setVisible(bool visible) = 0;
};

class AgentCommands
{
public:
    virtual ~AgentCommands() = default;
    virtual QString Caption() const = 0;
    virtual void setCaption(const QString& caption) = 0;
    virtual QString Voice() const = 0;
    virtual void setVoice(const QString& voice) = 0;
    virtual bool Visible() const = 0;
    virtual void setVisible(bool visible) = 0;
    virtual void Add(const QString& name, const QString& caption, const QString& voice,
                     bool enabled, bool visible) = 0;
    virtual void RemoveAll() = 0;
    // Throws for a name that is not in the list.
    virtual AgentCommand& Command(const QString& name) = 0;
    virtual int Count() const = 0;
    // Entry by position, 0-based, in the order of Add.
    virtual AgentCommand& At(int index) = 0;
};

class AgentBalloon
{
public:
    virtual ~AgentBalloon() = default;
    virtual bool Visible() const = 0;
    virtual void setVisible(bool visible) = 0;
};

class AgentCharacter
{
public:
    virtual ~AgentCharacter() = default;

    virtual Request Speak(const QString& text) = 0;
    // Throws at the call when the character has no animation of that name.
    virtual Request Play(const QString& animation) = 0;
    // fast: show at once, without the Showing animation.
    virtual Request Show(bool fast = false) = 0;
    virtual Request Hide() = 0;
    virtual Request MoveTo(std::int16_t x, std::int16_t y) = 0;

    virtual bool Visible() const = 0;
    virtual QString Name() const = 0;
    virtual int Left() const = 0;
    virtual int Top() const = 0;
    virtual int Pitch() const = 0;
    virtual int Speed() const = 0;
    virtual bool HasOtherClients() const = 0;

    virtual void setIdleOn(bool on) = 0;
    virtual void setSoundEffectsOn(bool on) = 0;

    virtual AgentBalloon& Balloon() = 0;
    virtual AgentCommands& Commands() = 0;
};

class AgentCharacters
{
public:
    virtual ~AgentCharacters() = default;
    // Throws on a file that is missing or is not a character file.
    virtual void Load(const QString& id, const QString& file) = 0;
    // Throws for an id that is not loaded.
    virtual AgentCharacter& Character(const QString& id) = 0;
    virtual void Unload(const QString& id) = 0;
};

struct UserInput {
    QString Name;
};

// What the control raises. The program implements it; the control calls it on the GUI thread.
class AgentEvents
{
public:
    virtual ~AgentEvents() = default;
    virtual void Agent1_Click(const QString& characterId, int button, int shift, int x, int y) = 0;
    virtual void Agent1_Show(const QString& characterId, int cause) = 0;
    virtual void Agent1_Hide(const QString& characterId, int cause) = 0;
    virtual void Agent1_IdleStart(const QString& characterId) = 0;
    virtual void Agent1_Command(const UserInput& input) = 0;
    virtual void Agent1_Shutdown() = 0;
    // A failure of the control that no call of the program caused, such as a microphone held
    // by another program when the user starts to speak.
    virtual void Agent1_Error(const RuntimeError& error) = 0;
};

class Agent
{
public:
    virtual ~Agent() = default;

    virtual bool AudioOutputEnabled() const = 0;
    virtual bool SpeechInputInstalled() const = 0;
    virtual bool SpeechInputEnabled() const = 0;

    virtual void setPropertySheetPage(const QString& page) = 0;
    virtual void setPropertySheetVisible(bool visible) = 0;

    virtual AgentCharacters& Characters() = 0;

    // The receiver of the events; null stops them.
    virtual void setEventSink(AgentEvents* sink) = 0;
};

} // namespace platform
