<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>CommandLine</name>
    <message>
        <source>%1 (--help tells how it is used)</source>
        <translation>%1 (--help explica cómo se usa)</translation>
    </message>
    <message>
        <source>--scheme wants one of %1, or a file, not &quot;%2&quot;.</source>
        <translation>--scheme espera uno de %1, o un archivo, no «%2».</translation>
    </message>
    <message>
        <source>-%1 wants a value.</source>
        <translation>-%1 espera un valor.</translation>
    </message>
    <message>
        <source>Open the texts of an SQLite database, with --table and --field.</source>
        <translation>Abrir los textos de una base de datos SQLite, con --table y --field.</translation>
    </message>
    <message>
        <source>The table or view.</source>
        <translation>La tabla o vista.</translation>
    </message>
    <message>
        <source>The field to edit, of text or of bytes.</source>
        <translation>El campo que editar, de texto o de bytes.</translation>
    </message>
    <message>
        <source>The field that tells the records apart, for a table without a primary key.</source>
        <translation>El campo que distingue los registros, para una tabla sin clave principal.</translation>
    </message>
    <message>
        <source>Make the database FILE by the statements in FILE.sql and leave.</source>
        <translation>Crear la base de datos FILE con las instrucciones de FILE.sql y salir.</translation>
    </message>
    <message>
        <source>--db, --table and --field are wanted together.</source>
        <translation>--db, --table y --field van juntas.</translation>
    </message>
    <message>
        <source>--make-sample wants the name of a database, and no --db.</source>
        <translation>--make-sample espera el nombre de una base de datos, sin --db.</translation>
    </message>
    <message>
        <source>Put the caret on line N of the first file, in column C.</source>
        <translation>Poner el cursor en la línea N del primer archivo, en la columna C.</translation>
    </message>
    <message>
        <source>Put a bookmark on line N of the first file; may be given several times.</source>
        <translation>Poner un marcador en la línea N del primer archivo; se puede repetir.</translation>
    </message>
    <message>
        <source>Show what a compiler printed into FILE, in the texts that it is about.</source>
        <translation>Mostrar lo que un compilador escribió en FILE, en los textos afectados.</translation>
    </message>
    <message>
        <source>--line wants a number from 1 up, or two such as 12:5, not &quot;%1&quot;.</source>
        <translation>--line espera un número a partir de 1, o dos como 12:5, no «%1».</translation>
    </message>
    <message>
        <source>--bookmark wants a number from 1 up, not &quot;%1&quot;.</source>
        <translation>--bookmark espera un número a partir de 1, no «%1».</translation>
    </message>
    <message>
        <source>--diagnostics wants the name of a file.</source>
        <translation>--diagnostics espera el nombre de un archivo.</translation>
    </message>
    <message>
        <source>The window&apos;s size in pixels.</source>
        <translation>El tamaño de la ventana en píxeles.</translation>
    </message>
    <message>
        <source>The colours: %1, or a JSON file.</source>
        <translation>Los colores: %1, o un archivo JSON.</translation>
    </message>
    <message>
        <source>--size wants a width and a height from 1 to %1, such as 900x640, not &quot;%2&quot;.</source>
        <translation>--size espera un ancho y un alto de 1 a %1, como 900x640, no «%2».</translation>
    </message>
    <message>
        <source>Show this help and leave.</source>
        <translation>Mostrar esta ayuda y salir.</translation>
    </message>
    <message>
        <source>Show the version and leave.</source>
        <translation>Mostrar la versión y salir.</translation>
    </message>
    <message>
        <source>Draw the window into the picture OUT.png and leave.</source>
        <translation>Dibujar la ventana en la imagen OUT.png y salir.</translation>
    </message>
    <message>
        <source>Print the tokens of FILE, one a line, and leave.</source>
        <translation>Escribir los elementos léxicos de FILE, uno por línea, y salir.</translation>
    </message>
    <message>
        <source>Edits source code. Without a display, and with --render, the window is drawn into a picture instead. The options of every Qt application are known too, such as -style, -platform and -reverse.</source>
        <translation>Edita código fuente. Sin pantalla, y con --render, la ventana se dibuja en una imagen. También se conocen las opciones de toda aplicación Qt, como -style, -platform y -reverse.</translation>
    </message>
    <message>
        <source>The files to open, a tab each.</source>
        <translation>Los archivos que abrir, una pestaña para cada uno.</translation>
    </message>
    <message>
        <source>The language of the texts: %1. Without it, it is the desktop&apos;s.</source>
        <translation>El idioma de los textos: %1. Sin esta opción es el del escritorio.</translation>
    </message>
    <message>
        <source>--language wants one of %1, not &quot;%2&quot;.</source>
        <translation>--language espera uno de %1, no «%2».</translation>
    </message>
    <message>
        <source>Print FILE into OUT.pdf and leave.</source>
        <translation>Imprimir FILE en OUT.pdf y salir.</translation>
    </message>
    <message>
        <source>Write FILE with its colours into OUT.html and leave.</source>
        <translation>Escribir FILE con sus colores en OUT.html y salir.</translation>
    </message>
    <message>
        <source>--%1 wants the name of a file to write.</source>
        <translation>--%1 espera el nombre de un archivo que escribir.</translation>
    </message>
    <message>
        <source>--%1 wants one file, and no --db.</source>
        <translation>--%1 espera un archivo, sin --db.</translation>
    </message>
    <message>
        <source>Only one of --render, --print, --html and --tokens can be given.</source>
        <translation>Solo se puede indicar uno de --render, --print, --html y --tokens.</translation>
    </message>
