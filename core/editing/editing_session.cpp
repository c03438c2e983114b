#include "core/editing/editing_session.h"

#include "core/base/background_release.h"
#include "core/base/gpx_error.h"
#include "core/editing/point_edits.h"
#include "core/editing/segment_merging.h"
#include "core/editing/time_operations.h"
#include "core/editing/time_transfer.h"
#include "core/editing/track_append.h"

#include <utility>

namespace trackloom {
namespace {

TrackPtr generatedBy(const TrackPtr& track, const TimingBySpeed& rule) {
    return generatedTrack(track, rule.start, rule.kmh);
}

TrackPtr generatedBy(const TrackPtr& track, const TimingByEndpoints& rule) {
    return generatedTrack(track, rule.start, rule.end);
}

} // namespace

GPXEditingSession::GPXEditingSession(TrackPtr source, bool removesAirRoutes)
    : m_source(source), m_track(removesAirRoutes ? source->removingAirRoutes() : source),
      m_removesAirRoutes(removesAirRoutes), m_workingSource(std::move(source)) {}

TrackPtr GPXEditingSession::source() const {
    return m_source ? m_source : unpacked(m_packedSource, "").track;
}

bool GPXEditingSession::canMerge() const {
    return sectionsBesideAirRoutes(*m_workingSource) > 1;
}

TrackPtr GPXEditingSession::rendered(const TrackPtr& source, const std::optional<Timing>& timing,
                                     bool removesAirRoutes) const {
    const auto base = removesAirRoutes ? source->removingAirRoutes() : source;
    if (!timing) {
        return base;
    }
    return std::visit([&](const auto& rule) { return generatedBy(base, rule); }, *timing);
}

void GPXEditingSession::setRemovesAirRoutes(bool removesAirRoutes) {
    m_track = rendered(m_workingSource, m_timing, removesAirRoutes);
    m_removesAirRoutes = removesAirRoutes;
}

void GPXEditingSession::generate(Instant start, double speedKMH) {
    apply(TimingBySpeed{start, speedKMH});
}

void GPXEditingSession::generate(Instant start, Instant end) {
    apply(TimingByEndpoints{start, end});
}

void GPXEditingSession::apply(const Timing& timing) {
    m_track = rendered(m_workingSource, timing, m_removesAirRoutes);
    m_timing = timing;
}

std::int64_t GPXEditingSession::requiredSourceID(std::int64_t displayed) const {
    const auto id = sourcePointID(*m_workingSource, displayed, m_removesAirRoutes);
    if (!id) {
        throw GPXError("Bitte wähle einen Streckenpunkt aus.");
    }
    return *id;
}

void GPXEditingSession::split(std::int64_t displayed, const std::string& firstName,
                              const std::string& secondName) {
    commit([&] {
        return splitting(*m_workingSource, requiredSourceID(displayed), firstName, secondName);
    });
}

void GPXEditingSession::deletePoint(std::int64_t displayed) {
    commit([&] { return removingPoints(*m_workingSource, {requiredSourceID(displayed)}); });
}

void GPXEditingSession::move(std::int64_t displayed, Coordinate to) {
    commit([&] { return movingPoint(*m_workingSource, requiredSourceID(displayed), to); });
}

void GPXEditingSession::insert(const std::vector<Coordinate>& coordinates,
                               std::int64_t afterDisplayed) {
    commit(
        [&] { return inserting(*m_workingSource, coordinates, requiredSourceID(afterDisplayed)); });
}

void GPXEditingSession::trimStart(std::int64_t displayed) {
    commit([&] { return trimmingBefore(*m_workingSource, requiredSourceID(displayed)); });
}

void GPXEditingSession::trimEnd(std::int64_t displayed) {
    commit([&] { return trimmingAfter(*m_workingSource, requiredSourceID(displayed)); });
}

void GPXEditingSession::mergeSegments() {
    commit([&] { return mergingSegments(*m_workingSource); });
}

void GPXEditingSession::commit(const std::function<TrackPtr()>& edit) {
    waitForBackgroundReleases();
    const auto newSource = edit();
    replaceState(newSource, rendered(newSource, m_timing, m_removesAirRoutes));
}

void GPXEditingSession::append(const GPXTrack& other) {
    waitForBackgroundReleases();
    const auto base = m_timing ? materializingTimes(*m_workingSource, *m_track, m_removesAirRoutes)
                               : m_workingSource;
    const auto combined = appending(*base, other);
    const auto display = m_removesAirRoutes ? combined->removingAirRoutes() : combined;
    const bool hadTiming = m_timing.has_value();
    replaceState(combined, display);
    m_materializedTimes = m_materializedTimes || hadTiming;
    m_timing.reset();
}

void GPXEditingSession::replaceState(const TrackPtr& newSource, const TrackPtr& display) {
    auto newBytes = std::make_shared<const std::string>(newSource->data());
    const auto oldBytes = workingBytes();
    Snapshot left{packed(*m_workingSource, *oldBytes, *newBytes), m_timing, m_materializedTimes};
    if (m_source) {
        // The first state left is the opened track itself; from now on it is
        // only kept as its bytes.
        m_packedSource = packed(*m_source, *oldBytes, "");
        releaseInBackground(std::exchange(m_source, nullptr));
    }
    m_undoStack.push_back(std::move(left));
    m_redoStack.clear();
    releaseInBackground(std::exchange(m_workingSource, newSource));
    releaseInBackground(std::exchange(m_track, display));
    m_workingBytes = std::move(newBytes);
}

void GPXEditingSession::undo() {
    step(m_undoStack, m_redoStack);
}

void GPXEditingSession::redo() {
    step(m_redoStack, m_undoStack);
}

void GPXEditingSession::step(std::vector<Snapshot>& from, std::vector<Snapshot>& to) {
    if (from.empty()) {
        return;
    }
    waitForBackgroundReleases();
    const auto& target = from.back();
    const auto currentBytes = workingBytes();
    auto restored = unpacked(target.source, *currentBytes);
    auto display = rendered(restored.track, target.timing, m_removesAirRoutes);
    Snapshot left{packed(*m_workingSource, *currentBytes, restored.bytes), m_timing,
                  m_materializedTimes};
    m_timing = target.timing;
    m_materializedTimes = target.materialized;
    from.pop_back();
    to.push_back(std::move(left));
    releaseInBackground(std::exchange(m_workingSource, std::move(restored.track)));
    releaseInBackground(std::exchange(m_track, std::move(display)));
    m_workingBytes = std::make_shared<const std::string>(std::move(restored.bytes));
}

std::shared_ptr<const std::string> GPXEditingSession::workingBytes() {
    if (!m_workingBytes) {
        m_workingBytes = std::make_shared<const std::string>(m_workingSource->data());
    }
    return m_workingBytes;
}

bool GPXEditingSession::canEdit(std::int64_t displayed) const {
    const auto id = sourcePointID(*m_workingSource, displayed, m_removesAirRoutes);
    return id && *id < static_cast<std::int64_t>(m_workingSource->points().size()) &&
           !m_workingSource->airRoutePointIDs().contains(*id);
}

bool GPXEditingSession::canInsertAfterDisplayed(std::int64_t displayed) const {
    const auto id = sourcePointID(*m_workingSource, displayed, m_removesAirRoutes);
    return id && canInsert(*m_workingSource, *id);
}

} // namespace trackloom
