<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>EditorModel</name>
    <message>
        <source>GPX-Dateien (*.gpx)</source>
        <translation>GPX files (*.gpx)</translation>
    </message>
</context>
<context>
    <name>trackloom</name>
    <message>
        <source> Am Übergang fehlen Zeitangaben.</source>
        <translation> Times are missing at the transition.</translation>
    </message>
    <message>
        <source> Zeit zwischen den Tracks: </source>
        <translation> Time between the tracks: </translation>
    </message>
    <message>
        <source> Achtung: Der neue Track beginnt </source>
        <translation> Caution: the new track starts </translation>
    </message>
    <message>
        <source> vor dem Ende des bisherigen Tracks.</source>
        <translation> before the end of the previous track.</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Track</translation>
    </message>
    <message>
        <source>Track angehängt · </source>
        <translation>Track appended · </translation>
    </message>
    <message>
        <source> Punkte · Rückgängig ist möglich.</source>
        <translation> points · Undo is possible.</translation>
    </message>
    <message>
        <source> Abstand am Übergang: </source>
        <translation> Gap at the transition: </translation>
    </message>
    <message>
        <source> m.</source>
        <translation> m.</translation>
    </message>
    <message>
        <source> (bearbeitet)</source>
        <translation> (edited)</translation>
    </message>
    <message>
        <source> (ein Track)</source>
        <translation> (one track)</translation>
    </message>
    <message>
        <source>Abschnitt</source>
        <translation>Section</translation>
    </message>
    <message>
        <source>O</source>
        <translation>E</translation>
    </message>
    <message>
        <source>W</source>
        <translation>W</translation>
    </message>
    <message>
        <source>N</source>
        <translation>N</translation>
    </message>
    <message>
        <source>S</source>
        <translation>S</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>GPX-Tracks, Google-Zeitachsen und Orte – alles bleibt auf diesem Rechner.</source>
        <translation>GPX tracks, Google timelines and places – everything stays on this computer.</translation>
    </message>
    <message>
        <source>Kartenmaterial kommt von OpenStreetMap.</source>
        <translation>Map data comes from OpenStreetMap.</translation>
    </message>
    <message>
        <source>© OpenStreetMap-Mitwirkende, Daten unter der Open Database License.</source>
        <translation>© OpenStreetMap contributors, data under the Open Database License.</translation>
    </message>
    <message>
        <source>Erstellt mit Qt</source>
        <translation>Made with Qt</translation>
    </message>
    <message>
        <source>Über Trackloom</source>
        <translation>About Trackloom</translation>
    </message>
    <message>
        <source>Die Kachel-Adresse muss mit http:// oder https:// beginnen und {z}, {x} und {y} enthalten.</source>
        <translation>The tile address must start with http:// or https:// and contain {z}, {x} and {y}.</translation>
    </message>
    <message>
        <source>Trackloom – GPX-Tracks, Google-Zeitachsen und Orte, alles auf diesem Rechner.</source>
        <translation>Trackloom – GPX tracks, Google timelines and places, all on this computer.</translation>
    </message>
    <message>
        <source>Diese Hilfe anzeigen.</source>
        <translation>Show this help.</translation>
    </message>
    <message>
        <source>Die Version anzeigen.</source>
        <translation>Show the version.</translation>
    </message>
    <message>
        <source>Das Fenster ohne Bildschirm zeichnen, als PNG schreiben und beenden.</source>
        <translation>Draw the window without a screen, write it as PNG and quit.</translation>
    </message>
    <message>
        <source>DATEI.png</source>
        <translation>FILE.png</translation>
    </message>
    <message>
        <source>Fenstergröße für --screenshot, etwa 1280x800.</source>
        <translation>Window size for --screenshot, such as 1280x800.</translation>
    </message>
    <message>
        <source>BxH</source>
        <translation>WxH</translation>
    </message>
    <message>
        <source>DATEI</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>Zu öffnende Dateien.</source>
        <translation>Files to open.</translation>
    </message>
    <message>
        <source>[DATEI …]</source>
        <translation>[FILE …]</translation>
    </message>
    <message>
        <source>--size braucht --screenshot und eine Größe wie 1280x800 (mindestens 320x240).</source>
        <translation>--size needs --screenshot and a size such as 1280x800 (at least 320x240).</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation>%1 min %2 s</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>%1 km</source>
        <translation>%1 km</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Änderungen verwerfen</source>
        <translation>Discard changes</translation>
    </message>
    <message>
        <source>Das Bildschirmfoto konnte nicht gespeichert werden: </source>
        <translation>The screenshot could not be saved: </translation>
    </message>
    <message>
        <source>Der Dienst hat die Anfrage abgelehnt.</source>
        <translation>The service refused the request.</translation>
    </message>
    <message>
        <source>Zu viele Anfragen. Bitte etwas später erneut suchen.</source>
        <translation>Too many requests. Please search again a little later.</translation>
    </message>
    <message>
        <source>Der Dienst ist gerade gestört.</source>
        <translation>The service is currently disrupted.</translation>
    </message>
    <message>
        <source>Keine Internetverbindung.</source>
        <translation>No internet connection.</translation>
    </message>
    <message>
        <source>Zeitüberschreitung.</source>
        <translation>Timed out.</translation>
    </message>
    <message>
        <source>Antwort mit Status </source>
        <translation>Response with status </translation>
    </message>
    <message>
        <source>Die Verbindung ist fehlgeschlagen.</source>
        <translation>The connection failed.</translation>
    </message>
    <message>
        <source>Mit --screenshot einer Datei: den Ort im Ort-Explorer zeigen, etwa &quot;50.7, 7.1&quot;.</source>
        <translation>With --screenshot of a file: show the place in the place explorer, such as &quot;50.7, 7.1&quot;.</translation>
    </message>
    <message>
        <source>BREITE, LÄNGE</source>
        <translation>LAT, LON</translation>
    </message>
    <message>
        <source>--explore braucht --screenshot und eine Datei.</source>
        <translation>--explore needs --screenshot and a file.</translation>
    </message>
    <message>
        <source>Bitte gültige Koordinaten eingeben.</source>
        <translation>Please enter valid coordinates.</translation>
    </message>
    <message>
        <source>Punkt</source>
        <translation>Point</translation>
    </message>
    <message>
        <source> von </source>
        <translation> of </translation>
    </message>
    <message>
        <source>Zeit</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>unlesbar</source>
        <translation>unreadable</translation>
    </message>
    <message>
        <source>Koordinaten</source>
        <translation>Coordinates</translation>
    </message>
    <message>
        <source>Höhe</source>
        <translation>Elevation</translation>
    </message>
    <message>
        <source>Herzfrequenz</source>
        <translation>Heart rate</translation>
    </message>
    <message>
        <source> /min</source>
        <translation> /min</translation>
    </message>
    <message>
        <source>Trittfrequenz</source>
        <translation>Cadence</translation>
    </message>
    <message>
        <source>Temperatur</source>
        <translation>Temperature</translation>
    </message>
    <message>
        <source> °C</source>
        <translation> °C</translation>
    </message>
    <message>
        <source>Geschwindigkeit</source>
        <translation>Speed</translation>
    </message>
    <message>
        <source> km/h</source>
        <translation> km/h</translation>
    </message>
    <message>
        <source>dd.MM.yyyy HH:mm:ss</source>
        <translation>yyyy-MM-dd HH:mm:ss</translation>
    </message>
</context>
<context>
    <name>trackloom::DataCalendarButton</name>
    <message>
        <source>Übernehmen</source>
        <translation>Apply</translation>
    </message>
</context>
<context>
    <name>trackloom::DataCalendarPicker</name>
    <message>
        <source>Zeitraum im Kalender wählen</source>
        <translation>Choose a range in the calendar</translation>
    </message>
    <message>
        <source>Datum im Kalender wählen</source>
        <translation>Choose a date in the calendar</translation>
    </message>
    <message>
        <source>Einen Tag anklicken und übernehmen.</source>
        <translation>Click a day and apply.</translation>
    </message>
    <message>
        <source>Jetzt den Endtag anklicken – auch im anderen Monat.</source>
        <translation>Now click the last day – in another month too.</translation>
    </message>
    <message>
        <source>Beginn und Ende anklicken. Für einen einzelnen Tag zweimal denselben Tag wählen.</source>
        <translation>Click the start and the end. For a single day, choose the same day twice.</translation>
    </message>
    <message>
        <source> Tage mit Daten</source>
        <translation> days with data</translation>
    </message>
</context>
<context>
    <name>trackloom::DataCalendarView</name>
    <message>
        <source>Vorheriger Monat</source>
        <translation>Previous month</translation>
    </message>
    <message>
        <source>Nächster Monat</source>
        <translation>Next month</translation>
    </message>
    <message>
        <source>Monat</source>
        <translation>Month</translation>
    </message>
    <message>
        <source>Jahr</source>
        <translation>Year</translation>
    </message>
    <message>
        <source>Erster Tag mit Daten</source>
        <translation>First day with data</translation>
    </message>
    <message>
        <source>Letzter Tag mit Daten</source>
        <translation>Last day with data</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source> Punkte</source>
        <translation> points</translation>
    </message>
</context>
<context>
    <name>trackloom::EditPanel</name>
    <message>
        <source>Erster Teil</source>
        <translation>First part</translation>
    </message>
    <message>
        <source>Zweiter Teil</source>
        <translation>Second part</translation>
    </message>
    <message>
        <source>Teilen</source>
        <translation>Split</translation>
    </message>
    <message>
        <source>Punkte und Abschnitte</source>
        <translation>Points and sections</translation>
    </message>
    <message>
        <source>Darstellung</source>
        <translation>View</translation>
    </message>
    <message>
        <source>Datei</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Die Einstellung wird für weitere Importe gemerkt.</source>
        <translation>The setting is remembered for further imports.</translation>
    </message>
