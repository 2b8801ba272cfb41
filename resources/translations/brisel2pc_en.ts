<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="it_IT">
<context>
    <name>Backup</name>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>Eseguo backup dellla libreria...</source>
        <translation>Backing up the library...</translation>
    </message>
</context>
<context>
    <name>BackupRestore</name>
    <message>
        <source>Ripristino</source>
        <translation>Restoring</translation>
    </message>
    <message>
        <source>Ripristino del backup...</source>
        <translation>Restoring the backup...</translation>
    </message>
    <message>
        <source>Un altro programma ha cambiato questa song dopo il backup. Rimettere comunque la copia?</source>
        <translation>Another program has changed this song since the backup. Put the copy back anyway?</translation>
    </message>
    <message>
        <source>La copia sostituirà l&apos;intero file, che non verrà conservato nella cronologia: non si potrà annullare. Rimettere la copia?</source>
        <translation>The copy will replace the whole file, which the history does not keep: this can&apos;t be undone. Put the copy back?</translation>
    </message>
    <message>
        <source>Questa song è diversa dalla copia, e la cronologia non dice chi l&apos;ha cambiata. Rimettere comunque la copia?</source>
        <translation>This song differs from the copy, and the history does not say who changed it. Put the copy back anyway?</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Le opzioni sono elencate da: %1</source>
        <translation>The options are listed by: %1</translation>
    </message>
    <message>
        <source>Uso: %1 [opzioni] [brano | cartella ...]
Prepara le basi musicali per il lettore Brisel. I brani indicati, e quelli nelle
cartelle, vengono importati all&apos;apertura della finestra.

Opzioni:
  -h, --help     mostra questo aiuto
  -v, --version  mostra la versione
  --             gli argomenti che seguono sono brani o cartelle
</source>
        <translation>Usage: %1 [options] [song | folder ...]
Prepares backing tracks for the Brisel song player. The given songs, and those in the
folders, are imported when the window opens.

Options:
  -h, --help     print this help
  -v, --version  print the version
  --             the following arguments are songs or folders
</translation>
    </message>
</context>
<context>
    <name>CopyBack</name>
    <message>
        <source>Copia sul computer</source>
        <translation>Copy to the computer</translation>
    </message>
    <message>
        <source>Copio le song...</source>
        <translation>Copying the songs...</translation>
    </message>
</context>
<context>
    <name>DesktopNotice</name>
    <message>
        <source>Operazione terminata</source>
        <translation>Operation finished</translation>
    </message>
</context>
<context>
    <name>FileCopier</name>
    <message>
        <source>Spazio insufficiente: servono %1, liberi %2</source>
        <translation>Not enough space: %1 needed, %2 free</translation>
    </message>
</context>
<context>
    <name>HistoryRecorder</name>
    <message>
        <source>Non tutte le modifiche sono nella cronologia: %1</source>
        <translation>Not all changes are in the history: %1</translation>
    </message>
    <message>
        <source>La cronologia è piena: le prime modifiche di questa operazione non ci sono più</source>
        <translation>The history is full: it no longer has the first changes of this operation</translation>
    </message>
</context>
<context>
    <name>LibraryImport</name>
    <message>
        <source>Lettura file</source>
        <translation>Reading file</translation>
    </message>
    <message>
        <source>Importo la libreria...</source>
        <translation>Importing library...</translation>
    </message>
</context>
<context>
    <name>ManualEdit</name>
    <message>
        <source>Aggiornamento file</source>
        <translation>Updating file</translation>
    </message>
    <message>
        <source>Aggiorno la libreria...</source>
        <translation>Updating library...</translation>
    </message>
</context>
<context>
    <name>MemoryFindings</name>
    <message numerus="yes">
        <source>... e altri %n</source>
        <translation>
            <numerusform>... and %n more</numerusform>
            <numerusform>... and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MemoryListCheck</name>
    <message>
        <source>%1, record %2: nessuna song ha l&apos;id %3</source>
        <translation>%1, record %2: no song has the id %3</translation>
    </message>
    <message>
        <source>%1, record %2: song ripetuta: %3</source>
        <translation>%1, record %2: song repeated: %3</translation>
    </message>
    <message>
        <source>%1, record %2: la song non è un MP3: %3</source>
        <translation>%1, record %2: the song is not an MP3: %3</translation>
    </message>
    <message>
        <source>%1, record %2: dati diversi da title.id2: %3</source>
        <translation>%1, record %2: data differ from title.id2: %3</translation>
    </message>
    <message>
        <source>%1: manca la song %2</source>
        <translation>%1: the song %2 is missing</translation>
    </message>
    <message>
        <source>%1, record %2: gruppo ripetuto: %3</source>
        <translation>%1, record %2: group repeated: %3</translation>
    </message>
    <message>
        <source>%1, record 0: song senza gruppo</source>
        <translation>%1, record 0: song without a group</translation>
    </message>
    <message>
        <source>%1, record %2: fuori ordine: %3</source>
        <translation>%1, record %2: out of order: %3</translation>
    </message>
    <message>
        <source>%1, record %2: il gruppo precedente ha %3 song, non %4</source>
        <translation>%1, record %2: the previous group has %3 songs, not %4</translation>
    </message>
    <message>
        <source>%1, record %2: gruppo senza song</source>
        <translation>%1, record %2: group without songs</translation>
    </message>
    <message>
        <source>%1, record %2: il gruppo ha %3 song, non %4</source>
        <translation>%1, record %2: the group has %3 songs, not %4</translation>
    </message>
    <message>
        <source>%1: la lettera &quot;%2&quot; porta al posto sbagliato</source>
        <translation>%1: the letter &quot;%2&quot; leads to the wrong place</translation>
    </message>
</context>
<context>
    <name>Restore</name>
    <message>
        <source>Ripristino</source>
        <translation>Restoring</translation>
    </message>
    <message>
        <source>Ripristino delle song...</source>
        <translation>Restoring the songs...</translation>
    </message>
    <message>
        <source>Un altro programma ha cambiato questa song dopo la modifica da annullare. Ripristinarla comunque?</source>
        <translation>Another program has changed this song after the change to be taken back. Restore it anyway?</translation>
    </message>
</context>
<context>
    <name>RunReport</name>
    <message numerus="yes">
        <source> (%n song)</source>
        <translation>
            <numerusform> (%n song)</numerusform>
            <numerusform> (%n songs)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n aggiornate</source>
        <translation>
            <numerusform>%n updated</numerusform>
            <numerusform>%n updated</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n modificate</source>
        <translation>
            <numerusform>%n edited</numerusform>
            <numerusform>%n edited</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n copiate</source>
        <translation>
            <numerusform>%n copied</numerusform>
            <numerusform>%n copied</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non riuscite</source>
        <translation>
            <numerusform>%n failed</numerusform>
            <numerusform>%n failed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n saltate</source>
        <translation>
            <numerusform>%n skipped</numerusform>
            <numerusform>%n skipped</numerusform>
        </translation>
    </message>
    <message>
        <source>Importazione</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>Sincronizzazione</source>
        <translation>Synchronization</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>Trasferimento</source>
        <translation>Transfer</translation>
    </message>
    <message>
        <source>Ottimizzazione memoria</source>
        <translation>Memory optimization</translation>
    </message>
    <message>
        <source>Lista song</source>
        <translation>Songs list</translation>
    </message>
    <message>
        <source>Non letta</source>
        <translation>Not read</translation>
    </message>
    <message>
        <source>Non trovata</source>
        <translation>Not found</translation>
    </message>
    <message>
        <source>Non modificata</source>
        <translation>Not changed</translation>
    </message>
    <message>
        <source>Non salvata</source>
        <translation>Not saved</translation>
    </message>
    <message>
        <source>Non copiata</source>
        <translation>Not copied</translation>
    </message>
    <message>
        <source>Non indicizzata</source>
        <translation>Not indexed</translation>
    </message>
    <message>
        <source>il file non esiste</source>
        <translation>the file does not exist</translation>
    </message>
    <message>
        <source>il file non è accessibile</source>
        <translation>the file is not accessible</translation>
    </message>
    <message>
        <source>non è un file</source>
        <translation>it is not a file</translation>
    </message>
    <message>
        <source>il file è vuoto</source>
        <translation>the file is empty</translation>
    </message>
    <message>
        <source>il file è troppo grande per essere una song</source>
        <translation>the file is too large to be a song</translation>
    </message>
    <message>
        <source>formato sconosciuto o file danneggiato</source>
        <translation>unknown format or damaged file</translation>
    </message>
    <message>
        <source>la tabella non l&apos;ha accettata</source>
        <translation>the table rejected it</translation>
    </message>
    <message>
        <source>il database Kordia non la contiene</source>
        <translation>it is not in the Kordia database</translation>
    </message>
    <message>
        <source>la modifica è stata rifiutata</source>
        <translation>the change was declined</translation>
    </message>
    <message>
        <source>esiste già e non doveva essere sostituita</source>
        <translation>it already exists and was not to be replaced</translation>
    </message>
    <message>
        <source>operazione interrotta</source>
        <translation>the operation was stopped</translation>
    </message>
    <message>
        <source>esiste già</source>
        <translation>it already exists</translation>
    </message>
    <message>
        <source>al suo posto si trova un&apos;altra delle song scelte</source>
        <translation>another of the selected songs has the same name</translation>
    </message>
    <message>
        <source>la cartella non esiste più</source>
        <translation>the folder no longer exists</translation>
    </message>
    <message>
        <source>un altro programma sta lavorando su questa memoria</source>
        <translation>another program is working on this memory</translation>
    </message>
    <message>
        <source>la memoria è protetta da scrittura</source>
        <translation>the memory is write-protected</translation>
    </message>
    <message>
        <source>manca il permesso di scrivere nella cartella</source>
        <translation>there is no permission to write to the folder</translation>
    </message>
    <message>
        <source>spazio insufficiente sul disco</source>
        <translation>not enough space on the disk</translation>
    </message>
    <message>
        <source>non è stato possibile scrivere il file</source>
        <translation>the file could not be written</translation>
    </message>
    <message>
        <source>con i nuovi dati il file sarebbe troppo grande</source>
        <translation>with the new data the file would be too large</translation>
    </message>
    <message>
        <source>gli archivi della memoria non sono completi</source>
        <translation>the memory&apos;s index is not complete</translation>
    </message>
    <message>
        <source>la memoria non è preparata per Brisel</source>
        <translation>the memory is not optimized for Brisel2</translation>
    </message>
    <message>
        <source>non è stato possibile leggere il file fino alla fine</source>
        <translation>could not be read to its end</translation>
    </message>
    <message>
        <source>nel frattempo un altro programma l&apos;ha cambiata</source>
        <translation>was changed by another program</translation>
    </message>
    <message>
        <source>gli archivi non si leggono o il file non si può scrivere</source>
        <translation>the index can not be read or the file can not be written</translation>
    </message>
    <message>
        <source>%1 (%2): %3</source>
        <translation>%1 (%2): %3</translation>
    </message>
    <message>
        <source>la memoria non è più presente</source>
        <translation>the memory is no longer there</translation>
    </message>
    <message numerus="yes">
        <source>e altri %n</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message>
        <source>un altro programma sta usando la cronologia</source>
        <translation>another program is using the history</translation>
    </message>
    <message>
        <source>la cronologia è danneggiata</source>
        <translation>the history is damaged</translation>
    </message>
    <message>
        <source>la ricerca per parole non è disponibile</source>
        <translation>the search by words is not available</translation>
    </message>
    <message numerus="yes">
        <source>%n ripristinate</source>
        <translation>
            <numerusform>%n restored</numerusform>
            <numerusform>%n restored</numerusform>
        </translation>
    </message>
    <message>
        <source>Ripristino</source>
        <translation>Restore</translation>
    </message>
    <message>
        <source>Non ripristinata</source>
        <translation>Not restored</translation>
    </message>
    <message>
        <source>la song è già come prima della modifica</source>
        <translation>the song is already as it was before the change</translation>
    </message>
    <message>
        <source>nella cronologia non c&apos;è più la vecchia versione</source>
        <translation>the old version is no longer in the history</translation>
    </message>
    <message>
        <source>un altro programma l&apos;ha cambiata dopo la modifica</source>
        <translation>another program has changed it since</translation>
    </message>
    <message>
        <source>Modificata: %1</source>
        <translation>Changed: %1</translation>
    </message>
    <message>
        <source>(vuoto)</source>
        <translation>(empty)</translation>
    </message>
    <message>
        <source>«%1»</source>
        <translation>&quot;%1&quot;</translation>
    </message>
    <message>
        <source>%1: %2 → %3</source>
        <translation>%1: %2 → %3</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Author</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Length</translation>
    </message>
    <message>
        <source>Bpm</source>
        <translation>Bpm</translation>
    </message>
    <message>
        <source>Tonalità</source>
        <translation>Key</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Markers</translation>
    </message>
    <message>
        <source>la lista del backup manca o è danneggiata</source>
        <translation>the list of the backup is missing or damaged</translation>
    </message>
    <message>
        <source>la sua riga nella lista del backup è danneggiata</source>
        <translation>its line in the list of the backup is damaged</translation>
    </message>
    <message>
        <source>la lista del backup indica un file che non è una song di quel backup</source>
        <translation>the list of the backup names a file that is not a song of that backup</translation>
    </message>
    <message>
        <source>la lista del backup la indica più di una volta</source>
        <translation>the list of the backup names it more than once</translation>
    </message>
    <message>
        <source>la cronologia è di una versione più recente del programma</source>
        <translation>the history was written by a newer version of the program</translation>
    </message>
    <message>
        <source>il file è cambiato dopo l&apos;anteprima</source>
        <translation>the file was changed after the preview</translation>
    </message>
    <message>
        <source>la song è già come nel backup</source>
        <translation>the song is already as in the backup</translation>
    </message>
    <message>
        <source>la copia nel backup manca o è stata cambiata</source>
        <translation>the copy in the backup is missing or was changed</translation>
    </message>
    <message>
        <source>un altro programma l&apos;ha cambiata dopo il backup</source>
        <translation>another program has changed it since the backup</translation>
    </message>
    <message>
        <source>è diversa dalla copia e non doveva essere sostituita</source>
        <translation>it differs from the copy and was not to be replaced</translation>
    </message>
    <message>
        <source>le modifiche occupano più spazio di quello concesso alla cronologia</source>
        <translation>the changes take more space than the history may have</translation>
    </message>
    <message numerus="yes">
        <source>%n cancellate</source>
        <translation>
            <numerusform>%n deleted</numerusform>
            <numerusform>%n deleted</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancellazione</source>
        <translation>Deletion</translation>
    </message>
    <message>
        <source>Non cancellata</source>
        <translation>Not deleted</translation>
    </message>
    <message>
        <source>non è stato possibile cancellare il file</source>
        <translation>the file could not be deleted</translation>
    </message>
    <message>
        <source>i marker di questa song non si possono riscrivere</source>
        <translation>the markers of this song can&apos;t be rewritten</translation>
    </message>
    <message>
        <source>un marker verrebbe letto come un altro dato della song</source>
        <translation>a marker would be read as another field of the song</translation>
    </message>
    <message>
        <source>si trova fuori dalla memoria</source>
        <translation>it is outside of the memory</translation>
    </message>
    <message>
        <source>non è una song</source>
        <translation>it is not a song</translation>
    </message>
    <message numerus="yes">
        <source>%n rinominate</source>
        <translation>
            <numerusform>%n renamed</numerusform>
            <numerusform>%n renamed</numerusform>
        </translation>
    </message>
    <message>
        <source>Rinomina</source>
        <translation>Renaming</translation>
    </message>
    <message>
        <source>Copia sul computer</source>
        <translation>Copy to the computer</translation>
    </message>
    <message>
        <source>Non rinominata</source>
        <translation>Not renamed</translation>
    </message>
    <message>
        <source>il nuovo nome non è possibile</source>
        <translation>the new name is not possible</translation>
    </message>
    <message>
        <source>non è stato possibile rinominare il file</source>
        <translation>the file could not be renamed</translation>
    </message>
    <message>
        <source>nel frattempo la memoria è stata cambiata, e ora viene letta di nuovo</source>
        <translation>the memory has been changed in the meantime, and is read again now</translation>
    </message>
    <message>
        <source>più file o più song hanno questo percorso</source>
        <translation>more than one file or song has this path</translation>
    </message>
    <message>
        <source>la song ha ora questo nome</source>
        <translation>the song has this name now</translation>
    </message>
    <message>
        <source>una cartella del percorso ha un carattere che Brisel non conosce</source>
        <translation>a folder of the path has a character that Brisel does not know</translation>
    </message>
