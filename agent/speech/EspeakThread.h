#pragma once

#include "agent/speech/EspeakWorker.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace agent::speech
{

// The one thread in the process that calls espeak-ng. espeak-ng is not re-entrant and cannot
// be initialised a second time after espeak_Terminate (it hangs), so the library is set up
// once, on first use, and stays until the process ends.
class EspeakThread
{
public:
    static EspeakThread& instance();
    ~EspeakThread();

    bool loaded() const { return loaded_; }

    // Runs the job on the thread, in the order posted.
    void post(std::function<void(EspeakWorker&)> job);
    // Runs the job on the thread and waits for it. Must not be called from the thread itself.
    void runAndWait(const std::function<void(EspeakWorker&)>& job);

private:
    EspeakThread();
    void run();

    EspeakWorker worker_;
    bool loaded_ = false;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<std::function<void(EspeakWorker&)>> jobs_;
    bool quit_ = false;
    std::thread thread_;
};

} // namespace agent::speech
