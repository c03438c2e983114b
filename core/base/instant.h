#pragma once

#include <cmath>
#include <compare>

namespace trackloom {

/// An absolute point in time: seconds since 2001-01-01T00:00:00Z as a double,
/// the representation the working copy stores verbatim.
class Instant {
  public:
    /// Seconds from 1970-01-01 to 2001-01-01.
    static constexpr double referenceToUnix = 978307200.0;

    constexpr Instant() = default;
    constexpr explicit Instant(double secondsSinceReference) : m_seconds(secondsSinceReference) {}

    static constexpr Instant fromUnixSeconds(double seconds) {
        return Instant(seconds - referenceToUnix);
    }

    constexpr double secondsSinceReference() const { return m_seconds; }
    constexpr double unixSeconds() const { return m_seconds + referenceToUnix; }
    bool isFinite() const { return std::isfinite(m_seconds); }

    constexpr Instant advanced(double seconds) const { return Instant(m_seconds + seconds); }
    /// Seconds from `earlier` to this instant (negative when this one is earlier).
    constexpr double secondsSince(Instant earlier) const { return m_seconds - earlier.m_seconds; }

    friend constexpr bool operator==(Instant, Instant) = default;
    friend constexpr auto operator<=>(Instant a, Instant b) { return a.m_seconds <=> b.m_seconds; }

  private:
    double m_seconds = 0;
};

} // namespace trackloom
