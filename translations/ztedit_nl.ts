<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nl" sourcelanguage="en">
<context>
    <name>CommandLine</name>
    <message>
        <source>%1 (--help tells how it is used)</source>
        <translation>%1 (--help legt het gebruik uit)</translation>
    </message>
    <message>
        <source>--scheme wants one of %1, or a file, not &quot;%2&quot;.</source>
        <translation>--scheme verwacht een van %1, of een bestand, niet ‘%2’.</translation>
    </message>
    <message>
        <source>-%1 wants a value.</source>
        <translation>-%1 verwacht een waarde.</translation>
    </message>
    <message>
        <source>Open the texts of an SQLite database, with --table and --field.</source>
        <translation>De teksten van een SQLite-database openen, met --table en --field.</translation>
    </message>
    <message>
        <source>The table or view.</source>
        <translation>De tabel of view.</translation>
    </message>
    <message>
        <source>The field to edit, of text or of bytes.</source>
        <translation>Het te bewerken veld, van tekst of van bytes.</translation>
    </message>
    <message>
        <source>The field that tells the records apart, for a table without a primary key.</source>
        <translation>Het veld dat de records onderscheidt, voor een tabel zonder primaire sleutel.</translation>
    </message>
    <message>
        <source>Make the database FILE by the statements in FILE.sql and leave.</source>
        <translation>De database FILE maken met de opdrachten in FILE.sql en afsluiten.</translation>
    </message>
    <message>
        <source>--db, --table and --field are wanted together.</source>
        <translation>--db, --table en --field horen bij elkaar.</translation>
    </message>
    <message>
        <source>--make-sample wants the name of a database, and no --db.</source>
        <translation>--make-sample verwacht de naam van een database, zonder --db.</translation>
    </message>
    <message>
        <source>Put the caret on line N of the first file, in column C.</source>
        <translation>De cursor op regel N van het eerste bestand zetten, in kolom C.</translation>
    </message>
    <message>
        <source>Put a bookmark on line N of the first file; may be given several times.</source>
        <translation>Een bladwijzer op regel N van het eerste bestand zetten; mag herhaald worden.</translation>
    </message>
    <message>
        <source>Show what a compiler printed into FILE, in the texts that it is about.</source>
        <translation>Tonen wat een compiler in FILE heeft geschreven, in de betrokken teksten.</translation>
    </message>
    <message>
        <source>--line wants a number from 1 up, or two such as 12:5, not &quot;%1&quot;.</source>
        <translation>--line verwacht een getal vanaf 1, of twee zoals 12:5, niet ‘%1’.</translation>
    </message>
    <message>
        <source>--bookmark wants a number from 1 up, not &quot;%1&quot;.</source>
        <translation>--bookmark verwacht een getal vanaf 1, niet ‘%1’.</translation>
    </message>
    <message>
        <source>--diagnostics wants the name of a file.</source>
        <translation>--diagnostics verwacht de naam van een bestand.</translation>
    </message>
    <message>
        <source>The window&apos;s size in pixels.</source>
        <translation>De grootte van het venster in pixels.</translation>
    </message>
    <message>
        <source>The colours: %1, or a JSON file.</source>
        <translation>De kleuren: %1, of een JSON-bestand.</translation>
    </message>
    <message>
        <source>--size wants a width and a height from 1 to %1, such as 900x640, not &quot;%2&quot;.</source>
        <translation>--size verwacht een breedte en een hoogte van 1 tot %1, zoals 900x640, niet ‘%2’.</translation>
    </message>
    <message>
        <source>Show this help and leave.</source>
        <translation>Deze hulp tonen en afsluiten.</translation>
    </message>
    <message>
        <source>Show the version and leave.</source>
        <translation>De versie tonen en afsluiten.</translation>
    </message>
    <message>
        <source>Draw the window into the picture OUT.png and leave.</source>
        <translation>Het venster in de afbeelding OUT.png tekenen en afsluiten.</translation>
    </message>
    <message>
        <source>Print the tokens of FILE, one a line, and leave.</source>
        <translation>De tokens van FILE afdrukken, één per regel, en afsluiten.</translation>
    </message>
    <message>
        <source>Edits source code. Without a display, and with --render, the window is drawn into a picture instead. The options of every Qt application are known too, such as -style, -platform and -reverse.</source>
        <translation>Bewerkt broncode. Zonder beeldscherm, en met --render, wordt het venster in een afbeelding getekend. De opties van elke Qt-toepassing zijn ook bekend, zoals -style, -platform en -reverse.</translation>
    </message>
    <message>
        <source>The files to open, a tab each.</source>
        <translation>De te openen bestanden, elk op een tabblad.</translation>
    </message>
    <message>
        <source>The language of the texts: %1. Without it, it is the desktop&apos;s.</source>
        <translation>De taal van de teksten: %1. Zonder deze optie is het die van het bureaublad.</translation>
    </message>
    <message>
        <source>--language wants one of %1, not &quot;%2&quot;.</source>
        <translation>--language verwacht een van %1, niet ‘%2’.</translation>
    </message>
    <message>
        <source>Print FILE into OUT.pdf and leave.</source>
        <translation>FILE afdrukken in OUT.pdf en afsluiten.</translation>
    </message>
    <message>
        <source>Write FILE with its colours into OUT.html and leave.</source>
        <translation>FILE met zijn kleuren in OUT.html schrijven en afsluiten.</translation>
    </message>
    <message>
        <source>--%1 wants the name of a file to write.</source>
        <translation>--%1 verwacht de naam van een te schrijven bestand.</translation>
    </message>
    <message>
        <source>--%1 wants one file, and no --db.</source>
        <translation>--%1 verwacht één bestand, zonder --db.</translation>
    </message>
    <message>
        <source>Only one of --render, --print, --html and --tokens can be given.</source>
        <translation>Van --render, --print, --html en --tokens kan er maar één worden opgegeven.</translation>
    </message>
