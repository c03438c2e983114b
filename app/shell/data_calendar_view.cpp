#include "app/shell/data_calendar_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

namespace trackloom {
namespace {

QString markColor() {
    return QColor::fromRgba(DataCalendarPicker::green).name();
}

} // namespace

DataCalendarView::DataCalendarView(DataCalendarPicker picker, QWidget* parent)
    : QFrame(parent, Qt::Popup), m_picker(std::move(picker)),
      m_firstWeekday(firstWeekday(QLocale::system())) {
    setFrameShape(QFrame::StyledPanel);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* heading = new QLabel(QStringLiteral("<b>%1</b>").arg(m_picker.heading().toHtmlEscaped()));
    m_instruction = new QLabel;
    m_instruction->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(m_instruction);
    layout->addLayout(buildNavigation());
    layout->addLayout(buildGrid());
    layout->addLayout(buildFooter());
    refresh();
}

QLayout* DataCalendarView::buildNavigation() {
    auto* previous = new QToolButton;
    previous->setArrowType(Qt::LeftArrow);
    previous->setToolTip(tr("Vorheriger Monat"));
    connect(previous, &QToolButton::clicked, this, [this] {
        m_picker.showPreviousMonth();
        refresh();
    });
    auto* next = new QToolButton;
    next->setArrowType(Qt::RightArrow);
    next->setToolTip(tr("Nächster Monat"));
    connect(next, &QToolButton::clicked, this, [this] {
        m_picker.showNextMonth();
        refresh();
    });
    m_month = new QComboBox;
    m_month->setToolTip(tr("Monat"));
    for (int month = 1; month <= 12; ++month) {
        m_month->addItem(QLocale().standaloneMonthName(month), month);
    }
    m_year = new QComboBox;
    m_year->setToolTip(tr("Jahr"));
    const auto chooseMonth = [this] {
        m_picker.showMonth(m_year->currentData().toInt(), m_month->currentData().toUInt());
        refresh();
    };
    connect(m_month, &QComboBox::activated, this, chooseMonth);
    connect(m_year, &QComboBox::activated, this, chooseMonth);
    auto* row = new QHBoxLayout;
    row->addWidget(previous);
    row->addWidget(m_month, 1);
    row->addWidget(m_year);
    row->addWidget(next);
    return row;
}

QLayout* DataCalendarView::buildGrid() {
    auto* grid = new QGridLayout;
    grid->setSpacing(2);
    const QStringList heads = weekdaySymbols(QLocale(), m_firstWeekday);
    for (int column = 0; column < 7; ++column) {
        auto* head = new QLabel(heads[column]);
        head->setAlignment(Qt::AlignCenter);
        grid->addWidget(head, 0, column);
    }
    for (int index = 0; index < 42; ++index) {
        auto* day = new QToolButton;
        day->setFixedSize(44, 40);
        day->setAutoRaise(true);
        connect(day, &QToolButton::clicked, this, [this, index] {
            if (index < static_cast<int>(m_cells.size())) {
                m_picker.select(m_cells[index].start);
                refresh();
            }
        });
        grid->addWidget(day, 1 + index / 7, index % 7);
        m_days.push_back(day);
    }
    return grid;
}

QLayout* DataCalendarView::buildFooter() {
    auto* firstData = new QPushButton(tr("Erster Tag mit Daten"));
    connect(firstData, &QPushButton::clicked, this, [this] {
        m_picker.showFirstDataMonth();
        refresh();
    });
    auto* lastData = new QPushButton(tr("Letzter Tag mit Daten"));
    connect(lastData, &QPushButton::clicked, this, [this] {
        m_picker.showLastDataMonth();
        refresh();
    });
    const bool hasData = !m_picker.counts().empty();
    firstData->setEnabled(hasData);
    lastData->setEnabled(hasData);
    m_summary = new QLabel;
    auto* legend = new QLabel(m_picker.legend());
    legend->setWordWrap(true);
    auto* cancel = new QPushButton(tr("Abbrechen"));
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
    m_action = new QPushButton(m_picker.actionTitle());
    m_action->setDefault(true);
    connect(m_action, &QPushButton::clicked, this, [this] {
        m_finished = true;
        m_picker.confirm();
        close();
    });

    auto* jumps = new QHBoxLayout;
    jumps->addWidget(firstData);
    jumps->addWidget(lastData);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_summary, 1);
    buttons->addWidget(cancel);
    buttons->addWidget(m_action);
    auto* footer = new QVBoxLayout;
    footer->addLayout(jumps);
    footer->addWidget(legend);
    footer->addLayout(buttons);
    return footer;
}

void DataCalendarView::refresh() {
    m_instruction->setText(m_picker.instruction());
    m_summary->setText(m_picker.summary());
    m_cells = m_picker.grid(m_firstWeekday);
    for (std::size_t i = 0; i < m_days.size(); ++i) {
        m_days[i]->setVisible(i < m_cells.size());
        if (i < m_cells.size()) {
            styleDay(m_days[i], m_cells[i]);
        }
    }
    refreshNavigation();
}

void DataCalendarView::refreshNavigation() {
    const QSignalBlocker monthBlocker(m_month);
    const QSignalBlocker yearBlocker(m_year);
    m_month->setCurrentIndex(static_cast<int>(m_picker.shownMonth()) - 1);
    m_year->clear();
    for (int year : m_picker.yearChoices()) {
        m_year->addItem(QString::number(year), year);
    }
    m_year->setCurrentIndex(m_year->findData(m_picker.shownYear()));
}

void DataCalendarView::styleDay(QToolButton* button, const CalendarCell& cell) const {
    QString text = QString::number(cell.dayOfMonth);
    if (cell.count > 0) {
        text += '\n' + QLocale().toString(static_cast<qlonglong>(cell.count));
    }
    button->setText(text);
    button->setToolTip(cell.count > 0
                           ? QLocale().toString(static_cast<qlonglong>(cell.count)) + tr(" Punkte")
                           : QString());
    QStringList style;
    if (cell.count > 0) {
        style += QStringLiteral("background-color: %1; color: white; border-radius: 6px")
                     .arg(markColor());
    }
    if (cell.selected) {
        style += QStringLiteral("border: 2px solid palette(highlight); border-radius: 6px");
    }
    if (!cell.inShownMonth) {
        style += QStringLiteral("color: gray");
    }
    button->setStyleSheet(QStringLiteral("QToolButton { %1 }").arg(style.join("; ")));
}

void DataCalendarView::hideEvent(QHideEvent* event) {
    if (!m_finished) {
        m_finished = true;
        m_picker.cancel();
    }
    QFrame::hideEvent(event);
}

} // namespace trackloom
