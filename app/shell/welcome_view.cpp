#include "app/shell/welcome_view.h"

#include "app/map/map_widget.h"

#include <QLabel>
#include <QVBoxLayout>

namespace trackloom {

WelcomeView::WelcomeView(TileSource* tiles, QWidget* parent) : QWidget(parent) {
    auto* heading = new QLabel(QStringLiteral("<h2>Trackloom</h2>"));
    auto* text = new QLabel(
        tr("GPX-Tracks bearbeiten, die Google-Zeitachse durchsehen und Orte wiederfinden – "
           "alles bleibt auf diesem Rechner. Dateien zum Öffnen hierher ziehen oder mit "
           "„Datei → Öffnen …“ wählen."));
    text->setWordWrap(true);
    auto* map = new MapWidget(tiles);
    map->setObjectName(QStringLiteral("overviewMap"));
    map->fitCoordinates({{55, -12}, {35, 30}});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(text);
    layout->addWidget(map, 1);
}

} // namespace trackloom
