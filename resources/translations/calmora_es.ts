<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>Calmora</name>
    <message>
        <source>%@ freed</source>
        <translation>%@ liberados</translation>
    </message>
    <message numerus="yes">
        <source>%lld quit</source>
        <translation>
            <numerusform>%lld cerrada</numerusform>
            <numerusform>%lld cerradas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld quit, %lld left</source>
        <translation>
            <numerusform>%lld cerrada, quedan %lld</numerusform>
            <numerusform>%lld cerradas, quedan %lld</numerusform>
        </translation>
    </message>
    <message>
        <source>Asks to save</source>
        <translation>Pregunta si guardar</translation>
    </message>
    <message>
        <source>Came back by itself</source>
        <translation>Se reabrió sola</translation>
    </message>
    <message>
        <source>Does not answer</source>
        <translation>No responde</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>No permitido</translation>
    </message>
    <message>
        <source>Quitting…</source>
        <translation>Cerrando…</translation>
    </message>
    <message>
        <source>Shows its window</source>
        <translation>Muestra su ventana</translation>
    </message>
    <message>
        <source>Some stayed. Calmora can quit all at once and say in the list what stays and why.</source>
        <translation>Algunas siguen abiertas. Calmora puede cerrarlas todas a la vez y decir en la lista cuáles quedan y por qué.</translation>
    </message>
    <message>
        <source>Switch on</source>
        <translation>Activar</translation>
    </message>
    <message numerus="yes">
        <source>apps_running_count %lld</source>
        <translation>
            <numerusform>%lld aplicación abierta</numerusform>
            <numerusform>%lld aplicaciones abiertas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld apps · %lld protected</source>
        <translation>
            <numerusform>%lld aplicación · %lld con protección</numerusform>
            <numerusform>%lld aplicaciones · %lld con protección</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_notification %@ %lld</source>
        <translation>
            <numerusform>La aplicación %@ se ha cerrado tras %lld minuto sin usarse.</numerusform>
            <numerusform>La aplicación %@ se ha cerrado tras %lld minutos sin usarse.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_warning %@ %lld</source>
        <translation>
            <numerusform>La aplicación %@ se cerrará en 1 minuto: %lld minuto sin usarse.</numerusform>
            <numerusform>La aplicación %@ se cerrará en 1 minuto: %lld minutos sin usarse.</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>No cerrar</translation>
    </message>
    <message>
        <source>version_label %@</source>
        <translation>Versión %@</translation>
    </message>
    <message>
        <source>About Calmora</source>
        <translation>Acerca de Calmora</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Buscar actualizaciones…</translation>
    </message>
    <message>
        <source>Quit Calmora</source>
        <translation>Salir de Calmora</translation>
    </message>
    <message>
        <source>Show/Hide Calmora</source>
        <translation>Mostrar/ocultar Calmora</translation>
    </message>
    <message>
        <source>Quit All</source>
        <translation>Cerrar todas</translation>
    </message>
    <message>
        <source>Force Quit All</source>
        <translation>Forzar el cierre de todas</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Seleccionar todas</translation>
    </message>
    <message numerus="yes">
        <source>Quits %lld applications</source>
        <translation>
            <numerusform>Cierra %lld aplicación</numerusform>
            <numerusform>Cierra %lld aplicaciones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Quits %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Cierra %lld aplicación, oculta por la búsqueda (%lld)</numerusform>
            <numerusform>Cierra %lld aplicaciones, de ellas %lld ocultas por la búsqueda</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Force quits %lld applications</source>
        <translation>
            <numerusform>Fuerza el cierre de %lld aplicación</numerusform>
            <numerusform>Fuerza el cierre de %lld aplicaciones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Force quits %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Fuerza el cierre de %lld aplicación, oculta por la búsqueda (%lld)</numerusform>
            <numerusform>Fuerza el cierre de %lld aplicaciones, de ellas %lld ocultas por la búsqueda</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selects %lld applications</source>
        <translation>
            <numerusform>Selecciona %lld aplicación</numerusform>
            <numerusform>Selecciona %lld aplicaciones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selects %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Selecciona %lld aplicación, oculta por la búsqueda (%lld)</numerusform>
            <numerusform>Selecciona %lld aplicaciones, de ellas %lld ocultas por la búsqueda</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deselects %lld applications</source>
        <translation>
            <numerusform>Deselecciona %lld aplicación</numerusform>
            <numerusform>Deselecciona %lld aplicaciones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deselects %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Deselecciona %lld aplicación, oculta por la búsqueda (%lld)</numerusform>
            <numerusform>Deselecciona %lld aplicaciones, de ellas %lld ocultas por la búsqueda</numerusform>
        </translation>
    </message>
    <message>
        <source>Running apps</source>
        <translation>Aplicaciones abiertas</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>Borrar la búsqueda</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Configuración</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>En segundo plano</translation>
    </message>
    <message>
        <source>No apps found</source>
        <translation>No se ha encontrado ninguna aplicación</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Force Quit</source>
        <translation>Forzar cierre</translation>
    </message>
    <message>
        <source>Quit %@</source>
        <translation>Cerrar %@</translation>
    </message>
    <message>
        <source>Force Quit %@</source>
        <translation>Forzar el cierre de %@</translation>
    </message>
    <message>
        <source>This desktop does not tell which process has which of these windows, so none can be forced to quit.</source>
        <translation>Este escritorio no indica a qué proceso pertenece cada una de estas ventanas, por lo que no se puede forzar el cierre de ninguno.</translation>
    </message>
    <message>
        <source>CPU %@</source>
        <translation>CPU %@</translation>
    </message>
    <message>
        <source>Memory %@</source>
        <translation>Memoria %@</translation>
    </message>
    <message>
        <source>Protected</source>
        <translation>Protegida</translation>
    </message>
    <message>
        <source>Never Quit This App</source>
        <translation>No cerrar nunca esta aplicación</translation>
    </message>
    <message>
        <source>Reopen</source>
        <translation>Volver a abrir</translation>
    </message>
    <message>
        <source>Reopen %@</source>
        <translation>Volver a abrir %@</translation>
    </message>
    <message numerus="yes">
        <source>Reopen %lld Applications</source>
        <translation>
            <numerusform>Volver a abrir %lld aplicación</numerusform>
            <numerusform>Volver a abrir %lld aplicaciones</numerusform>
        </translation>
    </message>
    <message>
        <source>Quit and Reopen</source>
        <translation>Cerrar y volver a abrir</translation>
    </message>
    <message>
        <source>Force Quit and Reopen</source>
        <translation>Forzar cierre y volver a abrir</translation>
    </message>
    <message>
        <source>Remove Protection</source>
        <translation>Quitar la protección</translation>
    </message>
    <message>
        <source>Expanded</source>
        <translation>Desplegado</translation>
    </message>
    <message>
        <source>Collapsed</source>
        <translation>Contraído</translation>
    </message>
    <message numerus="yes">
        <source>Do you want to force quit %lld selected apps?</source>
        <translation>
            <numerusform>¿Desea forzar el cierre de %lld aplicación seleccionada?</numerusform>
            <numerusform>¿Desea forzar el cierre de %lld aplicaciones seleccionadas?</numerusform>
        </translation>
    </message>
    <message>
        <source>You will lose any unsaved changes in these apps.</source>
        <translation>Se perderán los cambios sin guardar en estas aplicaciones.</translation>
    </message>
    <message>
        <source>Do you want to force "%@" to quit?</source>
        <translation>¿Desea forzar el cierre de «%@»?</translation>
    </message>
    <message>
        <source>You will lose any unsaved changes.</source>
        <translation>Se perderán los cambios sin guardar.</translation>
    </message>
    <message>
        <source>this app</source>
        <translation>esta aplicación</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Calmora Settings</source>
        <translation>Configuración de Calmora</translation>
    </message>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Atajos</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Startup</source>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>Open Calmora at login</source>
        <translation>Abrir Calmora al iniciar sesión</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Actualizaciones</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>Buscar actualizaciones automáticamente</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Sonidos</translation>
    </message>
    <message>
        <source>Play sound on quit</source>
        <translation>Reproducir un sonido al cerrar</translation>
    </message>
    <message>
        <source>Protection</source>
        <translation>Protección</translation>
    </message>
    <message>
        <source>Never quit music apps</source>
        <translation>No cerrar nunca las aplicaciones de música</translation>
    </message>
    <message>
        <source>Deselect apps by default</source>
        <translation>No seleccionar las aplicaciones de forma predeterminada</translation>
    </message>
    <message>
        <source>Never-Quit List</source>
        <translation>No cerrar nunca</translation>
    </message>
    <message>
        <source>No apps in the never-quit list. Right-click an app in the menu to protect it, or use "Add App" above.</source>
        <translation>La lista «No cerrar nunca» está vacía. Haga clic con el botón derecho en una aplicación del menú para protegerla o utilice «Añadir aplicación».</translation>
    </message>
    <message>
        <source>Protected Apps</source>
        <translation>Aplicaciones protegidas</translation>
    </message>
    <message>
        <source>Add App</source>
        <translation>Añadir aplicación</translation>
    </message>
    <message>
        <source>Add App to Never-Quit List</source>
        <translation>Añadir a «No cerrar nunca»</translation>
    </message>
    <message>
        <source>Remove from never-quit list</source>
        <translation>Quitar de «No cerrar nunca»</translation>
    </message>
    <message>
        <source>No running apps found</source>
        <translation>No hay ninguna aplicación en ejecución</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>Añadida</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Desconocida</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>Extras</translation>
    </message>
    <message>
        <source>Include Finder in app list</source>
        <translation>Incluir el gestor de archivos en la lista</translation>
    </message>
    <message>
        <source>View background apps</source>
        <translation>Mostrar las aplicaciones en segundo plano</translation>
    </message>
    <message>
        <source>Group background instances</source>
        <translation>Agrupar las instancias en segundo plano</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Visualización</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Ordenar por</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>Nombre (A–Z)</translation>
    </message>
    <message>
        <source>CPU Usage</source>
        <translation>Uso de CPU</translation>
    </message>
    <message>
        <source>Memory Usage</source>
        <translation>Uso de memoria</translation>
    </message>
    <message>
        <source>Show resources</source>
        <translation>Mostrar recursos</translation>
    </message>
    <message>
        <source>CPU Only</source>
        <translation>Solo CPU</translation>
    </message>
    <message>
        <source>Memory Only</source>
        <translation>Solo memoria</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Ambos</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ninguno</translation>
    </message>
    <message>
        <source>Default quit mode</source>
        <translation>Modo de cierre predeterminado</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>Forzado</translation>
    </message>
    <message>
        <source>Calmora always starts with polite quitting; hold Alt in the popover to force.</source>
        <translation>Calmora siempre empieza con el cierre normal; mantenga pulsada la tecla Alt en la ventana emergente para forzar el cierre.</translation>
    </message>
    <message>
        <source>Auto Quit</source>
        <translation>Cierre automático</translation>
    </message>
    <message>
        <source>Auto-quit inactive apps</source>
        <translation>Cerrar automáticamente las aplicaciones inactivas</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Después de</translation>
    </message>
    <message>
        <source>5 minutes</source>
        <translation>5 minutos</translation>
    </message>
    <message>
        <source>10 minutes</source>
        <translation>10 minutos</translation>
    </message>
    <message>
        <source>15 minutes</source>
        <translation>15 minutos</translation>
    </message>
    <message>
        <source>30 minutes</source>
        <translation>30 minutos</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 hora</translation>
    </message>
    <message>
        <source>2 hours</source>
        <translation>2 horas</translation>
    </message>
    <message>
        <source>4 hours</source>
        <translation>4 horas</translation>
    </message>
    <message>
        <source>8 hours</source>
        <translation>8 horas</translation>
    </message>
    <message>
        <source>Options and Forecast…</source>
        <translation>Opciones y previsión…</translation>
    </message>
    <message>
        <source>Shall auto-quit leave alone what is in use, such as an app that plays sound, and tell you a minute before it quits an app?</source>
        <translation>¿Debe el cierre automático respetar lo que está en uso, como una aplicación que reproduce sonido, y avisarle un minuto antes de cerrar una aplicación?</translation>
    </message>
    <message>
        <source>Spare what is in use and warn first</source>
        <translation>Respetar lo que está en uso y avisar antes</translation>
    </message>
    <message>
        <source>Apps that play or record sound, keep the computer awake, are full screen, or are in front while you type are left alone. A notice says a minute before which app will be quit.</source>
        <translation>No se cierran las aplicaciones que reproducen o graban sonido, mantienen activo el equipo, ocupan toda la pantalla o están delante mientras usted escribe. Un aviso dice un minuto antes qué aplicación se cerrará.</translation>
    </message>
    <message>
        <source>Quit together, show what is left, and Reopen</source>
        <translation>Cerrar a la vez, mostrar lo que queda y reabrir</translation>
    </message>
    <message>
        <source>Asks all ticked apps at once, says in the list why an app has stayed, and offers to start again what was quit.</source>
        <translation>Pide a todas las aplicaciones marcadas a la vez que se cierren, dice en la lista por qué una ha quedado y ofrece volver a abrir lo que se cerró.</translation>
    </message>
    <message>
        <source>What auto-quit will do</source>
        <translation>Qué hará el cierre automático</translation>
    </message>
    <message>
        <source>Auto-quit is off.</source>
        <translation>El cierre automático está desactivado.</translation>
    </message>
    <message>
        <source>Never: %@</source>
        <translation>Nunca: %@</translation>
    </message>
    <message>
        <source>Spared: %@</source>
        <translation>Se respeta: %@</translation>
    </message>
    <message>
        <source>last spared: %@</source>
        <translation>última vez respetada: %@</translation>
    </message>
    <message>
        <source>Not before you use it</source>
        <translation>No antes de que la use</translation>
    </message>
    <message>
        <source>Not while in front</source>
        <translation>No mientras esté delante</translation>
    </message>
    <message>
        <source>Was asked to quit and stayed</source>
        <translation>Se le pidió que se cerrara y sigue abierta</translation>
    </message>
    <message numerus="yes">
        <source>In %lld min</source>
        <translation>
            <numerusform>En %lld min</numerusform>
            <numerusform>En %lld min</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>In %lld min unless busy</source>
        <translation>
            <numerusform>En %lld min, si no está ocupada</numerusform>
            <numerusform>En %lld min, si no está ocupada</numerusform>
        </translation>
    </message>
    <message>
        <source>not identified</source>
        <translation>sin identificar</translation>
    </message>
    <message>
        <source>activity unknown</source>
        <translation>actividad desconocida</translation>
    </message>
    <message>
        <source>the desktop leaves it no time to ask you</source>
        <translation>el escritorio no le deja tiempo para preguntarle</translation>
    </message>
    <message>
        <source>music player</source>
        <translation>reproductor de música</translation>
    </message>
    <message>
        <source>file manager</source>
        <translation>gestor de archivos</translation>
    </message>
    <message>
        <source>protected</source>
        <translation>protegida</translation>
    </message>
    <message>
        <source>terminal</source>
        <translation>terminal</translation>
    </message>
    <message>
        <source>needed in the background</source>
        <translation>necesaria en segundo plano</translation>
    </message>
    <message>
        <source>the time is too long</source>
        <translation>el tiempo es demasiado largo</translation>
    </message>
    <message>
        <source>plays sound</source>
        <translation>reproduce sonido</translation>
    </message>
    <message>
        <source>records sound</source>
        <translation>graba sonido</translation>
    </message>
    <message>
        <source>plays media</source>
        <translation>reproduce medios</translation>
    </message>
    <message>
        <source>shares the screen</source>
        <translation>comparte la pantalla</translation>
    </message>
    <message>
        <source>keeps the computer awake</source>
        <translation>mantiene activo el equipo</translation>
    </message>
    <message>
        <source>full screen</source>
        <translation>pantalla completa</translation>
    </message>
    <message>
        <source>busy</source>
        <translation>ocupada</translation>
    </message>
    <message>
        <source>its use cannot be checked</source>
        <translation>no se puede comprobar su uso</translation>
    </message>
    <message>
        <source>the notice could not be shown</source>
        <translation>no se pudo mostrar el aviso</translation>
    </message>
    <message>
        <source>Changes last until you quit Calmora: %@ cannot be used.</source>
        <translation>Los cambios duran hasta que salga de Calmora: no se puede usar %@.</translation>
    </message>
    <message>
        <source>Reset All Settings</source>
        <translation>Restablecer toda la configuración</translation>
    </message>
    <message>
        <source>Global Shortcuts</source>
        <translation>Atajos globales</translation>
    </message>
    <message>
        <source>Show/Hide Calmora:</source>
        <translation>Mostrar/ocultar Calmora:</translation>
    </message>
    <message>
        <source>Quit all:</source>
        <translation>Cerrar todas:</translation>
    </message>
    <message>
        <source>Force quit all:</source>
        <translation>Forzar el cierre de todas:</translation>
    </message>
    <message>
        <source>Shortcuts work from any application.</source>
        <translation>Los atajos funcionan desde cualquier aplicación.</translation>
    </message>
    <message>
        <source>Shortcuts work from any application. Keys for accents and those of the numeric keypad cannot be used here.</source>
        <translation>Los atajos funcionan desde cualquier aplicación. Aquí no se pueden usar las teclas de acento ni las del teclado numérico.</translation>
    </message>
    <message>
        <source>This desktop does not tell which applications run, so only X11 ones are listed.</source>
        <translation>Este escritorio no indica qué aplicaciones se están ejecutando, por lo que solo se muestran las de X11.</translation>
    </message>
    <message>
        <source>This desktop ends Wayland applications that take longer than 2 seconds to answer, so only X11 applications are quit automatically.</source>
        <translation>Este escritorio finaliza las aplicaciones de Wayland que tardan más de 2 segundos en responder, por lo que solo las aplicaciones X11 se cierran automáticamente.</translation>
    </message>
    <message>
        <source>Calmora needs its extension for GNOME to see all apps, to ask them to quit, and to put its icon into the top bar.</source>
        <translation>Calmora necesita su extensión para GNOME para ver todas las aplicaciones, pedirles que se cierren y mostrar su icono en la barra superior.</translation>
    </message>
    <message>
        <source>Its extension for GNOME puts Calmora’s icon into the top bar.</source>
        <translation>Su extensión para GNOME muestra el icono de Calmora en la barra superior.</translation>
    </message>
    <message>
        <source>Log out and in once so that GNOME finds Calmora’s extension.</source>
        <translation>Cierra la sesión y vuelve a iniciarla una vez para que GNOME encuentre la extensión de Calmora.</translation>
    </message>
    <message>
        <source>Extensions of GNOME are switched off on this system.</source>
        <translation>Las extensiones de GNOME están desactivadas en este sistema.</translation>
    </message>
    <message>
        <source>The extension for GNOME is switched on.</source>
        <translation>La extensión para GNOME está activada.</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Activar</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Ahora no</translation>
    </message>
    <message>
        <source>GNOME</source>
        <translation>GNOME</translation>
    </message>
    <message>
        <source>Shortcuts wait for the GNOME extension to be switched on again.</source>
        <translation>Los atajos esperan a que la extensión para GNOME vuelva a activarse.</translation>
    </message>
    <message>
        <source>Without the GNOME extension, Calmora sees no Wayland windows. Some apps are missing, and some can only be force quit.</source>
        <translation>Sin la extensión para GNOME, Calmora no ve las ventanas de Wayland. Faltan algunas aplicaciones y otras solo se pueden cerrar a la fuerza.</translation>
    </message>
    <message>
        <source>Key on this desktop: %@</source>
        <translation>Tecla en este escritorio: %@</translation>
    </message>
    <message>
        <source>The desktop has assigned no key.</source>
        <translation>El escritorio no ha asignado ninguna tecla.</translation>
    </message>
    <message>
        <source>The desktop assigns the keys; what is recorded here is a proposal.</source>
        <translation>El escritorio asigna las teclas; lo que se graba aquí es una propuesta.</translation>
    </message>
    <message>
        <source>Record a shortcut, copy its line into the configuration of sway, and reload that.</source>
        <translation>Grabe un atajo, copie su línea en la configuración de sway y vuelva a cargarla.</translation>
    </message>
    <message>
        <source>This desktop does not let programs choose shortcuts. Bind these commands to keys in its settings or its configuration.</source>
        <translation>Este escritorio no permite que los programas elijan atajos. Asigne teclas a estas órdenes en sus preferencias o su configuración.</translation>
    </message>
    <message>
        <source>Shortcuts are not available, because there is no X server.</source>
        <translation>Los atajos no están disponibles porque no hay ningún servidor X.</translation>
    </message>
    <message>
        <source>Quits your applications. Spares your work.</source>
        <translation>Cierra sus aplicaciones. Respeta su trabajo.</translation>
    </message>
    <message>
        <source>update_available_text %@</source>
        <translation>Está usando la versión %@.</translation>
    </message>
    <message>
        <source>update_available_title %@</source>
        <translation>La versión %@ está disponible.</translation>
    </message>
    <message>
        <source>update_checking</source>
        <translation>Buscando actualizaciones…</translation>
    </message>
    <message>
        <source>update_current_text %@</source>
        <translation>La versión %@ es la más reciente.</translation>
    </message>
    <message>
        <source>update_current_title</source>
        <translation>Calmora está actualizado.</translation>
    </message>
    <message>
        <source>update_error_address</source>
        <translation>La dirección incluida en esta versión no sirve para buscar actualizaciones.</translation>
    </message>
    <message>
        <source>update_error_insecure</source>
        <translation>La conexión con el servidor no es segura, por lo que no se ha leído nada de él.</translation>
    </message>
    <message>
        <source>update_error_loader</source>
        <translation>Falta la parte de Calmora que accede a la red. Volver a instalar Calmora debería solucionarlo.</translation>
    </message>
    <message>
        <source>update_error_redirect</source>
        <translation>El servidor ha remitido a Calmora a una dirección que no es de confianza.</translation>
    </message>
    <message>
        <source>update_error_refused</source>
        <translation>El servidor no ha entregado la lista de versiones.</translation>
    </message>
    <message>
        <source>update_error_timeout</source>
        <translation>El servidor ha tardado demasiado en responder. Inténtelo más tarde.</translation>
    </message>
    <message>
        <source>update_error_too_large</source>
        <translation>La lista de versiones es más larga de lo que puede ser una lista así.</translation>
    </message>
    <message>
        <source>update_error_unreachable</source>
        <translation>No se puede acceder al servidor. Compruebe la conexión de red e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>update_error_unreadable</source>
        <translation>La lista de versiones está dañada o contiene datos que no le corresponden.</translation>
    </message>
    <message>
        <source>update_error_version</source>
        <translation>La lista de versiones contiene una versión no válida.</translation>
    </message>
    <message>
        <source>update_failed_title</source>
        <translation>Calmora no ha podido buscar actualizaciones.</translation>
    </message>
    <message>
        <source>update_notification_text</source>
        <translation>Elija «Buscar actualizaciones…» en el menú de Calmora para ver las novedades.</translation>
    </message>
    <message>
        <source>update_open_page</source>
        <translation>Abrir página web</translation>
    </message>
    <message>
        <source>update_packaged</source>
        <translation>Las actualizaciones llegan con los paquetes de su sistema.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Editar</translation>
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
        <source>record_shortcut</source>
        <translation>Grabar atajo</translation>
    </message>
    <message>
        <source>press_shortcut</source>
        <translation>Pulse el atajo</translation>
    </message>
    <message>
        <source>clear_shortcut</source>
        <translation>Borrar atajo</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_menu_item</source>
        <translation>Este atajo de teclado no se puede usar porque ya lo utiliza el elemento de menú «%@».</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_system</source>
        <translation>Este atajo de teclado ya lo utiliza el escritorio.</translation>
    </message>
    <message>
        <source>keyboard_shortcuts_can_be_changed</source>
        <translation>La mayoría de los atajos del escritorio se pueden cambiar en su configuración del teclado.</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>force_use_shortcut</source>
        <translation>Usar de todos modos</translation>
    </message>
    <message>
        <source>space_key</source>
        <translation>Espacio</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Mayús</translation>
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
        <translation>Intro</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menú</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retroceso</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supr</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Escape</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Insertar</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espacio</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulador</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Re Pág</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Av Pág</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Flecha arriba</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Flecha derecha</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Flecha abajo</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Flecha izquierda</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Bloq Num</translation>
    </message>
    <message>
        <source>Keypad Enter</source>
        <translation>Teclado numérico Intro</translation>
    </message>
    <message>
        <source>Keypad 0</source>
        <translation>Teclado numérico 0</translation>
    </message>
    <message>
        <source>Keypad 1</source>
        <translation>Teclado numérico 1</translation>
    </message>
    <message>
        <source>Keypad 2</source>
        <translation>Teclado numérico 2</translation>
    </message>
    <message>
        <source>Keypad 3</source>
        <translation>Teclado numérico 3</translation>
    </message>
    <message>
        <source>Keypad 4</source>
        <translation>Teclado numérico 4</translation>
    </message>
    <message>
        <source>Keypad 5</source>
        <translation>Teclado numérico 5</translation>
    </message>
    <message>
        <source>Keypad 6</source>
        <translation>Teclado numérico 6</translation>
    </message>
    <message>
        <source>Keypad 7</source>
        <translation>Teclado numérico 7</translation>
    </message>
    <message>
        <source>Keypad 8</source>
        <translation>Teclado numérico 8</translation>
    </message>
    <message>
        <source>Keypad 9</source>
        <translation>Teclado numérico 9</translation>
    </message>
    <message>
        <source>Keypad .</source>
        <translation>Teclado numérico .</translation>
    </message>
    <message>
        <source>Keypad /</source>
        <translation>Teclado numérico /</translation>
    </message>
    <message>
        <source>Keypad =</source>
        <translation>Teclado numérico =</translation>
    </message>
    <message>
        <source>Keypad -</source>
        <translation>Teclado numérico -</translation>
    </message>
    <message>
        <source>Keypad *</source>
        <translation>Teclado numérico *</translation>
    </message>
    <message>
        <source>Keypad +</source>
        <translation>Teclado numérico +</translation>
    </message>
</context>
</TS>
