<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>AccessibilityAlert</name>
    <message>
        <source>Tarnwick requires that the Accessibility API be enabled.</source>
        <translation>Tarnwick necesita que la accesibilidad esté activada.</translation>
    </message>
    <message>
        <source>Would you like to launch System Preferences so that you can turn on "Enable access for assistive devices"?</source>
        <translation>¿Quiere abrir los ajustes del sistema para activar el acceso de los dispositivos de ayuda?</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>Abrir los ajustes</translation>
    </message>
    <message>
        <source>Continue Anyway</source>
        <translation>Continuar de todos modos</translation>
    </message>
    <message>
        <source>Quit Tarnwick</source>
        <translation>Salir de Tarnwick</translation>
    </message>
</context>
<context>
    <name>ShortcutRecorder</name>
    <message>
        <source>Space</source>
        <translation>Espacio</translation>
    </message>
    <message>
        <source>Pad %@</source>
        <translation>Teclado num. %@</translation>
    </message>
    <message>
        <source>Command + </source>
        <translation>Comando + </translation>
    </message>
    <message>
        <source>Option + </source>
        <translation>Opción + </translation>
    </message>
    <message>
        <source>Control + </source>
        <translation>Control + </translation>
    </message>
    <message>
        <source>Shift + </source>
        <translation>Mayúsculas + </translation>
    </message>
    <message>
        <source>The key combination %@ can't be used!</source>
        <translation>No se puede usar la combinación de teclas %@.</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because %@.</source>
        <translation>No se puede usar la combinación de teclas «%@»: %@.</translation>
    </message>
    <message>
        <source>it's already used</source>
        <translation>ya está en uso</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because it's already used by a system-wide keyboard shortcut. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>No se puede usar la combinación de teclas «%@» porque ya es un atajo de teclado de todo el sistema. (Si de verdad desea usarla, la mayoría de los atajos se pueden cambiar en el panel Teclado y ratón de Preferencias del Sistema.)</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because it's already used by the menu item "%@".</source>
        <translation>No se puede usar la combinación de teclas «%@» porque ya la usa el elemento de menú «%@».</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Alert</source>
        <translation>Alerta</translation>
    </message>
    <message>
        <source>Click to record shortcut</source>
        <translation>Clic para grabar atajo</translation>
    </message>
    <message>
        <source>Type shortcut</source>
        <translation>Pulse el atajo</translation>
    </message>
    <message>
        <source>Use old shortcut</source>
        <translation>Usar el atajo anterior</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Atajo</translation>
    </message>
    <message>
        <source>none</source>
        <translation>ninguno</translation>
    </message>
    <message>
        <source>%@, %@</source>
        <translation>%@, %@</translation>
    </message>
    <message>
        <source>%@, %@, press Space to record</source>
        <translation>%@, %@, pulse Espacio para grabar</translation>
    </message>
    <message>
        <source>%@, recording, type shortcut or press Escape to cancel</source>
        <translation>%@, grabando, pulse el atajo o Escape para cancelar</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Comando</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Opción</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Mayúsculas</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Retroceso</translation>
    </message>
    <message>
        <source>Forward Delete</source>
        <translation>Suprimir</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Borrar</translation>
    </message>
    <message>
        <source>Left Arrow</source>
        <translation>Flecha izquierda</translation>
    </message>
    <message>
        <source>Right Arrow</source>
        <translation>Flecha derecha</translation>
    </message>
    <message>
        <source>Up Arrow</source>
        <translation>Flecha arriba</translation>
    </message>
    <message>
        <source>Down Arrow</source>
        <translation>Flecha abajo</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Escape</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Avanzar página</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Retroceder página</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Intro</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Intro del teclado numérico</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulador</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
</context>
<context>
    <name>tarnwick::AboutPane</name>
    <message>
        <source>Version %1</source>
        <translation>Versión %1</translation>
    </message>
    <message>
        <source>The menu bar of the application in front, at the pointer.</source>
        <translation>La barra de menús de la aplicación activa, junto al puntero.</translation>
    </message>
    <message>
        <source>&amp;Quorlane Home Page</source>
        <translation>Web de &amp;Quorlane</translation>
    </message>
    <message>
        <source>O&amp;stravane Home Page</source>
        <translation>Web de &amp;Ostravane</translation>
    </message>
    <message>
        <source>Opens in the web browser</source>
        <translation>Se abre en el navegador web</translation>
    </message>
