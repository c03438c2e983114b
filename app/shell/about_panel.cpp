#include "app/shell/about_panel.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace trackloom {
namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("trackloom", text);
}

} // namespace

QString aboutText() {
    return QStringLiteral("<h3>Trackloom</h3><p>%1 %2</p><p>%3</p><p>%4<br>%5</p><p>%6 %7</p>")
        .arg(tr("Version"), QCoreApplication::applicationVersion(),
             tr("GPX-Tracks, Google-Zeitachsen und Orte – alles bleibt auf diesem Rechner."),
             tr("Kartenmaterial kommt von OpenStreetMap."),
             tr("© OpenStreetMap-Mitwirkende, Daten unter der Open Database License."),
             tr("Erstellt mit Qt"), QString::fromLatin1(qVersion()));
}

void showAboutPanel(QWidget* parent) {
    QMessageBox::about(parent, tr("Über Trackloom"), aboutText());
}

} // namespace trackloom
