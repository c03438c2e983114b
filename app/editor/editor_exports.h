#pragma once

// The editor's three exports: the whole edited track, the same as one track of
// one section, and the section of the selected point. In shift mode the start
// chosen in the time fields is applied while writing. No export ever writes
// over a file that was opened or appended, or the timeline a day came from:
// the save dialog refuses them, and the writing refuses them again.

#include <QObject>
#include <QString>
#include <optional>

namespace trackloom {

class EditorModel;
struct EditorExport;

class EditorExports : public QObject {
    Q_OBJECT

  public:
    /// Reads the track, selection and time fields of `model`, and reports
    /// and writes through it.
    explicit EditorExports(EditorModel& model) : m_model(model) {}

    /// Why the whole track cannot be exported now, or nothing when it can.
    std::optional<QString> refusal() const;
    /// Why the selected point's section cannot be exported now.
    std::optional<QString> sectionRefusal() const;

    /// Each asks for a destination with a suggested name, then writes in the
    /// background; refusals become the model's error.
    void exportTrack();
    void exportSingleTrack();
    void exportSelectedSegment();

  private:
    /// The whole track, as it is or as one track of one section.
    void exportWhole(bool asSingleTrack);
    std::optional<QString> destination(const QString& title, const QString& suggestedName);
    void write(EditorExport plan);

    EditorModel& m_model;
};

} // namespace trackloom
