#pragma once

#include <QWidget>

namespace trackloom {

class TileSource;

/// What the window shows before any workspace is set up: what Trackloom does,
/// how files get in, and an overview map.
class WelcomeView : public QWidget {
    Q_OBJECT

  public:
    explicit WelcomeView(TileSource* tiles, QWidget* parent = nullptr);
};

} // namespace trackloom
