#include "core/editing/track_append.h"

#include "core/base/gpx_error.h"
#include "core/editing/document_points.h"
#include "core/editing/gpx_elements.h"

#include <algorithm>

namespace trackloom {
namespace {

constexpr std::string_view joinFailed = "Die Tracks konnten nicht zusammengeführt werden.";

/// The content of one file in the order it goes into the combined root.
struct Content {
    std::vector<xml::Element> waypoints;
    std::vector<xml::Element> airRoutes;
    std::vector<xml::Element> tracks;
};

std::string versionOf(xml::Element root, std::string_view namespaceURI) {
    if (auto version = root.attribute("version")) {
        return *version;
    }
    return namespaceURI.find("1/0") != std::string_view::npos ? "1.0" : "1.1";
}

bool isAirRoute(const GPXTrack& track, std::int64_t routeIndex) {
    const auto& routes = track.airRoutes();
    return std::any_of(routes.begin(), routes.end(),
                       [&](const AirRoute& route) { return route.id == routeIndex; });
}

/// Moves an element of the other file into the combined file's namespace and
/// prefix, with its GPX descendants; extension content keeps its own names.
void normalize(xml::Element element, std::string_view otherNamespace, xml::Element root) {
    // An element already written as this file writes it keeps its recorded bytes.
    const bool differs =
        element.prefix() != root.prefix() || element.namespaceURI() != root.namespaceURI();
    if (element.namespaceURI() == otherNamespace && differs) {
        element.adoptNamespace(root);
    }
    if (element.localName() == "extensions") {
        return;
    }
    for (const auto& child : element.childElements()) {
        normalize(child, otherNamespace, root);
    }
}

GPXTrack::EditableCopy copyToJoin(const GPXTrack& track) {
    try {
        return track.editableCopy();
    } catch (const GPXError&) {
        throw GPXError(joinFailed);
    }
}

class Combiner {
  public:
    Combiner(GPXTrack::EditableCopy& copy, std::string_view namespaceURI)
        : m_copy(copy), m_namespace(namespaceURI) {}

    /// This file's own content, taken out of the root.
    Content takeOwn(const GPXTrack& track) {
        return collect(track, m_copy.root, [](xml::Element element) {
            element.detach();
            return element;
        });
    }

    /// The other file's content, copied into this document (still in its own
    /// namespace).
    Content cloneOther(const GPXTrack& other) {
        auto otherCopy = copyToJoin(other);
        declareMissingNamespaces(otherCopy.root, other.namespaceURI());
        return collect(other, otherCopy.root, [&](xml::Element element) {
            if (element.namespaceURI() != m_namespace || element.prefix() != m_copy.root.prefix()) {
                retarget(otherCopy, element, other.namespaceURI());
            }
            return element.copyInto(m_copy.document);
        });
    }

    void clearRoot() {
        for (const auto name : {"wpt", "rte", "trk", "bounds"}) {
            for (auto child : m_copy.root.children(name, m_namespace)) {
                child.remove();
            }
        }
        for (const auto& metadata : m_copy.root.children("metadata", m_namespace)) {
            for (auto bounds : metadata.children("bounds", m_namespace)) {
                bounds.remove();
            }
        }
    }

    void insert(const std::vector<xml::Element>& elements) {
        for (const auto& element : elements) {
            insertBeforeRootExtensions(m_copy.root, element, m_namespace);
        }
    }

  private:
    template <typename Take> Content collect(const GPXTrack& track, xml::Element root, Take take) {
        const auto& sourceNamespace = track.namespaceURI();
        Content content;
        for (const auto& waypoint : root.children("wpt", sourceNamespace)) {
            content.waypoints.push_back(take(waypoint));
        }
        for (const auto& trk : root.children("trk", sourceNamespace)) {
            content.tracks.push_back(take(trk));
        }
        std::int64_t index = 0;
        for (const auto& route : root.children("rte", sourceNamespace)) {
            auto taken = take(route);
            if (isAirRoute(track, index++)) {
                content.airRoutes.push_back(taken);
            } else {
                // Taken elements of the other file may be in our namespace already.
                convertToTrack(taken, taken.namespaceURI());
                content.tracks.push_back(taken);
            }
        }
        return content;
    }

    /// The route becomes a track of one segment holding its points.
    void convertToTrack(xml::Element route, std::string_view routeNamespace) {
        auto segment =
            m_copy.document.createElement("trkseg", m_namespace, m_copy.root.prefix(), m_copy.root);
        for (auto point : route.children("rtept", routeNamespace)) {
            point.detach();
            point.setLocalName("trkpt");
            segment.appendChild(point);
        }
        route.setLocalName("trk");
        route.appendChild(segment);
    }

    /// Moves an element of the other file into this file's namespace while it
    /// is still in its own document. A copy declares the namespaces it uses on
    /// itself; had it kept the other GPX namespace, that declaration would
    /// outlive the renaming and, with an equal prefix, take the names back.
    void retarget(GPXTrack::EditableCopy& otherCopy, xml::Element element,
                  std::string_view otherNamespace) {
        const auto prefix = m_copy.root.prefix();
        const auto declared = element.namespaceDeclarations();
        if (std::any_of(declared.begin(), declared.end(),
                        [&](const auto& existing) { return existing.first == prefix; })) {
            return;
        }
        element.declareNamespace(prefix, m_namespace);
        const auto model = otherCopy.document.createElement("gpx", m_namespace, prefix, element);
        normalize(element, otherNamespace, model);
    }

    /// Declarations the other file's extension content may need. Its GPX
    /// namespace is not among them: its elements move into ours, and a
    /// declaration of it (above all a default one) would change what our own
    /// unprefixed names mean, or lend elements created later another prefix.
    void declareMissingNamespaces(xml::Element otherRoot, std::string_view otherNamespace) {
        const auto own = m_copy.root.namespaceDeclarations();
        for (const auto& declaration : otherRoot.namespaceDeclarations()) {
            if (declaration.second == otherNamespace || declaration.first == m_copy.root.prefix()) {
                continue;
            }
            const bool declared = std::any_of(own.begin(), own.end(), [&](const auto& existing) {
                return existing.first == declaration.first;
            });
            if (!declared) {
                m_copy.root.declareNamespace(declaration.first, declaration.second);
            }
        }
    }

    GPXTrack::EditableCopy& m_copy;
    std::string_view m_namespace;
};

} // namespace

TrackPtr appending(const GPXTrack& track, const GPXTrack& other) {
    auto copy = copyToJoin(track);
    const auto otherRoot = other.xml().root();
    if (!otherRoot) {
        throw GPXError(joinFailed);
    }
    if (versionOf(copy.root, track.namespaceURI()) != versionOf(*otherRoot, other.namespaceURI())) {
        throw GPXError("Zum Anhängen müssen beide Dateien dieselbe GPX-Version verwenden (1.0 "
                       "oder 1.1).");
    }
    Combiner combiner(copy, track.namespaceURI());
    const auto own = combiner.takeOwn(track);
    const auto added = combiner.cloneOther(other);
    combiner.clearRoot();
    for (const auto& part : {own.waypoints, added.waypoints, own.airRoutes, added.airRoutes,
                             own.tracks, added.tracks}) {
        combiner.insert(part);
    }
    for (const auto& part : {added.waypoints, added.airRoutes, added.tracks}) {
        for (auto element : part) {
            element.reconcileNamespaces();
            normalize(element, other.namespaceURI(), copy.root);
        }
    }
    const auto routes = copy.root.children("rte", track.namespaceURI());
    return readBack(std::move(copy), track, routes);
}

} // namespace trackloom
