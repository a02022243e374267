<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>ColorScheme</name>
    <message>
        <source>A scheme has to be an object.</source>
        <translation>Un jeu de couleurs doit être un objet.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be true or false.</source>
        <translation>«&#xa0;%1&#xa0;» doit être true ou false.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be a text in quotes.</source>
        <translation>«&#xa0;%1&#xa0;» doit être un texte entre guillemets.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be an object.</source>
        <translation>«&#xa0;%1&#xa0;» doit être un objet.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no colour of the form &quot;#rrggbb&quot;.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une couleur de la forme «&#xa0;#rrggbb&#xa0;».</translation>
    </message>
    <message>
        <source>There is no key &quot;%1&quot;.</source>
        <translation>Il n’y a pas de clé «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>The name is empty.</source>
        <translation>Le nom est vide.</translation>
    </message>
    <message>
        <source>There is no scheme &quot;%1&quot; that could be extended.</source>
        <translation>Il n’y a pas de jeu de couleurs «&#xa0;%1&#xa0;» qui puisse être étendu.</translation>
    </message>
    <message>
        <source>There is no part of the view &quot;%1&quot;.</source>
        <translation>Il n’y a pas de partie de la vue «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>There is no language &quot;%1&quot;.</source>
        <translation>Il n’y a pas de langage «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>There is no element &quot;%1&quot;.</source>
        <translation>Il n’y a pas d’élément «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>There is no property of a style &quot;%1&quot;.</source>
        <translation>Il n’y a pas de propriété de style «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>The scheme has no &quot;name&quot;.</source>
        <translation>Le jeu de couleurs n’a pas de «&#xa0;name&#xa0;».</translation>
    </message>
    <message>
        <source>There is no colour for &quot;%1&quot;.</source>
        <translation>Il n’y a pas de couleur pour «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Le fichier est trop grand.</translation>
    </message>
</context>
<context>
    <name>DataSet</name>
    <message>
        <source>The dataset is closed.</source>
        <translation>Le jeu de données est fermé.</translation>
    </message>
    <message>
        <source>The dataset is not in edit or insert state.</source>
        <translation>Le jeu de données n’est pas en mode modification ou insertion.</translation>
    </message>
    <message>
        <source>The dataset is read-only.</source>
        <translation>Le jeu de données est en lecture seule.</translation>
    </message>
    <message>
        <source>The dataset has no records.</source>
        <translation>Le jeu de données n’a pas d’enregistrements.</translation>
    </message>
    <message>
        <source>The dataset has no model.</source>
        <translation>Le jeu de données n’a pas de modèle.</translation>
    </message>
    <message>
        <source>There is no field with the index %1.</source>
        <translation>Il n’y a pas de champ d’indice %1.</translation>
    </message>
    <message>
        <source>There is no field &quot;%1&quot;.</source>
        <translation>Il n’y a pas de champ «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>There is no record with the number %1.</source>
        <translation>Il n’y a pas d’enregistrement numéro %1.</translation>
    </message>
    <message>
        <source>The field &quot;%1&quot; is read-only.</source>
        <translation>Le champ «&#xa0;%1&#xa0;» est en lecture seule.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no value for the field &quot;%2&quot;.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une valeur pour le champ «&#xa0;%2&#xa0;».</translation>
    </message>
    <message>
        <source>The data source is fixed.</source>
        <translation>La source de données est fixe.</translation>
    </message>
    <message>
        <source>The field &quot;%1&quot; takes no value.</source>
        <translation>Le champ «&#xa0;%1&#xa0;» n’accepte pas de valeur.</translation>
    </message>
    <message>
        <source>The record was changed by someone else since it was read.</source>
        <translation>L’enregistrement a été modifié par quelqu’un d’autre depuis sa lecture.</translation>
    </message>
    <message>
        <source>There is no table &quot;%1&quot;.</source>
        <translation>Il n’y a pas de table «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>A view is read-only.</source>
        <translation>Une vue est en lecture seule.</translation>
    </message>
    <message>
        <source>The record was removed or changed by someone else.</source>
        <translation>L’enregistrement a été supprimé ou modifié par quelqu’un d’autre.</translation>
    </message>
    <message>
        <source>The record cannot be told from another one: the table has no key.</source>
        <translation>L’enregistrement ne peut pas être distingué d’un autre&#xa0;: la table n’a pas de clé.</translation>
    </message>
    <message>
        <source>The records were not all read: %1</source>
        <translation>Les enregistrements n’ont pas tous été lus&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>&quot;%1&quot; is no journal.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un journal des modifications.</translation>
    </message>