</context>
<context>
    <name>tarnwick::AboutPanel</name>
    <message>
        <source>About Tarnwick</source>
        <translation>Acerca de Tarnwick</translation>
    </message>
    <message>
        <source>Quorlane Home Page</source>
        <translation>Web de Quorlane</translation>
    </message>
    <message>
        <source>Ostravane Home Page</source>
        <translation>Web de Ostravane</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Versión %1</translation>
    </message>
    <message>
        <source>The menu bar of the application in front, at the pointer.</source>
        <translation>La barra de menús de la aplicación activa, junto al puntero.</translation>
    </message>
    <message>
        <source>Opens in the web browser</source>
        <translation>Se abre en el navegador web</translation>
    </message>
</context>
<context>
    <name>tarnwick::AppController</name>
    <message>
        <source>About Tarnwick...</source>
        <translation>Acerca de Tarnwick...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Preferencias...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
</context>
<context>
    <name>tarnwick::GeneralOptionsPane</name>
    <message>
        <source>Start Tarnwick when I &amp;log in</source>
        <translation>&amp;Iniciar Tarnwick al iniciar sesión</translation>
    </message>
    <message>
        <source>Show Tarnwick's &amp;icon in the status area</source>
        <translation>&amp;Mostrar el icono de Tarnwick en el área de estado</translation>
    </message>
    <message>
        <source>Without the icon, start Tarnwick again to come back to this window.</source>
        <translation>Sin el icono, vuelva a abrir Tarnwick para regresar a esta ventana.</translation>
    </message>
    <message>
        <source>Include the s&amp;ystem menu</source>
        <translation>Incluir el menú del &amp;sistema</translation>
    </message>
    <message>
        <source>Include the &amp;application's menus</source>
        <translation>Incluir los menús de la a&amp;plicación</translation>
    </message>
    <message>
        <source>Show &amp;keyboard shortcuts beside the menu items</source>
        <translation>Mostrar los atajos de &amp;teclado junto a los elementos</translation>
    </message>
    <message>
        <source>Show al&amp;ternative items only while their modifier key is held</source>
        <translation>Mostrar los e&amp;lementos alternativos solo con su tecla pulsada</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Estándar</translation>
    </message>
    <message>
        <source> points</source>
        <translation> puntos</translation>
    </message>
    <message>
        <source>Text &amp;size of the menu:</source>
        <translation>Tamaño del te&amp;xto del menú:</translation>
    </message>
    <message>
        <source>Text size of the menu</source>
        <translation>Tamaño del texto del menú</translation>
    </message>
    <message>
        <source>&amp;Reset to Defaults</source>
        <translation>&amp;Restablecer</translation>
    </message>
    <message>
        <source>&amp;Quit Tarnwick</source>
        <translation>Salir de Tar&amp;nwick</translation>
    </message>
</context>
<context>
    <name>tarnwick::HotKeyPane</name>
    <message>
        <source>Open the menu with a &amp;hot key</source>
        <translation>Abrir el menú con un atajo de &amp;teclado</translation>
    </message>
    <message>
        <source>&amp;Shortcut:</source>
        <translation>Tec&amp;las del atajo:</translation>
    </message>
    <message>
        <source>Click the field or press Space in it, then press the new keys together. Escape keeps the old ones.</source>
        <translation>Haga clic en el campo o pulse Espacio en él y, después, pulse las nuevas teclas a la vez. Escape conserva las anteriores.</translation>
    </message>
    <message>
        <source>Open the menu with an e&amp;xtra mouse button</source>
        <translation>Abrir el menú con un botón &amp;adicional del ratón</translation>
    </message>
    <message>
        <source>Mouse button</source>
        <translation>Botón del ratón</translation>
    </message>
    <message>
        <source>Mouse &amp;button:</source>
        <translation>&amp;Botón del ratón:</translation>
    </message>
    <message>
        <source>Click the field with the button that is to open the menu: the middle one, or one at the side of the mouse.</source>
        <translation>Haga clic en el campo con el botón que debe abrir el menú: el central o uno lateral del ratón.</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>C&amp;opiar</translation>
    </message>
    <message>
        <source>Co&amp;py</source>
        <translation>Co&amp;piar</translation>
    </message>
</context>
<context>
    <name>tarnwick::PreferencesWindow</name>
    <message>
        <source>H&amp;ot Key</source>
        <translation>Ata&amp;jo</translation>
    </message>
    <message>
        <source>&amp;General</source>
        <translation>&amp;General</translation>
    </message>
    <message>
        <source>Abo&amp;ut</source>
        <translation>A&amp;cerca de</translation>
    </message>
    <message>
        <source>In this Wayland session a part of Tarnwick is missing.</source>
        <translation>En esta sesión de Wayland falta una parte de Tarnwick.</translation>
    </message>
    <message>
        <source>The hot key and the mouse button open the menu only while an application that runs on XWayland is in front.

For all others, let a key of the desktop run this command:
%1

Over them the menu obeys the pointer alone, and it may open where the pointer was seen last.</source>
        <translation>El atajo de teclado y el botón del ratón abren el menú solo mientras está en primer plano una aplicación que se ejecuta en XWayland.

