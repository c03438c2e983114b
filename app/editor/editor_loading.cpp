// Opening a track (a file, the sample, a day from the timeline) and appending
// a second file. Files are read on the thread pool; the newest load wins.

#include "app/editor/editor_files.h"
#include "app/editor/editor_model.h"
#include "app/editor/editor_texts.h"
#include "core/base/file_io.h"
#include "core/base/gpx_error.h"
#include "core/track/sample_track.h"

#include <QFileInfo>

namespace trackloom {
namespace {

// Checked before reading, so that a huge file is never loaded into memory.
TrackPtr readGPXFile(const QString& path) {
    if (QFileInfo(path).size() > static_cast<qint64>(maximumGPXFileSize)) {
        throw GPXError("Die Datei ist größer als 50 MB. Bitte teile den Track vor dem Import auf.");
    }
    return GPXTrack::read(readFileBytes(localPath(path)), QFileInfo(path).fileName().toStdString());
}

} // namespace

void EditorModel::open() {
    if (!mayReplace()) {
        return;
    }
    if (const auto path = m_dialogs.fileToOpen(tr("GPX-Datei öffnen"), gpxFileFilters())) {
        load(*path);
    }
}

void EditorModel::load(const QString& path) {
    startLoad([path] { return readGPXFile(path); },
              [this, path] {
                  m_filename = QFileInfo(path).fileName();
                  m_sourceURL = path;
                  protectFile(path);
                  m_isSynthetic = false;
                  m_sourceIsSynthetic = false;
              },
              [](const GPXTrack& track) {
                  return QString::number(track.points().size()) + tr(" Punkte geladen.");
              });
}

void EditorModel::demo() {
    if (!mayReplace()) {
        return;
    }
    startLoad([] { return sampleTrack(); },
              [this] {
                  m_filename = tr("Beispielrunde.gpx");
                  m_sourceURL.reset();
                  m_isSynthetic = true;
                  m_sourceIsSynthetic = true;
              },
              [](const GPXTrack&) { return tr("Beispieldaten geladen."); });
}

void EditorModel::acceptTimelineDay(std::string gpxData, const QString& title,
                                    std::optional<QString> timelinePath) {
    if (!mayReplace()) {
        return;
    }
    auto data = std::make_shared<const std::string>(std::move(gpxData));
    startLoad([data, name = title.toStdString()] { return GPXTrack::read(*data, name); },
              [this, title, timelinePath] {
                  m_filename = title + QStringLiteral(".gpx");
                  m_sourceURL.reset();
                  m_protectedTimelineURL = timelinePath;
                  m_isSynthetic = false;
                  m_sourceIsSynthetic = false;
              },
              [](const GPXTrack&) {
                  return tr("Auswahl aus der Google-Zeitachse übernommen. Zeitfunktionen sind "
                            "bereit.");
              });
}

void EditorModel::startLoad(std::function<TrackPtr()> read, std::function<void()> adopt,
                            std::function<QString(const GPXTrack&)> successStatus) {
    const bool removesAirRoutes = m_removeAirRoutes;
    // A refusal about the previous file says nothing about the one being read.
    clearError();
    setStatus(tr("Track wird eingelesen …"));
    m_jobs.start<SessionPtr>(
        loadLane,
        [read = std::move(read), removesAirRoutes](const JobContext&) {
            auto session = std::make_shared<GPXEditingSession>(read(), removesAirRoutes);
            // Written here rather than on the main thread, where the model
            // keeps them as the state that is saved.
            session->workingBytes();
            return session;
        },
        [this, adopt = std::move(adopt),
         successStatus = std::move(successStatus)](SessionPtr session) {
            adopt();
            showNewSession(std::move(session));
            setStatus(successStatus(*m_track));
        },
        [this](const QString& failure) { fail(failure, tr("Import fehlgeschlagen.")); });
}

void EditorModel::showNewSession(SessionPtr session) {
    // An edit of the replaced session is dropped, whenever it ends.
    m_jobs.cancel(editLane);
    m_queued.clear();
    m_jobs.retire(std::move(m_lentSession));
    m_jobs.retire(std::move(m_session));
    m_jobs.retire(std::move(m_track));
    m_jobs.retire(std::move(m_lastExportedSource));
    m_session = std::move(session);
    m_track = m_session->track();
    if (m_removeAirRoutes != m_session->removesAirRoutes()) {
        // The choice changed while the file was read; the session shows what it was read with.
        m_removeAirRoutes = m_session->removesAirRoutes();
        emit removeAirRoutesChanged();
    }
    m_appendSummary.clear();
    ++m_openedRevision;
    m_jobs.retire(std::move(m_written.sourceBytes));
    m_written = {m_session->workingBytes(), std::nullopt, std::nullopt};
    setStructuralDirty(false);
    m_mapTool.reset();
    m_timeFields.follow(*m_track, true);
    clearError();
    refreshMap(true, std::nullopt);
    updateUnsavedWork();
    emit trackChanged();
}

void EditorModel::appendTrack() {
    if (!requireEditable()) {
        return;
    }
    const auto path = m_dialogs.fileToOpen(tr("Nächsten GPX-Track anhängen"), gpxFileFilters());
    if (!path) {
        return;
    }
    SessionEffects effects;
    effects.structural = true;
    // The appended part usually lies beyond what the map shows.
    effects.fitsMap = true;
    effects.failureStatus = tr("Anhängen fehlgeschlagen. Der bisherige Track bleibt erhalten.");
    // The session makes generated times the source's own before it appends.
    const bool materializes = m_session->timing().has_value();
    effects.succeeded = [this, path = *path, materializes](const QString& report) {
        protectFile(path);
        m_appendSummary = report;
        m_isSynthetic = false;
        if (materializes) {
            m_timeFields.adoptOwnTimes(*m_track);
        }
    };
    runOnSession(
        [path = *path](GPXEditingSession& session) {
            if (QFileInfo(path).size() > static_cast<qint64>(maximumGPXFileSize)) {
                throw GPXError("Die Datei ist größer als 50 MB.");
            }
            const auto other = GPXTrack::read(readFileBytes(localPath(path)),
                                              QFileInfo(path).fileName().toStdString());
            const TrackPtr before = session.track();
            session.append(*other);
            return appendReport(before.get(), *other, session.track()->points().size());
        },
        std::move(effects), tr("Weiterer Track wird eingelesen …"));
}

} // namespace trackloom