</context>
<context>
    <name>DbConnection</name>
    <message>
        <source>There is no database &quot;%1&quot;.</source>
        <translation>Er is geen database ‘%1’.</translation>
    </message>
    <message>
        <source>Cannot open the database &quot;%1&quot;: %2.</source>
        <translation>Kan de database ‘%1’ niet openen: %2.</translation>
    </message>
    <message>
        <source>The database &quot;%1&quot; has no table &quot;%2&quot;; it has: %3.</source>
        <translation>De database ‘%1’ heeft geen tabel ‘%2’; wel: %3.</translation>
    </message>
    <message>
        <source>The table &quot;%1&quot; has no field &quot;%2&quot;; it has: %3.</source>
        <translation>De tabel ‘%1’ heeft geen veld ‘%2’; wel: %3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is there already.</source>
        <translation>‘%1’ bestaat al.</translation>
    </message>
    <message>
        <source>Cannot make &quot;%1&quot;: %2</source>
        <translation>Kan ‘%1’ niet maken: %2</translation>
    </message>
    <message>
        <source>Cannot make &quot;%1&quot;: %2.</source>
        <translation>Kan ‘%1’ niet maken: %2.</translation>
    </message>
</context>
<context>
    <name>FileAttributes</name>
    <message>
        <source>its owner (%1)</source>
        <translation>de eigenaar (%1)</translation>
    </message>
    <message>
        <source>its group (%1)</source>
        <translation>de groep (%1)</translation>
    </message>
    <message>
        <source>its access control list</source>
        <translation>de toegangscontrolelijst</translation>
    </message>
    <message>
        <source>its attribute %1</source>
        <translation>het attribuut %1</translation>
    </message>
    <message>
        <source>its extended attributes</source>
        <translation>de uitgebreide attributen</translation>
    </message>
    <message>
        <source>its permissions</source>
        <translation>de toegangsrechten</translation>
    </message>
</context>
<context>
    <name>FileStore</name>
    <message>
        <source>Cannot write &quot;%1&quot;: %2.</source>
        <translation>Kan ‘%1’ niet schrijven: %2.</translation>
    </message>
    <message>
        <source>it is a directory</source>
        <translation>het is een map</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>het is geen gewoon bestand</translation>
    </message>
    <message>
        <source>its other names, which keep the old contents</source>
        <translation>de andere namen, die de oude inhoud houden</translation>
    </message>
    <message>
        <source>%1. What it held before is in &quot;%2&quot;</source>
        <translation>%1. De vorige inhoud staat in ‘%2’</translation>
    </message>
