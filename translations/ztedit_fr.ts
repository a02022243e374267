<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>CommandLine</name>
    <message>
        <source>%1 (--help tells how it is used)</source>
        <translation>%1 (--help explique l’utilisation)</translation>
    </message>
    <message>
        <source>--scheme wants one of %1, or a file, not &quot;%2&quot;.</source>
        <translation>--scheme attend une valeur parmi %1, ou un fichier, et non «&#xa0;%2&#xa0;».</translation>
    </message>
    <message>
        <source>-%1 wants a value.</source>
        <translation>-%1 attend une valeur.</translation>
    </message>
    <message>
        <source>Open the texts of an SQLite database, with --table and --field.</source>
        <translation>Ouvrir les textes d’une base de données SQLite, avec --table et --field.</translation>
    </message>
    <message>
        <source>The table or view.</source>
        <translation>La table ou la vue.</translation>
    </message>
    <message>
        <source>The field to edit, of text or of bytes.</source>
        <translation>Le champ à modifier, de texte ou d’octets.</translation>
    </message>
    <message>
        <source>The field that tells the records apart, for a table without a primary key.</source>
        <translation>Le champ qui distingue les enregistrements, pour une table sans clé primaire.</translation>
    </message>
    <message>
        <source>Make the database FILE by the statements in FILE.sql and leave.</source>
        <translation>Créer la base de données FILE par les instructions de FILE.sql et quitter.</translation>
    </message>
    <message>
        <source>--db, --table and --field are wanted together.</source>
        <translation>--db, --table et --field vont ensemble.</translation>
    </message>
    <message>
        <source>--make-sample wants the name of a database, and no --db.</source>
        <translation>--make-sample attend le nom d’une base de données, sans --db.</translation>
    </message>
    <message>
        <source>Put the caret on line N of the first file, in column C.</source>
        <translation>Placer le curseur à la ligne N du premier fichier, dans la colonne C.</translation>
    </message>
    <message>
        <source>Put a bookmark on line N of the first file; may be given several times.</source>
        <translation>Placer un signet à la ligne N du premier fichier&#xa0;; peut être répété.</translation>
    </message>
    <message>
        <source>Show what a compiler printed into FILE, in the texts that it is about.</source>
        <translation>Montrer ce qu’un compilateur a écrit dans FILE, dans les textes concernés.</translation>
    </message>
    <message>
        <source>--line wants a number from 1 up, or two such as 12:5, not &quot;%1&quot;.</source>
        <translation>--line attend un nombre à partir de 1, ou deux comme 12:5, et non «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>--bookmark wants a number from 1 up, not &quot;%1&quot;.</source>
        <translation>--bookmark attend un nombre à partir de 1, et non «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>--diagnostics wants the name of a file.</source>
        <translation>--diagnostics attend le nom d’un fichier.</translation>
    </message>
    <message>
        <source>The window&apos;s size in pixels.</source>
        <translation>La taille de la fenêtre en pixels.</translation>
    </message>
    <message>
        <source>The colours: %1, or a JSON file.</source>
        <translation>Les couleurs&#xa0;: %1, ou un fichier JSON.</translation>
    </message>
    <message>
        <source>--size wants a width and a height from 1 to %1, such as 900x640, not &quot;%2&quot;.</source>
        <translation>--size attend une largeur et une hauteur de 1 à %1, comme 900x640, et non «&#xa0;%2&#xa0;».</translation>
    </message>
    <message>
        <source>Show this help and leave.</source>
        <translation>Afficher cette aide et quitter.</translation>
    </message>
    <message>
        <source>Show the version and leave.</source>
        <translation>Afficher la version et quitter.</translation>
    </message>
    <message>
        <source>Draw the window into the picture OUT.png and leave.</source>
        <translation>Dessiner la fenêtre dans l’image OUT.png et quitter.</translation>
    </message>
    <message>
        <source>Print the tokens of FILE, one a line, and leave.</source>
        <translation>Écrire les lexèmes de FILE, un par ligne, et quitter.</translation>
    </message>
    <message>
        <source>Edits source code. Without a display, and with --render, the window is drawn into a picture instead. The options of every Qt application are known too, such as -style, -platform and -reverse.</source>
        <translation>Édite du code source. Sans écran, et avec --render, la fenêtre est dessinée dans une image. Les options de toute application Qt sont aussi connues, comme -style, -platform et -reverse.</translation>
    </message>
    <message>
        <source>The files to open, a tab each.</source>
        <translation>Les fichiers à ouvrir, un onglet chacun.</translation>
    </message>
    <message>
        <source>The language of the texts: %1. Without it, it is the desktop&apos;s.</source>
        <translation>La langue des textes&#xa0;: %1. Sans cette option, c’est celle du bureau.</translation>
    </message>
    <message>
        <source>--language wants one of %1, not &quot;%2&quot;.</source>
        <translation>--language attend une valeur parmi %1, et non «&#xa0;%2&#xa0;».</translation>
    </message>
    <message>
        <source>Print FILE into OUT.pdf and leave.</source>
        <translation>Imprimer FILE dans OUT.pdf et quitter.</translation>
    </message>
    <message>
        <source>Write FILE with its colours into OUT.html and leave.</source>
        <translation>Écrire FILE avec ses couleurs dans OUT.html et quitter.</translation>
    </message>
    <message>
        <source>--%1 wants the name of a file to write.</source>
        <translation>--%1 attend le nom d’un fichier à écrire.</translation>
    </message>
    <message>
        <source>--%1 wants one file, and no --db.</source>
        <translation>--%1 attend un fichier, sans --db.</translation>
    </message>
    <message>
        <source>Only one of --render, --print, --html and --tokens can be given.</source>
        <translation>Un seul de --render, --print, --html et --tokens peut être donné.</translation>
    </message>
