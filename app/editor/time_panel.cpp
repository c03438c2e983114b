#include "app/editor/time_panel.h"

#include "app/editor/editor_model.h"
#include "app/editor/editor_texts.h"
#include "app/editor/point_texts.h"
#include "app/shell/data_calendar_button.h"
#include "app/shell/data_calendar_view.h"
#include "app/shell/time_conversion.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>
#include <array>

namespace trackloom {
namespace {

QWidget* row(QWidget* field, QWidget* calendar) {
    auto* holder = new QWidget;
    auto* layout = new QHBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field, 1);
    layout->addWidget(calendar);
    return holder;
}

// Dates and times typed as a whole: a click selects the section under the
// cursor (digits typed into an unselected section would make the text invalid
// and be dropped), and separators follow the sections as they are typed.
class TypedDateTimeEdit : public QDateTimeEdit {
  public:
    using QDateTimeEdit::QDateTimeEdit;

  protected:
    // A full section moves on by itself; the separator typed after it must not
    // move on a second time, or "10.05.2025" would put "05" into the year.
    void keyPressEvent(QKeyEvent* event) override {
        const QString text = event->text();
        const bool separator = !text.isEmpty() && !text.front().isDigit() && text.front().isPrint();
        if (separator && m_movedOn) {
            m_movedOn = false;
            event->accept();
            return;
        }
        const int before = currentSectionIndex();
        QDateTimeEdit::keyPressEvent(event);
        m_movedOn = !separator && !text.isEmpty() && currentSectionIndex() != before;
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        QDateTimeEdit::mouseReleaseEvent(event);
        if (!lineEdit()->hasSelectedText()) {
            setSelectedSection(currentSection());
        }
    }

  private:
    bool m_movedOn = false;
};

void group(QRadioButton* a, QRadioButton* b) {
    auto* buttons = new QButtonGroup(a);
    buttons->addButton(a);
    buttons->addButton(b);
}

} // namespace

TimePanel::TimePanel(EditorModel& model, QWidget* parent)
    : QWidget(parent), m_model(model), m_shift(new QRadioButton(tr("Zeiten verschieben"))),
      m_generate(new QRadioButton(tr("Zeiten erzeugen"))),
      m_bySpeed(new QRadioButton(tr("Aus einer Geschwindigkeit"))),
      m_byEndpoints(new QRadioButton(tr("Aus Start und Ende"))),
      m_utc(new QCheckBox(tr("Zeiten in UTC statt in Ortszeit"))), m_startLabel(new QLabel),
      m_endLabel(new QLabel), m_start(dateTimeEdit()),
      m_startDay(new DataCalendarButton(model.timeFields().zone())), m_end(dateTimeEdit()),
      m_endDay(new DataCalendarButton(model.timeFields().zone())), m_speed(new QDoubleSpinBox),
      m_feedback(new QLabel), m_apply(new QPushButton(tr("Zeiten erzeugen"))) {
    group(m_shift, m_generate);
    group(m_bySpeed, m_byEndpoints);
    m_speed->setRange(0, 100000);
    m_speed->setDecimals(1);
    m_speed->setSuffix(tr(" km/h"));
    m_feedback->setWordWrap(true);
    m_apply->setToolTip(tr("Die Zeiten des Tracks nach diesen Angaben erzeugen; der Export "
                           "schreibt sie"));
    m_startDay->setTitle(tr("Den Tag des Starts im Kalender wählen"));
    m_endDay->setTitle(tr("Den Tag des Endes im Kalender wählen"));
    for (DataCalendarButton* day : {m_startDay, m_endDay}) {
        day->setIconOnly(true);
        day->setLegend(tr("Grün: Tage mit Punkten dieses Tracks"));
    }
    // In a narrow side panel the labels, which name the zone, go above their
    // fields instead of squeezing them.
    auto* form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->addRow(m_startLabel, row(m_start, m_startDay));
    m_endRow = row(m_end, m_endDay);
    form->addRow(m_endLabel, m_endRow);
    form->addRow(tr("Geschwindigkeit"), m_speed);

    // The two ways of generating belong to "Zeiten erzeugen": indented below it.
    auto* modes = new QVBoxLayout;
    modes->setContentsMargins(m_generate->style()->pixelMetric(QStyle::PM_IndicatorWidth) + 8, 0, 0,
                              0);
    modes->addWidget(m_bySpeed);
    modes->addWidget(m_byEndpoints);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_shift);
    layout->addWidget(m_generate);
    layout->addLayout(modes);
    layout->addLayout(form);
    layout->addWidget(m_utc);
    layout->addWidget(m_feedback);
    layout->addWidget(m_apply);
    layout->addStretch();

    connectEdits();
    connect(&model.timeFields(), &EditorTimeFields::changed, this, &TimePanel::refresh);
    connect(&model, &EditorModel::trackChanged, this, &TimePanel::refresh);
    refresh();
}

QDateTimeEdit* TimePanel::dateTimeEdit() {
    auto* edit = new TypedDateTimeEdit;
    edit->setDisplayFormat(tr("dd.MM.yyyy HH:mm:ss"));
    edit->setTimeSpec(Qt::UTC);
    return edit;
}

