#include "tests/app/editor/editor_test_support.h"

#include <QSignalSpy>

namespace trackloom::testing {
namespace {

class UnsavedWork : public EditorModelTest {
  protected:
    void exportTo(const QString& name) {
        dialogs.filesToSave = {folder.filePath(name)};
        model().exports().exportTrack();
        settle();
        ASSERT_EQ(error(), "");
    }
};

TEST_F(UnsavedWork, GeneratedTimesCountUntilTheyAreExported) {
    openDocument(gpxDocument({walk(3)}));
    QSignalSpy changes(&model(), &EditorModel::unsavedWorkChanged);
    model().timeFields().setGenerate(true);
    EXPECT_FALSE(model().hasUnsavedWork()) << "choosing the mode generates nothing";
    model().timeFields().setNewStart(testTime(7200));
    model().previewGenerated();
    settle();
    EXPECT_TRUE(model().hasUnsavedWork());
    EXPECT_FALSE(model().structuralDirty());
    EXPECT_EQ(changes.count(), 1);

    exportTo("erzeugt.gpx");
    EXPECT_FALSE(model().hasUnsavedWork());

    // Other generated times than those written are unsaved again.
    model().timeFields().setSyntheticSpeed(5);
    model().previewGenerated();
    settle();
    EXPECT_TRUE(model().hasUnsavedWork());
}

TEST_F(UnsavedWork, AShiftedStartCountsUntilItIsExportedOrTakenBack) {
    openDocument(gpxDocument({walk(3)}));
    model().timeFields().setNewStart(testTime(86400));
    EXPECT_TRUE(model().hasUnsavedWork());
    EXPECT_FALSE(model().structuralDirty());
    model().timeFields().setNewStart(testTime(0));
    EXPECT_FALSE(model().hasUnsavedWork());

    model().timeFields().setNewStart(testTime(86400));
    exportTo("verschoben.gpx");
    EXPECT_FALSE(model().hasUnsavedWork());
    model().timeFields().setNewStart(testTime(2 * 86400));
    EXPECT_TRUE(model().hasUnsavedWork());
}

TEST_F(UnsavedWork, UndoingBackToTheWrittenStateLeavesNothingUnsaved) {
    // An edit is unsaved work until it is undone again.
    const auto deleteAndUndo = [this](std::int64_t point) {
        model().selectPoint(point);
        model().deleteSelected();
        settle();
        EXPECT_TRUE(model().hasUnsavedWork());
        model().undo();
        settle();
        EXPECT_FALSE(model().hasUnsavedWork());
    };
    openDocument(gpxDocument({walk(4)}));
    deleteAndUndo(1);
    EXPECT_TRUE(model().structuralDirty()) << "the replacement question keeps its own rule";

    model().redo();
    settle();
    exportTo("ohne.gpx");
    deleteAndUndo(0);
    model().undo();
    settle();
    EXPECT_TRUE(model().hasUnsavedWork()) << "the opened state was not what was exported";

    openDocument(gpxDocument({walk(3)}), "neu.gpx");
    EXPECT_FALSE(model().hasUnsavedWork());
}

} // namespace
} // namespace trackloom::testing