</context>
<context>
    <name>DbConnection</name>
    <message>
        <source>There is no database &quot;%1&quot;.</source>
        <translation>Il n’y a pas de base de données «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Cannot open the database &quot;%1&quot;: %2.</source>
        <translation>Impossible d’ouvrir la base de données «&#xa0;%1&#xa0;»&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The database &quot;%1&quot; has no table &quot;%2&quot;; it has: %3.</source>
        <translation>La base de données «&#xa0;%1&#xa0;» n’a pas de table «&#xa0;%2&#xa0;»&#xa0;; elle a&#xa0;: %3.</translation>
    </message>
    <message>
        <source>The table &quot;%1&quot; has no field &quot;%2&quot;; it has: %3.</source>
        <translation>La table «&#xa0;%1&#xa0;» n’a pas de champ «&#xa0;%2&#xa0;»&#xa0;; elle a&#xa0;: %3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is there already.</source>
        <translation>«&#xa0;%1&#xa0;» existe déjà.</translation>
    </message>
    <message>
        <source>Cannot make &quot;%1&quot;: %2</source>
        <translation>Impossible de créer «&#xa0;%1&#xa0;»&#xa0;: %2</translation>
    </message>
    <message>
        <source>Cannot make &quot;%1&quot;: %2.</source>
        <translation>Impossible de créer «&#xa0;%1&#xa0;»&#xa0;: %2.</translation>
    </message>
</context>
<context>
    <name>FileAttributes</name>
    <message>
        <source>its owner (%1)</source>
        <translation>son propriétaire (%1)</translation>
    </message>
    <message>
        <source>its group (%1)</source>
        <translation>son groupe (%1)</translation>
    </message>
    <message>
        <source>its access control list</source>
        <translation>sa liste de contrôle d’accès</translation>
    </message>
    <message>
        <source>its attribute %1</source>
        <translation>son attribut %1</translation>
    </message>
    <message>
        <source>its extended attributes</source>
        <translation>ses attributs étendus</translation>
    </message>
    <message>
        <source>its permissions</source>
        <translation>ses droits d’accès</translation>
    </message>
</context>
<context>
    <name>FileStore</name>
    <message>
        <source>Cannot write &quot;%1&quot;: %2.</source>
        <translation>Impossible d’écrire «&#xa0;%1&#xa0;»&#xa0;: %2.</translation>
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
        <source>its other names, which keep the old contents</source>
        <translation>ses autres noms, qui gardent l’ancien contenu</translation>
    </message>
    <message>
        <source>%1. What it held before is in &quot;%2&quot;</source>
        <translation>%1. L’ancien contenu se trouve dans «&#xa0;%2&#xa0;»</translation>
    </message>
