#include "app/places/place_day_list.h"

#include "app/places/place_explorer_model.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace trackloom {

PlaceDayList::PlaceDayList(QWidget* parent) : QWidget(parent) {
    m_title = new QLabel;
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_export = new QPushButton(tr("Tage exportieren …"));
    auto* top = new QHBoxLayout;
    top->addWidget(m_title, 1);
    top->addWidget(m_export);

    auto* note = new QLabel(tr("Zeiten zeigen den ersten und letzten Nachweis des Tages, keinen "
                               "lückenlosen Aufenthalt. Linien zwischen Punkten zählen nicht als "
                               "Ortsnachweis. Ein Klick öffnet den ganzen Tag."));
    note->setWordWrap(true);
    note->setForegroundRole(QPalette::PlaceholderText);

    m_empty = new QLabel;
    m_empty->setWordWrap(true);
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setMargin(12);
    m_list = new QListWidget;
    m_list->setObjectName(QStringLiteral("placeDays"));
    m_list->setAlternatingRowColors(true);
    m_list->setUniformItemSizes(true);
    m_pages = new QStackedWidget;
    m_pages->addWidget(m_empty);
    m_pages->addWidget(m_list);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 6);
    layout->addLayout(top);
    layout->addWidget(note);
    layout->addWidget(m_pages, 1);

    connect(m_list, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        const int row = m_list->row(item);
        if (m_model && row >= 0 && row < static_cast<int>(m_model->days().size())) {
            emit dayChosen(m_model->days()[row]);
        }
    });
    connect(m_export, &QPushButton::clicked, this, [this] {
        if (m_model) {
            m_model->exportDays();
        }
    });
    setModel(nullptr);
}

void PlaceDayList::setModel(PlaceExplorerModel* model) {
    if (m_model) {
        m_model->disconnect(this);
    }
    m_model = model;
    if (model) {
        connect(model, &PlaceExplorerModel::daysChanged, this, &PlaceDayList::showDays);
        connect(model, &PlaceExplorerModel::placeChanged, this, &PlaceDayList::showDays);
    }
    showDays();
}

void PlaceDayList::showDays() {
    m_list->clear();
    const auto* model = m_model.data();
    const std::size_t count = model ? model->days().size() : 0;
    m_title->setText(count > 0 ? QString::number(count) + (count == 1 ? tr(" Tag") : tr(" Tage"))
                               : tr("Tage"));
    m_export->setEnabled(count > 0);
    if (!model || !model->center()) {
        m_empty->setText(
            tr("Wähle einen Ort, um passende Tage in deinem geladenen Verlauf zu finden."));
        m_pages->setCurrentWidget(m_empty);
        return;
    }
    if (count == 0) {
        m_empty->setText(model->finding() || model->preparing()
                             ? tr("Tage werden gesucht …")
                             : tr("Keine gespeicherten Punkte in diesem Umkreis. Versuche einen "
                                  "größeren Radius oder den gesamten Verlauf."));
        m_pages->setCurrentWidget(m_empty);
        return;
    }
    const QString help = tr("Den vollständigen Tag mit seinen Strecken öffnen");
    for (const PlaceDay& day : model->days()) {
        auto* item =
            new QListWidgetItem(model->dayText(day) + QStringLiteral("   ") + model->evidence(day));
        item->setToolTip(help);
        m_list->addItem(item);
    }
    m_pages->setCurrentWidget(m_list);
}

} // namespace trackloom