</context>
<context>
    <name>SongDeletion</name>
    <message>
        <source>Cancellazione file</source>
        <translation>Deleting files</translation>
    </message>
    <message>
        <source>Cancello i file...</source>
        <translation>Deleting the files...</translation>
    </message>
</context>
<context>
    <name>SongOutcome</name>
    <message>
        <source>sincronizzata con il database</source>
        <translation>synchronized with the database</translation>
    </message>
    <message>
        <source>modificata a mano</source>
        <translation>edited by hand</translation>
    </message>
    <message>
        <source>ripristinata</source>
        <translation>restored</translation>
    </message>
    <message>
        <source>non trovata nel database</source>
        <translation>not found in the database</translation>
    </message>
    <message>
        <source>rifiutata</source>
        <translation>declined</translation>
    </message>
    <message>
        <source>non scritta</source>
        <translation>not written</translation>
    </message>
    <message>
        <source>non leggibile</source>
        <translation>not readable</translation>
    </message>
    <message>
        <source>importata</source>
        <translation>imported</translation>
    </message>
</context>
<context>
    <name>SongPicker</name>
    <message>
        <source>Lettura file</source>
        <translation>Reading file</translation>
    </message>
    <message>
        <source>Cerco i brani...</source>
        <translation>Looking for songs...</translation>
    </message>
</context>
<context>
    <name>SongPlayer</name>
    <message>
        <source>formato sconosciuto</source>
        <translation>unknown format</translation>
    </message>
    <message>
        <source>I dati MIDI del brano non si possono suonare.</source>
        <translation>The MIDI data of the song can&apos;t be played.</translation>
    </message>
    <message>
        <source>Il brano non si può leggere:</source>
        <translation>The song can&apos;t be read:</translation>
    </message>
</context>
<context>
    <name>SongPlayers</name>
    <message>
        <source>Questa versione del programma non suona i brani MIDI: è stata costruita senza FluidSynth.</source>
        <translation>This version of the program does not play MIDI songs: it was built without FluidSynth.</translation>
    </message>
    <message>
        <source>Manca un SoundFont General MIDI: installare il pacchetto timgm6mb-soundfont, o sceglierne uno in Preferenze.</source>
        <translation>There is no General MIDI sound font: install the package timgm6mb-soundfont, or choose one in Preferences.</translation>
    </message>
    <message>
        <source>Questa versione del programma non suona gli MP3: è stata costruita senza Qt Multimedia.</source>
        <translation>This version of the program does not play MP3s: it was built without Qt Multimedia.</translation>
    </message>
</context>
<context>
    <name>SongRemoval</name>
    <message>
        <source>Rimozione dalla memoria</source>
        <translation>Removal from the memory</translation>
    </message>
    <message>
        <source>Rimuovo le song...</source>
        <translation>Removing the songs...</translation>
    </message>
</context>
<context>
    <name>SongRename</name>
    <message>
        <source>Scrivere un nome</source>
        <translation>Type a name</translation>
    </message>
    <message>
        <source>Il nome può avere al massimo %1 caratteri</source>
        <translation>The name can have at most %1 characters</translation>
    </message>
    <message>
        <source>In un nome non è permesso il carattere «%1»</source>
        <translation>The character &quot;%1&quot; is not allowed in a name</translation>
    </message>
    <message>
        <source>Brisel non conosce il carattere «%1»</source>
        <translation>Brisel does not know the character &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Il nome non può cominciare o finire con uno spazio</source>
        <translation>The name can&apos;t start or end with a blank</translation>
    </message>
    <message>
        <source>Questo nome è riservato ai sistemi operativi</source>
        <translation>This name is reserved for operating systems</translation>
    </message>
    <message>
        <source>La song ha già questo nome</source>
        <translation>The song already has this name</translation>
    </message>
    <message>
        <source>Nella cartella c&apos;è già un file con questo nome</source>
        <translation>There is already a file of this name in the folder</translation>
    </message>
    <message>
        <source>Il percorso della song sulla memoria sarebbe troppo lungo</source>
        <translation>The path of the song on the memory would be too long</translation>
    </message>
    <message>
        <source>Una playlist contiene ancora una song cancellata con questo nome</source>
        <translation>A playlist still has a deleted song of this name</translation>
    </message>
</context>
<context>
    <name>SyncPreview</name>
    <message>
        <source>Anteprima</source>
        <translation>Preview</translation>
    </message>
    <message>
        <source>Cerco le song nel database...</source>
        <translation>Looking the songs up in the database...</translation>
    </message>
</context>
<context>
    <name>Synchroniser</name>
    <message>
        <source>Aggiornamento file</source>
        <translation>Updating file</translation>
    </message>
    <message>
        <source>Aggiorno la libreria...</source>
        <translation>Updating library...</translation>
    </message>
</context>
<context>
    <name>TimeLeft</name>
    <message>
        <source>ancora pochi secondi</source>
        <translation>a few seconds left</translation>
    </message>
    <message>
        <source>ancora circa %1 secondi</source>
        <translation>about %1 seconds left</translation>
    </message>
    <message>
        <source>ancora circa %1 minuti</source>
        <translation>about %1 minutes left</translation>
    </message>
    <message>
        <source>ancora circa %1 ore</source>
        <translation>about %1 hours left</translation>
    </message>
</context>
<context>
    <name>Transfer</name>
    <message>
        <source>Trasferimento</source>
        <translation>Transfer</translation>
    </message>
    <message>
        <source>Trasferimento file...</source>
        <translation>Transferring files...</translation>
    </message>
    <message>
        <source>Aggiornamento</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Aggiornamento database...</source>
        <translation>Updating database...</translation>
    </message>
    <message>
        <source>Confronto delle song...</source>
        <translation>Comparing the songs...</translation>
    </message>
</context>
<context>
    <name>TransferPlan</name>
    <message>
        <source>Piano del trasferimento</source>
        <translation>Transfer plan</translation>
    </message>
    <message>
        <source>Confronto con la memoria...</source>
        <translation>Comparing with the memory...</translation>
    </message>
</context>
<context>
    <name>WindowRun</name>
    <message>
        <source>Interrompi</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>%1 di %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message>
        <source>esiste già, vuoi sostituirlo?</source>
        <translation>is already present, replace it?</translation>
    </message>
</context>
<context>
    <name>brisel::AboutDialog</name>
    <message>
        <source>Informazioni</source>
        <translation>About</translation>
    </message>
    <message>
        <source>Brisel2 PC</source>
        <translation>Brisel2 PC</translation>
    </message>
    <message>
        <source>Version:&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp; %1&lt;br/&gt;Build date: %2&lt;br/&gt;</source>
        <translation>Version:&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp; %1&lt;br/&gt;Build date: %2&lt;br/&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Kordia&lt;/b&gt;&lt;br/&gt;Per informazioni e assistenza rivolgersi al servizio clienti Kordia o al proprio rivenditore.</source>
        <translation>&lt;b&gt;Kordia&lt;/b&gt;&lt;br/&gt;For information and support please contact Kordia customer service or your dealer.</translation>
    </message>
</context>
<context>
    <name>brisel::BackupDialog</name>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>Si consiglia di effettuare un backup della libreria prima di procedere con l&apos;aggiornamento.
Selezionare una cartella di destinazione per il backup oppure premere &apos;Prosegui senza backup&apos;.</source>
        <translation>It is advisable to back up the library before proceeding with the update.
Select a destination folder for the backup or press &apos;Proceed without backup&apos;.</translation>
    </message>
    <message>
        <source>Sfoglia...</source>
        <translation>Browse...</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Esegui backup</source>
        <translation>Do backup</translation>
    </message>
    <message>
        <source>Prosegui senza backup</source>
        <translation>Proceed without backup</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Select folder</translation>
    </message>
    <message>
        <source>Cartella del backup</source>
        <translation>Folder of the backup</translation>
    </message>
    <message>
        <source>Cartella in cui salvare il backup</source>
        <translation>Folder in which the backup is saved</translation>
    </message>
    <message>
        <source>Sceglie la cartella del backup</source>
        <translation>Chooses the folder of the backup</translation>
    </message>
    <message>
        <source>Rinuncia alla sincronizzazione</source>
        <translation>Cancels the synchronization</translation>
    </message>
    <message>
        <source>Copia i file scelti, poi li sincronizza</source>
        <translation>Copies the chosen files, then synchronizes them</translation>
    </message>
    <message>
        <source>Sincronizza i file senza copiarli prima</source>
        <translation>Synchronizes the files without copying them first</translation>
    </message>
    <message>
        <source>La cronologia non può conservare queste modifiche: %1</source>
        <translation>The history can&apos;t keep these changes: %1</translation>
    </message>
</context>
<context>
    <name>brisel::BackupModel</name>
    <message>
        <source>Copia</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Da dove viene</source>
        <translation>Where it came from</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Note</translation>
    </message>
</context>
<context>
    <name>brisel::BackupRestoreDialog</name>
    <message>
        <source>Ripristina backup</source>
        <translation>Restore backup</translation>
    </message>
    <message>
        <source>Le copie scelte tornano al loro posto. Prima di sostituire una song cambiata da un altro programma viene fatta una domanda.</source>
        <translation>The chosen copies are put back in their places. The program asks before it replaces a song that another program has changed.</translation>
    </message>
    <message>
        <source>Copie del backup</source>
        <translation>Copies of the backup</translation>
    </message>
    <message>
        <source>Le copie del backup, con il posto da cui vengono; quelle segnate vengono ripristinate</source>
        <translation>The copies of the backup, with the place they came from; those that are checked are restored</translation>
    </message>
    <message>
        <source>Segna tutte le copie</source>
        <translation>Checks all copies</translation>
    </message>
    <message>
        <source>&amp;Tutte</source>
        <translation>&amp;All</translation>
    </message>
    <message>
        <source>Toglie il segno a tutte le copie</source>
        <translation>Unchecks all copies</translation>
    </message>
    <message>
        <source>&amp;Nessuna</source>
        <translation>&amp;None</translation>
    </message>
    <message>
        <source>Rimette le copie segnate al loro posto</source>
        <translation>Puts the checked copies back in their places</translation>
    </message>
    <message>
        <source>&amp;Ripristina</source>
        <translation>&amp;Restore</translation>
    </message>
    <message>
        <source>Lascia le song come sono</source>
        <translation>Leaves the songs as they are</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Cancel</translation>
    </message>
</context>
<context>
    <name>brisel::CatalogueSearchDialog</name>
    <message>
        <source>Cerca nel catalogo</source>
        <translation>Search the catalogue</translation>
    </message>
    <message>
        <source>&amp;Parole</source>
        <translation>W&amp;ords</translation>
    </message>
    <message>
        <source>Parole del titolo, dell&apos;artista o del nome del file</source>
        <translation>Words from the title, the artist or the file name</translation>
    </message>
    <message>
        <source>Song del catalogo</source>
        <translation>Songs of the catalogue</translation>
    </message>
    <message>
        <source>Song del database Kordia; un doppio clic sceglie la riga</source>
        <translation>Songs of the Kordia database; a double click chooses a row</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Nome file</source>
        <translation>File name</translation>
    </message>
    <message>
        <source>&amp;Scegli</source>
        <translation>C&amp;hoose</translation>
    </message>
    <message>
        <source>Usa i dati della riga per questa song</source>
        <translation>Uses the data of the row for this song</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Chiude la ricerca senza scegliere</source>
        <translation>Closes the search without choosing</translation>
    </message>
    <message>
        <source>Nessuna song con queste parole</source>
        <translation>No song with these words</translation>
    </message>
    <message>
        <source>Le song più simili sono le prime</source>
        <translation>The most similar songs come first</translation>
    </message>
    <message>
        <source>Song da cercare: %1</source>
        <translation>Song to look for: %1</translation>
    </message>
</context>
<context>
    <name>brisel::ColumnLayout</name>
    <message>
        <source>Mostra o nasconde la colonna &quot;%1&quot;</source>
        <translation>Shows or hides the column &quot;%1&quot;</translation>
    </message>