</context>
<context>
    <name>JournalFlow</name>
    <message>
        <source>A text without a name</source>
        <translation>Un texte sans nom</translation>
    </message>
    <message>
        <source>&quot;%1&quot;</source>
        <translation>«&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>%1 was not saved when the program was cut short. The last change is of %2.</source>
        <translation>%1 n’était pas enregistré quand le programme a été interrompu. La dernière modification date du %2.</translation>
    </message>
    <message>
        <source>The file is not what it was any more, so that only what was typed and inserted can come back, piece by piece, as a text of its own.</source>
        <translation>Le fichier n’est plus ce qu’il était. Seul ce qui a été tapé et inséré peut revenir, morceau par morceau, comme un texte à part.</translation>
    </message>
    <message>
        <source>The file was changed since then. It stays as it is, and what comes back opens beside it.</source>
        <translation>Le fichier a été modifié depuis. Il reste tel quel, et ce qui revient s’ouvre à côté.</translation>
    </message>
    <message>
        <source>There is no file of this name, or it cannot be read.</source>
        <translation>Il n’y a pas de fichier de ce nom, ou il ne peut pas être lu.</translation>
    </message>
    <message>
        <source>The very last changes may be missing.</source>
        <translation>Les toutes dernières modifications peuvent manquer.</translation>
    </message>
    <message>
        <source>%1 is not restored: %2</source>
        <translation>%1 n’est pas restauré&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1: give up for good what was not saved?</source>
        <translation>%1&#xa0;: abandonner définitivement ce qui n’a pas été enregistré&#xa0;?</translation>
    </message>
</context>
<context>
    <name>PrintFlow</name>
    <message>
        <source>&amp;Line numbers</source>
        <translation>&amp;Numéros de ligne</translation>
    </message>
    <message>
        <source>&amp;Wrap long lines</source>
        <translation>&amp;Couper les lignes longues</translation>
    </message>
    <message>
        <source>Header and &amp;footer</source>
        <translation>&amp;En-tête et pied de page</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Printing &quot;%1&quot;…</source>
        <translation>Impression de «&#xa0;%1&#xa0;»…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Cannot write &quot;%1&quot;: %2.</source>
        <translation>Impossible d’écrire «&#xa0;%1&#xa0;»&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Export as HTML</source>
        <translation>Exporter en HTML</translation>
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
        <translation>Un enregistrement de «&#xa0;%1&#xa0;» a été interrompu. L’ancien contenu se trouve dans «&#xa0;%2&#xa0;», qui ne peut pas être restauré ici&#xa0;: %3.</translation>
    </message>
    <message>
        <source>A save of &quot;%1&quot; was cut short at %2, and it may hold only a part of its text. Restore what it held before that save? What you do not choose is kept as &quot;%3&quot;.</source>
        <translation>Un enregistrement de «&#xa0;%1&#xa0;» a été interrompu le %2, et le fichier ne contient peut-être qu’une partie de son texte. Restaurer son contenu d’avant&#xa0;? Ce que vous ne choisissez pas est gardé sous «&#xa0;%3&#xa0;».</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was changed by another program after it was read here. Overwrite those changes?</source>
        <translation>«&#xa0;%1&#xa0;» a été modifié par un autre programme après avoir été lu ici. Écraser ces modifications&#xa0;?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be read to see whether another program changed it: %2. Overwrite it?</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être lu pour voir si un autre programme l’a modifié&#xa0;: %2. L’écraser&#xa0;?</translation>
    </message>
    <message>
        <source>You have no right to write &quot;%1&quot;, but you may put another file in its place. Replace it?</source>
        <translation>Vous n’avez pas le droit d’écrire «&#xa0;%1&#xa0;», mais vous pouvez mettre un autre fichier à sa place. Le remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>The line endings of &quot;%1&quot; are mixed. All of them will be written as %2. Save it?</source>
        <translation>Les fins de ligne de «&#xa0;%1&#xa0;» sont mélangées. Toutes seront écrites en %2. Enregistrer&#xa0;?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is saved, but it lost %2.</source>
        <translation>«&#xa0;%1&#xa0;» est enregistré, mais a perdu %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not saved: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas enregistré&#xa0;: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not restored: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas restauré&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>SideFile</name>
    <message>
        <source>it belongs to the user %1</source>
        <translation>le propriétaire est %1</translation>
    </message>
