#pragma once

#include <QObject>
#include <functional>

// Runs an event routine so that no exception reaches Qt's event loop: an error that no
// handler of the routine caught is written to the log and the program goes on.
void RunGuarded(const char* routine, const std::function<void()>& body);

// A slot that runs body guarded, for connect().
inline auto Guarded(const char* routine, std::function<void()> body)
{
    return [routine, body = std::move(body)] { RunGuarded(routine, body); };
}

// Connects a signal to a routine of the window that receives it, run guarded.
template <class Sender, class Signal, class Window>
void ConnectRoutine(Sender* sender, Signal signal, Window* window, const char* name,
                    void (Window::*routine)())
{
    QObject::connect(sender, signal, window,
                     Guarded(name, [window, routine] { (window->*routine)(); }));
}