</context>
<context>
    <name>DbConnection</name>
    <message>
        <source>There is no database &quot;%1&quot;.</source>
        <translation>No hay ninguna base de datos «%1».</translation>
    </message>
    <message>
        <source>Cannot open the database &quot;%1&quot;: %2.</source>
        <translation>No se puede abrir la base de datos «%1»: %2.</translation>
    </message>
    <message>
        <source>The database &quot;%1&quot; has no table &quot;%2&quot;; it has: %3.</source>
        <translation>La base de datos «%1» no tiene la tabla «%2»; tiene: %3.</translation>
    </message>
    <message>
        <source>The table &quot;%1&quot; has no field &quot;%2&quot;; it has: %3.</source>
        <translation>La tabla «%1» no tiene el campo «%2»; tiene: %3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is there already.</source>
        <translation>«%1» ya existe.</translation>
    </message>
    <message>
        <source>Cannot make &quot;%1&quot;: %2</source>
        <translation>No se puede crear «%1»: %2</translation>
    </message>
    <message>
        <source>Cannot make &quot;%1&quot;: %2.</source>
        <translation>No se puede crear «%1»: %2.</translation>
    </message>
</context>
<context>
    <name>FileAttributes</name>
    <message>
        <source>its owner (%1)</source>
        <translation>su propietario (%1)</translation>
    </message>
    <message>
        <source>its group (%1)</source>
        <translation>su grupo (%1)</translation>
    </message>
    <message>
        <source>its access control list</source>
        <translation>su lista de control de acceso</translation>
    </message>
    <message>
        <source>its attribute %1</source>
        <translation>su atributo %1</translation>
    </message>
    <message>
        <source>its extended attributes</source>
        <translation>sus atributos extendidos</translation>
    </message>
    <message>
        <source>its permissions</source>
        <translation>sus permisos</translation>
    </message>
</context>
<context>
    <name>FileStore</name>
    <message>
        <source>Cannot write &quot;%1&quot;: %2.</source>
        <translation>No se puede escribir «%1»: %2.</translation>
    </message>
    <message>
        <source>it is a directory</source>
        <translation>es una carpeta</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>no es un archivo normal</translation>
    </message>
    <message>
        <source>its other names, which keep the old contents</source>
        <translation>sus otros nombres, que conservan el contenido antiguo</translation>
    </message>
    <message>
        <source>%1. What it held before is in &quot;%2&quot;</source>
        <translation>%1. El contenido anterior está en «%2»</translation>
    </message>