</context>
<context>
    <name>TConflictDialog</name>
    <message>
        <source>Changed by someone else</source>
        <translation>Modifié par quelqu’un d’autre</translation>
    </message>
    <message>
        <source>The record &quot;%1&quot; was changed by someone else since it was read here. Nothing was written yet.</source>
        <translation>L’enregistrement «&#xa0;%1&#xa0;» a été modifié par quelqu’un d’autre depuis qu’il a été lu ici. Rien n’a encore été écrit.</translation>
    </message>
    <message>
        <source>Write &amp;mine</source>
        <translation>Écrire &amp;ma version</translation>
    </message>
    <message>
        <source>Take &amp;theirs</source>
        <translation>&amp;Prendre l’autre version</translation>
    </message>
    <message>
        <source>&amp;Go on editing</source>
        <translation>&amp;Continuer l’édition</translation>
    </message>
    <message>
        <source>M&amp;ine:</source>
        <translation>Ma &amp;version&#xa0;:</translation>
    </message>
    <message>
        <source>T&amp;heirs:</source>
        <translation>&amp;Autre version&#xa0;:</translation>
    </message>
</context>
<context>
    <name>TDbDocument</name>
    <message>
        <source>Records</source>
        <translation>Enregistrements</translation>
    </message>
    <message>
        <source>F&amp;irst</source>
        <translation>&amp;Premier</translation>
    </message>
    <message>
        <source>P&amp;rior</source>
        <translation>Précéden&amp;t</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Suivant</translation>
    </message>
    <message>
        <source>&amp;Last</source>
        <translation>&amp;Dernier</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>S&amp;upprimer…</translation>
    </message>
    <message>
        <source>&amp;Fields…</source>
        <translation>&amp;Champs…</translation>
    </message>
    <message>
        <source>&amp;Post</source>
        <translation>&amp;Valider</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>R&amp;efresh</source>
        <translation>Actua&amp;liser</translation>
    </message>
    <message>
        <source>Post the changes to the record &quot;%1&quot;? &quot;No&quot; discards them.</source>
        <translation>Valider les modifications de l’enregistrement «&#xa0;%1&#xa0;»&#xa0;? «&#xa0;Non&#xa0;» les abandonne.</translation>
    </message>
    <message>
        <source>New record</source>
        <translation>Nouvel enregistrement</translation>
    </message>
    <message>
        <source>Record %1 of %2</source>
        <translation>Enregistrement %1 sur %2</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nouveau</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Fermé</translation>
    </message>
    <message>
        <source>Browsing</source>
        <translation>Consultation</translation>
    </message>
    <message>
        <source>Editing</source>
        <translation>Modification</translation>
    </message>
    <message>
        <source>Inserting</source>
        <translation>Insertion</translation>
    </message>
    <message>
        <source>Cannot go to another record: %1</source>
        <translation>Impossible d’aller à un autre enregistrement&#xa0;: %1</translation>
    </message>
    <message>
        <source>Cannot insert a record: %1</source>
        <translation>Impossible d’insérer un enregistrement&#xa0;: %1</translation>
    </message>
    <message>
        <source>Cannot change the fields: %1</source>
        <translation>Impossible de modifier les champs&#xa0;: %1</translation>
    </message>
    <message>
        <source>Delete the record &quot;%1&quot;? This cannot be undone.</source>
        <translation>Supprimer l’enregistrement «&#xa0;%1&#xa0;»&#xa0;? Cette action ne peut pas être annulée.</translation>
    </message>
    <message>
        <source>The record was not deleted: %1</source>
        <translation>L’enregistrement n’a pas été supprimé&#xa0;: %1</translation>
    </message>
    <message>
        <source>The record was not posted: %1
Its text stays in the editor; post it again later, or cancel.</source>
        <translation>L’enregistrement n’a pas été validé&#xa0;: %1
Son texte reste dans l’éditeur&#xa0;; validez-le plus tard, ou annulez.</translation>
    </message>
    <message>
        <source>Cannot read the records: %1</source>
        <translation>Impossible de lire les enregistrements&#xa0;: %1</translation>
    </message>
    <message>
        <source>In&amp;sert…</source>
        <translation>&amp;Insérer…</translation>
    </message>
</context>
<context>
    <name>TDbFieldsDialog</name>
    <message>
        <source>Fields of the record</source>
        <translation>Champs de l’enregistrement</translation>
    </message>
