#include "app/timeline/timeline_scope_bar.h"

#include "app/shell/data_calendar_button.h"
#include "app/shell/data_calendar_view.h"
#include "app/shell/time_conversion.h"
#include "app/timeline/timeline_model.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QDateTimeEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>
#include <array>

namespace trackloom {
namespace {

QStringList zoneNames() {
    QStringList names;
    for (const auto& zone : date::get_tzdb().zones) {
        names.push_back(QString::fromStdString(std::string(zone.name())));
    }
    return names;
}

QToolButton* stepButton(Qt::ArrowType arrow, const QString& text) {
    auto* button = new QToolButton;
    button->setArrowType(arrow);
    button->setToolTip(text);
    button->setAccessibleName(text);
    return button;
}

QDateTimeEdit* rangeField() {
    auto* field = new QDateTimeEdit;
    // The fields carry the wall clock of the model's zone in a UTC value.
    field->setTimeSpec(Qt::UTC);
    field->setCalendarPopup(true);
    return field;
}

} // namespace

TimelineScopeBar::TimelineScopeBar(TimelineModel& model, QWidget* parent)
    : QWidget(parent), m_model(model), m_calendar(new DataCalendarButton(model.zone())),
      m_back(stepButton(Qt::LeftArrow, tr("Einen Tag zurück"))),
      m_forward(stepButton(Qt::RightArrow, tr("Einen Tag vor"))), m_title(new QLabel),
      m_rangeMode(new QToolButton), m_activities(new QCheckBox(tr("Grobe Fahrt"))),
      m_visits(new QCheckBox(tr("Aufenthalte"))), m_zone(new QComboBox), m_rangeRow(new QWidget),
      m_from(rangeField()), m_to(rangeField()), m_wholeDays(new QCheckBox(tr("Ganze Tage"))),
      m_apply(new QPushButton(tr("Anzeigen"))) {
    m_calendar->setIconOnly(true);
    m_calendar->setTitle(tr("Tag im Kalender wählen"));
    m_calendar->setLegend(tr("Grün: Tage mit Daten"));
    m_calendar->setActionTitle(tr("Übernehmen"));
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_title->setMinimumWidth(80);
    m_title->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_rangeMode->setText(tr("Zeitraum"));
    m_rangeMode->setCheckable(true);
    m_activities->setToolTip(tr("Start- und Endpunkte grober Fahrten zeigen"));
    m_zone->setEditable(true);
    m_zone->setInsertPolicy(QComboBox::NoInsert);
    m_zone->addItems(zoneNames());
    m_zone->setMinimumContentsLength(14);
    m_zone->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_zone->setToolTip(tr("Zeitzone, in der die Tage gezählt werden"));
    auto* completer = new QCompleter(m_zone->model(), m_zone);
    completer->setFilterMode(Qt::MatchContains);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setCompletionMode(QCompleter::PopupCompletion);
    m_zone->setCompleter(completer);

    auto* scope = new QHBoxLayout;
    scope->setContentsMargins(0, 0, 0, 0);
    scope->addWidget(m_calendar);
    scope->addWidget(m_back);
    scope->addWidget(m_forward);
    scope->addWidget(m_title, 1);
    scope->addWidget(m_rangeMode);
    scope->addWidget(m_activities);
    scope->addWidget(m_visits);
    scope->addWidget(m_zone);

    auto* range = new QHBoxLayout(m_rangeRow);
    range->setContentsMargins(0, 0, 0, 0);
    range->addWidget(new QLabel(tr("Von")));
    range->addWidget(m_from);
    range->addWidget(new QLabel(tr("bis")));
    range->addWidget(m_to);
    range->addWidget(m_wholeDays);
    range->addWidget(m_apply);
    range->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 4);
    layout->addLayout(scope);
    layout->addWidget(m_rangeRow);