</context>
<context>
    <name>Json</name>
    <message>
        <source>The name &quot;%1&quot; is there twice.</source>
        <translation>Le nom «&#xa0;%1&#xa0;» apparaît deux fois.</translation>
    </message>
    <message>
        <source>The text begins with a byte order mark.</source>
        <translation>Le texte commence par une marque d’ordre des octets.</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>Plain text</source>
        <translation>Texte brut</translation>
    </message>
    <message>
        <source>A language needs a name and a way to make its lexer.</source>
        <translation>Un langage a besoin d’un nom et d’un moyen de créer son analyseur.</translation>
    </message>
</context>
<context>
    <name>LossQuestion</name>
    <message>
        <source>%1 cannot hold all characters of &quot;%2&quot;; the first is %3 in line %4, column %5. Save it as %6 instead?</source>
        <translation>%1 ne peut pas contenir tous les caractères de «&#xa0;%2&#xa0;»&#xa0;; le premier est %3, ligne %4, colonne %5. Enregistrer plutôt en %6&#xa0;?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot hold all characters of the text; the first is %2 in line %3, column %4. Store a replacement character (U+FFFD) for each?</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas contenir tous les caractères du texte&#xa0;; le premier est %2, ligne %3, colonne %4. Stocker un caractère de remplacement (U+FFFD) pour chacun&#xa0;?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; holds bytes that are no %2 text. A replacement character (U+FFFD) will be written for each. Save it?</source>
        <translation>«&#xa0;%1&#xa0;» contient des octets qui ne sont pas du texte %2. Un caractère de remplacement (U+FFFD) sera écrit pour chacun. Enregistrer&#xa0;?</translation>
    </message>
</context>
<context>
    <name>TFrmCodeEditSearchReplaceDlg</name>
    <message>
        <source>Find</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>&amp;Text to find:</source>
        <translation>&amp;Texte à chercher&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Case sensitive</source>
        <translation>Respecter la &amp;casse</translation>
    </message>
    <message>
        <source>&amp;Whole words only</source>
        <translation>&amp;Mots entiers seulement</translation>
    </message>
    <message>
        <source>&amp;Scope</source>
        <translation>&amp;Portée</translation>
    </message>
    <message>
        <source>&amp;Global</source>
        <translation>Glo&amp;bale</translation>
    </message>
    <message>
        <source>Se&amp;lected text</source>
        <translation>Texte sélectio&amp;nné</translation>
    </message>
    <message>
        <source>&amp;Direction</source>
        <translation>D&amp;irection</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>Vers l’&amp;avant</translation>
    </message>
    <message>
        <source>&amp;Backward</source>
        <translation>&amp;Vers l’arrière</translation>
    </message>
    <message>
        <source>Or&amp;igin</source>
        <translation>Ori&amp;gine</translation>
    </message>
    <message>
        <source>Fro&amp;m cursor</source>
        <translation>Depuis le cur&amp;seur</translation>
    </message>
    <message>
        <source>&amp;Entire scope</source>
        <translation>Toute &amp;la portée</translation>
    </message>
    <message>
        <source>&amp;Replace with:</source>
        <translation>&amp;Remplacer par&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Prompt on replace</source>
        <translation>&amp;Demander avant de remplacer</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Ca&amp;ncel</source>
        <translation>Annul&amp;er</translation>
    </message>
    <message>
        <source>Replace &amp;All</source>
        <translation>To&amp;ut remplacer</translation>
    </message>
    <message>
        <source>Replace Text</source>
        <translation>Rechercher et remplacer</translation>
    </message>
    <message>
        <source>Find Text</source>
        <translation>Rechercher</translation>
    </message>
</context>
<context>
    <name>TStringList</name>
    <message>
        <source>A line of %1 characters is too long; it may have %2.</source>
        <translation>Une ligne de %1 caractères est trop longue&#xa0;; elle peut en avoir %2.</translation>
    </message>
    <message>
        <source>A text holds at most %1 lines.</source>
        <translation>Un texte contient au plus %1 lignes.</translation>
    </message>
</context>
<context>
    <name>TZtAccessibleEdit</name>
    <message>
        <source>Source code</source>
        <translation>Code source</translation>
    </message>
