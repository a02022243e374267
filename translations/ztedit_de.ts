<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CommandLine</name>
    <message>
        <source>%1 (--help tells how it is used)</source>
        <translation>%1 (--help erklärt die Verwendung)</translation>
    </message>
    <message>
        <source>--scheme wants one of %1, or a file, not &quot;%2&quot;.</source>
        <translation>--scheme erwartet %1 oder eine Datei, nicht „%2“.</translation>
    </message>
    <message>
        <source>-%1 wants a value.</source>
        <translation>-%1 erwartet einen Wert.</translation>
    </message>
    <message>
        <source>Open the texts of an SQLite database, with --table and --field.</source>
        <translation>Die Texte einer SQLite-Datenbank öffnen, mit --table und --field.</translation>
    </message>
    <message>
        <source>The table or view.</source>
        <translation>Die Tabelle oder Sicht.</translation>
    </message>
    <message>
        <source>The field to edit, of text or of bytes.</source>
        <translation>Das zu bearbeitende Feld, aus Text oder Bytes.</translation>
    </message>
    <message>
        <source>The field that tells the records apart, for a table without a primary key.</source>
        <translation>Das Feld, das die Datensätze unterscheidet, für eine Tabelle ohne Primärschlüssel.</translation>
    </message>
    <message>
        <source>Make the database FILE by the statements in FILE.sql and leave.</source>
        <translation>Die Datenbank FILE mit den Anweisungen in FILE.sql anlegen und beenden.</translation>
    </message>
    <message>
        <source>--db, --table and --field are wanted together.</source>
        <translation>--db, --table und --field werden zusammen erwartet.</translation>
    </message>
    <message>
        <source>--make-sample wants the name of a database, and no --db.</source>
        <translation>--make-sample erwartet den Namen einer Datenbank und kein --db.</translation>
    </message>
    <message>
        <source>Put the caret on line N of the first file, in column C.</source>
        <translation>Die Schreibmarke in Zeile N der ersten Datei setzen, in Spalte C.</translation>
    </message>
    <message>
        <source>Put a bookmark on line N of the first file; may be given several times.</source>
        <translation>Ein Lesezeichen in Zeile N der ersten Datei setzen; mehrfach möglich.</translation>
    </message>
    <message>
        <source>Show what a compiler printed into FILE, in the texts that it is about.</source>
        <translation>In den betroffenen Texten zeigen, was ein Compiler in FILE ausgegeben hat.</translation>
    </message>
    <message>
        <source>--line wants a number from 1 up, or two such as 12:5, not &quot;%1&quot;.</source>
        <translation>--line erwartet eine Zahl ab 1 oder zwei wie 12:5, nicht „%1“.</translation>
    </message>
    <message>
        <source>--bookmark wants a number from 1 up, not &quot;%1&quot;.</source>
        <translation>--bookmark erwartet eine Zahl ab 1, nicht „%1“.</translation>
    </message>
    <message>
        <source>--diagnostics wants the name of a file.</source>
        <translation>--diagnostics erwartet den Namen einer Datei.</translation>
    </message>
    <message>
        <source>The window&apos;s size in pixels.</source>
        <translation>Die Größe des Fensters in Pixeln.</translation>
    </message>
    <message>
        <source>The colours: %1, or a JSON file.</source>
        <translation>Die Farben: %1 oder eine JSON-Datei.</translation>
    </message>
    <message>
        <source>--size wants a width and a height from 1 to %1, such as 900x640, not &quot;%2&quot;.</source>
        <translation>--size erwartet eine Breite und eine Höhe von 1 bis %1, etwa 900x640, nicht „%2“.</translation>
    </message>
    <message>
        <source>Show this help and leave.</source>
        <translation>Diese Hilfe zeigen und beenden.</translation>
    </message>
    <message>
        <source>Show the version and leave.</source>
        <translation>Die Version zeigen und beenden.</translation>
    </message>
    <message>
        <source>Draw the window into the picture OUT.png and leave.</source>
        <translation>Das Fenster in das Bild OUT.png zeichnen und beenden.</translation>
    </message>
    <message>
        <source>Print the tokens of FILE, one a line, and leave.</source>
        <translation>Die Token von FILE ausgeben, eines je Zeile, und beenden.</translation>
    </message>
    <message>
        <source>Edits source code. Without a display, and with --render, the window is drawn into a picture instead. The options of every Qt application are known too, such as -style, -platform and -reverse.</source>
        <translation>Bearbeitet Quelltext. Ohne Bildschirm und mit --render wird das Fenster stattdessen in ein Bild gezeichnet. Die Optionen jeder Qt-Anwendung sind auch bekannt, etwa -style, -platform und -reverse.</translation>
    </message>
    <message>
        <source>The files to open, a tab each.</source>
        <translation>Die zu öffnenden Dateien, jede auf einer eigenen Seite.</translation>
    </message>
    <message>
        <source>The language of the texts: %1. Without it, it is the desktop&apos;s.</source>
        <translation>Die Sprache der Texte: %1. Ohne diese Option ist es die der Arbeitsumgebung.</translation>
    </message>
    <message>
        <source>--language wants one of %1, not &quot;%2&quot;.</source>
        <translation>--language erwartet eine Sprache aus %1, nicht „%2“.</translation>
    </message>
    <message>
        <source>Print FILE into OUT.pdf and leave.</source>
        <translation>FILE in OUT.pdf drucken und beenden.</translation>
    </message>
    <message>
        <source>Write FILE with its colours into OUT.html and leave.</source>
        <translation>FILE mit seinen Farben in OUT.html schreiben und beenden.</translation>
    </message>
    <message>
        <source>--%1 wants the name of a file to write.</source>
        <translation>--%1 erwartet den Namen einer zu schreibenden Datei.</translation>
    </message>
    <message>
        <source>--%1 wants one file, and no --db.</source>
        <translation>--%1 erwartet eine Datei und kein --db.</translation>
    </message>
    <message>
        <source>Only one of --render, --print, --html and --tokens can be given.</source>
        <translation>Von --render, --print, --html und --tokens kann nur eines angegeben werden.</translation>
    </message>
