<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Calmora</name>
    <message>
        <source>%@ freed</source>
        <translation>%@ frei</translation>
    </message>
    <message numerus="yes">
        <source>%lld quit</source>
        <translation>
            <numerusform>%lld beendet</numerusform>
            <numerusform>%lld beendet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld quit, %lld left</source>
        <translation>
            <numerusform>%lld beendet, %lld übrig</numerusform>
            <numerusform>%lld beendet, %lld übrig</numerusform>
        </translation>
    </message>
    <message>
        <source>Asks to save</source>
        <translation>Möchte sichern</translation>
    </message>
    <message>
        <source>Came back by itself</source>
        <translation>Von selbst neu gestartet</translation>
    </message>
    <message>
        <source>Does not answer</source>
        <translation>Antwortet nicht</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>Nicht erlaubt</translation>
    </message>
    <message>
        <source>Quitting…</source>
        <translation>Wird beendet …</translation>
    </message>
    <message>
        <source>Shows its window</source>
        <translation>Zeigt das Fenster</translation>
    </message>
    <message>
        <source>Some stayed. Calmora can quit all at once and say in the list what stays and why.</source>
        <translation>Einige sind geblieben. Calmora kann alle gleichzeitig beenden und in der Liste sagen, was bleibt und warum.</translation>
    </message>
    <message>
        <source>Switch on</source>
        <translation>Einschalten</translation>
    </message>
    <message numerus="yes">
        <source>apps_running_count %lld</source>
        <translation>
            <numerusform>%lld Programm geöffnet</numerusform>
            <numerusform>%lld Programme geöffnet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld apps · %lld protected</source>
        <translation>
            <numerusform>%lld Programm · %lld geschützt</numerusform>
            <numerusform>%lld Programme · %lld geschützt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_notification %@ %lld</source>
        <translation>
            <numerusform>%@ wurde nach %lld Minute ohne Nutzung beendet.</numerusform>
            <numerusform>%@ wurde nach %lld Minuten ohne Nutzung beendet.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_warning %@ %lld</source>
        <translation>
            <numerusform>%@ wird in 1 Minute beendet: %lld Minute ohne Nutzung.</numerusform>
            <numerusform>%@ wird in 1 Minute beendet: %lld Minuten ohne Nutzung.</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Nicht beenden</translation>
    </message>
    <message>
        <source>version_label %@</source>
        <translation>Version %@</translation>
    </message>
    <message>
        <source>About Calmora</source>
        <translation>Über Calmora</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Updates suchen …</translation>
    </message>
    <message>
        <source>Quit Calmora</source>
        <translation>Calmora beenden</translation>
    </message>
    <message>
        <source>Show/Hide Calmora</source>
        <translation>Calmora ein-/ausblenden</translation>
    </message>
    <message>
        <source>Quit All</source>
        <translation>Alle beenden</translation>
    </message>
    <message>
        <source>Force Quit All</source>
        <translation>Alle sofort beenden</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alle auswählen</translation>
    </message>
    <message numerus="yes">
        <source>Quits %lld applications</source>
        <translation>
            <numerusform>Beendet %lld Programm</numerusform>
            <numerusform>Beendet %lld Programme</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Quits %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Beendet %lld Programm, durch die Suche ausgeblendet (%lld)</numerusform>
            <numerusform>Beendet %lld Programme, davon %lld durch die Suche ausgeblendet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Force quits %lld applications</source>
        <translation>
            <numerusform>Beendet %lld Programm sofort</numerusform>
            <numerusform>Beendet %lld Programme sofort</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Force quits %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Beendet %lld Programm sofort, durch die Suche ausgeblendet (%lld)</numerusform>
            <numerusform>Beendet %lld Programme sofort, davon %lld durch die Suche ausgeblendet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selects %lld applications</source>
        <translation>
            <numerusform>Wählt %lld Programm aus</numerusform>
            <numerusform>Wählt %lld Programme aus</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selects %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Wählt %lld Programm aus, durch die Suche ausgeblendet (%lld)</numerusform>
            <numerusform>Wählt %lld Programme aus, davon %lld durch die Suche ausgeblendet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deselects %lld applications</source>
        <translation>
            <numerusform>Wählt %lld Programm ab</numerusform>
            <numerusform>Wählt %lld Programme ab</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deselects %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Wählt %lld Programm ab, durch die Suche ausgeblendet (%lld)</numerusform>
            <numerusform>Wählt %lld Programme ab, davon %lld durch die Suche ausgeblendet</numerusform>
        </translation>
    </message>
    <message>
        <source>Running apps</source>
        <translation>Laufende Programme</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>Suche löschen</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>No apps found</source>
        <translation>Keine Programme gefunden</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Force Quit</source>
        <translation>Sofort beenden</translation>
    </message>
    <message>
        <source>Quit %@</source>
        <translation>%@ beenden</translation>
    </message>
    <message>
        <source>Force Quit %@</source>
        <translation>%@ sofort beenden</translation>
    </message>
    <message>
        <source>This desktop does not tell which process has which of these windows, so none can be forced to quit.</source>
        <translation>Dieser Desktop verrät nicht, welchem Prozess welches dieser Fenster gehört; deshalb lässt sich keiner sofort beenden.</translation>
    </message>
    <message>
        <source>CPU %@</source>
        <translation>CPU %@</translation>
    </message>
    <message>
        <source>Memory %@</source>
        <translation>Speicher %@</translation>
    </message>
    <message>
        <source>Protected</source>
        <translation>Geschützt</translation>
    </message>
    <message>
        <source>Never Quit This App</source>
        <translation>Dieses Programm nie beenden</translation>
    </message>
    <message>
        <source>Reopen</source>
        <translation>Wieder öffnen</translation>
    </message>
    <message>
        <source>Reopen %@</source>
        <translation>%@ wieder öffnen</translation>
    </message>
    <message numerus="yes">
        <source>Reopen %lld Applications</source>
        <translation>
            <numerusform>%lld Programm wieder öffnen</numerusform>
            <numerusform>%lld Programme wieder öffnen</numerusform>
        </translation>
    </message>
    <message>
        <source>Quit and Reopen</source>
        <translation>Beenden und wieder öffnen</translation>
    </message>
    <message>
        <source>Force Quit and Reopen</source>
        <translation>Sofort beenden und wieder öffnen</translation>
    </message>
    <message>
        <source>Remove Protection</source>
        <translation>Schutz aufheben</translation>
    </message>
    <message>
        <source>Expanded</source>
        <translation>Ausgeklappt</translation>
    </message>
    <message>
        <source>Collapsed</source>
        <translation>Eingeklappt</translation>
    </message>
    <message numerus="yes">
        <source>Do you want to force quit %lld selected apps?</source>
        <translation>
            <numerusform>Möchten Sie %lld ausgewähltes Programm sofort beenden?</numerusform>
            <numerusform>Möchten Sie %lld ausgewählte Programme sofort beenden?</numerusform>
        </translation>
    </message>
    <message>
        <source>You will lose any unsaved changes in these apps.</source>
        <translation>Nicht gespeicherte Änderungen in diesen Programmen gehen verloren.</translation>
    </message>
    <message>
        <source>Do you want to force "%@" to quit?</source>
        <translation>Möchten Sie „%@“ sofort beenden?</translation>
    </message>
    <message>
        <source>You will lose any unsaved changes.</source>
        <translation>Nicht gespeicherte Änderungen gehen verloren.</translation>
    </message>
    <message>
        <source>this app</source>
        <translation>dieses Programm</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Calmora Settings</source>
        <translation>Calmora-Einstellungen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Startup</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Open Calmora at login</source>
        <translation>Calmora bei der Anmeldung öffnen</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Updates</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>Automatisch nach Updates suchen</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Töne</translation>
    </message>
    <message>
        <source>Play sound on quit</source>
        <translation>Beim Beenden einen Ton abspielen</translation>
    </message>
    <message>
        <source>Protection</source>
        <translation>Schutz</translation>
    </message>
    <message>
        <source>Never quit music apps</source>
        <translation>Musikprogramme nie beenden</translation>
    </message>
    <message>
        <source>Deselect apps by default</source>
        <translation>Programme anfangs nicht auswählen</translation>
    </message>
    <message>
        <source>Never-Quit List</source>
        <translation>Nie beenden</translation>
    </message>
    <message>
        <source>No apps in the never-quit list. Right-click an app in the menu to protect it, or use "Add App" above.</source>
        <translation>Die Liste „Nie beenden“ ist leer. Klicken Sie im Menü mit der rechten Maustaste auf ein Programm, um es zu schützen, oder verwenden Sie „Programm hinzufügen“.</translation>
    </message>
    <message>
        <source>Protected Apps</source>
        <translation>Geschützte Programme</translation>
    </message>
    <message>
        <source>Add App</source>
        <translation>Programm hinzufügen</translation>
    </message>
    <message>
        <source>Add App to Never-Quit List</source>
        <translation>Zu „Nie beenden“ hinzufügen</translation>
    </message>
    <message>
        <source>Remove from never-quit list</source>
        <translation>Aus „Nie beenden“ entfernen</translation>
    </message>
    <message>
        <source>No running apps found</source>
        <translation>Keine laufenden Programme gefunden</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>Hinzugefügt</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>Extras</translation>
    </message>
    <message>
        <source>Include Finder in app list</source>
        <translation>Dateiverwaltung in der Liste anzeigen</translation>
    </message>
    <message>
        <source>View background apps</source>
        <translation>Hintergrundprogramme anzeigen</translation>
    </message>
    <message>
        <source>Group background instances</source>
        <translation>Hintergrundinstanzen gruppieren</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Anzeige</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Sortieren nach</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>Name (A–Z)</translation>
    </message>
    <message>
        <source>CPU Usage</source>
        <translation>CPU-Auslastung</translation>
    </message>
    <message>
        <source>Memory Usage</source>
        <translation>Speichernutzung</translation>
    </message>
    <message>
        <source>Show resources</source>
        <translation>Ressourcen anzeigen</translation>
    </message>
    <message>
        <source>CPU Only</source>
        <translation>Nur CPU</translation>
    </message>
    <message>
        <source>Memory Only</source>
        <translation>Nur Speicher</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Beides</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Nichts</translation>
    </message>
    <message>
        <source>Default quit mode</source>
        <translation>Standardmäßig beenden</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>Sofort</translation>
    </message>
    <message>
        <source>Calmora always starts with polite quitting; hold Alt in the popover to force.</source>
        <translation>Calmora beginnt immer mit höflichem Beenden; halten Sie im Fenster der Statusleiste die Alt-Taste gedrückt, um sofort zu beenden.</translation>
    </message>
    <message>
        <source>Auto Quit</source>
        <translation>Automatisch beenden</translation>
    </message>
    <message>
        <source>Auto-quit inactive apps</source>
        <translation>Inaktive Programme automatisch beenden</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Nach</translation>
    </message>
    <message>
        <source>5 minutes</source>
        <translation>5 Minuten</translation>
    </message>
    <message>
        <source>10 minutes</source>
        <translation>10 Minuten</translation>
    </message>
    <message>
        <source>15 minutes</source>
        <translation>15 Minuten</translation>
    </message>
    <message>
        <source>30 minutes</source>
        <translation>30 Minuten</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 Stunde</translation>
    </message>
    <message>
        <source>2 hours</source>
        <translation>2 Stunden</translation>
    </message>
    <message>
        <source>4 hours</source>
        <translation>4 Stunden</translation>
    </message>
    <message>
        <source>8 hours</source>
        <translation>8 Stunden</translation>
    </message>
    <message>
        <source>Options and Forecast…</source>
        <translation>Optionen und Vorschau …</translation>
    </message>
    <message>
        <source>Shall auto-quit leave alone what is in use, such as an app that plays sound, and tell you a minute before it quits an app?</source>
        <translation>Soll automatisches Beenden verschonen, was in Gebrauch ist, etwa ein Programm, das Ton ausgibt, und Ihnen eine Minute vorher sagen, was beendet wird?</translation>
    </message>
    <message>
        <source>Spare what is in use and warn first</source>
        <translation>Verschonen, was in Gebrauch ist, und vorher warnen</translation>
    </message>
    <message>
        <source>Apps that play or record sound, keep the computer awake, are full screen, or are in front while you type are left alone. A notice says a minute before which app will be quit.</source>
        <translation>Programme, die Ton ausgeben oder aufnehmen, den Rechner wach halten, den ganzen Bildschirm füllen oder vorn sind, während Sie tippen, bleiben in Ruhe. Ein Hinweis sagt eine Minute vorher, welches Programm beendet wird.</translation>
    </message>
    <message>
        <source>Quit together, show what is left, and Reopen</source>
        <translation>Gemeinsam beenden, zeigen, was bleibt, und wieder öffnen</translation>
    </message>
    <message>
        <source>Asks all ticked apps at once, says in the list why an app has stayed, and offers to start again what was quit.</source>
        <translation>Fordert alle ausgewählten Programme zugleich auf, sagt in der Liste, warum ein Programm geblieben ist, und bietet an, Beendetes wieder zu starten.</translation>
    </message>
    <message>
        <source>What auto-quit will do</source>
        <translation>Was automatisch beendet wird</translation>
    </message>
    <message>
        <source>Auto-quit is off.</source>
        <translation>Automatisches Beenden ist ausgeschaltet.</translation>
    </message>
    <message>
        <source>Never: %@</source>
        <translation>Nie: %@</translation>
    </message>
    <message>
        <source>Spared: %@</source>
        <translation>Verschont: %@</translation>
    </message>
    <message>
        <source>last spared: %@</source>
        <translation>zuletzt verschont: %@</translation>
    </message>
    <message>
        <source>Not before you use it</source>
        <translation>Nicht, bevor Sie es benutzen</translation>
    </message>
    <message>
        <source>Not while in front</source>
        <translation>Nicht, solange es vorn ist</translation>
    </message>
    <message>
        <source>Was asked to quit and stayed</source>
        <translation>Wurde zum Beenden aufgefordert und blieb</translation>
    </message>
    <message numerus="yes">
        <source>In %lld min</source>
        <translation>
            <numerusform>In %lld Min.</numerusform>
            <numerusform>In %lld Min.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>In %lld min unless busy</source>
        <translation>
            <numerusform>In %lld Min., wenn nicht beschäftigt</numerusform>
            <numerusform>In %lld Min., wenn nicht beschäftigt</numerusform>
        </translation>
    </message>
    <message>
        <source>not identified</source>
        <translation>nicht zu erkennen</translation>
    </message>
    <message>
        <source>activity unknown</source>
        <translation>Nutzung unbekannt</translation>
    </message>
    <message>
        <source>the desktop leaves it no time to ask you</source>
        <translation>die Arbeitsumgebung lässt ihm keine Zeit für Rückfragen</translation>
    </message>
    <message>
        <source>music player</source>
        <translation>Musikprogramm</translation>
    </message>
    <message>
        <source>file manager</source>
        <translation>Dateiverwaltung</translation>
    </message>
    <message>
        <source>protected</source>
        <translation>geschützt</translation>
    </message>
    <message>
        <source>terminal</source>
        <translation>Terminal</translation>
    </message>
    <message>
        <source>needed in the background</source>
        <translation>wird im Hintergrund gebraucht</translation>
    </message>
    <message>
        <source>the time is too long</source>
        <translation>die Zeit ist zu lang</translation>
    </message>
    <message>
        <source>plays sound</source>
        <translation>gibt Ton aus</translation>
    </message>
    <message>
        <source>records sound</source>
        <translation>nimmt Ton auf</translation>
    </message>
    <message>
        <source>plays media</source>
        <translation>spielt Medien ab</translation>
    </message>
    <message>
        <source>shares the screen</source>
        <translation>gibt den Bildschirm frei</translation>
    </message>
    <message>
        <source>keeps the computer awake</source>
        <translation>hält den Rechner wach</translation>
    </message>
    <message>
        <source>full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>busy</source>
        <translation>beschäftigt</translation>
    </message>
    <message>
        <source>its use cannot be checked</source>
        <translation>Nutzung ist nicht feststellbar</translation>
    </message>
    <message>
        <source>the notice could not be shown</source>
        <translation>der Hinweis ließ sich nicht zeigen</translation>
    </message>
    <message>
        <source>Changes last until you quit Calmora: %@ cannot be used.</source>
        <translation>Änderungen gelten, bis Sie Calmora beenden: %@ kann nicht verwendet werden.</translation>
    </message>
    <message>
        <source>Reset All Settings</source>
        <translation>Alle Einstellungen zurücksetzen</translation>
    </message>
    <message>
        <source>Global Shortcuts</source>
        <translation>Globale Tastenkürzel</translation>
    </message>
    <message>
        <source>Show/Hide Calmora:</source>
        <translation>Calmora ein-/ausblenden:</translation>
    </message>
    <message>
        <source>Quit all:</source>
        <translation>Alle beenden:</translation>
    </message>
    <message>
        <source>Force quit all:</source>
        <translation>Alle sofort beenden:</translation>
    </message>
    <message>
        <source>Shortcuts work from any application.</source>
        <translation>Tastenkürzel wirken in jedem Programm.</translation>
    </message>
    <message>
        <source>Shortcuts work from any application. Keys for accents and those of the numeric keypad cannot be used here.</source>
        <translation>Tastenkürzel wirken in jedem Programm. Akzenttasten und Tasten des Ziffernblocks lassen sich hier nicht verwenden.</translation>
    </message>
    <message>
        <source>This desktop does not tell which applications run, so only X11 ones are listed.</source>
        <translation>Dieser Desktop verrät nicht, welche Programme laufen; deshalb werden nur X11-Programme aufgeführt.</translation>
    </message>
    <message>
        <source>This desktop ends Wayland applications that take longer than 2 seconds to answer, so only X11 applications are quit automatically.</source>
        <translation>Dieser Desktop beendet Wayland-Programme, die länger als 2 Sekunden nicht antworten; deshalb werden nur X11-Programme automatisch beendet.</translation>
    </message>
    <message>
        <source>Calmora needs its extension for GNOME to see all apps, to ask them to quit, and to put its icon into the top bar.</source>
        <translation>Calmora braucht seine Erweiterung für GNOME, um alle Programme zu sehen, sie zum Beenden aufzufordern und sein Symbol in der oberen Leiste zu zeigen.</translation>
    </message>
    <message>
        <source>Its extension for GNOME puts Calmora’s icon into the top bar.</source>
        <translation>Die Erweiterung für GNOME zeigt das Symbol von Calmora in der oberen Leiste.</translation>
    </message>
    <message>
        <source>Log out and in once so that GNOME finds Calmora’s extension.</source>
        <translation>Melden Sie sich einmal ab und wieder an, damit GNOME die Erweiterung von Calmora findet.</translation>
    </message>
    <message>
        <source>Extensions of GNOME are switched off on this system.</source>
        <translation>Erweiterungen von GNOME sind auf diesem System ausgeschaltet.</translation>
    </message>
    <message>
        <source>The extension for GNOME is switched on.</source>
        <translation>Die Erweiterung für GNOME ist eingeschaltet.</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Einschalten</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>GNOME</source>
        <translation>GNOME</translation>
    </message>
    <message>
        <source>Shortcuts wait for the GNOME extension to be switched on again.</source>
        <translation>Tastenkürzel warten darauf, dass die Erweiterung für GNOME wieder eingeschaltet wird.</translation>
    </message>
    <message>
        <source>Without the GNOME extension, Calmora sees no Wayland windows. Some apps are missing, and some can only be force quit.</source>
        <translation>Ohne die Erweiterung für GNOME sieht Calmora keine Wayland-Fenster. Manche Programme fehlen, manche lassen sich nur sofort beenden.</translation>
    </message>
    <message>
        <source>Key on this desktop: %@</source>
        <translation>Taste in dieser Arbeitsumgebung: %@</translation>
    </message>
    <message>
        <source>The desktop has assigned no key.</source>
        <translation>Die Arbeitsumgebung hat keine Taste zugewiesen.</translation>
    </message>
    <message>
        <source>The desktop assigns the keys; what is recorded here is a proposal.</source>
        <translation>Die Arbeitsumgebung weist die Tasten zu; was hier aufgenommen wird, ist ein Vorschlag.</translation>
    </message>
    <message>
        <source>Record a shortcut, copy its line into the configuration of sway, and reload that.</source>
        <translation>Nehmen Sie ein Tastenkürzel auf, kopieren Sie seine Zeile in die Konfiguration von sway und laden Sie diese neu.</translation>
    </message>
    <message>
        <source>This desktop does not let programs choose shortcuts. Bind these commands to keys in its settings or its configuration.</source>
        <translation>In dieser Arbeitsumgebung können Programme keine Tastenkürzel wählen. Weisen Sie diesen Befehlen in ihren Einstellungen oder ihrer Konfiguration Tasten zu.</translation>
    </message>
    <message>
        <source>Shortcuts are not available, because there is no X server.</source>
        <translation>Tastenkürzel sind nicht verfügbar, weil es keinen X-Server gibt.</translation>
    </message>
    <message>
        <source>Quits your applications. Spares your work.</source>
        <translation>Beendet Ihre Programme. Schont Ihre Arbeit.</translation>
    </message>
    <message>
        <source>update_available_text %@</source>
        <translation>Sie verwenden Version %@.</translation>
    </message>
    <message>
        <source>update_available_title %@</source>
        <translation>Version %@ ist verfügbar.</translation>
    </message>
    <message>
        <source>update_checking</source>
        <translation>Nach Updates wird gesucht …</translation>
    </message>
    <message>
        <source>update_current_text %@</source>
        <translation>Version %@ ist die neueste.</translation>
    </message>
    <message>
        <source>update_current_title</source>
        <translation>Calmora ist auf dem neuesten Stand.</translation>
    </message>
    <message>
        <source>update_error_address</source>
        <translation>Die Adresse, die in diese Version eingebaut ist, eignet sich nicht für Updates.</translation>
    </message>
    <message>
        <source>update_error_insecure</source>
        <translation>Die Verbindung zum Server ist nicht sicher; deshalb wurde nichts von ihm gelesen.</translation>
    </message>
    <message>
        <source>update_error_loader</source>
        <translation>Der Teil von Calmora, der das Netzwerk erreicht, fehlt. Calmora neu zu installieren sollte helfen.</translation>
    </message>
    <message>
        <source>update_error_redirect</source>
        <translation>Der Server hat Calmora an eine Adresse verwiesen, der es nicht vertraut.</translation>
    </message>
    <message>
        <source>update_error_refused</source>
        <translation>Der Server hat die Liste der Versionen nicht herausgegeben.</translation>
    </message>
    <message>
        <source>update_error_timeout</source>
        <translation>Der Server hat zu lange nicht geantwortet. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>update_error_too_large</source>
        <translation>Die Liste der Versionen ist größer, als eine solche Liste sein kann.</translation>
    </message>
    <message>
        <source>update_error_unreachable</source>
        <translation>Der Server ist nicht erreichbar. Prüfen Sie die Netzwerkverbindung und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>update_error_unreadable</source>
        <translation>Die Liste der Versionen ist beschädigt oder enthält, was nicht hineingehört.</translation>
    </message>
    <message>
        <source>update_error_version</source>
        <translation>Die Liste der Versionen nennt eine Version, die keine ist.</translation>
    </message>
    <message>
        <source>update_failed_title</source>
        <translation>Calmora konnte nicht nach Updates suchen.</translation>
    </message>
    <message>
        <source>update_notification_text</source>
        <translation>Wählen Sie „Nach Updates suchen …“ im Menü von Calmora, um zu lesen, was neu ist.</translation>
    </message>
    <message>
        <source>update_open_page</source>
        <translation>Webseite öffnen</translation>
    </message>
    <message>
        <source>update_packaged</source>
        <translation>Updates kommen mit den Paketen Ihres Systems.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>record_shortcut</source>
        <translation>Kürzel aufnehmen</translation>
    </message>
    <message>
        <source>press_shortcut</source>
        <translation>Kürzel drücken</translation>
    </message>
    <message>
        <source>clear_shortcut</source>
        <translation>Kürzel löschen</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_menu_item</source>
        <translation>Dieses Tastenkürzel kann nicht verwendet werden, weil es bereits zum Menüpunkt „%@“ gehört.</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_system</source>
        <translation>Dieses Tastenkürzel wird bereits von der Arbeitsumgebung verwendet.</translation>
    </message>
    <message>
        <source>keyboard_shortcuts_can_be_changed</source>
        <translation>Die meisten Tastenkürzel der Arbeitsumgebung lassen sich in deren Tastatureinstellungen ändern.</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>force_use_shortcut</source>
        <translation>Trotzdem verwenden</translation>
    </message>
    <message>
        <source>space_key</source>
        <translation>Leertaste</translation>
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
        <source>Fn</source>
        <translation>Fn</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfg</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Pfeil nach oben</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Pfeil nach rechts</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Pfeil nach unten</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Pfeil nach links</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Num</translation>
    </message>
    <message>
        <source>Keypad Enter</source>
        <translation>Ziffernblock Eingabe</translation>
    </message>
    <message>
        <source>Keypad 0</source>
        <translation>Ziffernblock 0</translation>
    </message>
    <message>
        <source>Keypad 1</source>
        <translation>Ziffernblock 1</translation>
    </message>
    <message>
        <source>Keypad 2</source>
        <translation>Ziffernblock 2</translation>
    </message>
    <message>
        <source>Keypad 3</source>
        <translation>Ziffernblock 3</translation>
    </message>
    <message>
        <source>Keypad 4</source>
        <translation>Ziffernblock 4</translation>
    </message>
    <message>
        <source>Keypad 5</source>
        <translation>Ziffernblock 5</translation>
    </message>
    <message>
        <source>Keypad 6</source>
        <translation>Ziffernblock 6</translation>
    </message>
    <message>
        <source>Keypad 7</source>
        <translation>Ziffernblock 7</translation>
    </message>
    <message>
        <source>Keypad 8</source>
        <translation>Ziffernblock 8</translation>
    </message>
    <message>
        <source>Keypad 9</source>
        <translation>Ziffernblock 9</translation>
    </message>
    <message>
        <source>Keypad .</source>
        <translation>Ziffernblock .</translation>
    </message>
    <message>
        <source>Keypad /</source>
        <translation>Ziffernblock /</translation>
    </message>
    <message>
        <source>Keypad =</source>
        <translation>Ziffernblock =</translation>
    </message>
    <message>
        <source>Keypad -</source>
        <translation>Ziffernblock -</translation>
    </message>
    <message>
        <source>Keypad *</source>
        <translation>Ziffernblock *</translation>
    </message>
    <message>
        <source>Keypad +</source>
        <translation>Ziffernblock +</translation>
    </message>
</context>
</TS>