</context>
<context>
    <name>JournalFlow</name>
    <message>
        <source>A text without a name</source>
        <translation>Un texto sin nombre</translation>
    </message>
    <message>
        <source>&quot;%1&quot;</source>
        <translation>«%1»</translation>
    </message>
    <message>
        <source>%1 was not saved when the program was cut short. The last change is of %2.</source>
        <translation>%1 no estaba guardado cuando se interrumpió el programa. La última modificación es del %2.</translation>
    </message>
    <message>
        <source>The file is not what it was any more, so that only what was typed and inserted can come back, piece by piece, as a text of its own.</source>
        <translation>El archivo ya no es lo que era. Solo puede volver, trozo a trozo y como texto aparte, lo que se escribió e insertó.</translation>
    </message>
    <message>
        <source>The file was changed since then. It stays as it is, and what comes back opens beside it.</source>
        <translation>El archivo se ha modificado desde entonces. Se queda como está, y lo que vuelve se abre al lado.</translation>
    </message>
    <message>
        <source>There is no file of this name, or it cannot be read.</source>
        <translation>No hay ningún archivo con este nombre, o no se puede leer.</translation>
    </message>
    <message>
        <source>The very last changes may be missing.</source>
        <translation>Pueden faltar los últimos cambios.</translation>
    </message>
    <message>
        <source>%1 is not restored: %2</source>
        <translation>%1 no se ha restaurado: %2</translation>
    </message>
    <message>
        <source>%1: give up for good what was not saved?</source>
        <translation>%1: ¿descartar para siempre lo que no se guardó?</translation>
    </message>
</context>
<context>
    <name>PrintFlow</name>
    <message>
        <source>&amp;Line numbers</source>
        <translation>&amp;Números de línea</translation>
    </message>
    <message>
        <source>&amp;Wrap long lines</source>
        <translation>&amp;Ajustar las líneas largas</translation>
    </message>
    <message>
        <source>Header and &amp;footer</source>
        <translation>&amp;Encabezado y pie de página</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texto</translation>
    </message>
    <message>
        <source>Printing &quot;%1&quot;…</source>
        <translation>Imprimiendo «%1»…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Cannot write &quot;%1&quot;: %2.</source>
        <translation>No se puede escribir «%1»: %2.</translation>
    </message>
    <message>
        <source>Export as HTML</source>
        <translation>Exportar como HTML</translation>
    </message>
    <message>
        <source>HTML (*.html *.htm)</source>
        <translation>HTML (*.html *.htm)</translation>
    </message>
</context>
<context>
    <name>SaveFlow</name>
    <message>
        <source>A save of &quot;%1&quot; was cut short. What it held before that is in &quot;%2&quot;, which cannot be restored here: %3.</source>
        <translation>Se interrumpió un guardado de «%1». El contenido anterior está en «%2», que no se puede restaurar aquí: %3.</translation>
    </message>
    <message>
        <source>A save of &quot;%1&quot; was cut short at %2, and it may hold only a part of its text. Restore what it held before that save? What you do not choose is kept as &quot;%3&quot;.</source>
        <translation>Se interrumpió un guardado de «%1» el %2, y puede contener solo una parte de su texto. ¿Restaurar el contenido anterior? Lo que no elija se conserva como «%3».</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was changed by another program after it was read here. Overwrite those changes?</source>
        <translation>Otro programa ha modificado «%1» después de leerse aquí. ¿Sobrescribir esos cambios?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be read to see whether another program changed it: %2. Overwrite it?</source>
        <translation>No se puede leer «%1» para ver si otro programa lo ha modificado: %2. ¿Sobrescribirlo?</translation>
    </message>
    <message>
        <source>You have no right to write &quot;%1&quot;, but you may put another file in its place. Replace it?</source>
        <translation>No tiene permiso para escribir «%1», pero puede poner otro archivo en su lugar. ¿Reemplazarlo?</translation>
    </message>
    <message>
        <source>The line endings of &quot;%1&quot; are mixed. All of them will be written as %2. Save it?</source>
        <translation>Los finales de línea de «%1» están mezclados. Todos se escribirán como %2. ¿Guardar?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is saved, but it lost %2.</source>
        <translation>«%1» se ha guardado, pero ha perdido %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not saved: %2</source>
        <translation>«%1» no se ha guardado: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not restored: %2</source>
        <translation>«%1» no se ha restaurado: %2</translation>
    </message>
</context>
<context>
    <name>SideFile</name>
    <message>
        <source>it belongs to the user %1</source>
        <translation>su propietario es %1</translation>
    </message>