</context>
<context>
    <name>DbConnection</name>
    <message>
        <source>There is no database &quot;%1&quot;.</source>
        <translation>Es gibt keine Datenbank „%1“.</translation>
    </message>
    <message>
        <source>Cannot open the database &quot;%1&quot;: %2.</source>
        <translation>Die Datenbank „%1“ kann nicht geöffnet werden: %2.</translation>
    </message>
    <message>
        <source>The database &quot;%1&quot; has no table &quot;%2&quot;; it has: %3.</source>
        <translation>Die Datenbank „%1“ hat keine Tabelle „%2“; sie hat: %3.</translation>
    </message>
    <message>
        <source>The table &quot;%1&quot; has no field &quot;%2&quot;; it has: %3.</source>
        <translation>Die Tabelle „%1“ hat kein Feld „%2“; sie hat: %3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is there already.</source>
        <translation>„%1“ ist schon vorhanden.</translation>
    </message>
    <message>
        <source>Cannot make &quot;%1&quot;: %2</source>
        <translation>„%1“ kann nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>Cannot make &quot;%1&quot;: %2.</source>
        <translation>„%1“ kann nicht angelegt werden: %2.</translation>
    </message>
</context>
<context>
    <name>FileAttributes</name>
    <message>
        <source>its owner (%1)</source>
        <translation>seinen Besitzer (%1)</translation>
    </message>
    <message>
        <source>its group (%1)</source>
        <translation>seine Gruppe (%1)</translation>
    </message>
    <message>
        <source>its access control list</source>
        <translation>seine Zugriffssteuerungsliste</translation>
    </message>
    <message>
        <source>its attribute %1</source>
        <translation>sein Attribut %1</translation>
    </message>
    <message>
        <source>its extended attributes</source>
        <translation>seine erweiterten Attribute</translation>
    </message>
    <message>
        <source>its permissions</source>
        <translation>seine Zugriffsrechte</translation>
    </message>
</context>
<context>
    <name>FileStore</name>
    <message>
        <source>Cannot write &quot;%1&quot;: %2.</source>
        <translation>„%1“ kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>it is a directory</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>its other names, which keep the old contents</source>
        <translation>seine anderen Namen, die den alten Inhalt behalten</translation>
    </message>
    <message>
        <source>%1. What it held before is in &quot;%2&quot;</source>
        <translation>%1. Der vorige Inhalt steht in „%2“</translation>
    </message>
