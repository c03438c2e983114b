#pragma once

// Settings panel: where map tiles come from (an empty address works offline),
// their cache, and the interface language for the next start.

#include "app/shell/app_settings.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace trackloom {

class TileSource;

class SettingsDialog : public QDialog {
    Q_OBJECT

  public:
    SettingsDialog(AppSettings& settings, TileSource& tiles, QWidget* parent = nullptr);

    void accept() override;

  private:
    QString chosenTemplate() const;

    AppSettings& m_settings;
    TileSource& m_tiles;
    QLineEdit* m_template = nullptr;
    QCheckBox* m_offline = nullptr;
    QComboBox* m_language = nullptr;
    QLabel* m_error = nullptr;
};

} // namespace trackloom