</context>
<context>
    <name>trackloom::EditorCommands</name>
    <message>
        <source>Beispieltrack laden</source>
        <translation>Load sample track</translation>
    </message>
    <message>
        <source>Nächsten GPX-Track anhängen …</source>
        <translation>Append next GPX track …</translation>
    </message>
    <message>
        <source>GPX exportieren</source>
        <translation>Export GPX</translation>
    </message>
    <message>
        <source>Als ein Track exportieren …</source>
        <translation>Export as one track …</translation>
    </message>
    <message>
        <source>Abschnitt exportieren …</source>
        <translation>Export section …</translation>
    </message>
    <message>
        <source>Am gewählten Punkt teilen</source>
        <translation>Split at the selected point</translation>
    </message>
    <message>
        <source>Alle Punkte vor dem gewählten entfernen</source>
        <translation>Remove all points before the selected one</translation>
    </message>
    <message>
        <source>Alle Punkte nach dem gewählten entfernen</source>
        <translation>Remove all points after the selected one</translation>
    </message>
    <message>
        <source>Gewählten Punkt löschen</source>
        <translation>Delete selected point</translation>
    </message>
    <message>
        <source>Abschnitte zusammenfügen</source>
        <translation>Join sections</translation>
    </message>
    <message>
        <source>Nach Geschwindigkeit färben</source>
        <translation>Colour by speed</translation>
    </message>
    <message>
        <source>Luftlinien-Routen ausblenden</source>
        <translation>Hide straight-line routes</translation>
    </message>
    <message>
        <source>Ganzen Track zeigen</source>
        <translation>Show whole track</translation>
    </message>
    <message>
        <source>Alle Abschnitte in Lesereihenfolge zu einem zusammenfügen, damit sich die Lücken dazwischen füllen lassen.</source>
        <translation>Join all sections into one in reading order, so that the gaps between them can be filled.</translation>
    </message>
    <message>
        <source>Ein Track mit einem Abschnitt, ohne Wegpunkte und Routen, wie ihn Navigations- und Reise-Apps importieren.</source>
        <translation>One track of one section, without waypoints and routes, as navigation and travel apps import it.</translation>
    </message>
    <message>
        <source>Einen erzeugten Track zum Ausprobieren öffnen</source>
        <translation>Open a generated track to try things out</translation>
    </message>
    <message>
        <source>Einen weiteren GPX-Track hinten anhängen; das lässt sich rückgängig machen</source>
        <translation>Append another GPX track at the end; this can be undone</translation>
    </message>
    <message>
        <source>Den bearbeiteten Track als neue GPX-Datei speichern; die geöffnete Datei bleibt unverändert</source>
        <translation>Save the edited track as a new GPX file; the opened file stays unchanged</translation>
    </message>
    <message>
        <source>Den Abschnitt des gewählten Punkts als eigene GPX-Datei speichern</source>
        <translation>Save the section of the selected point as a GPX file of its own</translation>
    </message>
    <message>
        <source>Den Abschnitt am gewählten Punkt in zwei Tracks mit den Namen darüber teilen</source>
        <translation>Split the section at the selected point into two tracks with the names above</translation>
    </message>
    <message>
        <source>Den Track erst am gewählten Punkt beginnen lassen</source>
        <translation>Let the track begin at the selected point</translation>
    </message>
    <message>
        <source>Den Track am gewählten Punkt enden lassen</source>
        <translation>Let the track end at the selected point</translation>
    </message>
    <message>
        <source>Den gewählten Punkt aus dem Track entfernen</source>
        <translation>Remove the selected point from the track</translation>
    </message>
    <message>
        <source>Die Linie nach der Geschwindigkeit färben, von Grün (langsam) bis Rot</source>
        <translation>Colour the line by speed, from green (slow) to red</translation>
    </message>
    <message>
        <source>Gerade Linien über große Entfernungen ausblenden; sie werden beim Export entfernt</source>
        <translation>Hide straight lines across long distances; they are removed on export</translation>
    </message>
    <message>
        <source>Die Karte so einstellen, dass der ganze Track zu sehen ist</source>
        <translation>Set the map so that the whole track is visible</translation>
    </message>
