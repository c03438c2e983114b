#pragma once

// An opened GPX file: the parsed document, kept with every detail for faithful
// export, plus flat views derived from it once at construction. Immutable; every
// edit builds a new document and derives a new GPXTrack from it.

#include "core/base/xml/xml_document.h"
#include "core/track/track_analysis.h"
#include "core/track/track_model.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace trackloom {

class GPXTrack;
using TrackPtr = std::shared_ptr<const GPXTrack>;

inline constexpr std::string_view gpx11Namespace = "http://www.topografix.com/GPX/1/1";
inline constexpr std::string_view gpx10Namespace = "http://www.topografix.com/GPX/1/0";
inline constexpr std::size_t maximumGPXFileSize = 52428800;

class GPXTrack : public std::enable_shared_from_this<GPXTrack> {
    struct Passkey {};

  public:
    /// Reads and validates GPX bytes; throws `GPXError` naming the first problem.
    /// `filename` only serves the fallback name. `knownAirRouteIDs` (route indices)
    /// replaces the geometric air-route test when a rewritten document is read back.
    static TrackPtr read(std::string_view data, std::string_view filename,
                         std::optional<std::set<std::int64_t>> knownAirRouteIDs = std::nullopt);
    /// The track an edited document (an editable copy after its changes) stands
    /// for: the same track, refusals included, as `read` of its serialisation,
    /// but derived from the tree as it is instead of parsing its bytes again.
    static TrackPtr
    readEdited(xml::Document document, std::string_view filename,
               std::optional<std::set<std::int64_t>> knownAirRouteIDs = std::nullopt);

    GPXTrack(Passkey, xml::Document document);
    GPXTrack(const GPXTrack&) = delete;
    GPXTrack& operator=(const GPXTrack&) = delete;

    const std::string& name() const { return m_name; }
    const std::vector<TrackPoint>& points() const { return m_points; }
    const std::vector<GPXSegment>& segments() const { return m_segments; }
    const std::set<std::int64_t>& airRoutePointIDs() const { return m_airRoutePointIDs; }
    const TrackAnalysis& analysis() const { return m_analysis; }
    std::int64_t auxiliaryInvalidTimes() const { return m_auxiliaryInvalidTimes; }
    const std::vector<AirRoute>& airRoutes() const { return m_airRoutes; }
    const xml::Document& xml() const { return m_xml; }
    /// The root's namespace URI: GPX 1.1, GPX 1.0 or empty.
    const std::string& namespaceURI() const { return m_namespace; }

    /// Time of the first point that has one.
    std::optional<Instant> start() const;
    /// Time of the last point that has one.
    std::optional<Instant> end() const;
    /// The serialised document, exactly as it stands: for a UTF-8 file its bytes.
    std::string data() const;

    /// A deep copy of the document to edit, with its root, declared UTF-8. Throws
    /// `GPXError` when the copy has no root.
    struct EditableCopy {
        xml::Document document;
        xml::Element root;
    };
    EditableCopy editableCopy() const;
    /// The same, but the document itself when `track` is the only reference to
    /// it: nobody can see the track change, so it is released and nothing copied.
    static EditableCopy editableDocument(TrackPtr track);

    /// A point element of a document copy, with the index of its `rte` among the
    /// routes (absent for a `trkpt`).
    struct PointNode {
        xml::Element element;
        std::optional<std::int64_t> route;
    };
    /// The point elements under `root` (a copy of the document of a track in this
    /// namespace) in reading order, so that position i holds the point whose id is i.
    static std::vector<PointNode> pointNodes(xml::Element root, std::string_view namespaceURI);

    /// A new track holding only the segment `segmentID`: other segments, tracks
    /// left empty, other routes, waypoints and bounding boxes are dropped, all
    /// else is kept. Throws `GPXError` for an unknown id or an unreadable result.
    TrackPtr exportingSegment(std::int64_t segmentID) const;

    /// The same track without its detected straight-line routes (this very track
    /// when it has none). Throws `GPXError`.
    TrackPtr removingAirRoutes() const;

    /// Great-circle distance in metres between two points (haversine).
    static double distance(const TrackPoint& from, const TrackPoint& to);
    /// Direct child elements named `name` in `namespaceURI`, in document order.
    static std::vector<xml::Element> children(xml::Element element, std::string_view name,
                                              std::string_view namespaceURI);
    static std::optional<Instant> parseTime(std::string_view text);
    static std::string formatTime(Instant instant);

  private:
    friend class GPXTrackReader;

    std::string m_name;
    std::vector<TrackPoint> m_points;
    std::vector<GPXSegment> m_segments;
    std::set<std::int64_t> m_airRoutePointIDs;
    TrackAnalysis m_analysis;
    std::int64_t m_auxiliaryInvalidTimes = 0;
    std::vector<AirRoute> m_airRoutes;
    xml::Document m_xml;
    std::string m_namespace;
};

} // namespace trackloom
