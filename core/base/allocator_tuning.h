#pragma once

// A parsed 50 MB document is millions of small allocations, freed all at once
// when a state is replaced. glibc keeps such frees in its fast bins and merges
// them only at the next larger allocation, so the merging of millions of chunks
// lands, in one piece, in the middle of whatever runs next (the next parse or
// edit), and costs more than the frees themselves.

namespace trackloom {

/// Makes the allocator merge freed chunks when they are freed (on the thread
/// that frees them), not at some later allocation. Call once, first thing in
/// `main`; nothing happens where the C library has no such setting.
void tuneAllocatorForLargeDocuments();

} // namespace trackloom
