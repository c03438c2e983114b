#pragma once

// A set of point ids held as a sorted vector. A day index holds every id of a
// history at least once; as a vector that is eight bytes an id instead of a tree
// node each, and a day's ids are walked in order without chasing pointers. Days
// and segments hold hundreds to a few thousand ids, so an insertion that moves
// the tail stays cheap.

#include <algorithm>
#include <cstdint>
#include <vector>

namespace trackloom {

class PointIDSet {
  public:
    PointIDSet() = default;
    /// The set of `ids`, given in any order and possibly repeated.
    static PointIDSet fromUnordered(std::vector<std::int64_t> ids) {
        if (!std::is_sorted(ids.begin(), ids.end())) {
            std::sort(ids.begin(), ids.end());
        }
        ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
        PointIDSet set;
        set.m_ids = std::move(ids);
        return set;
    }

    void insert(std::int64_t id) {
        // Ids mostly arrive in ascending order.
        if (m_ids.empty() || m_ids.back() < id) {
            m_ids.push_back(id);
            return;
        }
        const auto position = std::lower_bound(m_ids.begin(), m_ids.end(), id);
        if (position == m_ids.end() || *position != id) {
            m_ids.insert(position, id);
        }
    }
    void erase(std::int64_t id) {
        const auto position = std::lower_bound(m_ids.begin(), m_ids.end(), id);
        if (position != m_ids.end() && *position == id) {
            m_ids.erase(position);
        }
    }
    bool contains(std::int64_t id) const {
        return std::binary_search(m_ids.begin(), m_ids.end(), id);
    }

    std::size_t size() const { return m_ids.size(); }
    bool empty() const { return m_ids.empty(); }
    auto begin() const { return m_ids.begin(); }
    auto end() const { return m_ids.end(); }

    friend bool operator==(const PointIDSet&, const PointIDSet&) = default;

  private:
    std::vector<std::int64_t> m_ids;
};

} // namespace trackloom
