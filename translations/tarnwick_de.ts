<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AccessibilityAlert</name>
    <message>
        <source>Tarnwick requires that the Accessibility API be enabled.</source>
        <translation>Tarnwick benötigt die Bedienungshilfen; sie sind ausgeschaltet.</translation>
    </message>
    <message>
        <source>Would you like to launch System Preferences so that you can turn on "Enable access for assistive devices"?</source>
        <translation>Möchten Sie die Systemeinstellungen öffnen, um den Zugriff für Hilfsgeräte einzuschalten?</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>Systemeinstellungen öffnen</translation>
    </message>
    <message>
        <source>Continue Anyway</source>
        <translation>Trotzdem fortfahren</translation>
    </message>
    <message>
        <source>Quit Tarnwick</source>
        <translation>Tarnwick beenden</translation>
    </message>
</context>
<context>
    <name>ShortcutRecorder</name>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Pad %@</source>
        <translation>Ziffernblock %@</translation>
    </message>
    <message>
        <source>Command + </source>
        <translation>Befehl + </translation>
    </message>
    <message>
        <source>Option + </source>
        <translation>Option + </translation>
    </message>
    <message>
        <source>Control + </source>
        <translation>Control + </translation>
    </message>
    <message>
        <source>Shift + </source>
        <translation>Umschalt + </translation>
    </message>
    <message>
        <source>The key combination %@ can't be used!</source>
        <translation>Das Tastenkürzel %@ kann nicht verwendet werden.</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because %@.</source>
        <translation>Das Tastenkürzel „%@“ kann nicht verwendet werden: %@.</translation>
    </message>
    <message>
        <source>it's already used</source>
        <translation>es wird bereits verwendet</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because it's already used by a system-wide keyboard shortcut. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>Das Tastenkürzel „%@“ kann nicht verwendet werden, weil es bereits systemweit vergeben ist. (Die meisten Tastenkürzel lassen sich in den Systemeinstellungen unter „Tastatur &amp; Maus“ ändern, falls Sie genau dieses verwenden möchten.)</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because it's already used by the menu item "%@".</source>
        <translation>Das Tastenkürzel „%@“ kann nicht verwendet werden, weil es bereits zum Menüeintrag „%@“ gehört.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Alert</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Click to record shortcut</source>
        <translation>Klicken zum Aufnehmen</translation>
    </message>
    <message>
        <source>Type shortcut</source>
        <translation>Tastenkürzel drücken</translation>
    </message>
    <message>
        <source>Use old shortcut</source>
        <translation>Altes Kürzel behalten</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keines</translation>
    </message>
    <message>
        <source>%@, %@</source>
        <translation>%@, %@</translation>
    </message>
    <message>
        <source>%@, %@, press Space to record</source>
        <translation>%@, %@, zum Aufnehmen Leertaste drücken</translation>
    </message>
    <message>
        <source>%@, recording, type shortcut or press Escape to cancel</source>
        <translation>%@, Aufnahme läuft, Tastenkürzel drücken oder mit Escape abbrechen</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Option</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Rückschritt</translation>
    </message>
    <message>
        <source>Forward Delete</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Left Arrow</source>
        <translation>Pfeil nach links</translation>
    </message>
    <message>
        <source>Right Arrow</source>
        <translation>Pfeil nach rechts</translation>
    </message>
    <message>
        <source>Up Arrow</source>
        <translation>Pfeil nach oben</translation>
    </message>
    <message>
        <source>Down Arrow</source>
        <translation>Pfeil nach unten</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos 1</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Escape</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter im Ziffernblock</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulator</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>tarnwick::AboutPane</name>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>The menu bar of the application in front, at the pointer.</source>
        <translation>Die Menüleiste des vordersten Programms am Mauszeiger.</translation>
    </message>
    <message>
        <source>&amp;Quorlane Home Page</source>
        <translation>Website von &amp;Quorlane</translation>
    </message>
    <message>
        <source>O&amp;stravane Home Page</source>
        <translation>Website von &amp;Ostravane</translation>
    </message>
    <message>
        <source>Opens in the web browser</source>
        <translation>Wird im Webbrowser geöffnet</translation>
    </message>
</context>
<context>
    <name>tarnwick::AboutPanel</name>
    <message>
        <source>About Tarnwick</source>
        <translation>Über Tarnwick</translation>
    </message>
    <message>
        <source>Quorlane Home Page</source>
        <translation>Website von Quorlane</translation>
    </message>
    <message>
        <source>Ostravane Home Page</source>
        <translation>Website von Ostravane</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>The menu bar of the application in front, at the pointer.</source>
        <translation>Die Menüleiste des vordersten Programms am Mauszeiger.</translation>
    </message>
    <message>
        <source>Opens in the web browser</source>
        <translation>Wird im Webbrowser geöffnet</translation>
    </message>