</context>
<context>
    <name>TConflictDialog</name>
    <message>
        <source>Changed by someone else</source>
        <translation>Modificado por otra persona</translation>
    </message>
    <message>
        <source>The record &quot;%1&quot; was changed by someone else since it was read here. Nothing was written yet.</source>
        <translation>Otra persona ha modificado el registro «%1» desde que se leyó aquí. Todavía no se ha escrito nada.</translation>
    </message>
    <message>
        <source>Write &amp;mine</source>
        <translation>Escribir &amp;mi versión</translation>
    </message>
    <message>
        <source>Take &amp;theirs</source>
        <translation>&amp;Tomar la otra versión</translation>
    </message>
    <message>
        <source>&amp;Go on editing</source>
        <translation>&amp;Seguir editando</translation>
    </message>
    <message>
        <source>M&amp;ine:</source>
        <translation>Mi &amp;versión:</translation>
    </message>
    <message>
        <source>T&amp;heirs:</source>
        <translation>&amp;La otra versión:</translation>
    </message>
</context>
<context>
    <name>TDbDocument</name>
    <message>
        <source>Records</source>
        <translation>Registros</translation>
    </message>
    <message>
        <source>F&amp;irst</source>
        <translation>&amp;Primero</translation>
    </message>
    <message>
        <source>P&amp;rior</source>
        <translation>A&amp;nterior</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Siguiente</translation>
    </message>
    <message>
        <source>&amp;Last</source>
        <translation>Ú&amp;ltimo</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>&amp;Eliminar…</translation>
    </message>
    <message>
        <source>&amp;Fields…</source>
        <translation>&amp;Campos…</translation>
    </message>
    <message>
        <source>&amp;Post</source>
        <translation>&amp;Guardar</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>Cancela&amp;r</translation>
    </message>
    <message>
        <source>R&amp;efresh</source>
        <translation>Act&amp;ualizar</translation>
    </message>
    <message>
        <source>Post the changes to the record &quot;%1&quot;? &quot;No&quot; discards them.</source>
        <translation>¿Guardar los cambios del registro «%1»? «No» los descarta.</translation>
    </message>
    <message>
        <source>New record</source>
        <translation>Registro nuevo</translation>
    </message>
    <message>
        <source>Record %1 of %2</source>
        <translation>Registro %1 de %2</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nuevo</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Cerrado</translation>
    </message>
    <message>
        <source>Browsing</source>
        <translation>Consulta</translation>
    </message>
    <message>
        <source>Editing</source>
        <translation>Edición</translation>
    </message>
    <message>
        <source>Inserting</source>
        <translation>Inserción</translation>
    </message>
    <message>
        <source>Cannot go to another record: %1</source>
        <translation>No se puede ir a otro registro: %1</translation>
    </message>
    <message>
        <source>Cannot insert a record: %1</source>
        <translation>No se puede insertar un registro: %1</translation>
    </message>
    <message>
        <source>Cannot change the fields: %1</source>
        <translation>No se pueden modificar los campos: %1</translation>
    </message>
    <message>
        <source>Delete the record &quot;%1&quot;? This cannot be undone.</source>
        <translation>¿Eliminar el registro «%1»? No se puede deshacer.</translation>
    </message>
    <message>
        <source>The record was not deleted: %1</source>
        <translation>El registro no se ha eliminado: %1</translation>
    </message>
    <message>
        <source>The record was not posted: %1
Its text stays in the editor; post it again later, or cancel.</source>
        <translation>El registro no se ha guardado: %1
Su texto permanece en el editor; guárdelo más tarde o cancele.</translation>
    </message>
    <message>
        <source>Cannot read the records: %1</source>
        <translation>No se pueden leer los registros: %1</translation>
    </message>
    <message>
        <source>In&amp;sert…</source>
        <translation>&amp;Insertar…</translation>
    </message>
</context>
<context>
    <name>TDbFieldsDialog</name>
    <message>
        <source>Fields of the record</source>
        <translation>Campos del registro</translation>
    </message>
