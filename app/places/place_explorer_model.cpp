#include "app/places/place_explorer_model.h"

#include <algorithm>
#include <cmath>

namespace trackloom {

std::optional<CellGrid> cellGrid(HeatRegion visible, double viewWidth, double cellPoints) {
    if (!(viewWidth > 0) || !(visible.width > 0) || !(visible.height > 0)) {
        return std::nullopt;
    }
    const double cellSize = std::max(visible.width / viewWidth * cellPoints, 1e-8);
    const double margin = 2 * cellSize;
    return CellGrid{{visible.minX - margin, visible.minY - margin, visible.width + 2 * margin,
                     visible.height + 2 * margin},
                    cellSize};
}

namespace {

/// The points within `radius` of `centre`, by a latitude band first and the
/// great-circle distance for the few left.
std::vector<TimelinePoint> pointsNear(PlaceCoordinate centre, double radius,
                                      const std::vector<TimelinePoint>& points,
                                      const std::stop_token& stop) {
    const double band = radius / 6371008.8 * 180 / 3.141592653589793;
    std::vector<TimelinePoint> near;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i % 1024 == 0) {
            throwIfCancelled(stop);
        }
        const TimelinePoint& point = points[i];
        if (std::abs(point.latitude - centre.latitude) <= band &&
            PlaceAnalysis::distance(centre, {point.latitude, point.longitude}) <= radius) {
            near.push_back(point);
        }
    }
    return near;
}

} // namespace

PlaceExplorerModel::PlaceExplorerModel(PlaceScope scope, UserDialogs& dialogs,
                                       OnlinePlaceSearch* onlineSearch, QObject* parent)
    : QObject(parent), m_dialogs(dialogs), m_online(onlineSearch), m_id(QUuid::createUuid()),
      m_scope(std::move(scope)), m_samples(std::make_shared<std::vector<HeatSample>>()),
      m_filtered(std::make_shared<std::vector<TimelinePoint>>()) {
    if (!m_scope.points) {
        m_scope.points = std::make_shared<std::vector<TimelinePoint>>();
    }
}

PlaceExplorerModel::~PlaceExplorerModel() {
    close();
}

void PlaceExplorerModel::setEntireHistory(bool on) {
    if (m_entireHistory != on) {
        m_entireHistory = on;
        emit optionsChanged();
        rebuild();
    }
}

void PlaceExplorerModel::setIncludeVisits(bool on) {
    if (m_includeVisits != on) {
        m_includeVisits = on;
        emit optionsChanged();
        rebuild();
    }
}

void PlaceExplorerModel::setIncludeActivities(bool on) {
    if (m_includeActivities != on) {
        m_includeActivities = on;
        emit optionsChanged();
        rebuild();
    }
}

void PlaceExplorerModel::setHeatEnabled(bool on) {
    if (m_heatEnabled != on) {
        m_heatEnabled = on;
        emit optionsChanged();
        requestHeat();
    }
}

void PlaceExplorerModel::setChoosingLocation(bool on) {
    if (m_choosingLocation != on) {
        m_choosingLocation = on;
        emit placeChanged();
    }
}

void PlaceExplorerModel::setRadius(double metres) {
    if (m_radius != metres) {
        m_radius = metres;
        emit optionsChanged();
        findDays();
    }
}

void PlaceExplorerModel::setQuery(const QString& query) {
    if (m_query != query) {
        m_query = query;
        emit queryChanged();
    }
}

void PlaceExplorerModel::setError(std::optional<QString> error) {
    if (m_error != error) {
        m_error = std::move(error);
        emit errorChanged();
    }
}

void PlaceExplorerModel::rebuild() {
    m_jobs.cancel(prepareLane);
    m_jobs.cancel(dayLane);
    m_preparing = true;
    m_finding = false;
    m_days.clear();
    // The map drops the old points at once; freeing millions of them is left to the pool.
    replacePoints({std::make_shared<std::vector<TimelinePoint>>(),
                   std::make_shared<std::vector<HeatSample>>(), std::nullopt});
    emit daysChanged();
    setError(std::nullopt);

    const auto points = m_scope.points;
    const auto interval = m_entireHistory ? std::nullopt : m_scope.interval;
    const bool visits = m_includeVisits;
    const bool activities = m_includeActivities;
    m_jobs.start<Prepared>(
        prepareLane,
        [points, interval, visits, activities](const JobContext& context) {
            auto filtered = std::make_shared<std::vector<TimelinePoint>>(
                PlaceAnalysis::select(*points, interval, visits, activities, context.token()));
            auto samples = std::make_shared<std::vector<HeatSample>>();
            samples->reserve(filtered->size());
            std::optional<std::pair<PlaceCoordinate, PlaceCoordinate>> bounds;
            for (std::size_t i = 0; i < filtered->size(); ++i) {
                if (i % 4096 == 0) {
                    context.throwIfCancelled();
                }
                const auto& point = (*filtered)[i];
                samples->push_back(HeatSample::projecting({point.latitude, point.longitude}));
                if (!bounds) {
                    bounds = {{point.latitude, point.longitude}, {point.latitude, point.longitude}};
                }
                auto& [low, high] = *bounds;
                low = {std::min(low.latitude, point.latitude),
                       std::min(low.longitude, point.longitude)};
                high = {std::max(high.latitude, point.latitude),
                        std::max(high.longitude, point.longitude)};
            }
            return Prepared{std::move(filtered), std::move(samples), bounds};
        },
        [this](Prepared prepared) {
            m_preparing = false;
            replacePoints(std::move(prepared));
            ++m_fitRequest;
            emit fitRequested();
            findDays();
        },
        [this](const QString& message) {
            m_preparing = false;
            emit pointsChanged();
            setError(message);
        });
}

