<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AccessibilityAlert</name>
    <message>
        <source>Tarnwick requires that the Accessibility API be enabled.</source>
        <translation>Tarnwick a besoin que l’accessibilité soit activée.</translation>
    </message>
    <message>
        <source>Would you like to launch System Preferences so that you can turn on "Enable access for assistive devices"?</source>
        <translation>Voulez-vous ouvrir les réglages du système pour autoriser l’accès aux technologies d’assistance ?</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>Ouvrir les réglages</translation>
    </message>
    <message>
        <source>Continue Anyway</source>
        <translation>Continuer quand même</translation>
    </message>
    <message>
        <source>Quit Tarnwick</source>
        <translation>Quitter Tarnwick</translation>
    </message>
</context>
<context>
    <name>ShortcutRecorder</name>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Pad %@</source>
        <translation>Pavé num. %@</translation>
    </message>
    <message>
        <source>Command + </source>
        <translation>Commande + </translation>
    </message>
    <message>
        <source>Option + </source>
        <translation>Option + </translation>
    </message>
    <message>
        <source>Control + </source>
        <translation>Contrôle + </translation>
    </message>
    <message>
        <source>Shift + </source>
        <translation>Maj + </translation>
    </message>
    <message>
        <source>The key combination %@ can't be used!</source>
        <translation>La combinaison de touches %@ ne peut pas être utilisée.</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because %@.</source>
        <translation>La combinaison de touches « %@ » ne peut pas être utilisée : %@.</translation>
    </message>
    <message>
        <source>it's already used</source>
        <translation>elle est déjà utilisée</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because it's already used by a system-wide keyboard shortcut. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>La combinaison de touches « %@ » ne peut pas être utilisée, car elle sert déjà de raccourci clavier à l’ensemble du système. (Si vous tenez à l’utiliser, la plupart des raccourcis peuvent être modifiés dans le panneau Clavier et souris des Préférences Système.)</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because it's already used by the menu item "%@".</source>
        <translation>La combinaison de touches « %@ » ne peut pas être utilisée, car elle est déjà associée à l’élément de menu « %@ ».</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Alert</source>
        <translation>Alerte</translation>
    </message>
    <message>
        <source>Click to record shortcut</source>
        <translation>Cliquer pour enregistrer</translation>
    </message>
    <message>
        <source>Type shortcut</source>
        <translation>Saisir le raccourci</translation>
    </message>
    <message>
        <source>Use old shortcut</source>
        <translation>Garder l’ancien</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Raccourci</translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucun</translation>
    </message>
    <message>
        <source>%@, %@</source>
        <translation>%@, %@</translation>
    </message>
    <message>
        <source>%@, %@, press Space to record</source>
        <translation>%@, %@, appuyez sur Espace pour enregistrer</translation>
    </message>
    <message>
        <source>%@, recording, type shortcut or press Escape to cancel</source>
        <translation>%@, enregistrement, saisissez le raccourci ou appuyez sur Échap pour annuler</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Commande</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Option</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Contrôle</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Maj</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Retour arrière</translation>
    </message>
    <message>
        <source>Forward Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>Left Arrow</source>
        <translation>Flèche gauche</translation>
    </message>
    <message>
        <source>Right Arrow</source>
        <translation>Flèche droite</translation>
    </message>
    <message>
        <source>Up Arrow</source>
        <translation>Flèche haut</translation>
    </message>
    <message>
        <source>Down Arrow</source>
        <translation>Flèche bas</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Origine</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Page suivante</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Page précédente</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Entrée du pavé numérique</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulation</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
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
        <translation>La barre des menus de l’application au premier plan, au pointeur.</translation>
    </message>
    <message>
        <source>&amp;Quorlane Home Page</source>
        <translation>Site de &amp;Quorlane</translation>
    </message>
    <message>
        <source>O&amp;stravane Home Page</source>
        <translation>Site d’O&amp;stravane</translation>
    </message>
    <message>
        <source>Opens in the web browser</source>
        <translation>S’ouvre dans le navigateur web</translation>
    </message>
</context>
<context>
    <name>tarnwick::AboutPanel</name>
    <message>
        <source>About Tarnwick</source>
        <translation>À propos de Tarnwick</translation>
    </message>
    <message>
        <source>Quorlane Home Page</source>
        <translation>Site de Quorlane</translation>
    </message>
    <message>
        <source>Ostravane Home Page</source>
        <translation>Site d’Ostravane</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>The menu bar of the application in front, at the pointer.</source>
        <translation>La barre des menus de l’application au premier plan, au pointeur.</translation>
    </message>
    <message>
        <source>Opens in the web browser</source>
        <translation>S’ouvre dans le navigateur web</translation>
    </message>