</context>
<context>
    <name>JournalFlow</name>
    <message>
        <source>A text without a name</source>
        <translation>Een tekst zonder naam</translation>
    </message>
    <message>
        <source>&quot;%1&quot;</source>
        <translation>‘%1’</translation>
    </message>
    <message>
        <source>%1 was not saved when the program was cut short. The last change is of %2.</source>
        <translation>%1 was niet opgeslagen toen het programma werd afgebroken. De laatste wijziging is van %2.</translation>
    </message>
    <message>
        <source>The file is not what it was any more, so that only what was typed and inserted can come back, piece by piece, as a text of its own.</source>
        <translation>Het bestand is niet meer wat het was. Alleen wat is getypt en ingevoegd kan terugkomen, stuk voor stuk, als een eigen tekst.</translation>
    </message>
    <message>
        <source>The file was changed since then. It stays as it is, and what comes back opens beside it.</source>
        <translation>Het bestand is sindsdien gewijzigd. Het blijft zoals het is; wat terugkomt, wordt ernaast geopend.</translation>
    </message>
    <message>
        <source>There is no file of this name, or it cannot be read.</source>
        <translation>Er is geen bestand met deze naam, of het kan niet worden gelezen.</translation>
    </message>
    <message>
        <source>The very last changes may be missing.</source>
        <translation>De allerlaatste wijzigingen kunnen ontbreken.</translation>
    </message>
    <message>
        <source>%1 is not restored: %2</source>
        <translation>%1 is niet hersteld: %2</translation>
    </message>
    <message>
        <source>%1: give up for good what was not saved?</source>
        <translation>%1: definitief verwerpen wat niet was opgeslagen?</translation>
    </message>
</context>
<context>
    <name>PrintFlow</name>
    <message>
        <source>&amp;Line numbers</source>
        <translation>&amp;Regelnummers</translation>
    </message>
    <message>
        <source>&amp;Wrap long lines</source>
        <translation>&amp;Lange regels afbreken</translation>
    </message>
    <message>
        <source>Header and &amp;footer</source>
        <translation>&amp;Kop- en voettekst</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Tekst</translation>
    </message>
    <message>
        <source>Printing &quot;%1&quot;…</source>
        <translation>‘%1’ wordt afgedrukt…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
    <message>
        <source>Cannot write &quot;%1&quot;: %2.</source>
        <translation>Kan ‘%1’ niet schrijven: %2.</translation>
    </message>
    <message>
        <source>Export as HTML</source>
        <translation>Exporteren als HTML</translation>
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
        <translation>Het opslaan van ‘%1’ is afgebroken. De vorige inhoud staat in ‘%2’, maar kan hier niet worden hersteld: %3.</translation>
    </message>
    <message>
        <source>A save of &quot;%1&quot; was cut short at %2, and it may hold only a part of its text. Restore what it held before that save? What you do not choose is kept as &quot;%3&quot;.</source>
        <translation>Het opslaan van ‘%1’ is afgebroken op %2, en het bevat misschien maar een deel van de tekst. De inhoud van daarvoor herstellen? Wat u niet kiest, blijft bewaard als ‘%3’.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was changed by another program after it was read here. Overwrite those changes?</source>
        <translation>‘%1’ is door een ander programma gewijzigd nadat het hier werd gelezen. Die wijzigingen overschrijven?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be read to see whether another program changed it: %2. Overwrite it?</source>
        <translation>‘%1’ kan niet worden gelezen om te zien of een ander programma het heeft gewijzigd: %2. Overschrijven?</translation>
    </message>
    <message>
        <source>You have no right to write &quot;%1&quot;, but you may put another file in its place. Replace it?</source>
        <translation>U mag ‘%1’ niet schrijven, maar u mag er een ander bestand voor in de plaats zetten. Vervangen?</translation>
    </message>
    <message>
        <source>The line endings of &quot;%1&quot; are mixed. All of them will be written as %2. Save it?</source>
        <translation>De regeleinden van ‘%1’ zijn gemengd. Ze worden allemaal als %2 geschreven. Opslaan?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is saved, but it lost %2.</source>
        <translation>‘%1’ is opgeslagen, maar verloor %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not saved: %2</source>
        <translation>‘%1’ is niet opgeslagen: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not restored: %2</source>
        <translation>‘%1’ is niet hersteld: %2</translation>
    </message>
</context>
<context>
    <name>SideFile</name>
    <message>
        <source>it belongs to the user %1</source>
        <translation>de eigenaar is %1</translation>
    </message>
