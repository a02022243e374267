<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nl" sourcelanguage="en">
<context>
    <name>ColorScheme</name>
    <message>
        <source>A scheme has to be an object.</source>
        <translation>Een kleurenschema moet een object zijn.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be true or false.</source>
        <translation>‘%1’ moet true of false zijn.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be a text in quotes.</source>
        <translation>‘%1’ moet een tekst tussen aanhalingstekens zijn.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be an object.</source>
        <translation>‘%1’ moet een object zijn.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no colour of the form &quot;#rrggbb&quot;.</source>
        <translation>‘%1’ is geen kleur van de vorm ‘#rrggbb’.</translation>
    </message>
    <message>
        <source>There is no key &quot;%1&quot;.</source>
        <translation>Er is geen sleutel ‘%1’.</translation>
    </message>
    <message>
        <source>The name is empty.</source>
        <translation>De naam is leeg.</translation>
    </message>
    <message>
        <source>There is no scheme &quot;%1&quot; that could be extended.</source>
        <translation>Er is geen kleurenschema ‘%1’ dat kan worden uitgebreid.</translation>
    </message>
    <message>
        <source>There is no part of the view &quot;%1&quot;.</source>
        <translation>Er is geen deel van de weergave ‘%1’.</translation>
    </message>
    <message>
        <source>There is no language &quot;%1&quot;.</source>
        <translation>Er is geen taal ‘%1’.</translation>
    </message>
    <message>
        <source>There is no element &quot;%1&quot;.</source>
        <translation>Er is geen element ‘%1’.</translation>
    </message>
    <message>
        <source>There is no property of a style &quot;%1&quot;.</source>
        <translation>Er is geen stijleigenschap ‘%1’.</translation>
    </message>
    <message>
        <source>The scheme has no &quot;name&quot;.</source>
        <translation>Het kleurenschema heeft geen ‘name’.</translation>
    </message>
    <message>
        <source>There is no colour for &quot;%1&quot;.</source>
        <translation>Er is geen kleur voor ‘%1’.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Het bestand is te groot.</translation>
    </message>
</context>
<context>
    <name>DataSet</name>
    <message>
        <source>The dataset is closed.</source>
        <translation>De gegevensset is gesloten.</translation>
    </message>
    <message>
        <source>The dataset is not in edit or insert state.</source>
        <translation>De gegevensset is niet in bewerk- of invoegmodus.</translation>
    </message>
    <message>
        <source>The dataset is read-only.</source>
        <translation>De gegevensset is alleen-lezen.</translation>
    </message>
    <message>
        <source>The dataset has no records.</source>
        <translation>De gegevensset heeft geen records.</translation>
    </message>
    <message>
        <source>The dataset has no model.</source>
        <translation>De gegevensset heeft geen model.</translation>
    </message>
    <message>
        <source>There is no field with the index %1.</source>
        <translation>Er is geen veld met de index %1.</translation>
    </message>
    <message>
        <source>There is no field &quot;%1&quot;.</source>
        <translation>Er is geen veld ‘%1’.</translation>
    </message>
    <message>
        <source>There is no record with the number %1.</source>
        <translation>Er is geen record met het nummer %1.</translation>
    </message>
    <message>
        <source>The field &quot;%1&quot; is read-only.</source>
        <translation>Het veld ‘%1’ is alleen-lezen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no value for the field &quot;%2&quot;.</source>
        <translation>‘%1’ is geen waarde voor het veld ‘%2’.</translation>
    </message>
    <message>
        <source>The data source is fixed.</source>
        <translation>De gegevensbron staat vast.</translation>
    </message>
    <message>
        <source>The field &quot;%1&quot; takes no value.</source>
        <translation>Het veld ‘%1’ neemt geen waarde aan.</translation>
    </message>
    <message>
        <source>The record was changed by someone else since it was read.</source>
        <translation>Het record is door iemand anders gewijzigd sinds het werd gelezen.</translation>
    </message>
    <message>
        <source>There is no table &quot;%1&quot;.</source>
        <translation>Er is geen tabel ‘%1’.</translation>
    </message>
    <message>
        <source>A view is read-only.</source>
        <translation>Een view is alleen-lezen.</translation>
    </message>
    <message>
        <source>The record was removed or changed by someone else.</source>
        <translation>Het record is door iemand anders verwijderd of gewijzigd.</translation>
    </message>
    <message>
        <source>The record cannot be told from another one: the table has no key.</source>
        <translation>Het record is niet van een ander te onderscheiden: de tabel heeft geen sleutel.</translation>
    </message>
    <message>
        <source>The records were not all read: %1</source>
        <translation>Niet alle records zijn gelezen: %1</translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>&quot;%1&quot; is no journal.</source>
        <translation>‘%1’ is geen wijzigingslogboek.</translation>
    </message>
