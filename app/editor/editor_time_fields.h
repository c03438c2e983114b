#pragma once

// The editor's time fields: the start (and end) the track should get, whether
// its times are shifted on export or generated now, and the zone they are
// shown in. They follow the track's own times until the user sets one.

#include "core/base/instant.h"

#include <QObject>
#include <QString>
#include <date/tz.h>
#include <map>
#include <optional>

namespace trackloom {

class EditorModel;
class GPXTrack;

/// How generated times are spread.
enum class GenerationMode { speed, startAndEnd };

class EditorTimeFields : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool useUTC READ useUTC WRITE setUseUTC NOTIFY changed)
    Q_PROPERTY(bool generate READ generate WRITE setGenerate NOTIFY changed)
    Q_PROPERTY(double syntheticSpeed READ syntheticSpeed WRITE setSyntheticSpeed NOTIFY changed)

  public:
    /// `model` provides the track and session the fields are checked against.
    EditorTimeFields(const EditorModel& model, const date::time_zone& localZone);

    Instant newStart() const { return m_newStart; }
    Instant newEnd() const { return m_newEnd; }
    bool useUTC() const { return m_useUTC; }
    bool generate() const { return m_generate; }
    GenerationMode generationMode() const { return m_generationMode; }
    double syntheticSpeed() const { return m_syntheticSpeed; }

    void setNewStart(Instant start);
    void setNewEnd(Instant end);
    /// Moves the start (or end) to the calendar day of `day`, keeping its time of day.
    void pickStartDay(Instant day);
    void pickEndDay(Instant day);
    void setUseUTC(bool useUTC);
    void setGenerate(bool generate);
    void setGenerationMode(GenerationMode mode);
    void setSyntheticSpeed(double kmh);

    /// Why the fields cannot generate times, or nothing when they can.
    std::optional<QString> generationError() const;
    /// The speed that start and end imply, when they are usable.
    std::optional<double> impliedSpeed() const;
    /// The display shows what the fields ask for; shifting is applied while
    /// exporting and always counts as applied.
    bool applied() const;
    /// The display shows generated times other than those the fields ask for,
    /// so an export would write times the user no longer wants. Without
    /// generated times the track's own times are shown and nothing is pending.
    bool showsOtherTimes() const;
    /// The start to shift to while exporting, when shifting moves the track.
    std::optional<Instant> pendingShift() const;
    /// The zone times are shown and entered in: UTC or the local zone.
    const date::time_zone& zone() const;
    /// Points per day of the track in `zone()`, for the date picker.
    std::map<Instant, std::int64_t> calendarCounts() const;

    /// Takes start and end from `track` unless the user chose them; `anew`
    /// forgets that choice first (another track was opened).
    void follow(const GPXTrack& track, bool anew);
    /// Generated times became the times of `track` itself (a file was
    /// appended): the fields shift again, from its start.
    void adoptOwnTimes(const GPXTrack& track);

  signals:
    void changed();

  private:
    template <typename T> void change(T& field, T value);

    const EditorModel& m_model;
    const date::time_zone* m_localZone;
    const date::time_zone* m_utcZone;
    Instant m_newStart;
    Instant m_newEnd;
    bool m_useUTC = false;
    bool m_generate = false;
    GenerationMode m_generationMode = GenerationMode::speed;
    double m_syntheticSpeed = 20;
    bool m_chosen = false;
};

} // namespace trackloom
