#include "app/places/place_search_panel.h"

#include "app/places/place_explorer_model.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <cstdio>

namespace trackloom {

namespace {

QLabel* note(const QString& text) {
    auto* label = new QLabel(text);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::PlaceholderText);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 0.9);
    label->setFont(font);
    return label;
}

} // namespace

const std::vector<std::pair<QString, double>>& PlaceSearchPanel::radiusChoices() {
    static const std::vector<std::pair<QString, double>> choices = {
        {tr("50 m"), 50},   {tr("100 m"), 100}, {tr("250 m"), 250},  {tr("500 m"), 500},
        {tr("1 km"), 1000}, {tr("5 km"), 5000}, {tr("10 km"), 10000}};
    return choices;
}

PlaceSearchPanel::PlaceSearchPanel(QWidget* parent) : QWidget(parent) {
    auto* heading = new QLabel(tr("WANN WAR ICH HIER?"));
    QFont headingFont = heading->font();
    headingFont.setBold(true);
    headingFont.setLetterSpacing(QFont::PercentageSpacing, 105);
    heading->setFont(headingFont);
    m_scope = note({});

    m_query = new QLineEdit;
    m_query->setObjectName(QStringLiteral("placeQuery"));
    m_query->setPlaceholderText(tr("Ort, Adresse oder 50.7, 7.1"));
    m_query->setClearButtonEnabled(true);
    m_searchSaved = new QPushButton(tr("Ort oder Koordinaten suchen"));
    m_searchSaved->setDefault(true);
    m_searchOnline = new QPushButton(tr("Bei OpenStreetMap suchen"));
    m_queryMessage = new QLabel;
    m_queryMessage->setWordWrap(true);
    m_candidates = new QListWidget;
    m_candidates->setObjectName(QStringLiteral("placeCandidates"));
    m_candidates->setMinimumHeight(120);
    m_credit = note(tr("Suchergebnisse: © OpenStreetMap-Mitwirkende (ODbL)"));

    m_place = new QLabel;
    m_place->setWordWrap(true);
    m_place->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_pick = new QPushButton(tr("Ort auf Karte wählen"));
    m_pickHint = new QLabel(tr("Den gewünschten Ort auf der Karte anklicken."));
    m_pickHint->setWordWrap(true);

    m_radius = new QComboBox;
    m_radius->setObjectName(QStringLiteral("placeRadius"));
    for (const auto& [label, metres] : radiusChoices()) {
        m_radius->addItem(label, metres);
    }
    auto* radiusRow = new QHBoxLayout;
    radiusRow->addWidget(new QLabel(tr("Umkreis")));
    radiusRow->addWidget(m_radius, 1);

    m_entireHistory = new QCheckBox(tr("Gesamten Verlauf durchsuchen"));
    m_visits = new QCheckBox(tr("Aufenthalte einbeziehen"));
    m_activities = new QCheckBox(tr("Grobe Fahrten einbeziehen"));
    m_heat = new QCheckBox(tr("Heatmap anzeigen"));
    m_status = note({});

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(m_scope);
    layout->addWidget(m_query);
    layout->addWidget(m_searchSaved);
    layout->addWidget(m_searchOnline);
    layout->addWidget(note(tr("Nur „Bei OpenStreetMap suchen“ sendet deinen Suchtext an "
                              "OpenStreetMap. Koordinaten: Breite, Länge mit Dezimalpunkt.")));
    layout->addWidget(m_queryMessage);
    layout->addWidget(m_candidates);
    layout->addWidget(m_credit);
    layout->addWidget(m_place);
    layout->addWidget(m_pick);
    layout->addWidget(m_pickHint);
    layout->addLayout(radiusRow);
    layout->addWidget(m_entireHistory);
    layout->addWidget(m_visits);
    layout->addWidget(m_activities);
    layout->addWidget(m_heat);
    layout->addWidget(note(tr("Punktdichte im sichtbaren Kartenausschnitt, keine "
                              "Aufenthaltsdauer. Häufigere Aufzeichnung erzeugt stärkere Farben. "
                              "Die Farben passen sich beim Zoomen an.")));
    layout->addWidget(m_status);
    layout->addWidget(note(tr("Verlauf und Umkreissuche bleiben lokal. Kartenmaterial kommt von "
                              "OpenStreetMap. Originaldateien bleiben unverändert.")));
    layout->addStretch(1);

    connect(m_query, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (m_model) {
            m_model->setQuery(text);
        }
    });
    connect(m_query, &QLineEdit::returnPressed, this, [this] {
        if (m_model) {
            m_model->searchSavedPlaces();
        }
    });
    connect(m_searchSaved, &QPushButton::clicked, this, [this] {
        if (m_model) {
            m_model->searchSavedPlaces();
        }
    });
    connect(m_searchOnline, &QPushButton::clicked, this, [this] {
        if (m_model) {
            m_model->searchOnline();
        }
    });
    connect(m_candidates, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
        const int row = m_candidates->row(item);
        if (m_model && row >= 0 && row < static_cast<int>(m_model->candidates().size())) {
            const PlaceCandidate candidate = m_model->candidates()[row];
            m_model->choose(candidate.name, candidate.coordinate, true);
        }
    });
    connect(m_candidates, &QListWidget::itemClicked, m_candidates, &QListWidget::itemActivated);
    connect(m_pick, &QPushButton::clicked, this, [this] {
        if (m_model) {
            m_model->setChoosingLocation(!m_model->choosingLocation());
        }
    });
    connect(m_radius, &QComboBox::activated, this, [this](int index) {
        if (m_model) {
            m_model->setRadius(m_radius->itemData(index).toDouble());
        }
    });
    const auto bindSwitch = [this](QCheckBox* box, void (PlaceExplorerModel::*set)(bool)) {
        connect(box, &QCheckBox::toggled, this, [this, set](bool on) {
            if (m_model) {
                (m_model->*set)(on);
            }
        });
    };
    bindSwitch(m_entireHistory, &PlaceExplorerModel::setEntireHistory);
    bindSwitch(m_visits, &PlaceExplorerModel::setIncludeVisits);
    bindSwitch(m_activities, &PlaceExplorerModel::setIncludeActivities);
    bindSwitch(m_heat, &PlaceExplorerModel::setHeatEnabled);
    setModel(nullptr);
}

