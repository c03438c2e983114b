#pragma once

// Background work for every view model. A job runs on the runner's own thread
// pool with a stop token that reaches the core function it calls, so that
// cancelling really stops the work. Jobs run in lanes: starting a job in a lane
// cancels the lane's running job, and a result that arrives after its job was
// replaced or cancelled is dropped, so the newest request always wins. Results,
// refusals and progress are delivered on the thread that owns the runner (the
// main thread), and only while they are still current.
//
// `CancellationError` ends a job silently; a `GPXError` becomes its message; any
// other exception becomes a German text, never a crash. Large values that a
// model replaces, and results nobody wants any more, are freed on the pool:
// freeing a 250 MB history takes long enough to be seen.

#include "core/base/cancellation.h"
#include "core/base/gpx_error.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QThreadPool>
#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stop_token>

namespace trackloom {

/// What a job gets: the token to pass to the core, and where to report progress.
class JobContext {
  public:
    JobContext(std::stop_token token, ProgressReport progress)
        : m_token(std::move(token)), m_progress(std::move(progress)) {}

    const std::stop_token& token() const { return m_token; }
    /// Throws `CancellationError` once the job was cancelled or replaced.
    void throwIfCancelled() const { trackloom::throwIfCancelled(m_token); }
    /// Reports the share done (0 … 1); cheap enough to call at every check.
    void progress(double share) const {
        if (m_progress) {
            m_progress(share);
        }
    }
    /// The reporter to hand to a core function, mapping its 0 … 1 onto
    /// `from` … `to` of this job (for jobs of several steps).
    ProgressReport progressBetween(double from, double to) const;

  private:
    std::stop_token m_token;
    ProgressReport m_progress;
};

class JobRunner : public QObject {
    Q_OBJECT

  public:
    /// Lanes are chosen by each model (an enumeration cast to int serves).
    using Lane = int;
    template <typename Result> using Work = std::function<Result(const JobContext&)>;
    template <typename Result> using Done = std::function<void(Result)>;
    using Failed = std::function<void(const QString& message)>;

    explicit JobRunner(QObject* parent = nullptr);
    /// Cancels every job and waits for the pool; nothing is delivered any more.
    ~JobRunner() override;

    /// Runs `work` on the pool in `lane`, cancelling the lane's running job.
    /// `done` receives the result, `failed` the text of a refusal or an
    /// unexpected failure; neither is called once the job is stale.
    template <typename Result>
    void start(Lane lane, Work<Result> work, Done<Result> done, Failed failed) {
        startErased(
            lane,
            [work = std::move(work)](const JobContext& context) -> std::shared_ptr<void> {
                return std::make_shared<Result>(work(context));
            },
            [done = std::move(done)](std::shared_ptr<void> result) {
                done(std::move(*std::static_pointer_cast<Result>(result)));
            },
            std::move(failed));
    }

    /// Cancels the lane's job; its result, if it comes, is dropped.
    void cancel(Lane lane);
    void cancelAll();
    bool isRunning(Lane lane) const;
    /// Some lane has a current job.
    bool isBusy() const { return m_running > 0; }

    /// Keeps `value` alive until the current event has been handled, then hands
    /// it to the background release thread (the one the core's sessions use).
    void retire(std::shared_ptr<const void> value);

    /// The text a job's unexpected failure becomes.
    static QString unexpectedFailureText(const std::exception_ptr& failure);

  signals:
    void busyChanged(bool busy);
    /// The current job of `lane` reports its share done (0 … 1).
    void progressChanged(int lane, double share);

  private:
    using ErasedWork = std::function<std::shared_ptr<void>(const JobContext&)>;
    using ErasedDone = std::function<void(std::shared_ptr<void>)>;

    struct LaneState {
        std::uint64_t generation = 0;
        std::stop_source stop;
        bool running = false;
    };
    /// The share last reported, shared by a job and the posts it makes.
    struct ProgressMailbox {
        std::atomic<double> latest{-1};
        std::atomic<bool> posted{false};
    };

    void startErased(Lane lane, ErasedWork work, ErasedDone done, Failed failed);
    bool isCurrent(Lane lane, std::uint64_t generation) const;
    void finish(Lane lane, std::uint64_t generation);
    void setRunning(LaneState& state, bool running);
    void postProgress(Lane lane, std::uint64_t generation,
                      const std::shared_ptr<ProgressMailbox>& mailbox, double share);

    std::map<Lane, LaneState> m_lanes;
    int m_running = 0;
    QThreadPool m_pool;
};

} // namespace trackloom