</context>
<context>
    <name>Json</name>
    <message>
        <source>The name &quot;%1&quot; is there twice.</source>
        <translation>De naam ‘%1’ komt twee keer voor.</translation>
    </message>
    <message>
        <source>The text begins with a byte order mark.</source>
        <translation>De tekst begint met een bytevolgordemarkering.</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>Plain text</source>
        <translation>Platte tekst</translation>
    </message>
    <message>
        <source>A language needs a name and a way to make its lexer.</source>
        <translation>Een taal heeft een naam nodig en een manier om zijn lexer te maken.</translation>
    </message>
</context>
<context>
    <name>LossQuestion</name>
    <message>
        <source>%1 cannot hold all characters of &quot;%2&quot;; the first is %3 in line %4, column %5. Save it as %6 instead?</source>
        <translation>%1 kan niet alle tekens van ‘%2’ bevatten; het eerste is %3 in regel %4, kolom %5. In plaats daarvan opslaan als %6?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot hold all characters of the text; the first is %2 in line %3, column %4. Store a replacement character (U+FFFD) for each?</source>
        <translation>‘%1’ kan niet alle tekens van de tekst bevatten; het eerste is %2 in regel %3, kolom %4. Voor elk een vervangingsteken (U+FFFD) opslaan?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; holds bytes that are no %2 text. A replacement character (U+FFFD) will be written for each. Save it?</source>
        <translation>‘%1’ bevat bytes die geen %2-tekst zijn. Voor elk wordt een vervangingsteken (U+FFFD) geschreven. Opslaan?</translation>
    </message>
</context>
<context>
    <name>TFrmCodeEditSearchReplaceDlg</name>
    <message>
        <source>Find</source>
        <translation>Zoeken</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Vervangen</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Opties</translation>
    </message>
    <message>
        <source>&amp;Text to find:</source>
        <translation>&amp;Zoeken naar:</translation>
    </message>
    <message>
        <source>&amp;Case sensitive</source>
        <translation>&amp;Hoofdlettergevoelig</translation>
    </message>
    <message>
        <source>&amp;Whole words only</source>
        <translation>Alleen hele &amp;woorden</translation>
    </message>
    <message>
        <source>&amp;Scope</source>
        <translation>Berei&amp;k</translation>
    </message>
    <message>
        <source>&amp;Global</source>
        <translation>Hele &amp;tekst</translation>
    </message>
    <message>
        <source>Se&amp;lected text</source>
        <translation>Ge&amp;selecteerde tekst</translation>
    </message>
    <message>
        <source>&amp;Direction</source>
        <translation>R&amp;ichting</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Vooruit</translation>
    </message>
    <message>
        <source>&amp;Backward</source>
        <translation>Achter&amp;uit</translation>
    </message>
    <message>
        <source>Or&amp;igin</source>
        <translation>Be&amp;gin</translation>
    </message>
    <message>
        <source>Fro&amp;m cursor</source>
        <translation>Vanaf &amp;cursor</translation>
    </message>
    <message>
        <source>&amp;Entire scope</source>
        <translation>H&amp;ele bereik</translation>
    </message>
    <message>
        <source>&amp;Replace with:</source>
        <translation>Ve&amp;rvangen door:</translation>
    </message>
    <message>
        <source>&amp;Prompt on replace</source>
        <translation>&amp;Bevestigen bij vervangen</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Ca&amp;ncel</source>
        <translation>&amp;Annuleren</translation>
    </message>
    <message>
        <source>Replace &amp;All</source>
        <translation>A&amp;lles vervangen</translation>
    </message>
    <message>
        <source>Replace Text</source>
        <translation>Zoeken en vervangen</translation>
    </message>
    <message>
        <source>Find Text</source>
        <translation>Zoeken</translation>
    </message>
</context>
<context>
    <name>TStringList</name>
    <message>
        <source>A line of %1 characters is too long; it may have %2.</source>
        <translation>Een regel van %1 tekens is te lang; hij mag er %2 hebben.</translation>
    </message>
    <message>
        <source>A text holds at most %1 lines.</source>
        <translation>Een tekst bevat hoogstens %1 regels.</translation>
    </message>
</context>
<context>
    <name>TZtAccessibleEdit</name>
    <message>
        <source>Source code</source>
        <translation>Broncode</translation>
    </message>
