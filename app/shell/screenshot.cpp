#include "app/shell/screenshot.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QImage>
#include <QPixmap>
#include <QThread>
#include <QWidget>

namespace trackloom {

std::optional<QString> writeScreenshot(QWidget& window, QSize size, const QString& path,
                                       const std::function<bool()>& busy, int waitMilliseconds) {
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.resize(size);
    window.show();
    const QDeadlineTimer deadline(waitMilliseconds);
    do {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        if (busy && busy()) {
            QThread::msleep(20);
        }
    } while (busy && busy() && !deadline.hasExpired());
    QCoreApplication::processEvents();
    const QImage image = window.grab().toImage();
    if (image.isNull() || !image.save(path, "PNG")) {
        return QCoreApplication::translate("trackloom", "Das Bildschirmfoto konnte nicht "
                                                        "gespeichert werden: ") +
               path;
    }
    return std::nullopt;
}

} // namespace trackloom
