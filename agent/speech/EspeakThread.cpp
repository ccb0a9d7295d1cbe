#include "agent/speech/EspeakThread.h"

#include <future>

namespace agent::speech
{

EspeakThread& EspeakThread::instance()
{
    static EspeakThread thread;
    return thread;
}

EspeakThread::EspeakThread() : thread_(&EspeakThread::run, this)
{
    runAndWait([this](EspeakWorker& worker) { loaded_ = worker.initialise(); });
}

EspeakThread::~EspeakThread()
{
    {
        std::lock_guard lock(mutex_);
        quit_ = true;
    }
    wake_.notify_one();
    thread_.join();
}

void EspeakThread::post(std::function<void(EspeakWorker&)> job)
{
    {
        std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
    }
    wake_.notify_one();
}

void EspeakThread::runAndWait(const std::function<void(EspeakWorker&)>& job)
{
    std::promise<void> done;
    post([&](EspeakWorker& worker) {
        job(worker);
        done.set_value();
    });
    done.get_future().wait();
}

void EspeakThread::run()
{
    for (;;) {
        std::function<void(EspeakWorker&)> job;
        {
            std::unique_lock lock(mutex_);
            wake_.wait(lock, [this] { return quit_ || !jobs_.empty(); });
            if (jobs_.empty())
                return;
            job = std::move(jobs_.front());
            jobs_.pop_front();
        }
        job(worker_);
    }
}

} // namespace agent::speech
