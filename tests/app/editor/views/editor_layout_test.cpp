// The editor in the main window at the sizes it is used at: the default and a
// small laptop screen (1024×700). No text may be cut, the interval table shows
// a useful number of rows, and status texts never move the panels.

#include "app/editor/edit_panel.h"
#include "app/editor/editor_view.h"
#include "app/editor/editor_workspace.h"
#include "app/editor/interval_table_view.h"
#include "app/editor/map_editor.h"
#include "app/editor/speed_legend.h"
#include "app/editor/time_panel.h"
#include "app/map/tile_source.h"
#include "app/shell/main_window.h"
#include "tests/app/support/qt_test_application.h"
#include "tests/app/support/scripted_dialogs.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>

namespace trackloom {
namespace {

// Titles as long as the other workspaces', so that the sidebar takes its real width.
struct NamedWorkspace : Workspace {
    explicit NamedWorkspace(QString name) : name(std::move(name)) {}
    QString title() const override { return name; }
    QWidget* view() override { return new QLabel(name); }
    QStringList fileFilters() const override { return {}; }
    bool canOpen(const QString&) const override { return false; }
    void open(const QString&) override {}
    std::optional<UnsavedWork> unsavedWork() const override { return std::nullopt; }
    QString name;
};

bool insideScrolledContent(const QWidget* widget) {
    for (const QWidget* up = widget->parentWidget(); up; up = up->parentWidget()) {
        if (qobject_cast<const QAbstractItemView*>(up) ||
            qobject_cast<const QAbstractSpinBox*>(up) || qobject_cast<const QTabBar*>(up)) {
            return true;
        }
    }
    return false;
}

// Where the widget is cut: narrower or lower than its text needs, or reaching
// beyond an ancestor (a scroll area's content may run on downwards only).
std::optional<QString> cut(const QWidget* widget) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label && label->wordWrap()) {
        if (label->height() < label->heightForWidth(label->width())) {
            return QStringLiteral("wrapped text too low");
        }
    } else if (widget->width() < widget->sizeHint().width() ||
               widget->height() < widget->minimumSizeHint().height()) {
        return QStringLiteral("narrower than its text");
    }
    for (const QWidget* up = widget->parentWidget(); up; up = up->parentWidget()) {
        const QRect within(widget->mapTo(up, QPoint(0, 0)), widget->size());
        const auto* area = qobject_cast<const QAbstractScrollArea*>(up->parentWidget());
        const bool scrolled = area && area->viewport() == up;
        if (within.left() < 0 || within.right() > up->width() - 1 ||
            (!scrolled && (within.top() < 0 || within.bottom() > up->height() - 1))) {
            return QStringLiteral("outside ") + up->metaObject()->className();
        }
        if (up->isWindow()) {
            break;
        }
    }
    return std::nullopt;
}

// The texts cut anywhere in `root`, with where they are cut; empty when none is.
std::string cutTexts(const QWidget* root) {
    QStringList found;
    for (const QWidget* widget : root->findChildren<QWidget*>()) {
        const bool textual = qobject_cast<const QLabel*>(widget) ||
                             qobject_cast<const QAbstractButton*>(widget) ||
                             qobject_cast<const SpeedLegend*>(widget);
        if (!textual || !widget->isVisible() || insideScrolledContent(widget)) {
            continue;
        }
        if (const auto why = cut(widget)) {
            const auto* label = qobject_cast<const QLabel*>(widget);
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            found += (label    ? label->text()
                      : button ? button->text()
                               : QString("Legende")) +
                     ": " + *why;
        }
    }
    return found.join(QStringLiteral("; ")).toStdString();
}

struct Screen {
    QSize size;
    /// Times name their zone, and zone names run from three letters to thirty.
    const char* zone;
};

class EditorLayout : public testing::ApplicationTest, public ::testing::WithParamInterface<Screen> {
  protected:
    EditorLayout()
        : store(folder.filePath("settings.ini"), QSettings::IniFormat), settings(store),
          tiles(QString(), QString(), nullptr), window(settings, dialogs, tiles) {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        auto owned = std::make_unique<EditorWorkspace>(store, dialogs, nullptr,
                                                       *date::locate_zone(GetParam().zone));
        workspace = owned.get();
        window.addWorkspace(std::move(owned));
        window.addWorkspace(std::make_unique<NamedWorkspace>("Zeitachse"));
        window.addWorkspace(std::make_unique<NamedWorkspace>("Wann war ich hier?"));
        window.setAttribute(Qt::WA_DontShowOnScreen);
        window.resize(GetParam().size);
        window.show();
        workspace->openSample();
        settle();
    }

