<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>ColorScheme</name>
    <message>
        <source>A scheme has to be an object.</source>
        <translation>Un esquema de color tiene que ser un objeto.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be true or false.</source>
        <translation>«%1» tiene que ser true o false.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be a text in quotes.</source>
        <translation>«%1» tiene que ser un texto entre comillas.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be an object.</source>
        <translation>«%1» tiene que ser un objeto.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no colour of the form &quot;#rrggbb&quot;.</source>
        <translation>«%1» no es un color de la forma «#rrggbb».</translation>
    </message>
    <message>
        <source>There is no key &quot;%1&quot;.</source>
        <translation>No hay ninguna clave «%1».</translation>
    </message>
    <message>
        <source>The name is empty.</source>
        <translation>El nombre está vacío.</translation>
    </message>
    <message>
        <source>There is no scheme &quot;%1&quot; that could be extended.</source>
        <translation>No hay ningún esquema «%1» que se pueda ampliar.</translation>
    </message>
    <message>
        <source>There is no part of the view &quot;%1&quot;.</source>
        <translation>No hay ninguna parte de la vista «%1».</translation>
    </message>
    <message>
        <source>There is no language &quot;%1&quot;.</source>
        <translation>No hay ningún lenguaje «%1».</translation>
    </message>
    <message>
        <source>There is no element &quot;%1&quot;.</source>
        <translation>No hay ningún elemento «%1».</translation>
    </message>
    <message>
        <source>There is no property of a style &quot;%1&quot;.</source>
        <translation>No hay ninguna propiedad de estilo «%1».</translation>
    </message>
    <message>
        <source>The scheme has no &quot;name&quot;.</source>
        <translation>El esquema no tiene «name».</translation>
    </message>
    <message>
        <source>There is no colour for &quot;%1&quot;.</source>
        <translation>No hay ningún color para «%1».</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>El archivo es demasiado grande.</translation>
    </message>
</context>
<context>
    <name>DataSet</name>
    <message>
        <source>The dataset is closed.</source>
        <translation>El conjunto de datos está cerrado.</translation>
    </message>
    <message>
        <source>The dataset is not in edit or insert state.</source>
        <translation>El conjunto de datos no está en modo de edición ni de inserción.</translation>
    </message>
    <message>
        <source>The dataset is read-only.</source>
        <translation>El conjunto de datos es de solo lectura.</translation>
    </message>
    <message>
        <source>The dataset has no records.</source>
        <translation>El conjunto de datos no tiene registros.</translation>
    </message>
    <message>
        <source>The dataset has no model.</source>
        <translation>El conjunto de datos no tiene modelo.</translation>
    </message>
    <message>
        <source>There is no field with the index %1.</source>
        <translation>No hay ningún campo con el índice %1.</translation>
    </message>
    <message>
        <source>There is no field &quot;%1&quot;.</source>
        <translation>No hay ningún campo «%1».</translation>
    </message>
    <message>
        <source>There is no record with the number %1.</source>
        <translation>No hay ningún registro con el número %1.</translation>
    </message>
    <message>
        <source>The field &quot;%1&quot; is read-only.</source>
        <translation>El campo «%1» es de solo lectura.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no value for the field &quot;%2&quot;.</source>
        <translation>«%1» no es un valor para el campo «%2».</translation>
    </message>
    <message>
        <source>The data source is fixed.</source>
        <translation>El origen de datos es fijo.</translation>
    </message>
    <message>
        <source>The field &quot;%1&quot; takes no value.</source>
        <translation>El campo «%1» no admite ningún valor.</translation>
    </message>
    <message>
        <source>The record was changed by someone else since it was read.</source>
        <translation>Otra persona ha modificado el registro desde que se leyó.</translation>
    </message>
    <message>
        <source>There is no table &quot;%1&quot;.</source>
        <translation>No hay ninguna tabla «%1».</translation>
    </message>
    <message>
        <source>A view is read-only.</source>
        <translation>Una vista es de solo lectura.</translation>
    </message>
    <message>
        <source>The record was removed or changed by someone else.</source>
        <translation>Otra persona ha eliminado o modificado el registro.</translation>
    </message>
    <message>
        <source>The record cannot be told from another one: the table has no key.</source>
        <translation>El registro no se puede distinguir de otro: la tabla no tiene clave.</translation>
    </message>
    <message>
        <source>The records were not all read: %1</source>
        <translation>No se han leído todos los registros: %1</translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>&quot;%1&quot; is no journal.</source>
        <translation>«%1» no es un registro de cambios.</translation>
    </message>