</context>
<context>
    <name>brisel::DataEditDialog</name>
    <message>
        <source>Modifica dati song</source>
        <translation>Edit song details</translation>
    </message>
    <message>
        <source>Percorso file:</source>
        <translation>File path:</translation>
    </message>
    <message>
        <source>Formato:</source>
        <translation>Format:</translation>
    </message>
    <message>
        <source>Titolo Song:</source>
        <translation>Song title:</translation>
    </message>
    <message>
        <source>Usa il titolo</source>
        <translation>Use the title</translation>
    </message>
    <message>
        <source>Usa il filename</source>
        <translation>Use the file name</translation>
    </message>
    <message>
        <source>Applica a tutti</source>
        <translation>Apply to all</translation>
    </message>
    <message>
        <source>Interprete:</source>
        <translation>Artist:</translation>
    </message>
    <message>
        <source>Genere Musicale:</source>
        <translation>Genre:</translation>
    </message>
    <message>
        <source>Autore:</source>
        <translation>Author:</translation>
    </message>
    <message>
        <source>Durata:</source>
        <translation>Length:</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>mm</translation>
    </message>
    <message>
        <source>ss</source>
        <translation>ss</translation>
    </message>
    <message>
        <source>BPM:</source>
        <translation>BPM:</translation>
    </message>
    <message>
        <source>Tonalità:</source>
        <translation>Key:</translation>
    </message>
    <message>
        <source>Salva</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Il titolo di tutte le song della lista verrà sovrascritto non il nome del file, sei sicuro?</source>
        <translation>The title of all the songs in the list will be overwritten with the file name, are you sure?</translation>
    </message>
    <message>
        <source>L&apos;interprete inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>The artist entered will be applied to all the songs in the list, are you sure?</translation>
    </message>
    <message>
        <source>Il genere inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>The genre entered will be applied to all the songs in the list, are you sure?</translation>
    </message>
    <message>
        <source>L&apos;autore inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>The author entered will be applied to all the songs in the list, are you sure?</translation>
    </message>
    <message>
        <source>ATTENZIONE</source>
        <translation>WARNING</translation>
    </message>
    <message>
        <source>Titolo della song</source>
        <translation>Title of the song</translation>
    </message>
    <message>
        <source>Rimette il titolo letto dal file</source>
        <translation>Restores the title that was read from the file</translation>
    </message>
    <message>
        <source>Usa come titolo il nome del file senza estensione</source>
        <translation>Takes the file name without its extension as the title</translation>
    </message>
    <message>
        <source>Applica a tutti: titolo</source>
        <translation>Apply to all: title</translation>
    </message>
    <message>
        <source>Dà a ogni song della lista il nome del suo file come titolo</source>
        <translation>Gives every song of the list its file name as the title</translation>
    </message>
    <message>
        <source>Interprete: dall&apos;elenco oppure scritto a mano</source>
        <translation>Artist: from the list or written by hand</translation>
    </message>
    <message>
        <source>Applica a tutti: interprete</source>
        <translation>Apply to all: artist</translation>
    </message>
    <message>
        <source>Scrive questo interprete in tutte le song della lista</source>
        <translation>Writes this artist into all songs of the list</translation>
    </message>
    <message>
        <source>Genere: dall&apos;elenco oppure scritto a mano</source>
        <translation>Genre: from the list or written by hand</translation>
    </message>
    <message>
        <source>Applica a tutti: genere</source>
        <translation>Apply to all: genre</translation>
    </message>
    <message>
        <source>Scrive questo genere in tutte le song della lista</source>
        <translation>Writes this genre into all songs of the list</translation>
    </message>
    <message>
        <source>Autore della song</source>
        <translation>Author of the song</translation>
    </message>
    <message>
        <source>Applica a tutti: autore</source>
        <translation>Apply to all: author</translation>
    </message>
    <message>
        <source>Scrive questo autore in tutte le song della lista</source>
        <translation>Writes this author into all songs of the list</translation>
    </message>
    <message>
        <source>Durata, minuti</source>
        <translation>Length, minutes</translation>
    </message>
    <message>
        <source>Durata: minuti</source>
        <translation>Length: minutes</translation>
    </message>
    <message>
        <source>Durata, secondi</source>
        <translation>Length, seconds</translation>
    </message>
    <message>
        <source>Durata: secondi</source>
        <translation>Length: seconds</translation>
    </message>
    <message>
        <source>Tempo, in battiti al minuto</source>
        <translation>Tempo, in beats per minute</translation>
    </message>
    <message>
        <source>Tonalità; il segno - indica il modo minore</source>
        <translation>Key; the sign - means minor</translation>
    </message>
    <message>
        <source>Scrive i dati nel file della song</source>
        <translation>Writes the data into the song file</translation>
    </message>
    <message>
        <source>Lascia il file com&apos;è</source>
        <translation>Leaves the file as it is</translation>
    </message>
    <message>
        <source>Nel file diventeranno &quot;?&quot;: %1</source>
        <translation>In the file these will become &quot;?&quot;: %1</translation>
    </message>
    <message>
        <source>Nei file che non sono MP3 diventeranno &quot;?&quot;: %1</source>
        <translation>In files other than MP3 these will become &quot;?&quot;: %1</translation>
    </message>
    <message>
        <source>Song da modificare: %1</source>
        <translation>Songs to be changed: %1</translation>
    </message>
    <message>
        <source>Anche quelle nascoste dalla ricerca: %1</source>
        <translation>Including those hidden by the search: %1</translation>
    </message>
    <message>
        <source>Prende titolo e interprete dal nome del file: Interprete - Titolo</source>
        <translation>Takes title and artist from the file name: Artist - Title</translation>
    </message>
    <message>
        <source>Dal nome del file</source>
        <translation>From file name</translation>
    </message>
    <message>
        <source>Verrà svuotato in tutte le song selezionate</source>
        <translation>Will be emptied in all selected songs</translation>
    </message>
    <message>
        <source>%1 song selezionate</source>
        <translation>%1 selected songs</translation>
    </message>
    <message>
        <source>Modifica dati di %1 song</source>
        <translation>Edit details of %1 songs</translation>
    </message>
    <message>
        <source>&lt;diversi&gt;</source>
        <translation>&lt;various&gt;</translation>
    </message>
    <message>
        <source>&lt;dal nome del file&gt;</source>
        <translation>&lt;from file name&gt;</translation>
    </message>
    <message>
        <source>Passa alla song precedente della tabella (Ctrl+Pag su)</source>
        <translation>Goes to the previous song of the table (Ctrl+Page Up)</translation>
    </message>
    <message>
        <source>Precedente</source>
        <translation>Previous</translation>
    </message>
    <message>
        <source>Passa alla song successiva della tabella (Ctrl+Pag giù); Ctrl+Invio prima salva</source>
        <translation>Goes to the next song of the table (Ctrl+Page Down); Ctrl+Return saves before</translation>
    </message>
    <message>
        <source>Successiva</source>
        <translation>Next</translation>
    </message>
    <message>
        <source>Salvare le modifiche?</source>
        <translation>Save the changes?</translation>
    </message>
    <message>
        <source>Marker (%1)...</source>
        <translation>Markers (%1)...</translation>
    </message>
    <message>
        <source>Marker...</source>
        <translation>Markers...</translation>
    </message>
    <message>
        <source>Mostra e modifica i marker della song: battuta e testo</source>
        <translation>Shows and edits the markers of the song: bar and text</translation>
    </message>
    <message>
        <source>I marker si modificano in una song alla volta</source>
        <translation>Markers are edited in one song at a time</translation>
    </message>
    <message>
        <source>Le song di questo formato non hanno marker</source>
        <translation>Songs of this format have no markers</translation>
    </message>
</context>
<context>
    <name>brisel::EntryGuess</name>
    <message>
        <source>è al percorso che il programma aveva annotato</source>
        <translation>is at the path that the program had noted</translation>
    </message>
    <message>
        <source>ha lo stesso titolo, tempo e formato</source>
        <translation>has the same title, tempo and format</translation>
    </message>
    <message>
        <source>ha lo stesso titolo</source>
        <translation>has the same title</translation>
    </message>
    <message>
        <source>ha un titolo simile</source>
        <translation>has a similar title</translation>
    </message>
</context>
<context>
    <name>brisel::ExportListDialog</name>
    <message>
        <source>Esporta elenco</source>
        <translation>Export list</translation>
    </message>
    <message>
        <source>&amp;Ordine:</source>
        <translation>&amp;Order:</translation>
    </message>
    <message>
        <source>L&apos;ordine delle song nell&apos;elenco</source>
        <translation>The order of the songs in the list</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Le song che l&apos;elenco contiene</source>
        <translation>The songs that the list contains</translation>
    </message>
    <message>
        <source>Tutte</source>
        <translation>All</translation>
    </message>
    <message>
        <source>Solo MP3</source>
        <translation>Only MP3</translation>
    </message>
    <message>
        <source>&amp;Formato:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <source>Un testo per fogli di calcolo, o una pagina da stampare</source>
        <translation>A text for spreadsheets, or a page to print</translation>
    </message>
    <message>
        <source>CSV, per fogli di calcolo</source>
        <translation>CSV, for spreadsheets</translation>
    </message>
    <message>
        <source>HTML, da stampare</source>
        <translation>HTML, to print</translation>
    </message>
    <message>
        <source>Chiede il nome del file e lo salva</source>
        <translation>Asks for the file&apos;s name and saves it</translation>
    </message>
    <message>
        <source>&amp;Salva...</source>
        <translation>&amp;Save...</translation>
    </message>
    <message>
        <source>Non salva l&apos;elenco</source>
        <translation>Doesn&apos;t save the list</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>So&amp;ng:</source>
        <translation>So&amp;ngs:</translation>
    </message>
</context>
<context>
    <name>brisel::FoldersModel</name>
    <message>
        <source>Doppioni</source>
        <translation>Duplicates</translation>
    </message>
    <message>
        <source>Nuove, non ancora nell&apos;indice</source>
        <translation>New, not yet in the index</translation>
    </message>
    <message>
        <source>Troppo lunghi</source>
        <translation>Too long</translation>
    </message>
    <message>
        <source>Non leggibili</source>
        <translation>Unreadable</translation>
    </message>
    <message>
        <source>Grafica senza il suo MP3</source>
        <translation>Graphics without their MP3</translation>
    </message>
    <message>
        <source>Cartella di lavoro del programma</source>
        <translation>Work folder of the program</translation>
    </message>
    <message>
        <source>il percorso ha più di 45 caratteri: Brisel non può avere la song</source>
        <translation>the path has more than 45 characters: Brisel can&apos;t have the song</translation>
    </message>
    <message>
        <source>il nome ha più di otto caratteri</source>
        <translation>the name has more than eight characters</translation>
    </message>
    <message>
        <source>il nome della cartella ha più di otto caratteri</source>
        <translation>the folder&apos;s name has more than eight characters</translation>
    </message>
    <message>
        <source>la cartella non si può leggere fino alla fine</source>
        <translation>the folder can&apos;t be read to its end</translation>
    </message>
    <message>
        <source>il file non si può leggere</source>
        <translation>the file can&apos;t be read</translation>
    </message>
    <message>
        <source>il file è vuoto o troppo corto</source>
        <translation>the file is empty or too short</translation>
    </message>
    <message>
        <source>non è un file</source>
        <translation>it is not a file</translation>
    </message>
    <message>
        <source>il nome non è valido</source>
        <translation>the name is not valid</translation>
    </message>
    <message>
        <source>porta fuori dalla memoria</source>
        <translation>it leads out of the memory</translation>
    </message>
    <message>
        <source>uguale a %1</source>
        <translation>same as %1</translation>
    </message>
    <message>
        <source>qui il programma tiene i nomi abbreviati e ciò che serve a finire un aggiornamento interrotto; Brisel non la usa</source>
        <translation>here the program keeps short names, and what it needs to finish an interrupted update; Brisel does not use it</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Percorso</source>
        <translation>Path</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Note</translation>
    </message>
</context>
<context>
    <name>brisel::FoldersView</name>
    <message>
        <source>File e cartelle della memoria</source>
        <translation>Files and folders of the memory</translation>
    </message>
    <message>
        <source>Ciò che sta sulla memoria e non è una song dell&apos;indice</source>
        <translation>What is on the memory and is not a song of the index</translation>
    </message>
    <message>
        <source>Legge le song di uguale dimensione e mostra quelle con lo stesso contenuto</source>
        <translation>Reads songs of the same size and shows those with the same content</translation>
    </message>
    <message>
        <source>Cerca &amp;doppioni</source>
        <translation>Find &amp;duplicates</translation>
    </message>
    <message>
        <source>Ricerca dei doppioni</source>
        <translation>Search for duplicates</translation>
    </message>
    <message>
        <source>Quanto è stato letto</source>
        <translation>How much has been read</translation>
    </message>
    <message>
        <source>&amp;Interrompi</source>
        <translation>&amp;Stop</translation>
    </message>
    <message>
        <source>La memoria non è ancora letta</source>
        <translation>The memory has not been read yet</translation>
    </message>
    <message>
        <source>Nessun doppione</source>
        <translation>No duplicates</translation>
    </message>
    <message>
        <source>Sulla memoria ci sono solo le song dell&apos;indice</source>
        <translation>There are only the songs of the index on the memory</translation>
    </message>
</context>
<context>
    <name>brisel::HelpDialog</name>
    <message>
        <source>Aiuto Brisel2 PC</source>
        <translation>Help for Brisel2 PC</translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation>Help for Brisel2 PC</translation>
    </message>
    <message>
        <source>Guida all&apos;uso</source>
        <translation>User guide</translation>
    </message>
</context>
<context>
    <name>brisel::HistoryDialog</name>
    <message>
        <source>Cronologia modifiche</source>
        <translation>History of changes</translation>
    </message>
    <message>
        <source>Le operazioni, la più recente per prima; in ognuna le song, e per ogni song i dati di prima e di dopo</source>
        <translation>The operations, newest first; below each its songs, and below each song its data before and after</translation>
    </message>
    <message>
        <source>Spazio &amp;massimo:</source>
        <translation>&amp;Maximum space:</translation>
    </message>
    <message>
        <source>Spazio massimo della cronologia; quando è piena, le operazioni più vecchie vengono tolte. Mai più del 5% del disco</source>
        <translation>The most space that the history may take; when it is full, the oldest operations are removed. Never more than 5% of the disk</translation>
    </message>
    <message>
        <source> MiB</source>
        <translation> MiB</translation>
    </message>
    <message>
        <source>Toglie tutte le operazioni dalla cronologia, dopo una domanda</source>
        <translation>Removes all operations from the history, after a confirmation</translation>
    </message>
    <message>
        <source>&amp;Svuota</source>
        <translation>&amp;Clear</translation>
    </message>
    <message>
        <source>Rimette le song selezionate, o tutte quelle delle operazioni selezionate, com&apos;erano prima</source>
        <translation>Puts the selected songs, or all those of the selected operations, back as they were before</translation>
    </message>
    <message>
        <source>&amp;Ripristina</source>
        <translation>&amp;Restore</translation>
    </message>
    <message>
        <source>Mostra il resoconto dell&apos;operazione selezionata</source>
        <translation>Shows the report of the selected operation</translation>
    </message>
    <message>
        <source>&amp;Apri resoconto</source>
        <translation>&amp;Open report</translation>
    </message>
    <message>
        <source>Chiude la cronologia</source>
        <translation>Closes the history</translation>
    </message>
    <message>
        <source>C&amp;hiudi</source>
        <translation>C&amp;lose</translation>
    </message>
    <message>
        <source>Spazio usato: %1 (al massimo %2)</source>
        <translation>Space used: %1 (at most %2)</translation>
    </message>
    <message>
        <source>La cronologia non si può leggere: %1</source>
        <translation>The history can&apos;t be read: %1</translation>
    </message>
    <message>
        <source>La cronologia è vuota: il programma non ha ancora modificato song</source>
        <translation>The history is empty: the program has not changed any songs yet</translation>
    </message>
    <message>
        <source>Vuotare la cronologia? Le modifiche fatte finora non si potranno più annullare.</source>
        <translation>Clear the history? It will no longer be possible to take back the changes made so far.</translation>
    </message>
    <message>
        <source>La cronologia non si può vuotare: %1</source>
        <translation>The history can&apos;t be cleared: %1</translation>
    </message>
    <message>
        <source>La cronologia non si può vuotare</source>
        <translation>The history can&apos;t be cleared</translation>
    </message>
</context>
<context>
    <name>brisel::HistoryModel</name>
    <message>
        <source>Sincronizzazione</source>
        <translation>Synchronization</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>Applica a tutti</source>
        <translation>Apply to all</translation>
    </message>
    <message>
        <source>Ripristino</source>
        <translation>Restore</translation>
    </message>
    <message>
        <source>%1 - %2</source>
        <translation>%1 - %2</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n songs</numerusform>
        </translation>
    </message>
    <message>
        <source>come scritta allora</source>
        <translation>still as written</translation>
    </message>
    <message>
        <source>come prima della modifica</source>
        <translation>as it was before the change</translation>
    </message>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>the file is no longer there</translation>
    </message>
    <message>
        <source>modificata di nuovo in seguito</source>
        <translation>changed again later</translation>
    </message>
    <message>
        <source>cambiata in seguito da un altro programma</source>
        <translation>changed later by another program</translation>
    </message>
    <message>
        <source>Operazione, song, dato</source>
        <translation>Operation, song, field</translation>
    </message>
    <message>
        <source>Prima</source>
        <translation>Before</translation>
    </message>
    <message>
        <source>Dopo</source>
        <translation>After</translation>
    </message>
    <message>
        <source>Stato</source>
        <translation>State</translation>
    </message>