</context>
<context>
    <name>JournalFlow</name>
    <message>
        <source>A text without a name</source>
        <translation>Ein Text ohne Namen</translation>
    </message>
    <message>
        <source>&quot;%1&quot;</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>%1 was not saved when the program was cut short. The last change is of %2.</source>
        <translation>%1 war nicht gespeichert, als das Programm abgebrochen wurde. Die letzte Änderung ist vom %2.</translation>
    </message>
    <message>
        <source>The file is not what it was any more, so that only what was typed and inserted can come back, piece by piece, as a text of its own.</source>
        <translation>Die Datei ist nicht mehr, was sie war. Deshalb kann nur, was getippt und eingefügt wurde, Stück für Stück als eigener Text zurückkommen.</translation>
    </message>
    <message>
        <source>The file was changed since then. It stays as it is, and what comes back opens beside it.</source>
        <translation>Die Datei wurde seitdem geändert. Sie bleibt, wie sie ist; was zurückkommt, öffnet sich daneben.</translation>
    </message>
    <message>
        <source>There is no file of this name, or it cannot be read.</source>
        <translation>Es gibt keine Datei dieses Namens, oder sie kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The very last changes may be missing.</source>
        <translation>Die allerletzten Änderungen können fehlen.</translation>
    </message>
    <message>
        <source>%1 is not restored: %2</source>
        <translation>%1 wird nicht wiederhergestellt: %2</translation>
    </message>
    <message>
        <source>%1: give up for good what was not saved?</source>
        <translation>%1: Endgültig verwerfen, was nicht gespeichert wurde?</translation>
    </message>
</context>
<context>
    <name>PrintFlow</name>
    <message>
        <source>&amp;Line numbers</source>
        <translation>&amp;Zeilennummern</translation>
    </message>
    <message>
        <source>&amp;Wrap long lines</source>
        <translation>&amp;Lange Zeilen umbrechen</translation>
    </message>
    <message>
        <source>Header and &amp;footer</source>
        <translation>&amp;Kopf- und Fußzeile</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Printing &quot;%1&quot;…</source>
        <translation>„%1“ wird gedruckt…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cannot write &quot;%1&quot;: %2.</source>
        <translation>„%1“ kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>Export as HTML</source>
        <translation>Als HTML exportieren</translation>
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
        <translation>Das Speichern von „%1“ wurde abgebrochen. Der vorige Inhalt steht in „%2“, kann hier aber nicht wiederhergestellt werden: %3.</translation>
    </message>
    <message>
        <source>A save of &quot;%1&quot; was cut short at %2, and it may hold only a part of its text. Restore what it held before that save? What you do not choose is kept as &quot;%3&quot;.</source>
        <translation>Das Speichern von „%1“ wurde am %2 abgebrochen; vielleicht enthält die Datei nur einen Teil ihres Textes. Den Inhalt von vorher wiederherstellen? Was Sie nicht wählen, bleibt als „%3“ erhalten.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was changed by another program after it was read here. Overwrite those changes?</source>
        <translation>„%1“ wurde von einem anderen Programm geändert, nachdem es hier gelesen wurde. Diese Änderungen überschreiben?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be read to see whether another program changed it: %2. Overwrite it?</source>
        <translation>„%1“ kann nicht gelesen werden, um zu sehen, ob ein anderes Programm es geändert hat: %2. Überschreiben?</translation>
    </message>
    <message>
        <source>You have no right to write &quot;%1&quot;, but you may put another file in its place. Replace it?</source>
        <translation>Sie dürfen „%1“ nicht schreiben, aber eine andere Datei an seine Stelle setzen. Ersetzen?</translation>
    </message>
    <message>
        <source>The line endings of &quot;%1&quot; are mixed. All of them will be written as %2. Save it?</source>
        <translation>Die Zeilenenden von „%1“ sind gemischt. Alle werden als %2 geschrieben. Speichern?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is saved, but it lost %2.</source>
        <translation>„%1“ ist gespeichert, verlor aber %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not saved: %2</source>
        <translation>„%1“ ist nicht gespeichert: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not restored: %2</source>
        <translation>„%1“ ist nicht wiederhergestellt: %2</translation>
    </message>