</context>
<context>
    <name>Json</name>
    <message>
        <source>The name &quot;%1&quot; is there twice.</source>
        <translation>El nombre «%1» aparece dos veces.</translation>
    </message>
    <message>
        <source>The text begins with a byte order mark.</source>
        <translation>El texto empieza con una marca de orden de bytes.</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>Plain text</source>
        <translation>Texto sin formato</translation>
    </message>
    <message>
        <source>A language needs a name and a way to make its lexer.</source>
        <translation>Un lenguaje necesita un nombre y una forma de crear su analizador.</translation>
    </message>
</context>
<context>
    <name>LossQuestion</name>
    <message>
        <source>%1 cannot hold all characters of &quot;%2&quot;; the first is %3 in line %4, column %5. Save it as %6 instead?</source>
        <translation>%1 no puede contener todos los caracteres de «%2»; el primero es %3 en la línea %4, columna %5. ¿Guardar como %6 en su lugar?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot hold all characters of the text; the first is %2 in line %3, column %4. Store a replacement character (U+FFFD) for each?</source>
        <translation>«%1» no puede contener todos los caracteres del texto; el primero es %2 en la línea %3, columna %4. ¿Almacenar un carácter de reemplazo (U+FFFD) por cada uno?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; holds bytes that are no %2 text. A replacement character (U+FFFD) will be written for each. Save it?</source>
        <translation>«%1» contiene bytes que no son texto %2. Se escribirá un carácter de reemplazo (U+FFFD) por cada uno. ¿Guardar?</translation>
    </message>
</context>
<context>
    <name>TFrmCodeEditSearchReplaceDlg</name>
    <message>
        <source>Find</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Reemplazar</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Opciones</translation>
    </message>
    <message>
        <source>&amp;Text to find:</source>
        <translation>&amp;Texto que buscar:</translation>
    </message>
    <message>
        <source>&amp;Case sensitive</source>
        <translation>&amp;Mayúsculas y minúsculas</translation>
    </message>
    <message>
        <source>&amp;Whole words only</source>
        <translation>Solo &amp;palabras completas</translation>
    </message>
    <message>
        <source>&amp;Scope</source>
        <translation>Ám&amp;bito</translation>
    </message>
    <message>
        <source>&amp;Global</source>
        <translation>&amp;Global</translation>
    </message>
    <message>
        <source>Se&amp;lected text</source>
        <translation>Texto &amp;seleccionado</translation>
    </message>
    <message>
        <source>&amp;Direction</source>
        <translation>&amp;Dirección</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>Hacia ade&amp;lante</translation>
    </message>
    <message>
        <source>&amp;Backward</source>
        <translation>&amp;Hacia atrás</translation>
    </message>
    <message>
        <source>Or&amp;igin</source>
        <translation>Or&amp;igen</translation>
    </message>
    <message>
        <source>Fro&amp;m cursor</source>
        <translation>Desde el &amp;cursor</translation>
    </message>
    <message>
        <source>&amp;Entire scope</source>
        <translation>Todo &amp;el ámbito</translation>
    </message>
    <message>
        <source>&amp;Replace with:</source>
        <translation>&amp;Reemplazar por:</translation>
    </message>
    <message>
        <source>&amp;Prompt on replace</source>
        <translation>Preg&amp;untar al reemplazar</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Aceptar</translation>
    </message>
    <message>
        <source>Ca&amp;ncel</source>
        <translation>Ca&amp;ncelar</translation>
    </message>
    <message>
        <source>Replace &amp;All</source>
        <translation>Reemplazar t&amp;odo</translation>
    </message>
    <message>
        <source>Replace Text</source>
        <translation>Buscar y reemplazar</translation>
    </message>
    <message>
        <source>Find Text</source>
        <translation>Buscar</translation>
    </message>
</context>
<context>
    <name>TStringList</name>
    <message>
        <source>A line of %1 characters is too long; it may have %2.</source>
        <translation>Una línea de %1 caracteres es demasiado larga; puede tener %2.</translation>
    </message>
    <message>
        <source>A text holds at most %1 lines.</source>
        <translation>Un texto contiene %1 líneas como máximo.</translation>
    </message>
</context>
<context>
    <name>TZtAccessibleEdit</name>
    <message>
        <source>Source code</source>
        <translation>Código fuente</translation>
    </message>