</context>
<context>
    <name>brisel::Index</name>
    <message>
        <source>File non importato, errore nel path:</source>
        <translation>File not imported, path error:</translation>
    </message>
    <message>
        <source>File non importato, path troppo lungo: </source>
        <translation>File not imported, path too long: </translation>
    </message>
    <message>
        <source>File non importato, memoria piena: </source>
        <translation>File not imported, memory full: </translation>
    </message>
    <message>
        <source>Rinominato: </source>
        <translation>Renamed: </translation>
    </message>
    <message>
        <source>File non importato, impossibile rinominare: </source>
        <translation>File not imported, unable to rename: </translation>
    </message>
    <message>
        <source>verrà rinominato: </source>
        <translation>will be renamed: </translation>
    </message>
    <message>
        <source>Se il file non viene rinominato, è possibile che non venga rilevato da Brisel.</source>
        <translation>If the file is not renamed, Brisel may not be able to find it.</translation>
    </message>
    <message>
        <source>TITOLO</source>
        <translation>TITLE</translation>
    </message>
    <message>
        <source>ARTISTA</source>
        <translation>ARTIST</translation>
    </message>
    <message>
        <source>GENERE</source>
        <translation>GENRE</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>File non importato, si trova fuori dalla memoria: </source>
        <translation>File not imported, it is outside the memory: </translation>
    </message>
    <message>
        <source>Cartella non importata, impossibile leggerla: </source>
        <translation>Folder not imported, unable to read it: </translation>
    </message>
    <message>
        <source>Cartella importata solo in parte, errore di lettura: </source>
        <translation>Folder imported only in part, read error: </translation>
    </message>
    <message>
        <source>File non importato, non è accessibile: </source>
        <translation>File not imported, it is not accessible: </translation>
    </message>
    <message>
        <source>File non importato, non è un file: </source>
        <translation>File not imported, it is not a file: </translation>
    </message>
    <message>
        <source>File non importato, il collegamento non porta a nessun file: </source>
        <translation>File not imported, the link does not lead to a file: </translation>
    </message>
    <message>
        <source>File non leggibile, la song è indicizzata con il solo nome: </source>
        <translation>Unreadable file, the song is indexed with its name only: </translation>
    </message>
    <message>
        <source>File non leggibile, la song resta indicizzata com&apos;era: </source>
        <translation>Unreadable file, the song keeps its entry in the index: </translation>
    </message>
    <message>
        <source>File non importato, il nome non è valido: </source>
        <translation>File not imported, the name is not valid: </translation>
    </message>
    <message>
        <source>File non importato, il collegamento porta a una cartella già importata: </source>
        <translation>File not imported, the link leads to a folder that is already imported: </translation>
    </message>
    <message>
        <source>Il nome ha caratteri che Brisel non conosce e la song non si può aprire, rinominare il file o la sua cartella: </source>
        <translation>The name has characters that Brisel does not know and the song can not be opened, rename the file or its folder: </translation>
    </message>
    <message>
        <source>L&apos;indice era danneggiato ed è stato riparato</source>
        <translation>The index was damaged and has been repaired</translation>
    </message>
    <message>
        <source>Cartella rinominata, il suo nome serve all&apos;indice: </source>
        <translation>Folder renamed, its name is needed for the index: </translation>
    </message>
    <message>
        <source>Playlist non aggiornata: </source>
        <translation>Playlist not updated: </translation>
    </message>
    <message>
        <source>Elenco delle song MP3</source>
        <translation>List of the MP3 songs</translation>
    </message>
    <message>
        <source>Elenco delle song</source>
        <translation>List of the songs</translation>
    </message>
    <message>
        <source>it</source>
        <comment>la lingua della pagina</comment>
        <translation>en</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n songs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>brisel::IndexDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Optimize memory</translation>
    </message>
    <message>
        <source>Seleziona la cartella principale della Compact Flash o della Penna USB che vuoi ottimizzare per Brisel:</source>
        <translation>Select the main folder of the Compact Flash or USB stick that you want to optimize for Brisel:</translation>
    </message>
    <message>
        <source>Sfoglia</source>
        <translation>Browse</translation>
    </message>
    <message>
        <source>Seleziona l&apos;azione che vuoi eseguire:</source>
        <translation>Select the action that you want to perform:</translation>
    </message>
    <message>
        <source>Ho inserito o eliminato alcune song, aggiorna database</source>
        <translation>I have added or deleted some songs, update database</translation>
    </message>
    <message>
        <source>Ho problemi con gli archivi, ricostruisci database</source>
        <translation>I have problems with the archives, rebuild database</translation>
    </message>
    <message>
        <source>Controlla struttura memoria</source>
        <translation>Check memory structure</translation>
    </message>
    <message>
        <source>File found:</source>
        <translation>File found:</translation>
    </message>
    <message>
        <source>Report:</source>
        <translation>Report:</translation>
    </message>
    <message>
        <source>Inizia</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Select folder</translation>
    </message>
    <message>
        <source>Ottimizza memoria</source>
        <translation>Optimize memory</translation>
    </message>
    <message>
        <source>Il percorso selezionato non esiste</source>
        <translation>The selected path does not exist</translation>
    </message>
    <message>
        <source>Operazione completata</source>
        <translation>Operation completed</translation>
    </message>
    <message>
        <source>Ottimizzazione memoria in corso...</source>
        <translation>Optimizing memory...</translation>
    </message>
    <message>
        <source>Durante l&apos;operazione si sono verificati alcuni errori.
Consultare il report per maggiori informazioni.</source>
        <translation>Some errors occurred during the operation.
See the report for more information.</translation>
    </message>
    <message>
        <source>Operazione completata con successo</source>
        <translation>Operation completed successfully</translation>
    </message>
    <message>
        <source>Operazione non riuscita.
Assicurarsi che il disco abbia sufficiente spazio libero e che non sia protetto da scrittura.</source>
        <translation>Operation failed.
Make sure that the disk has enough free space and is not write-protected.</translation>
    </message>
    <message>
        <source>Cartella della memoria</source>
        <translation>Folder of the memory</translation>
    </message>
    <message>
        <source>Sfoglia: cartella della memoria</source>
        <translation>Browse: folder of the memory</translation>
    </message>
    <message>
        <source>Sceglie la cartella della memoria</source>
        <translation>Chooses the folder of the memory</translation>
    </message>
    <message>
        <source>Rilegge solo le song nuove o cambiate</source>
        <translation>Reads only new or changed songs again</translation>
    </message>
    <message>
        <source>Cancella gli archivi e li rifà da capo</source>
        <translation>Deletes the archives and rebuilds them</translation>
    </message>
    <message>
        <source>Chiede anche un controllo della struttura della memoria</source>
        <translation>Also checks the structure of the memory</translation>
    </message>
    <message>
        <source>Avanzamento</source>
        <translation>Progress</translation>
    </message>
    <message>
        <source>Avanzamento del lavoro</source>
        <translation>Progress of the operation</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Report</translation>
    </message>
    <message>
        <source>Elenca i file rifiutati, uno per riga</source>
        <translation>Lists the rejected files, one per line</translation>
    </message>
    <message>
        <source>Avvia il lavoro; con Maiusc premuto lavora proprio sulla cartella indicata</source>
        <translation>Starts the operation; with Shift held down, on exactly the given folder</translation>
    </message>
    <message>
        <source>Chiude la finestra</source>
        <translation>Closes the window</translation>
    </message>
    <message>
        <source>Controllo memoria non eseguito!</source>
        <translation>Memory check not performed!</translation>
    </message>
    <message>
        <source>Controllo memoria</source>
        <translation>Memory check</translation>
    </message>
    <message>
        <source>Nessun errore trovato</source>
        <translation>No errors found</translation>
    </message>
    <message>
        <source>ATTENZIONE</source>
        <translation>WARNING</translation>
    </message>
    <message>
        <source>Non è stato possibile correggere gli errori, è necesario formattare la memoria</source>
        <translation>It was not possible to correct the errors, the memory must be formatted</translation>
    </message>
</context>
<context>
    <name>brisel::MainWindow</name>
    <message>
        <source>Brisel2 PC</source>
        <translation>Brisel2 PC</translation>
    </message>
    <message>
        <source>Seleziona le basi musicali che desideri inserire nella memoria di Brisel</source>
        <translation>Select the songs you wish to put in the memory dedicated to Brisel2</translation>
    </message>
    <message>
        <source>Sincronizza song con il database Kordia</source>
        <translation>Sync your songs with the Kordia database</translation>
    </message>
    <message>
        <source>Trasferisci song nella memoria di Brisel</source>
        <translation>Transfer songs in the Brisel2 memory</translation>
    </message>
    <message>
        <source>Opzioni nascoste</source>
        <translation>Hidden options</translation>
    </message>
    <message>
        <source>Abilita log (riavvio necessario!)</source>
        <translation>Enable log (restart required!)</translation>
    </message>
    <message>
        <source>Cancella log ad ogni avvio</source>
        <translation>Clear log every run</translation>
    </message>
    <message>
        <source>Debug</source>
        <translation>Debug</translation>
    </message>
    <message>
        <source>Add Marker</source>
        <translation>Add Marker</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Import again</source>
        <translation>Import again</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>Manual Dialog</source>
        <translation>Manual Dialog</translation>
    </message>
    <message>
        <source>Hide Debug</source>
        <translation>Hide Debug</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Preferenze</source>
        <translation>Preferences</translation>
    </message>
    <message>
        <source>Lingua</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>Messaggi Copyright</source>
        <translation>Show copyright messages</translation>
    </message>
    <message>
        <source>Strumenti</source>
        <translation>Tools</translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Esci</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>Italiano</source>
        <translation>Italiano</translation>
    </message>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>Deutsch</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>Si</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Rigenera il database delle song</source>
        <translation>Rebuild songs database</translation>
    </message>
    <message>
        <source>Salva lista delle song</source>
        <translation>Save songs list</translation>
    </message>
    <message>
        <source>Aiuto Brisel PC</source>
        <translation>Help for Brisel2 PC</translation>
    </message>
    <message>
        <source>Informazioni</source>
        <translation>About</translation>
    </message>
    <message>
        <source>Informazioni su QT</source>
        <translation>About QT</translation>
    </message>
    <message>
        <source>Seleziona i file da importare</source>
        <translation>Select files to import</translation>
    </message>
    <message>
        <source>Lettura file</source>
        <translation>Reading file</translation>
    </message>
    <message>
        <source>Remove from list</source>
        <translation>Remove from list</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>Delete file</translation>
    </message>
    <message>
        <source>Attenzione</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Sei sicuro di voler cancellare il file?</source>
        <translation>Are you sure you want to permanently delete the file?</translation>
    </message>
    <message>
        <source>Backup FALLITO !!!</source>
        <translation>Backup FAILED !!!</translation>
    </message>
    <message>
        <source>Backup eseguito correttamente</source>
        <translation>Backup done correctly</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Select folder</translation>
    </message>
    <message>
        <source>Trasferimento</source>
        <translation>Transfer</translation>
    </message>
    <message>
        <source>Tutti i file sono stati copiati correttamente</source>
        <translation>All the files have been copied successfully</translation>
    </message>
    <message>
        <source>Non è stato possibile copiare uno o più file</source>
        <translation>It was not possible to copy one or more files</translation>
    </message>
    <message>
        <source>Non è possibile copiare i file sul disco di sistema</source>
        <translation>Can not copy the file on system disc</translation>
    </message>
    <message>
        <source>Non è possibile copiare i file sulla cartella principale, creare o selezionare una sottocartella</source>
        <translation>It is not possible to copy files on the main folder, select or create a subfolder</translation>
    </message>
    <message>
        <source>Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono riservate per funzionalità specifiche di Brisel, selezionare un&apos;altra cartella</source>
        <translation>You can not use BRIDGE, SFX and PLAYLIST folders, they are reserved for BRISEL2. Select another folder</translation>
    </message>
    <message>
        <source>Cerca nella tabella</source>
        <translation>Search the table</translation>
    </message>
    <message>
        <source>Nessun brano corrisponde alla ricerca</source>
        <translation>No song matches the search</translation>
    </message>
    <message>
        <source>Non è stato trovato nessun brano</source>
        <translation>No song was found</translation>
    </message>
    <message>
        <source>Attendere la fine dell&apos;operazione in corso</source>
        <translation>Wait until the current operation has ended</translation>
    </message>
    <message>
        <source>Sceglie i file delle song e li legge nella tabella (Ctrl+O)</source>
        <translation>Chooses song files and reads them into the table (Ctrl+O)</translation>
    </message>
    <message>
        <source>Mostra solo le song che contengono queste parole (Ctrl+F; Esc le mostra tutte)</source>
        <translation>Shows only the songs that contain these words (Ctrl+F; Esc shows all)</translation>
    </message>
    <message>
        <source>Song della libreria</source>
        <translation>Songs of the library</translation>
    </message>
    <message>
        <source>Corregge i dati nei file delle song secondo il database Kordia, dopo un backup</source>
        <translation>Corrects the data in the song files from the Kordia database, after a backup</translation>
    </message>
    <message>
        <source>Copia le song nella memoria di Brisel e ne aggiorna gli archivi</source>
        <translation>Copies the songs to the Brisel2 memory and updates its archives</translation>
    </message>
    <message>
        <source>Scrive ciò che il programma fa nel file log.txt, dal prossimo avvio</source>
        <translation>Logs what the program does in the file log.txt, from the next start</translation>
    </message>
    <message>
        <source>Comincia ogni volta con un log vuoto</source>
        <translation>Starts with an empty log each time</translation>
    </message>
    <message>
        <source>Testo del marker</source>
        <translation>Marker text</translation>
    </message>
    <message>
        <source>Testo del marker di prova</source>
        <translation>Text of the test marker</translation>
    </message>
    <message>
        <source>Battuta del marker</source>
        <translation>Marker bar</translation>
    </message>
    <message>
        <source>Non usato: la battuta è il numero della riga</source>
        <translation>Not used: the bar is the number of the row</translation>
    </message>
    <message>
        <source>Salva la song della riga corrente con un marker di prova in test_addmarker.bin</source>
        <translation>Saves the song of the current row with a test marker as test_addmarker.bin</translation>
    </message>
    <message>
        <source>Salva la song della riga corrente in test_save.bin</source>
        <translation>Saves the song of the current row as test_save.bin</translation>
    </message>
    <message>
        <source>Importa di nuovo gli stessi file</source>
        <translation>Imports the same files again</translation>
    </message>
    <message>
        <source>Propone un backup dei file scelti</source>
        <translation>Offers a backup of the chosen files</translation>
    </message>
    <message>
        <source>Apre la finestra di modifica vuota</source>
        <translation>Opens an empty edit window</translation>
    </message>
    <message>
        <source>Mostra o nasconde il gruppo Debug</source>
        <translation>Shows or hides the group Debug</translation>
    </message>
    <message>
        <source>Chiude il programma</source>
        <translation>Closes the program</translation>
    </message>
    <message>
        <source>Mostra il programma in italiano</source>
        <translation>Shows the program in Italian</translation>
    </message>
    <message>
        <source>Mostra il programma in inglese</source>
        <translation>Shows the program in English</translation>
    </message>
    <message>
        <source>Mostra la guida in tedesco</source>
        <translation>Shows the guide in German</translation>
    </message>
    <message>
        <source>Chiede prima di modificare le song non pubblicate da Kordia</source>
        <translation>Asks before changing songs that Kordia did not publish</translation>
    </message>
    <message>
        <source>Modifica tutte le song senza chiedere</source>
        <translation>Changes all songs without asking</translation>
    </message>
    <message>
        <source>Prepara una memoria per Brisel o ne rifà gli archivi</source>
        <translation>Prepares a memory for Brisel2 or rebuilds its archives</translation>
    </message>
    <message>
        <source>Salva l&apos;elenco delle song di una memoria in un file CSV</source>
        <translation>Saves the list of a memory&apos;s songs as a CSV file</translation>
    </message>
    <message>
        <source>Apre la guida all&apos;uso (F1)</source>
        <translation>Opens the user guide (F1)</translation>
    </message>
    <message>
        <source>Mostra versione e data del programma</source>
        <translation>Shows the program&apos;s version and date</translation>
    </message>
    <message>
        <source>Mostra la versione della libreria grafica</source>
        <translation>Shows the version of the graphics library</translation>
    </message>
    <message>
        <source>Nessun brano nella tabella.