</context>
<context>
    <name>TDbOpenDialog</name>
    <message>
        <source>Open a database</source>
        <translation>Abrir una base de datos</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>&amp;Archivo:</translation>
    </message>
    <message>
        <source>&amp;Table:</source>
        <translation>&amp;Tabla:</translation>
    </message>
    <message>
        <source>Fi&amp;eld to edit:</source>
        <translation>&amp;Campo que editar:</translation>
    </message>
    <message>
        <source>&amp;Key:</source>
        <translation>C&amp;lave:</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>&amp;Examinar…</translation>
    </message>
    <message>
        <source>SQLite databases (*.sqlite *.sqlite3 *.db *.db3);;All files (*)</source>
        <translation>Bases de datos SQLite (*.sqlite *.sqlite3 *.db *.db3);;Todos los archivos (*)</translation>
    </message>
    <message>
        <source>This database has no tables.</source>
        <translation>Esta base de datos no tiene tablas.</translation>
    </message>
    <message>
        <source>the table&apos;s primary key</source>
        <translation>la clave principal de la tabla</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
</context>
<context>
    <name>TDocument</name>
    <message>
        <source>Save the changes to &quot;%1&quot;?</source>
        <translation>¿Guardar los cambios de «%1»?</translation>
    </message>
    <message>
        <source>Line %1, column %2</source>
        <translation>Línea %1, columna %2</translation>
    </message>
    <message>
        <source>%1 with byte-order mark</source>
        <translation>%1 con marca de orden de bytes</translation>
    </message>
    <message>
        <source>+BOM</source>
        <translation>+BOM</translation>
    </message>
    <message>
        <source>%1, mixed</source>
        <translation>%1, mezclados</translation>
    </message>
    <message>
        <source>Mixed</source>
        <translation>Mezclados</translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation>Error: %1</translation>
    </message>
    <message>
        <source>Warning: %1</source>
        <translation>Advertencia: %1</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Nota: %1</translation>
    </message>
    <message>
        <source>Cannot open &quot;%1&quot;: %2</source>
        <translation>No se puede abrir «%1»: %2</translation>
    </message>
</context>
<context>
    <name>TEventDialog</name>
    <message>
        <source>New event handler</source>
        <translation>Nuevo controlador de evento</translation>
    </message>
    <message>
        <source>&amp;Events of the sample form</source>
        <translation>&amp;Eventos del formulario de ejemplo</translation>
    </message>
    <message>
        <source>&amp;Methods in the text that fit</source>
        <translation>&amp;Métodos del texto que encajan</translation>
    </message>
    <message>
        <source>Insert at the &amp;caret</source>
        <translation>Insertar en el &amp;cursor</translation>
    </message>
    <message>
        <source>&amp;Go to the method</source>
        <translation>&amp;Ir al método</translation>
    </message>
    <message>
        <source>Line %1 has a method of this name.</source>
        <translation>La línea %1 tiene un método con este nombre.</translation>
    </message>
    <message>
        <source>Insert at the e&amp;nd</source>
        <translation>Insertar al &amp;final</translation>
    </message>
    <message>
        <source>What will be inserted</source>
        <translation>Lo que se insertará</translation>
    </message>