</context>
<context>
    <name>TConflictDialog</name>
    <message>
        <source>Changed by someone else</source>
        <translation>Door iemand anders gewijzigd</translation>
    </message>
    <message>
        <source>The record &quot;%1&quot; was changed by someone else since it was read here. Nothing was written yet.</source>
        <translation>Het record ‘%1’ is door iemand anders gewijzigd sinds het hier werd gelezen. Er is nog niets geschreven.</translation>
    </message>
    <message>
        <source>Write &amp;mine</source>
        <translation>&amp;Mijn versie schrijven</translation>
    </message>
    <message>
        <source>Take &amp;theirs</source>
        <translation>&amp;Andere versie overnemen</translation>
    </message>
    <message>
        <source>&amp;Go on editing</source>
        <translation>&amp;Doorgaan met bewerken</translation>
    </message>
    <message>
        <source>M&amp;ine:</source>
        <translation>M&amp;ijn versie:</translation>
    </message>
    <message>
        <source>T&amp;heirs:</source>
        <translation>Ande&amp;re versie:</translation>
    </message>
</context>
<context>
    <name>TDbDocument</name>
    <message>
        <source>Records</source>
        <translation>Records</translation>
    </message>
    <message>
        <source>F&amp;irst</source>
        <translation>&amp;Eerste</translation>
    </message>
    <message>
        <source>P&amp;rior</source>
        <translation>Vo&amp;rige</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>Vol&amp;gende</translation>
    </message>
    <message>
        <source>&amp;Last</source>
        <translation>&amp;Laatste</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>Verwij&amp;deren…</translation>
    </message>
    <message>
        <source>&amp;Fields…</source>
        <translation>&amp;Velden…</translation>
    </message>
    <message>
        <source>&amp;Post</source>
        <translation>Op&amp;slaan</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuleren</translation>
    </message>
    <message>
        <source>R&amp;efresh</source>
        <translation>Ver&amp;nieuwen</translation>
    </message>
    <message>
        <source>Post the changes to the record &quot;%1&quot;? &quot;No&quot; discards them.</source>
        <translation>De wijzigingen van het record ‘%1’ opslaan? ‘Nee’ verwerpt ze.</translation>
    </message>
    <message>
        <source>New record</source>
        <translation>Nieuw record</translation>
    </message>
    <message>
        <source>Record %1 of %2</source>
        <translation>Record %1 van %2</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nieuw</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Gesloten</translation>
    </message>
    <message>
        <source>Browsing</source>
        <translation>Bladeren</translation>
    </message>
    <message>
        <source>Editing</source>
        <translation>Bewerken</translation>
    </message>
    <message>
        <source>Inserting</source>
        <translation>Invoegen</translation>
    </message>
    <message>
        <source>Cannot go to another record: %1</source>
        <translation>Kan niet naar een ander record gaan: %1</translation>
    </message>
    <message>
        <source>Cannot insert a record: %1</source>
        <translation>Kan geen record invoegen: %1</translation>
    </message>
    <message>
        <source>Cannot change the fields: %1</source>
        <translation>Kan de velden niet wijzigen: %1</translation>
    </message>
    <message>
        <source>Delete the record &quot;%1&quot;? This cannot be undone.</source>
        <translation>Het record ‘%1’ verwijderen? Dit kan niet ongedaan worden gemaakt.</translation>
    </message>
    <message>
        <source>The record was not deleted: %1</source>
        <translation>Het record is niet verwijderd: %1</translation>
    </message>
    <message>
        <source>The record was not posted: %1
Its text stays in the editor; post it again later, or cancel.</source>
        <translation>Het record is niet opgeslagen: %1
De tekst blijft in de editor; sla het later opnieuw op, of annuleer.</translation>
    </message>
    <message>
        <source>Cannot read the records: %1</source>
        <translation>Kan de records niet lezen: %1</translation>
    </message>
    <message>
        <source>In&amp;sert…</source>
        <translation>&amp;Invoegen…</translation>
    </message>
</context>
<context>
    <name>TDbFieldsDialog</name>
    <message>
        <source>Fields of the record</source>
        <translation>Velden van het record</translation>
    </message>