Per cominciare premi il pulsante qui sopra, oppure trascina qui file o cartelle.</source>
        <translation>No songs in the table.
To begin, press the button above, or drag files or folders here.</translation>
    </message>
    <message>
        <source>Toglie la riga dalla tabella; il file resta sul disco (Canc)</source>
        <translation>Removes the row from the table; the file stays on the disk (Del)</translation>
    </message>
    <message>
        <source>Invio modifica la song della riga, Canc toglie la riga dalla tabella</source>
        <translation>Return edits the song of the row, Delete removes the row from the table</translation>
    </message>
    <message>
        <source>Ripristina</source>
        <translation>Restore</translation>
    </message>
    <message>
        <source>Mostra che cosa il programma ha cambiato nelle song, e lo annulla</source>
        <translation>Shows what the program changed in songs, and takes it back</translation>
    </message>
    <message>
        <source>Cronologia modifiche...</source>
        <translation>History of changes...</translation>
    </message>
    <message>
        <source>Rimette le song di un backup dove si trovavano</source>
        <translation>Puts the songs of a backup back where they were</translation>
    </message>
    <message>
        <source>Ripristina backup...</source>
        <translation>Restore backup...</translation>
    </message>
    <message>
        <source>Ripristina backup</source>
        <translation>Restore backup</translation>
    </message>
    <message>
        <source>La cartella non contiene un backup che si possa ripristinare: %1</source>
        <translation>The folder has no backup that can be restored: %1</translation>
    </message>
    <message>
        <source>Mostra che cosa cambierebbe la sincronizzazione, prima di scrivere</source>
        <translation>Shows what the synchronization would change, before anything is written</translation>
    </message>
    <message>
        <source>Anteprima sincronizzazione...</source>
        <translation>Preview of the synchronisation...</translation>
    </message>
    <message>
        <source>Cronologia modifiche</source>
        <translation>History of changes</translation>
    </message>
    <message>
        <source>Con %1 MiB le operazioni più vecchie verranno eliminate dalla cronologia. Continuare?</source>
        <translation>With %1 MiB the oldest operations will be deleted from the history. Continue?</translation>
    </message>
    <message>
        <source>Vista</source>
        <translation>View</translation>
    </message>
    <message>
        <source>Mostra in fondo alla tabella i file scelti che non si sono potuti leggere</source>
        <translation>Shows at the end of the table the chosen files that could not be read</translation>
    </message>
    <message>
        <source>Mostra i file non leggibili</source>
        <translation>Show unreadable files</translation>
    </message>
    <message>
        <source>Rimette colonne, larghezze e ordinamento come alla prima apertura</source>
        <translation>Puts columns, widths and sorting back as they were at the first start</translation>
    </message>
    <message>
        <source>Ripristina disposizione</source>
        <translation>Reset layout</translation>
    </message>
    <message>
        <source>e altri %1</source>
        <translation>and %1 more</translation>
    </message>
    <message>
        <source>Sei sicuro di voler cancellare questi %1 file?</source>
        <translation>Are you sure you want to permanently delete these %1 files?</translation>
    </message>
    <message>
        <source>Ripristino</source>
        <translation>Restore</translation>
    </message>
    <message>
        <source>Cerco le modifiche...</source>
        <translation>Looking for the changes...</translation>
    </message>
    <message>
        <source>Come cercare</source>
        <translation>How to search</translation>
    </message>
    <message>
        <source>Mostra come cercare per campo, per esempio genere:rock bpm&gt;120</source>
        <translation>Shows how to search by field, such as genre:rock bpm&gt;120</translation>
    </message>
    <message>
        <source>&lt;p&gt;Le parole si cercano nel titolo, nell&apos;artista, nel genere, nell&apos;autore, nel nome del file e della cartella e nello stato. Con il nome di un campo:&lt;/p&gt;&lt;p&gt;&lt;b&gt;genere:rock&lt;/b&gt; contiene&lt;br&gt;&lt;b&gt;artista=anna&lt;/b&gt; è uguale&lt;br&gt;&lt;b&gt;bpm&amp;gt;120&lt;/b&gt; &amp;nbsp; &lt;b&gt;bpm&amp;lt;=90&lt;/b&gt; &amp;nbsp; &lt;b&gt;durata&amp;lt;3:30&lt;/b&gt;&lt;br&gt;&lt;b&gt;senza:artista&lt;/b&gt; è vuoto&lt;br&gt;&lt;b&gt;cartella:&amp;quot;liscio lento&amp;quot;&lt;/b&gt; con spazi&lt;/p&gt;&lt;p&gt;Campi: titolo, artista, genere, autore, file, cartella, formato, tonalita, stato, bpm, durata. Dove manca un numero (bpm&amp;gt;abc), o il campo dopo &lt;b&gt;senza:&lt;/b&gt; non esiste, si cerca il testo come parola. Esc mostra di nuovo tutto.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Words are searched in the title, artist, genre, author, the names of the file and its folder, and the status. With the name of a field:&lt;/p&gt;&lt;p&gt;&lt;b&gt;genre:rock&lt;/b&gt; contains&lt;br&gt;&lt;b&gt;artist=anna&lt;/b&gt; is equal&lt;br&gt;&lt;b&gt;bpm&amp;gt;120&lt;/b&gt; &amp;nbsp; &lt;b&gt;bpm&amp;lt;=90&lt;/b&gt; &amp;nbsp; &lt;b&gt;length&amp;lt;3:30&lt;/b&gt;&lt;br&gt;&lt;b&gt;without:artist&lt;/b&gt; is empty&lt;br&gt;&lt;b&gt;folder:&amp;quot;slow waltz&amp;quot;&lt;/b&gt; with blanks&lt;/p&gt;&lt;p&gt;Fields: title, artist, genre, author, file, folder, format, key, status, bpm, length. Without a number (bpm&amp;gt;abc), or with no such field after &lt;b&gt;without:&lt;/b&gt;, the text is searched as a word. Esc shows everything again.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Modifica dati song</source>
        <translation>Edit song details</translation>
    </message>
    <message>
        <source>La song non è stata salvata: %1</source>
        <translation>The song was not saved: %1</translation>
    </message>
    <message>
        <source>Aggiungi da una cartella recente</source>
        <translation>Add from a recent folder</translation>
    </message>
    <message>
        <source>Cancella il file dal disco, dopo una domanda (Maiusc+Canc)</source>
        <translation>Deletes the file from the disk, after a question (Shift+Del)</translation>
    </message>
    <message>
        <source>Rimette la song com&apos;era prima dell&apos;ultima modifica (Ctrl+R)</source>
        <translation>Puts the song back as it was before its last change (Ctrl+R)</translation>
    </message>
    <message>
        <source>Sceglie i file delle song e li legge nella tabella al posto di quelli di prima</source>
        <translation>Chooses the song files and reads them into the table in place of those before</translation>
    </message>
    <message>
        <source>Seleziona brani...</source>
        <translation>Choose songs...</translation>
    </message>
    <message>
        <source>Aggiunge altri file alla tabella; quelli che ci sono già non entrano due volte</source>
        <translation>Adds more files to the table; those that are there already are not added twice</translation>
    </message>
    <message>
        <source>Aggiungi brani...</source>
        <translation>Add songs...</translation>
    </message>
    <message>
        <source>Aggiunge alla tabella le song di una cartella e di quelle che contiene</source>
        <translation>Adds to the table the songs of a folder and of the folders in it</translation>
    </message>
    <message>
        <source>Aggiungi cartella...</source>
        <translation>Add folder...</translation>
    </message>
    <message>
        <source>Legge di nuovo i file che erano nella tabella l&apos;ultima volta</source>
        <translation>Reads again the files that were in the table last time</translation>
    </message>
    <message>
        <source>Riprendi l&apos;ultima lista</source>
        <translation>Resume the last list</translation>
    </message>
    <message>
        <source>L&apos;ultima lista non si può leggere</source>
        <translation>The last list can&apos;t be read</translation>
    </message>
    <message>
        <source>Già nella lista: %1</source>
        <translation>In the list already: %1</translation>
    </message>
    <message>
        <source>I brani scelti sono già nella lista</source>
        <translation>The chosen songs are in the list already</translation>
    </message>
    <message>
        <source>Rilascia per aggiungere alla lista</source>
        <translation>Drop to add to the list</translation>
    </message>
    <message>
        <source>Rilascia per sostituire la lista; con Ctrl aggiungi</source>
        <translation>Drop to replace the list; with Ctrl you add</translation>
    </message>
    <message>
        <source>Per le song scelte non c&apos;è nulla da ripristinare</source>
        <translation>There is nothing to restore for the selected songs</translation>
    </message>
    <message>
        <source>Modifica i dati delle song scelte (Invio)</source>
        <translation>Edits the data of the chosen songs (Return)</translation>
    </message>
    <message>
        <source>Modifica...</source>
        <translation>Edit...</translation>
    </message>
    <message>
        <source>Mostra le song, le cartelle e le playlist di una memoria</source>
        <translation>Shows the songs, folders and playlists of a memory</translation>
    </message>
    <message>
        <source>Memoria...</source>
        <translation>Memory...</translation>
    </message>
    <message>
        <source>Mostra, prima di copiare, che cosa succederà a ogni song, e fa scegliere quali copiare</source>
        <translation>Shows before the copy what will happen to each song, and lets you choose which ones are copied</translation>
    </message>
    <message>
        <source>Mostra il piano prima del trasferimento</source>
        <translation>Show the plan before the transfer</translation>
    </message>
    <message>
        <source>La memoria non è più presente</source>
        <translation>The memory is no longer there</translation>
    </message>
    <message>
        <source>Non ci sono song da trasferire</source>
        <translation>There are no songs to transfer</translation>
    </message>
</context>
<context>
    <name>brisel::MarkersDialog</name>
    <message>
        <source>Marker della song</source>
        <translation>Markers of the song</translation>
    </message>
    <message>
        <source>Un doppio clic o F2 modifica la battuta o il testo; Canc toglie le righe scelte</source>
        <translation>A double click or F2 edits the bar or the text; Delete removes the selected rows</translation>
    </message>
    <message>
        <source>A&amp;ggiungi</source>
        <translation>A&amp;dd</translation>
    </message>
    <message>
        <source>Aggiunge un marker dopo la riga scelta</source>
        <translation>Adds a marker after the selected row</translation>
    </message>
    <message>
        <source>&amp;Togli</source>
        <translation>&amp;Remove</translation>
    </message>
    <message>
        <source>Toglie i marker delle righe scelte</source>
        <translation>Removes the markers of the selected rows</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Torna ai dati della song con questi marker; Salva li scrive nel file</source>
        <translation>Goes back to the song&apos;s details with these markers; Save writes them to the file</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Lascia i marker come sono</source>
        <translation>Leaves the markers as they are</translation>
    </message>
    <message>
        <source>In questa song i marker stanno dove il programma non può riscriverli: si possono solo guardare.</source>
        <translation>The markers of this song are where the program can&apos;t rewrite them: they can only be viewed.</translation>
    </message>
    <message>
        <source>La battuta di un marker va da 0 a %1.</source>
        <translation>The bar of a marker is a number from 0 to %1.</translation>
    </message>
    <message>
        <source>Il testo di un marker ha al massimo %1 caratteri, solo dell&apos;alfabeto dell&apos;Europa occidentale.</source>
        <translation>The text of a marker has at most %1 characters, only of the Western European alphabet.</translation>
    </message>
</context>
<context>
    <name>brisel::MarkersModel</name>
    <message>
        <source>Battuta</source>
        <translation>Bar</translation>
    </message>
    <message>
        <source>Testo</source>
        <translation>Text</translation>
    </message>