</context>
<context>
    <name>TZtAccessibleText</name>
    <message>
        <source>Error: %1</source>
        <translation>Fout: %1</translation>
    </message>
    <message>
        <source>Warning: %1</source>
        <translation>Waarschuwing: %1</translation>
    </message>
    <message>
        <source>Information: %1</source>
        <translation>Informatie: %1</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>Bladwijzer</translation>
    </message>
    <message>
        <source>Breakpoint</source>
        <translation>Breekpunt</translation>
    </message>
    <message>
        <source>Next statement</source>
        <translation>Volgende instructie</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fout</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Waarschuwing</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Informatie</translation>
    </message>
</context>
<context>
    <name>TZtCodeEdit</name>
    <message>
        <source>The search went on from the start.</source>
        <translation>Het zoeken is vanaf het begin voortgezet.</translation>
    </message>
    <message>
        <source>The search went on from the end.</source>
        <translation>Het zoeken is vanaf het einde voortgezet.</translation>
    </message>
    <message>
        <source>Search string &apos;%1&apos; not found.</source>
        <translation>De zoektekst ‘%1’ is niet gevonden.</translation>
    </message>
    <message>
        <source>Do you want to replace this occurrence of &apos;%1&apos;?</source>
        <translation>Wilt u dit voorkomen van ‘%1’ vervangen?</translation>
    </message>
    <message numerus="yes">
        <source>%n occurrence(s) replaced.</source>
        <translation>
            <numerusform>%n voorkomen vervangen.</numerusform>
            <numerusform>%n voorkomens vervangen.</numerusform>
        </translation>
    </message>
    <message>
        <source>There is no language &quot;%1&quot;.</source>
        <translation>Er is geen taal ‘%1’.</translation>
    </message>
</context>
<context>
    <name>TZtDbCodeEdit</name>
    <message>
        <source>&quot;%1&quot; was given another value while its text was changed here. Replace that value by the text?</source>
        <translation>‘%1’ kreeg een andere waarde terwijl de tekst hier werd gewijzigd. Die waarde door de tekst vervangen?</translation>
    </message>
</context>
<context>
    <name>TZtEditActions</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Ongedaan maken</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>Opnie&amp;uw</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>K&amp;nippen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopiëren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Plakken</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>Verwij&amp;deren</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>&amp;Alles selecteren</translation>
    </message>
    <message>
        <source>&amp;Find…</source>
        <translation>&amp;Zoeken…</translation>
    </message>
    <message>
        <source>R&amp;eplace…</source>
        <translation>&amp;Vervangen…</translation>
    </message>
    <message>
        <source>Find &amp;next</source>
        <translation>Vo&amp;lgende zoeken</translation>
    </message>
    <message>
        <source>Find &amp;previous</source>
        <translation>Vor&amp;ige zoeken</translation>
    </message>
    <message>
        <source>&amp;Go to line…</source>
        <translation>&amp;Ga naar regel…</translation>
    </message>
    <message>
        <source>Go to line</source>
        <translation>Ga naar regel</translation>
    </message>
    <message>
        <source>Line (1 to %1):</source>
        <translation>Regel (1 tot %1):</translation>
    </message>
</context>
<context>
    <name>TZtOverviewRuler</name>
    <message>
        <source>Overview</source>
        <translation>Overzicht</translation>
    </message>
</context>
<context>
    <name>TZtPrintOptions</name>
    <message>
        <source>There is no such page to print.</source>
        <translation>Er is geen zo&apos;n pagina om af te drukken.</translation>
    </message>
    <message>
        <source>The text cannot be printed there.</source>
        <translation>De tekst kan daar niet worden afgedrukt.</translation>
    </message>
    <message>
        <source>There is no new page to print on.</source>
        <translation>Er is geen nieuwe pagina om op af te drukken.</translation>
    </message>
    <message>
        <source>Page {page} of {pages}</source>
        <translation>Pagina {page} van {pages}</translation>
    </message>
</context>
<context>
    <name>TZtStringStream</name>
    <message>
        <source>Cannot read &quot;%1&quot;: %2.</source>
        <translation>Kan ‘%1’ niet lezen: %2.</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>er is niet genoeg geheugen</translation>
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
        <source>There is no code page %1.</source>
        <translation>Er is geen codepagina %1.</translation>
    </message>
</context>
<context>
    <name>ZtHtmlExport</name>
    <message>
        <source>The text cannot be written: %1.</source>
        <translation>Kan de tekst niet schrijven: %1.</translation>
    </message>
</context>
<context>
    <name>ZtPlatform</name>
    <message>
        <source>There is not enough memory.</source>
        <translation>Er is niet genoeg geheugen.</translation>
    </message>
    <message>
        <source>Something unknown went wrong.</source>
        <translation>Er is een onbekende fout opgetreden.</translation>
    </message>
</context>
</TS>
