#pragma once

// The day list's rows: every day of `visibleDays()` with its title and a second
// line of figures (points, first and last time, stays, distance). A history of
// years holds thousands of days, so texts are made only for painted rows.

#include "app/timeline/timeline_model.h"

#include <QAbstractListModel>

namespace trackloom {

class TimelineDayList : public QAbstractListModel {
    Q_OBJECT

  public:
    enum Role {
        /// The second line: "412 Punkte · 07:58 – 22:10 · 3 Aufenthalte · 12,4 km".
        detailRole = Qt::UserRole,
        /// The instant the day starts, in seconds since the reference (`double`).
        dayRole,
        /// Whether this is the day shown (`bool`).
        shownRole,
        /// The detail split for a narrow row: points and distance beside the
        /// title ("412 Punkte · 12,4 km"), times and stays below it.
        countRole,
        timesRole,
    };

    explicit TimelineDayList(const TimelineModel& model, QObject* parent = nullptr);

    /// The row of the day starting at `day`, or -1.
    int rowOf(Instant day) const;
    std::optional<Instant> dayAt(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

  private:
    void reload();
    QString count(const TimelineDayRow& row) const;
    QString times(const TimelineDayRow& row) const;

    const TimelineModel& m_model;
    std::vector<TimelineDayRow> m_rows;
};

} // namespace trackloom