</context>
<context>
    <name>TDbOpenDialog</name>
    <message>
        <source>Open a database</source>
        <translation>Ouvrir une base de données</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>&amp;Fichier&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Table:</source>
        <translation>&amp;Table&#xa0;:</translation>
    </message>
    <message>
        <source>Fi&amp;eld to edit:</source>
        <translation>&amp;Champ à modifier&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Key:</source>
        <translation>C&amp;lé&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>&amp;Parcourir…</translation>
    </message>
    <message>
        <source>SQLite databases (*.sqlite *.sqlite3 *.db *.db3);;All files (*)</source>
        <translation>Bases de données SQLite (*.sqlite *.sqlite3 *.db *.db3);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>This database has no tables.</source>
        <translation>Cette base de données n’a pas de tables.</translation>
    </message>
    <message>
        <source>the table&apos;s primary key</source>
        <translation>la clé primaire de la table</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
</context>
<context>
    <name>TDocument</name>
    <message>
        <source>Save the changes to &quot;%1&quot;?</source>
        <translation>Enregistrer les modifications de «&#xa0;%1&#xa0;»&#xa0;?</translation>
    </message>
    <message>
        <source>Line %1, column %2</source>
        <translation>Ligne %1, colonne %2</translation>
    </message>
    <message>
        <source>%1 with byte-order mark</source>
        <translation>%1 avec marque d’ordre des octets</translation>
    </message>
    <message>
        <source>+BOM</source>
        <translation>+BOM</translation>
    </message>
    <message>
        <source>%1, mixed</source>
        <translation>%1, mélangées</translation>
    </message>
    <message>
        <source>Mixed</source>
        <translation>Mélangées</translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation>Erreur&#xa0;: %1</translation>
    </message>
    <message>
        <source>Warning: %1</source>
        <translation>Avertissement&#xa0;: %1</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Note&#xa0;: %1</translation>
    </message>
    <message>
        <source>Cannot open &quot;%1&quot;: %2</source>
        <translation>Impossible d’ouvrir «&#xa0;%1&#xa0;»&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>TEventDialog</name>
    <message>
        <source>New event handler</source>
        <translation>Nouveau gestionnaire d’événement</translation>
    </message>
    <message>
        <source>&amp;Events of the sample form</source>
        <translation>É&amp;vénements du formulaire d’exemple</translation>
    </message>
    <message>
        <source>&amp;Methods in the text that fit</source>
        <translation>&amp;Méthodes du texte qui conviennent</translation>
    </message>
    <message>
        <source>Insert at the &amp;caret</source>
        <translation>Insérer au &amp;curseur</translation>
    </message>
    <message>
        <source>&amp;Go to the method</source>
        <translation>&amp;Aller à la méthode</translation>
    </message>
    <message>
        <source>Line %1 has a method of this name.</source>
        <translation>La ligne %1 a une méthode de ce nom.</translation>
    </message>
    <message>
        <source>Insert at the e&amp;nd</source>
        <translation>Insérer à la &amp;fin</translation>
    </message>
    <message>
        <source>What will be inserted</source>
        <translation>Ce qui sera inséré</translation>
    </message>