</context>
<context>
    <name>TDbOpenDialog</name>
    <message>
        <source>Open a database</source>
        <translation>Een database openen</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>&amp;Bestand:</translation>
    </message>
    <message>
        <source>&amp;Table:</source>
        <translation>&amp;Tabel:</translation>
    </message>
    <message>
        <source>Fi&amp;eld to edit:</source>
        <translation>&amp;Veld om te bewerken:</translation>
    </message>
    <message>
        <source>&amp;Key:</source>
        <translation>&amp;Sleutel:</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>Bla&amp;deren…</translation>
    </message>
    <message>
        <source>SQLite databases (*.sqlite *.sqlite3 *.db *.db3);;All files (*)</source>
        <translation>SQLite-databases (*.sqlite *.sqlite3 *.db *.db3);;Alle bestanden (*)</translation>
    </message>
    <message>
        <source>This database has no tables.</source>
        <translation>Deze database heeft geen tabellen.</translation>
    </message>
    <message>
        <source>the table&apos;s primary key</source>
        <translation>de primaire sleutel van de tabel</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Bestand</translation>
    </message>
</context>
<context>
    <name>TDocument</name>
    <message>
        <source>Save the changes to &quot;%1&quot;?</source>
        <translation>De wijzigingen in ‘%1’ opslaan?</translation>
    </message>
    <message>
        <source>Line %1, column %2</source>
        <translation>Regel %1, kolom %2</translation>
    </message>
    <message>
        <source>%1 with byte-order mark</source>
        <translation>%1 met bytevolgordemarkering</translation>
    </message>
    <message>
        <source>+BOM</source>
        <translation>+BOM</translation>
    </message>
    <message>
        <source>%1, mixed</source>
        <translation>%1, gemengd</translation>
    </message>
    <message>
        <source>Mixed</source>
        <translation>Gemengd</translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation>Fout: %1</translation>
    </message>
    <message>
        <source>Warning: %1</source>
        <translation>Waarschuwing: %1</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Opmerking: %1</translation>
    </message>
    <message>
        <source>Cannot open &quot;%1&quot;: %2</source>
        <translation>Kan ‘%1’ niet openen: %2</translation>
    </message>
</context>
<context>
    <name>TEventDialog</name>
    <message>
        <source>New event handler</source>
        <translation>Nieuwe gebeurtenisafhandeling</translation>
    </message>
    <message>
        <source>&amp;Events of the sample form</source>
        <translation>&amp;Gebeurtenissen van het voorbeeldformulier</translation>
    </message>
    <message>
        <source>&amp;Methods in the text that fit</source>
        <translation>Passende &amp;methoden in de tekst</translation>
    </message>
    <message>
        <source>Insert at the &amp;caret</source>
        <translation>Invoegen bij de &amp;cursor</translation>
    </message>
    <message>
        <source>&amp;Go to the method</source>
        <translation>&amp;Naar de methode gaan</translation>
    </message>
    <message>
        <source>Line %1 has a method of this name.</source>
        <translation>Regel %1 heeft een methode met deze naam.</translation>
    </message>
    <message>
        <source>Insert at the e&amp;nd</source>
        <translation>Invoegen aan het &amp;einde</translation>
    </message>
    <message>
        <source>What will be inserted</source>
        <translation>Wat wordt ingevoegd</translation>
    </message>
