#include "app/timeline/timeline_day_view.h"

#include "app/timeline/timeline_day_list.h"
#include "app/timeline/timeline_model.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

namespace trackloom {
namespace {

/// Paints a day as its title over a smaller grey line of figures; the shown day
/// in the selection colour.
class DayDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        const QFontMetrics title(option.font);
        const QFontMetrics detail(smaller(option.font));
        return {200, title.height() + detail.height() + 3 * padding};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem base = option;
        initStyleOption(&base, index);
        const bool shown = index.data(TimelineDayList::shownRole).toBool();
        if (shown) {
            base.state |= QStyle::State_Selected;
        }
        base.text.clear();
        const QWidget* widget = option.widget;
        QStyle* style = widget ? widget->style() : QApplication::style();
        style->drawControl(QStyle::CE_ItemViewItem, &base, painter, widget);

        const QRect area = option.rect.adjusted(2 * padding, padding, -2 * padding, -padding);
        const QPalette::ColorRole role = shown ? QPalette::HighlightedText : QPalette::Text;
        painter->save();
        painter->setFont(option.font);
        painter->setPen(option.palette.color(role));
        const QFontMetrics title(option.font);
        const QRect titleRect(area.left(), area.top(), area.width(), title.height());
        const QFont small = smaller(option.font);
        const QFontMetrics detail(small);
        QColor grey = option.palette.color(role);
        if (!shown) {
            grey.setAlphaF(0.65f);
        }
        // The figures keep their place at the right; the title gives way.
        const QString count = index.data(TimelineDayList::countRole).toString();
        // A pixel of slack: the advance is rounded, and eliding must never bite.
        const int countWidth = std::min(detail.horizontalAdvance(count) + 2, area.width() / 2);
        painter->setFont(small);
        painter->setPen(grey);
        painter->drawText(titleRect, Qt::AlignRight | Qt::AlignVCenter,
                          detail.elidedText(count, Qt::ElideRight, countWidth));
        painter->setFont(option.font);
        painter->setPen(option.palette.color(role));
        painter->drawText(titleRect, Qt::AlignLeft | Qt::AlignVCenter,
                          title.elidedText(index.data().toString(), Qt::ElideRight,
                                           area.width() - countWidth - 2 * padding));
        painter->setFont(small);
        painter->setPen(grey);
        const QRect detailRect(area.left(), titleRect.bottom() + padding, area.width(),
                               detail.height());
        painter->drawText(detailRect, Qt::AlignLeft | Qt::AlignVCenter,
                          detail.elidedText(index.data(TimelineDayList::timesRole).toString(),
                                            Qt::ElideRight, area.width()));
        painter->restore();
    }

  private:
    static constexpr int padding = 3;

    static QFont smaller(QFont font) {
        font.setPointSizeF(font.pointSizeF() * 0.88);
        return font;
    }
};

} // namespace

TimelineDayView::TimelineDayView(TimelineModel& model, QWidget* parent)
    : QWidget(parent), m_model(model), m_rows(new TimelineDayList(model, this)),
      m_search(new QLineEdit), m_order(new QComboBox), m_list(new QListView), m_empty(new QLabel) {
    m_search->setPlaceholderText(tr("Tag oder Ort suchen"));
    m_search->setClearButtonEnabled(true);
    m_order->addItem(tr("Neueste zuerst"));
    m_order->addItem(tr("Älteste zuerst"));
    m_list->setModel(m_rows);
    m_list->setItemDelegate(new DayDelegate(m_list));
    // Every row has the same height: the view need not measure thousands of them.
    m_list->setUniformItemSizes(true);
    m_list->setSelectionMode(QAbstractItemView::NoSelection);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_empty->setWordWrap(true);
    m_empty->setAlignment(Qt::AlignCenter);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_search);
    layout->addWidget(m_order);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_empty);

    connect(m_search, &QLineEdit::textChanged, &model, &TimelineModel::setDaySearch);
    connect(m_order, &QComboBox::currentIndexChanged, &model,
            [this](int index) { m_model.setNewestFirst(index == 0); });
    for (auto signal : {&QListView::clicked, &QListView::activated}) {
        connect(m_list, signal, this, [this](const QModelIndex& index) {
            if (const auto day = m_rows->dayAt(index.row())) {
                m_model.selectDay(*day);
            }
        });
    }
    connect(&model, &TimelineModel::filterChanged, this, &TimelineDayView::refresh);
    connect(&model, &TimelineModel::daysChanged, this, &TimelineDayView::refresh);
    connect(&model, &TimelineModel::rangeChanged, this, &TimelineDayView::revealShownDay);
    refresh();
}

void TimelineDayView::refresh() {
    {
        const QSignalBlocker searching(m_search);
        const QSignalBlocker ordering(m_order);
        if (m_search->text() != m_model.daySearch()) {
            m_search->setText(m_model.daySearch());
        }
        m_order->setCurrentIndex(m_model.newestFirst() ? 0 : 1);
    }
    const bool none = m_rows->rowCount() == 0;
    m_empty->setVisible(none);
    m_empty->setText(!m_model.session()       ? tr("Noch keine Zeitachse geöffnet.")
                     : m_model.days().empty() ? tr("Die Zeitachse enthält keine Tage.")
                                              : tr("Kein Tag passt zur Suche."));
    revealShownDay();
}

void TimelineDayView::revealShownDay() {
    if (const auto day = m_model.selectedDay(); day && !m_model.rangeMode()) {
        const int row = m_rows->rowOf(*day);
        if (row >= 0) {
            m_list->scrollTo(m_rows->index(row));
        }
    }
}

} // namespace trackloom