void PlaceExplorerModel::replacePoints(Prepared prepared) {
    m_jobs.retire(std::exchange(m_filtered, std::move(prepared.filtered)));
    m_jobs.retire(std::exchange(m_samples, std::move(prepared.samples)));
    m_bounds = prepared.bounds;
    if (m_nearby) {
        m_jobs.retire(std::exchange(m_nearby, std::nullopt)->points);
    }
    ++m_revision;
    emit pointsChanged();
    requestHeat();
    requestDots();
}

void PlaceExplorerModel::clearDays() {
    m_jobs.cancel(dayLane);
    m_days.clear();
    m_finding = false;
}

void PlaceExplorerModel::findDays() {
    clearDays();
    if (!m_center || m_preparing) {
        emit daysChanged();
        return;
    }
    m_finding = true;
    emit daysChanged();
    const auto points = m_filtered;
    const PlaceCoordinate centre = *m_center;
    const double radius = m_radius;
    const date::time_zone* zone = m_scope.zone;
    std::optional<Nearby> nearby;
    if (m_nearby && m_nearby->centre == centre && m_nearby->radius >= radius) {
        nearby = m_nearby;
    }
    m_jobs.start<DaySearch>(
        dayLane,
        [points, centre, radius, zone, nearby](const JobContext& context) {
            Nearby near = nearby.value_or(Nearby{centre, std::max(radius, nearbyRadius), nullptr});
            if (!near.points) {
                near.points = std::make_shared<const std::vector<TimelinePoint>>(
                    pointsNear(centre, near.radius, *points, context.token()));
            }
            return DaySearch{
                PlaceAnalysis::days(centre, radius, *near.points, *zone, context.token()), near};
        },
        [this](DaySearch search) {
            m_days = std::move(search.days);
            m_nearby = std::move(search.nearby);
            m_finding = false;
            emit daysChanged();
        },
        [this](const QString& message) {
            m_finding = false;
            emit daysChanged();
            setError(message);
        });
}

void PlaceExplorerModel::choose(const QString& name, PlaceCoordinate coordinate, bool focus) {
    m_center = coordinate;
    m_placeName = name;
    m_choosingLocation = false;
    emit placeChanged();
    if (focus) {
        ++m_focusRequest;
        emit focusRequested();
    }
    findDays();
}

void PlaceExplorerModel::close() {
    m_jobs.cancelAll();
    m_preparing = false;
    m_finding = false;
    cancelSearch();
}

void PlaceExplorerModel::setView(HeatRegion visible, double viewWidth) {
    m_view = {visible, viewWidth};
    requestHeat();
    requestDots();
}

void PlaceExplorerModel::requestHeat() {
    if (!m_heatEnabled) {
        // Switched off: gone at once, and nothing is binned.
        ++m_renderGeneration;
        m_jobs.cancel(heatLane);
        if (!m_heat.cells.empty()) {
            m_heat = {};
            emit heatChanged();
        }
        return;
    }
    renderCells(heatLane, heatCellPoints, m_heat, &PlaceExplorerModel::heatChanged);
}

void PlaceExplorerModel::requestDots() {
    renderCells(dotLane, dotCellPoints, m_dots, &PlaceExplorerModel::dotsChanged);
}

void PlaceExplorerModel::renderCells(Lane lane, double cellPoints, MapCells& target,
                                     void (PlaceExplorerModel::*changed)()) {
    const auto generation = ++m_renderGeneration;
    m_jobs.cancel(lane);
    const auto grid = m_view ? cellGrid(m_view->first, m_view->second, cellPoints) : std::nullopt;
    if (m_samples->empty() || !grid) {
        if (!target.cells.empty()) {
            target = {};
            emit(this->*changed)();
        }
        return;
    }
    // The cells shown stay until the new ones arrive: they are anchored on the
    // unit square, so they still lie right while the view moves.
    const auto samples = m_samples;
    m_jobs.start<MapCells>(
        lane,
        [samples, grid = *grid, generation](const JobContext& context) {
            return MapCells{
                PlaceAnalysis::heatCells(*samples, grid.region, grid.cellSize, context.token()),
                grid.cellSize, generation};
        },
        [this, &target, changed](MapCells cells) {
            target = std::move(cells);
            emit(this->*changed)();
        },
        [this](const QString& message) { setError(message); });
}

} // namespace trackloom