void PlaceSearchPanel::setModel(PlaceExplorerModel* model) {
    if (m_model) {
        m_model->disconnect(this);
    }
    m_model = model;
    setEnabled(model != nullptr);
    if (model) {
        connect(model, &PlaceExplorerModel::optionsChanged, this, &PlaceSearchPanel::showOptions);
        connect(model, &PlaceExplorerModel::queryChanged, this, &PlaceSearchPanel::showQuery);
        connect(model, &PlaceExplorerModel::candidatesChanged, this,
                &PlaceSearchPanel::showCandidates);
        connect(model, &PlaceExplorerModel::placeChanged, this, &PlaceSearchPanel::showPlace);
        for (auto signal : {&PlaceExplorerModel::pointsChanged, &PlaceExplorerModel::daysChanged}) {
            connect(model, signal, this, &PlaceSearchPanel::showOptions);
        }
    }
    showOptions();
    showQuery();
    showCandidates();
    showPlace();
}

void PlaceSearchPanel::showOptions() {
    const QSignalBlocker blockers[] = {QSignalBlocker(m_entireHistory), QSignalBlocker(m_visits),
                                       QSignalBlocker(m_activities), QSignalBlocker(m_heat)};
    const bool hasModel = m_model != nullptr;
    m_entireHistory->setChecked(!hasModel || m_model->entireHistory());
    m_visits->setChecked(!hasModel || m_model->includeVisits());
    m_activities->setChecked(hasModel && m_model->includeActivities());
    m_heat->setChecked(!hasModel || m_model->heatEnabled());
    // Without a shown day or range there is nothing narrower to search.
    m_entireHistory->setEnabled(hasModel && m_model->interval().has_value());
    m_scope->setText(hasModel ? tr("Bereich: ") + m_model->scopeTitle() : QString());
    const double radius = hasModel ? m_model->radius() : 250;
    const int index = m_radius->findData(radius);
    m_radius->setCurrentIndex(index >= 0 ? index : 2);
    QString status;
    if (hasModel && m_model->preparing()) {
        status = tr("Punkte werden vorbereitet …");
    } else if (hasModel && m_model->finding()) {
        status = tr("Tage werden gesucht …");
    } else if (hasModel) {
        status = QString::number(m_model->filtered().size()) + tr(" Punkte ausgewählt");
    }
    m_status->setText(status);
}

void PlaceSearchPanel::showQuery() {
    const QString query = m_model ? m_model->query() : QString();
    if (m_query->text() != query) {
        m_query->setText(query);
    }
}

void PlaceSearchPanel::showCandidates() {
    m_candidates->clear();
    const bool busy = m_model && m_model->searchBusy();
    m_searchOnline->setText(busy ? tr("Suche läuft …") : tr("Bei OpenStreetMap suchen"));
    m_queryMessage->setText(m_model ? m_model->queryMessage() : QString());
    m_queryMessage->setVisible(!m_queryMessage->text().isEmpty());
    bool online = false;
    if (m_model) {
        for (const PlaceCandidate& candidate : m_model->candidates()) {
            auto* item = new QListWidgetItem(candidate.name + '\n' + candidate.detail);
            item->setToolTip(candidate.detail);
            m_candidates->addItem(item);
            online = online || candidate.detail != tr("Gespeicherter Aufenthalt");
        }
    }
    m_candidates->setVisible(m_candidates->count() > 0);
    // Results from OpenStreetMap carry their licence wherever they are shown.
    m_credit->setVisible(online);
}

void PlaceSearchPanel::showPlace() {
    const bool picking = m_model && m_model->choosingLocation();
    m_pick->setText(picking ? tr("Kartenauswahl abbrechen") : tr("Ort auf Karte wählen"));
    m_pickHint->setVisible(picking);
    if (m_model && m_model->center()) {
        char coordinate[64];
        std::snprintf(coordinate, sizeof coordinate, "%.5f, %.5f", m_model->center()->latitude,
                      m_model->center()->longitude);
        m_place->setText(
            QStringLiteral("<b>%1</b><br>%2")
                .arg(m_model->placeName().toHtmlEscaped(), QString::fromLatin1(coordinate)));
        m_place->show();
    } else {
        m_place->hide();
    }
}

} // namespace trackloom