Para todas las demás, haga que una tecla del escritorio ejecute esta orden:
%1

Sobre ellas el menú obedece solo al puntero, y puede abrirse donde este se vio por última vez.</translation>
    </message>
    <message>
        <source>This Tarnwick was built without LayerShellQt, so it runs on XWayland. One that was built with it runs on Wayland itself, without these limits, where the compositor allows that.</source>
        <translation>Este Tarnwick se compiló sin LayerShellQt, por lo que se ejecuta sobre XWayland. Uno compilado con ella se ejecuta directamente sobre Wayland, sin estas limitaciones, donde el compositor lo permite.</translation>
    </message>
    <message>
        <source>Tarnwick runs on XWayland here: this compositor lets no program open a menu at the pointer on Wayland itself.</source>
        <translation>Tarnwick se ejecuta aquí sobre XWayland: este compositor no permite a ningún programa abrir un menú en el puntero directamente sobre Wayland.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>tarnwick::TWMouseButtonIdentifier</name>
    <message>
        <source>Button Number: %i</source>
        <translation>Número de botón: %i</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Application</source>
        <translation>Aplicación</translation>
    </message>
    <message>
        <source>About Tarnwick...</source>
        <translation>Acerca de Tarnwick...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Preferencias...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Edición</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rehacer</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Cortar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleccionar todo</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Ventana</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>tarnwick::GlobalHotKeys</name>
    <message>
        <source>Open the Menu at the Pointer</source>
        <translation>Abrir el menú en el puntero</translation>
    </message>
</context>
<context>
    <name>tarnwick::PreferencesWindowController</name>
    <message>
        <source>they are taken by %1</source>
        <translation>ya la usa %1</translation>
    </message>
</context>
<context>
    <name>tarnwick::TriggerHintView</name>
    <message>
        <source>Keys given by the desktop: %1. Others can be chosen in its settings.</source>
        <translation>Teclas concedidas por el escritorio: %1. En sus ajustes se pueden elegir otras.</translation>
    </message>
    <message>
        <source>The desktop is being asked for these keys.</source>
        <translation>Se están pidiendo estas teclas al escritorio.</translation>
    </message>
    <message>
        <source>The desktop has not given these keys. Record others, or allow them in its settings.</source>
        <translation>El escritorio no ha concedido estas teclas. Grabe otras o permítalas en sus ajustes.</translation>
    </message>
    <message>
        <source>These keys are taken by %1. Record others.</source>
        <translation>Estas teclas ya las usa %1. Grabe otras.</translation>
    </message>
    <message>
        <source>The compositor has to be told. Put this into %1:</source>
        <translation>Hay que indicárselo al compositor. Añada esto a %1:</translation>
    </message>
    <message>
        <source>This desktop gives no keys to programs. Let one of its own run this command:</source>
        <translation>Este escritorio no concede teclas a los programas. Asigne en él esta orden a una tecla:</translation>
    </message>
    <message>
        <source>This desktop can have a button at the side of the mouse press the hot key: look under Mouse in its settings.</source>
        <translation>Este escritorio puede hacer que un botón lateral del ratón pulse el atajo: consulte «Ratón» en sus preferencias.</translation>
    </message>
    <message>
        <source>On this desktop no mouse button can open the menu.</source>
        <translation>En este escritorio ningún botón del ratón puede abrir el menú.</translation>
    </message>
    <message>
        <source>It works: the menu has been asked for this way.</source>
        <translation>Funciona: el menú ya se ha pedido de este modo.</translation>
    </message>
    <message>
        <source>It has not asked for the menu yet.</source>
        <translation>Aún no se ha pedido el menú de este modo.</translation>
    </message>
</context>
<context>
    <name>tarnwick::SearchView</name>
    <message>
        <source>Search the menus</source>
        <translation>Buscar en los menús</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Resultados</translation>
    </message>
    <message>
        <source>Menus that were not searched: %1. Open them in the application once.</source>
        <translation>Menús en los que no se ha buscado: %1. Ábralos una vez en la aplicación.</translation>
    </message>
    <message>
        <source>Menus that took too long: %1.</source>
        <translation>Menús que han tardado demasiado: %1.</translation>
    </message>
    <message>
        <source>Results: %1</source>
        <translation>Resultados: %1</translation>
    </message>
    <message>
        <source>Nothing is called so.</source>
        <translation>Nada se llama así.</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Buscando...</translation>
    </message>
</context>
<context>
    <name>tarnwick::UnmadeMenu</name>
    <message>
        <source>Open this menu in the application once</source>
        <translation>Abra este menú una vez en la aplicación</translation>
    </message>
</context>
</TS>