</context>
<context>
    <name>TMainWindow</name>
    <message>
        <source>New text</source>
        <translation>Texto nuevo</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>Abrir…</translation>
    </message>
    <message>
        <source>Open database…</source>
        <translation>Abrir base de datos…</translation>
    </message>
    <message>
        <source>Untitled %1</source>
        <translation>Sin título %1</translation>
    </message>
    <message>
        <source>What is changed would not come back after a crash: %1</source>
        <translation>Los cambios no volverían tras un cierre inesperado: %1</translation>
    </message>
    <message>
        <source>Cannot open &quot;%1&quot;: %2</source>
        <translation>No se puede abrir «%1»: %2</translation>
    </message>
    <message>
        <source>Open files</source>
        <translation>Abrir archivos</translation>
    </message>
    <message>
        <source>%1 is saved</source>
        <translation>%1 se ha guardado</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Guardar como</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is open in another tab.</source>
        <translation>«%1» está abierto en otra pestaña.</translation>
    </message>
    <message>
        <source>Give up the changes to &quot;%1&quot; and read it again?</source>
        <translation>¿Descartar los cambios de «%1» y leerlo de nuevo?</translation>
    </message>
    <message>
        <source>Load diagnostics</source>
        <translation>Cargar diagnósticos</translation>
    </message>
    <message>
        <source>Diagnostics: %1, of files: %2</source>
        <translation>Diagnósticos: %1, archivos: %2</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Nuevo</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Abrir…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Guardar</translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation>Guardar &amp;como…</translation>
    </message>
    <message>
        <source>Save a&amp;ll</source>
        <translation>Guardar &amp;todo</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <translation>&amp;Recargar</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>C&amp;errar</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>Select to &amp;bracket	Ctrl+Shift+M</source>
        <translation>Seleccionar hasta el paré&amp;ntesis	Ctrl+Shift+M</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Editar</translation>
    </message>
    <message>
        <source>Go to brac&amp;ket	Ctrl+M</source>
        <translation>Ir al &amp;paréntesis	Ctrl+M</translation>
    </message>
    <message>
        <source>&amp;Toggle bookmark	Ctrl+F2</source>
        <translation>A&amp;lternar marcador	Ctrl+F2</translation>
    </message>
    <message>
        <source>Next &amp;bookmark	F2</source>
        <translation>Marcador si&amp;guiente	F2</translation>
    </message>
    <message>
        <source>Pre&amp;vious bookmark	Shift+F2</source>
        <translation>Marcador anteri&amp;or	Shift+F2</translation>
    </message>
    <message>
        <source>Next &amp;diagnostic	F8</source>
        <translation>&amp;Diagnóstico siguiente	F8</translation>
    </message>
    <message>
        <source>Previous d&amp;iagnostic	Shift+F8</source>
        <translation>Diagnóstico an&amp;terior	Shift+F8</translation>
    </message>
    <message>
        <source>&amp;Load diagnostics…</source>
        <translation>&amp;Cargar diagnósticos…</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>&amp;Buscar</translation>
    </message>
    <message>
        <source>Zoom in	Ctrl++</source>
        <translation>Ampliar	Ctrl++</translation>
    </message>
    <message>
        <source>Zoom out	Ctrl+-</source>
        <translation>Reducir	Ctrl+-</translation>
    </message>
    <message>
        <source>Usual size	Ctrl+0</source>
        <translation>Tamaño normal	Ctrl+0</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>New event &amp;handler…</source>
        <translation>Nuevo controlador de &amp;evento…</translation>
    </message>
    <message>
        <source>&amp;All methods…</source>
        <translation>&amp;Todos los métodos…</translation>
    </message>
    <message>
        <source>&amp;Methods</source>
        <translation>&amp;Métodos</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>línea %1</translation>
    </message>
    <message>
        <source>&amp;Database</source>
        <translation>Base de &amp;datos</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Lenguaje</translation>
    </message>
    <message>
        <source>%1 is written</source>
        <translation>%1 se ha escrito</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Imprimir…</translation>
    </message>
    <message>
        <source>Print pre&amp;view…</source>
        <translation>&amp;Vista previa de impresión…</translation>
    </message>
    <message>
        <source>&amp;Export as HTML…</source>
        <translation>Exportar como &amp;HTML…</translation>
    </message>
</context>
<context>
    <name>TMethodListDialog</name>
    <message>
        <source>%1, line %2</source>
        <translation>%1, línea %2</translation>
    </message>
    <message>
        <source>Methods</source>
        <translation>Métodos</translation>
    </message>
    <message>
        <source>Part of the name</source>
        <translation>Parte del nombre</translation>
    </message>
    <message>
        <source>Methods: %1</source>
        <translation>Métodos: %1</translation>
    </message>
    <message>
        <source>Methods: %1 of %2</source>
        <translation>Métodos: %1 de %2</translation>
    </message>
    <message>
        <source>%1; %2 % of the text has been read</source>
        <translation>%1; se ha leído el %2&#xa0;% del texto</translation>
    </message>
