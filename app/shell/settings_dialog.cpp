#include "app/shell/settings_dialog.h"

#include "app/map/tile_source.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace trackloom {

SettingsDialog::SettingsDialog(AppSettings& settings, TileSource& tiles, QWidget* parent)
    : QDialog(parent), m_settings(settings), m_tiles(tiles) {
    setWindowTitle(tr("Einstellungen"));
    const QString current = m_settings.tileURLTemplate();
    m_template = new QLineEdit(current.isEmpty() ? AppSettings::defaultTileURLTemplate() : current);
    m_template->setMinimumWidth(420);
    m_offline = new QCheckBox(tr("Ohne Kartenmaterial arbeiten (keine Verbindung ins Netz)"));
    m_offline->setChecked(current.isEmpty());
    connect(m_offline, &QCheckBox::toggled, m_template, &QWidget::setDisabled);
    m_template->setDisabled(current.isEmpty());
    auto* reset = new QPushButton(tr("Standard"));
    connect(reset, &QPushButton::clicked, this,
            [this] { m_template->setText(AppSettings::defaultTileURLTemplate()); });
    auto* clearCache = new QPushButton(tr("Zwischenspeicher leeren"));
    connect(clearCache, &QPushButton::clicked, this, [this] { m_tiles.clearDiskCache(); });
    m_language = new QComboBox;
    // Language names stay in their own language, so that anyone finds theirs.
    m_language->addItem(tr("Automatisch (Systemsprache)"),
                        static_cast<int>(AppSettings::Language::automatic));
    m_language->addItem(QStringLiteral("Deutsch"), static_cast<int>(AppSettings::Language::german));
    m_language->addItem(QStringLiteral("English"),
                        static_cast<int>(AppSettings::Language::english));
    m_language->setCurrentIndex(m_language->findData(static_cast<int>(m_settings.language())));
    auto* languageNote = new QLabel(tr("Die Sprache wird beim nächsten Start übernommen."));
    languageNote->setWordWrap(true);
    m_error = new QLabel;
    m_error->setStyleSheet(QStringLiteral("color: #b00020"));
    m_error->setWordWrap(true);

    auto* form = new QFormLayout;
    form->addRow(tr("Kachel-Adresse"), m_template);
    form->addRow(QString(), reset);
    form->addRow(QString(), m_offline);
    form->addRow(tr("Kartenkacheln"), clearCache);
    form->addRow(tr("Sprache"), m_language);
    form->addRow(QString(), languageNote);
    auto* note = new QLabel(tr("Kartenmaterial kommt von OpenStreetMap. Verläufe und Tracks "
                               "bleiben auf diesem Rechner."));
    note->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(note);
    layout->addWidget(m_error);
    layout->addWidget(buttons);
}

QString SettingsDialog::chosenTemplate() const {
    return m_offline->isChecked() ? QString() : m_template->text().trimmed();
}

void SettingsDialog::accept() {
    const QString chosen = chosenTemplate();
    if (const auto error = AppSettings::tileURLTemplateError(chosen)) {
        m_error->setText(*error);
        return;
    }
    m_settings.setTileURLTemplate(chosen);
    m_settings.setLanguage(static_cast<AppSettings::Language>(m_language->currentData().toInt()));
    m_tiles.setUrlTemplate(chosen);
    QDialog::accept();
}

} // namespace trackloom