</context>
<context>
    <name>TMainWindow</name>
    <message>
        <source>New text</source>
        <translation>Nouveau texte</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>Ouvrir…</translation>
    </message>
    <message>
        <source>Open database…</source>
        <translation>Ouvrir une base de données…</translation>
    </message>
    <message>
        <source>Untitled %1</source>
        <translation>Sans titre %1</translation>
    </message>
    <message>
        <source>What is changed would not come back after a crash: %1</source>
        <translation>Les modifications ne reviendraient pas après un plantage&#xa0;: %1</translation>
    </message>
    <message>
        <source>Cannot open &quot;%1&quot;: %2</source>
        <translation>Impossible d’ouvrir «&#xa0;%1&#xa0;»&#xa0;: %2</translation>
    </message>
    <message>
        <source>Open files</source>
        <translation>Ouvrir des fichiers</translation>
    </message>
    <message>
        <source>%1 is saved</source>
        <translation>%1 est enregistré</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Enregistrer sous</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is open in another tab.</source>
        <translation>«&#xa0;%1&#xa0;» est ouvert dans un autre onglet.</translation>
    </message>
    <message>
        <source>Give up the changes to &quot;%1&quot; and read it again?</source>
        <translation>Abandonner les modifications de «&#xa0;%1&#xa0;» et le relire&#xa0;?</translation>
    </message>
    <message>
        <source>Load diagnostics</source>
        <translation>Charger des diagnostics</translation>
    </message>
    <message>
        <source>Diagnostics: %1, of files: %2</source>
        <translation>Diagnostics&#xa0;: %1, fichiers&#xa0;: %2</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Nouveau</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Ouvrir…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation>Enregistrer &amp;sous…</translation>
    </message>
    <message>
        <source>Save a&amp;ll</source>
        <translation>&amp;Tout enregistrer</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <translation>&amp;Recharger</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>Select to &amp;bracket	Ctrl+Shift+M</source>
        <translation>Sélectionner jusqu’à la &amp;parenthèse	Ctrl+Shift+M</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>Go to brac&amp;ket	Ctrl+M</source>
        <translation>Aller à la paren&amp;thèse	Ctrl+M</translation>
    </message>
    <message>
        <source>&amp;Toggle bookmark	Ctrl+F2</source>
        <translation>&amp;Basculer le signet	Ctrl+F2</translation>
    </message>
    <message>
        <source>Next &amp;bookmark	F2</source>
        <translation>Signet su&amp;ivant	F2</translation>
    </message>
    <message>
        <source>Pre&amp;vious bookmark	Shift+F2</source>
        <translation>Signet pré&amp;cédent	Shift+F2</translation>
    </message>
    <message>
        <source>Next &amp;diagnostic	F8</source>
        <translation>&amp;Diagnostic suivant	F8</translation>
    </message>
    <message>
        <source>Previous d&amp;iagnostic	Shift+F8</source>
        <translation>Dia&amp;gnostic précédent	Shift+F8</translation>
    </message>
    <message>
        <source>&amp;Load diagnostics…</source>
        <translation>Ch&amp;arger des diagnostics…</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>&amp;Recherche</translation>
    </message>
    <message>
        <source>Zoom in	Ctrl++</source>
        <translation>Zoom avant	Ctrl++</translation>
    </message>
    <message>
        <source>Zoom out	Ctrl+-</source>
        <translation>Zoom arrière	Ctrl+-</translation>
    </message>
    <message>
        <source>Usual size	Ctrl+0</source>
        <translation>Taille normale	Ctrl+0</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>New event &amp;handler…</source>
        <translation>Nouveau &amp;gestionnaire d’événement…</translation>
    </message>
    <message>
        <source>&amp;All methods…</source>
        <translation>&amp;Toutes les méthodes…</translation>
    </message>
    <message>
        <source>&amp;Methods</source>
        <translation>&amp;Méthodes</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>ligne %1</translation>
    </message>
    <message>
        <source>&amp;Database</source>
        <translation>&amp;Base de données</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Langage</translation>
    </message>
    <message>
        <source>%1 is written</source>
        <translation>%1 est écrit</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Imprimer…</translation>
    </message>
    <message>
        <source>Print pre&amp;view…</source>
        <translation>A&amp;perçu avant impression…</translation>
    </message>
    <message>
        <source>&amp;Export as HTML…</source>
        <translation>Exporter en &amp;HTML…</translation>
    </message>
</context>
<context>
    <name>TMethodListDialog</name>
    <message>
        <source>%1, line %2</source>
        <translation>%1, ligne %2</translation>
    </message>
    <message>
        <source>Methods</source>
        <translation>Méthodes</translation>
    </message>
    <message>
        <source>Part of the name</source>
        <translation>Partie du nom</translation>
    </message>
    <message>
        <source>Methods: %1</source>
        <translation>Méthodes&#xa0;: %1</translation>
    </message>
    <message>
        <source>Methods: %1 of %2</source>
        <translation>Méthodes&#xa0;: %1 sur %2</translation>
    </message>
    <message>
        <source>%1; %2 % of the text has been read</source>
        <translation>%1&#xa0;; %2&#xa0;% du texte a été lu</translation>
    </message>
