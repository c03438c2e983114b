#include "app/shell/job_runner.h"

#include "core/base/background_release.h"

#include <QCoreApplication>
#include <QThread>
#include <algorithm>
#include <new>

namespace trackloom {

ProgressReport JobContext::progressBetween(double from, double to) const {
    if (!m_progress) {
        return {};
    }
    return [report = m_progress, from, to](double share) { report(from + (to - from) * share); };
}

JobRunner::JobRunner(QObject* parent) : QObject(parent) {
    // A pool of its own: Qt's painting borrows the global pool's threads and
    // would wait behind a long import.
    m_pool.setMaxThreadCount(std::max(2, QThread::idealThreadCount()));
}

JobRunner::~JobRunner() {
    for (auto& [lane, state] : m_lanes) {
        state.stop.request_stop();
    }
    m_pool.waitForDone();
}

QString JobRunner::unexpectedFailureText(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const GPXError& error) {
        return QString::fromStdString(error.message());
    } catch (const std::bad_alloc&) {
        return QCoreApplication::translate(
            "trackloom::JobRunner",
            "Nicht genug Arbeitsspeicher für diese Aufgabe. Die bisherigen Daten bleiben "
            "unverändert.");
    } catch (...) {
        return QCoreApplication::translate(
            "trackloom::JobRunner",
            "Unerwarteter interner Fehler. Die bisherigen Daten bleiben unverändert.");
    }
}

void JobRunner::startErased(Lane lane, ErasedWork work, ErasedDone done, Failed failed) {
    auto& state = m_lanes[lane];
    state.stop.request_stop();
    state.stop = std::stop_source();
    const auto generation = ++state.generation;
    setRunning(state, true);
    const auto token = state.stop.get_token();
    const auto mailbox = std::make_shared<ProgressMailbox>();
    m_pool.start([this, lane, generation, token, mailbox, work = std::move(work),
                  done = std::move(done), failed = std::move(failed)]() mutable {
        const JobContext context(
            token, [=, this](double share) { postProgress(lane, generation, mailbox, share); });
        std::shared_ptr<void> result;
        std::exception_ptr failure;
        try {
            result = work(context);
        } catch (const CancellationError&) {
            return;
        } catch (...) {
            failure = std::current_exception();
        }
        if (token.stop_requested()) {
            // Nobody wants it: freed here, never on the main thread.
            return;
        }
        // The text is made here so that no exception travels to the main thread.
        const QString failureText = failure ? unexpectedFailureText(failure) : QString();
        QMetaObject::invokeMethod(
            this,
            [this, lane, generation, result = std::move(result), failureText,
             done = std::move(done), failed = std::move(failed)]() mutable {
                if (!isCurrent(lane, generation)) {
                    retire(std::move(result));
                    return;
                }
                // State changes before busy ends, so whoever waits for idle sees it.
                std::optional<QString> refusal;
                if (!failureText.isNull()) {
                    refusal = failureText;
                } else {
                    try {
                        done(std::move(result));
                    } catch (...) {
                        refusal = unexpectedFailureText(std::current_exception());
                    }
                }
                if (refusal && failed) {
                    failed(*refusal);
                }
                finish(lane, generation);
            },
            Qt::QueuedConnection);
    });
}

void JobRunner::postProgress(Lane lane, std::uint64_t generation,
                             const std::shared_ptr<ProgressMailbox>& mailbox, double share) {
    mailbox->latest.store(share);
    // One post at a time: a job checking often never floods the event queue.
    if (mailbox->posted.exchange(true)) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this, lane, generation, mailbox] {
            mailbox->posted.store(false);
            if (isCurrent(lane, generation)) {
                emit progressChanged(lane, std::clamp(mailbox->latest.load(), 0.0, 1.0));
            }
        },
        Qt::QueuedConnection);
}

bool JobRunner::isCurrent(Lane lane, std::uint64_t generation) const {
    const auto found = m_lanes.find(lane);
    return found != m_lanes.end() && found->second.running &&
           found->second.generation == generation;
}

void JobRunner::finish(Lane lane, std::uint64_t generation) {
    // `done` may have started the lane's next job, which keeps it running.
    if (auto found = m_lanes.find(lane);
        found != m_lanes.end() && found->second.generation == generation) {
        setRunning(found->second, false);
    }
}

void JobRunner::cancel(Lane lane) {
    const auto found = m_lanes.find(lane);
    if (found == m_lanes.end()) {
        return;
    }
    auto& state = found->second;
    state.stop.request_stop();
    ++state.generation;
    setRunning(state, false);
}

void JobRunner::cancelAll() {
    for (auto& [lane, state] : m_lanes) {
        cancel(lane);
    }
}

bool JobRunner::isRunning(Lane lane) const {
    const auto found = m_lanes.find(lane);
    return found != m_lanes.end() && found->second.running;
}

void JobRunner::setRunning(LaneState& state, bool running) {
    if (state.running == running) {
        return;
    }
    state.running = running;
    m_running += running ? 1 : -1;
    if (m_running == (running ? 1 : 0)) {
        emit busyChanged(running);
    }
}

void JobRunner::retire(std::shared_ptr<const void> value) {
    if (!value) {
        return;
    }
    // Screens may still show the value until the current event is handled.
    QMetaObject::invokeMethod(
        this, [this, value = std::move(value)]() mutable { releaseInBackground(std::move(value)); },
        Qt::QueuedConnection);
}

} // namespace trackloom
