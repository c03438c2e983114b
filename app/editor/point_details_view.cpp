#include "app/editor/point_details_view.h"

#include "app/editor/editor_model.h"
#include "app/editor/point_details.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace trackloom {

PointDetailsView::PointDetailsView(EditorModel& model, QWidget* parent)
    : QWidget(parent), m_model(model),
      m_hint(new QLabel(tr("Wähle einen Punkt auf der Karte, in den Intervallen oder in einem "
                           "Profil, um ihn hier zu sehen."))),
      m_rows(new QFormLayout) {
    m_hint->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_hint);
    layout->addLayout(m_rows);
    layout->addStretch();
    for (auto signal : {&EditorModel::trackChanged, &EditorModel::selectionChanged}) {
        connect(&model, signal, this, &PointDetailsView::refresh);
    }
    connect(&model.timeFields(), &EditorTimeFields::changed, this, &PointDetailsView::refresh);
    refresh();
}

void PointDetailsView::refresh() {
    while (m_rows->rowCount() > 0) {
        m_rows->removeRow(0);
    }
    const auto& track = m_model.track();
    const auto selected = m_model.selectedPointID();
    const auto details = track && selected
                             ? pointDetails(*track, *selected, m_model.timeFields().zone())
                             : std::vector<PointDetail>{};
    m_hint->setVisible(details.empty());
    for (const auto& detail : details) {
        auto* value = new QLabel(detail.value);
        value->setObjectName(detail.label);
        value->setWordWrap(true);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        m_rows->addRow(detail.label + ':', value);
    }
}

QString PointDetailsView::value(const QString& label) const {
    const auto* shown = findChild<QLabel*>(label);
    return shown ? shown->text() : QString();
}

} // namespace trackloom
