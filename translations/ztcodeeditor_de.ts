<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ColorScheme</name>
    <message>
        <source>A scheme has to be an object.</source>
        <translation>Ein Farbschema muss ein Objekt sein.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be true or false.</source>
        <translation>„%1“ muss true oder false sein.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be a text in quotes.</source>
        <translation>„%1“ muss ein Text in Anführungszeichen sein.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be an object.</source>
        <translation>„%1“ muss ein Objekt sein.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no colour of the form &quot;#rrggbb&quot;.</source>
        <translation>„%1“ ist keine Farbe der Form „#rrggbb“.</translation>
    </message>
    <message>
        <source>There is no key &quot;%1&quot;.</source>
        <translation>Es gibt keinen Schlüssel „%1“.</translation>
    </message>
    <message>
        <source>The name is empty.</source>
        <translation>Der Name ist leer.</translation>
    </message>
    <message>
        <source>There is no scheme &quot;%1&quot; that could be extended.</source>
        <translation>Es gibt kein Farbschema „%1“, das erweitert werden könnte.</translation>
    </message>
    <message>
        <source>There is no part of the view &quot;%1&quot;.</source>
        <translation>Es gibt keinen Teil der Ansicht „%1“.</translation>
    </message>
    <message>
        <source>There is no language &quot;%1&quot;.</source>
        <translation>Es gibt keine Sprache „%1“.</translation>
    </message>
    <message>
        <source>There is no element &quot;%1&quot;.</source>
        <translation>Es gibt kein Element „%1“.</translation>
    </message>
    <message>
        <source>There is no property of a style &quot;%1&quot;.</source>
        <translation>Es gibt keine Stileigenschaft „%1“.</translation>
    </message>
    <message>
        <source>The scheme has no &quot;name&quot;.</source>
        <translation>Das Farbschema hat kein „name“.</translation>
    </message>
    <message>
        <source>There is no colour for &quot;%1&quot;.</source>
        <translation>Es gibt keine Farbe für „%1“.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Die Datei ist zu groß.</translation>
    </message>
</context>
<context>
    <name>DataSet</name>
    <message>
        <source>The dataset is closed.</source>
        <translation>Die Datenmenge ist geschlossen.</translation>
    </message>
    <message>
        <source>The dataset is not in edit or insert state.</source>
        <translation>Die Datenmenge ist nicht im Bearbeitungs- oder Einfügemodus.</translation>
    </message>
    <message>
        <source>The dataset is read-only.</source>
        <translation>Die Datenmenge ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The dataset has no records.</source>
        <translation>Die Datenmenge hat keine Datensätze.</translation>
    </message>
    <message>
        <source>The dataset has no model.</source>
        <translation>Die Datenmenge hat kein Modell.</translation>
    </message>
    <message>
        <source>There is no field with the index %1.</source>
        <translation>Es gibt kein Feld mit dem Index %1.</translation>
    </message>
    <message>
        <source>There is no field &quot;%1&quot;.</source>
        <translation>Es gibt kein Feld „%1“.</translation>
    </message>
    <message>
        <source>There is no record with the number %1.</source>
        <translation>Es gibt keinen Datensatz mit der Nummer %1.</translation>
    </message>
    <message>
        <source>The field &quot;%1&quot; is read-only.</source>
        <translation>Das Feld „%1“ ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no value for the field &quot;%2&quot;.</source>
        <translation>„%1“ ist kein Wert für das Feld „%2“.</translation>
    </message>
    <message>
        <source>The data source is fixed.</source>
        <translation>Die Datenquelle steht fest.</translation>
    </message>
    <message>
        <source>The field &quot;%1&quot; takes no value.</source>
        <translation>Das Feld „%1“ nimmt keinen Wert an.</translation>
    </message>
    <message>
        <source>The record was changed by someone else since it was read.</source>
        <translation>Der Datensatz wurde von jemand anderem geändert, seit er gelesen wurde.</translation>
    </message>
    <message>
        <source>There is no table &quot;%1&quot;.</source>
        <translation>Es gibt keine Tabelle „%1“.</translation>
    </message>
    <message>
        <source>A view is read-only.</source>
        <translation>Eine Sicht ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The record was removed or changed by someone else.</source>
        <translation>Der Datensatz wurde von jemand anderem entfernt oder geändert.</translation>
    </message>
    <message>
        <source>The record cannot be told from another one: the table has no key.</source>
        <translation>Der Datensatz lässt sich nicht von einem anderen unterscheiden: Die Tabelle hat keinen Schlüssel.</translation>
    </message>
    <message>
        <source>The records were not all read: %1</source>
        <translation>Es wurden nicht alle Datensätze gelesen: %1</translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>&quot;%1&quot; is no journal.</source>
        <translation>„%1“ ist kein Änderungsprotokoll.</translation>
    </message>