</context>
<context>
    <name>TZtAccessibleText</name>
    <message>
        <source>Error: %1</source>
        <translation>Error: %1</translation>
    </message>
    <message>
        <source>Warning: %1</source>
        <translation>Advertencia: %1</translation>
    </message>
    <message>
        <source>Information: %1</source>
        <translation>Información: %1</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>Marcador</translation>
    </message>
    <message>
        <source>Breakpoint</source>
        <translation>Punto de interrupción</translation>
    </message>
    <message>
        <source>Next statement</source>
        <translation>Siguiente instrucción</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Advertencia</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Información</translation>
    </message>
</context>
<context>
    <name>TZtCodeEdit</name>
    <message>
        <source>The search went on from the start.</source>
        <translation>La búsqueda ha continuado desde el principio.</translation>
    </message>
    <message>
        <source>The search went on from the end.</source>
        <translation>La búsqueda ha continuado desde el final.</translation>
    </message>
    <message>
        <source>Search string &apos;%1&apos; not found.</source>
        <translation>No se ha encontrado el texto «%1».</translation>
    </message>
    <message>
        <source>Do you want to replace this occurrence of &apos;%1&apos;?</source>
        <translation>¿Quiere reemplazar esta aparición de «%1»?</translation>
    </message>
    <message numerus="yes">
        <source>%n occurrence(s) replaced.</source>
        <translation>
            <numerusform>%n aparición reemplazada.</numerusform>
            <numerusform>%n apariciones reemplazadas.</numerusform>
        </translation>
    </message>
    <message>
        <source>There is no language &quot;%1&quot;.</source>
        <translation>No hay ningún lenguaje «%1».</translation>
    </message>
</context>
<context>
    <name>TZtDbCodeEdit</name>
    <message>
        <source>&quot;%1&quot; was given another value while its text was changed here. Replace that value by the text?</source>
        <translation>«%1» ha recibido otro valor mientras aquí se modificaba su texto. ¿Reemplazar ese valor por el texto?</translation>
    </message>
</context>
<context>
    <name>TZtEditActions</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Deshacer</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rehacer</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Cor&amp;tar</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copiar</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Pegar</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Eliminar</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>&amp;Seleccionar todo</translation>
    </message>
    <message>
        <source>&amp;Find…</source>
        <translation>&amp;Buscar…</translation>
    </message>
    <message>
        <source>R&amp;eplace…</source>
        <translation>Ree&amp;mplazar…</translation>
    </message>
    <message>
        <source>Find &amp;next</source>
        <translation>B&amp;uscar siguiente</translation>
    </message>
    <message>
        <source>Find &amp;previous</source>
        <translation>Buscar &amp;anterior</translation>
    </message>
    <message>
        <source>&amp;Go to line…</source>
        <translation>&amp;Ir a la línea…</translation>
    </message>
    <message>
        <source>Go to line</source>
        <translation>Ir a la línea</translation>
    </message>
    <message>
        <source>Line (1 to %1):</source>
        <translation>Línea (1 a %1):</translation>
    </message>
</context>
<context>
    <name>TZtOverviewRuler</name>
    <message>
        <source>Overview</source>
        <translation>Vista general</translation>
    </message>
</context>
<context>
    <name>TZtPrintOptions</name>
    <message>
        <source>There is no such page to print.</source>
        <translation>No existe esa página para imprimir.</translation>
    </message>
    <message>
        <source>The text cannot be printed there.</source>
        <translation>El texto no se puede imprimir ahí.</translation>
    </message>
    <message>
        <source>There is no new page to print on.</source>
        <translation>No hay una página nueva en la que imprimir.</translation>
    </message>
    <message>
        <source>Page {page} of {pages}</source>
        <translation>Página {page} de {pages}</translation>
    </message>
</context>
<context>
    <name>TZtStringStream</name>
    <message>
        <source>Cannot read &quot;%1&quot;: %2.</source>
        <translation>No se puede leer «%1»: %2.</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>no hay memoria suficiente</translation>
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
        <source>There is no code page %1.</source>
        <translation>No existe la página de códigos %1.</translation>
    </message>
</context>
<context>
    <name>ZtHtmlExport</name>
    <message>
        <source>The text cannot be written: %1.</source>
        <translation>No se puede escribir el texto: %1.</translation>
    </message>
</context>
<context>
    <name>ZtPlatform</name>
    <message>
        <source>There is not enough memory.</source>
        <translation>No hay memoria suficiente.</translation>
    </message>
    <message>
        <source>Something unknown went wrong.</source>
        <translation>Se ha producido un error desconocido.</translation>
    </message>
</context>
</TS>