</context>
<context>
    <name>SideFile</name>
    <message>
        <source>it belongs to the user %1</source>
        <translation>der Besitzer ist %1</translation>
    </message>
</context>
<context>
    <name>TConflictDialog</name>
    <message>
        <source>Changed by someone else</source>
        <translation>Von jemand anderem geändert</translation>
    </message>
    <message>
        <source>The record &quot;%1&quot; was changed by someone else since it was read here. Nothing was written yet.</source>
        <translation>Der Datensatz „%1“ wurde von jemand anderem geändert, seit er hier gelesen wurde. Noch wurde nichts geschrieben.</translation>
    </message>
    <message>
        <source>Write &amp;mine</source>
        <translation>&amp;Meine Fassung schreiben</translation>
    </message>
    <message>
        <source>Take &amp;theirs</source>
        <translation>&amp;Andere Fassung übernehmen</translation>
    </message>
    <message>
        <source>&amp;Go on editing</source>
        <translation>&amp;Weiter bearbeiten</translation>
    </message>
    <message>
        <source>M&amp;ine:</source>
        <translation>M&amp;eine Fassung:</translation>
    </message>
    <message>
        <source>T&amp;heirs:</source>
        <translation>A&amp;ndere Fassung:</translation>
    </message>
</context>
<context>
    <name>TDbDocument</name>
    <message>
        <source>Records</source>
        <translation>Datensätze</translation>
    </message>
    <message>
        <source>F&amp;irst</source>
        <translation>&amp;Erster</translation>
    </message>
    <message>
        <source>P&amp;rior</source>
        <translation>&amp;Vorheriger</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Nächster</translation>
    </message>
    <message>
        <source>&amp;Last</source>
        <translation>&amp;Letzter</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>Lös&amp;chen…</translation>
    </message>
    <message>
        <source>&amp;Fields…</source>
        <translation>Fel&amp;der…</translation>
    </message>
    <message>
        <source>&amp;Post</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>R&amp;efresh</source>
        <translation>Ak&amp;tualisieren</translation>
    </message>
    <message>
        <source>Post the changes to the record &quot;%1&quot;? &quot;No&quot; discards them.</source>
        <translation>Die Änderungen am Datensatz „%1“ speichern? „Nein“ verwirft sie.</translation>
    </message>
    <message>
        <source>New record</source>
        <translation>Neuer Datensatz</translation>
    </message>
    <message>
        <source>Record %1 of %2</source>
        <translation>Datensatz %1 von %2</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Geschlossen</translation>
    </message>
    <message>
        <source>Browsing</source>
        <translation>Anzeige</translation>
    </message>
    <message>
        <source>Editing</source>
        <translation>Bearbeitung</translation>
    </message>
    <message>
        <source>Inserting</source>
        <translation>Einfügung</translation>
    </message>
    <message>
        <source>Cannot go to another record: %1</source>
        <translation>Kein Wechsel zu einem anderen Datensatz möglich: %1</translation>
    </message>
    <message>
        <source>Cannot insert a record: %1</source>
        <translation>Ein Datensatz kann nicht eingefügt werden: %1</translation>
    </message>
    <message>
        <source>Cannot change the fields: %1</source>
        <translation>Die Felder können nicht geändert werden: %1</translation>
    </message>
    <message>
        <source>Delete the record &quot;%1&quot;? This cannot be undone.</source>
        <translation>Den Datensatz „%1“ löschen? Das kann nicht rückgängig gemacht werden.</translation>
    </message>
    <message>
        <source>The record was not deleted: %1</source>
        <translation>Der Datensatz wurde nicht gelöscht: %1</translation>
    </message>
    <message>
        <source>The record was not posted: %1
Its text stays in the editor; post it again later, or cancel.</source>
        <translation>Der Datensatz wurde nicht gespeichert: %1
Sein Text bleibt im Editor; speichern Sie ihn später noch einmal, oder brechen Sie ab.</translation>
    </message>
    <message>
        <source>Cannot read the records: %1</source>
        <translation>Die Datensätze können nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>In&amp;sert…</source>
        <translation>E&amp;infügen…</translation>
    </message>