</context>
<context>
    <name>brisel::MemoryActions</name>
    <message>
        <source>&amp;Rimuovi dalla memoria...</source>
        <translation>&amp;Remove from the memory...</translation>
    </message>
    <message>
        <source>Ri&amp;nomina...</source>
        <translation>Re&amp;name...</translation>
    </message>
    <message>
        <source>&amp;Copia sul computer...</source>
        <translation>&amp;Copy to the computer...</translation>
    </message>
    <message>
        <source>A&amp;ggiorna</source>
        <translation>&amp;Update</translation>
    </message>
    <message>
        <source>Rig&amp;enera</source>
        <translation>R&amp;ebuild</translation>
    </message>
    <message>
        <source>Contro&amp;lla</source>
        <translation>Chec&amp;k</translation>
    </message>
    <message>
        <source>E&amp;sporta elenco...</source>
        <translation>E&amp;xport list...</translation>
    </message>
    <message>
        <source>Rimo&amp;zione sicura</source>
        <translation>&amp;Safe removal</translation>
    </message>
    <message>
        <source>Cancella dalla memoria le song scelte; l&apos;indice e le playlist le seguono</source>
        <translation>Deletes the chosen songs from the memory; the index and the playlists follow</translation>
    </message>
    <message>
        <source>Cambia il nome del file della song; l&apos;indice e le playlist lo seguono</source>
        <translation>Changes the name of the song&apos;s file; the index and the playlists follow</translation>
    </message>
    <message>
        <source>Aggiorna l&apos;indice con le song nuove, cambiate e cancellate</source>
        <translation>Updates the index with new, changed and deleted songs</translation>
    </message>
    <message>
        <source>Scrive di nuovo tutto l&apos;indice della memoria</source>
        <translation>Writes the whole index of the memory again</translation>
    </message>
    <message>
        <source>Copia le song scelte in una cartella del computer</source>
        <translation>Copies the chosen songs into a folder of the computer</translation>
    </message>
    <message>
        <source>Controlla se l&apos;indice, le playlist e le song vanno d&apos;accordo</source>
        <translation>Checks whether the index, the playlists and the songs agree</translation>
    </message>
    <message>
        <source>Salva l&apos;elenco delle song come CSV o come pagina da stampare</source>
        <translation>Saves the list of the songs as CSV or as a page to print</translation>
    </message>
    <message>
        <source>Scrive tutti i dati e smonta la memoria, che poi si può togliere</source>
        <translation>Writes all data and unmounts the memory, which can be removed then</translation>
    </message>
    <message>
        <source>Non tutto è riuscito. Il report dice che cosa manca.</source>
        <translation>Not everything succeeded. The report says what is missing.</translation>
    </message>
    <message>
        <source>Impossibile proseguire: %1.</source>
        <translation>Can&apos;t continue: %1.</translation>
    </message>
    <message>
        <source>Rimuovi dalla memoria</source>
        <translation>Remove from the memory</translation>
    </message>
    <message numerus="yes">
        <source>%n song rimosse</source>
        <translation>
            <numerusform>%n song removed</numerusform>
            <numerusform>%n songs removed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Rimuovere %n song dalla memoria?</source>
        <translation>
            <numerusform>Remove %n song from the memory?</numerusform>
            <numerusform>Remove %n songs from the memory?</numerusform>
        </translation>
    </message>
    <message>
        <source>Nessuna playlist le contiene.</source>
        <translation>No playlist contains them.</translation>
    </message>
    <message numerus="yes">
        <source>%n playlist le contengono, e le perderanno.</source>
        <translation>
            <numerusform>%n playlist contains them, and will lose them.</numerusform>
            <numerusform>%n playlists contain them, and will lose them.</numerusform>
        </translation>
    </message>
    <message>
        <source>I file vengono cancellati e non si possono riavere.</source>
        <translation>The files are deleted and can&apos;t be taken back.</translation>
    </message>
    <message>
        <source>Rinomina</source>
        <translation>Renaming</translation>
    </message>
    <message>
        <source>Copia sul computer</source>
        <translation>Copy to the computer</translation>
    </message>
    <message>
        <source>Scegli la cartella delle copie</source>
        <translation>Choose the folder of the copies</translation>
    </message>
    <message numerus="yes">
        <source>%n song copiate</source>
        <translation>
            <numerusform>%n song copied</numerusform>
            <numerusform>%n songs copied</numerusform>
        </translation>
    </message>
    <message>
        <source>Il percorso di destinazione non esiste</source>
        <translation>The destination path does not exist</translation>
    </message>
    <message>
        <source>La cartella è sulla memoria stessa: sceglierne una del computer</source>
        <translation>The folder is on the memory itself: choose one of the computer</translation>
    </message>
    <message>
        <source>Controllo la memoria...</source>
        <translation>Checking the memory...</translation>
    </message>
    <message>
        <source>File (*.html)</source>
        <translation>File (*.html)</translation>
    </message>
    <message>
        <source>Salvo l&apos;elenco...</source>
        <translation>Saving the list...</translation>
    </message>
    <message>
        <source>Rimozione sicura</source>
        <translation>Safe removal</translation>
    </message>
    <message numerus="yes">
        <source>Di %n song sono scelte tutte le copie: non ne resterà nessuna.</source>
        <translation>
            <numerusform>All copies of %n song are chosen: none will remain.</numerusform>
            <numerusform>All copies of %n songs are chosen: none will remain.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file rimossi</source>
        <translation>
            <numerusform>%n file removed</numerusform>
            <numerusform>%n files removed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Rimuovere %n file dalla memoria?</source>
        <translation>
            <numerusform>Remove %n file from the memory?</numerusform>
            <numerusform>Remove %n files from the memory?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n playlist non si possono leggere: forse le contengono.</source>
        <translation>
            <numerusform>%n playlist can&apos;t be read: it may contain them.</numerusform>
            <numerusform>%n playlists can&apos;t be read: they may contain them.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file copiati</source>
        <translation>
            <numerusform>%n file copied</numerusform>
            <numerusform>%n files copied</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>brisel::MemoryCheck</name>
    <message>
        <source>%1: il file manca</source>
        <translation>%1: the file is missing</translation>
    </message>
    <message>
        <source>%1: il file non si può leggere</source>
        <translation>%1: the file cannot be read</translation>
    </message>
    <message>
        <source>%1: lunghezza errata: %2 byte</source>
        <translation>%1: wrong length: %2 bytes</translation>
    </message>
    <message>
        <source>index.id2, record %1: id %2 usato due volte</source>
        <translation>index.id2, record %1: id %2 used twice</translation>
    </message>
    <message>
        <source>index.id2, record %1: id %2 fuori ordine</source>
        <translation>index.id2, record %1: id %2 out of order</translation>
    </message>
    <message>
        <source>index.id2, record %1: la song non c&apos;è: %2</source>
        <translation>index.id2, record %1: the song does not exist: %2</translation>
    </message>
    <message>
        <source>index.id2, record %1: song indicizzata due volte: %2</source>
        <translation>index.id2, record %1: song indexed twice: %2</translation>
    </message>
    <message>
        <source>index.id2: manca la song %1</source>
        <translation>index.id2: the song %1 is missing</translation>
    </message>
    <message>
        <source>%1, posto %2: il record %3 non c&apos;è</source>
        <translation>%1, place %2: record %3 does not exist</translation>
    </message>
    <message>
        <source>%1, posto %2: record %3 ripetuto</source>
        <translation>%1, place %2: record %3 repeated</translation>
    </message>
    <message>
        <source>%1, posto %2: fuori ordine: %3</source>
        <translation>%1, place %2: out of order: %3</translation>
    </message>
    <message>
        <source>%1: manca il record %2</source>
        <translation>%1: record %2 is missing</translation>
    </message>
    <message>
        <source>%1: il conto di %2 è %3, non %4</source>
        <translation>%1: the count of %2 is %3, not %4</translation>
    </message>
    <message>
        <source>%1, posto %2: la song non è nell&apos;indice</source>
        <translation>%1, place %2: the song is not in the index</translation>
    </message>
    <message>
        <source>%1, posto %2: il titolo è &quot;%3&quot;, quello della song &quot;%4&quot;</source>
        <translation>%1, place %2: the title is &quot;%3&quot;, the song&apos;s title is &quot;%4&quot;</translation>
    </message>
</context>
<context>
    <name>brisel::MemoryWindow</name>
    <message>
        <source>Memoria</source>
        <translation>Memory</translation>
    </message>
    <message>
        <source>&amp;Memoria:</source>
        <translation>&amp;Memory:</translation>
    </message>
    <message>
        <source>Le memorie collegate al computer</source>
        <translation>The memories that are connected to the computer</translation>
    </message>
    <message>
        <source>Spazio della memoria</source>
        <translation>Space of the memory</translation>
    </message>
    <message>
        <source>Quanto della memoria è occupato</source>
        <translation>How much of the memory is used</translation>
    </message>
    <message>
        <source>Come le mostra Brisel</source>
        <translation>As Brisel shows them</translation>
    </message>
    <message>
        <source>Cartelle</source>
        <translation>Folders</translation>
    </message>
    <message>
        <source>Chiude la finestra</source>
        <translation>Closes the window</translation>
    </message>
    <message>
        <source>&amp;Chiudi</source>
        <translation>&amp;Close</translation>
    </message>
    <message numerus="yes">
        <source>%n song, indice del %1</source>
        <translation>
            <numerusform>%n song, index of %1</numerusform>
            <numerusform>%n songs, index of %1</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 liberi di %2</source>
        <translation>%1 free of %2</translation>
    </message>
    <message>
        <source>Nessuna memoria è collegata al computer</source>
        <translation>No memory is connected to the computer</translation>
    </message>
    <message>
        <source>La memoria non è più presente</source>
        <translation>The memory is no longer there</translation>
    </message>
    <message>
        <source>La memoria non è preparata per Brisel</source>
        <translation>The memory is not prepared for Brisel</translation>
    </message>
    <message>
        <source>L&apos;indice della memoria non si può leggere</source>
        <translation>The index of the memory can&apos;t be read</translation>
    </message>
    <message>
        <source>La memoria non si può leggere</source>
        <translation>The memory can&apos;t be read</translation>
    </message>
    <message>
        <source>L&apos;indice è incompleto</source>
        <translation>The index is incomplete</translation>
    </message>
    <message>
        <source>Non si può modificare: %1</source>
        <translation>It can&apos;t be changed: %1</translation>
    </message>
    <message>
        <source>Confronto dell&apos;indice con le song...</source>
        <translation>Comparing the index with the songs...</translation>
    </message>
    <message numerus="yes">
        <source>%n nuove</source>
        <translation>
            <numerusform>%n new</numerusform>
            <numerusform>%n new</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n mancanti</source>
        <translation>
            <numerusform>%n missing</numerusform>
            <numerusform>%n missing</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cambiate</source>
        <translation>
            <numerusform>%n changed</numerusform>
            <numerusform>%n changed</numerusform>
        </translation>
    </message>
    <message>
        <source>Indice e song concordano</source>
        <translation>Index and songs agree</translation>
    </message>
    <message>
        <source>Da aggiornare: %1</source>
        <translation>To be updated: %1</translation>
    </message>
    <message>
        <source>Aggiunge le song scelte alla fine della playlist</source>
        <translation>Adds the chosen songs at the end of the playlist</translation>
    </message>
    <message>
        <source>Mostra il piano del trasferimento delle song della finestra principale</source>
        <translation>Shows the plan of a transfer of the main window&apos;s songs</translation>
    </message>
    <message>
        <source>&amp;Trasferisci...</source>
        <translation>&amp;Transfer...</translation>
    </message>
    <message>
        <source>&amp;Aggiungi le song scelte</source>
        <translation>&amp;Add the chosen songs</translation>
    </message>
    <message>
        <source>Preparo la rimozione della memoria...</source>
        <translation>Preparing the removal of the memory...</translation>
    </message>
</context>
<context>
    <name>brisel::MidiPlayer</name>
    <message>
        <source>I dati MIDI del brano non si possono suonare.</source>
        <translation>The MIDI data of the song can&apos;t be played.</translation>
    </message>
    <message>
        <source>Nessun dispositivo audio è disponibile.</source>
        <translation>No sound device is available.</translation>
    </message>
    <message>
        <source>Il SoundFont non si può leggere:</source>
        <translation>The sound font can&apos;t be read:</translation>
    </message>
</context>
<context>
    <name>brisel::Mp3Player</name>
    <message>
        <source>L&apos;MP3 non si può suonare.</source>
        <translation>The MP3 can&apos;t be played.</translation>
    </message>
    <message>
        <source>Manca il modulo di Qt Multimedia che suona gli MP3.</source>
        <translation>The module of Qt Multimedia that plays MP3s is missing.</translation>
    </message>
    <message>
        <source>Nessun dispositivo audio è disponibile.</source>
        <translation>No sound device is available.</translation>
    </message>
</context>
<context>
    <name>brisel::NoCopyrightDialog</name>
    <message>
        <source>Richiesta conferma</source>
        <translation>Confirmation request</translation>
    </message>
    <message>
        <source>Il file:</source>
        <translation>File:</translation>
    </message>
    <message>
        <source>Non è stato pubblicato da Kordia. Si vuole procedere comunque con le modifiche?</source>
        <translation>Was not published by Kordia. Do you want to proceed with editing?</translation>
    </message>
    <message>
        <source>Si</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>Si tutti</source>
        <translation>Yes to all</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>No tutti</source>
        <translation>No to all</translation>
    </message>
    <message>
        <source>Sì, per questo file</source>
        <translation>Yes, for this file</translation>
    </message>
    <message>
        <source>Sì, per questo file e per tutti quelli che seguono</source>
        <translation>Yes, for this file and for all that follow</translation>
    </message>
    <message>
        <source>No, per questo file</source>
        <translation>No, for this file</translation>
    </message>
    <message>
        <source>No, per questo file e per tutti quelli che seguono</source>
        <translation>No, for this file and for all that follow</translation>
    </message>
</context>
<context>
    <name>brisel::OutcomeButtons</name>
    <message>
        <source>Mostra solo le song con lo stato: %1</source>
        <translation>Shows only the songs with the status: %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>brisel::PlayerBar</name>
    <message>
        <source>Ascolto non riuscito. %1</source>
        <translation>Can&apos;t play. %1</translation>
    </message>
    <message>
        <source>Posizione nella song</source>
        <translation>Position in the song</translation>
    </message>
    <message>
        <source>Sposta l&apos;ascolto; le frecce lo spostano di 5 secondi, Pag su e Pag giù di 15</source>
        <translation>Moves within the song; the arrows move by 5 seconds, Page Up and Page Down by 15</translation>
    </message>
    <message>
        <source>Ferma</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Ascolta</source>
        <translation>Listen</translation>
    </message>
    <message>
        <source>Ferma l&apos;ascolto (barra spaziatrice sulla song)</source>
        <translation>Stops the song (space bar on the song)</translation>
    </message>
    <message>
        <source>Fa ascoltare la song della riga corrente (barra spaziatrice)</source>
        <translation>Plays the song of the current row (space bar)</translation>
    </message>
</context>
<context>
    <name>brisel::PlayerView</name>
    <message>
        <source>&amp;Elenco:</source>
        <translation>&amp;List:</translation>
    </message>
    <message>
        <source>Gli elenchi che Brisel mostra</source>
        <translation>The lists that Brisel shows</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>MP3 per titolo</source>
        <translation>MP3 by title</translation>
    </message>
    <message>
        <source>MP3 per artista</source>
        <translation>MP3 by artist</translation>
    </message>
    <message>
        <source>MP3 per genere</source>
        <translation>MP3 by genre</translation>
    </message>
    <message>
        <source>Ce&amp;rca:</source>
        <translation>Sea&amp;rch:</translation>
    </message>
    <message>
        <source>Mostra solo le song che contengono queste parole, anche per campo, per esempio genere:rock bpm&gt;120 (Ctrl+F; Esc le mostra tutte)</source>
        <translation>Shows only songs that contain these words, also by field, for example genre:rock bpm&gt;120 (Ctrl+F; Esc shows all)</translation>
    </message>
    <message>
        <source>Song della memoria</source>
        <translation>Songs of the memory</translation>
    </message>
    <message>
        <source>Le song nell&apos;ordine di Brisel; una nota dice che cosa Brisel non può aprire o mostra in modo sbagliato</source>
        <translation>The songs in the order of Brisel; a note says what Brisel can&apos;t open or shows wrongly</translation>
    </message>
    <message>
        <source>%1 di %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message>
        <source>lo spazio</source>
        <translation>the space</translation>
    </message>
    <message>
        <source>Va al primo testo che comincia con %1</source>
        <translation>Goes to the first text that begins with %1</translation>
    </message>
    <message>
        <source>La voce %1 della tabella di Brisel non porta a nulla</source>
        <translation>The entry %1 of Brisel&apos;s table leads nowhere</translation>
    </message>
    <message>
        <source>Vai a %1</source>
        <translation>Go to %1</translation>
    </message>
</context>
<context>
    <name>brisel::PlaylistEntriesModel</name>
    <message>
        <source>la song non è nell&apos;indice della memoria</source>
        <translation>the song is not in the memory&apos;s index</translation>
    </message>
    <message>
        <source>il player suona un&apos;altra song: %1</source>
        <translation>the player plays another song: %1</translation>
    </message>
    <message>
        <source>il file della song manca</source>
        <translation>the song&apos;s file is missing</translation>
    </message>
    <message>
        <source>N.</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Formato</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Note</translation>
    </message>
</context>
<context>
    <name>brisel::PlaylistsModel</name>
    <message>
        <source>Playlist %1</source>
        <translation>Playlist %1</translation>
    </message>
    <message>
        <source>%1 (il file manca)</source>
        <translation>%1 (the file is missing)</translation>
    </message>
    <message>
        <source>%1 (il file non si legge)</source>
        <translation>%1 (the file can&apos;t be read)</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 - sola lettura</source>
        <translation>%1 - read-only</translation>
    </message>
    <message>
        <source>%1 - da riparare: %2</source>
        <translation>%1 - to be repaired: %2</translation>
    </message>
