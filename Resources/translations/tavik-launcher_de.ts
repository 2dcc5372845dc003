<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Tavik::Texts</name>
    <message>
        <source>Launch at login could not be changed from this build.</source>
        <translation>Der Start bei der Anmeldung konnte mit dieser Version nicht geändert werden.</translation>
    </message>
    <message>
        <source>Enable Tavik Launcher in System Settings &gt; Login Items to finish setup.</source>
        <translation>Aktivieren Sie Tavik Launcher in den Systemeinstellungen &gt; Anmeldeobjekte, um die Einrichtung abzuschließen.</translation>
    </message>
    <message>
        <source>Some features are off by default — explore Settings to enable more.</source>
        <translation>Manches ist zunächst ausgeschaltet – in den Einstellungen gibt es mehr.</translation>
    </message>
    <message>
        <source>Type any letters to filter the ring by app name.</source>
        <translation>Tippen Sie Buchstaben, um den Ring nach App-Namen zu filtern.</translation>
    </message>
    <message>
        <source>Double-tap your shortcut to pin the ring open.</source>
        <translation>Drücken Sie Ihr Tastenkürzel doppelt, um den Ring offen zu halten.</translation>
    </message>
    <message>
        <source>Arrow keys rotate the selection — press Return to launch.</source>
        <translation>Die Pfeiltasten drehen die Auswahl – die Eingabetaste startet.</translation>
    </message>
    <message>
        <source>Press 1–9 to launch that slot instantly.</source>
        <translation>Drücken Sie 1–9, um diesen Platz sofort zu starten.</translation>
    </message>
    <message>
        <source>Keep favorites on the ring: Settings → Permanent Apps.</source>
        <translation>Favoriten auf dem Ring behalten: Einstellungen → Feste Apps.</translation>
    </message>
    <message>
        <source>Fill empty slots with recent apps — toggle it in Settings.</source>
        <translation>Freie Plätze mit zuletzt benutzten Apps füllen – in den Einstellungen.</translation>
    </message>
    <message>
        <source>Turn on &quot;Search All Apps&quot; in Settings to find apps beyond the ring.</source>
        <translation>„Alle Anwendungen durchsuchen“ findet Apps jenseits des Rings.</translation>
    </message>
    <message>
        <source>Make the ring yours — size, colors, and themes live in Settings.</source>
        <translation>Machen Sie den Ring zu Ihrem – mit Größe, Farben und Themen.</translation>
    </message>
    <message>
        <source>A dot inside the menu-bar wheel means an update is ready.</source>
        <translation>Ein Punkt im Rad der Menüleiste zeigt, dass ein Update bereit ist.</translation>
    </message>
    <message>
        <source>Helpful hints will appear here every %1 launches. Adjust or turn them off in Settings.</source>
        <translation>Alle %1 Aufrufe erscheint hier ein Hinweis. In den Einstellungen änderbar.</translation>
    </message>
    <message>
        <source>Settings imported from %1.</source>
        <translation>Einstellungen aus %1 importiert.</translation>
    </message>
    <message>
        <source>Imported %1 — 1 pinned app restored, %2 not installed on this Mac.</source>
        <translation>%1 importiert – 1 feste App wiederhergestellt, %2 auf diesem Computer nicht installiert.</translation>
    </message>
    <message numerus="yes">
        <source>Imported %1 — %n pinned apps restored, %2 not installed on this Mac.</source>
        <translation>
            <numerusform>%1 importiert – %n feste App wiederhergestellt, %2 auf diesem Computer nicht installiert.</numerusform>
            <numerusform>%1 importiert – %n feste Apps wiederhergestellt, %2 auf diesem Computer nicht installiert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Couldn&apos;t import %1 — is it a valid Tavik settings file?</source>
        <translation>%1 konnte nicht importiert werden – ist es eine gültige Einstellungsdatei von Tavik?</translation>
    </message>
    <message>
        <source>Couldn&apos;t export: %1</source>
        <translation>Export nicht möglich: %1</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>to select all</source>
        <translation>zum Auswählen von allem</translation>
    </message>
    <message>
        <source>to copy</source>
        <translation>zum Kopieren</translation>
    </message>
    <message>
        <source>to find</source>
        <translation>zum Suchen</translation>
    </message>
    <message>
        <source>to save</source>
        <translation>zum Speichern</translation>
    </message>
    <message>
        <source>to paste</source>
        <translation>zum Einfügen</translation>
    </message>
    <message>
        <source>to cut</source>
        <translation>zum Ausschneiden</translation>
    </message>
    <message>
        <source>to undo</source>
        <translation>zum Rückgängigmachen</translation>
    </message>
    <message>
        <source>to redo</source>
        <translation>zum Wiederherstellen</translation>
    </message>
    <message>
        <source>to close a window</source>
        <translation>zum Schließen eines Fensters</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Hold %1 to show the ring, let go to dismiss it</source>
        <translation>%1 halten zeigt den Ring, loslassen schließt ihn</translation>
    </message>
    <message>
        <source>Press %1 to show or dismiss the ring</source>
        <translation>%1 drücken zeigt oder schließt den Ring</translation>
    </message>
    <message>
        <source>%1 types a character. As the shortcut of the ring it could not be typed in any program any more.</source>
        <translation>%1 schreibt ein Zeichen. Als Tastenkürzel des Rings könnte es in keinem Programm mehr getippt werden.</translation>
    </message>
    <message>
        <source>Programs use %1 themselves%2. As the shortcut of the ring it would not reach any of them any more.</source>
        <translation>Programme verwenden %1 selbst%2. Als Tastenkürzel des Rings würde es keines von ihnen mehr erreichen.</translation>
    </message>
    <message>
        <source>Shortcuts of the desktop that begin with %1 go on working.</source>
        <translation>Tastenkürzel der Arbeitsumgebung, die mit %1 beginnen, funktionieren weiter.</translation>
    </message>
    <message>
        <source>Shortcuts that the desktop or another program has taken stay theirs.</source>
        <translation>Tastenkürzel, die die Arbeitsumgebung oder ein anderes Programm belegt hat, bleiben bei diesen.</translation>
    </message>
    <message>
        <source>AltGr only chooses which character a key types and cannot be part of a shortcut. Try one without it.</source>
        <translation>AltGr wählt nur, welches Zeichen eine Taste schreibt, und kann nicht zu einem Tastenkürzel gehören. Versuchen Sie eines ohne AltGr.</translation>
    </message>
    <message>
        <source>Allow Accessibility Access</source>
        <translation>Zugriff auf Bedienungshilfen erlauben</translation>
    </message>
    <message>
        <source>Welcome to Tavik Launcher</source>
        <translation>Willkommen bei Tavik Launcher</translation>
    </message>
    <message>
        <source>Reindex Apps</source>
        <translation>Apps neu erfassen</translation>
    </message>
    <message>
        <source>Tavik Launcher Settings</source>
        <translation>Einstellungen von Tavik Launcher</translation>
    </message>
    <message>
        <source>This build is not updated by itself.</source>
        <translation>Diese Version aktualisiert sich nicht selbst.</translation>
    </message>
    <message>
        <source>There is no update to install.</source>
        <translation>Es gibt kein Update zu installieren.</translation>
    </message>
    <message>
        <source>%1 cannot be had.</source>
        <translation>%1 ist nicht zu haben.</translation>
    </message>
    <message>
        <source>Another application may use it, or the keyboard has changed. Choose another shortcut in the settings.</source>
        <translation>Eine andere Anwendung benutzt das Tastenkürzel vielleicht, oder die Tastatur hat sich geändert. Wählen Sie in den Einstellungen ein anderes.</translation>
    </message>
    <message>
        <source>A shortcut needs at least one modifier key.</source>
        <translation>Ein Tastenkürzel braucht mindestens eine Sondertaste.</translation>
    </message>
    <message>
        <source>This keyboard does not have all the keys of %1.</source>
        <translation>Diese Tastatur hat nicht alle Tasten von %1.</translation>
    </message>
    <message>
        <source>This desktop gives programs no shortcut of modifiers alone. Add a key: %1, say.</source>
        <translation>Diese Arbeitsumgebung gibt Programmen kein Tastenkürzel aus Sondertasten allein. Nehmen Sie eine Taste dazu, etwa %1.</translation>
    </message>
    <message>
        <source>%1 is already used by another application.</source>
        <translation>%1 wird schon von einer anderen Anwendung benutzt.</translation>
    </message>
    <message>
        <source>Type to filter…</source>
        <translation>Filtern …</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>running</source>
        <translation>läuft</translation>
    </message>
    <message>
        <source>starting</source>
        <translation>startet</translation>
    </message>
    <message>
        <source>Type to filter...</source>
        <translation>Filtern …</translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>Angeheftet</translation>
    </message>
    <message>
        <source>Search mode</source>
        <translation>Suchmodus</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Keine Treffer</translation>
    </message>
    <message>
        <source>Nothing here yet. Click to add apps in Settings → Permanent Apps.</source>
        <translation>Noch nichts hier. Mit einem Klick zu Einstellungen → Feste Apps.</translation>
    </message>
    <message>
        <source>Windows, drawing, system services</source>
        <translation>Fenster, Zeichnen, Systemdienste</translation>
    </message>
    <message>
        <source>Desktop entries, starting applications</source>
        <translation>Desktop-Einträge, Starten von Anwendungen</translation>
    </message>
    <message>
        <source>X11 and Wayland sessions, and their keyboards</source>
        <translation>X11- und Wayland-Sitzungen und ihre Tastaturen</translation>
    </message>
    <message>
        <source>Property lists</source>
        <translation>Property-Listen</translation>
    </message>
    <message>
        <source>Signatures of updates</source>
        <translation>Signaturen von Updates</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Free software under the MIT license</source>
        <translation>Freie Software unter der MIT-Lizenz</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>A fast radial launcher centered wherever your pointer is.</source>
        <translation>Ein schneller runder Starter, mittig dort, wo Ihr Zeiger ist.</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Welcome tour</source>
        <translation>Rundgang</translation>
    </message>
    <message>
        <source>The ring in four short steps</source>
        <translation>Der Ring in vier kurzen Schritten</translation>
    </message>
    <message>
        <source>Repeat Tour</source>
        <translation>Rundgang wiederholen</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Unterstützung</translation>
    </message>
    <message>
        <source>Questions, ideas and faults</source>
        <translation>Fragen, Ideen und Fehler</translation>
    </message>
    <message>
        <source>Open Support Page</source>
        <translation>Hilfeseite öffnen</translation>
    </message>
    <message>
        <source>Built with</source>
        <translation>Gebaut mit</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>Size and content of the ring. Every change shows at once in the ring beside this window.</source>
        <translation>Größe und Inhalt des Rings. Jede Änderung zeigt sich sofort im Ring neben diesem Fenster.</translation>
    </message>
    <message>
        <source>Ring</source>
        <translation>Ring</translation>
    </message>
    <message>
        <source>Diameter</source>
        <translation>Durchmesser</translation>
    </message>
    <message>
        <source>The ring&apos;s outer size</source>
        <translation>Die äußere Größe des Rings</translation>
    </message>
    <message>
        <source>Thickness</source>
        <translation>Dicke</translation>
    </message>
    <message>
        <source>Width of the band</source>
        <translation>Breite des Bands</translation>
    </message>
    <message>
        <source>Icon size</source>
        <translation>Symbolgröße</translation>
    </message>
    <message>
        <source>Limited by thickness</source>
        <translation>Begrenzt durch die Dicke</translation>
    </message>
    <message>
        <source>Maximum applications</source>
        <translation>Höchstzahl der Apps</translation>
    </message>
    <message>
        <source>Slots around the ring</source>
        <translation>Plätze rund um den Ring</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>Show application names</source>
        <translation>App-Namen anzeigen</translation>
    </message>
    <message>
        <source>The selected application&apos;s name in the center</source>
        <translation>Der Name der gewählten App in der Mitte</translation>
    </message>
    <message>
        <source>Keep the center hint visible</source>
        <translation>Hinweis in der Mitte behalten</translation>
    </message>
    <message>
        <source>Hints from the rotation are then not shown</source>
        <translation>Wechselnde Hinweise erscheinen dann nicht</translation>
    </message>
    <message>
        <source>Reset Layout</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Restore size, thickness, icon size and number of slots.</source>
        <translation>Größe, Dicke, Symbolgröße und Zahl der Plätze zurücksetzen.</translation>
    </message>
    <message>
        <source>%1, not installed</source>
        <translation>%1, nicht installiert</translation>
    </message>
    <message>
        <source>Not installed — %1</source>
        <translation>Nicht installiert – %1</translation>
    </message>
    <message>
        <source>Already on the ring</source>
        <translation>Schon auf dem Ring</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Sicherung</translation>
    </message>
    <message>
        <source>Keep your settings in a file, or carry them to another machine.</source>
        <translation>Bewahren Sie Ihre Einstellungen in einer Datei auf, oder nehmen Sie sie auf einen anderen Rechner mit.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Write all settings to a file</source>
        <translation>Alle Einstellungen in eine Datei schreiben</translation>
    </message>
    <message>
        <source>Export Settings…</source>
        <translation>Exportieren …</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Take over the settings of a file</source>
        <translation>Die Einstellungen einer Datei übernehmen</translation>
    </message>
    <message>
        <source>Settings that the file does not mention stay as they are.</source>
        <translation>Einstellungen, die die Datei nicht nennt, bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>Import Settings…</source>
        <translation>Importieren …</translation>
    </message>
    <message>
        <source>Undo Import</source>
        <translation>Import rückgängig machen</translation>
    </message>
    <message>
        <source>Go back to the settings before the import; possible until this window closes.</source>
        <translation>Zurück zu den Einstellungen vor dem Import; möglich, bis dieses Fenster geschlossen wird.</translation>
    </message>
    <message>
        <source>Export Tavik Launcher Settings</source>
        <translation>Einstellungen von Tavik Launcher exportieren</translation>
    </message>
    <message>
        <source>Settings (*.json)</source>
        <translation>Einstellungen (*.json)</translation>
    </message>
    <message>
        <source>Settings exported to %1.</source>
        <translation>Einstellungen nach %1 exportiert.</translation>
    </message>
    <message>
        <source>Import Tavik Launcher Settings</source>
        <translation>Einstellungen von Tavik Launcher importieren</translation>
    </message>
    <message>
        <source>Settings (*.json);;All files (*)</source>
        <translation>Einstellungen (*.json);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>The import was undone.</source>
        <translation>Der Import wurde rückgängig gemacht.</translation>
    </message>
    <message>
        <source>%1: choose a color</source>
        <translation>%1: Farbe wählen</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Start Tavik Launcher quietly when you log in</source>
        <translation>Tavik Launcher beim Anmelden still starten</translation>
    </message>
    <message>
        <source>The ring is then ready as soon as you are.</source>
        <translation>Der Ring ist dann so früh bereit wie Sie.</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>How the launcher starts and what the ring offers.</source>
        <translation>Wie der Launcher startet und was der Ring bietet.</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <translation>Im Dock anzeigen</translation>
    </message>
    <message>
        <source>Windows of the launcher appear in the taskbar</source>
        <translation>Fenster des Launchers erscheinen in der Fensterleiste</translation>
    </message>
    <message>
        <source>The ring itself is never listed there.</source>
        <translation>Der Ring selbst steht dort nie.</translation>
    </message>
    <message>
        <source>Double-tap pins the ring</source>
        <translation>Doppeltippen heftet den Ring an</translation>
    </message>
    <message>
        <source>Tap a held shortcut twice and the ring stays open</source>
        <translation>Ein gehaltenes Kürzel doppelt getippt hält den Ring offen</translation>
    </message>
    <message>
        <source>A pinned ring stays until you launch something, press Escape, or click away.</source>
        <translation>Ein angehefteter Ring bleibt, bis Sie etwas starten, Escape drücken oder daneben klicken.</translation>
    </message>
    <message>
        <source>Fill with recent applications</source>
        <translation>Mit zuletzt benutzten Apps füllen</translation>
    </message>
    <message>
        <source>Empty slots show what you used last</source>
        <translation>Freie Plätze zeigen, was Sie zuletzt benutzt haben</translation>
    </message>
    <message>
        <source>Pinned and running applications always come first.</source>
        <translation>Angeheftete und laufende Anwendungen kommen immer zuerst.</translation>
    </message>
    <message>
        <source>Search all applications</source>
        <translation>Alle Anwendungen durchsuchen</translation>
    </message>
    <message>
        <source>Typing also finds applications beyond the ring</source>
        <translation>Tippen findet auch Anwendungen jenseits des Rings</translation>
    </message>
    <message>
        <source>Otherwise only what the ring shows is searched.</source>
        <translation>Sonst wird nur durchsucht, was der Ring zeigt.</translation>
    </message>
    <message>
        <source>Interval</source>
        <translation>Abstand</translation>
    </message>
    <message>
        <source>Launches from one hint to the next</source>
        <translation>Aufrufe von einem Hinweis zum nächsten</translation>
    </message>
    <message>
        <source>Hints</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>Short tips in the middle of the ring, now and then.</source>
        <translation>Kurze Tipps in der Mitte des Rings, hin und wieder.</translation>
    </message>
    <message>
        <source>Show hints</source>
        <translation>Hinweise anzeigen</translation>
    </message>
    <message>
        <source>One tip at a time</source>
        <translation>Ein Tipp auf einmal</translation>
    </message>
    <message>
        <source>Not shown while the center hint is kept visible, see Appearance</source>
        <translation>Nicht gezeigt, solange der Hinweis in der Mitte sichtbar bleibt, siehe Darstellung</translation>
    </message>
    <message>
        <source>All hints</source>
        <translation>Alle Hinweise</translation>
    </message>
    <message>
        <source>Permanent Apps</source>
        <translation>Feste Apps</translation>
    </message>
    <message>
        <source>Always on the ring, clockwise from the top, whether they run or not.</source>
        <translation>Immer auf dem Ring, im Uhrzeigersinn von oben, ob sie laufen oder nicht.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>No application is called that.</source>
        <translation>Keine Anwendung heißt so.</translation>
    </message>
    <message>
        <source>Applications found</source>
        <translation>Gefundene Anwendungen</translation>
    </message>
    <message>
        <source>On the ring</source>
        <translation>Auf dem Ring</translation>
    </message>
    <message>
        <source>Nothing yet. Search above to add applications.</source>
        <translation>Noch nichts. Suchen Sie oben, um Anwendungen hinzuzufügen.</translation>
    </message>
    <message>
        <source>Permanent applications</source>
        <translation>Feste Anwendungen</translation>
    </message>
    <message>
        <source>Drag to change the order, or press Alt with an arrow key. Delete removes.</source>
        <translation>Ziehen ändert die Reihenfolge, ebenso Alt mit einer Pfeiltaste. Entf entfernt.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search applications</source>
        <translation>Anwendungen suchen</translation>
    </message>
    <message>
        <source>Type a name; Return adds the first application found.</source>
        <translation>Tippen Sie einen Namen; die Eingabetaste fügt die erste gefundene Anwendung hinzu.</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Hinzufügen …</translation>
    </message>
    <message>
        <source>Add an application</source>
        <translation>Eine Anwendung hinzufügen</translation>
    </message>
    <message>
        <source>Choose an application that the search does not find.</source>
        <translation>Eine Anwendung wählen, die die Suche nicht findet.</translation>
    </message>
    <message>
        <source>Add an Application</source>
        <translation>Eine Anwendung hinzufügen</translation>
    </message>
    <message>
        <source>Applications (*.desktop *.app)</source>
        <translation>Anwendungen (*.desktop *.app)</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Take the selected application off the ring.</source>
        <translation>Die ausgewählte Anwendung vom Ring nehmen.</translation>
    </message>
    <message>
        <source>%1 is not an application.</source>
        <translation>%1 ist keine Anwendung.</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Thema</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Updates</translation>
    </message>
    <message>
        <source>Sections</source>
        <translation>Abschnitte</translation>
    </message>
    <message>
        <source>What brings the ring up, anywhere.</source>
        <translation>Was den Ring hervorholt, überall.</translation>
    </message>
    <message>
        <source>Trigger shortcut</source>
        <translation>Tastenkürzel zum Auslösen</translation>
    </message>
    <message>
        <source>Click, then press the new shortcut.</source>
        <translation>Klicken Sie, dann drücken Sie das neue Tastenkürzel.</translation>
    </message>
    <message>
        <source>Press Modifier+Key for a tap-to-toggle shortcut. Or hold ≥2 modifier keys and release them to use a hold-to-show shortcut. Press Escape to cancel recording.</source>
        <translation>Drücken Sie Sondertaste+Taste für ein Kürzel zum Ein- und Ausschalten. Oder halten Sie ≥2 Sondertasten und lassen Sie sie los, um den Ring durch Halten zu zeigen. Escape bricht die Aufnahme ab.</translation>
    </message>
    <message>
        <source>Use Default Shortcut</source>
        <translation>Standardkürzel verwenden</translation>
    </message>
    <message>
        <source>Go back to %1.</source>
        <translation>Zurück zu %1.</translation>
    </message>
    <message>
        <source>Use It Anyway</source>
        <translation>Trotzdem verwenden</translation>
    </message>
    <message>
        <source>Choose Another</source>
        <translation>Anderes wählen</translation>
    </message>
    <message>
        <source>%1 cannot be used. %2</source>
        <translation>%1 kann nicht verwendet werden. %2</translation>
    </message>
    <message>
        <source>Press a shortcut…</source>
        <translation>Tastenkürzel drücken …</translation>
    </message>
    <message>
        <source>Trigger shortcut: %1</source>
        <translation>Tastenkürzel zum Auslösen: %1</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Charcoal</source>
        <translation>Anthrazit</translation>
    </message>
    <message>
        <source>Graphite</source>
        <translation>Graphit</translation>
    </message>
    <message>
        <source>Slate</source>
        <translation>Schiefer</translation>
    </message>
    <message>
        <source>Midnight</source>
        <translation>Mitternacht</translation>
    </message>
    <message>
        <source>Navy</source>
        <translation>Marine</translation>
    </message>
    <message>
        <source>Forest</source>
        <translation>Wald</translation>
    </message>
    <message>
        <source>Pine</source>
        <translation>Kiefer</translation>
    </message>
    <message>
        <source>Plum</source>
        <translation>Pflaume</translation>
    </message>
    <message>
        <source>Aubergine</source>
        <translation>Aubergine</translation>
    </message>
    <message>
        <source>Oxblood</source>
        <translation>Ochsenblut</translation>
    </message>
    <message>
        <source>Espresso</source>
        <translation>Espresso</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Sky</source>
        <translation>Himmel</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>Cyan</translation>
    </message>
    <message>
        <source>Mint</source>
        <translation>Minze</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Lime</source>
        <translation>Limette</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Ember</source>
        <translation>Glut</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>Lila</translation>
    </message>
    <message>
        <source>Ready colors</source>
        <translation>Fertige Farben</translation>
    </message>
    <message>
        <source>Dark Backgrounds</source>
        <translation>Dunkle Hintergründe</translation>
    </message>
    <message>
        <source>Accents</source>
        <translation>Akzente</translation>
    </message>
    <message>
        <source>More Colors…</source>
        <translation>Weitere Farben …</translation>
    </message>
    <message>
        <source>Apply a pre-made color theme to the ring; choosing Custom lets you set each color individually.</source>
        <translation>Ein fertiges Farbthema auf den Ring anwenden; mit „Eigenes“ stellen Sie jede Farbe einzeln ein.</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Eigenes</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Ring color</source>
        <translation>Farbe des Rings</translation>
    </message>
    <message>
        <source>The band behind the icons</source>
        <translation>Das Band hinter den Symbolen</translation>
    </message>
    <message>
        <source>Six hexadecimal digits, or a ready color from the well.</source>
        <translation>Sechs hexadezimale Ziffern, oder eine fertige Farbe aus der Auswahl.</translation>
    </message>
    <message>
        <source>Highlight color</source>
        <translation>Farbe der Hervorhebung</translation>
    </message>
    <message>
        <source>The wedge under the selection</source>
        <translation>Der Keil unter der Auswahl</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>How solid the band is</source>
        <translation>Wie deckend das Band ist</translation>
    </message>
    <message>
        <source>Highlight</source>
        <translation>Hervorhebung</translation>
    </message>
    <message>
        <source>Strength of the wedge</source>
        <translation>Stärke des Keils</translation>
    </message>
    <message>
        <source>Name label</source>
        <translation>Namensschild</translation>
    </message>
    <message>
        <source>Background of names and hints</source>
        <translation>Hintergrund von Namen und Hinweisen</translation>
    </message>
    <message>
        <source>Running applications</source>
        <translation>Laufende Anwendungen</translation>
    </message>
    <message>
        <source>Mark running applications</source>
        <translation>Laufende Anwendungen markieren</translation>
    </message>
    <message>
        <source>A dot beside the icon of each</source>
        <translation>Ein Punkt neben jedem ihrer Symbole</translation>
    </message>
    <message>
        <source>Dot color</source>
        <translation>Farbe des Punkts</translation>
    </message>
    <message>
        <source>Themes leave it as it is</source>
        <translation>Themen ändern sie nicht</translation>
    </message>
    <message>
        <source>Colors and opacity of the ring.</source>
        <translation>Farben und Deckkraft des Rings.</translation>
    </message>
    <message>
        <source>Themes</source>
        <translation>Themen</translation>
    </message>
    <message>
        <source>Restore Default Theme</source>
        <translation>Standardthema wiederherstellen</translation>
    </message>
    <message>
        <source>Restore all colors and opacity values to the default Tavik Classic theme.</source>
        <translation>Alle Farben und Deckkräfte auf das Standardthema Tavik Classic zurücksetzen.</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Häufigkeit</translation>
    </message>
    <message>
        <source>How often to look for a new version</source>
        <translation>Wie oft nach einer neuen Version gesucht wird</translation>
    </message>
    <message>
        <source>Daily</source>
        <translation>Täglich</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>Wöchentlich</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>Monatlich</translation>
    </message>
    <message>
        <source>New versions are never installed without asking you.</source>
        <translation>Neue Versionen werden nie installiert, ohne Sie zu fragen.</translation>
    </message>
    <message>
        <source>This version</source>
        <translation>Diese Version</translation>
    </message>
    <message>
        <source>Check for updates automatically</source>
        <translation>Automatisch nach Updates suchen</translation>
    </message>
    <message>
        <source>A dot in the wheel&apos;s symbol or a notification tells of a new version</source>
        <translation>Ein Punkt im Symbol des Rads oder eine Benachrichtigung meldet eine neue Version</translation>
    </message>
    <message>
        <source>Look for a new version at once.</source>
        <translation>Sofort nach einer neuen Version suchen.</translation>
    </message>
    <message>
        <source>Check Now</source>
        <translation>Jetzt suchen</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Updates suchen …</translation>
    </message>
    <message>
        <source>About Tavik Launcher</source>
        <translation>Über Tavik Launcher</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>Show Tavik Launcher</source>
        <translation>Tavik Launcher anzeigen</translation>
    </message>
    <message>
        <source>Reindex Apps…</source>
        <translation>Apps neu erfassen …</translation>
    </message>
    <message>
        <source>Support…</source>
        <translation>Unterstützung …</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Update to %1 Available…</source>
        <translation>Update auf %1 verfügbar …</translation>
    </message>
    <message>
        <source>Tavik Launcher — update available</source>
        <translation>Tavik Launcher – Update verfügbar</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>Neuerungen</translation>
    </message>
    <message>
        <source>The update is with your installer.</source>
        <translation>Das Update liegt bei Ihrem Installationsprogramm.</translation>
    </message>
    <message>
        <source>Tavik Launcher %1 has been downloaded and verified. Your desktop&apos;s installer takes it from here. Once it is done, quit Tavik Launcher and start it again.</source>
        <translation>Tavik Launcher %1 wurde heruntergeladen und geprüft. Das Installationsprogramm Ihrer Arbeitsumgebung übernimmt jetzt. Wenn es fertig ist, beenden Sie Tavik Launcher und starten Sie es neu.</translation>
    </message>
    <message>
        <source>Looking for updates did not work.</source>
        <translation>Die Suche nach Updates ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>The page could not be opened.</source>
        <translation>Die Seite konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The update was not installed.</source>
        <translation>Das Update wurde nicht installiert.</translation>
    </message>
    <message>
        <source>Software Update</source>
        <translation>Softwareupdate</translation>
    </message>
    <message>
        <source>A new version of Tavik Launcher is available.</source>
        <translation>Eine neue Version von Tavik Launcher ist verfügbar.</translation>
    </message>
    <message>
        <source>Version %1 is out; you have %2.</source>
        <translation>Version %1 ist erschienen; Sie haben %2.</translation>
    </message>
    <message>
        <source>It cannot be installed from here. Its page tells how to get it.</source>
        <translation>Sie kann von hier aus nicht installiert werden. Ihre Seite erklärt, wie Sie sie bekommen.</translation>
    </message>
    <message>
        <source>This version is important. Please install it soon.</source>
        <translation>Diese Version ist wichtig. Bitte installieren Sie sie bald.</translation>
    </message>
    <message>
        <source>Fetching the release notes…</source>
        <translation>Die Neuerungen werden geholt …</translation>
    </message>
    <message>
        <source>There are no release notes.</source>
        <translation>Es gibt keine Angaben zu den Neuerungen.</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Version überspringen</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Später erinnern</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>Mehr erfahren</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>Installieren</translation>
    </message>
    <message>
        <source>The release notes could not be fetched. %1</source>
        <translation>Die Neuerungen konnten nicht geholt werden. %1</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>Install and Relaunch</source>
        <translation>Installieren und neu starten</translation>
    </message>
    <message>
        <source>Looking for a newer version…</source>
        <translation>Eine neuere Version wird gesucht …</translation>
    </message>
    <message>
        <source>Downloading Tavik Launcher %1…</source>
        <translation>Tavik Launcher %1 wird heruntergeladen …</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Verbindung wird aufgebaut …</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 — %2 per second</source>
        <translation>%1 – %2 pro Sekunde</translation>
    </message>
    <message>
        <source>Verifying the download…</source>
        <translation>Der Download wird geprüft …</translation>
    </message>
    <message>
        <source>Only what its maker has signed is installed.</source>
        <translation>Installiert wird nur, was sein Hersteller signiert hat.</translation>
    </message>
    <message>
        <source>Ready to install.</source>
        <translation>Bereit zur Installation.</translation>
    </message>
    <message>
        <source>Tavik Launcher closes, and starts again as version %1.</source>
        <translation>Tavik Launcher schließt sich und startet als Version %1 wieder.</translation>
    </message>
    <message>
        <source>Installing…</source>
        <translation>Wird installiert …</translation>
    </message>
    <message>
        <source>Tavik Launcher starts again in a moment.</source>
        <translation>Tavik Launcher startet gleich wieder.</translation>
    </message>
    <message>
        <source>If a permission prompt appeared, click Allow. Otherwise open Settings and enable the toggle next to Tavik Launcher.</source>
        <translation>Falls eine Nachfrage erschienen ist, klicken Sie auf „Erlauben“. Sonst öffnen Sie die Einstellungen und schalten Sie den Schalter neben Tavik Launcher ein.</translation>
    </message>
    <message>
        <source>Not enabled yet — flip the toggle next to Tavik Launcher in Accessibility settings.</source>
        <translation>Noch nicht eingeschaltet – stellen Sie in den Einstellungen der Bedienungshilfen den Schalter neben Tavik Launcher um.</translation>
    </message>
    <message>
        <source>Enable Accessibility Access</source>
        <translation>Zugriff auf Bedienungshilfen einschalten</translation>
    </message>
    <message>
        <source>Open Accessibility Settings</source>
        <translation>Bedienungshilfen-Einstellungen öffnen</translation>
    </message>
    <message>
        <source>Done — I&apos;ve Enabled It</source>
        <translation>Fertig – eingeschaltet</translation>
    </message>
    <message>
        <source>Skip for Now</source>
        <translation>Vorerst überspringen</translation>
    </message>
    <message>
        <source>Hotkey Is Active</source>
        <translation>Das Tastenkürzel ist aktiv</translation>
    </message>
    <message>
        <source>The global hotkey is now working. Tavik Launcher will appear over any app.</source>
        <translation>Das globale Tastenkürzel funktioniert jetzt. Tavik Launcher erscheint über jeder App.</translation>
    </message>
    <message>
        <source>Tavik Launcher needs Accessibility permission so the hotkey works when other apps are in the foreground.</source>
        <translation>Tavik Launcher braucht die Erlaubnis für Bedienungshilfen, damit das Tastenkürzel auch wirkt, wenn andere Apps vorn sind.</translation>
    </message>
    <message>
        <source>Command Copied</source>
        <translation>Befehl kopiert</translation>
    </message>
    <message>
        <source>Copy the Command</source>
        <translation>Befehl kopieren</translation>
    </message>
    <message>
        <source>Press the shortcut</source>
        <translation>Tastenkürzel drücken</translation>
    </message>
    <message>
        <source>Press %1 to toggle the ring at the pointer. Press it again or hit Esc to dismiss. Go ahead — try it right now!</source>
        <translation>Drücken Sie %1, um den Ring am Zeiger ein- und auszuschalten. Noch einmal drücken oder Esc schließt ihn. Nur zu – probieren Sie es gleich aus!</translation>
    </message>
    <message>
        <source>Hold the shortcut</source>
        <translation>Tastenkürzel halten</translation>
    </message>
    <message>
        <source>Press and hold %1 to open the ring at the pointer. Release to dismiss unless search mode is active. Go ahead — try it right now!</source>
        <translation>Halten Sie %1 gedrückt, um den Ring am Zeiger zu öffnen. Loslassen schließt ihn, außer im Suchmodus. Nur zu – probieren Sie es gleich aus!</translation>
    </message>
    <message>
        <source>Move or type</source>
        <translation>Zeigen oder tippen</translation>
    </message>
    <message>
        <source>Hover an app slice to select it, or type to filter. Typing pins the ring until you launch, press Esc, or click away.</source>
        <translation>Zeigen Sie auf ein Stück des Rings, um es zu wählen, oder tippen Sie zum Filtern. Tippen heftet den Ring an, bis Sie starten, Esc drücken oder daneben klicken.</translation>
    </message>
    <message>
        <source>Pin your favorites</source>
        <translation>Favoriten anheften</translation>
    </message>
    <message>
        <source>Add permanent apps in Settings, then drag pinned apps to lock their clockwise ring order.</source>
        <translation>Fügen Sie in den Einstellungen feste Apps hinzu und ziehen Sie sie in die gewünschte Reihenfolge im Uhrzeigersinn.</translation>
    </message>
    <message>
        <source>Tune the look</source>
        <translation>Das Aussehen anpassen</translation>
    </message>
    <message>
        <source>Adjust size, spacing, colors, opacity, themes, and the global shortcut whenever you want.</source>
        <translation>Größe, Abstände, Farben, Deckkraft, Themen und das globale Tastenkürzel ändern Sie, wann Sie wollen.</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Einstellungen öffnen</translation>
    </message>
    <message>
        <source>Start Using Tavik</source>
        <translation>Los geht’s</translation>
    </message>
    <message>
        <source>Tavik Launcher keeps an index of every app in your Applications folders — it powers the ring and search.</source>
        <translation>Tavik Launcher führt ein Verzeichnis aller Apps in Ihren Anwendungsordnern – daraus leben der Ring und die Suche.</translation>
    </message>
    <message>
        <source>The index refreshes itself automatically whenever you open the ring, so you rarely need this. Run it manually if an app you just installed isn&apos;t showing up in search, or after moving apps between folders.</source>
        <translation>Das Verzeichnis erneuert sich von selbst, wenn Sie den Ring öffnen; Sie brauchen dies also selten. Starten Sie es von Hand, wenn eine eben installierte App nicht in der Suche erscheint oder nachdem Sie Apps verschoben haben.</translation>
    </message>
    <message>
        <source>All set. You can verify it worked by opening the ring and typing the name of a recently installed app.</source>
        <translation>Fertig. Zur Probe öffnen Sie den Ring und tippen den Namen einer kürzlich installierten App.</translation>
    </message>
    <message>
        <source>Scanning…</source>
        <translation>Wird durchsucht …</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Reindex Now</source>
        <translation>Jetzt neu erfassen</translation>
    </message>
    <message numerus="yes">
        <source>Indexed %n apps</source>
        <translation>
            <numerusform>%n App erfasst</numerusform>
            <numerusform>%n Apps erfasst</numerusform>
        </translation>
    </message>
    <message>
        <source>Input Monitoring</source>
        <translation>Eingabeüberwachung</translation>
    </message>
    <message>
        <source>Full Disk Access</source>
        <translation>Festplattenzugriff</translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>Bedienungshilfen</translation>
    </message>
    <message>
        <source>Privacy &amp; Security</source>
        <translation>Datenschutz &amp; Sicherheit</translation>
    </message>
    <message>
        <source>Enable here</source>
        <translation>Hier einschalten</translation>
    </message>
    <message>
        <source>It is no application that can be started.</source>
        <translation>Es ist keine Anwendung, die gestartet werden kann.</translation>
    </message>
    <message>
        <source>The file “%1” may not be executed. Allow that in its properties first.</source>
        <translation>Die Datei „%1“ darf nicht ausgeführt werden. Erlauben Sie das zuerst in ihren Eigenschaften.</translation>
    </message>
    <message>
        <source>It names no program to start.</source>
        <translation>Sie nennt kein Programm zum Starten.</translation>
    </message>
    <message>
        <source>It needs a terminal, and none is installed.</source>
        <translation>Sie braucht ein Terminal, und es ist keines installiert.</translation>
    </message>
    <message>
        <source>The application has no program to start.</source>
        <translation>Die Anwendung hat kein Programm zum Starten.</translation>
    </message>
    <message>
        <source>no program is installed for it</source>
        <translation>dafür ist kein Programm installiert</translation>
    </message>
    <message>
        <source>The program cannot be started.</source>
        <translation>Das Programm kann nicht gestartet werden.</translation>
    </message>
    <message>
        <source>There is no program to start.</source>
        <translation>Es gibt kein Programm zum Starten.</translation>
    </message>
    <message>
        <source>“%1” could not be opened</source>
        <translation>„%1“ konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>GNOME lets programs listen for no key, so a custom shortcut is added to its keyboard settings for as long as Tavik Launcher runs.</source>
        <translation>GNOME lässt Programme auf keine Taste hören. Darum kommt ein eigenes Tastenkürzel in die Tastatureinstellungen, solange Tavik Launcher läuft.</translation>
    </message>
    <message>
        <source>Summon the ring</source>
        <translation>Den Ring hervorholen</translation>
    </message>
    <message>
        <source>KDE gives programs no shortcut of modifiers alone, so it is asked for the same modifiers with Space. System Settings › Shortcuts lists it.</source>
        <translation>KDE gibt Programmen kein Tastenkürzel aus Sondertasten allein. Darum wird um dieselben Sondertasten mit der Leertaste gebeten. Es steht in den Systemeinstellungen › Kurzbefehle.</translation>
    </message>
    <message>
        <source>%1 is not a regular file</source>
        <translation>%1 ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made</source>
        <translation>Der Ordner %1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>“%1” could not be opened: %2.</source>
        <translation>„%1“ konnte nicht geöffnet werden: %2.</translation>
    </message>
    <message>
        <source>in Settings › Keyboard › View and Customize Shortcuts</source>
        <translation>in Einstellungen › Tastatur › Tastenkürzel anzeigen und anpassen</translation>
    </message>
    <message>
        <source>in System Settings › Shortcuts</source>
        <translation>in Systemeinstellungen › Kurzbefehle</translation>
    </message>
    <message>
        <source>in Settings › Keyboard › Application Shortcuts</source>
        <translation>in Einstellungen › Tastatur › Tastenkürzel für Anwendungen</translation>
    </message>
    <message>
        <source>in System Settings › Keyboard › Shortcuts</source>
        <translation>in Systemeinstellungen › Tastatur › Tastenkürzel</translation>
    </message>
    <message>
        <source>in Control Center › Keyboard Shortcuts</source>
        <translation>in Kontrollzentrum › Tastenkombinationen</translation>
    </message>
    <message>
        <source>in Configuration Center › Shortcut Keys</source>
        <translation>in Konfigurationszentrum › Tastenkürzel</translation>
    </message>
    <message>
        <source>with bindsym in the configuration of sway</source>
        <translation>mit bindsym in der Konfiguration von sway</translation>
    </message>
    <message>
        <source>with bind in the configuration of Hyprland</source>
        <translation>mit bind in der Konfiguration von Hyprland</translation>
    </message>
    <message>
        <source>where your desktop or window manager keeps its shortcuts</source>
        <translation>dort, wo Ihre Arbeitsumgebung oder Fensterverwaltung ihre Tastenkürzel führt</translation>
    </message>
    <message>
        <source>A Wayland desktop tells no program which keys are held while another one is in front.</source>
        <translation>Eine Wayland-Arbeitsumgebung sagt keinem Programm, welche Tasten gehalten werden, während ein anderes vorn ist.</translation>
    </message>
    <message>
        <source>Bind the command %1 to a key of your choice %2.</source>
        <translation>Legen Sie den Befehl %1 auf eine Taste Ihrer Wahl, %2.</translation>
    </message>
    <message>
        <source>The update cannot be downloaded, because its address is not a safe one.</source>
        <translation>Das Update kann nicht heruntergeladen werden, weil seine Adresse nicht sicher ist.</translation>
    </message>
    <message>
        <source>The update is not signed, so it cannot be installed.</source>
        <translation>Das Update ist nicht signiert und kann darum nicht installiert werden.</translation>
    </message>
    <message>
        <source>The update&apos;s signature is damaged, so it cannot be installed.</source>
        <translation>Die Signatur des Updates ist beschädigt; es kann nicht installiert werden.</translation>
    </message>
    <message>
        <source>The update does not say how large it is, so it cannot be installed.</source>
        <translation>Das Update sagt nicht, wie groß es ist; es kann nicht installiert werden.</translation>
    </message>
    <message>
        <source>The update is larger than %1 MB, so it cannot be installed.</source>
        <translation>Das Update ist größer als %1 MB und kann darum nicht installiert werden.</translation>
    </message>
    <message>
        <source>Its makers have not signed which version it is, so it cannot be installed.</source>
        <translation>Die Hersteller haben nicht signiert, welche Version es ist; es kann nicht installiert werden.</translation>
    </message>
    <message>
        <source>The server answered with a web page instead of a list of updates.</source>
        <translation>Der Server hat mit einer Webseite statt mit einer Liste von Updates geantwortet.</translation>
    </message>
    <message>
        <source>The server answered with something other than a list of updates.</source>
        <translation>Der Server hat mit etwas anderem als einer Liste von Updates geantwortet.</translation>
    </message>
    <message>
        <source>The list of updates declares a document type, which is not allowed.</source>
        <translation>Die Liste der Updates erklärt einen Dokumenttyp; das ist nicht erlaubt.</translation>
    </message>
    <message>
        <source>The list of updates is damaged: it has an element that is too long.</source>
        <translation>Die Liste der Updates ist beschädigt: Sie hat ein Element, das zu lang ist.</translation>
    </message>
    <message>
        <source>The list of updates is damaged: its elements are nested too deep.</source>
        <translation>Die Liste der Updates ist beschädigt: Ihre Elemente sind zu tief verschachtelt.</translation>
    </message>
    <message>
        <source>The list of updates has more than %1 entries.</source>
        <translation>Die Liste der Updates hat mehr als %1 Einträge.</translation>
    </message>
    <message>
        <source>The list of updates is damaged in line %1.</source>
        <translation>Die Liste der Updates ist in Zeile %1 beschädigt.</translation>
    </message>
    <message>
        <source>The list of updates is empty.</source>
        <translation>Die Liste der Updates ist leer.</translation>
    </message>
    <message>
        <source>The list of updates is too large.</source>
        <translation>Die Liste der Updates ist zu groß.</translation>
    </message>
    <message>
        <source>The list of updates is not valid text in UTF-8.</source>
        <translation>Die Liste der Updates ist kein gültiger Text in UTF-8.</translation>
    </message>
    <message>
        <source>%1 is available, but it needs Linux %2 or newer. This computer runs Linux %3.</source>
        <translation>%1 ist verfügbar, braucht aber Linux %2 oder neuer. Auf diesem Computer läuft Linux %3.</translation>
    </message>
    <message>
        <source>%1 is available, but not for systems newer than Linux %2. This computer runs Linux %3.</source>
        <translation>%1 ist verfügbar, aber nicht für Systeme neuer als Linux %2. Auf diesem Computer läuft Linux %3.</translation>
    </message>
    <message>
        <source>You chose to skip %1.</source>
        <translation>Sie haben %1 übersprungen.</translation>
    </message>
    <message>
        <source>%1 is being handed out step by step and will come to this computer later.</source>
        <translation>%1 wird schrittweise verteilt und kommt später auf diesen Computer.</translation>
    </message>
    <message>
        <source>%1 is available, but there is no page to read about it.</source>
        <translation>%1 ist verfügbar, aber es gibt keine Seite dazu.</translation>
    </message>
    <message>
        <source>%1 is available, but not as a file that can be installed here.</source>
        <translation>%1 ist verfügbar, aber nicht als Datei, die hier installiert werden kann.</translation>
    </message>
    <message>
        <source>%1 is available. %2</source>
        <translation>%1 ist verfügbar. %2</translation>
    </message>
    <message>
        <source>You&apos;re up to date. Tavik Launcher %1 is newer than the newest on offer, %2.</source>
        <translation>Alles ist aktuell. Tavik Launcher %1 ist neuer als das neueste Angebot, %2.</translation>
    </message>
    <message>
        <source>You&apos;re up to date. %1 is the newest version.</source>
        <translation>Alles ist aktuell. %1 ist die neueste Version.</translation>
    </message>
    <message>
        <source>The list of updates has no version for this computer.</source>
        <translation>Die Liste der Updates hat keine Version für diesen Computer.</translation>
    </message>
    <message>
        <source>The list of updates is older than one seen before: its newest signed version is %1, but %2 was there already. Nothing is installed from it.</source>
        <translation>Die Liste der Updates ist älter als eine frühere: Ihre neueste signierte Version ist %1, aber %2 gab es schon. Nichts davon wird installiert.</translation>
    </message>
    <message>
        <source>Newer versions come the way this one came: from your package manager, or from whoever built it for you.</source>
        <translation>Neuere Versionen kommen auf dem Weg, auf dem diese kam: von Ihrer Paketverwaltung oder von dem, der sie für Sie gebaut hat.</translation>
    </message>
    <message>
        <source>It was made without an update feed.</source>
        <translation>Sie wurde ohne Adresse für Updates gebaut.</translation>
    </message>
    <message>
        <source>It was made without a key to tell genuine updates by.</source>
        <translation>Sie wurde ohne einen Schlüssel gebaut, an dem echte Updates zu erkennen sind.</translation>
    </message>
    <message>
        <source>It was made with an update feed at an address that is not safe: “%1”.</source>
        <translation>Sie wurde mit einer Adresse für Updates gebaut, die nicht sicher ist: „%1“.</translation>
    </message>
    <message>
        <source>It was made with a key for updates that is none.</source>
        <translation>Sie wurde mit einem Schlüssel für Updates gebaut, der keiner ist.</translation>
    </message>
    <message>
        <source>The new version could not be put in the place of “%1”: %2.</source>
        <translation>Die neue Version konnte nicht an die Stelle von „%1“ gesetzt werden: %2.</translation>
    </message>
    <message>
        <source>“%1”, which this program was started from, is no longer there or is something else now.</source>
        <translation>„%1“, woraus dieses Programm gestartet wurde, gibt es nicht mehr, oder es ist jetzt etwas anderes.</translation>
    </message>
    <message>
        <source>The folder “%1”, which this program was started from, may not be changed by you. Move the program to a folder of your own, or replace it as an administrator.</source>
        <translation>Den Ordner „%1“, aus dem dieses Programm gestartet wurde, dürfen Sie nicht ändern. Legen Sie das Programm in einen eigenen Ordner, oder ersetzen Sie es als Administrator.</translation>
    </message>
    <message>
        <source>The update is not an AppImage, as this program is.</source>
        <translation>Das Update ist kein AppImage wie dieses Programm.</translation>
    </message>
    <message>
        <source>The update is made for another kind of computer.</source>
        <translation>Das Update ist für eine andere Art von Computer gemacht.</translation>
    </message>
    <message>
        <source>The update does not say when it was made.</source>
        <translation>Das Update sagt nicht, wann es gemacht wurde.</translation>
    </message>
    <message>
        <source>The update is older than this program, whatever its number says.</source>
        <translation>Das Update ist älter als dieses Programm, was immer seine Nummer sagt.</translation>
    </message>
    <message>
        <source>Another Tavik Launcher is being updated in the folder “%1”.</source>
        <translation>In dem Ordner „%1“ wird gerade ein anderer Tavik Launcher aktualisiert.</translation>
    </message>
    <message>
        <source>There is not enough room for the update in the folder “%1”.</source>
        <translation>In dem Ordner „%1“ ist nicht genug Platz für das Update.</translation>
    </message>
    <message>
        <source>The update could not be written to the folder “%1”: %2.</source>
        <translation>Das Update konnte nicht in den Ordner „%1“ geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>The update on the server is not the one that was announced: its length is another.</source>
        <translation>Das Update auf dem Server ist nicht das angekündigte: Seine Länge ist eine andere.</translation>
    </message>
    <message>
        <source>The update</source>
        <translation>Das Update</translation>
    </message>
    <message>
        <source>The server did not continue where it was asked to.</source>
        <translation>Der Server hat nicht dort weitergemacht, wo er gebeten wurde.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be used for the update.</source>
        <translation>Der Ordner „%1“ kann für das Update nicht benutzt werden.</translation>
    </message>
    <message>
        <source>%1 is not on the server.</source>
        <translation>%1 ist nicht auf dem Server.</translation>
    </message>
    <message>
        <source>The server answered with an error (%1).</source>
        <translation>Der Server hat mit einem Fehler geantwortet (%1).</translation>
    </message>
    <message>
        <source>The server sent something packed, which was refused.</source>
        <translation>Der Server hat etwas Gepacktes gesandt, das abgelehnt wurde.</translation>
    </message>
    <message>
        <source>The server “%1” was not found. Perhaps this computer is not connected to the internet.</source>
        <translation>Der Server „%1“ wurde nicht gefunden. Vielleicht ist dieser Computer nicht mit dem Internet verbunden.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached.</source>
        <translation>Der Server „%1“ ist nicht zu erreichen.</translation>
    </message>
    <message>
        <source>The server “%1” could not prove who it is: its certificate is not valid here.</source>
        <translation>Der Server „%1“ konnte nicht beweisen, wer er ist: Sein Zertifikat gilt hier nicht.</translation>
    </message>
    <message>
        <source>No protected connection to the server “%1” could be made.</source>
        <translation>Zu dem Server „%1“ ließ sich keine geschützte Verbindung herstellen.</translation>
    </message>
    <message>
        <source>The proxy of this network let nothing through.</source>
        <translation>Der Proxy dieses Netzes hat nichts durchgelassen.</translation>
    </message>
    <message>
        <source>The connection to the server broke off.</source>
        <translation>Die Verbindung zum Server ist abgebrochen.</translation>
    </message>
    <message>
        <source>The list of updates</source>
        <translation>Die Liste der Updates</translation>
    </message>
    <message>
        <source>The text about the new version</source>
        <translation>Der Text über die neue Version</translation>
    </message>
    <message>
        <source>What the server sent about the new version is no text.</source>
        <translation>Was der Server über die neue Version gesandt hat, ist kein Text.</translation>
    </message>
    <message>
        <source>The downloaded update is not a file that belongs to you alone.</source>
        <translation>Das heruntergeladene Update ist keine Datei, die Ihnen allein gehört.</translation>
    </message>
    <message>
        <source>The downloaded update has %1 bytes instead of %2. It will not be installed.</source>
        <translation>Das heruntergeladene Update hat %1 Bytes statt %2. Es wird nicht installiert.</translation>
    </message>
    <message>
        <source>The downloaded update could not be read.</source>
        <translation>Das heruntergeladene Update konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The downloaded update was changed while it was being verified.</source>
        <translation>Das heruntergeladene Update wurde während der Prüfung verändert.</translation>
    </message>
    <message>
        <source>The downloaded update is not signed by the makers of Tavik Launcher. It will not be installed.</source>
        <translation>Das heruntergeladene Update ist nicht von den Herstellern von Tavik Launcher signiert. Es wird nicht installiert.</translation>
    </message>
    <message>
        <source>This build has no usable key to verify updates with.</source>
        <translation>Diese Version hat keinen brauchbaren Schlüssel, um Updates zu prüfen.</translation>
    </message>
    <message>
        <source>The update has no size that can be installed.</source>
        <translation>Das Update hat keine Größe, die installiert werden kann.</translation>
    </message>
    <message>
        <source>Updates cannot be verified on this computer.</source>
        <translation>Updates können auf diesem Computer nicht geprüft werden.</translation>
    </message>
    <message>
        <source>The server stopped answering.</source>
        <translation>Der Server antwortet nicht mehr.</translation>
    </message>
    <message>
        <source>The server is too slow.</source>
        <translation>Der Server ist zu langsam.</translation>
    </message>
    <message>
        <source>%1 would come over an unprotected connection.</source>
        <translation>%1 käme über eine ungeschützte Verbindung.</translation>
    </message>
    <message>
        <source>The system lets no process be started for the download.</source>
        <translation>Das System lässt für den Download keinen Prozess starten.</translation>
    </message>
    <message>
        <source>The server wanted to go on over an unprotected connection, which was refused.</source>
        <translation>Der Server wollte über eine ungeschützte Verbindung weitermachen; das wurde abgelehnt.</translation>
    </message>
    <message>
        <source>The server only points from one address to the next.</source>
        <translation>Der Server verweist nur von einer Adresse auf die nächste.</translation>
    </message>
    <message>
        <source>The server sent far more than it was asked for.</source>
        <translation>Der Server hat weit mehr gesandt als verlangt.</translation>
    </message>
    <message>
        <source>%1 is larger than the %2 MB it may have.</source>
        <translation>%1 ist größer als die erlaubten %2 MB.</translation>
    </message>
    <message>
        <source>This X server lacks the extensions, RECORD and XKEYBOARD, that tell a program which keys are held.</source>
        <translation>Diesem X-Server fehlen die Erweiterungen RECORD und XKEYBOARD, die einem Programm sagen, welche Tasten gehalten werden.</translation>
    </message>
    <message>
        <source>d MMMM yyyy</source>
        <translation>d. MMMM yyyy</translation>
    </message>
    <message>
        <source>press the shortcut: for a key that the desktop binds</source>
        <translation>das Tastenkürzel drücken: für eine Taste, die der Desktop belegt</translation>
    </message>
    <message>
        <source>show the ring</source>
        <translation>den Ring zeigen</translation>
    </message>
    <message>
        <source>show the ring at the pointer, or hide it</source>
        <translation>den Ring am Zeiger zeigen oder verbergen</translation>
    </message>
    <message>
        <source>hide the ring</source>
        <translation>den Ring verbergen</translation>
    </message>
    <message>
        <source>open the settings, with =SECTION at that section</source>
        <translation>die Einstellungen öffnen, mit =SECTION an dieser Stelle</translation>
    </message>
    <message>
        <source>open the window that rebuilds the application index</source>
        <translation>das Fenster öffnen, das den App-Index neu aufbaut</translation>
    </message>
    <message>
        <source>show the tour</source>
        <translation>die Tour zeigen</translation>
    </message>
    <message>
        <source>ask for a newer version</source>
        <translation>nach einer neueren Version fragen</translation>
    </message>
    <message>
        <source>end the running launcher</source>
        <translation>den laufenden Launcher beenden</translation>
    </message>
    <message>
        <source>Usage: tavik-launcher [option]</source>
        <translation>Aufruf: tavik-launcher [Option]</translation>
    </message>
    <message>
        <source>Without an option: start the launcher, or show the ring of the one that runs.</source>
        <translation>Ohne Option: den Launcher starten oder den Ring des laufenden zeigen.</translation>
    </message>
    <message>
        <source>start as at login: nothing is shown unasked</source>
        <translation>starten wie bei der Anmeldung: nichts wird ungefragt gezeigt</translation>
    </message>
    <message>
        <source>print the version, and how the screen is reached</source>
        <translation>die Version ausgeben und wie der Bildschirm erreicht wird</translation>
    </message>
    <message>
        <source>print this text</source>
        <translation>diesen Text ausgeben</translation>
    </message>
    <message>
        <source>the settings have no section &quot;%1&quot;; there are %2</source>
        <translation>die Einstellungen haben keinen Abschnitt „%1“; es gibt %2</translation>
    </message>
    <message>
        <source>one option at a time</source>
        <translation>nur eine Option auf einmal</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>unbekannte Option %1</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 nimmt keinen Wert</translation>
    </message>
    <message>
        <source>1 match</source>
        <translation>1 Treffer</translation>
    </message>
    <message numerus="yes">
        <source>%n matches</source>
        <translation>
            <numerusform>%n Treffer</numerusform>
            <numerusform>%n Treffer</numerusform>
        </translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Auslöser</translation>
    </message>
    <message>
        <source>Nobody listens.</source>
        <translation>Niemand hört zu.</translation>
    </message>
    <message>
        <source>Tavik Launcher is not running. Start it.</source>
        <translation>Tavik Launcher läuft nicht. Starten Sie ihn.</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>Loslassen</translation>
    </message>
    <message>
        <source>Not needed: %1 is pressed once to open and once to close.</source>
        <translation>Nicht nötig: %1 wird einmal zum Öffnen und einmal zum Schließen gedrückt.</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>Infobereich</translation>
    </message>
    <message>
        <source>The panel shows what is described to it.</source>
        <translation>Die Leiste zeigt, was ihr beschrieben wird.</translation>
    </message>
    <message>
        <source>The panel takes small windows, as older ones do.</source>
        <translation>Die Leiste nimmt kleine Fenster auf, wie ältere es tun.</translation>
    </message>
    <message>
        <source>No panel shows status items.</source>
        <translation>Keine Leiste zeigt Statussymbole.</translation>
    </message>
    <message>
        <source>Add a tray to your panel; for GNOME there is an extension. Meanwhile this command opens the settings.</source>
        <translation>Fügen Sie Ihrer Leiste einen Infobereich hinzu; für GNOME gibt es eine Erweiterung. Bis dahin öffnet dieser Befehl die Einstellungen.</translation>
    </message>
    <message>
        <source>Autostart</source>
        <translation>Autostart</translation>
    </message>
    <message>
        <source>This session has started the launcher.</source>
        <translation>Diese Sitzung hat den Launcher gestartet.</translation>
    </message>
    <message>
        <source>This session is not known to read the autostart folder.</source>
        <translation>Von dieser Sitzung ist nicht bekannt, dass sie den Autostart-Ordner liest.</translation>
    </message>
    <message>
        <source>Add this line to what your session starts.</source>
        <translation>Fügen Sie diese Zeile dem hinzu, was Ihre Sitzung startet.</translation>
    </message>
    <message>
        <source>An entry in the autostart folder.</source>
        <translation>Ein Eintrag im Autostart-Ordner.</translation>
    </message>
    <message>
        <source>There is no entry in the autostart folder.</source>
        <translation>Im Autostart-Ordner ist kein Eintrag.</translation>
    </message>
    <message>
        <source>The launcher does not start when you log in.</source>
        <translation>Der Launcher startet nicht, wenn Sie sich anmelden.</translation>
    </message>
    <message>
        <source>The entry in the autostart folder is switched off.</source>
        <translation>Der Eintrag im Autostart-Ordner ist ausgeschaltet.</translation>
    </message>
    <message>
        <source>The launcher&apos;s program is not where it was. Install it again.</source>
        <translation>Das Programm des Launchers ist nicht mehr an seinem Ort. Installieren Sie es neu.</translation>
    </message>
    <message>
        <source>Pointer</source>
        <translation>Zeiger</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>Über allen Fenstern</translation>
    </message>
    <message>
        <source>Running programs</source>
        <translation>Laufende Programme</translation>
    </message>
    <message>
        <source>Bringing to the front</source>
        <translation>Nach vorn holen</translation>
    </message>
    <message>
        <source>Set Up</source>
        <translation>Einrichten</translation>
    </message>
    <message>
        <source>Choose Shortcut</source>
        <translation>Tastenkürzel wählen</translation>
    </message>
    <message>
        <source>Turn On</source>
        <translation>Einschalten</translation>
    </message>
    <message>
        <source>This desktop gives the launcher all it needs.</source>
        <translation>Diese Arbeitsumgebung gibt dem Launcher alles, was er braucht.</translation>
    </message>
    <message>
        <source>Needs your attention: %1 of %2.</source>
        <translation>Braucht Ihre Aufmerksamkeit: %1 von %2.</translation>
    </message>
    <message>
        <source>print what this desktop gives the launcher, and what not</source>
        <translation>ausgeben, was diese Arbeitsumgebung dem Launcher gibt und was nicht</translation>
    </message>
    <message>
        <source>Check My Desktop</source>
        <translation>Desktop prüfen</translation>
    </message>
    <message>
        <source>What the launcher needs of this desktop, and how it has it.</source>
        <translation>Was der Launcher von dieser Arbeitsumgebung braucht und wie er es hat.</translation>
    </message>
    <message>
        <source>%1: works</source>
        <translation>%1: in Ordnung</translation>
    </message>
    <message>
        <source>%1: needs your attention</source>
        <translation>%1: braucht Ihre Aufmerksamkeit</translation>
    </message>
    <message>
        <source>Copy Line</source>
        <translation>Zeile kopieren</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Nobody tells of other programs&apos; windows.</source>
        <translation>Von Fenstern anderer Programme sagt niemand etwas.</translation>
    </message>
    <message>
        <source>Programs are seen to run only by their name on the session bus or their systemd unit.</source>
        <translation>Programme sieht man nur an ihrem Namen auf dem Sitzungsbus oder an ihrer systemd-Unit laufen.</translation>
    </message>
    <message>
        <source>Nobody brings other programs&apos; windows to the front.</source>
        <translation>Niemand holt Fenster anderer Programme nach vorn.</translation>
    </message>
    <message>
        <source>A program that runs is started once more, unless it has a name on the session bus.</source>
        <translation>Ein laufendes Programm wird noch einmal gestartet, außer es hat einen Namen auf dem Sitzungsbus.</translation>
    </message>
    <message>
        <source>Custom shortcuts in GNOME&apos;s keyboard settings.</source>
        <translation>Eigene Tastenkürzel in den Tastatureinstellungen von GNOME.</translation>
    </message>
    <message>
        <source>A global shortcut of KDE, which System Settings › Shortcuts lists.</source>
        <translation>Ein globaler Kurzbefehl von KDE; er steht in Systemeinstellungen › Kurzbefehle.</translation>
    </message>
    <message>
        <source>A script inside of KWin lists its windows.</source>
        <translation>Ein Skript in KWin zählt dessen Fenster auf.</translation>
    </message>
    <message>
        <source>The desktop does not answer.</source>
        <translation>Die Arbeitsumgebung antwortet nicht.</translation>
    </message>
    <message>
        <source>KWin brings a window forward as for KDE&apos;s own search.</source>
        <translation>KWin holt ein Fenster nach vorn wie für die Suche von KDE.</translation>
    </message>
    <message>
        <source>The desktop tells it, and so does the ring&apos;s own keyboard.</source>
        <translation>Die Arbeitsumgebung sagt es, und die Tastatur des Rings auch.</translation>
    </message>
    <message>
        <source>Bindings that sway holds while Tavik Launcher runs.</source>
        <translation>Belegungen, die sway hält, solange Tavik Launcher läuft.</translation>
    </message>
    <message>
        <source>Its configuration uses the same keys for “%1”, which rests while Tavik Launcher runs.</source>
        <translation>Seine Konfiguration benutzt dieselben Tasten für „%1“. Das ruht, solange Tavik Launcher läuft.</translation>
    </message>
    <message>
        <source>sway lists its windows.</source>
        <translation>sway zählt seine Fenster auf.</translation>
    </message>
    <message>
        <source>sway&apos;s command to focus a window.</source>
        <translation>Der Befehl von sway, ein Fenster nach vorn zu holen.</translation>
    </message>
    <message>
        <source>Only the keys of the launcher&apos;s own windows.</source>
        <translation>Nur die Tasten in Fenstern des Launchers.</translation>
    </message>
    <message>
        <source>The ring&apos;s own keyboard, while it is open.</source>
        <translation>Die Tastatur des Rings, solange er offen ist.</translation>
    </message>
    <message>
        <source>The compositor lists its windows for taskbars.</source>
        <translation>Der Compositor zählt seine Fenster für Fensterleisten auf.</translation>
    </message>
    <message>
        <source>A request to the compositor, as taskbars make it.</source>
        <translation>Eine Bitte an den Compositor, wie Fensterleisten sie stellen.</translation>
    </message>
    <message>
        <source>An invisible surface on each screen, which the pointer enters.</source>
        <translation>Eine unsichtbare Fläche auf jedem Bildschirm, die der Zeiger betritt.</translation>
    </message>
    <message>
        <source>This session has no pointer.</source>
        <translation>Diese Sitzung hat keinen Zeiger.</translation>
    </message>
    <message>
        <source>A surface in the compositor&apos;s layer above all windows.</source>
        <translation>Eine Fläche in der Ebene des Compositors über allen Fenstern.</translation>
    </message>
    <message>
        <source>The X server tells which modifiers are held.</source>
        <translation>Der X-Server sagt, welche Sondertasten gehalten werden.</translation>
    </message>
    <message>
        <source>The X server reserves the key for the launcher.</source>
        <translation>Der X-Server hält die Taste für den Launcher frei.</translation>
    </message>
    <message>
        <source>The X server tells where it is.</source>
        <translation>Der X-Server sagt, wo er ist.</translation>
    </message>
    <message>
        <source>Beside a Wayland desktop it knows that only over its own windows: the ring may open elsewhere.</source>
        <translation>Neben einer Wayland-Umgebung weiß er das nur über seinen eigenen Fenstern: Der Ring öffnet sich vielleicht woanders.</translation>
    </message>
    <message>
        <source>A window that the window manager keeps above the others.</source>
        <translation>Ein Fenster, das die Fensterverwaltung über den anderen hält.</translation>
    </message>
    <message>
        <source>A window of its own above all others.</source>
        <translation>Ein eigenes Fenster über allen anderen.</translation>
    </message>
    <message>
        <source>The window manager lists its windows.</source>
        <translation>Die Fensterverwaltung zählt ihre Fenster auf.</translation>
    </message>
    <message>
        <source>Programs other than X11&apos;s are seen to run only by their name on the session bus or their systemd unit.</source>
        <translation>Andere Programme als die von X11 sieht man nur an ihrem Namen auf dem Sitzungsbus oder an ihrer systemd-Unit laufen.</translation>
    </message>
    <message>
        <source>No window manager runs, or an old one that lists none.</source>
        <translation>Es läuft keine Fensterverwaltung, oder eine alte, die nichts aufzählt.</translation>
    </message>
    <message>
        <source>A request to the window manager.</source>
        <translation>Eine Bitte an die Fensterverwaltung.</translation>
    </message>
    <message>
        <source>Programs other than X11&apos;s are started once more, unless they have a name on the session bus.</source>
        <translation>Andere Programme als die von X11 werden noch einmal gestartet, außer sie haben einen Namen auf dem Sitzungsbus.</translation>
    </message>
    <message>
        <source>The desktop places the ring.</source>
        <translation>Die Arbeitsumgebung gibt dem Ring seinen Platz.</translation>
    </message>
    <message>
        <source>This desktop tells no program where the pointer is.</source>
        <translation>Diese Arbeitsumgebung sagt keinem Programm, wo der Zeiger ist.</translation>
    </message>
    <message>
        <source>A window like any other.</source>
        <translation>Ein Fenster wie jedes andere.</translation>
    </message>
    <message>
        <source>This desktop lets no program keep a window above the others.</source>
        <translation>Diese Arbeitsumgebung lässt kein Programm ein Fenster über den anderen halten.</translation>
    </message>
    <message>
        <source>A global shortcut that the desktop gives.</source>
        <translation>Ein globales Tastenkürzel, das die Arbeitsumgebung vergibt.</translation>
    </message>
    <message>
        <source>A global shortcut that the desktop gives: %1.</source>
        <translation>Ein globales Tastenkürzel, das die Arbeitsumgebung vergibt: %1.</translation>
    </message>
    <message>
        <source>The desktop was asked for a shortcut and has given none. Check My Desktop in the settings can ask again.</source>
        <translation>Die Arbeitsumgebung wurde um ein Tastenkürzel gebeten und hat keines vergeben. „Desktop prüfen“ in den Einstellungen kann noch einmal fragen.</translation>
    </message>
    <message>
        <source>This desktop gives a program a shortcut after it has asked you.</source>
        <translation>Diese Arbeitsumgebung gibt einem Programm ein Tastenkürzel, nachdem sie Sie gefragt hat.</translation>
    </message>
    <message>
        <source>It knows none of modifiers alone, so the same modifiers with Space are proposed.</source>
        <translation>Sie kennt keines aus Sondertasten allein. Darum werden dieselben Sondertasten mit der Leertaste vorgeschlagen.</translation>
    </message>
    <message>
        <source>Add this line to the configuration of your desktop: %1</source>
        <translation>Fügen Sie der Konfiguration Ihrer Arbeitsumgebung diese Zeile hinzu: %1</translation>
    </message>
    <message>
        <source>A shortcut that Hyprland&apos;s configuration gives.</source>
        <translation>Ein Tastenkürzel, das die Konfiguration von Hyprland vergibt.</translation>
    </message>
    <message>
        <source>Hyprland gives a shortcut to the program that its configuration names. It is active as soon as you have pressed it once.</source>
        <translation>Hyprland gibt ein Tastenkürzel dem Programm, das seine Konfiguration nennt. Es gilt, sobald Sie es einmal gedrückt haben.</translation>
    </message>
</context>
</TS>