</context>
<context>
    <name>TDbFieldsDialog</name>
    <message>
        <source>Fields of the record</source>
        <translation>Felder des Datensatzes</translation>
    </message>
</context>
<context>
    <name>TDbOpenDialog</name>
    <message>
        <source>Open a database</source>
        <translation>Datenbank öffnen</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>&amp;Datei:</translation>
    </message>
    <message>
        <source>&amp;Table:</source>
        <translation>&amp;Tabelle:</translation>
    </message>
    <message>
        <source>Fi&amp;eld to edit:</source>
        <translation>&amp;Feld zum Bearbeiten:</translation>
    </message>
    <message>
        <source>&amp;Key:</source>
        <translation>&amp;Schlüssel:</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>D&amp;urchsuchen…</translation>
    </message>
    <message>
        <source>SQLite databases (*.sqlite *.sqlite3 *.db *.db3);;All files (*)</source>
        <translation>SQLite-Datenbanken (*.sqlite *.sqlite3 *.db *.db3);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>This database has no tables.</source>
        <translation>Diese Datenbank hat keine Tabellen.</translation>
    </message>
    <message>
        <source>the table&apos;s primary key</source>
        <translation>der Primärschlüssel der Tabelle</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
</context>
<context>
    <name>TDocument</name>
    <message>
        <source>Save the changes to &quot;%1&quot;?</source>
        <translation>Die Änderungen an „%1“ speichern?</translation>
    </message>
    <message>
        <source>Line %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>%1 with byte-order mark</source>
        <translation>%1 mit Bytereihenfolge-Markierung</translation>
    </message>
    <message>
        <source>+BOM</source>
        <translation>+BOM</translation>
    </message>
    <message>
        <source>%1, mixed</source>
        <translation>%1, gemischt</translation>
    </message>
    <message>
        <source>Mixed</source>
        <translation>Gemischt</translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation>Fehler: %1</translation>
    </message>
    <message>
        <source>Warning: %1</source>
        <translation>Warnung: %1</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Hinweis: %1</translation>
    </message>
    <message>
        <source>Cannot open &quot;%1&quot;: %2</source>
        <translation>„%1“ kann nicht geöffnet werden: %2</translation>
    </message>
</context>
<context>
    <name>TEventDialog</name>
    <message>
        <source>New event handler</source>
        <translation>Neue Ereignisbehandlung</translation>
    </message>
    <message>
        <source>&amp;Events of the sample form</source>
        <translation>&amp;Ereignisse des Beispielformulars</translation>
    </message>
    <message>
        <source>&amp;Methods in the text that fit</source>
        <translation>Passende &amp;Methoden im Text</translation>
    </message>
    <message>
        <source>Insert at the &amp;caret</source>
        <translation>An der S&amp;chreibmarke einfügen</translation>
    </message>
    <message>
        <source>&amp;Go to the method</source>
        <translation>&amp;Gehe zur Methode</translation>
    </message>
    <message>
        <source>Line %1 has a method of this name.</source>
        <translation>In Zeile %1 steht eine Methode dieses Namens.</translation>
    </message>
    <message>
        <source>Insert at the e&amp;nd</source>
        <translation>Am En&amp;de einfügen</translation>
    </message>
    <message>
        <source>What will be inserted</source>
        <translation>Was eingefügt wird</translation>
    </message>
