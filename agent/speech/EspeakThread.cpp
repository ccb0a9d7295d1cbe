#include "agent/speech/EspeakThread.h"

#include <future>

namespace agent::speech
{

EspeakThread& EspeakThread::instance()
{
    static EspeakThread thread;
    return thread;
}

EspeakThread::EspeakThread() : m_thread(&EspeakThread::run, this)
{
    runAndWait([this](EspeakWorker& worker) { m_loaded = worker.initialise(); });
}

EspeakThread::~EspeakThread()
{
    {
        std::lock_guard lock(m_mutex);
        m_quit = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void EspeakThread::post(std::function<void(EspeakWorker&)> job)
{
    {
        std::lock_guard lock(m_mutex);
        m_jobs.push_back(std::move(job));
    }
    m_wake.notify_one();
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
            std::unique_lock lock(m_mutex);
            m_wake.wait(lock, [this] { return m_quit || !m_jobs.empty(); });
            if (m_jobs.empty())
                return;
            job = std::move(m_jobs.front());
            m_jobs.pop_front();
        }
        job(m_worker);
    }
}

} // namespace agent::speech
