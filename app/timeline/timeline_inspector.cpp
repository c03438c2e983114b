#include "app/timeline/timeline_inspector.h"

#include "app/shell/time_conversion.h"
#include "app/timeline/timeline_model.h"

#include <QDateTimeEdit>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <cmath>

namespace trackloom {
namespace {

QDateTimeEdit* timeField() {
    auto* field = new QDateTimeEdit;
    field->setDisplayFormat(QStringLiteral("dd.MM.yyyy HH:mm:ss"));
    // The wall clock of the model's zone, carried in a UTC value.
    field->setTimeSpec(Qt::UTC);
    // Without a point the field shows a dash, not the current time.
    field->setSpecialValueText(QStringLiteral("–"));
    return field;
}

void setText(QLineEdit* field, const QString& text) {
    // Rewriting an unchanged field would move the cursor while the user types.
    if (field->text() != text) {
        field->setText(text);
    }
}

QLabel* wrapping(QLabel* label) {
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

TimelineInspector::TimelineInspector(TimelineModel& model, QWidget* parent)
    : QWidget(parent), m_model(model), m_heading(new QLabel), m_latitude(new QLineEdit),
      m_longitude(new QLineEdit), m_time(timeField()), m_endLabel(new QLabel(tr("Ende"))),
      m_end(timeField()), m_label(new QLineEdit),
      m_apply(new QPushButton(tr("Änderung übernehmen"))),
      m_pick(new QPushButton(tr("Position auf der Karte wählen"))), m_firstPart(new QLineEdit),
      m_secondPart(new QLineEdit), m_split(new QPushButton(tr("Abschnitt teilen"))),
      m_delete(new QPushButton(tr("Löschen"))), m_status(wrapping(new QLabel)),
      m_error(wrapping(new QLabel)), m_progress(new QProgressBar),
      m_cancel(new QPushButton(tr("Abbrechen"))), m_summary(wrapping(new QLabel)) {
    QFont bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    m_pick->setCheckable(true);
    m_error->setStyleSheet(QStringLiteral("color: #b00020;"));
    m_progress->setRange(0, 100);
    m_split->setToolTip(tr("Teilt den Abschnitt am gewählten Streckenpunkt; er gehört dann zu "
                           "beiden Teilen."));

    auto* point = new QGroupBox(tr("Punkt"));
    auto* form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->addRow(tr("Breite"), m_latitude);
    form->addRow(tr("Länge"), m_longitude);
    form->addRow(tr("Zeit"), m_time);
    form->addRow(m_endLabel, m_end);
    form->addRow(tr("Bezeichnung"), m_label);
    auto* pointLayout = new QVBoxLayout(point);
    pointLayout->addWidget(m_heading);
    pointLayout->addLayout(form);
    pointLayout->addWidget(m_apply);
    pointLayout->addWidget(m_pick);
    pointLayout->addWidget(m_delete);

    auto* split = new QGroupBox(tr("Abschnitt teilen"));
    auto* names = new QFormLayout(split);
    names->addRow(tr("Erster Teil"), m_firstPart);
    names->addRow(tr("Zweiter Teil"), m_secondPart);
    names->addRow(m_split);

    auto* progress = new QHBoxLayout;
    progress->addWidget(m_progress, 1);
    progress->addWidget(m_cancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(point);
    layout->addWidget(split);
    layout->addLayout(progress);
    layout->addWidget(m_status);
    layout->addWidget(m_error);
    layout->addWidget(m_summary);
    layout->addStretch();

    connectFields();
    for (auto signal : {&TimelineModel::inspectorChanged, &TimelineModel::selectionChanged,
                        &TimelineModel::pointsChanged, &TimelineModel::zoneChanged}) {
        connect(&model, signal, this, &TimelineInspector::refresh);
    }
    for (auto signal : {&TimelineModel::statusChanged, &TimelineModel::errorChanged,
                        &TimelineModel::sourceChanged}) {
        connect(&model, signal, this, &TimelineInspector::refreshWork);
    }
    connect(&model, &TimelineModel::busyChanged, this, [this] {
        refresh();
        refreshWork();
    });
    connect(&model, &TimelineModel::progressChanged, this, [this](double share) {
        m_progress->setValue(static_cast<int>(std::lround(share * 100)));
    });
    refresh();
    refreshWork();
}

void TimelineInspector::connectFields() {
    connect(m_latitude, &QLineEdit::textEdited, &m_model, &TimelineModel::setLatitude);
    connect(m_longitude, &QLineEdit::textEdited, &m_model, &TimelineModel::setLongitude);
    connect(m_label, &QLineEdit::textEdited, &m_model, &TimelineModel::setLabel);
    connect(m_firstPart, &QLineEdit::textEdited, &m_model, &TimelineModel::setFirstPartName);
    connect(m_secondPart, &QLineEdit::textEdited, &m_model, &TimelineModel::setSecondPartName);
    connect(m_time, &QDateTimeEdit::dateTimeChanged, this, [this](const QDateTime& value) {
        if (const auto time = instantOfWallClock(value, m_model.zone())) {
            m_model.setPointTime(*time);
        }
    });
    connect(m_end, &QDateTimeEdit::dateTimeChanged, this, [this](const QDateTime& value) {
        if (const auto end = instantOfWallClock(value, m_model.zone())) {
            m_model.setVisitEnd(*end);
        }
    });
    connect(m_apply, &QPushButton::clicked, &m_model, &TimelineModel::applyEdit);
    connect(m_pick, &QPushButton::clicked, &m_model, &TimelineModel::setMoveOnMap);
    connect(m_split, &QPushButton::clicked, &m_model, &TimelineModel::splitSelection);
    connect(m_delete, &QPushButton::clicked, &m_model, &TimelineModel::deleteSelection);
    connect(m_cancel, &QPushButton::clicked, &m_model, &TimelineModel::cancelBackgroundWork);
}

void TimelineInspector::refresh() {
    const auto& selection = m_model.selection();
    const TimelinePoint* selected = nullptr;
    if (selection.size() == 1) {
        for (const auto& point : m_model.points()) {
            if (point.id == *selection.begin()) {
                selected = &point;
                break;
            }
        }
    }
    if (selection.empty()) {
        m_heading->setText(tr("Kein Punkt gewählt"));
    } else if (selected) {
        m_heading->setText(QString::fromStdString(title(selected->kind)));
    } else {
        m_heading->setText(QString::number(selection.size()) + tr(" Punkte gewählt"));
    }
    const bool visit = selected && selected->kind == TimelinePointKind::visit;
    m_endLabel->setVisible(visit);
    m_end->setVisible(visit);
    {
        const QSignalBlocker timing(m_time);
        const QSignalBlocker ending(m_end);
        m_time->setDateTime(selected ? wallClockOf(m_model.pointTime(), m_model.zone())
                                     : m_time->minimumDateTime());
        m_end->setDateTime(visit ? wallClockOf(m_model.visitEnd(), m_model.zone())
                                 : m_end->minimumDateTime());
        m_pick->setChecked(m_model.moveOnMap());
    }
    setText(m_latitude, m_model.latitude());
    setText(m_longitude, m_model.longitude());
    setText(m_label, m_model.label());
    setText(m_firstPart, m_model.firstPartName());
    setText(m_secondPart, m_model.secondPartName());

    const bool editable = m_model.canApplyEdit();
    for (QWidget* field : std::initializer_list<QWidget*>{m_latitude, m_longitude, m_time, m_end,
                                                          m_label, m_apply, m_pick}) {
        field->setEnabled(editable);
    }
    m_split->setEnabled(m_model.canSplit());
    m_delete->setEnabled(m_model.canEdit() && !selection.empty());
}

void TimelineInspector::refreshWork() {
    const bool busy = m_model.busy();
    m_progress->setVisible(busy);
    m_cancel->setVisible(busy);
    m_status->setText(m_model.status());
    m_error->setText(m_model.error().value_or(QString()));
    m_error->setVisible(m_model.error().has_value());
    m_summary->setText(m_model.importSummary());
    m_summary->setVisible(!m_model.importSummary().isEmpty() &&
                          m_model.importSummary() != m_model.status());
}

QString TimelineInspector::statusText() const {
    return m_status->text();
}

QString TimelineInspector::errorText() const {
    return m_error->text();
}

bool TimelineInspector::progressShown() const {
    return !m_progress->isHidden();
}

} // namespace trackloom
