#pragma once

#include <QString>

class QWidget;

namespace trackloom {

/// The about panel's text: name, version, what stays local, map credits.
QString aboutText();

/// Shows the platform's about panel for Trackloom.
void showAboutPanel(QWidget* parent);

} // namespace trackloom
