#include "app/editor/editor_time_fields.h"

#include "app/editor/editor_model.h"
#include "core/base/gpx_error.h"
#include "core/editing/time_operations.h"
#include "core/places/track_calendar.h"

#include <QDateTime>
#include <cmath>

namespace trackloom {
namespace {

Instant now() {
    return Instant::fromUnixSeconds(static_cast<double>(QDateTime::currentMSecsSinceEpoch()) /
                                    1000.0);
}

} // namespace

EditorTimeFields::EditorTimeFields(const EditorModel& model, const date::time_zone& localZone)
    : m_model(model), m_localZone(&localZone), m_utcZone(date::locate_zone("UTC")),
      m_newStart(now()), m_newEnd(m_newStart.advanced(3600)) {}

template <typename T> void EditorTimeFields::change(T& field, T value) {
    if (value != field) {
        field = value;
        emit changed();
    }
}

void EditorTimeFields::setNewStart(Instant start) {
    m_chosen = true;
    change(m_newStart, start);
}

void EditorTimeFields::setNewEnd(Instant end) {
    m_chosen = true;
    change(m_newEnd, end);
}

void EditorTimeFields::pickStartDay(Instant day) {
    setNewStart(TrackCalendar::replacingDay(m_newStart, day, zone()));
}

void EditorTimeFields::pickEndDay(Instant day) {
    setNewEnd(TrackCalendar::replacingDay(m_newEnd, day, zone()));
}

void EditorTimeFields::setUseUTC(bool useUTC) {
    change(m_useUTC, useUTC);
}

void EditorTimeFields::setGenerate(bool generate) {
    change(m_generate, generate);
}

void EditorTimeFields::setGenerationMode(GenerationMode mode) {
    change(m_generationMode, mode);
}

void EditorTimeFields::setSyntheticSpeed(double kmh) {
    change(m_syntheticSpeed, kmh);
}

std::optional<QString> EditorTimeFields::generationError() const {
    const auto& track = m_model.track();
    if (!track) {
        return tr("Bitte öffne zuerst einen Track.");
    }
    if (m_generationMode == GenerationMode::startAndEnd) {
        try {
            requiredSpeed(*track, m_newStart, m_newEnd);
            return std::nullopt;
        } catch (const GPXError& error) {
            return QString::fromStdString(error.message());
        }
    }
    if (!std::isfinite(m_syntheticSpeed) || m_syntheticSpeed <= 0 || m_syntheticSpeed > 1000) {
        return tr("Bitte gib eine Geschwindigkeit größer als 0 und höchstens 1.000 km/h ein.");
    }
    return std::nullopt;
}

std::optional<double> EditorTimeFields::impliedSpeed() const {
    if (!m_model.track()) {
        return std::nullopt;
    }
    try {
        return requiredSpeed(*m_model.track(), m_newStart, m_newEnd);
    } catch (const GPXError&) {
        return std::nullopt;
    }
}

namespace {

const Timing* displayedTiming(const EditorModel& model) {
    const auto* session = model.session();
    return session && session->timing() ? &*session->timing() : nullptr;
}

} // namespace

bool EditorTimeFields::applied() const {
    if (!m_generate) {
        return true;
    }
    const auto* timing = displayedTiming(m_model);
    return timing && !showsOtherTimes();
}

bool EditorTimeFields::showsOtherTimes() const {
    const auto* timing = displayedTiming(m_model);
    if (!m_generate || !timing) {
        return false;
    }
    if (m_generationMode == GenerationMode::speed) {
        const auto* rule = std::get_if<TimingBySpeed>(timing);
        return !rule || rule->start != m_newStart || rule->kmh != m_syntheticSpeed;
    }
    const auto* rule = std::get_if<TimingByEndpoints>(timing);
    return !rule || rule->start != m_newStart || rule->end != m_newEnd;
}

std::optional<Instant> EditorTimeFields::pendingShift() const {
    const auto& track = m_model.track();
    if (m_generate || !track || !track->start() || *track->start() == m_newStart) {
        return std::nullopt;
    }
    return m_newStart;
}

const date::time_zone& EditorTimeFields::zone() const {
    return m_useUTC ? *m_utcZone : *m_localZone;
}

std::map<Instant, std::int64_t> EditorTimeFields::calendarCounts() const {
    std::vector<Instant> times;
    if (const auto& track = m_model.track()) {
        times.reserve(track->points().size());
        for (const auto& point : track->points()) {
            if (point.time) {
                times.push_back(*point.time);
            }
        }
    }
    return TrackCalendar::pointCounts(times, zone());
}

void EditorTimeFields::follow(const GPXTrack& track, bool anew) {
    if (anew) {
        m_chosen = false;
    }
    if (m_chosen || !track.start()) {
        return;
    }
    const Instant start = *track.start();
    const auto end = track.end();
    m_newStart = start;
    m_newEnd = end && *end > start ? *end : start.advanced(3600);
    emit changed();
}

void EditorTimeFields::adoptOwnTimes(const GPXTrack& track) {
    m_generate = false;
    follow(track, true);
    emit changed();
}

} // namespace trackloom