</context>
<context>
    <name>brisel::PlaylistsPanel</name>
    <message>
        <source>S&amp;u</source>
        <translation>&amp;Up</translation>
    </message>
    <message>
        <source>&amp;Giù</source>
        <translation>Do&amp;wn</translation>
    </message>
    <message>
        <source>Playlist della memoria</source>
        <translation>Playlists of the memory</translation>
    </message>
    <message>
        <source>Song della playlist</source>
        <translation>Songs of the playlist</translation>
    </message>
    <message>
        <source>Stato delle playlist</source>
        <translation>State of the playlists</translation>
    </message>
    <message>
        <source>Trascina qui le song; Alt+Su e Alt+Giù le spostano, Canc le toglie</source>
        <translation>Drag songs here; Alt+Up and Alt+Down move them, Del removes them</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>Playlists</translation>
    </message>
    <message>
        <source>Le playlist non sono state salvate: %1.</source>
        <translation>The playlists have not been saved: %1.</translation>
    </message>
    <message>
        <source>un&apos;altra operazione è in corso</source>
        <translation>another operation is in progress</translation>
    </message>
    <message>
        <source>Non tutte le playlist sono state salvate: %1.</source>
        <translation>Not all playlists have been saved: %1.</translation>
    </message>
    <message>
        <source>Le playlist sono state modificate. Salvarle sulla memoria?</source>
        <translation>The playlists have been changed. Save them to the memory?</translation>
    </message>
    <message>
        <source>Scegli prima una playlist che si può modificare.</source>
        <translation>First choose a playlist that can be changed.</translation>
    </message>
    <message>
        <source>Song aggiunte alla playlist: %1 di %2.</source>
        <translation>Songs added to the playlist: %1 of %2.</translation>
    </message>
    <message>
        <source>Una playlist ha al massimo %1 song, e solo quelle dell&apos;indice della memoria.</source>
        <translation>A playlist has at most %1 songs, and only those of the memory&apos;s index.</translation>
    </message>
    <message>
        <source>La scaletta non è stata stampata.</source>
        <translation>The set list has not been printed.</translation>
    </message>
    <message>
        <source>Salva la scaletta</source>
        <translation>Save set list</translation>
    </message>
    <message>
        <source>File PDF (*.pdf)</source>
        <translation>PDF files (*.pdf)</translation>
    </message>
    <message>
        <source>Playlist %1</source>
        <translation>Playlist %1</translation>
    </message>
    <message>
        <source>La scaletta non è stata salvata: %1.</source>
        <translation>The set list has not been saved: %1.</translation>
    </message>
    <message>
        <source>T&amp;ogli</source>
        <translation>Remo&amp;ve</translation>
    </message>
    <message>
        <source>Ri&amp;para...</source>
        <translation>Re&amp;pair...</translation>
    </message>
    <message>
        <source>A&amp;nnulla</source>
        <translation>U&amp;ndo</translation>
    </message>
    <message>
        <source>Ripet&amp;i</source>
        <translation>Red&amp;o</translation>
    </message>
    <message>
        <source>&amp;Stampa...</source>
        <translation>Pr&amp;int...</translation>
    </message>
    <message>
        <source>Sal&amp;va</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>PD&amp;F...</source>
        <translation>PD&amp;F...</translation>
    </message>
    <message>
        <source>Sposta più su le song scelte della playlist (Alt+Su)</source>
        <translation>Moves the chosen songs of the playlist up (Alt+Up)</translation>
    </message>
    <message>
        <source>Sposta più giù le song scelte della playlist (Alt+Giù)</source>
        <translation>Moves the chosen songs of the playlist down (Alt+Down)</translation>
    </message>
    <message>
        <source>Toglie dalla playlist le song scelte, che restano nella memoria (Canc)</source>
        <translation>Takes the chosen songs out of the playlist; they stay on the memory (Delete)</translation>
    </message>
    <message>
        <source>Sceglie un&apos;altra song al posto di quella scelta</source>
        <translation>Chooses another song in place of the chosen one</translation>
    </message>
    <message>
        <source>Annulla l&apos;ultima modifica delle playlist (Ctrl+Z)</source>
        <translation>Takes back the last change of the playlists (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Ripete la modifica annullata (Ctrl+Maiusc+Z)</source>
        <translation>Repeats the change that was taken back (Ctrl+Shift+Z)</translation>
    </message>
    <message>
        <source>Stampa la playlist come scaletta</source>
        <translation>Prints the playlist as a set list</translation>
    </message>
    <message>
        <source>Salva la playlist come scaletta in un file PDF</source>
        <translation>Saves the playlist as a set list in a PDF file</translation>
    </message>
    <message>
        <source>Scrive nella memoria le playlist modificate</source>
        <translation>Writes the changed playlists to the memory</translation>
    </message>
    <message>
        <source>Le playlist che sono state fatte sul player</source>
        <translation>The playlists that were made on the player</translation>
    </message>
    <message>
        <source>La memoria è cambiata: delle modifiche non salvate non tutte si possono tenere.</source>
        <translation>The memory has changed: not all of the unsaved changes can be kept.</translation>
    </message>
    <message>
        <source>Playlist: %1</source>
        <translation>Playlists: %1</translation>
    </message>
    <message>
        <source>la playlist non è più sulla memoria</source>
        <translation>the playlist is not on the memory any more</translation>
    </message>
    <message>
        <source>la playlist non si può modificare</source>
        <translation>the playlist can&apos;t be changed</translation>
    </message>
    <message>
        <source>Le song non sono state aggiunte alla playlist: %1.</source>
        <translation>The songs have not been added to the playlist: %1.</translation>
    </message>
    <message>
        <source>la memoria non si legge</source>
        <translation>the memory can&apos;t be read</translation>
    </message>
</context>
<context>
    <name>brisel::PreviewDialog</name>
    <message>
        <source>Anteprima sincronizzazione</source>
        <translation>Preview of the synchronisation</translation>
    </message>
    <message>
        <source>&amp;Mostra</source>
        <translation>S&amp;how</translation>
    </message>
    <message>
        <source>Sceglie le righe della tabella; i segni di spunta restano</source>
        <translation>Chooses the rows of the table; the ticks stay</translation>
    </message>
    <message>
        <source>Tutte le song</source>
        <translation>All songs</translation>
    </message>
    <message>
        <source>Song trovate</source>
        <translation>Songs found</translation>
    </message>
    <message>
        <source>Song non trovate</source>
        <translation>Songs not found</translation>
    </message>
    <message>
        <source>Song pubblicate da Kordia</source>
        <translation>Songs published by Kordia</translation>
    </message>
    <message>
        <source>Testi che andrebbero persi</source>
        <translation>Texts that would be lost</translation>
    </message>
    <message>
        <source>C&amp;erca nel catalogo...</source>
        <translation>S&amp;earch the catalogue...</translation>
    </message>
    <message>
        <source>Cerca nel database Kordia la song della riga, per parole del titolo, dell&apos;artista o del nome del file</source>
        <translation>Searches the Kordia database for the song of the row, by words from the title, the artist or the file name</translation>
    </message>
    <message>
        <source>Modifiche</source>
        <translation>Changes</translation>
    </message>
    <message>
        <source>Una riga per ogni campo che cambierebbe; la barra spaziatrice mette o toglie il segno di spunta</source>
        <translation>One row for each field that would change; the space bar sets or removes the tick</translation>
    </message>
    <message>
        <source>Seleziona &amp;tutto</source>
        <translation>Select &amp;all</translation>
    </message>
    <message>
        <source>Mette il segno di spunta a tutte le righe mostrate</source>
        <translation>Ticks all rows that are shown</translation>
    </message>
    <message>
        <source>Seleziona &amp;niente</source>
        <translation>Select &amp;none</translation>
    </message>
    <message>
        <source>Toglie il segno di spunta a tutte le righe mostrate</source>
        <translation>Removes the ticks of all rows that are shown</translation>
    </message>
    <message>
        <source>&amp;Scrivi</source>
        <translation>&amp;Write</translation>
    </message>
    <message>
        <source>Scrive nei file ciò che ha il segno di spunta, dopo un backup</source>
        <translation>Writes what is ticked into the files, after a backup</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Chiude l&apos;anteprima senza scrivere nulla</source>
        <translation>Closes the preview without writing anything</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n songs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n campi da scrivere</source>
        <translation>
            <numerusform>%n field to write</numerusform>
            <numerusform>%n fields to write</numerusform>
        </translation>
    </message>
    <message>
        <source>Nessuna song da mostrare</source>
        <translation>No songs to show</translation>
    </message>
</context>
<context>
    <name>brisel::PreviewModel</name>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Author</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Length</translation>
    </message>
    <message>
        <source>Bpm</source>
        <translation>Bpm</translation>
    </message>
    <message>
        <source>Tonalità</source>
        <translation>Key</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Markers</translation>
    </message>
    <message>
        <source>nome del file</source>
        <translation>file name</translation>
    </message>
    <message>
        <source>nome lungo</source>
        <translation>long name</translation>
    </message>
    <message>
        <source>titolo</source>
        <translation>title</translation>
    </message>
    <message>
        <source>a mano</source>
        <translation>by hand</translation>
    </message>
    <message>
        <source>non letta: %1</source>
        <translation>not read: %1</translation>
    </message>
    <message>
        <source>nessun dato cambia</source>
        <translation>no field changes</translation>
    </message>
    <message>
        <source>non trovata</source>
        <translation>not found</translation>
    </message>
    <message>
        <source>%1 (questo testo andrebbe perso)</source>
        <translation>%1 (this text would be lost)</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message>
        <source>Campo</source>
        <translation>Field</translation>
    </message>
    <message>
        <source>Testo attuale</source>
        <translation>Present text</translation>
    </message>
    <message>
        <source>Testo nuovo</source>
        <translation>New text</translation>
    </message>
    <message>
        <source>Trovata per</source>
        <translation>Found by</translation>
    </message>
</context>
<context>
    <name>brisel::ProceedDialog</name>
    <message>
        <source>Riassunto importazione</source>
        <translation>Import summary</translation>
    </message>
    <message>
        <source>Si vuole procedere alla sincronizzazione automatica con il database?</source>
        <translation>Do you want to proceed with automatic synchronization?</translation>
    </message>
    <message>
        <source>Non mostrare più messaggi sul copyright</source>
        <translation>Don&apos;t show messages on copyright</translation>
    </message>
    <message>
        <source>Si</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Sono stati esaminti %1 files, trovate %2 songs di cui %3 di (c)Kordia</source>
        <translation>%1 files have been examined, found %2 songs of which %3 (c) Kordia</translation>
    </message>
    <message>
        <source>Spegne questo riassunto e le domande sulle song non pubblicate da Kordia</source>
        <translation>Turns off this summary and the questions about songs that Kordia did not publish</translation>
    </message>
    <message>
        <source>Sincronizza subito le song</source>
        <translation>Synchronizes the songs now</translation>
    </message>
    <message>
        <source>Lascia le song come sono</source>
        <translation>Leaves the songs as they are</translation>
    </message>
</context>
<context>
    <name>brisel::RecentFoldersMenu</name>
    <message>
        <source>Nessuna cartella</source>
        <translation>No folder</translation>
    </message>
</context>
<context>
    <name>brisel::RenameSongDialog</name>
    <message>
        <source>Rinomina song</source>
        <translation>Rename song</translation>
    </message>
    <message>
        <source>Il nuovo nome della song sulla memoria, al massimo 8 caratteri. L&apos;estensione resta.</source>
        <translation>The new name of the song on the memory, at most 8 characters. The suffix stays.</translation>
    </message>
    <message>
        <source>Il nome del file senza l&apos;estensione</source>
        <translation>The file&apos;s name without its suffix</translation>
    </message>
    <message>
        <source>Nuovo nome</source>
        <translation>New name</translation>
    </message>
    <message>
        <source>Rinomina la song; l&apos;indice e le playlist la seguono</source>
        <translation>Renames the song; the index and the playlists follow</translation>
    </message>
    <message>
        <source>&amp;Rinomina</source>
        <translation>&amp;Rename</translation>
    </message>
    <message>
        <source>Lascia il nome com&apos;è</source>
        <translation>Leaves the name as it is</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Cancel</translation>
    </message>
</context>
<context>
    <name>brisel::RepairDialog</name>
    <message>
        <source>Ripara playlist</source>
        <translation>Repair playlist</translation>
    </message>
    <message>
        <source>Quale song deve suonare al posto di &quot;%1&quot;?</source>
        <translation>Which song should play instead of &quot;%1&quot;?</translation>
    </message>
    <message>
        <source>&amp;Cerca:</source>
        <translation>&amp;Search:</translation>
    </message>
    <message>
        <source>Cerca una song della memoria</source>
        <translation>Search for a song of the memory</translation>
    </message>
    <message>
        <source>Song della memoria, le più probabili per prime</source>
        <translation>Songs of the memory, the most likely ones first</translation>
    </message>
    <message>
        <source>Mostra solo le song con queste parole nel titolo, nell&apos;artista o nel percorso</source>
        <translation>Shows only songs with these words in the title, artist or path</translation>
    </message>
    <message>
        <source>Dice per ogni song probabile perché lo è</source>
        <translation>Says of each likely song why it is</translation>
    </message>
</context>
<context>
    <name>brisel::ReportDialog</name>
    <message>
        <source>Resoconto</source>
        <translation>Report</translation>
    </message>
    <message>
        <source>&amp;Copia</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>Copia il resoconto negli appunti</source>
        <translation>Copies the report to the clipboard</translation>
    </message>
    <message>
        <source>&amp;Salva...</source>
        <translation>&amp;Save...</translation>
    </message>
    <message>
        <source>Salva il resoconto in un file di testo</source>
        <translation>Saves the report as a text file</translation>
    </message>
    <message>
        <source>C&amp;hiudi</source>
        <translation>C&amp;lose</translation>
    </message>
    <message>
        <source>Chiude il resoconto</source>
        <translation>Closes the report</translation>
    </message>
    <message>
        <source>Salva resoconto</source>
        <translation>Save report</translation>
    </message>
    <message>
        <source>resoconto.txt</source>
        <translation>report.txt</translation>
    </message>
    <message>
        <source>Testo (*.txt)</source>
        <translation>Text (*.txt)</translation>
    </message>
    <message>
        <source>Il resoconto non è stato salvato: %1</source>
        <translation>The report was not saved: %1</translation>
    </message>
    <message>
        <source>Una riga per ogni file non elaborato, con il motivo; poi le song modificate, con i dati di prima e di dopo</source>
        <translation>A line for each file that was not processed, with the reason; then the changed songs, with their data before and after</translation>
    </message>
</context>
<context>
    <name>brisel::RunDialog</name>
    <message>
        <source>Un altro programma sta lavorando su questa memoria.
Riprovare quando ha finito.</source>
        <translation>Another program is working on this memory.
Try again when it has finished.</translation>
    </message>
</context>
<context>
    <name>brisel::SafeRemoval</name>
    <message>
        <source>La memoria è stata smontata: ora si può togliere.</source>
        <translation>The memory was unmounted: it can be removed now.</translation>
    </message>
    <message>
        <source>Tutti i dati sono scritti sulla memoria, ma il programma non può smontarla.
Smontarla con il gestore dei file prima di toglierla.</source>
        <translation>All data are written to the memory, but the program can&apos;t unmount it.
Unmount it with the file manager before it is removed.</translation>
    </message>
    <message>
        <source>La memoria è stata smontata, ma un&apos;altra parte dello stesso disco è ancora in uso.
Smontare anche quella prima di togliere il disco.</source>
        <translation>The memory was unmounted, but another part of the same disk is still in use.
Unmount that too before the disk is removed.</translation>
    </message>
    <message>
        <source>La memoria è in uso da un programma e non è stata smontata.
Chiudere i file aperti e riprovare.</source>
        <translation>The memory is in use by a program and was not unmounted.
Close the open files and try again.</translation>
    </message>
    <message>
        <source>Manca il permesso di smontare la memoria, che è ancora montata.</source>
        <translation>There is no permission to unmount the memory, which is still mounted.</translation>
    </message>
    <message>
        <source>Il sistema non ha risposto in tempo: non togliere la memoria finché il gestore dei file non la mostra come smontata.</source>
        <translation>The system did not answer in time: do not remove the memory until the file manager shows it as unmounted.</translation>
    </message>
    <message>
        <source>Non è stato possibile smontare la memoria: non toglierla.</source>
        <translation>The memory could not be unmounted: do not remove it.</translation>
    </message>
    <message>
        <source>Non è stato possibile scrivere tutti i dati sulla memoria, che non è stata smontata.</source>
        <translation>Not all data could be written to the memory, which was not unmounted.</translation>
    </message>
    <message>
        <source>Un altro programma sta lavorando su questa memoria.
Riprovare quando ha finito.</source>
        <translation>Another program is working on this memory.
Try again when it has finished.</translation>
    </message>
    <message>
        <source>La memoria non è più presente.</source>
        <translation>The memory is not there any more.</translation>
    </message>
</context>
<context>
    <name>brisel::SetList</name>
    <message>
        <source>Playlist %1</source>
        <translation>Playlist %1</translation>
    </message>
    <message>
        <source>Scaletta</source>
        <translation>Set list</translation>
    </message>
    <message>
        <source>Lettura delle song</source>
        <translation>Reading the songs</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Tonalità</source>
        <translation>Key</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Length</translation>
    </message>
</context>
<context>
    <name>brisel::SongChoiceModel</name>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Percorso</source>
        <translation>Path</translation>
    </message>
    <message>
        <source>Perché</source>
        <translation>Why</translation>
    </message>
</context>
<context>
    <name>brisel::SongFilter</name>
    <message>
        <source>%1 di %2</source>
        <translation>%1 of %2</translation>
    </message>
</context>
<context>
    <name>brisel::SongListModel</name>
    <message>
        <source>l&apos;indice non ha il suo percorso</source>
        <translation>the index does not have its path</translation>
    </message>
    <message>
        <source>«?» nel percorso: Brisel non trova il file</source>
        <translation>&quot;?&quot; in the path: Brisel does not find the file</translation>
    </message>
    <message>
        <source>manca in un elenco di Brisel</source>
        <translation>it is missing in a list of Brisel</translation>
    </message>
    <message>
        <source>il suo numero c&apos;è due volte</source>
        <translation>its number occurs twice</translation>
    </message>
    <message>
        <source>il file non c&apos;è</source>
        <translation>the file is missing</translation>
    </message>
    <message>
        <source>il file è cambiato dopo l&apos;ultimo aggiornamento</source>
        <translation>the file was changed after the last update</translation>
    </message>
    <message>
        <source>il file non si può leggere</source>
        <translation>the file can&apos;t be read</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n songs</numerusform>
        </translation>
    </message>
    <message>
        <source>(non in questo elenco)</source>
        <translation>(not in this list)</translation>
    </message>
    <message>
        <source>(senza nome)</source>
        <translation>(without a name)</translation>
    </message>
    <message>
        <source>sì</source>
        <translation>yes</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Percorso</source>
        <translation>Path</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Formato</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Markers</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Note</translation>
    </message>
</context>
<context>
    <name>brisel::SongToolTip</name>
    <message>
        <source>Stato: %1</source>
        <translation>Status: %1</translation>
    </message>
    <message>
        <source>Il file non è più leggibile</source>
        <translation>The file can no longer be read</translation>
    </message>
    <message>
        <source>Nessun marker</source>
        <translation>No markers</translation>
    </message>
    <message>
        <source>Marker:</source>
        <translation>Markers:</translation>
    </message>
</context>
<context>
    <name>brisel::SongsListDialog</name>
    <message>
        <source>Salva lista song</source>
        <translation>Save songs list</translation>
    </message>
    <message>
        <source>Cartella della memoria:</source>
        <translation>Memory folder:</translation>
    </message>
    <message>
        <source>Sfoglia</source>
        <translation>Browse</translation>
    </message>
    <message>
        <source>File di destinazione:</source>
        <translation>Destination file:</translation>
    </message>
    <message>
        <source>Ordina per:</source>
        <translation>Sort by:</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Inizia</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Select folder</translation>
    </message>
    <message>
        <source>Scegli nome del file</source>
        <translation>Choose the file name</translation>
    </message>
    <message>
        <source>File (*.csv)</source>
        <translation>File (*.csv)</translation>
    </message>
    <message>
        <source>Il percorso selezionato non esiste</source>
        <translation>The selected path does not exist</translation>
    </message>
    <message>
        <source>Il percorso di destinazione non esiste</source>
        <translation>The destination path does not exist</translation>
    </message>
    <message>
        <source>Operazione completata</source>
        <translation>Operation completed</translation>
    </message>
    <message>
        <source>Errore durante la creazione del file</source>
        <translation>Error while creating the file</translation>
    </message>
    <message>
        <source>Impossibile proseguire, la memoria non è preparata per Brisel</source>
        <translation>Operation aborted, memory not optimized for Brisel2</translation>
    </message>
    <message>
        <source>Cartella principale della memoria</source>
        <translation>Main folder of the memory</translation>
    </message>
    <message>
        <source>Sfoglia: cartella della memoria</source>
        <translation>Browse: folder of the memory</translation>
    </message>
    <message>
        <source>Sceglie la cartella della memoria</source>
        <translation>Chooses the folder of the memory</translation>
    </message>
    <message>
        <source>File in cui salvare la lista</source>
        <translation>File in which the list is saved</translation>
    </message>
    <message>
        <source>Sfoglia: file della lista</source>
        <translation>Browse: file of the list</translation>
    </message>
    <message>
        <source>Sceglie il file in cui salvare la lista</source>
        <translation>Chooses the file in which the list is saved</translation>
    </message>
    <message>
        <source>Ordine delle song nella lista</source>
        <translation>Order of the songs in the list</translation>
    </message>
    <message>
        <source>Avanzamento</source>
        <translation>Progress</translation>
    </message>
    <message>
        <source>Avanzamento del lavoro</source>
        <translation>Progress of the operation</translation>
    </message>
    <message>
        <source>Salva la lista</source>
        <translation>Saves the list</translation>
    </message>
    <message>
        <source>Chiude la finestra</source>
        <translation>Closes the window</translation>
    </message>
</context>
<context>
    <name>brisel::SoundFontAction</name>
    <message>
        <source>&amp;SoundFont per i MIDI...</source>
        <translation>&amp;Sound font for MIDI...</translation>
    </message>
    <message>
        <source>Sceglie i suoni con cui si ascoltano i brani MIDI</source>
        <translation>Chooses the sounds with which MIDI songs are played</translation>
    </message>
    <message>
        <source>SoundFont</source>
        <translation>Sound font</translation>
    </message>
    <message>
        <source>I brani MIDI si ascoltano con i suoni di un SoundFont General MIDI.</source>
        <translation>MIDI songs are played with the sounds of a General MIDI sound font.</translation>
    </message>
    <message>
        <source>Il sistema non ne ha nessuno.</source>
        <translation>The system has none.</translation>
    </message>
    <message>
        <source>Sc&amp;egli un file...</source>
        <translation>C&amp;hoose a file...</translation>
    </message>
    <message>
        <source>&amp;Usa quello del sistema</source>
        <translation>&amp;Use the system&apos;s own</translation>
    </message>
    <message>
        <source>Scegli un SoundFont</source>
        <translation>Choose a sound font</translation>
    </message>
    <message>
        <source>SoundFont (*.sf2 *.sf3)</source>
        <translation>Sound fonts (*.sf2 *.sf3)</translation>
    </message>
</context>
<context>
    <name>brisel::StatusLine</name>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n songs</numerusform>
        </translation>
    </message>
    <message>
        <source>Spazio: servono %1, liberi %2</source>
        <translation>Space: %1 needed, %2 free</translation>
    </message>
    <message>
        <source>Spazio insufficiente: servono %1, liberi %2</source>
        <translation>Not enough space: %1 needed, %2 free</translation>
    </message>
    <message>
        <source>&amp;Dettagli</source>
        <translation>&amp;Details</translation>
    </message>
    <message>
        <source>Nessun file da segnalare</source>
        <translation>There are no files to report</translation>
    </message>
    <message>
        <source>Elenca i file che l&apos;ultima operazione non ha elaborato, con il motivo</source>
        <translation>Lists the files that the last operation did not process, with the reason</translation>
    </message>
    <message>
        <source>Elenca le song che l&apos;ultima operazione ha modificato, con i dati di prima e di dopo, e i file che non ha elaborato</source>
        <translation>Lists the songs that the last operation changed, with their data before and after, and the files that it did not process</translation>
    </message>
</context>
<context>
    <name>brisel::TransferPlanDialog</name>
    <message>
        <source>Piano del trasferimento</source>
        <translation>Transfer plan</translation>
    </message>
    <message>
        <source>&amp;Mostra</source>
        <translation>&amp;Show</translation>
    </message>
    <message>
        <source>Sceglie le righe della tabella; i segni di spunta restano</source>
        <translation>Chooses the rows of the table; the ticks stay</translation>
    </message>
    <message>
        <source>Tutte le song</source>
        <translation>All songs</translation>
    </message>
    <message>
        <source>Nuove</source>
        <translation>New</translation>
    </message>
    <message>
        <source>Uguali</source>
        <translation>The same</translation>
    </message>
    <message>
        <source>Quelle che sostituiscono</source>
        <translation>Those that replace</translation>
    </message>
    <message>
        <source>Quelle che non ci stanno</source>
        <translation>Those that do not fit</translation>
    </message>
    <message>
        <source>Quelle che non si possono copiare</source>
        <translation>Those that can&apos;t be copied</translation>
    </message>
    <message>
        <source>Song del piano</source>
        <translation>Songs of the plan</translation>
    </message>
    <message>
        <source>Una riga per ogni song scelta; la barra spaziatrice mette o toglie il segno di spunta</source>
        <translation>One row for each chosen song; the space bar sets or removes the tick</translation>
    </message>
    <message>
        <source>Seleziona &amp;tutte</source>
        <translation>Select &amp;all</translation>
    </message>
    <message>
        <source>Mette il segno di spunta a tutte le righe mostrate</source>
        <translation>Ticks all rows that are shown</translation>
    </message>
    <message>
        <source>&amp;Deseleziona tutte</source>
        <translation>&amp;Deselect all</translation>
    </message>
    <message>
        <source>Toglie il segno di spunta a tutte le righe mostrate</source>
        <translation>Removes the ticks of all rows that are shown</translation>
    </message>
    <message>
        <source>&amp;Copia</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>Copia le song con il segno di spunta e aggiorna gli archivi della memoria</source>
        <translation>Copies the ticked songs and updates the index of the memory</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>Ca&amp;ncel</translation>
    </message>
    <message>
        <source>Chiude il piano senza copiare nulla</source>
        <translation>Closes the plan without copying anything</translation>
    </message>
    <message>
        <source>Nessuna song da mostrare</source>
        <translation>No songs to show</translation>
    </message>
    <message numerus="yes">
        <source>%n da copiare</source>
        <translation>
            <numerusform>%n to copy</numerusform>
            <numerusform>%n to copy</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n nuove</source>
        <translation>
            <numerusform>%n new</numerusform>
            <numerusform>%n new</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n uguali</source>
        <translation>
            <numerusform>%n the same</numerusform>
            <numerusform>%n the same</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n sostituiscono</source>
        <translation>
            <numerusform>%n replaces</numerusform>
            <numerusform>%n replace</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non ci stanno</source>
        <translation>
            <numerusform>%n does not fit</numerusform>
            <numerusform>%n do not fit</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non si possono copiare</source>
        <translation>
            <numerusform>%n can&apos;t be copied</numerusform>
            <numerusform>%n can&apos;t be copied</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n con un nome più corto</source>
        <translation>
            <numerusform>%n with a shorter name</numerusform>
            <numerusform>%n with a shorter name</numerusform>
        </translation>
    </message>
    <message>
        <source>Spazio: servono %1, liberi %2</source>
        <translation>Space: %1 needed, %2 free</translation>
    </message>
    <message>
        <source>Durata: si saprà dopo le prime song</source>
        <translation>Duration: will be known after the first songs</translation>
    </message>
    <message>
        <source>Durata: meno di un minuto</source>
        <translation>Duration: less than a minute</translation>
    </message>
    <message>
        <source>Durata: circa %1 min</source>
        <translation>Duration: about %1 min</translation>
    </message>
</context>
<context>
    <name>brisel::TransferPlanModel</name>
    <message>
        <source>nuova</source>
        <translation>new</translation>
    </message>
    <message>
        <source>c&apos;è già, uguale</source>
        <translation>is there already, the same</translation>
    </message>
    <message>
        <source>sostituisce %1 (%2, %3)</source>
        <translation>replaces %1 (%2, %3)</translation>
    </message>
    <message>
        <source>sostituisce un&apos;altra song scelta: %1</source>
        <translation>replaces another chosen song: %1</translation>
    </message>
    <message>
        <source>non ci sta</source>
        <translation>does not fit</translation>
    </message>
    <message>
        <source>non si può copiare: %1</source>
        <translation>can&apos;t be copied: %1</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message>
        <source>Che cosa succede</source>
        <translation>What happens</translation>
    </message>
    <message>
        <source>Nome sulla memoria</source>
        <translation>Name on the memory</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Size</translation>
    </message>
</context>
<context>
    <name>brisel::UserSongsRelTableModel</name>
    <message>
        <source>Num</source>
        <translation>Num</translation>
    </message>
    <message>
        <source>Formato</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Author</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Length</translation>
    </message>
    <message>
        <source>Bpm</source>
        <translation>Bpm</translation>
    </message>
    <message>
        <source>Tonalita&apos;</source>
        <translation>Key</translation>
    </message>
    <message>
        <source>Nome file</source>
        <translation>File name</translation>
    </message>
    <message>
        <source>%1 (un clic ordina le righe)</source>
        <translation>%1 (click to sort the rows)</translation>
    </message>
    <message>
        <source>Formato del file</source>
        <translation>Format of the file</translation>
    </message>
    <message>
        <source>Titolo della song</source>
        <translation>Title of the song</translation>
    </message>
    <message>
        <source>Interprete della song</source>
        <translation>Artist of the song</translation>
    </message>
    <message>
        <source>Genere musicale</source>
        <translation>Musical genre</translation>
    </message>
    <message>
        <source>Autore della song</source>
        <translation>Author of the song</translation>
    </message>
    <message>
        <source>Durata in minuti e secondi</source>
        <translation>Length in minutes and seconds</translation>
    </message>
    <message>
        <source>Tempo in battiti al minuto</source>
        <translation>Tempo in beats per minute</translation>
    </message>
    <message>
        <source>Tonalità; il segno - indica il modo minore</source>
        <translation>Key; the sign - means minor</translation>
    </message>
    <message>
        <source>Nome del file senza la cartella</source>
        <translation>Name of the file without its folder</translation>
    </message>
    <message>
        <source>Stato (simbolo)</source>
        <translation>Status (symbol)</translation>
    </message>
    <message>
        <source>Stato</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Cartella</source>
        <translation>Folder</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Markers</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Che cosa è stato della song</source>
        <translation>What became of the song</translation>
    </message>
    <message>
        <source>Che cosa è stato della song, in parole</source>
        <translation>What became of the song, in words</translation>
    </message>
    <message>
        <source>Cartella del file</source>
        <translation>Folder of the file</translation>
    </message>
    <message>
        <source>Numero di marker</source>
        <translation>Number of markers</translation>
    </message>
    <message>
        <source>Dimensione del file</source>
        <translation>Size of the file</translation>
    </message>
    <message>
        <source>Data dell&apos;ultima modifica del file</source>
        <translation>Date of the file&apos;s last change</translation>
    </message>
</context>
</TS>
