#pragma once

// Dropping a parsed 50 MB document frees millions of nodes, which takes as long
// as a good part of parsing it. Whoever replaces such a value hands it here and
// goes on; one thread of its own lets go of it.

#include <memory>

namespace trackloom {

/// Drops this reference to `value` on the release thread, in the order handed
/// in. Values still queued when the program ends are released before it does.
void releaseInBackground(std::shared_ptr<const void> value);

/// Waits until everything handed in so far has been released.
void waitForBackgroundReleases();

} // namespace trackloom
