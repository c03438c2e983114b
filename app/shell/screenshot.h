#pragma once

#include <QSize>
#include <QString>
#include <functional>
#include <optional>

class QWidget;

namespace trackloom {

/// Lays `window` out at `size` without putting it on a screen, waits up to
/// `waitMilliseconds` while `busy` says work is still loading, and writes it as a
/// PNG to `path`. Returns an error text, or nothing on success.
std::optional<QString> writeScreenshot(QWidget& window, QSize size, const QString& path,
                                       const std::function<bool()>& busy,
                                       int waitMilliseconds = 30000);

} // namespace trackloom