</context>
<context>
    <name>TMainWindow</name>
    <message>
        <source>New text</source>
        <translation>Nieuwe tekst</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>Openen…</translation>
    </message>
    <message>
        <source>Open database…</source>
        <translation>Database openen…</translation>
    </message>
    <message>
        <source>Untitled %1</source>
        <translation>Naamloos %1</translation>
    </message>
    <message>
        <source>What is changed would not come back after a crash: %1</source>
        <translation>Wijzigingen zouden na een crash niet terugkomen: %1</translation>
    </message>
    <message>
        <source>Cannot open &quot;%1&quot;: %2</source>
        <translation>Kan ‘%1’ niet openen: %2</translation>
    </message>
    <message>
        <source>Open files</source>
        <translation>Bestanden openen</translation>
    </message>
    <message>
        <source>%1 is saved</source>
        <translation>%1 is opgeslagen</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Opslaan als</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is open in another tab.</source>
        <translation>‘%1’ is geopend op een ander tabblad.</translation>
    </message>
    <message>
        <source>Give up the changes to &quot;%1&quot; and read it again?</source>
        <translation>De wijzigingen in ‘%1’ verwerpen en opnieuw lezen?</translation>
    </message>
    <message>
        <source>Load diagnostics</source>
        <translation>Diagnoses laden</translation>
    </message>
    <message>
        <source>Diagnostics: %1, of files: %2</source>
        <translation>Diagnoses: %1, bestanden: %2</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Nieuw</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Openen…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>Op&amp;slaan</translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation>Opslaan &amp;als…</translation>
    </message>
    <message>
        <source>Save a&amp;ll</source>
        <translation>A&amp;lles opslaan</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <translation>&amp;Herladen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Sl&amp;uiten</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>A&amp;fsluiten</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Bestand</translation>
    </message>
    <message>
        <source>Select to &amp;bracket	Ctrl+Shift+M</source>
        <translation>&amp;Selecteren tot haakje	Ctrl+Shift+M</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>Be&amp;werken</translation>
    </message>
    <message>
        <source>Go to brac&amp;ket	Ctrl+M</source>
        <translation>Ga naar &amp;haakje	Ctrl+M</translation>
    </message>
    <message>
        <source>&amp;Toggle bookmark	Ctrl+F2</source>
        <translation>&amp;Bladwijzer aan/uit	Ctrl+F2</translation>
    </message>
    <message>
        <source>Next &amp;bookmark	F2</source>
        <translation>Volgend&amp;e bladwijzer	F2</translation>
    </message>
    <message>
        <source>Pre&amp;vious bookmark	Shift+F2</source>
        <translation>Vorige blad&amp;wijzer	Shift+F2</translation>
    </message>
    <message>
        <source>Next &amp;diagnostic	F8</source>
        <translation>Volgende &amp;diagnose	F8</translation>
    </message>
    <message>
        <source>Previous d&amp;iagnostic	Shift+F8</source>
        <translation>Vorige diag&amp;nose	Shift+F8</translation>
    </message>
    <message>
        <source>&amp;Load diagnostics…</source>
        <translation>Diagnoses l&amp;aden…</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>&amp;Zoeken</translation>
    </message>
    <message>
        <source>Zoom in	Ctrl++</source>
        <translation>Inzoomen	Ctrl++</translation>
    </message>
    <message>
        <source>Zoom out	Ctrl+-</source>
        <translation>Uitzoomen	Ctrl+-</translation>
    </message>
    <message>
        <source>Usual size	Ctrl+0</source>
        <translation>Normale grootte	Ctrl+0</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>Bee&amp;ld</translation>
    </message>
    <message>
        <source>New event &amp;handler…</source>
        <translation>Nieuwe &amp;gebeurtenisafhandeling…</translation>
    </message>
    <message>
        <source>&amp;All methods…</source>
        <translation>&amp;Alle methoden…</translation>
    </message>
    <message>
        <source>&amp;Methods</source>
        <translation>&amp;Methoden</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>regel %1</translation>
    </message>
    <message>
        <source>&amp;Database</source>
        <translation>&amp;Database</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Taal</translation>
    </message>
    <message>
        <source>%1 is written</source>
        <translation>%1 is geschreven</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>Afdru&amp;kken…</translation>
    </message>
    <message>
        <source>Print pre&amp;view…</source>
        <translation>Afdruk&amp;voorbeeld…</translation>
    </message>
    <message>
        <source>&amp;Export as HTML…</source>
        <translation>&amp;Exporteren als HTML…</translation>
    </message>
</context>
<context>
    <name>TMethodListDialog</name>
    <message>
        <source>%1, line %2</source>
        <translation>%1, regel %2</translation>
    </message>
    <message>
        <source>Methods</source>
        <translation>Methoden</translation>
    </message>
    <message>
        <source>Part of the name</source>
        <translation>Deel van de naam</translation>
    </message>
    <message>
        <source>Methods: %1</source>
        <translation>Methoden: %1</translation>
    </message>
    <message>
        <source>Methods: %1 of %2</source>
        <translation>Methoden: %1 van %2</translation>
    </message>
    <message>
        <source>%1; %2 % of the text has been read</source>
        <translation>%1; %2&#xa0;% van de tekst is gelezen</translation>
    </message>