    connect(m_calendar, &DataCalendarButton::chosen, this, [this](Instant first, Instant last) {
        m_model.selectCalendarDays(first, last, m_model.rangeMode());
    });
    connect(m_back, &QToolButton::clicked, this, [this] { m_model.stepDay(-1); });
    connect(m_forward, &QToolButton::clicked, this, [this] { m_model.stepDay(1); });
    connect(m_rangeMode, &QToolButton::toggled, &model, &TimelineModel::setRangeMode);
    connect(m_activities, &QCheckBox::toggled, &model, &TimelineModel::setShowActivities);
    connect(m_visits, &QCheckBox::toggled, &model, &TimelineModel::setShowVisits);
    connect(m_wholeDays, &QCheckBox::toggled, &model, &TimelineModel::setWholeDays);
    connect(m_apply, &QPushButton::clicked, &model, &TimelineModel::applyRange);
    connect(m_from, &QDateTimeEdit::dateTimeChanged, this, [this](const QDateTime& value) {
        if (const auto from = instantOfWallClock(value, m_model.zone())) {
            m_model.setRangeFrom(*from);
        }
    });
    connect(m_to, &QDateTimeEdit::dateTimeChanged, this, [this](const QDateTime& value) {
        if (const auto to = instantOfWallClock(value, m_model.zone())) {
            m_model.setRangeTo(*to);
        }
    });
    connect(m_zone, &QComboBox::textActivated, this, &TimelineScopeBar::chooseZone);
    connect(completer, qOverload<const QString&>(&QCompleter::activated), this,
            &TimelineScopeBar::chooseZone);

    for (auto signal :
         {&TimelineModel::rangeChanged, &TimelineModel::filterChanged, &TimelineModel::zoneChanged,
          &TimelineModel::daysChanged, &TimelineModel::pointsChanged}) {
        connect(&model, signal, this, &TimelineScopeBar::refresh);
    }
    connect(&model, &TimelineModel::busyChanged, this, &TimelineScopeBar::refresh);
    refresh();
}

QString TimelineScopeBar::titleText() const {
    return m_title->text();
}

void TimelineScopeBar::chooseZone(const QString& identifier) {
    if (m_zone->findText(identifier, Qt::MatchExactly) >= 0) {
        m_model.changeZone(identifier);
    } else {
        // A half-typed name is no zone; show the one in use again.
        m_zone->setEditText(m_model.zoneIdentifier());
    }
}

void TimelineScopeBar::refresh() {
    const bool open = m_model.session() != nullptr;
    const bool idle = !m_model.busy();
    const bool range = m_model.rangeMode();
    const bool whole = m_model.wholeDays();
    {
        const std::array<QSignalBlocker, 7> blockers{
            QSignalBlocker(m_rangeMode), QSignalBlocker(m_activities), QSignalBlocker(m_visits),
            QSignalBlocker(m_wholeDays), QSignalBlocker(m_from),       QSignalBlocker(m_to),
            QSignalBlocker(m_zone)};
        m_rangeMode->setChecked(range);
        m_activities->setChecked(m_model.showActivities());
        m_visits->setChecked(m_model.showVisits());
        m_wholeDays->setChecked(whole);
        // Whole days need no clock; the fields then show dates only.
        const QString format = whole ? tr("dd.MM.yyyy") : tr("dd.MM.yyyy HH:mm");
        for (QDateTimeEdit* field : {m_from, m_to}) {
            field->setDisplayFormat(format);
        }
        m_from->setDateTime(wallClockOf(m_model.rangeFrom(), m_model.zone()));
        m_to->setDateTime(wallClockOf(m_model.rangeTo(), m_model.zone()));
        if (!m_zone->lineEdit()->hasFocus()) {
            m_zone->setCurrentText(m_model.zoneIdentifier());
        }
    }
    m_title->setText(m_model.scopeTitle());
    m_title->setToolTip(m_model.scopeTitle());
    m_rangeRow->setVisible(range);

    m_calendar->setZone(m_model.zone());
    m_calendar->setCounts(m_model.calendarCounts());
    m_calendar->setRange(range);
    if (range) {
        m_calendar->setDays(m_model.rangeFrom(), m_model.rangeTo());
    } else if (const auto day = m_model.selectedDay()) {
        m_calendar->setDays(*day);
    }
    for (QWidget* control : std::initializer_list<QWidget*>{
             m_calendar, m_back, m_forward, m_rangeMode, m_activities, m_visits, m_apply}) {
        control->setEnabled(open && idle);
    }
    m_back->setEnabled(open && idle && !range);
    m_forward->setEnabled(open && idle && !range);
    m_zone->setEnabled(idle);
}

} // namespace trackloom