</context>
<context>
    <name>tarnwick::AppController</name>
    <message>
        <source>About Tarnwick...</source>
        <translation>Über Tarnwick...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Einstellungen...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>tarnwick::GeneralOptionsPane</name>
    <message>
        <source>Start Tarnwick when I &amp;log in</source>
        <translation>Tarnwick beim &amp;Anmelden starten</translation>
    </message>
    <message>
        <source>Show Tarnwick's &amp;icon in the status area</source>
        <translation>&amp;Symbol von Tarnwick im Statusbereich zeigen</translation>
    </message>
    <message>
        <source>Without the icon, start Tarnwick again to come back to this window.</source>
        <translation>Ohne das Symbol kommen Sie zu diesem Fenster, indem Sie Tarnwick noch einmal starten.</translation>
    </message>
    <message>
        <source>Include the s&amp;ystem menu</source>
        <translation>Das S&amp;ystemmenü aufnehmen</translation>
    </message>
    <message>
        <source>Include the &amp;application's menus</source>
        <translation>Di&amp;e Menüs des Programms aufnehmen</translation>
    </message>
    <message>
        <source>Show &amp;keyboard shortcuts beside the menu items</source>
        <translation>Tasten&amp;kürzel neben den Menüeinträgen zeigen</translation>
    </message>
    <message>
        <source>Show al&amp;ternative items only while their modifier key is held</source>
        <translation>A&amp;lternative Einträge nur bei gehaltener Sondertaste zeigen</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source> points</source>
        <translation> Punkt</translation>
    </message>
    <message>
        <source>Text &amp;size of the menu:</source>
        <translation>Schrift&amp;größe des Menüs:</translation>
    </message>
    <message>
        <source>Text size of the menu</source>
        <translation>Schriftgröße des Menüs</translation>
    </message>
    <message>
        <source>&amp;Reset to Defaults</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Quit Tarnwick</source>
        <translation>Tarnwick &amp;beenden</translation>
    </message>
</context>
<context>
    <name>tarnwick::HotKeyPane</name>
    <message>
        <source>Open the menu with a &amp;hot key</source>
        <translation>Das Menü mit einem Ta&amp;stenkürzel öffnen</translation>
    </message>
    <message>
        <source>&amp;Shortcut:</source>
        <translation>&amp;Kürzel:</translation>
    </message>
    <message>
        <source>Click the field or press Space in it, then press the new keys together. Escape keeps the old ones.</source>
        <translation>Klicken Sie in das Feld oder drücken Sie darin die Leertaste und dann die neuen Tasten zusammen. Escape behält die alten.</translation>
    </message>
    <message>
        <source>Open the menu with an e&amp;xtra mouse button</source>
        <translation>Das Menü mit einer &amp;zusätzlichen Maustaste öffnen</translation>
    </message>
    <message>
        <source>Mouse button</source>
        <translation>Maustaste</translation>
    </message>
    <message>
        <source>Mouse &amp;button:</source>
        <translation>Ma&amp;ustaste:</translation>
    </message>
    <message>
        <source>Click the field with the button that is to open the menu: the middle one, or one at the side of the mouse.</source>
        <translation>Klicken Sie mit der Taste in das Feld, die das Menü öffnen soll: der mittleren oder einer an der Seite der Maus.</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>K&amp;opieren</translation>
    </message>
    <message>
        <source>Co&amp;py</source>
        <translation>Ko&amp;pieren</translation>
    </message>
</context>
<context>
    <name>tarnwick::PreferencesWindow</name>
    <message>
        <source>H&amp;ot Key</source>
        <translation>&amp;Tastenkürzel</translation>
    </message>
    <message>
        <source>&amp;General</source>
        <translation>Allge&amp;mein</translation>
    </message>
    <message>
        <source>Abo&amp;ut</source>
        <translation>Übe&amp;r</translation>
    </message>
    <message>
        <source>In this Wayland session a part of Tarnwick is missing.</source>
        <translation>In dieser Wayland-Sitzung fehlt ein Teil von Tarnwick.</translation>
    </message>
    <message>
        <source>The hot key and the mouse button open the menu only while an application that runs on XWayland is in front.

For all others, let a key of the desktop run this command:
%1

Over them the menu obeys the pointer alone, and it may open where the pointer was seen last.</source>
        <translation>Tastenkürzel und Maustaste öffnen das Menü nur, solange ein Programm im Vordergrund ist, das auf XWayland läuft.

Für alle anderen lassen Sie eine Taste des Desktops diesen Befehl ausführen:
%1