</context>
<context>
    <name>tarnwick::AppController</name>
    <message>
        <source>About Tarnwick...</source>
        <translation>À propos de Tarnwick...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Réglages...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
</context>
<context>
    <name>tarnwick::GeneralOptionsPane</name>
    <message>
        <source>Start Tarnwick when I &amp;log in</source>
        <translation>Lancer Tarnwick à l’ouverture de &amp;session</translation>
    </message>
    <message>
        <source>Show Tarnwick's &amp;icon in the status area</source>
        <translation>Afficher l’&amp;icône de Tarnwick dans la zone d’état</translation>
    </message>
    <message>
        <source>Without the icon, start Tarnwick again to come back to this window.</source>
        <translation>Sans l’icône, lancez de nouveau Tarnwick pour revenir à cette fenêtre.</translation>
    </message>
    <message>
        <source>Include the s&amp;ystem menu</source>
        <translation>Inclure le menu du s&amp;ystème</translation>
    </message>
    <message>
        <source>Include the &amp;application's menus</source>
        <translation>Inclure les menus de l’a&amp;pplication</translation>
    </message>
    <message>
        <source>Show &amp;keyboard shortcuts beside the menu items</source>
        <translation>Afficher les raccourcis &amp;clavier à côté des éléments</translation>
    </message>
    <message>
        <source>Show al&amp;ternative items only while their modifier key is held</source>
        <translation>N’afficher les éléments de re&amp;mplacement que touche maintenue</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source> points</source>
        <translation> points</translation>
    </message>
    <message>
        <source>Text &amp;size of the menu:</source>
        <translation>&amp;Taille du texte du menu :</translation>
    </message>
    <message>
        <source>Text size of the menu</source>
        <translation>Taille du texte du menu</translation>
    </message>
    <message>
        <source>&amp;Reset to Defaults</source>
        <translation>Réta&amp;blir les réglages</translation>
    </message>
    <message>
        <source>&amp;Quit Tarnwick</source>
        <translation>&amp;Quitter Tarnwick</translation>
    </message>
</context>
<context>
    <name>tarnwick::HotKeyPane</name>
    <message>
        <source>Open the menu with a &amp;hot key</source>
        <translation>Ouvrir le menu avec un raccourci c&amp;lavier</translation>
    </message>
    <message>
        <source>&amp;Shortcut:</source>
        <translation>&amp;Touches :</translation>
    </message>
    <message>
        <source>Click the field or press Space in it, then press the new keys together. Escape keeps the old ones.</source>
        <translation>Cliquez dans le champ ou appuyez-y sur Espace, puis appuyez sur les nouvelles touches en même temps. Échap garde les anciennes.</translation>
    </message>
    <message>
        <source>Open the menu with an e&amp;xtra mouse button</source>
        <translation>Ouvrir le menu avec un bouton &amp;supplémentaire de la souris</translation>
    </message>
    <message>
        <source>Mouse button</source>
        <translation>Bouton de la souris</translation>
    </message>
    <message>
        <source>Mouse &amp;button:</source>
        <translation>&amp;Bouton :</translation>
    </message>
    <message>
        <source>Click the field with the button that is to open the menu: the middle one, or one at the side of the mouse.</source>
        <translation>Cliquez dans le champ avec le bouton qui doit ouvrir le menu : celui du milieu ou un bouton latéral de la souris.</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Co&amp;py</source>
        <translation>Co&amp;pier</translation>
    </message>
</context>
<context>
    <name>tarnwick::PreferencesWindow</name>
    <message>
        <source>H&amp;ot Key</source>
        <translation>&amp;Raccourci</translation>
    </message>
    <message>
        <source>&amp;General</source>
        <translation>&amp;Général</translation>
    </message>
    <message>
        <source>Abo&amp;ut</source>
        <translation>À pr&amp;opos</translation>
    </message>
    <message>
        <source>In this Wayland session a part of Tarnwick is missing.</source>
        <translation>Dans cette session Wayland, une partie de Tarnwick manque.</translation>
    </message>
    <message>
        <source>The hot key and the mouse button open the menu only while an application that runs on XWayland is in front.

For all others, let a key of the desktop run this command:
%1

Over them the menu obeys the pointer alone, and it may open where the pointer was seen last.</source>
        <translation>Le raccourci clavier et le bouton de la souris n’ouvrent le menu que lorsqu’une application fonctionnant sur XWayland est au premier plan.

Pour toutes les autres, faites exécuter cette commande par une touche du bureau :
%1