</context>
<context>
    <name>Json</name>
    <message>
        <source>The name &quot;%1&quot; is there twice.</source>
        <translation>Der Name „%1“ kommt zweimal vor.</translation>
    </message>
    <message>
        <source>The text begins with a byte order mark.</source>
        <translation>Der Text beginnt mit einer Bytereihenfolge-Markierung.</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>Plain text</source>
        <translation>Nur Text</translation>
    </message>
    <message>
        <source>A language needs a name and a way to make its lexer.</source>
        <translation>Eine Sprache braucht einen Namen und einen Weg, ihren Lexer anzulegen.</translation>
    </message>
</context>
<context>
    <name>LossQuestion</name>
    <message>
        <source>%1 cannot hold all characters of &quot;%2&quot;; the first is %3 in line %4, column %5. Save it as %6 instead?</source>
        <translation>%1 kann nicht alle Zeichen von „%2“ aufnehmen; das erste ist %3 in Zeile %4, Spalte %5. Stattdessen als %6 speichern?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot hold all characters of the text; the first is %2 in line %3, column %4. Store a replacement character (U+FFFD) for each?</source>
        <translation>„%1“ kann nicht alle Zeichen des Textes aufnehmen; das erste ist %2 in Zeile %3, Spalte %4. Für jedes ein Ersatzzeichen (U+FFFD) speichern?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; holds bytes that are no %2 text. A replacement character (U+FFFD) will be written for each. Save it?</source>
        <translation>„%1“ enthält Bytes, die kein %2-Text sind. Für jedes wird ein Ersatzzeichen (U+FFFD) geschrieben. Speichern?</translation>
    </message>
</context>
<context>
    <name>TFrmCodeEditSearchReplaceDlg</name>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>&amp;Text to find:</source>
        <translation>&amp;Suchen nach:</translation>
    </message>
    <message>
        <source>&amp;Case sensitive</source>
        <translation>&amp;Groß-/Kleinschreibung</translation>
    </message>
    <message>
        <source>&amp;Whole words only</source>
        <translation>Nur ganze &amp;Wörter</translation>
    </message>
    <message>
        <source>&amp;Scope</source>
        <translation>&amp;Bereich</translation>
    </message>
    <message>
        <source>&amp;Global</source>
        <translation>Gesamter &amp;Text</translation>
    </message>
    <message>
        <source>Se&amp;lected text</source>
        <translation>A&amp;usgewählter Text</translation>
    </message>
    <message>
        <source>&amp;Direction</source>
        <translation>&amp;Richtung</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Vorwärts</translation>
    </message>
    <message>
        <source>&amp;Backward</source>
        <translation>Rüc&amp;kwärts</translation>
    </message>
    <message>
        <source>Or&amp;igin</source>
        <translation>Begi&amp;nn</translation>
    </message>
    <message>
        <source>Fro&amp;m cursor</source>
        <translation>Ab &amp;Cursor</translation>
    </message>
    <message>
        <source>&amp;Entire scope</source>
        <translation>Gan&amp;zer Bereich</translation>
    </message>
    <message>
        <source>&amp;Replace with:</source>
        <translation>&amp;Ersetzen durch:</translation>
    </message>
    <message>
        <source>&amp;Prompt on replace</source>
        <translation>Vor Ersetzen &amp;fragen</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Ca&amp;ncel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Replace &amp;All</source>
        <translation>A&amp;lle ersetzen</translation>
    </message>
    <message>
        <source>Replace Text</source>
        <translation>Suchen und Ersetzen</translation>
    </message>
    <message>
        <source>Find Text</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>TStringList</name>
    <message>
        <source>A line of %1 characters is too long; it may have %2.</source>
        <translation>Eine Zeile mit %1 Zeichen ist zu lang; sie darf %2 haben.</translation>
    </message>
    <message>
        <source>A text holds at most %1 lines.</source>
        <translation>Ein Text hat höchstens %1 Zeilen.</translation>
    </message>
</context>
<context>
    <name>TZtAccessibleEdit</name>
    <message>
        <source>Source code</source>
        <translation>Quelltext</translation>
    </message>
