<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>Tavik::Texts</name>
    <message>
        <source>Launch at login could not be changed from this build.</source>
        <translation>No se pudo cambiar el inicio con la sesión desde esta versión.</translation>
    </message>
    <message>
        <source>Enable Tavik Launcher in System Settings &gt; Login Items to finish setup.</source>
        <translation>Active Tavik Launcher en Ajustes del sistema &gt; Ítems de inicio para terminar la configuración.</translation>
    </message>
    <message>
        <source>Some features are off by default — explore Settings to enable more.</source>
        <translation>Algunas funciones vienen desactivadas — descúbralas en los Ajustes.</translation>
    </message>
    <message>
        <source>Type any letters to filter the ring by app name.</source>
        <translation>Escriba unas letras para filtrar el anillo por nombre de aplicación.</translation>
    </message>
    <message>
        <source>Double-tap your shortcut to pin the ring open.</source>
        <translation>Pulse dos veces su atajo para dejar el anillo abierto.</translation>
    </message>
    <message>
        <source>Arrow keys rotate the selection — press Return to launch.</source>
        <translation>Las flechas giran la selección — Intro la abre.</translation>
    </message>
    <message>
        <source>Press 1–9 to launch that slot instantly.</source>
        <translation>Pulse 1–9 para abrir esa casilla al instante.</translation>
    </message>
    <message>
        <source>Keep favorites on the ring: Settings → Permanent Apps.</source>
        <translation>Tenga sus favoritas en el anillo: Ajustes → Apps fijas.</translation>
    </message>
    <message>
        <source>Fill empty slots with recent apps — toggle it in Settings.</source>
        <translation>Llene las casillas vacías con aplicaciones recientes — en los Ajustes.</translation>
    </message>
    <message>
        <source>Turn on &quot;Search All Apps&quot; in Settings to find apps beyond the ring.</source>
        <translation>Active «Buscar en todas las aplicaciones» en los Ajustes para ir más allá del anillo.</translation>
    </message>
    <message>
        <source>Make the ring yours — size, colors, and themes live in Settings.</source>
        <translation>Haga suyo el anillo — tamaño, colores y temas están en los Ajustes.</translation>
    </message>
    <message>
        <source>A dot inside the menu-bar wheel means an update is ready.</source>
        <translation>Un punto en la rueda de la barra de menús avisa de una actualización.</translation>
    </message>
    <message>
        <source>Helpful hints will appear here every %1 launches. Adjust or turn them off in Settings.</source>
        <translation>Cada %1 usos verá aquí un consejo. Cámbielo en los Ajustes.</translation>
    </message>
    <message>
        <source>Settings imported from %1.</source>
        <translation>Ajustes importados de %1.</translation>
    </message>
    <message>
        <source>Imported %1 — 1 pinned app restored, %2 not installed on this Mac.</source>
        <translation>%1 importado — 1 aplicación fija restaurada, no instaladas en este equipo: %2.</translation>
    </message>
    <message numerus="yes">
        <source>Imported %1 — %n pinned apps restored, %2 not installed on this Mac.</source>
        <translation>
            <numerusform>%1 importado — %n aplicación fija restaurada, no instaladas en este equipo: %2.</numerusform>
            <numerusform>%1 importado — %n aplicaciones fijas restauradas, no instaladas en este equipo: %2.</numerusform>
        </translation>
    </message>
    <message>
        <source>Couldn&apos;t import %1 — is it a valid Tavik settings file?</source>
        <translation>No se pudo importar %1 — ¿es un archivo de ajustes de Tavik válido?</translation>
    </message>
    <message>
        <source>Couldn&apos;t export: %1</source>
        <translation>No se pudo exportar: %1</translation>
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
        <translation>Súper</translation>
    </message>
    <message>
        <source>to select all</source>
        <translation>para seleccionar todo</translation>
    </message>
    <message>
        <source>to copy</source>
        <translation>para copiar</translation>
    </message>
    <message>
        <source>to find</source>
        <translation>para buscar</translation>
    </message>
    <message>
        <source>to save</source>
        <translation>para guardar</translation>
    </message>
    <message>
        <source>to paste</source>
        <translation>para pegar</translation>
    </message>
    <message>
        <source>to cut</source>
        <translation>para cortar</translation>
    </message>
    <message>
        <source>to undo</source>
        <translation>para deshacer</translation>
    </message>
    <message>
        <source>to redo</source>
        <translation>para rehacer</translation>
    </message>
    <message>
        <source>to close a window</source>
        <translation>para cerrar una ventana</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Hold %1 to show the ring, let go to dismiss it</source>
        <translation>Mantenga %1 para mostrar el anillo, suelte para cerrarlo</translation>
    </message>
    <message>
        <source>Press %1 to show or dismiss the ring</source>
        <translation>Pulse %1 para mostrar o cerrar el anillo</translation>
    </message>
    <message>
        <source>%1 types a character. As the shortcut of the ring it could not be typed in any program any more.</source>
        <translation>%1 escribe un carácter. Como atajo del anillo ya no se podría escribir en ningún programa.</translation>
    </message>
    <message>
        <source>Programs use %1 themselves%2. As the shortcut of the ring it would not reach any of them any more.</source>
        <translation>Los programas usan %1%2. Como atajo del anillo ya no llegaría a ninguno de ellos.</translation>
    </message>
    <message>
        <source>Shortcuts of the desktop that begin with %1 go on working.</source>
        <translation>Los atajos del escritorio que empiezan por %1 siguen funcionando.</translation>
    </message>
    <message>
        <source>Shortcuts that the desktop or another program has taken stay theirs.</source>
        <translation>Los atajos que ya tomó el escritorio u otro programa siguen siendo suyos.</translation>
    </message>
    <message>
        <source>AltGr only chooses which character a key types and cannot be part of a shortcut. Try one without it.</source>
        <translation>AltGr solo elige qué carácter escribe una tecla y no puede ser parte de un atajo. Pruebe uno sin ella.</translation>
    </message>
    <message>
        <source>Allow Accessibility Access</source>
        <translation>Permitir el acceso de accesibilidad</translation>
    </message>
    <message>
        <source>Welcome to Tavik Launcher</source>
        <translation>Le damos la bienvenida a Tavik Launcher</translation>
    </message>
    <message>
        <source>Reindex Apps</source>
        <translation>Reindexar aplicaciones</translation>
    </message>
    <message>
        <source>Tavik Launcher Settings</source>
        <translation>Ajustes de Tavik Launcher</translation>
    </message>
    <message>
        <source>This build is not updated by itself.</source>
        <translation>Esta versión no se actualiza sola.</translation>
    </message>
    <message>
        <source>There is no update to install.</source>
        <translation>No hay ninguna actualización que instalar.</translation>
    </message>
    <message>
        <source>%1 cannot be had.</source>
        <translation>%1 no está disponible.</translation>
    </message>
    <message>
        <source>Another application may use it, or the keyboard has changed. Choose another shortcut in the settings.</source>
        <translation>Quizá lo use otra aplicación, o ha cambiado el teclado. Elija otro atajo en los ajustes.</translation>
    </message>
    <message>
        <source>A shortcut needs at least one modifier key.</source>
        <translation>Un atajo necesita al menos una tecla modificadora.</translation>
    </message>
    <message>
        <source>This keyboard does not have all the keys of %1.</source>
        <translation>Este teclado no tiene todas las teclas de %1.</translation>
    </message>
    <message>
        <source>This desktop gives programs no shortcut of modifiers alone. Add a key: %1, say.</source>
        <translation>Este escritorio no da a los programas atajos solo de modificadoras. Añada una tecla; por ejemplo, %1.</translation>
    </message>
    <message>
        <source>%1 is already used by another application.</source>
        <translation>Otra aplicación ya usa %1.</translation>
    </message>
    <message>
        <source>Type to filter…</source>
        <translation>Filtrar…</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtro</translation>
    </message>
    <message>
        <source>running</source>
        <translation>en ejecución</translation>
    </message>
    <message>
        <source>starting</source>
        <translation>iniciándose</translation>
    </message>
    <message>
        <source>Type to filter...</source>
        <translation>Filtrar…</translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>Fijado</translation>
    </message>
    <message>
        <source>Search mode</source>
        <translation>Modo de búsqueda</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Sin resultados</translation>
    </message>
    <message>
        <source>Nothing here yet. Click to add apps in Settings → Permanent Apps.</source>
        <translation>Aún no hay nada. Haga clic para añadir aplicaciones en Ajustes → Apps fijas.</translation>
    </message>
    <message>
        <source>Windows, drawing, system services</source>
        <translation>Ventanas, dibujo, servicios del sistema</translation>
    </message>
    <message>
        <source>Desktop entries, starting applications</source>
        <translation>Entradas de escritorio, inicio de aplicaciones</translation>
    </message>
    <message>
        <source>X11 and Wayland sessions, and their keyboards</source>
        <translation>Las sesiones X11 y Wayland y sus teclados</translation>
    </message>
    <message>
        <source>Property lists</source>
        <translation>Listas de propiedades</translation>
    </message>
    <message>
        <source>Signatures of updates</source>
        <translation>Firmas de las actualizaciones</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Versión %1</translation>
    </message>
    <message>
        <source>Free software under the MIT license</source>
        <translation>Software libre con licencia MIT</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>A fast radial launcher centered wherever your pointer is.</source>
        <translation>Un lanzador circular rápido, centrado donde está su puntero.</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>Welcome tour</source>
        <translation>Visita guiada</translation>
    </message>
    <message>
        <source>The ring in four short steps</source>
        <translation>El anillo en cuatro pasos breves</translation>
    </message>
    <message>
        <source>Repeat Tour</source>
        <translation>Repetir la visita</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Asistencia</translation>
    </message>
    <message>
        <source>Questions, ideas and faults</source>
        <translation>Preguntas, ideas y fallos</translation>
    </message>
    <message>
        <source>Open Support Page</source>
        <translation>Abrir la asistencia</translation>
    </message>
    <message>
        <source>Built with</source>
        <translation>Hecho con</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Aspecto</translation>
    </message>
    <message>
        <source>Size and content of the ring. Every change shows at once in the ring beside this window.</source>
        <translation>Tamaño y contenido del anillo. Cada cambio se ve al momento en el anillo junto a esta ventana.</translation>
    </message>
    <message>
        <source>Ring</source>
        <translation>Anillo</translation>
    </message>
    <message>
        <source>Diameter</source>
        <translation>Diámetro</translation>
    </message>
    <message>
        <source>The ring&apos;s outer size</source>
        <translation>El tamaño exterior del anillo</translation>
    </message>
    <message>
        <source>Thickness</source>
        <translation>Grosor</translation>
    </message>
    <message>
        <source>Width of the band</source>
        <translation>Anchura de la banda</translation>
    </message>
    <message>
        <source>Icon size</source>
        <translation>Tamaño de los iconos</translation>
    </message>
    <message>
        <source>Limited by thickness</source>
        <translation>Limitado por el grosor</translation>
    </message>
    <message>
        <source>Maximum applications</source>
        <translation>Número máximo</translation>
    </message>
    <message>
        <source>Slots around the ring</source>
        <translation>Casillas alrededor del anillo</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Textos</translation>
    </message>
    <message>
        <source>Show application names</source>
        <translation>Mostrar los nombres</translation>
    </message>
    <message>
        <source>The selected application&apos;s name in the center</source>
        <translation>El nombre de la aplicación elegida, en el centro</translation>
    </message>
    <message>
        <source>Keep the center hint visible</source>
        <translation>Mantener el consejo en el centro</translation>
    </message>
    <message>
        <source>Hints from the rotation are then not shown</source>
        <translation>Entonces no se muestran los demás consejos</translation>
    </message>
    <message>
        <source>Reset Layout</source>
        <translation>Restablecer</translation>
    </message>
    <message>
        <source>Restore size, thickness, icon size and number of slots.</source>
        <translation>Restablecer tamaño, grosor, tamaño de los iconos y número de casillas.</translation>
    </message>
    <message>
        <source>%1, not installed</source>
        <translation>%1, no instalada</translation>
    </message>
    <message>
        <source>Not installed — %1</source>
        <translation>No instalada — %1</translation>
    </message>
    <message>
        <source>Already on the ring</source>
        <translation>Ya está en el anillo</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Copia</translation>
    </message>
    <message>
        <source>Keep your settings in a file, or carry them to another machine.</source>
        <translation>Guarde sus ajustes en un archivo, o lléveselos a otro equipo.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportar</translation>
    </message>
    <message>
        <source>Write all settings to a file</source>
        <translation>Escribir todos los ajustes en un archivo</translation>
    </message>
    <message>
        <source>Export Settings…</source>
        <translation>Exportar…</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importar</translation>
    </message>
    <message>
        <source>Take over the settings of a file</source>
        <translation>Tomar los ajustes de un archivo</translation>
    </message>
    <message>
        <source>Settings that the file does not mention stay as they are.</source>
        <translation>Los ajustes que el archivo no menciona quedan como están.</translation>
    </message>
    <message>
        <source>Import Settings…</source>
        <translation>Importar…</translation>
    </message>
    <message>
        <source>Undo Import</source>
        <translation>Deshacer la importación</translation>
    </message>
    <message>
        <source>Go back to the settings before the import; possible until this window closes.</source>
        <translation>Volver a los ajustes de antes de importar; posible hasta que se cierre esta ventana.</translation>
    </message>
    <message>
        <source>Export Tavik Launcher Settings</source>
        <translation>Exportar los ajustes de Tavik Launcher</translation>
    </message>
    <message>
        <source>Settings (*.json)</source>
        <translation>Ajustes (*.json)</translation>
    </message>
    <message>
        <source>Settings exported to %1.</source>
        <translation>Ajustes exportados a %1.</translation>
    </message>
    <message>
        <source>Import Tavik Launcher Settings</source>
        <translation>Importar ajustes de Tavik Launcher</translation>
    </message>
    <message>
        <source>Settings (*.json);;All files (*)</source>
        <translation>Ajustes (*.json);;Todos los archivos (*)</translation>
    </message>
    <message>
        <source>The import was undone.</source>
        <translation>Se deshizo la importación.</translation>
    </message>
    <message>
        <source>%1: choose a color</source>
        <translation>%1: elegir un color</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Abrir al iniciar sesión</translation>
    </message>
    <message>
        <source>Start Tavik Launcher quietly when you log in</source>
        <translation>Iniciar Tavik Launcher en silencio con la sesión</translation>
    </message>
    <message>
        <source>The ring is then ready as soon as you are.</source>
        <translation>Así el anillo está listo en cuanto usted lo está.</translation>
    </message>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>How the launcher starts and what the ring offers.</source>
        <translation>Cómo arranca el lanzador y qué ofrece el anillo.</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Sistema</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <translation>Mostrar en el Dock</translation>
    </message>
    <message>
        <source>Windows of the launcher appear in the taskbar</source>
        <translation>Las ventanas del lanzador aparecen en la barra de tareas</translation>
    </message>
    <message>
        <source>The ring itself is never listed there.</source>
        <translation>El anillo mismo nunca aparece allí.</translation>
    </message>
    <message>
        <source>Double-tap pins the ring</source>
        <translation>Una doble pulsación fija el anillo</translation>
    </message>
    <message>
        <source>Tap a held shortcut twice and the ring stays open</source>
        <translation>Pulse dos veces un atajo sostenido y el anillo queda abierto</translation>
    </message>
    <message>
        <source>A pinned ring stays until you launch something, press Escape, or click away.</source>
        <translation>Un anillo fijado permanece hasta que abra algo, pulse Escape o haga clic fuera.</translation>
    </message>
    <message>
        <source>Fill with recent applications</source>
        <translation>Completar con aplicaciones recientes</translation>
    </message>
    <message>
        <source>Empty slots show what you used last</source>
        <translation>Las casillas vacías muestran lo último que usó</translation>
    </message>
    <message>
        <source>Pinned and running applications always come first.</source>
        <translation>Las aplicaciones fijas y en ejecución van siempre primero.</translation>
    </message>
    <message>
        <source>Search all applications</source>
        <translation>Buscar en todas las aplicaciones</translation>
    </message>
    <message>
        <source>Typing also finds applications beyond the ring</source>
        <translation>Al escribir se encuentran también aplicaciones fuera del anillo</translation>
    </message>
    <message>
        <source>Otherwise only what the ring shows is searched.</source>
        <translation>Si no, solo se busca en lo que muestra el anillo.</translation>
    </message>
    <message>
        <source>Interval</source>
        <translation>Intervalo</translation>
    </message>
    <message>
        <source>Launches from one hint to the next</source>
        <translation>Usos entre un consejo y el siguiente</translation>
    </message>
    <message>
        <source>Hints</source>
        <translation>Consejos</translation>
    </message>
    <message>
        <source>Short tips in the middle of the ring, now and then.</source>
        <translation>Consejos breves en el centro del anillo, de vez en cuando.</translation>
    </message>
    <message>
        <source>Show hints</source>
        <translation>Mostrar consejos</translation>
    </message>
    <message>
        <source>One tip at a time</source>
        <translation>Uno cada vez</translation>
    </message>
    <message>
        <source>Not shown while the center hint is kept visible, see Appearance</source>
        <translation>No se muestran mientras el consejo siga en el centro, véase Aspecto</translation>
    </message>
    <message>
        <source>All hints</source>
        <translation>Todos los consejos</translation>
    </message>
    <message>
        <source>Permanent Apps</source>
        <translation>Apps fijas</translation>
    </message>
    <message>
        <source>Always on the ring, clockwise from the top, whether they run or not.</source>
        <translation>Siempre en el anillo, en sentido horario desde arriba, estén abiertas o no.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message>
        <source>No application is called that.</source>
        <translation>Ninguna aplicación se llama así.</translation>
    </message>
    <message>
        <source>Applications found</source>
        <translation>Aplicaciones encontradas</translation>
    </message>
    <message>
        <source>On the ring</source>
        <translation>En el anillo</translation>
    </message>
    <message>
        <source>Nothing yet. Search above to add applications.</source>
        <translation>Aún nada. Busque arriba para añadir aplicaciones.</translation>
    </message>
    <message>
        <source>Permanent applications</source>
        <translation>Aplicaciones fijas</translation>
    </message>
    <message>
        <source>Drag to change the order, or press Alt with an arrow key. Delete removes.</source>
        <translation>Arrastre para cambiar el orden, o pulse Alt con una flecha. Supr quita.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Search applications</source>
        <translation>Buscar aplicaciones</translation>
    </message>
    <message>
        <source>Type a name; Return adds the first application found.</source>
        <translation>Escriba un nombre; Intro añade la primera aplicación encontrada.</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Añadir…</translation>
    </message>
    <message>
        <source>Add an application</source>
        <translation>Añadir una aplicación</translation>
    </message>
    <message>
        <source>Choose an application that the search does not find.</source>
        <translation>Elegir una aplicación que la búsqueda no encuentra.</translation>
    </message>
    <message>
        <source>Add an Application</source>
        <translation>Añadir una aplicación</translation>
    </message>
    <message>
        <source>Applications (*.desktop *.app)</source>
        <translation>Aplicaciones (*.desktop *.app)</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Subir</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Subir</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Bajar</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Bajar</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Take the selected application off the ring.</source>
        <translation>Quitar del anillo la aplicación seleccionada.</translation>
    </message>
    <message>
        <source>%1 is not an application.</source>
        <translation>%1 no es una aplicación.</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Atajo</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Tema</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Actualizaciones</translation>
    </message>
    <message>
        <source>Sections</source>
        <translation>Secciones</translation>
    </message>
    <message>
        <source>What brings the ring up, anywhere.</source>
        <translation>Lo que hace aparecer el anillo, en cualquier lugar.</translation>
    </message>
    <message>
        <source>Trigger shortcut</source>
        <translation>Atajo de activación</translation>
    </message>
    <message>
        <source>Click, then press the new shortcut.</source>
        <translation>Haga clic y pulse el atajo nuevo.</translation>
    </message>
    <message>
        <source>Press Modifier+Key for a tap-to-toggle shortcut. Or hold ≥2 modifier keys and release them to use a hold-to-show shortcut. Press Escape to cancel recording.</source>
        <translation>Pulse Modificadora+Tecla para un atajo que muestra u oculta. O mantenga ≥2 teclas modificadoras y suéltelas para mostrar el anillo mientras las sostiene. Escape cancela la grabación.</translation>
    </message>
    <message>
        <source>Use Default Shortcut</source>
        <translation>Usar el predeterminado</translation>
    </message>
    <message>
        <source>Go back to %1.</source>
        <translation>Volver a %1.</translation>
    </message>
    <message>
        <source>Use It Anyway</source>
        <translation>Usarlo de todos modos</translation>
    </message>
    <message>
        <source>Choose Another</source>
        <translation>Elegir otro</translation>
    </message>
    <message>
        <source>%1 cannot be used. %2</source>
        <translation>No se puede usar %1. %2</translation>
    </message>
    <message>
        <source>Press a shortcut…</source>
        <translation>Pulse un atajo…</translation>
    </message>
    <message>
        <source>Trigger shortcut: %1</source>
        <translation>Atajo de activación: %1</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Negro</translation>
    </message>
    <message>
        <source>Charcoal</source>
        <translation>Antracita</translation>
    </message>
    <message>
        <source>Graphite</source>
        <translation>Grafito</translation>
    </message>
    <message>
        <source>Slate</source>
        <translation>Pizarra</translation>
    </message>
    <message>
        <source>Midnight</source>
        <translation>Medianoche</translation>
    </message>
    <message>
        <source>Navy</source>
        <translation>Marino</translation>
    </message>
    <message>
        <source>Forest</source>
        <translation>Bosque</translation>
    </message>
    <message>
        <source>Pine</source>
        <translation>Pino</translation>
    </message>
    <message>
        <source>Plum</source>
        <translation>Ciruela</translation>
    </message>
    <message>
        <source>Aubergine</source>
        <translation>Berenjena</translation>
    </message>
    <message>
        <source>Oxblood</source>
        <translation>Sangre de buey</translation>
    </message>
    <message>
        <source>Espresso</source>
        <translation>Expreso</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Azul</translation>
    </message>
    <message>
        <source>Sky</source>
        <translation>Cielo</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>Cian</translation>
    </message>
    <message>
        <source>Mint</source>
        <translation>Menta</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Verde</translation>
    </message>
    <message>
        <source>Lime</source>
        <translation>Lima</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Amarillo</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Naranja</translation>
    </message>
    <message>
        <source>Ember</source>
        <translation>Ascua</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rojo</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>Morado</translation>
    </message>
    <message>
        <source>Ready colors</source>
        <translation>Colores preparados</translation>
    </message>
    <message>
        <source>Dark Backgrounds</source>
        <translation>Fondos oscuros</translation>
    </message>
    <message>
        <source>Accents</source>
        <translation>Acentos</translation>
    </message>
    <message>
        <source>More Colors…</source>
        <translation>Más colores…</translation>
    </message>
    <message>
        <source>Apply a pre-made color theme to the ring; choosing Custom lets you set each color individually.</source>
        <translation>Aplique al anillo un tema de colores ya hecho; con Propio puede fijar cada color por separado.</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Propio</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Colores</translation>
    </message>
    <message>
        <source>Ring color</source>
        <translation>Color del anillo</translation>
    </message>
    <message>
        <source>The band behind the icons</source>
        <translation>La banda tras los iconos</translation>
    </message>
    <message>
        <source>Six hexadecimal digits, or a ready color from the well.</source>
        <translation>Seis cifras hexadecimales, o un color preparado de la paleta.</translation>
    </message>
    <message>
        <source>Highlight color</source>
        <translation>Color de resaltado</translation>
    </message>
    <message>
        <source>The wedge under the selection</source>
        <translation>La cuña bajo la selección</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Opacidad</translation>
    </message>
    <message>
        <source>How solid the band is</source>
        <translation>Lo opaca que es la banda</translation>
    </message>
    <message>
        <source>Highlight</source>
        <translation>Resaltado</translation>
    </message>
    <message>
        <source>Strength of the wedge</source>
        <translation>Fuerza de la cuña</translation>
    </message>
    <message>
        <source>Name label</source>
        <translation>Etiqueta del nombre</translation>
    </message>
    <message>
        <source>Background of names and hints</source>
        <translation>Fondo de nombres y consejos</translation>
    </message>
    <message>
        <source>Running applications</source>
        <translation>Aplicaciones en ejecución</translation>
    </message>
    <message>
        <source>Mark running applications</source>
        <translation>Marcar las aplicaciones en ejecución</translation>
    </message>
    <message>
        <source>A dot beside the icon of each</source>
        <translation>Un punto junto al icono de cada una</translation>
    </message>
    <message>
        <source>Dot color</source>
        <translation>Color del punto</translation>
    </message>
    <message>
        <source>Themes leave it as it is</source>
        <translation>Los temas no lo cambian</translation>
    </message>
    <message>
        <source>Colors and opacity of the ring.</source>
        <translation>Colores y opacidad del anillo.</translation>
    </message>
    <message>
        <source>Themes</source>
        <translation>Temas</translation>
    </message>
    <message>
        <source>Restore Default Theme</source>
        <translation>Restaurar el tema predeterminado</translation>
    </message>
    <message>
        <source>Restore all colors and opacity values to the default Tavik Classic theme.</source>
        <translation>Restaurar todos los colores y opacidades del tema predeterminado Tavik Classic.</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Frecuencia</translation>
    </message>
    <message>
        <source>How often to look for a new version</source>
        <translation>Cada cuánto buscar una versión nueva</translation>
    </message>
    <message>
        <source>Daily</source>
        <translation>Cada día</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>Cada semana</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>Cada mes</translation>
    </message>
    <message>
        <source>New versions are never installed without asking you.</source>
        <translation>Nunca se instala una versión nueva sin preguntarle.</translation>
    </message>
    <message>
        <source>This version</source>
        <translation>Esta versión</translation>
    </message>
    <message>
        <source>Check for updates automatically</source>
        <translation>Buscar actualizaciones automáticamente</translation>
    </message>
    <message>
        <source>A dot in the wheel&apos;s symbol or a notification tells of a new version</source>
        <translation>Un punto en el símbolo de la rueda o una notificación avisa de una versión nueva</translation>
    </message>
    <message>
        <source>Look for a new version at once.</source>
        <translation>Buscar ahora mismo una versión nueva.</translation>
    </message>
    <message>
        <source>Check Now</source>
        <translation>Buscar ahora</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Buscar actualizaciones…</translation>
    </message>
    <message>
        <source>About Tavik Launcher</source>
        <translation>Acerca de Tavik Launcher</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>Ajustes…</translation>
    </message>
    <message>
        <source>Show Tavik Launcher</source>
        <translation>Mostrar Tavik Launcher</translation>
    </message>
    <message>
        <source>Reindex Apps…</source>
        <translation>Reindexar aplicaciones…</translation>
    </message>
    <message>
        <source>Support…</source>
        <translation>Asistencia…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Update to %1 Available…</source>
        <translation>Actualización %1 disponible…</translation>
    </message>
    <message>
        <source>Tavik Launcher — update available</source>
        <translation>Tavik Launcher — actualización disponible</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>Novedades</translation>
    </message>
    <message>
        <source>The update is with your installer.</source>
        <translation>La actualización está en manos de su instalador.</translation>
    </message>
    <message>
        <source>Tavik Launcher %1 has been downloaded and verified. Your desktop&apos;s installer takes it from here. Once it is done, quit Tavik Launcher and start it again.</source>
        <translation>Tavik Launcher %1 se ha descargado y comprobado. El instalador de su escritorio sigue desde aquí. Cuando termine, cierre Tavik Launcher y vuelva a abrirlo.</translation>
    </message>
    <message>
        <source>Looking for updates did not work.</source>
        <translation>La búsqueda de actualizaciones falló.</translation>
    </message>
    <message>
        <source>The page could not be opened.</source>
        <translation>No se pudo abrir la página.</translation>
    </message>
    <message>
        <source>The update was not installed.</source>
        <translation>La actualización no se instaló.</translation>
    </message>
    <message>
        <source>Software Update</source>
        <translation>Actualización de software</translation>
    </message>
    <message>
        <source>A new version of Tavik Launcher is available.</source>
        <translation>Hay una versión nueva de Tavik Launcher.</translation>
    </message>
    <message>
        <source>Version %1 is out; you have %2.</source>
        <translation>Ha salido la versión %1; usted tiene la %2.</translation>
    </message>
    <message>
        <source>It cannot be installed from here. Its page tells how to get it.</source>
        <translation>No se puede instalar desde aquí. Su página explica cómo obtenerla.</translation>
    </message>
    <message>
        <source>This version is important. Please install it soon.</source>
        <translation>Esta versión es importante. Instálela pronto.</translation>
    </message>
    <message>
        <source>Fetching the release notes…</source>
        <translation>Obteniendo las novedades…</translation>
    </message>
    <message>
        <source>There are no release notes.</source>
        <translation>No hay notas de la versión.</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Omitir esta versión</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Recordármelo más tarde</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>Saber más</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>Instalar</translation>
    </message>
    <message>
        <source>The release notes could not be fetched. %1</source>
        <translation>No se pudieron obtener las novedades. %1</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Ahora no</translation>
    </message>
    <message>
        <source>Install and Relaunch</source>
        <translation>Instalar y reiniciar</translation>
    </message>
    <message>
        <source>Looking for a newer version…</source>
        <translation>Buscando una versión más nueva…</translation>
    </message>
    <message>
        <source>Downloading Tavik Launcher %1…</source>
        <translation>Descargando Tavik Launcher %1…</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Conectando…</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>%1 — %2 per second</source>
        <translation>%1 — %2 por segundo</translation>
    </message>
    <message>
        <source>Verifying the download…</source>
        <translation>Comprobando la descarga…</translation>
    </message>
    <message>
        <source>Only what its maker has signed is installed.</source>
        <translation>Solo se instala lo que ha firmado su autor.</translation>
    </message>
    <message>
        <source>Ready to install.</source>
        <translation>Listo para instalar.</translation>
    </message>
    <message>
        <source>Tavik Launcher closes, and starts again as version %1.</source>
        <translation>Tavik Launcher se cierra y vuelve como versión %1.</translation>
    </message>
    <message>
        <source>Installing…</source>
        <translation>Instalando…</translation>
    </message>
    <message>
        <source>Tavik Launcher starts again in a moment.</source>
        <translation>Tavik Launcher vuelve en un momento.</translation>
    </message>
    <message>
        <source>If a permission prompt appeared, click Allow. Otherwise open Settings and enable the toggle next to Tavik Launcher.</source>
        <translation>Si apareció una petición de permiso, pulse Permitir. Si no, abra los Ajustes y active el interruptor junto a Tavik Launcher.</translation>
    </message>
    <message>
        <source>Not enabled yet — flip the toggle next to Tavik Launcher in Accessibility settings.</source>
        <translation>Aún no está activado — accione el interruptor junto a Tavik Launcher en los ajustes de accesibilidad.</translation>
    </message>
    <message>
        <source>Enable Accessibility Access</source>
        <translation>Activar el acceso de accesibilidad</translation>
    </message>
    <message>
        <source>Open Accessibility Settings</source>
        <translation>Abrir los ajustes de accesibilidad</translation>
    </message>
    <message>
        <source>Done — I&apos;ve Enabled It</source>
        <translation>Hecho — ya está activado</translation>
    </message>
    <message>
        <source>Skip for Now</source>
        <translation>Omitir por ahora</translation>
    </message>
    <message>
        <source>Hotkey Is Active</source>
        <translation>El atajo está activo</translation>
    </message>
    <message>
        <source>The global hotkey is now working. Tavik Launcher will appear over any app.</source>
        <translation>El atajo global ya funciona. Tavik Launcher aparecerá sobre cualquier aplicación.</translation>
    </message>
    <message>
        <source>Tavik Launcher needs Accessibility permission so the hotkey works when other apps are in the foreground.</source>
        <translation>Tavik Launcher necesita el permiso de accesibilidad para que el atajo funcione cuando hay otras aplicaciones delante.</translation>
    </message>
    <message>
        <source>Command Copied</source>
        <translation>Orden copiada</translation>
    </message>
    <message>
        <source>Copy the Command</source>
        <translation>Copiar la orden</translation>
    </message>
    <message>
        <source>Press the shortcut</source>
        <translation>Pulse el atajo</translation>
    </message>
    <message>
        <source>Press %1 to toggle the ring at the pointer. Press it again or hit Esc to dismiss. Go ahead — try it right now!</source>
        <translation>Pulse %1 para mostrar u ocultar el anillo en el puntero. Pulse otra vez o Esc para cerrarlo. ¡Adelante — pruébelo ahora mismo!</translation>
    </message>
    <message>
        <source>Hold the shortcut</source>
        <translation>Mantenga el atajo</translation>
    </message>
    <message>
        <source>Press and hold %1 to open the ring at the pointer. Release to dismiss unless search mode is active. Go ahead — try it right now!</source>
        <translation>Mantenga pulsado %1 para abrir el anillo en el puntero. Suelte para cerrarlo, salvo en modo de búsqueda. ¡Adelante — pruébelo ahora mismo!</translation>
    </message>
    <message>
        <source>Move or type</source>
        <translation>Señale o escriba</translation>
    </message>
    <message>
        <source>Hover an app slice to select it, or type to filter. Typing pins the ring until you launch, press Esc, or click away.</source>
        <translation>Pase sobre una porción del anillo para elegirla, o escriba para filtrar. Al escribir, el anillo queda fijo hasta que abra algo, pulse Esc o haga clic fuera.</translation>
    </message>
    <message>
        <source>Pin your favorites</source>
        <translation>Fije sus favoritas</translation>
    </message>
    <message>
        <source>Add permanent apps in Settings, then drag pinned apps to lock their clockwise ring order.</source>
        <translation>Añada aplicaciones fijas en los Ajustes y arrástrelas para fijar su orden en sentido horario.</translation>
    </message>
    <message>
        <source>Tune the look</source>
        <translation>Ajuste el aspecto</translation>
    </message>
    <message>
        <source>Adjust size, spacing, colors, opacity, themes, and the global shortcut whenever you want.</source>
        <translation>Cambie tamaño, espaciado, colores, opacidad, temas y el atajo global cuando quiera.</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Abrir los ajustes</translation>
    </message>
    <message>
        <source>Start Using Tavik</source>
        <translation>Empezar</translation>
    </message>
    <message>
        <source>Tavik Launcher keeps an index of every app in your Applications folders — it powers the ring and search.</source>
        <translation>Tavik Launcher lleva un índice de todas las aplicaciones de sus carpetas de aplicaciones — de él viven el anillo y la búsqueda.</translation>
    </message>
    <message>
        <source>The index refreshes itself automatically whenever you open the ring, so you rarely need this. Run it manually if an app you just installed isn&apos;t showing up in search, or after moving apps between folders.</source>
        <translation>El índice se renueva solo cuando abre el anillo, así que rara vez lo necesitará. Hágalo a mano si una aplicación recién instalada no aparece en la búsqueda, o tras mover aplicaciones de carpeta.</translation>
    </message>
    <message>
        <source>All set. You can verify it worked by opening the ring and typing the name of a recently installed app.</source>
        <translation>Listo. Para comprobarlo, abra el anillo y escriba el nombre de una aplicación instalada hace poco.</translation>
    </message>
    <message>
        <source>Scanning…</source>
        <translation>Explorando…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Reindex Now</source>
        <translation>Reindexar ahora</translation>
    </message>
    <message numerus="yes">
        <source>Indexed %n apps</source>
        <translation>
            <numerusform>%n aplicación indexada</numerusform>
            <numerusform>%n aplicaciones indexadas</numerusform>
        </translation>
    </message>
    <message>
        <source>Input Monitoring</source>
        <translation>Supervisión de entrada</translation>
    </message>
    <message>
        <source>Full Disk Access</source>
        <translation>Acceso total al disco</translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>Accesibilidad</translation>
    </message>
    <message>
        <source>Privacy &amp; Security</source>
        <translation>Privacidad y seguridad</translation>
    </message>
    <message>
        <source>Enable here</source>
        <translation>Actívelo aquí</translation>
    </message>
    <message>
        <source>It is no application that can be started.</source>
        <translation>No es una aplicación que se pueda abrir.</translation>
    </message>
    <message>
        <source>The file “%1” may not be executed. Allow that in its properties first.</source>
        <translation>El archivo «%1» no se puede ejecutar. Permítalo antes en sus propiedades.</translation>
    </message>
    <message>
        <source>It names no program to start.</source>
        <translation>No nombra ningún programa que abrir.</translation>
    </message>
    <message>
        <source>It needs a terminal, and none is installed.</source>
        <translation>Necesita una terminal, y no hay ninguna instalada.</translation>
    </message>
    <message>
        <source>The application has no program to start.</source>
        <translation>La aplicación no tiene ningún programa que abrir.</translation>
    </message>
    <message>
        <source>no program is installed for it</source>
        <translation>no hay ningún programa instalado para ello</translation>
    </message>
    <message>
        <source>The program cannot be started.</source>
        <translation>El programa no se puede iniciar.</translation>
    </message>
    <message>
        <source>There is no program to start.</source>
        <translation>No hay ningún programa que iniciar.</translation>
    </message>
    <message>
        <source>“%1” could not be opened</source>
        <translation>No se pudo abrir «%1»</translation>
    </message>
    <message>
        <source>GNOME lets programs listen for no key, so a custom shortcut is added to its keyboard settings for as long as Tavik Launcher runs.</source>
        <translation>GNOME no deja que los programas escuchen ninguna tecla, así que se añade un atajo personalizado a sus ajustes de teclado mientras funcione Tavik Launcher.</translation>
    </message>
    <message>
        <source>Summon the ring</source>
        <translation>Hacer aparecer el anillo</translation>
    </message>
    <message>
        <source>KDE gives programs no shortcut of modifiers alone, so it is asked for the same modifiers with Space. System Settings › Shortcuts lists it.</source>
        <translation>KDE no da a los programas atajos solo de modificadoras, así que se le piden las mismas con Espacio. Figura en Preferencias del sistema › Atajos.</translation>
    </message>
    <message>
        <source>%1 is not a regular file</source>
        <translation>%1 no es un archivo normal</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made</source>
        <translation>No se puede crear la carpeta %1</translation>
    </message>
    <message>
        <source>“%1” could not be opened: %2.</source>
        <translation>No se pudo abrir «%1»: %2.</translation>
    </message>
    <message>
        <source>in Settings › Keyboard › View and Customize Shortcuts</source>
        <translation>en Configuración › Teclado › Ver y personalizar atajos</translation>
    </message>
    <message>
        <source>in System Settings › Shortcuts</source>
        <translation>en Preferencias del sistema › Atajos</translation>
    </message>
    <message>
        <source>in Settings › Keyboard › Application Shortcuts</source>
        <translation>en Configuración › Teclado › Atajos de aplicaciones</translation>
    </message>
    <message>
        <source>in System Settings › Keyboard › Shortcuts</source>
        <translation>en Configuración del sistema › Teclado › Atajos</translation>
    </message>
    <message>
        <source>in Control Center › Keyboard Shortcuts</source>
        <translation>en Centro de control › Combinaciones de teclas</translation>
    </message>
    <message>
        <source>in Configuration Center › Shortcut Keys</source>
        <translation>en Centro de configuración › Teclas de atajo</translation>
    </message>
    <message>
        <source>with bindsym in the configuration of sway</source>
        <translation>con bindsym en la configuración de sway</translation>
    </message>
    <message>
        <source>with bind in the configuration of Hyprland</source>
        <translation>con bind en la configuración de Hyprland</translation>
    </message>
    <message>
        <source>where your desktop or window manager keeps its shortcuts</source>
        <translation>donde su escritorio o gestor de ventanas guarda sus atajos</translation>
    </message>
    <message>
        <source>A Wayland desktop tells no program which keys are held while another one is in front.</source>
        <translation>Un escritorio Wayland no dice a ningún programa qué teclas se mantienen mientras otro está delante.</translation>
    </message>
    <message>
        <source>Bind the command %1 to a key of your choice %2.</source>
        <translation>Asigne la orden %1 a una tecla de su elección %2.</translation>
    </message>
    <message>
        <source>The update cannot be downloaded, because its address is not a safe one.</source>
        <translation>No se puede descargar la actualización porque su dirección no es segura.</translation>
    </message>
    <message>
        <source>The update is not signed, so it cannot be installed.</source>
        <translation>La actualización no está firmada, así que no se puede instalar.</translation>
    </message>
    <message>
        <source>The update&apos;s signature is damaged, so it cannot be installed.</source>
        <translation>La firma de la actualización está dañada, así que no se puede instalar.</translation>
    </message>
    <message>
        <source>The update does not say how large it is, so it cannot be installed.</source>
        <translation>La actualización no dice cuánto ocupa, así que no se puede instalar.</translation>
    </message>
    <message>
        <source>The update is larger than %1 MB, so it cannot be installed.</source>
        <translation>La actualización ocupa más de %1 MB, así que no se puede instalar.</translation>
    </message>
    <message>
        <source>Its makers have not signed which version it is, so it cannot be installed.</source>
        <translation>Sus autores no han firmado qué versión es, así que no se puede instalar.</translation>
    </message>
    <message>
        <source>The server answered with a web page instead of a list of updates.</source>
        <translation>El servidor respondió con una página web en vez de una lista de actualizaciones.</translation>
    </message>
    <message>
        <source>The server answered with something other than a list of updates.</source>
        <translation>El servidor respondió con algo que no es una lista de actualizaciones.</translation>
    </message>
    <message>
        <source>The list of updates declares a document type, which is not allowed.</source>
        <translation>La lista de actualizaciones declara un tipo de documento, lo que no está permitido.</translation>
    </message>
    <message>
        <source>The list of updates is damaged: it has an element that is too long.</source>
        <translation>La lista de actualizaciones está dañada: tiene un elemento demasiado largo.</translation>
    </message>
    <message>
        <source>The list of updates is damaged: its elements are nested too deep.</source>
        <translation>La lista de actualizaciones está dañada: sus elementos están demasiado anidados.</translation>
    </message>
    <message>
        <source>The list of updates has more than %1 entries.</source>
        <translation>La lista de actualizaciones tiene más de %1 entradas.</translation>
    </message>
    <message>
        <source>The list of updates is damaged in line %1.</source>
        <translation>La lista de actualizaciones está dañada en la línea %1.</translation>
    </message>
    <message>
        <source>The list of updates is empty.</source>
        <translation>La lista de actualizaciones está vacía.</translation>
    </message>
    <message>
        <source>The list of updates is too large.</source>
        <translation>La lista de actualizaciones es demasiado grande.</translation>
    </message>
    <message>
        <source>The list of updates is not valid text in UTF-8.</source>
        <translation>La lista de actualizaciones no es texto válido en UTF-8.</translation>
    </message>
    <message>
        <source>%1 is available, but it needs Linux %2 or newer. This computer runs Linux %3.</source>
        <translation>%1 está disponible, pero necesita Linux %2 o más nuevo. Este equipo usa Linux %3.</translation>
    </message>
    <message>
        <source>%1 is available, but not for systems newer than Linux %2. This computer runs Linux %3.</source>
        <translation>%1 está disponible, pero no para sistemas más nuevos que Linux %2. Este equipo usa Linux %3.</translation>
    </message>
    <message>
        <source>You chose to skip %1.</source>
        <translation>Eligió omitir %1.</translation>
    </message>
    <message>
        <source>%1 is being handed out step by step and will come to this computer later.</source>
        <translation>%1 se reparte paso a paso y llegará más tarde a este equipo.</translation>
    </message>
    <message>
        <source>%1 is available, but there is no page to read about it.</source>
        <translation>%1 está disponible, pero no hay ninguna página que lo explique.</translation>
    </message>
    <message>
        <source>%1 is available, but not as a file that can be installed here.</source>
        <translation>%1 está disponible, pero no como archivo que se pueda instalar aquí.</translation>
    </message>
    <message>
        <source>%1 is available. %2</source>
        <translation>%1 está disponible. %2</translation>
    </message>
    <message>
        <source>You&apos;re up to date. Tavik Launcher %1 is newer than the newest on offer, %2.</source>
        <translation>Está al día. Tavik Launcher %1 es más nuevo que lo último que se ofrece, %2.</translation>
    </message>
    <message>
        <source>You&apos;re up to date. %1 is the newest version.</source>
        <translation>Está al día. %1 es la última versión.</translation>
    </message>
    <message>
        <source>The list of updates has no version for this computer.</source>
        <translation>La lista de actualizaciones no tiene ninguna versión para este equipo.</translation>
    </message>
    <message>
        <source>The list of updates is older than one seen before: its newest signed version is %1, but %2 was there already. Nothing is installed from it.</source>
        <translation>La lista de actualizaciones es más antigua que otra ya vista: su última versión firmada es %1, pero ya existía %2. No se instala nada de ella.</translation>
    </message>
    <message>
        <source>Newer versions come the way this one came: from your package manager, or from whoever built it for you.</source>
        <translation>Las versiones nuevas llegan por donde llegó esta: su gestor de paquetes, o quien la preparó para usted.</translation>
    </message>
    <message>
        <source>It was made without an update feed.</source>
        <translation>Se hizo sin una lista de actualizaciones.</translation>
    </message>
    <message>
        <source>It was made without a key to tell genuine updates by.</source>
        <translation>Se hizo sin una clave para reconocer las actualizaciones auténticas.</translation>
    </message>
    <message>
        <source>It was made with an update feed at an address that is not safe: “%1”.</source>
        <translation>Se hizo con una lista de actualizaciones en una dirección que no es segura: «%1».</translation>
    </message>
    <message>
        <source>It was made with a key for updates that is none.</source>
        <translation>Se hizo con una clave de actualizaciones que no lo es.</translation>
    </message>
    <message>
        <source>The new version could not be put in the place of “%1”: %2.</source>
        <translation>La versión nueva no se pudo poner en el lugar de «%1»: %2.</translation>
    </message>
    <message>
        <source>“%1”, which this program was started from, is no longer there or is something else now.</source>
        <translation>«%1», de donde se inició este programa, ya no está o ahora es otra cosa.</translation>
    </message>
    <message>
        <source>The folder “%1”, which this program was started from, may not be changed by you. Move the program to a folder of your own, or replace it as an administrator.</source>
        <translation>Usted no puede cambiar la carpeta «%1», de donde se inició este programa. Mueva el programa a una carpeta suya, o sustitúyalo como administrador.</translation>
    </message>
    <message>
        <source>The update is not an AppImage, as this program is.</source>
        <translation>La actualización no es una AppImage, como lo es este programa.</translation>
    </message>
    <message>
        <source>The update is made for another kind of computer.</source>
        <translation>La actualización está hecha para otro tipo de equipo.</translation>
    </message>
    <message>
        <source>The update does not say when it was made.</source>
        <translation>La actualización no dice cuándo se hizo.</translation>
    </message>
    <message>
        <source>The update is older than this program, whatever its number says.</source>
        <translation>La actualización es más antigua que este programa, diga lo que diga su número.</translation>
    </message>
    <message>
        <source>Another Tavik Launcher is being updated in the folder “%1”.</source>
        <translation>Se está actualizando otro Tavik Launcher en la carpeta «%1».</translation>
    </message>
    <message>
        <source>There is not enough room for the update in the folder “%1”.</source>
        <translation>No hay bastante espacio para la actualización en la carpeta «%1».</translation>
    </message>
    <message>
        <source>The update could not be written to the folder “%1”: %2.</source>
        <translation>No se pudo escribir la actualización en la carpeta «%1»: %2.</translation>
    </message>
    <message>
        <source>The update on the server is not the one that was announced: its length is another.</source>
        <translation>La actualización del servidor no es la anunciada: su longitud es otra.</translation>
    </message>
    <message>
        <source>The update</source>
        <translation>La actualización</translation>
    </message>
    <message>
        <source>The server did not continue where it was asked to.</source>
        <translation>El servidor no siguió por donde se le pidió.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be used for the update.</source>
        <translation>La carpeta «%1» no se puede usar para la actualización.</translation>
    </message>
    <message>
        <source>%1 is not on the server.</source>
        <translation>%1 no está en el servidor.</translation>
    </message>
    <message>
        <source>The server answered with an error (%1).</source>
        <translation>El servidor respondió con un error (%1).</translation>
    </message>
    <message>
        <source>The server sent something packed, which was refused.</source>
        <translation>El servidor envió algo comprimido, que se rechazó.</translation>
    </message>
    <message>
        <source>The server “%1” was not found. Perhaps this computer is not connected to the internet.</source>
        <translation>No se encontró el servidor «%1». Quizá este equipo no esté conectado a internet.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached.</source>
        <translation>No se puede llegar al servidor «%1».</translation>
    </message>
    <message>
        <source>The server “%1” could not prove who it is: its certificate is not valid here.</source>
        <translation>El servidor «%1» no pudo demostrar quién es: su certificado no vale aquí.</translation>
    </message>
    <message>
        <source>No protected connection to the server “%1” could be made.</source>
        <translation>No se pudo establecer una conexión protegida con el servidor «%1».</translation>
    </message>
    <message>
        <source>The proxy of this network let nothing through.</source>
        <translation>El proxy de esta red no dejó pasar nada.</translation>
    </message>
    <message>
        <source>The connection to the server broke off.</source>
        <translation>Se cortó la conexión con el servidor.</translation>
    </message>
    <message>
        <source>The list of updates</source>
        <translation>La lista de actualizaciones</translation>
    </message>
    <message>
        <source>The text about the new version</source>
        <translation>El texto sobre la versión nueva</translation>
    </message>
    <message>
        <source>What the server sent about the new version is no text.</source>
        <translation>Lo que el servidor envió sobre la versión nueva no es texto.</translation>
    </message>
    <message>
        <source>The downloaded update is not a file that belongs to you alone.</source>
        <translation>La actualización descargada no es un archivo que le pertenezca solo a usted.</translation>
    </message>
    <message>
        <source>The downloaded update has %1 bytes instead of %2. It will not be installed.</source>
        <translation>La actualización descargada tiene %1 bytes en vez de %2. No se instalará.</translation>
    </message>
    <message>
        <source>The downloaded update could not be read.</source>
        <translation>No se pudo leer la actualización descargada.</translation>
    </message>
    <message>
        <source>The downloaded update was changed while it was being verified.</source>
        <translation>La actualización descargada cambió mientras se comprobaba.</translation>
    </message>
    <message>
        <source>The downloaded update is not signed by the makers of Tavik Launcher. It will not be installed.</source>
        <translation>La actualización descargada no está firmada por los autores de Tavik Launcher. No se instalará.</translation>
    </message>
    <message>
        <source>This build has no usable key to verify updates with.</source>
        <translation>Esta versión no tiene una clave utilizable para comprobar actualizaciones.</translation>
    </message>
    <message>
        <source>The update has no size that can be installed.</source>
        <translation>La actualización no tiene un tamaño que se pueda instalar.</translation>
    </message>
    <message>
        <source>Updates cannot be verified on this computer.</source>
        <translation>No se pueden comprobar actualizaciones en este equipo.</translation>
    </message>
    <message>
        <source>The server stopped answering.</source>
        <translation>El servidor dejó de responder.</translation>
    </message>
    <message>
        <source>The server is too slow.</source>
        <translation>El servidor es demasiado lento.</translation>
    </message>
    <message>
        <source>%1 would come over an unprotected connection.</source>
        <translation>%1 llegaría por una conexión sin proteger.</translation>
    </message>
    <message>
        <source>The system lets no process be started for the download.</source>
        <translation>El sistema no deja iniciar ningún proceso para la descarga.</translation>
    </message>
    <message>
        <source>The server wanted to go on over an unprotected connection, which was refused.</source>
        <translation>El servidor quiso seguir por una conexión sin proteger, lo que se rechazó.</translation>
    </message>
    <message>
        <source>The server only points from one address to the next.</source>
        <translation>El servidor solo remite de una dirección a la siguiente.</translation>
    </message>
    <message>
        <source>The server sent far more than it was asked for.</source>
        <translation>El servidor envió mucho más de lo pedido.</translation>
    </message>
    <message>
        <source>%1 is larger than the %2 MB it may have.</source>
        <translation>%1 ocupa más de los %2 MB permitidos.</translation>
    </message>
    <message>
        <source>This X server lacks the extensions, RECORD and XKEYBOARD, that tell a program which keys are held.</source>
        <translation>A este servidor X le faltan las extensiones RECORD y XKEYBOARD, que dicen a un programa qué teclas se mantienen.</translation>
    </message>
    <message>
        <source>d MMMM yyyy</source>
        <translation>d &apos;de&apos; MMMM &apos;de&apos; yyyy</translation>
    </message>
    <message>
        <source>press the shortcut: for a key that the desktop binds</source>
        <translation>pulsar el atajo: para una tecla que asigna el escritorio</translation>
    </message>
    <message>
        <source>show the ring</source>
        <translation>mostrar el anillo</translation>
    </message>
    <message>
        <source>show the ring at the pointer, or hide it</source>
        <translation>mostrar el anillo en el puntero, u ocultarlo</translation>
    </message>
    <message>
        <source>hide the ring</source>
        <translation>ocultar el anillo</translation>
    </message>
    <message>
        <source>open the settings, with =SECTION at that section</source>
        <translation>abrir los ajustes, con =SECTION en esa sección</translation>
    </message>
    <message>
        <source>open the window that rebuilds the application index</source>
        <translation>abrir la ventana que reconstruye el índice de aplicaciones</translation>
    </message>
    <message>
        <source>show the tour</source>
        <translation>mostrar el recorrido</translation>
    </message>
    <message>
        <source>ask for a newer version</source>
        <translation>buscar una versión más reciente</translation>
    </message>
    <message>
        <source>end the running launcher</source>
        <translation>cerrar el lanzador en ejecución</translation>
    </message>
    <message>
        <source>Usage: tavik-launcher [option]</source>
        <translation>Uso: tavik-launcher [opción]</translation>
    </message>
    <message>
        <source>Without an option: start the launcher, or show the ring of the one that runs.</source>
        <translation>Sin opción: iniciar el lanzador, o mostrar el anillo del que está en ejecución.</translation>
    </message>
    <message>
        <source>start as at login: nothing is shown unasked</source>
        <translation>iniciar como al abrir la sesión: no se muestra nada sin pedirlo</translation>
    </message>
    <message>
        <source>print the version, and how the screen is reached</source>
        <translation>mostrar la versión y cómo se accede a la pantalla</translation>
    </message>
    <message>
        <source>print this text</source>
        <translation>mostrar este texto</translation>
    </message>
    <message>
        <source>the settings have no section &quot;%1&quot;; there are %2</source>
        <translation>los ajustes no tienen la sección «%1»; hay %2</translation>
    </message>
    <message>
        <source>one option at a time</source>
        <translation>solo una opción a la vez</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>opción desconocida: %1</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 no admite ningún valor</translation>
    </message>
    <message>
        <source>1 match</source>
        <translation>1 resultado</translation>
    </message>
    <message numerus="yes">
        <source>%n matches</source>
        <translation>
            <numerusform>%n resultado</numerusform>
            <numerusform>%n resultados</numerusform>
        </translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Activador</translation>
    </message>
    <message>
        <source>Nobody listens.</source>
        <translation>Nadie escucha.</translation>
    </message>
    <message>
        <source>Tavik Launcher is not running. Start it.</source>
        <translation>Tavik Launcher no está en marcha. Inícielo.</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>Al soltar</translation>
    </message>
    <message>
        <source>Not needed: %1 is pressed once to open and once to close.</source>
        <translation>No hace falta: %1 se pulsa una vez para abrir y otra para cerrar.</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>Bandeja</translation>
    </message>
    <message>
        <source>The panel shows what is described to it.</source>
        <translation>El panel muestra lo que se le describe.</translation>
    </message>
    <message>
        <source>The panel takes small windows, as older ones do.</source>
        <translation>El panel acoge ventanas pequeñas, como los antiguos.</translation>
    </message>
    <message>
        <source>No panel shows status items.</source>
        <translation>Ningún panel muestra iconos de estado.</translation>
    </message>
    <message>
        <source>Add a tray to your panel; for GNOME there is an extension. Meanwhile this command opens the settings.</source>
        <translation>Añada una bandeja a su panel; para GNOME hay una extensión. Mientras tanto, esta orden abre los ajustes.</translation>
    </message>
    <message>
        <source>Autostart</source>
        <translation>Inicio automático</translation>
    </message>
    <message>
        <source>This session has started the launcher.</source>
        <translation>Esta sesión ha iniciado el lanzador.</translation>
    </message>
    <message>
        <source>This session is not known to read the autostart folder.</source>
        <translation>No se sabe si esta sesión lee la carpeta de inicio automático.</translation>
    </message>
    <message>
        <source>Add this line to what your session starts.</source>
        <translation>Añada esta línea a lo que inicia su sesión.</translation>
    </message>
    <message>
        <source>An entry in the autostart folder.</source>
        <translation>Una entrada en la carpeta de inicio automático.</translation>
    </message>
    <message>
        <source>There is no entry in the autostart folder.</source>
        <translation>No hay ninguna entrada en la carpeta de inicio automático.</translation>
    </message>
    <message>
        <source>The launcher does not start when you log in.</source>
        <translation>El lanzador no se inicia al iniciar sesión.</translation>
    </message>
    <message>
        <source>The entry in the autostart folder is switched off.</source>
        <translation>La entrada de la carpeta de inicio automático está desactivada.</translation>
    </message>
    <message>
        <source>The launcher&apos;s program is not where it was. Install it again.</source>
        <translation>El programa del lanzador ya no está en su sitio. Instálelo de nuevo.</translation>
    </message>
    <message>
        <source>Pointer</source>
        <translation>Puntero</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>Sobre las ventanas</translation>
    </message>
    <message>
        <source>Running programs</source>
        <translation>Programas en marcha</translation>
    </message>
    <message>
        <source>Bringing to the front</source>
        <translation>Traer al frente</translation>
    </message>
    <message>
        <source>Set Up</source>
        <translation>Configurar</translation>
    </message>
    <message>
        <source>Choose Shortcut</source>
        <translation>Elegir atajo</translation>
    </message>
    <message>
        <source>Turn On</source>
        <translation>Activar</translation>
    </message>
    <message>
        <source>This desktop gives the launcher all it needs.</source>
        <translation>Este escritorio da al lanzador todo lo que necesita.</translation>
    </message>
    <message>
        <source>Needs your attention: %1 of %2.</source>
        <translation>Requiere su atención: %1 de %2.</translation>
    </message>
    <message>
        <source>print what this desktop gives the launcher, and what not</source>
        <translation>mostrar lo que este escritorio da al lanzador y lo que no</translation>
    </message>
    <message>
        <source>Check My Desktop</source>
        <translation>Mi escritorio</translation>
    </message>
    <message>
        <source>What the launcher needs of this desktop, and how it has it.</source>
        <translation>Lo que el lanzador necesita de este escritorio y cómo lo obtiene.</translation>
    </message>
    <message>
        <source>%1: works</source>
        <translation>%1: funciona</translation>
    </message>
    <message>
        <source>%1: needs your attention</source>
        <translation>%1: requiere su atención</translation>
    </message>
    <message>
        <source>Copy Line</source>
        <translation>Copiar línea</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiado</translation>
    </message>
    <message>
        <source>Nobody tells of other programs&apos; windows.</source>
        <translation>Nadie informa de las ventanas de otros programas.</translation>
    </message>
    <message>
        <source>Programs are seen to run only by their name on the session bus or their systemd unit.</source>
        <translation>Los programas solo se ven en marcha por su nombre en el bus de sesión o por su unidad de systemd.</translation>
    </message>
    <message>
        <source>Nobody brings other programs&apos; windows to the front.</source>
        <translation>Nadie trae al frente las ventanas de otros programas.</translation>
    </message>
    <message>
        <source>A program that runs is started once more, unless it has a name on the session bus.</source>
        <translation>Un programa en marcha se inicia otra vez, salvo si tiene nombre en el bus de sesión.</translation>
    </message>
    <message>
        <source>Custom shortcuts in GNOME&apos;s keyboard settings.</source>
        <translation>Atajos personalizados en los ajustes del teclado de GNOME.</translation>
    </message>
    <message>
        <source>A global shortcut of KDE, which System Settings › Shortcuts lists.</source>
        <translation>Un atajo global de KDE, que aparece en Preferencias del sistema › Atajos.</translation>
    </message>
    <message>
        <source>A script inside of KWin lists its windows.</source>
        <translation>Un script dentro de KWin enumera sus ventanas.</translation>
    </message>
    <message>
        <source>The desktop does not answer.</source>
        <translation>El escritorio no responde.</translation>
    </message>
    <message>
        <source>KWin brings a window forward as for KDE&apos;s own search.</source>
        <translation>KWin trae una ventana al frente como para la búsqueda de KDE.</translation>
    </message>
    <message>
        <source>The desktop tells it, and so does the ring&apos;s own keyboard.</source>
        <translation>Lo dice el escritorio, y también el teclado del anillo.</translation>
    </message>
    <message>
        <source>Bindings that sway holds while Tavik Launcher runs.</source>
        <translation>Atajos que sway mantiene mientras Tavik Launcher está en marcha.</translation>
    </message>
    <message>
        <source>Its configuration uses the same keys for “%1”, which rests while Tavik Launcher runs.</source>
        <translation>Su configuración usa las mismas teclas para «%1», que queda en pausa mientras Tavik Launcher está en marcha.</translation>
    </message>
    <message>
        <source>sway lists its windows.</source>
        <translation>sway enumera sus ventanas.</translation>
    </message>
    <message>
        <source>sway&apos;s command to focus a window.</source>
        <translation>La orden de sway para enfocar una ventana.</translation>
    </message>
    <message>
        <source>Only the keys of the launcher&apos;s own windows.</source>
        <translation>Solo las teclas en las ventanas del lanzador.</translation>
    </message>
    <message>
        <source>The ring&apos;s own keyboard, while it is open.</source>
        <translation>El teclado del anillo, mientras está abierto.</translation>
    </message>
    <message>
        <source>The compositor lists its windows for taskbars.</source>
        <translation>El compositor enumera sus ventanas para las barras de tareas.</translation>
    </message>
    <message>
        <source>A request to the compositor, as taskbars make it.</source>
        <translation>Una petición al compositor, como la de las barras de tareas.</translation>
    </message>
    <message>
        <source>An invisible surface on each screen, which the pointer enters.</source>
        <translation>Una superficie invisible en cada pantalla, en la que entra el puntero.</translation>
    </message>
    <message>
        <source>This session has no pointer.</source>
        <translation>Esta sesión no tiene puntero.</translation>
    </message>
    <message>
        <source>A surface in the compositor&apos;s layer above all windows.</source>
        <translation>Una superficie en la capa del compositor sobre todas las ventanas.</translation>
    </message>
    <message>
        <source>The X server tells which modifiers are held.</source>
        <translation>El servidor X dice qué modificadores están pulsados.</translation>
    </message>
    <message>
        <source>The X server reserves the key for the launcher.</source>
        <translation>El servidor X reserva la tecla para el lanzador.</translation>
    </message>
    <message>
        <source>The X server tells where it is.</source>
        <translation>El servidor X dice dónde está.</translation>
    </message>
    <message>
        <source>Beside a Wayland desktop it knows that only over its own windows: the ring may open elsewhere.</source>
        <translation>Junto a un escritorio Wayland solo lo sabe sobre sus propias ventanas: el anillo puede abrirse en otro sitio.</translation>
    </message>
    <message>
        <source>A window that the window manager keeps above the others.</source>
        <translation>Una ventana que el gestor mantiene sobre las demás.</translation>
    </message>
    <message>
        <source>A window of its own above all others.</source>
        <translation>Una ventana propia sobre todas las demás.</translation>
    </message>
    <message>
        <source>The window manager lists its windows.</source>
        <translation>El gestor de ventanas enumera sus ventanas.</translation>
    </message>
    <message>
        <source>Programs other than X11&apos;s are seen to run only by their name on the session bus or their systemd unit.</source>
        <translation>Los programas que no son de X11 solo se ven en marcha por su nombre en el bus de sesión o por su unidad de systemd.</translation>
    </message>
    <message>
        <source>No window manager runs, or an old one that lists none.</source>
        <translation>No hay gestor de ventanas, o es uno antiguo que no enumera nada.</translation>
    </message>
    <message>
        <source>A request to the window manager.</source>
        <translation>Una petición al gestor de ventanas.</translation>
    </message>
    <message>
        <source>Programs other than X11&apos;s are started once more, unless they have a name on the session bus.</source>
        <translation>Los programas que no son de X11 se inician otra vez, salvo si tienen nombre en el bus de sesión.</translation>
    </message>
    <message>
        <source>The desktop places the ring.</source>
        <translation>El escritorio coloca el anillo.</translation>
    </message>
    <message>
        <source>This desktop tells no program where the pointer is.</source>
        <translation>Este escritorio no dice a ningún programa dónde está el puntero.</translation>
    </message>
    <message>
        <source>A window like any other.</source>
        <translation>Una ventana como cualquier otra.</translation>
    </message>
    <message>
        <source>This desktop lets no program keep a window above the others.</source>
        <translation>Este escritorio no deja que un programa mantenga una ventana sobre las demás.</translation>
    </message>
    <message>
        <source>A global shortcut that the desktop gives.</source>
        <translation>Un atajo global que da el escritorio.</translation>
    </message>
    <message>
        <source>A global shortcut that the desktop gives: %1.</source>
        <translation>Un atajo global que da el escritorio: %1.</translation>
    </message>
    <message>
        <source>The desktop was asked for a shortcut and has given none. Check My Desktop in the settings can ask again.</source>
        <translation>Se pidió un atajo al escritorio y no ha dado ninguno. «Mi escritorio», en los ajustes, puede volver a pedirlo.</translation>
    </message>
    <message>
        <source>This desktop gives a program a shortcut after it has asked you.</source>
        <translation>Este escritorio da un atajo a un programa después de preguntarle a usted.</translation>
    </message>
    <message>
        <source>It knows none of modifiers alone, so the same modifiers with Space are proposed.</source>
        <translation>No conoce atajos solo de modificadoras, así que se proponen las mismas con Espacio.</translation>
    </message>
    <message>
        <source>Add this line to the configuration of your desktop: %1</source>
        <translation>Añada esta línea a la configuración de su escritorio: %1</translation>
    </message>
    <message>
        <source>A shortcut that Hyprland&apos;s configuration gives.</source>
        <translation>Un atajo que da la configuración de Hyprland.</translation>
    </message>
    <message>
        <source>Hyprland gives a shortcut to the program that its configuration names. It is active as soon as you have pressed it once.</source>
        <translation>Hyprland da un atajo al programa que nombra su configuración. Está activo en cuanto lo pulsa una vez.</translation>
    </message>
</context>
</TS>