Au-dessus d’elles, le menu n’obéit qu’au pointeur, et il peut s’ouvrir là où celui-ci a été vu en dernier.</translation>
    </message>
    <message>
        <source>This Tarnwick was built without LayerShellQt, so it runs on XWayland. One that was built with it runs on Wayland itself, without these limits, where the compositor allows that.</source>
        <translation>Ce Tarnwick a été compilé sans LayerShellQt et s’exécute donc sur XWayland. Compilé avec, il s’exécute directement sur Wayland, sans ces limites, là où le compositeur le permet.</translation>
    </message>
    <message>
        <source>Tarnwick runs on XWayland here: this compositor lets no program open a menu at the pointer on Wayland itself.</source>
        <translation>Tarnwick s’exécute ici sur XWayland : ce compositeur ne laisse aucun programme ouvrir un menu au pointeur directement sur Wayland.</translation>
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
        <translation>Bouton numéro : %i</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Application</source>
        <translation>Application</translation>
    </message>
    <message>
        <source>About Tarnwick...</source>
        <translation>À propos de Tarnwick...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Réglages...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Édition</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenêtre</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>tarnwick::GlobalHotKeys</name>
    <message>
        <source>Open the Menu at the Pointer</source>
        <translation>Ouvrir le menu sous le pointeur</translation>
    </message>
</context>
<context>
    <name>tarnwick::PreferencesWindowController</name>
    <message>
        <source>they are taken by %1</source>
        <translation>elle est déjà utilisée par %1</translation>
    </message>
</context>
<context>
    <name>tarnwick::TriggerHintView</name>
    <message>
        <source>Keys given by the desktop: %1. Others can be chosen in its settings.</source>
        <translation>Touches accordées par le bureau : %1. D’autres peuvent être choisies dans ses réglages.</translation>
    </message>
    <message>
        <source>The desktop is being asked for these keys.</source>
        <translation>Ces touches sont demandées au bureau.</translation>
    </message>
    <message>
        <source>The desktop has not given these keys. Record others, or allow them in its settings.</source>
        <translation>Le bureau n'a pas accordé ces touches. Enregistrez-en d'autres ou autorisez-les dans ses réglages.</translation>
    </message>
    <message>
        <source>These keys are taken by %1. Record others.</source>
        <translation>Ces touches sont déjà utilisées par %1. Enregistrez-en d'autres.</translation>
    </message>
    <message>
        <source>The compositor has to be told. Put this into %1:</source>
        <translation>Il faut l'indiquer au compositeur. Ajoutez ceci à %1 :</translation>
    </message>
    <message>
        <source>This desktop gives no keys to programs. Let one of its own run this command:</source>
        <translation>Ce bureau n'accorde pas de touches aux programmes. Associez-y cette commande à une touche :</translation>
    </message>
    <message>
        <source>This desktop can have a button at the side of the mouse press the hot key: look under Mouse in its settings.</source>
        <translation>Sur ce bureau, un bouton latéral de la souris peut actionner le raccourci : voir « Souris » dans ses réglages.</translation>
    </message>
    <message>
        <source>On this desktop no mouse button can open the menu.</source>
        <translation>Sur ce bureau, aucun bouton de la souris ne peut ouvrir le menu.</translation>
    </message>
    <message>
        <source>It works: the menu has been asked for this way.</source>
        <translation>Cela fonctionne : le menu a déjà été demandé ainsi.</translation>
    </message>
    <message>
        <source>It has not asked for the menu yet.</source>
        <translation>Le menu n'a pas encore été demandé ainsi.</translation>
    </message>
</context>
<context>
    <name>tarnwick::SearchView</name>
    <message>
        <source>Search the menus</source>
        <translation>Rechercher dans les menus</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Résultats</translation>
    </message>
    <message>
        <source>Menus that were not searched: %1. Open them in the application once.</source>
        <translation>Menus non parcourus : %1. Ouvrez-les une fois dans l’application.</translation>
    </message>
    <message>
        <source>Menus that took too long: %1.</source>
        <translation>Menus trop lents à répondre : %1.</translation>
    </message>
    <message>
        <source>Results: %1</source>
        <translation>Résultats : %1</translation>
    </message>
    <message>
        <source>Nothing is called so.</source>
        <translation>Rien ne porte ce nom.</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Recherche...</translation>
    </message>
</context>
<context>
    <name>tarnwick::UnmadeMenu</name>
    <message>
        <source>Open this menu in the application once</source>
        <translation>Ouvrez ce menu une fois dans l’application</translation>
    </message>
</context>
</TS>