Über diesen folgt das Menü nur dem Mauszeiger, und es kann sich dort öffnen, wo dieser zuletzt gesehen wurde.</translation>
    </message>
    <message>
        <source>This Tarnwick was built without LayerShellQt, so it runs on XWayland. One that was built with it runs on Wayland itself, without these limits, where the compositor allows that.</source>
        <translation>Dieses Tarnwick wurde ohne LayerShellQt gebaut und läuft deshalb auf XWayland. Eines, das damit gebaut wurde, läuft ohne diese Grenzen auf Wayland selbst, wo der Compositor das zulässt.</translation>
    </message>
    <message>
        <source>Tarnwick runs on XWayland here: this compositor lets no program open a menu at the pointer on Wayland itself.</source>
        <translation>Tarnwick läuft hier auf XWayland: Dieser Compositor lässt kein Programm auf Wayland selbst ein Menü am Mauszeiger öffnen.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>tarnwick::TWMouseButtonIdentifier</name>
    <message>
        <source>Button Number: %i</source>
        <translation>Tastennummer: %i</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Application</source>
        <translation>Anwendung</translation>
    </message>
    <message>
        <source>About Tarnwick...</source>
        <translation>Über Tarnwick...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Einstellungen...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
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
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>tarnwick::GlobalHotKeys</name>
    <message>
        <source>Open the Menu at the Pointer</source>
        <translation>Menü am Mauszeiger öffnen</translation>
    </message>
</context>
<context>
    <name>tarnwick::PreferencesWindowController</name>
    <message>
        <source>they are taken by %1</source>
        <translation>es an %1 vergeben ist</translation>
    </message>
</context>
<context>
    <name>tarnwick::TriggerHintView</name>
    <message>
        <source>Keys given by the desktop: %1. Others can be chosen in its settings.</source>
        <translation>Tasten, die die Arbeitsumgebung vergeben hat: %1. Andere lassen sich in ihren Einstellungen wählen.</translation>
    </message>
    <message>
        <source>The desktop is being asked for these keys.</source>
        <translation>Die Arbeitsumgebung wird um diese Tasten gebeten.</translation>
    </message>
    <message>
        <source>The desktop has not given these keys. Record others, or allow them in its settings.</source>
        <translation>Die Arbeitsumgebung hat diese Tasten nicht vergeben. Nehmen Sie andere auf, oder erlauben Sie sie in ihren Einstellungen.</translation>
    </message>
    <message>
        <source>These keys are taken by %1. Record others.</source>
        <translation>Diese Tasten sind an %1 vergeben. Nehmen Sie andere auf.</translation>
    </message>
    <message>
        <source>The compositor has to be told. Put this into %1:</source>
        <translation>Das muss dem Compositor gesagt werden. Tragen Sie dies in %1 ein:</translation>
    </message>
    <message>
        <source>This desktop gives no keys to programs. Let one of its own run this command:</source>
        <translation>Diese Arbeitsumgebung gibt Programmen keine Tasten. Legen Sie in ihr diesen Befehl auf eine Taste:</translation>
    </message>
    <message>
        <source>This desktop can have a button at the side of the mouse press the hot key: look under Mouse in its settings.</source>
        <translation>Diese Arbeitsumgebung kann eine Seitentaste der Maus das Tastenkürzel drücken lassen: siehe „Maus“ in ihren Einstellungen.</translation>
    </message>
    <message>
        <source>On this desktop no mouse button can open the menu.</source>
        <translation>In dieser Arbeitsumgebung kann keine Maustaste das Menü öffnen.</translation>
    </message>
    <message>
        <source>It works: the menu has been asked for this way.</source>
        <translation>Es funktioniert: Das Menü wurde so schon angefordert.</translation>
    </message>
    <message>
        <source>It has not asked for the menu yet.</source>
        <translation>So wurde das Menü noch nicht angefordert.</translation>
    </message>
</context>
<context>
    <name>tarnwick::SearchView</name>
    <message>
        <source>Search the menus</source>
        <translation>In den Menüs suchen</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Treffer</translation>
    </message>
    <message>
        <source>Menus that were not searched: %1. Open them in the application once.</source>
        <translation>Nicht durchsuchte Menüs: %1. Öffnen Sie sie einmal in der Anwendung.</translation>
    </message>
    <message>
        <source>Menus that took too long: %1.</source>
        <translation>Menüs, die zu lange gebraucht haben: %1.</translation>
    </message>
    <message>
        <source>Results: %1</source>
        <translation>Treffer: %1</translation>
    </message>
    <message>
        <source>Nothing is called so.</source>
        <translation>So heißt nichts.</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Suche läuft...</translation>
    </message>
</context>
<context>
    <name>tarnwick::UnmadeMenu</name>
    <message>
        <source>Open this menu in the application once</source>
        <translation>Dieses Menü einmal im Programm öffnen</translation>
    </message>
</context>
</TS>