    void settle() {
        while (workspace->isBusy()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
        QCoreApplication::processEvents();
    }

    EditorView& view() { return *static_cast<EditorView*>(workspace->view()); }

    // Brings the side tab holding `panel` to the front.
    void showSideTab(QWidget* panel) {
        for (QWidget* page = panel; page && page->parentWidget(); page = page->parentWidget()) {
            if (auto* tabs = qobject_cast<QTabWidget*>(page->parentWidget()->parentWidget());
                tabs && tabs->indexOf(page) >= 0) {
                tabs->setCurrentWidget(page);
                QCoreApplication::processEvents();
                return;
            }
        }
        FAIL() << "the panel is in no tab";
    }

    QTemporaryDir folder;
    QSettings store;
    testing::ScriptedDialogs dialogs;
    AppSettings settings;
    TileSource tiles;
    MainWindow window;
    EditorWorkspace* workspace = nullptr;
};

TEST_P(EditorLayout, CutsNoTextOfTheEditorOrItsPanels) {
    EXPECT_EQ(cutTexts(&view()), "");
    workspace->model().setColorBySpeed(true);
    QCoreApplication::processEvents();
    EXPECT_TRUE(view().mapEditor()->findChild<SpeedLegend*>()->isVisible());
    EXPECT_EQ(cutTexts(&view()), "");

    // Generating from start and end with an end before the start shows the
    // most the time panel ever shows: both dates, the mode and a refusal.
    EditorTimeFields& fields = workspace->model().timeFields();
    fields.setGenerate(true);
    fields.setGenerationMode(GenerationMode::startAndEnd);
    fields.setNewEnd(fields.newStart().advanced(-60));
    showSideTab(view().timePanel());
    ASSERT_TRUE(view().timePanel()->isVisible());
    ASSERT_FALSE(view().timePanel()->feedback().isEmpty());
    EXPECT_EQ(cutTexts(&view()), "");
    showSideTab(view().findChild<EditPanel*>());
    EXPECT_EQ(cutTexts(&view()), "");
}

TEST_P(EditorLayout, TheIntervalTableShowsSeveralRowsAndEveryColumn) {
    QTableView* table = view().intervals()->table();
    const int rowHeight = table->verticalHeader()->defaultSectionSize();
    EXPECT_GE(table->viewport()->height() / rowHeight, IntervalTableView::visibleRows);
    EXPECT_FALSE(table->horizontalScrollBar()->isVisible());
    QHeaderView* header = table->horizontalHeader();
    for (int column = 0; column < header->count(); ++column) {
        EXPECT_GE(header->sectionSize(column), header->sectionSizeHint(column))
            << table->model()->headerData(column, Qt::Horizontal).toString().toStdString();
        EXPECT_FALSE(table->model()
                         ->headerData(column, Qt::Horizontal, Qt::ToolTipRole)
                         .toString()
                         .isEmpty());
    }
}

TEST_P(EditorLayout, StatusTextsNeverMoveThePanels) {
    const QRect map = view().mapEditor()->geometry();
    const QRect table = view().intervals()->geometry();
    EditorModel& model = workspace->model();
    model.selectPoint(0);
    // A refusal long enough to fill the line several times over.
    model.splitSelected();
    settle();
    ASSERT_FALSE(view().errorText().isEmpty());
    EXPECT_EQ(view().mapEditor()->geometry(), map);
    EXPECT_EQ(view().intervals()->geometry(), table);
}

// The small laptop screen, the window's default size and the screenshots' default.
INSTANTIATE_TEST_SUITE_P(WindowSizes, EditorLayout,
                         ::testing::Values(Screen{{1024, 700}, "Etc/UTC"},
                                           Screen{{1200, 800}, "Etc/UTC"},
                                           Screen{{1280, 800}, "Etc/UTC"},
                                           Screen{{1024, 700}, "America/Argentina/Buenos_Aires"},
                                           Screen{{1280, 800}, "America/Argentina/Buenos_Aires"}),
                         [](const auto& info) {
                             return std::to_string(info.param.size.width()) + "x" +
                                    std::to_string(info.param.size.height()) + "_" +
                                    std::to_string(info.index);
                         });

} // namespace
} // namespace trackloom