</context>
<context>
    <name>TRestoreDialog</name>
    <message>
        <source>Restore</source>
        <translation>Herstellen</translation>
    </message>
    <message>
        <source>What would come &amp;back:</source>
        <translation>Wat &amp;terug zou komen:</translation>
    </message>
    <message>
        <source>What would come back</source>
        <translation>Wat terug zou komen</translation>
    </message>
    <message>
        <source>in the file</source>
        <translation>in het bestand</translation>
    </message>
    <message>
        <source>restored</source>
        <translation>hersteld</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Herstellen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Later</translation>
    </message>
    <message>
        <source>&amp;Discard…</source>
        <translation>&amp;Verwerpen…</translation>
    </message>
</context>
<context>
    <name>TStartPage</name>
    <message>
        <source>or drop files here</source>
        <translation>of zet bestanden hier neer</translation>
    </message>
</context>
<context>
    <name>TViewMenu</name>
    <message>
        <source>Colour &amp;scheme</source>
        <translation>Kle&amp;urenschema</translation>
    </message>
    <message>
        <source>&amp;Follow the desktop</source>
        <translation>&amp;Bureaublad volgen</translation>
    </message>
</context>
<context>
    <name>Tokens</name>
    <message>
        <source>&quot;%1&quot; is in no language that has tokens.</source>
        <translation>‘%1’ is in geen taal die tokens heeft.</translation>
    </message>
    <message>
        <source>Cannot print the tokens: %1.</source>
        <translation>Kan de tokens niet afdrukken: %1.</translation>
    </message>
</context>
<context>
    <name>View</name>
    <message>
        <source>&amp;Gutter</source>
        <translation>&amp;Kantlijn</translation>
    </message>
    <message>
        <source>&amp;Line numbers</source>
        <translation>&amp;Regelnummers</translation>
    </message>
    <message>
        <source>&amp;Bookmarks</source>
        <translation>&amp;Bladwijzers</translation>
    </message>
    <message>
        <source>&amp;Changed lines</source>
        <translation>&amp;Gewijzigde regels</translation>
    </message>
    <message>
        <source>&amp;Diagnostics</source>
        <translation>&amp;Diagnoses</translation>
    </message>
    <message>
        <source>&amp;Overview ruler</source>
        <translation>&amp;Overzichtsbalk</translation>
    </message>
    <message>
        <source>C&amp;urrent line</source>
        <translation>&amp;Huidige regel</translation>
    </message>
    <message>
        <source>&amp;Right margin</source>
        <translation>Re&amp;chterkantlijn</translation>
    </message>
    <message>
        <source>&amp;Indentation guides</source>
        <translation>&amp;Inspringlijnen</translation>
    </message>
    <message>
        <source>Bl&amp;anks</source>
        <translation>&amp;Spaties</translation>
    </message>
    <message>
        <source>Selected bla&amp;nks</source>
        <translation>G&amp;eselecteerde spaties</translation>
    </message>
    <message>
        <source>Pairs of brac&amp;kets</source>
        <translation>H&amp;aakjesparen</translation>
    </message>
    <message>
        <source>&amp;Matches of the search</source>
        <translation>&amp;Zoekresultaten</translation>
    </message>
    <message>
        <source>&amp;Word at the caret</source>
        <translation>&amp;Woord bij de cursor</translation>
    </message>
    <message>
        <source>&amp;Pairs while typing</source>
        <translation>&amp;Paren bij het typen</translation>
    </message>
    <message>
        <source>&amp;Zoom by wheel and keys</source>
        <translation>Zoo&amp;men met wiel en toetsen</translation>
    </message>
    <message>
        <source>&amp;Fine scrolling</source>
        <translation>&amp;Fijn schuiven</translation>
    </message>
    <message>
        <source>Drag and drop of &amp;text</source>
        <translation>&amp;Tekst slepen en neerzetten</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Cannot make a file in &quot;%1&quot;: %2.</source>
        <translation>Kan geen bestand maken in ‘%1’: %2.</translation>
    </message>
    <message>
        <source>You have no right to write &quot;%1&quot;.</source>
        <translation>U mag ‘%1’ niet schrijven.</translation>
    </message>
    <message>
        <source>The window is drawn in %1</source>
        <translation>Het venster is getekend in %1</translation>
    </message>
    <message>
        <source>%1 is made</source>
        <translation>%1 is gemaakt</translation>
    </message>
    <message>
        <source>%1 is written</source>
        <translation>%1 is geschreven</translation>
    </message>
</context>
</TS>
