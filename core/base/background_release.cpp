#include "core/base/background_release.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace trackloom {
namespace {

class ReleaseThread {
  public:
    ReleaseThread() : m_thread([this](std::stop_token stop) { run(stop); }) {}
    ~ReleaseThread() {
        {
            // Under the lock, or the thread could miss the wake-up between
            // looking at its queue and going to sleep.
            const std::lock_guard lock(m_mutex);
            m_thread.request_stop();
        }
        m_changed.notify_all();
    }

    void hand(std::shared_ptr<const void> value) {
        {
            const std::lock_guard lock(m_mutex);
            m_queue.push_back(std::move(value));
        }
        m_changed.notify_all();
    }

    void waitUntilEmpty() {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_queue.empty() && !m_releasing; });
    }

  private:
    void run(std::stop_token stop) {
        std::unique_lock lock(m_mutex);
        while (true) {
            m_changed.wait(lock, [&] { return !m_queue.empty() || stop.stop_requested(); });
            if (m_queue.empty()) {
                return;
            }
            auto value = std::move(m_queue.front());
            m_queue.pop_front();
            m_releasing = true;
            lock.unlock();
            value.reset();
            lock.lock();
            m_releasing = false;
            m_changed.notify_all();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::shared_ptr<const void>> m_queue;
    bool m_releasing = false;
    // Last: the thread starts once everything it uses exists, and is joined
    // (after draining the queue) before any of it goes.
    std::jthread m_thread;
};

ReleaseThread& releaseThread() {
    static ReleaseThread thread;
    return thread;
}

} // namespace

void releaseInBackground(std::shared_ptr<const void> value) {
    if (value) {
        releaseThread().hand(std::move(value));
    }
}

void waitForBackgroundReleases() {
    releaseThread().waitUntilEmpty();
}

} // namespace trackloom
