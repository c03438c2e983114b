#pragma once

#include <exception>
#include <functional>
#include <stop_token>

namespace trackloom {

/// Thrown by long-running core functions when their stop token was triggered.
/// It is not a refusal: callers drop the work silently instead of showing it.
class CancellationError : public std::exception {
  public:
    const char* what() const noexcept override { return "cancelled"; }
};

/// Throws `CancellationError` when a stop was requested on `token`.
inline void throwIfCancelled(const std::stop_token& token) {
    if (token.stop_requested()) {
        throw CancellationError();
    }
}

/// Told the share of a long task that is done (0 … 1), on the thread doing it,
/// at the same points where the task checks for cancellation.
using ProgressReport = std::function<void(double share)>;

} // namespace trackloom