</context>
<context>
    <name>TRestoreDialog</name>
    <message>
        <source>Restore</source>
        <translation>Restaurer</translation>
    </message>
    <message>
        <source>What would come &amp;back:</source>
        <translation>Ce qui revien&amp;drait&#xa0;:</translation>
    </message>
    <message>
        <source>What would come back</source>
        <translation>Ce qui reviendrait</translation>
    </message>
    <message>
        <source>in the file</source>
        <translation>dans le fichier</translation>
    </message>
    <message>
        <source>restored</source>
        <translation>restauré</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Restaurer</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Plus tard</translation>
    </message>
    <message>
        <source>&amp;Discard…</source>
        <translation>&amp;Abandonner…</translation>
    </message>
</context>
<context>
    <name>TStartPage</name>
    <message>
        <source>or drop files here</source>
        <translation>ou déposez des fichiers ici</translation>
    </message>
</context>
<context>
    <name>TViewMenu</name>
    <message>
        <source>Colour &amp;scheme</source>
        <translation>Jeu de &amp;couleurs</translation>
    </message>
    <message>
        <source>&amp;Follow the desktop</source>
        <translation>&amp;Suivre le bureau</translation>
    </message>
</context>
<context>
    <name>Tokens</name>
    <message>
        <source>&quot;%1&quot; is in no language that has tokens.</source>
        <translation>«&#xa0;%1&#xa0;» n’est dans aucun langage qui a des lexèmes.</translation>
    </message>
    <message>
        <source>Cannot print the tokens: %1.</source>
        <translation>Impossible d’écrire les lexèmes&#xa0;: %1.</translation>
    </message>
</context>
<context>
    <name>View</name>
    <message>
        <source>&amp;Gutter</source>
        <translation>Gou&amp;ttière</translation>
    </message>
    <message>
        <source>&amp;Line numbers</source>
        <translation>&amp;Numéros de ligne</translation>
    </message>
    <message>
        <source>&amp;Bookmarks</source>
        <translation>&amp;Signets</translation>
    </message>
    <message>
        <source>&amp;Changed lines</source>
        <translation>Lignes m&amp;odifiées</translation>
    </message>
    <message>
        <source>&amp;Diagnostics</source>
        <translation>Dia&amp;gnostics</translation>
    </message>
    <message>
        <source>&amp;Overview ruler</source>
        <translation>Vue d’&amp;ensemble</translation>
    </message>
    <message>
        <source>C&amp;urrent line</source>
        <translation>Ligne &amp;actuelle</translation>
    </message>
    <message>
        <source>&amp;Right margin</source>
        <translation>Marge d&amp;roite</translation>
    </message>
    <message>
        <source>&amp;Indentation guides</source>
        <translation>Guides d’&amp;indentation</translation>
    </message>
    <message>
        <source>Bl&amp;anks</source>
        <translation>Es&amp;paces</translation>
    </message>
    <message>
        <source>Selected bla&amp;nks</source>
        <translation>Espaces sé&amp;lectionnés</translation>
    </message>
    <message>
        <source>Pairs of brac&amp;kets</source>
        <translation>Paires de parent&amp;hèses</translation>
    </message>
    <message>
        <source>&amp;Matches of the search</source>
        <translation>Occ&amp;urrences de la recherche</translation>
    </message>
    <message>
        <source>&amp;Word at the caret</source>
        <translation>&amp;Mot sous le curseur</translation>
    </message>
    <message>
        <source>&amp;Pairs while typing</source>
        <translation>Paires à la &amp;frappe</translation>
    </message>
    <message>
        <source>&amp;Zoom by wheel and keys</source>
        <translation>&amp;Zoom par molette et touches</translation>
    </message>
    <message>
        <source>&amp;Fine scrolling</source>
        <translation>&amp;Défilement fin</translation>
    </message>
    <message>
        <source>Drag and drop of &amp;text</source>
        <translation>Glisser-déposer du te&amp;xte</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Cannot make a file in &quot;%1&quot;: %2.</source>
        <translation>Impossible de créer un fichier dans «&#xa0;%1&#xa0;»&#xa0;: %2.</translation>
    </message>
    <message>
        <source>You have no right to write &quot;%1&quot;.</source>
        <translation>Vous n’avez pas le droit d’écrire «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>The window is drawn in %1</source>
        <translation>La fenêtre est dessinée dans %1</translation>
    </message>
    <message>
        <source>%1 is made</source>
        <translation>%1 est créé</translation>
    </message>
    <message>
        <source>%1 is written</source>
        <translation>%1 est écrit</translation>
    </message>
</context>
</TS>