</context>
<context>
    <name>TMainWindow</name>
    <message>
        <source>New text</source>
        <translation>Neuer Text</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>Öffnen…</translation>
    </message>
    <message>
        <source>Open database…</source>
        <translation>Datenbank öffnen…</translation>
    </message>
    <message>
        <source>Untitled %1</source>
        <translation>Unbenannt %1</translation>
    </message>
    <message>
        <source>What is changed would not come back after a crash: %1</source>
        <translation>Änderungen kämen nach einem Absturz nicht zurück: %1</translation>
    </message>
    <message>
        <source>Cannot open &quot;%1&quot;: %2</source>
        <translation>„%1“ kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>Open files</source>
        <translation>Dateien öffnen</translation>
    </message>
    <message>
        <source>%1 is saved</source>
        <translation>%1 ist gespeichert</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is open in another tab.</source>
        <translation>„%1“ ist auf einer anderen Seite geöffnet.</translation>
    </message>
    <message>
        <source>Give up the changes to &quot;%1&quot; and read it again?</source>
        <translation>Die Änderungen an „%1“ verwerfen und neu lesen?</translation>
    </message>
    <message>
        <source>Load diagnostics</source>
        <translation>Diagnosen laden</translation>
    </message>
    <message>
        <source>Diagnostics: %1, of files: %2</source>
        <translation>Diagnosen: %1, Dateien: %2</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>Save a&amp;ll</source>
        <translation>&amp;Alle speichern</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <translation>Neu &amp;laden</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Select to &amp;bracket	Ctrl+Shift+M</source>
        <translation>&amp;Bis zur Klammer auswählen	Ctrl+Shift+M</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>Go to brac&amp;ket	Ctrl+M</source>
        <translation>Gehe zu &amp;Klammer	Ctrl+M</translation>
    </message>
    <message>
        <source>&amp;Toggle bookmark	Ctrl+F2</source>
        <translation>&amp;Lesezeichen umschalten	Ctrl+F2</translation>
    </message>
    <message>
        <source>Next &amp;bookmark	F2</source>
        <translation>&amp;Nächstes Lesezeichen	F2</translation>
    </message>
    <message>
        <source>Pre&amp;vious bookmark	Shift+F2</source>
        <translation>&amp;Vorheriges Lesezeichen	Shift+F2</translation>
    </message>
    <message>
        <source>Next &amp;diagnostic	F8</source>
        <translation>Nächste &amp;Diagnose	F8</translation>
    </message>
    <message>
        <source>Previous d&amp;iagnostic	Shift+F8</source>
        <translation>Vorherige D&amp;iagnose	Shift+F8</translation>
    </message>
    <message>
        <source>&amp;Load diagnostics…</source>
        <translation>Diagnosen l&amp;aden…</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>Zoom in	Ctrl++</source>
        <translation>Vergrößern	Ctrl++</translation>
    </message>
    <message>
        <source>Zoom out	Ctrl+-</source>
        <translation>Verkleinern	Ctrl+-</translation>
    </message>
    <message>
        <source>Usual size	Ctrl+0</source>
        <translation>Normale Größe	Ctrl+0</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>New event &amp;handler…</source>
        <translation>Neue &amp;Ereignisbehandlung…</translation>
    </message>
    <message>
        <source>&amp;All methods…</source>
        <translation>&amp;Alle Methoden…</translation>
    </message>
    <message>
        <source>&amp;Methods</source>
        <translation>&amp;Methoden</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>&amp;Database</source>
        <translation>Datenban&amp;k</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>S&amp;prache</translation>
    </message>
    <message>
        <source>%1 is written</source>
        <translation>%1 ist geschrieben</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Drucken…</translation>
    </message>
    <message>
        <source>Print pre&amp;view…</source>
        <translation>Druck&amp;vorschau…</translation>
    </message>
    <message>
        <source>&amp;Export as HTML…</source>
        <translation>Als &amp;HTML exportieren…</translation>
    </message>
</context>
<context>
    <name>TMethodListDialog</name>
    <message>
        <source>%1, line %2</source>
        <translation>%1, Zeile %2</translation>
    </message>
    <message>
        <source>Methods</source>
        <translation>Methoden</translation>
    </message>
    <message>
        <source>Part of the name</source>
        <translation>Teil des Namens</translation>
    </message>
    <message>
        <source>Methods: %1</source>
        <translation>Methoden: %1</translation>
    </message>
    <message>
        <source>Methods: %1 of %2</source>
        <translation>Methoden: %1 von %2</translation>
    </message>
    <message>
        <source>%1; %2 % of the text has been read</source>
        <translation>%1; %2&#xa0;% des Textes sind gelesen</translation>
    </message>