</context>
<context>
    <name>TZtAccessibleText</name>
    <message>
        <source>Error: %1</source>
        <translation>Erreur&#xa0;: %1</translation>
    </message>
    <message>
        <source>Warning: %1</source>
        <translation>Avertissement&#xa0;: %1</translation>
    </message>
    <message>
        <source>Information: %1</source>
        <translation>Information&#xa0;: %1</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>Signet</translation>
    </message>
    <message>
        <source>Breakpoint</source>
        <translation>Point d’arrêt</translation>
    </message>
    <message>
        <source>Next statement</source>
        <translation>Instruction suivante</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
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
        <translation>La recherche a repris depuis le début.</translation>
    </message>
    <message>
        <source>The search went on from the end.</source>
        <translation>La recherche a repris depuis la fin.</translation>
    </message>
    <message>
        <source>Search string &apos;%1&apos; not found.</source>
        <translation>Le texte «&#xa0;%1&#xa0;» est introuvable.</translation>
    </message>
    <message>
        <source>Do you want to replace this occurrence of &apos;%1&apos;?</source>
        <translation>Voulez-vous remplacer cette occurrence de «&#xa0;%1&#xa0;»&#xa0;?</translation>
    </message>
    <message numerus="yes">
        <source>%n occurrence(s) replaced.</source>
        <translation>
            <numerusform>%n occurrence remplacée.</numerusform>
            <numerusform>%n occurrences remplacées.</numerusform>
        </translation>
    </message>
    <message>
        <source>There is no language &quot;%1&quot;.</source>
        <translation>Il n’y a pas de langage «&#xa0;%1&#xa0;».</translation>
    </message>
</context>
<context>
    <name>TZtDbCodeEdit</name>
    <message>
        <source>&quot;%1&quot; was given another value while its text was changed here. Replace that value by the text?</source>
        <translation>«&#xa0;%1&#xa0;» a reçu une autre valeur pendant que son texte était modifié ici. Remplacer cette valeur par le texte&#xa0;?</translation>
    </message>
</context>
<context>
    <name>TZtEditActions</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Co&amp;uper</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>C&amp;oller</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>&amp;Tout sélectionner</translation>
    </message>
    <message>
        <source>&amp;Find…</source>
        <translation>Rec&amp;hercher…</translation>
    </message>
    <message>
        <source>R&amp;eplace…</source>
        <translation>Re&amp;mplacer…</translation>
    </message>
    <message>
        <source>Find &amp;next</source>
        <translation>Rechercher le suiva&amp;nt</translation>
    </message>
    <message>
        <source>Find &amp;previous</source>
        <translation>Rechercher le &amp;précédent</translation>
    </message>
    <message>
        <source>&amp;Go to line…</source>
        <translation>A&amp;ller à la ligne…</translation>
    </message>
    <message>
        <source>Go to line</source>
        <translation>Aller à la ligne</translation>
    </message>
    <message>
        <source>Line (1 to %1):</source>
        <translation>Ligne (1 à %1)&#xa0;:</translation>
    </message>
</context>
<context>
    <name>TZtOverviewRuler</name>
    <message>
        <source>Overview</source>
        <translation>Vue d’ensemble</translation>
    </message>
</context>
<context>
    <name>TZtPrintOptions</name>
    <message>
        <source>There is no such page to print.</source>
        <translation>Il n’y a pas de telle page à imprimer.</translation>
    </message>
    <message>
        <source>The text cannot be printed there.</source>
        <translation>Le texte ne peut pas y être imprimé.</translation>
    </message>
    <message>
        <source>There is no new page to print on.</source>
        <translation>Il n’y a pas de nouvelle page sur laquelle imprimer.</translation>
    </message>
    <message>
        <source>Page {page} of {pages}</source>
        <translation>Page {page} sur {pages}</translation>
    </message>
</context>
<context>
    <name>TZtStringStream</name>
    <message>
        <source>Cannot read &quot;%1&quot;: %2.</source>
        <translation>Impossible de lire «&#xa0;%1&#xa0;»&#xa0;: %2.</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>il n’y a pas assez de mémoire</translation>
    </message>
    <message>
        <source>it is a directory</source>
        <translation>c’est un dossier</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>ce n’est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>There is no code page %1.</source>
        <translation>Il n’y a pas de page de codes %1.</translation>
    </message>
</context>
<context>
    <name>ZtHtmlExport</name>
    <message>
        <source>The text cannot be written: %1.</source>
        <translation>Impossible d’écrire le texte&#xa0;: %1.</translation>
    </message>
</context>
<context>
    <name>ZtPlatform</name>
    <message>
        <source>There is not enough memory.</source>
        <translation>Il n’y a pas assez de mémoire.</translation>
    </message>
    <message>
        <source>Something unknown went wrong.</source>
        <translation>Une erreur inconnue s’est produite.</translation>
    </message>
</context>
</TS>