</context>
<context>
    <name>TRestoreDialog</name>
    <message>
        <source>Restore</source>
        <translation>Restaurar</translation>
    </message>
    <message>
        <source>What would come &amp;back:</source>
        <translation>Lo que &amp;volvería:</translation>
    </message>
    <message>
        <source>What would come back</source>
        <translation>Lo que volvería</translation>
    </message>
    <message>
        <source>in the file</source>
        <translation>en el archivo</translation>
    </message>
    <message>
        <source>restored</source>
        <translation>restaurado</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Restaurar</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Más tarde</translation>
    </message>
    <message>
        <source>&amp;Discard…</source>
        <translation>&amp;Descartar…</translation>
    </message>
</context>
<context>
    <name>TStartPage</name>
    <message>
        <source>or drop files here</source>
        <translation>o suelte archivos aquí</translation>
    </message>
</context>
<context>
    <name>TViewMenu</name>
    <message>
        <source>Colour &amp;scheme</source>
        <translation>Es&amp;quema de color</translation>
    </message>
    <message>
        <source>&amp;Follow the desktop</source>
        <translation>&amp;Seguir el escritorio</translation>
    </message>
</context>
<context>
    <name>Tokens</name>
    <message>
        <source>&quot;%1&quot; is in no language that has tokens.</source>
        <translation>«%1» no está en ningún lenguaje que tenga elementos léxicos.</translation>
    </message>
    <message>
        <source>Cannot print the tokens: %1.</source>
        <translation>No se pueden escribir los elementos léxicos: %1.</translation>
    </message>
</context>
<context>
    <name>View</name>
    <message>
        <source>&amp;Gutter</source>
        <translation>&amp;Margen lateral</translation>
    </message>
    <message>
        <source>&amp;Line numbers</source>
        <translation>&amp;Números de línea</translation>
    </message>
    <message>
        <source>&amp;Bookmarks</source>
        <translation>Marcad&amp;ores</translation>
    </message>
    <message>
        <source>&amp;Changed lines</source>
        <translation>&amp;Líneas modificadas</translation>
    </message>
    <message>
        <source>&amp;Diagnostics</source>
        <translation>&amp;Diagnósticos</translation>
    </message>
    <message>
        <source>&amp;Overview ruler</source>
        <translation>&amp;Vista general</translation>
    </message>
    <message>
        <source>C&amp;urrent line</source>
        <translation>Línea &amp;actual</translation>
    </message>
    <message>
        <source>&amp;Right margin</source>
        <translation>Margen d&amp;erecho</translation>
    </message>
    <message>
        <source>&amp;Indentation guides</source>
        <translation>&amp;Guías de sangría</translation>
    </message>
    <message>
        <source>Bl&amp;anks</source>
        <translation>Es&amp;pacios</translation>
    </message>
    <message>
        <source>Selected bla&amp;nks</source>
        <translation>E&amp;spacios seleccionados</translation>
    </message>
    <message>
        <source>Pairs of brac&amp;kets</source>
        <translation>Pares de pa&amp;réntesis</translation>
    </message>
    <message>
        <source>&amp;Matches of the search</source>
        <translation>&amp;Coincidencias de la búsqueda</translation>
    </message>
    <message>
        <source>&amp;Word at the caret</source>
        <translation>Palabra &amp;bajo el cursor</translation>
    </message>
    <message>
        <source>&amp;Pairs while typing</source>
        <translation>Pares al &amp;teclear</translation>
    </message>
    <message>
        <source>&amp;Zoom by wheel and keys</source>
        <translation>&amp;Zoom con rueda y teclas</translation>
    </message>
    <message>
        <source>&amp;Fine scrolling</source>
        <translation>Desplazamiento &amp;fino</translation>
    </message>
    <message>
        <source>Drag and drop of &amp;text</source>
        <translation>Arrastrar y soltar te&amp;xto</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Cannot make a file in &quot;%1&quot;: %2.</source>
        <translation>No se puede crear un archivo en «%1»: %2.</translation>
    </message>
    <message>
        <source>You have no right to write &quot;%1&quot;.</source>
        <translation>No tiene permiso para escribir «%1».</translation>
    </message>
    <message>
        <source>The window is drawn in %1</source>
        <translation>La ventana está dibujada en %1</translation>
    </message>
    <message>
        <source>%1 is made</source>
        <translation>%1 se ha creado</translation>
    </message>
    <message>
        <source>%1 is written</source>
        <translation>%1 se ha escrito</translation>
    </message>
</context>
</TS>