</context>
<context>
    <name>TRestoreDialog</name>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>What would come &amp;back:</source>
        <translation>Was zurück&amp;käme:</translation>
    </message>
    <message>
        <source>What would come back</source>
        <translation>Was zurückkäme</translation>
    </message>
    <message>
        <source>in the file</source>
        <translation>in der Datei</translation>
    </message>
    <message>
        <source>restored</source>
        <translation>wiederhergestellt</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>&amp;Discard…</source>
        <translation>&amp;Verwerfen…</translation>
    </message>
</context>
<context>
    <name>TStartPage</name>
    <message>
        <source>or drop files here</source>
        <translation>oder Dateien hier ablegen</translation>
    </message>
</context>
<context>
    <name>TViewMenu</name>
    <message>
        <source>Colour &amp;scheme</source>
        <translation>Farb&amp;schema</translation>
    </message>
    <message>
        <source>&amp;Follow the desktop</source>
        <translation>&amp;Wie die Arbeitsumgebung</translation>
    </message>
</context>
<context>
    <name>Tokens</name>
    <message>
        <source>&quot;%1&quot; is in no language that has tokens.</source>
        <translation>„%1“ ist in keiner Sprache, die Token hat.</translation>
    </message>
    <message>
        <source>Cannot print the tokens: %1.</source>
        <translation>Die Token können nicht ausgegeben werden: %1.</translation>
    </message>
</context>
<context>
    <name>View</name>
    <message>
        <source>&amp;Gutter</source>
        <translation>&amp;Randleiste</translation>
    </message>
    <message>
        <source>&amp;Line numbers</source>
        <translation>&amp;Zeilennummern</translation>
    </message>
    <message>
        <source>&amp;Bookmarks</source>
        <translation>&amp;Lesezeichen</translation>
    </message>
    <message>
        <source>&amp;Changed lines</source>
        <translation>&amp;Geänderte Zeilen</translation>
    </message>
    <message>
        <source>&amp;Diagnostics</source>
        <translation>&amp;Diagnosen</translation>
    </message>
    <message>
        <source>&amp;Overview ruler</source>
        <translation>Ü&amp;bersichtsleiste</translation>
    </message>
    <message>
        <source>C&amp;urrent line</source>
        <translation>&amp;Aktuelle Zeile</translation>
    </message>
    <message>
        <source>&amp;Right margin</source>
        <translation>Re&amp;chter Rand</translation>
    </message>
    <message>
        <source>&amp;Indentation guides</source>
        <translation>&amp;Einrückungslinien</translation>
    </message>
    <message>
        <source>Bl&amp;anks</source>
        <translation>Leerzeiche&amp;n</translation>
    </message>
    <message>
        <source>Selected bla&amp;nks</source>
        <translation>Ausge&amp;wählte Leerzeichen</translation>
    </message>
    <message>
        <source>Pairs of brac&amp;kets</source>
        <translation>&amp;Klammerpaare</translation>
    </message>
    <message>
        <source>&amp;Matches of the search</source>
        <translation>&amp;Treffer der Suche</translation>
    </message>
    <message>
        <source>&amp;Word at the caret</source>
        <translation>W&amp;ort an der Schreibmarke</translation>
    </message>
    <message>
        <source>&amp;Pairs while typing</source>
        <translation>&amp;Paare beim Tippen</translation>
    </message>
    <message>
        <source>&amp;Zoom by wheel and keys</source>
        <translation>Zoo&amp;m mit Rad und Tasten</translation>
    </message>
    <message>
        <source>&amp;Fine scrolling</source>
        <translation>&amp;Feines Rollen</translation>
    </message>
    <message>
        <source>Drag and drop of &amp;text</source>
        <translation>Text z&amp;iehen und ablegen</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Cannot make a file in &quot;%1&quot;: %2.</source>
        <translation>In „%1“ kann keine Datei angelegt werden: %2.</translation>
    </message>
    <message>
        <source>You have no right to write &quot;%1&quot;.</source>
        <translation>Sie dürfen „%1“ nicht schreiben.</translation>
    </message>
    <message>
        <source>The window is drawn in %1</source>
        <translation>Das Fenster ist in %1 gezeichnet</translation>
    </message>
    <message>
        <source>%1 is made</source>
        <translation>%1 ist angelegt</translation>
    </message>
    <message>
        <source>%1 is written</source>
        <translation>%1 ist geschrieben</translation>
    </message>
</context>
</TS>