void TimePanel::connectEdits() {
    EditorTimeFields& fields = m_model.timeFields();
    connect(m_generate, &QRadioButton::toggled, &fields, &EditorTimeFields::setGenerate);
    connect(m_byEndpoints, &QRadioButton::toggled, &fields, [&fields](bool on) {
        fields.setGenerationMode(on ? GenerationMode::startAndEnd : GenerationMode::speed);
    });
    connect(m_utc, &QCheckBox::toggled, &fields, &EditorTimeFields::setUseUTC);
    connect(m_start, &QDateTimeEdit::dateTimeChanged, &fields, [&fields](const QDateTime& value) {
        if (const auto start = instantOfWallClock(value, fields.zone())) {
            fields.setNewStart(*start);
        }
    });
    connect(m_end, &QDateTimeEdit::dateTimeChanged, &fields, [&fields](const QDateTime& value) {
        if (const auto end = instantOfWallClock(value, fields.zone())) {
            fields.setNewEnd(*end);
        }
    });
    connect(m_speed, &QDoubleSpinBox::valueChanged, &fields, &EditorTimeFields::setSyntheticSpeed);
    connect(m_startDay, &DataCalendarButton::chosen, &fields,
            [&fields](Instant first, Instant) { fields.pickStartDay(first); });
    connect(m_endDay, &DataCalendarButton::chosen, &fields,
            [&fields](Instant first, Instant) { fields.pickEndDay(first); });
    connect(m_apply, &QPushButton::clicked, &m_model, &EditorModel::previewGenerated);
}

QString TimePanel::feedback() const {
    return m_feedback->text();
}

void TimePanel::refresh() {
    const EditorTimeFields& fields = m_model.timeFields();
    const bool generating = fields.generate();
    const bool byEndpoints = fields.generationMode() == GenerationMode::startAndEnd;
    const bool utc = fields.useUTC();
    {
        const std::array<QSignalBlocker, 8> blockers{
            QSignalBlocker(m_generate),    QSignalBlocker(m_shift), QSignalBlocker(m_bySpeed),
            QSignalBlocker(m_byEndpoints), QSignalBlocker(m_utc),   QSignalBlocker(m_start),
            QSignalBlocker(m_end),         QSignalBlocker(m_speed)};
        m_generate->setChecked(generating);
        m_shift->setChecked(!generating);
        m_byEndpoints->setChecked(byEndpoints);
        m_bySpeed->setChecked(!byEndpoints);
        m_utc->setChecked(utc);
        // Setting the same value again would reset the section being typed in.
        for (const auto& [edit, instant] :
             {std::pair{m_start, fields.newStart()}, std::pair{m_end, fields.newEnd()}}) {
            const QDateTime wanted = wallClockOf(instant, fields.zone());
            if (edit->dateTime() != wanted) {
                edit->setDateTime(wanted);
            }
        }
        m_speed->setValue(fields.syntheticSpeed());
    }
    // Counting a long track's days takes a moment; only another track or zone needs it.
    const bool recount = m_countedTrack != m_model.track() || m_countedZone != &fields.zone();
    const auto counts = recount ? fields.calendarCounts() : DayCounts();
    m_countedTrack = m_model.track();
    m_countedZone = &fields.zone();
    for (auto [day, instant] :
         {std::pair{m_startDay, fields.newStart()}, std::pair{m_endDay, fields.newEnd()}}) {
        if (recount) {
            day->setZone(fields.zone());
            day->setCounts(counts);
        }
        day->setDays(instant);
    }
    // Every time shown says in which zone it is.
    const QString zoneName = zoneText(fields.zone());
    m_startLabel->setText((generating ? tr("Start") : tr("Neuer Start")) + QStringLiteral(" (") +
                          zoneName + QStringLiteral(")"));
    m_endLabel->setText(tr("Ende") + QStringLiteral(" (") + zoneName + QStringLiteral(")"));
    for (QWidget* choice : {static_cast<QWidget*>(m_bySpeed), static_cast<QWidget*>(m_byEndpoints),
                            static_cast<QWidget*>(m_apply)}) {
        choice->setVisible(generating);
    }
    m_endRow->setEnabled(generating && byEndpoints);
    m_speed->setEnabled(generating && !byEndpoints);
    m_apply->setEnabled(m_model.track() != nullptr);

    QString text;
    if (!generating) {
        text = tr("Beim Export beginnt der Track zu diesem Zeitpunkt; alle Zeiten werden um "
                  "denselben Betrag verschoben.");
    } else if (const auto refusal = fields.generationError()) {
        text = *refusal;
    } else if (byEndpoints) {
        text = tr("Ø ") + decimalText(fields.impliedSpeed().value_or(0), 1) + tr(" km/h");
    }
    if (generating && m_model.track()) {
        text += (text.isEmpty() ? QString() : QStringLiteral(" · ")) +
                (fields.applied() ? tr("Übernommen.") : tr("Noch nicht übernommen."));
    }
    m_feedback->setText(text);
}

} // namespace trackloom