</context>
<context>
    <name>trackloom::EditorExports</name>
    <message>
        <source>Bitte erzeuge oder korrigiere zuerst die Zeitstempel.</source>
        <translation>Please generate or correct the timestamps first.</translation>
    </message>
    <message>
        <source>Bitte übernimm zuerst die gewünschten Zeiten.</source>
        <translation>Please apply the times you want first.</translation>
    </message>
    <message>
        <source>Kein Abschnitt ausgewählt.</source>
        <translation>No section selected.</translation>
    </message>
    <message>
        <source>Als ein Track exportieren</source>
        <translation>Export as one track</translation>
    </message>
    <message>
        <source>Bearbeiteten GPX-Track speichern</source>
        <translation>Save edited GPX track</translation>
    </message>
    <message>
        <source>GPX exportiert: </source>
        <translation>GPX exported: </translation>
    </message>
    <message>
        <source>Abschnitt exportieren</source>
        <translation>Export section</translation>
    </message>
    <message>
        <source>Abschnitt gespeichert: </source>
        <translation>Section saved: </translation>
    </message>
    <message>
        <source>GPX-Datei wird geschrieben …</source>
        <translation>Writing the GPX file …</translation>
    </message>
    <message>
        <source>Export fehlgeschlagen.</source>
        <translation>Export failed.</translation>
    </message>
    <message>
        <source>Gesichert als ein Track mit einem Abschnitt, wie ihn Navigations- und Reise-Apps importieren. (</source>
        <translation>Saved as one track of one section, as navigation and travel apps import it. (</translation>
    </message>
</context>
<context>
    <name>trackloom::EditorMapTool</name>
    <message>
        <source>Zum Einfügen auf die Linie klicken, hinter dem Punkt, nach dem die neuen Punkte folgen sollen.</source>
        <translation>To insert, click on the line behind the point that the new points should follow.</translation>
    </message>
    <message>
        <source>Wähle einen Punkt, auf den im selben Abschnitt noch ein Punkt folgt. Am Ende eines Abschnitts lässt sich nichts einfügen; verbinde vorher die Abschnitte.</source>
        <translation>Choose a point that another point of the same section follows. Nothing can be inserted at the end of a section; join the sections first.</translation>
    </message>
    <message>
        <source>Neue Punkte auf die Karte klicken, dann „Fertig“ wählen.</source>
        <translation>Click new points on the map, then choose “Done”.</translation>
    </message>
    <message>
        <source>Zum Einfügen auf die Linie klicken.</source>
        <translation>To insert, click on the line.</translation>
    </message>
    <message>
        <source>Es wurden keine Punkte gesetzt.</source>
        <translation>No points were set.</translation>
    </message>
    <message>
        <source>Punkt(e) eingefügt, ohne Zeit: Ein Nachbarpunkt hat keine Zeitangabe.</source>
        <translation>Point(s) inserted without time: a neighbouring point has no time.</translation>
    </message>
    <message>
        <source>Punkt(e) eingefügt.</source>
        <translation>Point(s) inserted.</translation>
    </message>
    <message>
        <source>Punkte werden eingefügt …</source>
        <translation>Inserting points …</translation>
    </message>
</context>
<context>
    <name>trackloom::EditorModel</name>
    <message>
        <source>Bitte öffne zuerst einen Track.</source>
        <translation>Please open a track first.</translation>
    </message>
    <message>
        <source>Bitte wähle einen Streckenpunkt aus.</source>
        <translation>Please select a path point.</translation>
    </message>
    <message>
        <source>Track geteilt. Beide Abschnitte behalten den gemeinsamen Grenzpunkt.</source>
        <translation>Track split. Both sections keep the shared boundary point.</translation>
    </message>
    <message>
        <source>Alle Punkte vor dem gewählten entfernt.</source>
        <translation>All points before the selected one removed.</translation>
    </message>
    <message>
        <source>Alle Punkte nach dem gewählten entfernt.</source>
        <translation>All points after the selected one removed.</translation>
    </message>
    <message>
        <source>Punkt gelöscht.</source>
        <translation>Point deleted.</translation>
    </message>
    <message>
        <source>Alle Abschnitte zu einem zusammengefügt.</source>
        <translation>All sections joined into one.</translation>
    </message>
    <message>
        <source>Track-Bearbeitung rückgängig gemacht.</source>
        <translation>Track edit undone.</translation>
    </message>
    <message>
        <source>Track-Bearbeitung wiederhergestellt.</source>
        <translation>Track edit redone.</translation>
    </message>
    <message>
        <source>Zeitstempel mit </source>
        <translation>Timestamps generated at </translation>
    </message>
    <message>
        <source> km/h erzeugt. Bereit zum Export.</source>
        <translation> km/h. Ready to export.</translation>
    </message>
    <message>
        <source>Start und Ende übernommen · Ø </source>
        <translation>Start and end applied · Ø </translation>
    </message>
    <message>
        <source> km/h · Bereit zum Export.</source>
        <translation> km/h · Ready to export.</translation>
    </message>
    <message>
        <source>Luftlinien-Routen ausgeblendet; sie werden beim Export entfernt.</source>
        <translation>Straight-line routes hidden; they are removed on export.</translation>
    </message>
    <message>
        <source>Luftlinien-Routen werden angezeigt, mitgerechnet und exportiert.</source>
        <translation>Straight-line routes are shown, counted and exported.</translation>
    </message>
    <message>
        <source>Punkt verschoben.</source>
        <translation>Point moved.</translation>
    </message>
    <message>
        <source>GPX-Datei öffnen</source>
        <translation>Open GPX file</translation>
    </message>
    <message>
        <source> Punkte geladen.</source>
        <translation> points loaded.</translation>
    </message>
    <message>
        <source>Beispielrunde.gpx</source>
        <translation>Sample loop.gpx</translation>
    </message>
    <message>
        <source>Beispieldaten geladen.</source>
        <translation>Sample data loaded.</translation>
    </message>
    <message>
        <source>Auswahl aus der Google-Zeitachse übernommen. Zeitfunktionen sind bereit.</source>
        <translation>Selection taken from the Google timeline. Time functions are ready.</translation>
    </message>
    <message>
        <source>Track wird eingelesen …</source>
        <translation>Reading the track …</translation>
    </message>
    <message>
        <source>Import fehlgeschlagen.</source>
        <translation>Import failed.</translation>
    </message>
    <message>
        <source>Nächsten GPX-Track anhängen</source>
        <translation>Append next GPX track</translation>
    </message>
    <message>
        <source>Weiterer Track wird eingelesen …</source>
        <translation>Reading another track …</translation>
    </message>
    <message>
        <source>Anhängen fehlgeschlagen. Der bisherige Track bleibt erhalten.</source>
        <translation>Appending failed. The previous track is kept.</translation>
    </message>
    <message>
        <source>Hinweg</source>
        <translation>Outbound</translation>
    </message>
    <message>
        <source>Rückweg</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>Ungesicherte GPX-Bearbeitung</source>
        <translation>Unsaved GPX edits</translation>
    </message>
    <message>
        <source>Die bearbeitete GPX-Datei wurde noch nicht vollständig exportiert. Zum Sichern zuerst abbrechen und „GPX exportieren“ wählen.</source>
        <translation>The edited GPX file has not been fully exported yet. To keep it, cancel first and choose “Export GPX”.</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Änderungen verwerfen</source>
        <translation>Discard changes</translation>
    </message>
    <message>
        <source>Bitte warte, bis die laufende Bearbeitung fertig ist.</source>
        <translation>Please wait until the running edit has finished.</translation>
    </message>
    <message>
        <source>1 weitere Aktion vorgemerkt</source>
        <translation>1 more action queued</translation>
    </message>
    <message>
        <source>%1 weitere Aktionen vorgemerkt</source>
        <translation>%1 more actions queued</translation>
    </message>
    <message>
        <source>Vorgemerkte Aktionen wurden verworfen.</source>
        <translation>Queued actions were dropped.</translation>
    </message>
    <message>
        <source>Track wird geteilt …</source>
        <translation>Splitting the track …</translation>
    </message>
    <message>
        <source>Punkte werden entfernt …</source>
        <translation>Removing points …</translation>
    </message>
    <message>
        <source>Punkt wird gelöscht …</source>
        <translation>Deleting the point …</translation>
    </message>
    <message>
        <source>Abschnitte werden zusammengefügt …</source>
        <translation>Joining the sections …</translation>
    </message>
    <message>
        <source>Rückgängig …</source>
        <translation>Undoing …</translation>
    </message>
    <message>
        <source>Wiederherstellen …</source>
        <translation>Redoing …</translation>
    </message>
    <message>
        <source>Zeitstempel werden erzeugt …</source>
        <translation>Generating timestamps …</translation>
    </message>
    <message>
        <source>Luftlinien-Routen werden ausgeblendet …</source>
        <translation>Hiding straight-line routes …</translation>
    </message>
    <message>
        <source>Luftlinien-Routen werden eingeblendet …</source>
        <translation>Showing straight-line routes …</translation>
    </message>
    <message>
        <source>Punkt wird verschoben …</source>
        <translation>Moving the point …</translation>
    </message>
</context>
<context>
    <name>trackloom::EditorTimeFields</name>
    <message>
        <source>Bitte öffne zuerst einen Track.</source>
        <translation>Please open a track first.</translation>
    </message>
    <message>
        <source>Bitte gib eine Geschwindigkeit größer als 0 und höchstens 1.000 km/h ein.</source>
        <translation>Please enter a speed above 0 and at most 1,000 km/h.</translation>
    </message>
</context>
<context>
    <name>trackloom::EditorView</name>
    <message>
        <source>Track-Editor</source>
        <translation>Track editor</translation>
    </message>
    <message>
        <source>Öffne eine GPX-Datei (1.0 oder 1.1, bis 50 MB) oder ziehe sie auf das Fenster. Die Originaldatei wird nie überschrieben.</source>
        <translation>Open a GPX file (1.0 or 1.1, up to 50 MB) or drop it on the window. The original file is never overwritten.</translation>
    </message>
    <message>
        <source>GPX-Datei öffnen …</source>
        <translation>Open GPX file …</translation>
    </message>
    <message>
        <source>Intervalle</source>
        <translation>Intervals</translation>
    </message>
    <message>
        <source>Geschwindigkeitsprofil</source>
        <translation>Speed profile</translation>
    </message>
    <message>
        <source>Übersicht</source>
        <translation>Overview</translation>
    </message>
    <message>
        <source>Bearbeiten</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>Zeiten</source>
        <translation>Times</translation>
    </message>
    <message>
        <source>Eine GPX-Datei von diesem Rechner öffnen</source>
        <translation>Open a GPX file from this computer</translation>
    </message>
    <message>
        <source>Höhenprofil</source>
        <translation>Elevation profile</translation>
    </message>
    <message>
        <source>Abschnitte</source>
        <translation>Sections</translation>
    </message>
    <message>
        <source>Wegpunkte</source>
        <translation>Waypoints</translation>
    </message>
    <message>
        <source>Punkt</source>
        <translation>Point</translation>
    </message>
</context>
<context>
    <name>trackloom::EditorWorkspace</name>
    <message>
        <source>Track-Editor</source>
        <translation>Track editor</translation>
    </message>
    <message>
        <source>Ungesicherte GPX-Bearbeitung</source>
        <translation>Unsaved GPX edits</translation>
    </message>
    <message>
        <source>Die bearbeitete GPX-Datei wurde noch nicht vollständig exportiert. Zum Sichern zuerst abbrechen und „GPX exportieren“ wählen.</source>
        <translation>The edited GPX file has not been fully exported yet. To keep it, cancel first and choose “Export GPX”.</translation>
    </message>
</context>
<context>
    <name>trackloom::ElevationProfileView</name>
    <message>
        <source>Dieser Track enthält keine Höhenangaben.</source>
        <translation>This track has no elevations.</translation>
    </message>
    <message>
        <source> m</source>
        <translation> m</translation>
    </message>
    <message>
        <source>0 km</source>
        <translation>0 km</translation>
    </message>
    <message>
        <source> km</source>
        <translation> km</translation>
    </message>
</context>
<context>
    <name>trackloom::IntervalTableModel</name>
    <message>
        <source>Von Punkt</source>
        <translation>From point</translation>
    </message>
    <message>
        <source>Bis Punkt</source>
        <translation>To point</translation>
    </message>
    <message>
        <source>Strecke (m)</source>
        <translation>Distance (m)</translation>
    </message>
    <message>
        <source>Gesamt (km)</source>
        <translation>Total (km)</translation>
    </message>
    <message>
        <source>Sekunden</source>
        <translation>Seconds</translation>
    </message>
    <message>
        <source>km/h oder Problem</source>
        <translation>km/h or problem</translation>
    </message>
    <message>
        <source>Nummer des Punkts, an dem das Intervall beginnt</source>
        <translation>Number of the point where the interval begins</translation>
    </message>
    <message>
        <source>Nummer des Punkts, an dem das Intervall endet</source>
        <translation>Number of the point where the interval ends</translation>
    </message>
    <message>
        <source>Länge des Intervalls in Metern</source>
        <translation>Length of the interval in metres</translation>
    </message>
    <message>
        <source>Strecke vom Anfang des Tracks bis zum Ende des Intervalls</source>
        <translation>Distance from the start of the track to the end of the interval</translation>
    </message>
    <message>
        <source>Zeit zwischen den beiden Punkten</source>
        <translation>Time between the two points</translation>
    </message>
    <message>
        <source>Geschwindigkeit im Intervall, oder warum sie sich nicht berechnen lässt</source>
        <translation>Speed in the interval, or why it cannot be computed</translation>
    </message>
</context>
<context>
    <name>trackloom::IntervalTableView</name>
    <message>
        <source>Nur auffällige Intervalle</source>
        <translation>Suspicious intervals only</translation>
    </message>
    <message>
        <source> km/h</source>
        <translation> km/h</translation>
    </message>
    <message>
        <source>Auffällig über</source>
        <translation>Suspicious above</translation>
    </message>
    <message>
        <source> auffällige Intervalle</source>
        <translation> suspicious intervals</translation>
    </message>
    <message>
        <source> Intervalle</source>
        <translation> intervals</translation>
    </message>
</context>
<context>
    <name>trackloom::JobRunner</name>
    <message>
        <source>Nicht genug Arbeitsspeicher für diese Aufgabe. Die bisherigen Daten bleiben unverändert.</source>
        <translation>Not enough memory for this task. The existing data stays unchanged.</translation>
    </message>
    <message>
        <source>Unerwarteter interner Fehler. Die bisherigen Daten bleiben unverändert.</source>
        <translation>Unexpected internal error. The existing data stays unchanged.</translation>
    </message>
</context>
<context>
    <name>trackloom::MainWindow</name>
    <message>
        <source>Datei nicht geöffnet</source>
        <translation>File not opened</translation>
    </message>
    <message>
        <source>Diese Datei kann Trackloom nicht öffnen: </source>
        <translation>Trackloom cannot open this file: </translation>
    </message>
    <message>
        <source>Alle Dateien (*)</source>
        <translation>All files (*)</translation>
    </message>
    <message>
        <source>Datei öffnen</source>
        <translation>Open file</translation>
    </message>
    <message>
        <source>Datei nicht gefunden</source>
        <translation>File not found</translation>
    </message>
    <message>
        <source>Die Datei gibt es nicht mehr an ihrem Ort: </source>
        <translation>The file is no longer where it was: </translation>
    </message>
    <message>
        <source>. Sie wurde aus „Zuletzt geöffnet“ entfernt.</source>
        <translation>. It was removed from “Open Recent”.</translation>
    </message>
</context>
<context>
    <name>trackloom::MapEditor</name>
    <message>
        <source>Auswählen</source>
        <translation>Select</translation>
    </message>
    <message>
        <source>Einen Punkt anklicken, um ihn zu wählen.</source>
        <translation>Click a point to select it.</translation>
    </message>
    <message>
        <source>Verschieben</source>
        <translation>Move</translation>
    </message>
    <message>
        <source>Einen Punkt an seine neue Stelle ziehen.</source>
        <translation>Drag a point to its new place.</translation>
    </message>
    <message>
        <source>Einfügen</source>
        <translation>Insert</translation>
    </message>
    <message>
        <source>Auf die Linie klicken, dann die neuen Punkte setzen.</source>
        <translation>Click on the line, then set the new points.</translation>
    </message>
    <message>
        <source>Fertig</source>
        <translation>Done</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Die gesetzten Punkte in den Track einfügen</source>
        <translation>Insert the placed points into the track</translation>
    </message>
    <message>
        <source>Die gesetzten Punkte verwerfen, ohne etwas einzufügen</source>
        <translation>Discard the placed points without inserting anything</translation>
    </message>
</context>
<context>
    <name>trackloom::MapWidget</name>
    <message>
        <source>© OpenStreetMap-Mitwirkende</source>
        <translation>© OpenStreetMap contributors</translation>
    </message>
    <message>
        <source>Kartenmaterial ist nicht verfügbar.</source>
        <translation>Map tiles are not available.</translation>
    </message>
</context>
<context>
    <name>trackloom::NativeDialogs</name>
    <message>
        <source>„%1“ ist bereits vorhanden. Soll die Datei ersetzt werden?</source>
        <translation>“%1” already exists. Do you want to replace it?</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Ersetzen</source>
        <translation>Replace</translation>
    </message>
</context>
<context>
    <name>trackloom::NominatimSearch</name>
    <message>
        <source>Die Antwort war nicht lesbar.</source>
        <translation>The response was not readable.</translation>
    </message>
</context>
<context>
    <name>trackloom::PlaceDayList</name>
    <message>
        <source>Tage exportieren …</source>
        <translation>Export days …</translation>
    </message>
    <message>
        <source>Zeiten zeigen den ersten und letzten Nachweis des Tages, keinen lückenlosen Aufenthalt. Linien zwischen Punkten zählen nicht als Ortsnachweis. Ein Klick öffnet den ganzen Tag.</source>
        <translation>Times show the first and last evidence of the day, not an unbroken stay. Lines between points do not count as evidence of the place. A click opens the whole day.</translation>
    </message>
    <message>
        <source> Tag</source>
        <translation> day</translation>
    </message>
    <message>
        <source> Tage</source>
        <translation> days</translation>
    </message>
    <message>
        <source>Tage</source>
        <translation>Days</translation>
    </message>
    <message>
        <source>Wähle einen Ort, um passende Tage in deinem geladenen Verlauf zu finden.</source>
        <translation>Choose a place to find matching days in your loaded history.</translation>
    </message>
    <message>
        <source>Tage werden gesucht …</source>
        <translation>Searching for days …</translation>
    </message>
    <message>
        <source>Keine gespeicherten Punkte in diesem Umkreis. Versuche einen größeren Radius oder den gesamten Verlauf.</source>
        <translation>No stored points within this radius. Try a larger radius or the whole history.</translation>
    </message>
    <message>
        <source>Den vollständigen Tag mit seinen Strecken öffnen</source>
        <translation>Open the whole day with its paths</translation>
    </message>
</context>
<context>
    <name>trackloom::PlaceExplorerModel</name>
    <message>
        <source>Bitte einen gespeicherten Ortsnamen oder Koordinaten eingeben.</source>
        <translation>Please enter a stored place name or coordinates.</translation>
    </message>
    <message>
        <source>Koordinaten</source>
        <translation>Coordinates</translation>
    </message>
    <message>
        <source>Koordinaten lokal übernommen.</source>
        <translation>Coordinates taken locally.</translation>
    </message>
    <message>
        <source>Gespeicherter Aufenthalt</source>
        <translation>Stored visit</translation>
    </message>
    <message>
        <source>Kein gespeicherter Ortsname gefunden. Kartenpunkt wählen, Koordinaten eingeben oder bei OpenStreetMap suchen.</source>
        <translation>No stored place name found. Pick a point on the map, enter coordinates or search OpenStreetMap.</translation>
    </message>
    <message>
        <source> Orte aus deinen Daten (maximal 50; Suche ggf. genauer eingrenzen).</source>
        <translation> places from your data (at most 50; narrow the search if needed).</translation>
    </message>
    <message>
        <source> Orte aus deinen Daten.</source>
        <translation> places from your data.</translation>
    </message>
    <message>
        <source>Bitte einen Ort oder eine Adresse eingeben.</source>
        <translation>Please enter a place or an address.</translation>
    </message>
    <message>
        <source>OpenStreetMap-Suche nicht verfügbar: </source>
        <translation>OpenStreetMap search not available: </translation>
    </message>
    <message>
        <source>In dieser Umgebung ist keine Online-Suche eingerichtet.</source>
        <translation>No online search is set up in this environment.</translation>
    </message>
    <message>
        <source>Ort</source>
        <translation>Place</translation>
    </message>
    <message>
        <source>Keine Orte bei OpenStreetMap gefunden.</source>
        <translation>No places found on OpenStreetMap.</translation>
    </message>
    <message>
        <source>Ort auswählen, um deinen Verlauf dort zu prüfen.</source>
        <translation>Choose a place to check your history there.</translation>
    </message>
    <message>
        <source>Tag,Erster Nachweis,Letzter Nachweis,Punkte</source>
        <translation>Day,First evidence,Last evidence,Points</translation>
    </message>
    <message>
        <source>Tage exportieren</source>
        <translation>Export days</translation>
    </message>
    <message>
        <source>Tage.csv</source>
        <translation>Days.csv</translation>
    </message>
    <message>
        <source>Tage – </source>
        <translation>Days – </translation>
    </message>
    <message>
        <source>CSV-Dateien (*.csv)</source>
        <translation>CSV files (*.csv)</translation>
    </message>
</context>
<context>
    <name>trackloom::PlaceExplorerView</name>
    <message>
        <source>Kartenpunkt</source>
        <translation>Map point</translation>
    </message>
</context>
<context>
    <name>trackloom::PlaceSearchPanel</name>
    <message>
        <source>50 m</source>
        <translation>50 m</translation>
    </message>
    <message>
        <source>100 m</source>
        <translation>100 m</translation>
    </message>
    <message>
        <source>250 m</source>
        <translation>250 m</translation>
    </message>
    <message>
        <source>500 m</source>
        <translation>500 m</translation>
    </message>
    <message>
        <source>1 km</source>
        <translation>1 km</translation>
    </message>
    <message>
        <source>5 km</source>
        <translation>5 km</translation>
    </message>
    <message>
        <source>10 km</source>
        <translation>10 km</translation>
    </message>
    <message>
        <source>WANN WAR ICH HIER?</source>
        <translation>WHEN WAS I HERE?</translation>
    </message>
    <message>
        <source>Ort, Adresse oder 50.7, 7.1</source>
        <translation>Place, address or 50.7, 7.1</translation>
    </message>
    <message>
        <source>Ort oder Koordinaten suchen</source>
        <translation>Search a place or coordinates</translation>
    </message>
    <message>
        <source>Bei OpenStreetMap suchen</source>
        <translation>Search OpenStreetMap</translation>
    </message>
    <message>
        <source>Suchergebnisse: © OpenStreetMap-Mitwirkende (ODbL)</source>
        <translation>Search results: © OpenStreetMap contributors (ODbL)</translation>
    </message>
    <message>
        <source>Ort auf Karte wählen</source>
        <translation>Pick place on map</translation>
    </message>
    <message>
        <source>Den gewünschten Ort auf der Karte anklicken.</source>
        <translation>Click the place you want on the map.</translation>
    </message>
    <message>
        <source>Umkreis</source>
        <translation>Radius</translation>
    </message>
    <message>
        <source>Gesamten Verlauf durchsuchen</source>
        <translation>Search the whole history</translation>
    </message>
    <message>
        <source>Aufenthalte einbeziehen</source>
        <translation>Include visits</translation>
    </message>
    <message>
        <source>Grobe Fahrten einbeziehen</source>
        <translation>Include coarse trips</translation>
    </message>
    <message>
        <source>Heatmap anzeigen</source>
        <translation>Show heat map</translation>
    </message>
    <message>
        <source>Nur „Bei OpenStreetMap suchen“ sendet deinen Suchtext an OpenStreetMap. Koordinaten: Breite, Länge mit Dezimalpunkt.</source>
        <translation>Only “Search OpenStreetMap” sends your search text to OpenStreetMap. Coordinates: latitude, longitude with a decimal point.</translation>
    </message>
    <message>
        <source>Punktdichte im sichtbaren Kartenausschnitt, keine Aufenthaltsdauer. Häufigere Aufzeichnung erzeugt stärkere Farben. Die Farben passen sich beim Zoomen an.</source>
        <translation>Point density in the visible part of the map, not time spent. More frequent recording gives stronger colours. The colours adapt when zooming.</translation>
    </message>
    <message>
        <source>Verlauf und Umkreissuche bleiben lokal. Kartenmaterial kommt von OpenStreetMap. Originaldateien bleiben unverändert.</source>
        <translation>History and radius search stay local. Map data comes from OpenStreetMap. Original files stay unchanged.</translation>
    </message>
    <message>
        <source>Bereich: </source>
        <translation>Range: </translation>
    </message>
    <message>
        <source>Punkte werden vorbereitet …</source>
        <translation>Preparing the points …</translation>
    </message>
    <message>
        <source>Tage werden gesucht …</source>
        <translation>Searching for days …</translation>
    </message>
    <message>
        <source> Punkte ausgewählt</source>
        <translation> points selected</translation>
    </message>
    <message>
        <source>Suche läuft …</source>
        <translation>Searching …</translation>
    </message>
    <message>
        <source>Gespeicherter Aufenthalt</source>
        <translation>Stored visit</translation>
    </message>
    <message>
        <source>Kartenauswahl abbrechen</source>
        <translation>Cancel map selection</translation>
    </message>
</context>
<context>
    <name>trackloom::PlacesWorkspace</name>
    <message>
        <source>Tage exportieren …</source>
        <translation>Export days …</translation>
    </message>
    <message>
        <source>Wann war ich hier?</source>
        <translation>When was I here?</translation>
    </message>
    <message>
        <source>Koordinaten</source>
        <translation>Coordinates</translation>
    </message>
</context>
<context>
    <name>trackloom::PointDetailsView</name>
    <message>
        <source>Wähle einen Punkt auf der Karte, in den Intervallen oder in einem Profil, um ihn hier zu sehen.</source>
        <translation>Choose a point on the map, in the intervals or in a profile to see it here.</translation>
    </message>
</context>
<context>
    <name>trackloom::SectionTableModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Punkte</source>
        <translation>Points</translation>
    </message>
    <message>
        <source>Strecke</source>
        <translation>Distance</translation>
    </message>
    <message>
        <source>Dauer</source>
        <translation>Duration</translation>
    </message>
</context>
<context>
    <name>trackloom::SettingsDialog</name>
    <message>
        <source>Einstellungen</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Ohne Kartenmaterial arbeiten (keine Verbindung ins Netz)</source>
        <translation>Work without map tiles (no network connection)</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Default</translation>
    </message>
    <message>
        <source>Zwischenspeicher leeren</source>
        <translation>Clear cache</translation>
    </message>
    <message>
        <source>Automatisch (Systemsprache)</source>
        <translation>Automatic (system language)</translation>
    </message>
    <message>
        <source>Die Sprache wird beim nächsten Start übernommen.</source>
        <translation>The language takes effect at the next start.</translation>
    </message>
    <message>
        <source>Kachel-Adresse</source>
        <translation>Tile address</translation>
    </message>
    <message>
        <source>Kartenkacheln</source>
        <translation>Map tiles</translation>
    </message>
    <message>
        <source>Sprache</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>Kartenmaterial kommt von OpenStreetMap. Verläufe und Tracks bleiben auf diesem Rechner.</source>
        <translation>Map data comes from OpenStreetMap. Histories and tracks stay on this computer.</translation>
    </message>
</context>
<context>
    <name>trackloom::ShellMenus</name>
    <message>
        <source>Datei</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Bearbeiten</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>Darstellung</source>
        <translation>View</translation>
    </message>
    <message>
        <source>Fenster</source>
        <translation>Window</translation>
    </message>
    <message>
        <source>Hilfe</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Über Trackloom</source>
        <translation>About Trackloom</translation>
    </message>
    <message>
        <source>Über Qt</source>
        <translation>About Qt</translation>
    </message>
    <message>
        <source>Öffnen …</source>
        <translation>Open …</translation>
    </message>
    <message>
        <source>Fenster schließen</source>
        <translation>Close window</translation>
    </message>
    <message>
        <source>Beenden</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>Rückgängig</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>Wiederholen</source>
        <translation>Redo</translation>
    </message>
    <message>
        <source>Einstellungen …</source>
        <translation>Settings …</translation>
    </message>
    <message>
        <source>Seitenleiste anzeigen</source>
        <translation>Show sidebar</translation>
    </message>
    <message>
        <source>Vollbild</source>
        <translation>Full screen</translation>
    </message>
    <message>
        <source>Minimieren</source>
        <translation>Minimize</translation>
    </message>
    <message>
        <source>Zoomen</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Tastenkürzel</source>
        <translation>Keyboard Shortcuts</translation>
    </message>
    <message>
        <source>Zuletzt geöffnet</source>
        <translation>Open Recent</translation>
    </message>
    <message>
        <source>Liste leeren</source>
        <translation>Clear List</translation>
    </message>
    <message>
        <source>Allgemein</source>
        <translation>General</translation>
    </message>
</context>
<context>
    <name>trackloom::ShortcutsDialog</name>
    <message>
        <source>Tastenkürzel</source>
        <translation>Keyboard Shortcuts</translation>
    </message>
    <message>
        <source>Befehl</source>
        <translation>Command</translation>
    </message>
</context>
<context>
    <name>trackloom::SpeedLegend</name>
    <message>
        <source> km/h (95 % der Abschnitte sind langsamer) · grau: ohne gültige Zeit</source>
        <translation> km/h (95 % of the intervals are slower) · grey: no valid time</translation>
    </message>
</context>
<context>
    <name>trackloom::SpeedProfileView</name>
    <message>
        <source>Ohne gültige Zeiten gibt es kein Geschwindigkeitsprofil.</source>
        <translation>Without valid times there is no speed profile.</translation>
    </message>
    <message>
        <source>Auffällig über </source>
        <translation>Suspicious above </translation>
    </message>
    <message>
        <source> km/h</source>
        <translation> km/h</translation>
    </message>
    <message>
        <source>0 km/h</source>
        <translation>0 km/h</translation>
    </message>
    <message>
        <source>0 km</source>
        <translation>0 km</translation>
    </message>
    <message>
        <source> km</source>
        <translation> km</translation>
    </message>
</context>
<context>
    <name>trackloom::SummaryView</name>
    <message>
        <source>Beispieldaten: ein erzeugter Track zum Ausprobieren, keine echte Aufzeichnung.</source>
        <translation>Sample data: a generated track to try things out, not a real recording.</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Punkte</source>
        <translation>Points</translation>
    </message>
    <message>
        <source>Abschnitte</source>
        <translation>Sections</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Ende</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Strecke</source>
        <translation>Distance</translation>
    </message>
    <message>
        <source>Strecke mit Zeit</source>
        <translation>Distance with time</translation>
    </message>
    <message>
        <source>Dauer mit Zeit</source>
        <translation>Duration with time</translation>
    </message>
    <message>
        <source>Ø Geschwindigkeit</source>
        <translation>Ø speed</translation>
    </message>
    <message>
        <source>Höchstgeschwindigkeit</source>
        <translation>Top speed</translation>
    </message>
    <message>
        <source>Gültige Intervalle</source>
        <translation>Valid intervals</translation>
    </message>
    <message>
        <source>Ungültige Intervalle</source>
        <translation>Invalid intervals</translation>
    </message>
    <message>
        <source>Fehlende Zeiten</source>
        <translation>Missing times</translation>
    </message>
    <message>
        <source>Unlesbare Zeiten</source>
        <translation>Unreadable times</translation>
    </message>
    <message>
        <source>Luftlinien-Routen</source>
        <translation>Straight-line routes</translation>
    </message>
    <message>
        <source> (ausgeblendet)</source>
        <translation> (hidden)</translation>
    </message>
    <message>
        <source>Anstieg</source>
        <translation>Ascent</translation>
    </message>
    <message>
        <source>Abstieg</source>
        <translation>Descent</translation>
    </message>
</context>
<context>
    <name>trackloom::TimePanel</name>
    <message>
        <source>Zeiten verschieben</source>
        <translation>Shift times</translation>
    </message>
    <message>
        <source>Zeiten erzeugen</source>
        <translation>Generate times</translation>
    </message>
    <message>
        <source>Aus einer Geschwindigkeit</source>
        <translation>From a speed</translation>
    </message>
    <message>
        <source>Aus Start und Ende</source>
        <translation>From start and end</translation>
    </message>
    <message>
        <source>Zeiten in UTC statt in Ortszeit</source>
        <translation>Times in UTC instead of local time</translation>
    </message>
    <message>
        <source> km/h</source>
        <translation> km/h</translation>
    </message>
    <message>
        <source>Grün: Tage mit Punkten dieses Tracks</source>
        <translation>Green: days with points of this track</translation>
    </message>
    <message>
        <source>Ende</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Geschwindigkeit</source>
        <translation>Speed</translation>
    </message>
    <message>
        <source>dd.MM.yyyy HH:mm:ss</source>
        <translation>yyyy-MM-dd HH:mm:ss</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Neuer Start</source>
        <translation>New start</translation>
    </message>
    <message>
        <source>Beim Export beginnt der Track zu diesem Zeitpunkt; alle Zeiten werden um denselben Betrag verschoben.</source>
        <translation>On export the track starts at this time; all times are shifted by the same amount.</translation>
    </message>
    <message>
        <source>Ø </source>
        <translation>Ø </translation>
    </message>
    <message>
        <source>Übernommen.</source>
        <translation>Applied.</translation>
    </message>
    <message>
        <source>Noch nicht übernommen.</source>
        <translation>Not applied yet.</translation>
    </message>
    <message>
        <source>Die Zeiten des Tracks nach diesen Angaben erzeugen; der Export schreibt sie</source>
        <translation>Generate the track&apos;s times from these settings; the export writes them</translation>
    </message>
    <message>
        <source>Den Tag des Starts im Kalender wählen</source>
        <translation>Choose the day of the start in the calendar</translation>
    </message>
    <message>
        <source>Den Tag des Endes im Kalender wählen</source>
        <translation>Choose the day of the end in the calendar</translation>
    </message>
</context>
<context>
    <name>trackloom::TimelineCommands</name>
    <message>
        <source>Arbeitskopie sichern</source>
        <translation>Save working copy</translation>
    </message>
    <message>
        <source>Auswahl als neue Arbeitskopie sichern</source>
        <translation>Save selection as a new working copy</translation>
    </message>
    <message>
        <source>Auswahl als GPX exportieren</source>
        <translation>Export selection as GPX</translation>
    </message>
    <message>
        <source>Abschnitt als GPX exportieren</source>
        <translation>Export section as GPX</translation>
    </message>
    <message>
        <source>Im Track-Editor öffnen</source>
        <translation>Open in the track editor</translation>
    </message>
    <message>
        <source>Wann war ich hier?</source>
        <translation>When was I here?</translation>
    </message>
    <message>
        <source>Einen Tag zurück</source>
        <translation>One day back</translation>
    </message>
    <message>
        <source>Einen Tag vor</source>
        <translation>One day forward</translation>
    </message>
    <message>
        <source>Tage finden, an denen der Verlauf einen Ort berührt</source>
        <translation>Find the days on which the history touches a place</translation>
    </message>
</context>
<context>
    <name>trackloom::TimelineDayList</name>
    <message>
        <source> Punkt</source>
        <translation> point</translation>
    </message>
    <message>
        <source> Punkte</source>
        <translation> points</translation>
    </message>
    <message>
        <source> Aufenthalt</source>
        <translation> visit</translation>
    </message>
    <message>
        <source> Aufenthalte</source>
        <translation> visits</translation>
    </message>
</context>
<context>
    <name>trackloom::TimelineDayView</name>
    <message>
        <source>Tag oder Ort suchen</source>
        <translation>Find a day or place</translation>
    </message>
    <message>
        <source>Neueste zuerst</source>
        <translation>Newest first</translation>
    </message>
    <message>
        <source>Älteste zuerst</source>
        <translation>Oldest first</translation>
    </message>
    <message>
        <source>Noch keine Zeitachse geöffnet.</source>
        <translation>No timeline opened yet.</translation>
    </message>
    <message>
        <source>Die Zeitachse enthält keine Tage.</source>
        <translation>The timeline contains no days.</translation>
    </message>
    <message>
        <source>Kein Tag passt zur Suche.</source>
        <translation>No day matches the search.</translation>
    </message>
</context>
<context>
    <name>trackloom::TimelineInspector</name>
    <message>
        <source>Ende</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Änderung übernehmen</source>
        <translation>Apply change</translation>
    </message>
    <message>
        <source>Position auf der Karte wählen</source>
        <translation>Choose position on the map</translation>
    </message>
    <message>
        <source>Abschnitt teilen</source>
        <translation>Split section</translation>
    </message>
    <message>
        <source>Löschen</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Teilt den Abschnitt am gewählten Streckenpunkt; er gehört dann zu beiden Teilen.</source>
        <translation>Splits the section at the selected path point; it then belongs to both parts.</translation>
    </message>
    <message>
        <source>Punkt</source>
        <translation>Point</translation>
    </message>
    <message>
        <source>Breite</source>
        <translation>Latitude</translation>
    </message>
    <message>
        <source>Länge</source>
        <translation>Longitude</translation>
    </message>
    <message>
        <source>Zeit</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Bezeichnung</source>
        <translation>Label</translation>
    </message>
    <message>
        <source>Erster Teil</source>
        <translation>First part</translation>
    </message>
    <message>
        <source>Zweiter Teil</source>
        <translation>Second part</translation>
    </message>
    <message>
        <source>Kein Punkt gewählt</source>
        <translation>No point selected</translation>
    </message>
    <message>
        <source> Punkte gewählt</source>
        <translation> points selected</translation>
    </message>
</context>
<context>
    <name>trackloom::TimelineMap</name>
    <message>
        <source>Klicken wählt einen Punkt, mit Strg weitere; mit Umschalt ein Rechteck aufziehen; gewählte Punkte lassen sich ziehen.</source>
        <translation>Click selects a point, with Ctrl more; drag a rectangle with Shift; selected points can be dragged.</translation>
    </message>
</context>
<context>
    <name>trackloom::TimelineModel</name>
    <message>
        <source>Neue Position gewählt. Mit „Änderung übernehmen“ speichern.</source>
        <translation>New position chosen. Save it with “Apply change”.</translation>
    </message>
    <message>
        <source>Bitte genau einen Punkt auswählen.</source>
        <translation>Please select exactly one point.</translation>
    </message>
    <message>
        <source>Bitte gültige Koordinaten eingeben.</source>
        <translation>Please enter valid coordinates.</translation>
    </message>
    <message>
        <source>Punkt ändern</source>
        <translation>Change point</translation>
    </message>
    <message>
        <source>Punkt geändert. Die Originaldatei bleibt unverändert.</source>
        <translation>Point changed. The original file stays unchanged.</translation>
    </message>
    <message>
        <source>Punkt verschieben</source>
        <translation>Move point</translation>
    </message>
    <message>
        <source>Punkte löschen</source>
        <translation>Delete points</translation>
    </message>
    <message>
        <source> Punkt(e) gelöscht · Rückgängig ist möglich.</source>
        <translation> point(s) deleted · Undo is possible.</translation>
    </message>
    <message>
        <source>Abschnitt teilen</source>
        <translation>Split section</translation>
    </message>
    <message>
        <source>Abschnitt geteilt. Der Grenzpunkt bleibt in beiden Teilen erhalten.</source>
        <translation>Section split. The boundary point stays in both parts.</translation>
    </message>
    <message>
        <source>Rückgängig gemacht: </source>
        <translation>Undone: </translation>
    </message>
    <message>
        <source>Wiederhergestellt: </source>
        <translation>Redone: </translation>
    </message>
    <message>
        <source>Unbekannte Zeitzone: </source>
        <translation>Unknown time zone: </translation>
    </message>
    <message>
        <source>Bitte warten, bis die laufende Arbeit beendet ist.</source>
        <translation>Please wait until the current work has finished.</translation>
    </message>
    <message>
        <source>Tage werden für </source>
        <translation>Reassigning the days to </translation>
    </message>
    <message>
        <source> neu zugeordnet …</source>
        <translation> …</translation>
    </message>
    <message>
        <source>Zeitzone geändert. Punkte und Rückgängig-Verlauf bleiben erhalten.</source>
        <translation>Time zone changed. Points and undo history are kept.</translation>
    </message>
    <message>
        <source>GPX-Dateien (*.gpx)</source>
        <translation>GPX files (*.gpx)</translation>
    </message>
    <message>
        <source>Arbeitskopien (*.gpxhistory)</source>
        <translation>Working copies (*.gpxhistory)</translation>
    </message>
    <message>
        <source>Speichern fehlgeschlagen.</source>
        <translation>Saving failed.</translation>
    </message>
    <message>
        <source>Bitte zuerst einen Tag oder Zeitraum anzeigen.</source>
        <translation>Please show a day or a range first.</translation>
    </message>
    <message>
        <source>Auswahl als GPX exportieren</source>
        <translation>Export selection as GPX</translation>
    </message>
    <message>
        <source>Auswahl exportiert: </source>
        <translation>Selection exported: </translation>
    </message>
    <message>
        <source>Bitte Punkte eines einzigen Abschnitts auswählen.</source>
        <translation>Please select points of a single section.</translation>
    </message>
    <message>
        <source>Abschnitt als GPX exportieren</source>
        <translation>Export section as GPX</translation>
    </message>
    <message>
        <source>-Abschnitt</source>
        <translation>-section</translation>
    </message>
    <message>
        <source>Gesamte Arbeitskopie sichern</source>
        <translation>Save the whole working copy</translation>
    </message>
    <message>
        <source>Zeitachse-Arbeitskopie</source>
        <translation>Timeline-working-copy</translation>
    </message>
    <message>
        <source>Arbeitskopie wird gespeichert …</source>
        <translation>Saving the working copy …</translation>
    </message>
    <message>
        <source>Arbeitskopie gespeichert: </source>
        <translation>Working copy saved: </translation>
    </message>
    <message>
        <source>Die Auswahl enthält keine Punkte.</source>
        <translation>The selection contains no points.</translation>
    </message>
    <message>
        <source>Auswahl als neue Arbeitskopie sichern</source>
        <translation>Save selection as a new working copy</translation>
    </message>
    <message>
        <source>-Arbeitskopie</source>
        <translation>-working-copy</translation>
    </message>
    <message>
        <source>Auswahl gespeichert: </source>
        <translation>Selection saved: </translation>
    </message>
    <message>
        <source>Auswahl an den Track-Editor übergeben.</source>
        <translation>Selection handed to the track editor.</translation>
    </message>
    <message>
        <source>Punkte für die Ortssuche werden vorbereitet …</source>
        <translation>Preparing the points for the place search …</translation>
    </message>
    <message>
        <source>Ortssuche geöffnet: </source>
        <translation>Place search opened: </translation>
    </message>
    <message>
        <source>JSON-Zeitachse öffnen oder hierher ziehen.</source>
        <translation>Open a JSON timeline or drag it here.</translation>
    </message>
    <message>
        <source>Hinweg</source>
        <translation>Outbound</translation>
    </message>
    <message>
        <source>Rückweg</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>Gesamter Verlauf</source>
        <translation>Whole history</translation>
    </message>
    <message>
        <source> (Ende ausschließlich)</source>
        <translation> (end excluded)</translation>
    </message>
    <message>
        <source>Zeitachse</source>
        <translation>Timeline</translation>
    </message>
    <message>
        <source>Ungesicherte Änderungen</source>
        <translation>Unsaved changes</translation>
    </message>
    <message>
        <source>Es gibt Änderungen, die noch nicht als Arbeitskopie gesichert wurden. Exporte einer Auswahl enthalten nur den jeweiligen Ausschnitt. Zum Sichern zuerst abbrechen und „Arbeitskopie sichern“ wählen.</source>
        <translation>There are changes that have not been saved as a working copy yet. Exports of a selection contain only that part. To keep them, cancel first and choose “Save working copy”.</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Änderungen verwerfen</source>
        <translation>Discard changes</translation>
    </message>
    <message>
        <source>Google-Zeitachse oder Arbeitskopie öffnen</source>
        <translation>Open Google timeline or working copy</translation>
    </message>
    <message>
        <source>Zeitachsen (*.json *.gpxhistory)</source>
        <translation>Timelines (*.json *.gpxhistory)</translation>
    </message>
    <message>
        <source>Alle Dateien (*)</source>
        <translation>All files (*)</translation>
    </message>
    <message>
        <source>Die Datei ist größer als 250 MB.</source>
        <translation>The file is larger than 250 MB.</translation>
    </message>
    <message>
        <source>Import fehlgeschlagen.</source>
        <translation>Import failed.</translation>
    </message>
    <message>
        <source>Zeitachse wird im Hintergrund eingelesen …</source>
        <translation>Reading the timeline in the background …</translation>
    </message>
    <message>
        <source> Punkte · </source>
        <translation> points · </translation>
    </message>
    <message>
        <source> Tage</source>
        <translation> days</translation>
    </message>
    <message>
        <source> Einträge ohne Standort übersprungen</source>
        <translation> entries without a location skipped</translation>
    </message>
    <message>
        <source> ungültige Werte übersprungen</source>
        <translation> invalid values skipped</translation>
    </message>
    <message>
        <source>Für diesen Tag sind keine Daten gespeichert.</source>
        <translation>No data is stored for this day.</translation>
    </message>
    <message>
        <source> Punkte am gewählten Tag.</source>
        <translation> points on the chosen day.</translation>
    </message>
    <message>
        <source>Das Ende muss nach dem Beginn liegen.</source>
        <translation>The end must lie after the start.</translation>
    </message>
    <message>
        <source>Zeitraum angezeigt · </source>
        <translation>Range shown · </translation>
    </message>
    <message>
        <source> Punkte · Original unverändert.</source>
        <translation> points · Original unchanged.</translation>
    </message>
    <message>
        <source>Der Zeitraum wurde geändert. Bitte zuerst „Anzeigen“ wählen, damit Karte und Export dieselbe Auswahl verwenden.</source>
        <translation>The range was changed. Please choose “Show” first, so that the map and the export use the same selection.</translation>
    </message>
    <message>
        <source>Import abgebrochen. Die bisherige Zeitachse bleibt erhalten.</source>
        <translation>Import cancelled. The previous timeline is kept.</translation>
    </message>
    <message>
        <source>Neue Zuordnung abgebrochen. Die Tage bleiben in der bisherigen Zeitzone.</source>
        <translation>Reassignment cancelled. The days stay in the previous time zone.</translation>
    </message>
</context>
<context>
    <name>trackloom::TimelinePointTable</name>
    <message>
        <source>Zeit</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Art</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>Breite</source>
        <translation>Latitude</translation>
    </message>
    <message>
        <source>Länge</source>
        <translation>Longitude</translation>
    </message>
    <message>
        <source>Bezeichnung</source>
        <translation>Label</translation>
    </message>
    <message>
        <source>Ende</source>
        <translation>End</translation>
    </message>
</context>
<context>
    <name>trackloom::TimelineScopeBar</name>
    <message>
        <source>Einen Tag zurück</source>
        <translation>One day back</translation>
    </message>
    <message>
        <source>Einen Tag vor</source>
        <translation>One day forward</translation>
    </message>
    <message>
        <source>Grobe Fahrt</source>
        <translation>Coarse trip</translation>
    </message>
    <message>
        <source>Aufenthalte</source>
        <translation>Visits</translation>
    </message>
    <message>
        <source>Ganze Tage</source>
        <translation>Whole days</translation>
    </message>
    <message>
        <source>Anzeigen</source>
        <translation>Show</translation>
    </message>
    <message>
        <source>Tag im Kalender wählen</source>
        <translation>Choose a day in the calendar</translation>
    </message>
    <message>
        <source>Grün: Tage mit Daten</source>
        <translation>Green: days with data</translation>
    </message>
    <message>
        <source>Übernehmen</source>
        <translation>Apply</translation>
    </message>
    <message>
        <source>Zeitraum</source>
        <translation>Range</translation>
    </message>
    <message>
        <source>Start- und Endpunkte grober Fahrten zeigen</source>
        <translation>Show start and end points of coarse trips</translation>
    </message>
    <message>
        <source>Zeitzone, in der die Tage gezählt werden</source>
        <translation>Time zone in which the days are counted</translation>
    </message>
    <message>
        <source>Von</source>
        <translation>From</translation>
    </message>
    <message>
        <source>bis</source>
        <translation>to</translation>
    </message>
    <message>
        <source>dd.MM.yyyy</source>
        <translation>yyyy-MM-dd</translation>
    </message>
    <message>
        <source>dd.MM.yyyy HH:mm</source>
        <translation>yyyy-MM-dd HH:mm</translation>
    </message>
</context>
<context>
    <name>trackloom::TimelineWorkspace</name>
    <message>
        <source>Zeitachse</source>
        <translation>Timeline</translation>
    </message>
    <message>
        <source>Zeitachsen (*.json *.gpxhistory)</source>
        <translation>Timelines (*.json *.gpxhistory)</translation>
    </message>
    <message>
        <source>Ungesicherte Änderungen</source>
        <translation>Unsaved changes</translation>
    </message>
    <message>
        <source>Es gibt Änderungen, die noch nicht als Arbeitskopie gesichert wurden. Exporte einer Auswahl enthalten nur den jeweiligen Ausschnitt. Zum Sichern zuerst abbrechen und „Arbeitskopie sichern“ wählen.</source>
        <translation>There are changes that have not been saved as a working copy yet. Exports of a selection contain only that part. To keep them, cancel first and choose “Save working copy”.</translation>
    </message>
</context>
<context>
    <name>trackloom::WaypointListView</name>
    <message>
        <source>Diese Datei enthält keine Wegpunkte.</source>
        <translation>This file has no waypoints.</translation>
    </message>
</context>
<context>
    <name>trackloom::WaypointTableModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Zeit</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Höhe</source>
        <translation>Elevation</translation>
    </message>
    <message>
        <source>Koordinaten</source>
        <translation>Coordinates</translation>
    </message>
</context>
<context>
    <name>trackloom::WelcomeView</name>
    <message>
        <source>GPX-Tracks bearbeiten, die Google-Zeitachse durchsehen und Orte wiederfinden – alles bleibt auf diesem Rechner. Dateien zum Öffnen hierher ziehen oder mit „Datei → Öffnen …“ wählen.</source>
        <translation>Edit GPX tracks, browse the Google timeline and find places again – everything stays on this computer. Drag files here to open them or choose them with “File → Open …”.</translation>
    </message>
</context>
<context>
    <name>trackloom::core</name>
    <message>
        <source>Wähle einen Punkt innerhalb eines Abschnitts, nicht dessen Start oder Ende.</source>
        <translation>Choose a point inside a section, not its start or end.</translation>
    </message>
    <message>
        <source>Bitte gib beiden Abschnitten einen Namen.</source>
        <translation>Please give both sections a name.</translation>
    </message>
    <message>
        <source>Der ausgewählte Punkt wurde nicht gefunden.</source>
        <translation>The selected point was not found.</translation>
    </message>
    <message>
        <source>Dieser Punkt lässt sich nicht als Anfang setzen.</source>
        <translation>This point cannot be made the start.</translation>
    </message>
    <message>
        <source>Vor diesem Punkt liegt nichts mehr.</source>
        <translation>Nothing lies before this point.</translation>
    </message>
    <message>
        <source>Dieser Punkt lässt sich nicht als Ende setzen.</source>
        <translation>This point cannot be made the end.</translation>
    </message>
    <message>
        <source>Nach diesem Punkt liegt nichts mehr.</source>
        <translation>Nothing lies after this point.</translation>
    </message>
    <message>
        <source>Es ist kein Punkt ausgewählt.</source>
        <translation>No point is selected.</translation>
    </message>
    <message>
        <source>Punkte einer Luftlinien-Route lassen sich nicht bearbeiten.</source>
        <translation>Points of a straight-line route cannot be edited.</translation>
    </message>
    <message>
        <source>Mindestens zwei Punkte müssen erhalten bleiben.</source>
        <translation>At least two points must remain.</translation>
    </message>
    <message>
        <source>Dieser Punkt lässt sich nicht verschieben.</source>
        <translation>This point cannot be moved.</translation>
    </message>
    <message>
        <source>Die neue Position ist ungültig.</source>
        <translation>The new position is invalid.</translation>
    </message>
    <message>
        <source>Wähle einen Punkt, auf den im selben Abschnitt noch ein Punkt folgt. Am Ende eines Abschnitts lässt sich nichts einfügen; verbinde vorher die Abschnitte.</source>
        <translation>Choose a point that another point of the same section follows. Nothing can be inserted at the end of a section; join the sections first.</translation>
    </message>
    <message>
        <source>Es wurden keine Punkte gesetzt.</source>
        <translation>No points were set.</translation>
    </message>
    <message>
        <source>Mindestens ein gesetzter Punkt ist ungültig.</source>
        <translation>At least one of the set points is invalid.</translation>
    </message>
    <message>
        <source>Der Punkt konnte nicht gefunden werden.</source>
        <translation>The point could not be found.</translation>
    </message>
    <message>
        <source>Die Zeiten konnten nicht übernommen werden.</source>
        <translation>The times could not be applied.</translation>
    </message>
    <message>
        <source>Die erzeugten Zeiten konnten nicht vollständig übernommen werden.</source>
        <translation>The generated times could not be applied completely.</translation>
    </message>
    <message>
        <source>Die Punktanzahl stimmt nicht mit den erzeugten Zeiten überein.</source>
        <translation>The number of points does not match the generated times.</translation>
    </message>
    <message>
        <source>Bitte wähle einen Streckenpunkt aus.</source>
        <translation>Please select a path point.</translation>
    </message>
    <message>
        <source>Die Tracks konnten nicht zusammengeführt werden.</source>
        <translation>The tracks could not be combined.</translation>
    </message>
    <message>
        <source>Zum Anhängen müssen beide Dateien dieselbe GPX-Version verwenden (1.0 oder 1.1).</source>
        <translation>To append, both files must use the same GPX version (1.0 or 1.1).</translation>
    </message>
    <message>
        <source>Der Track enthält keine gültigen Zeitstempel. Erzeuge zuerst Zeitstempel.</source>
        <translation>The track has no valid timestamps. Generate timestamps first.</translation>
    </message>
    <message>
        <source>Die Datei enthält ungültige Zeitstempel. Bitte korrigiere diese vor dem Verschieben.</source>
        <translation>The file contains invalid timestamps. Please correct them before shifting.</translation>
    </message>
    <message>
        <source>Das Datum muss zwischen den Jahren 1 und 9999 liegen.</source>
        <translation>The date must lie between the years 1 and 9999.</translation>
    </message>
    <message>
        <source>Bitte gib eine Geschwindigkeit größer als 0 und höchstens 1.000 km/h ein.</source>
        <translation>Please enter a speed above 0 and at most 1,000 km/h.</translation>
    </message>
    <message>
        <source>Start und Ende müssen zwischen den Jahren 1 und 9999 liegen.</source>
        <translation>Start and end must lie between the years 1 and 9999.</translation>
    </message>
    <message>
        <source>Die Endzeit muss nach der Startzeit liegen. Für eine Fahrt über Mitternacht wähle auch das passende Enddatum.</source>
        <translation>The end time must lie after the start time. For a trip past midnight, choose the matching end date too.</translation>
    </message>
    <message>
        <source>Für Start und Ende wird ein Track mit mindestens zwei Punkten und einer Strecke größer als 0 m benötigt.</source>
        <translation>Start and end need a track with at least two points and a distance above 0 m.</translation>
    </message>
    <message>
        <source>Der Track besteht nur aus einem Abschnitt.</source>
        <translation>The track has only one section.</translation>
    </message>
    <message>
        <source>Bitte prüfe Koordinaten, Datum und Ende des Aufenthalts.</source>
        <translation>Please check the coordinates, the date and the end of the visit.</translation>
    </message>
    <message>
        <source>Wähle einen Streckenpunkt innerhalb eines Abschnitts, nicht dessen Start oder Ende.</source>
        <translation>Choose a path point inside a section, not its start or end.</translation>
    </message>
    <message>
        <source>Ungültiger Tag.</source>
        <translation>Invalid day.</translation>
    </message>
    <message>
        <source>Für diese Auswahl gibt es keine Punkte zum Exportieren.</source>
        <translation>This selection has no points to export.</translation>
    </message>
    <message>
        <source>Ungültige Standortpunkte oder Zeitangaben.</source>
        <translation>Invalid location points or times.</translation>
    </message>
    <message>
        <source>Der Standortverlauf ist größer als 250 MB.</source>
        <translation>The location history is larger than 250 MB.</translation>
    </message>
    <message>
        <source>Diese Arbeitskopie benötigt eine neuere App-Version.</source>
        <translation>This working copy needs a newer version of the app.</translation>
    </message>
    <message>
        <source>Keine auswertbaren Standortpunkte gefunden.</source>
        <translation>No usable location points found.</translation>
    </message>
    <message>
        <source>Dieses JSON ist kein unterstützter Google-Zeitachsenexport. Erwartet wird eine Liste mit startTime, visit, activity oder timelinePath.</source>
        <translation>This JSON is not a supported Google timeline export. Expected is a list with startTime, visit, activity or timelinePath.</translation>
    </message>
    <message>
        <source>Aufenthalt</source>
        <translation>Visit</translation>
    </message>
    <message>
        <source>Aufenthalt bis </source>
        <translation>Visit until </translation>
    </message>
    <message>
        <source>; für den ausgewählten Tag begrenzt.</source>
        <translation>; limited to the selected day.</translation>
    </message>
    <message>
        <source>Grobe Fahrt – nur gespeicherte Endpunkte</source>
        <translation>Coarse trip – stored end points only</translation>
    </message>
    <message>
        <source>Keine aufgezeichnete Wegstrecke; Google hat nur Start und Ziel gespeichert.</source>
        <translation>No recorded path; Google stored only the start and the destination.</translation>
    </message>
    <message>
        <source>Google-Zeitachse </source>
        <translation>Google timeline </translation>
    </message>
    <message>
        <source>Streckenpunkt</source>
        <translation>Path point</translation>
    </message>
    <message>
        <source>Grobe Fahrt</source>
        <translation>Coarse trip</translation>
    </message>
    <message>
        <source>Fahrt</source>
        <translation>Trip</translation>
    </message>
    <message>
        <source>Die Datei konnte nicht gelesen werden: </source>
        <translation>The file could not be read: </translation>
    </message>
    <message>
        <source>Die Datei konnte nicht geschrieben werden: </source>
        <translation>The file could not be written: </translation>
    </message>
    <message>
        <source>Die Originaldatei darf nicht überschrieben werden. Bitte wähle eine andere Datei.</source>
        <translation>The original file must not be overwritten. Please choose another file.</translation>
    </message>
    <message>
        <source>Die GPX-Datei konnte nicht kopiert werden.</source>
        <translation>The GPX file could not be copied.</translation>
    </message>
    <message>
        <source>Ungültiger Zeitstempel</source>
        <translation>Invalid timestamp</translation>
    </message>
    <message>
        <source>Zeitstempel fehlt</source>
        <translation>Timestamp missing</translation>
    </message>
    <message>
        <source>Zeit läuft rückwärts</source>
        <translation>Time runs backwards</translation>
    </message>
    <message>
        <source>Identische Zeitstempel</source>
        <translation>Identical timestamps</translation>
    </message>
    <message>
        <source>GPX-Dateien mit einer DTD werden nicht unterstützt.</source>
        <translation>GPX files with a DTD are not supported.</translation>
    </message>
    <message>
        <source>Die Datei enthält kein lesbares GPX-XML: </source>
        <translation>The file contains no readable GPX XML: </translation>
    </message>
    <message>
        <source>Punkt </source>
        <translation>Point </translation>
    </message>
    <message>
        <source> hat ungültige Koordinaten.</source>
        <translation> has invalid coordinates.</translation>
    </message>
    <message>
        <source> enthält mehrere Zeitstempel.</source>
        <translation> has more than one timestamp.</translation>
    </message>
    <message>
        <source>Die GPX-Datei enthält keine Track- oder Routenpunkte. Einzelne Wegpunkte reichen nicht aus.</source>
        <translation>The GPX file contains no track or route points. Waypoints alone are not enough.</translation>
    </message>
    <message>
        <source>Die Datei ist größer als 50 MB. Bitte teile den Track vor dem Import auf.</source>
        <translation>The file is larger than 50 MB. Please split the track before importing it.</translation>
    </message>
    <message>
        <source>Die Datei ist keine GPX-Datei. Das gpx-Wurzelelement fehlt.</source>
        <translation>The file is not a GPX file. The gpx root element is missing.</translation>
    </message>
    <message>
        <source>Der GPX-Namensraum dieser Datei wird nicht unterstützt.</source>
        <translation>The GPX namespace of this file is not supported.</translation>
    </message>
    <message>
        <source>Beispielrunde</source>
        <translation>Sample loop</translation>
    </message>
    <message>
        <source>Synthetischer Track zum Ausprobieren, keine echte Aufzeichnung.</source>
        <translation>Synthetic track to try things out, not a real recording.</translation>
    </message>
    <message>
        <source>Kein Abschnitt ausgewählt.</source>
        <translation>No section selected.</translation>
    </message>
</context>
</TS>