</context>
<context>
    <name>TZtAccessibleText</name>
    <message>
        <source>Error: %1</source>
        <translation>Fehler: %1</translation>
    </message>
    <message>
        <source>Warning: %1</source>
        <translation>Warnung: %1</translation>
    </message>
    <message>
        <source>Information: %1</source>
        <translation>Information: %1</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>Lesezeichen</translation>
    </message>
    <message>
        <source>Breakpoint</source>
        <translation>Haltepunkt</translation>
    </message>
    <message>
        <source>Next statement</source>
        <translation>Nächste Anweisung</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
</context>
<context>
    <name>TZtCodeEdit</name>
    <message>
        <source>The search went on from the start.</source>
        <translation>Die Suche wurde am Anfang fortgesetzt.</translation>
    </message>
    <message>
        <source>The search went on from the end.</source>
        <translation>Die Suche wurde am Ende fortgesetzt.</translation>
    </message>
    <message>
        <source>Search string &apos;%1&apos; not found.</source>
        <translation>Der Suchtext „%1“ wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>Do you want to replace this occurrence of &apos;%1&apos;?</source>
        <translation>Möchten Sie dieses Vorkommen von „%1“ ersetzen?</translation>
    </message>
    <message numerus="yes">
        <source>%n occurrence(s) replaced.</source>
        <translation>
            <numerusform>%n Vorkommen ersetzt.</numerusform>
            <numerusform>%n Vorkommen ersetzt.</numerusform>
        </translation>
    </message>
    <message>
        <source>There is no language &quot;%1&quot;.</source>
        <translation>Es gibt keine Sprache „%1“.</translation>
    </message>
</context>
<context>
    <name>TZtDbCodeEdit</name>
    <message>
        <source>&quot;%1&quot; was given another value while its text was changed here. Replace that value by the text?</source>
        <translation>„%1“ bekam einen anderen Wert, während der Text hier geändert wurde. Diesen Wert durch den Text ersetzen?</translation>
    </message>
</context>
<context>
    <name>TZtEditActions</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>Alles a&amp;uswählen</translation>
    </message>
    <message>
        <source>&amp;Find…</source>
        <translation>&amp;Suchen…</translation>
    </message>
    <message>
        <source>R&amp;eplace…</source>
        <translation>Erse&amp;tzen…</translation>
    </message>
    <message>
        <source>Find &amp;next</source>
        <translation>Weitersu&amp;chen</translation>
    </message>
    <message>
        <source>Find &amp;previous</source>
        <translation>Rückwärts weitersuc&amp;hen</translation>
    </message>
    <message>
        <source>&amp;Go to line…</source>
        <translation>&amp;Gehe zu Zeile…</translation>
    </message>
    <message>
        <source>Go to line</source>
        <translation>Gehe zu Zeile</translation>
    </message>
    <message>
        <source>Line (1 to %1):</source>
        <translation>Zeile (1 bis %1):</translation>
    </message>
</context>
<context>
    <name>TZtOverviewRuler</name>
    <message>
        <source>Overview</source>
        <translation>Übersicht</translation>
    </message>
</context>
<context>
    <name>TZtPrintOptions</name>
    <message>
        <source>There is no such page to print.</source>
        <translation>Diese Seite gibt es nicht zu drucken.</translation>
    </message>
    <message>
        <source>The text cannot be printed there.</source>
        <translation>Der Text kann dort nicht gedruckt werden.</translation>
    </message>
    <message>
        <source>There is no new page to print on.</source>
        <translation>Es gibt keine neue Seite zum Drucken.</translation>
    </message>
    <message>
        <source>Page {page} of {pages}</source>
        <translation>Seite {page} von {pages}</translation>
    </message>
</context>
<context>
    <name>TZtStringStream</name>
    <message>
        <source>Cannot read &quot;%1&quot;: %2.</source>
        <translation>„%1“ kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>es ist nicht genug Speicher vorhanden</translation>
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
        <source>There is no code page %1.</source>
        <translation>Es gibt keine Codepage %1.</translation>
    </message>
</context>
<context>
    <name>ZtHtmlExport</name>
    <message>
        <source>The text cannot be written: %1.</source>
        <translation>Der Text kann nicht geschrieben werden: %1.</translation>
    </message>
</context>
<context>
    <name>ZtPlatform</name>
    <message>
        <source>There is not enough memory.</source>
        <translation>Es ist nicht genug Speicher vorhanden.</translation>
    </message>
    <message>
        <source>Something unknown went wrong.</source>
        <translation>Ein unbekannter Fehler ist aufgetreten.</translation>
    </message>
</context>
</TS>
