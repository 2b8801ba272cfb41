<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT" sourcelanguage="it_IT">
<context>
    <name>Backup</name>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>Eseguo backup dellla libreria...</source>
        <translation>Eseguo backup dellla libreria...</translation>
    </message>
</context>
<context>
    <name>BackupRestore</name>
    <message>
        <source>Ripristino</source>
        <translation>Ripristino</translation>
    </message>
    <message>
        <source>Ripristino del backup...</source>
        <translation>Ripristino del backup...</translation>
    </message>
    <message>
        <source>Un altro programma ha cambiato questa song dopo il backup. Rimettere comunque la copia?</source>
        <translation>Un altro programma ha cambiato questa song dopo il backup. Rimettere comunque la copia?</translation>
    </message>
    <message>
        <source>La copia sostituirà l&apos;intero file, che non verrà conservato nella cronologia: non si potrà annullare. Rimettere la copia?</source>
        <translation>La copia sostituirà l&apos;intero file, che non verrà conservato nella cronologia: non si potrà annullare. Rimettere la copia?</translation>
    </message>
    <message>
        <source>Questa song è diversa dalla copia, e la cronologia non dice chi l&apos;ha cambiata. Rimettere comunque la copia?</source>
        <translation>Questa song è diversa dalla copia, e la cronologia non dice chi l&apos;ha cambiata. Rimettere comunque la copia?</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Le opzioni sono elencate da: %1</source>
        <translation>Le opzioni sono elencate da: %1</translation>
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
        <translation>Uso: %1 [opzioni] [brano | cartella ...]
Prepara le basi musicali per il lettore Brisel. I brani indicati, e quelli nelle
cartelle, vengono importati all&apos;apertura della finestra.

Opzioni:
  -h, --help     mostra questo aiuto
  -v, --version  mostra la versione
  --             gli argomenti che seguono sono brani o cartelle
</translation>
    </message>
</context>
<context>
    <name>CopyBack</name>
    <message>
        <source>Copia sul computer</source>
        <translation>Copia sul computer</translation>
    </message>
    <message>
        <source>Copio le song...</source>
        <translation>Copio le song...</translation>
    </message>
</context>
<context>
    <name>DesktopNotice</name>
    <message>
        <source>Operazione terminata</source>
        <translation>Operazione terminata</translation>
    </message>
</context>
<context>
    <name>FileCopier</name>
    <message>
        <source>Spazio insufficiente: servono %1, liberi %2</source>
        <translation>Spazio insufficiente: servono %1, liberi %2</translation>
    </message>
</context>
<context>
    <name>HistoryRecorder</name>
    <message>
        <source>Non tutte le modifiche sono nella cronologia: %1</source>
        <translation>Non tutte le modifiche sono nella cronologia: %1</translation>
    </message>
    <message>
        <source>La cronologia è piena: le prime modifiche di questa operazione non ci sono più</source>
        <translation>La cronologia è piena: le prime modifiche di questa operazione non ci sono più</translation>
    </message>
</context>
<context>
    <name>LibraryImport</name>
    <message>
        <source>Lettura file</source>
        <translation>Lettura file</translation>
    </message>
    <message>
        <source>Importo la libreria...</source>
        <translation>Importo la libreria...</translation>
    </message>
</context>
<context>
    <name>ManualEdit</name>
    <message>
        <source>Aggiornamento file</source>
        <translation>Aggiornamento file</translation>
    </message>
    <message>
        <source>Aggiorno la libreria...</source>
        <translation>Aggiorno la libreria...</translation>
    </message>
</context>
<context>
    <name>MemoryFindings</name>
    <message numerus="yes">
        <source>... e altri %n</source>
        <translation>
            <numerusform>... e altri %n</numerusform>
            <numerusform>... e altri %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MemoryListCheck</name>
    <message>
        <source>%1, record %2: nessuna song ha l&apos;id %3</source>
        <translation>%1, record %2: nessuna song ha l&apos;id %3</translation>
    </message>
    <message>
        <source>%1, record %2: song ripetuta: %3</source>
        <translation>%1, record %2: song ripetuta: %3</translation>
    </message>
    <message>
        <source>%1, record %2: la song non è un MP3: %3</source>
        <translation>%1, record %2: la song non è un MP3: %3</translation>
    </message>
    <message>
        <source>%1, record %2: dati diversi da title.id2: %3</source>
        <translation>%1, record %2: dati diversi da title.id2: %3</translation>
    </message>
    <message>
        <source>%1: manca la song %2</source>
        <translation>%1: manca la song %2</translation>
    </message>
    <message>
        <source>%1, record %2: gruppo ripetuto: %3</source>
        <translation>%1, record %2: gruppo ripetuto: %3</translation>
    </message>
    <message>
        <source>%1, record 0: song senza gruppo</source>
        <translation>%1, record 0: song senza gruppo</translation>
    </message>
    <message>
        <source>%1, record %2: fuori ordine: %3</source>
        <translation>%1, record %2: fuori ordine: %3</translation>
    </message>
    <message>
        <source>%1, record %2: il gruppo precedente ha %3 song, non %4</source>
        <translation>%1, record %2: il gruppo precedente ha %3 song, non %4</translation>
    </message>
    <message>
        <source>%1, record %2: gruppo senza song</source>
        <translation>%1, record %2: gruppo senza song</translation>
    </message>
    <message>
        <source>%1, record %2: il gruppo ha %3 song, non %4</source>
        <translation>%1, record %2: il gruppo ha %3 song, non %4</translation>
    </message>
    <message>
        <source>%1: la lettera &quot;%2&quot; porta al posto sbagliato</source>
        <translation>%1: la lettera &quot;%2&quot; porta al posto sbagliato</translation>
    </message>
</context>
<context>
    <name>Restore</name>
    <message>
        <source>Ripristino</source>
        <translation>Ripristino</translation>
    </message>
    <message>
        <source>Ripristino delle song...</source>
        <translation>Ripristino delle song...</translation>
    </message>
    <message>
        <source>Un altro programma ha cambiato questa song dopo la modifica da annullare. Ripristinarla comunque?</source>
        <translation>Un altro programma ha cambiato questa song dopo la modifica da annullare. Ripristinarla comunque?</translation>
    </message>
</context>
<context>
    <name>RunReport</name>
    <message numerus="yes">
        <source> (%n song)</source>
        <translation>
            <numerusform> (%n song)</numerusform>
            <numerusform> (%n song)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n aggiornate</source>
        <translation>
            <numerusform>%n aggiornata</numerusform>
            <numerusform>%n aggiornate</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n modificate</source>
        <translation>
            <numerusform>%n modificata</numerusform>
            <numerusform>%n modificate</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n copiate</source>
        <translation>
            <numerusform>%n copiata</numerusform>
            <numerusform>%n copiate</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non riuscite</source>
        <translation>
            <numerusform>%n non riuscita</numerusform>
            <numerusform>%n non riuscite</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n saltate</source>
        <translation>
            <numerusform>%n saltata</numerusform>
            <numerusform>%n saltate</numerusform>
        </translation>
    </message>
    <message>
        <source>Importazione</source>
        <translation>Importazione</translation>
    </message>
    <message>
        <source>Sincronizzazione</source>
        <translation>Sincronizzazione</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>Modifica</translation>
    </message>
    <message>
        <source>Trasferimento</source>
        <translation>Trasferimento</translation>
    </message>
    <message>
        <source>Ottimizzazione memoria</source>
        <translation>Ottimizzazione memoria</translation>
    </message>
    <message>
        <source>Lista song</source>
        <translation>Lista song</translation>
    </message>
    <message>
        <source>Non letta</source>
        <translation>Non letta</translation>
    </message>
    <message>
        <source>Non trovata</source>
        <translation>Non trovata</translation>
    </message>
    <message>
        <source>Non modificata</source>
        <translation>Non modificata</translation>
    </message>
    <message>
        <source>Non salvata</source>
        <translation>Non salvata</translation>
    </message>
    <message>
        <source>Non copiata</source>
        <translation>Non copiata</translation>
    </message>
    <message>
        <source>Non indicizzata</source>
        <translation>Non indicizzata</translation>
    </message>
    <message>
        <source>il file non esiste</source>
        <translation>il file non esiste</translation>
    </message>
    <message>
        <source>il file non è accessibile</source>
        <translation>il file non è accessibile</translation>
    </message>
    <message>
        <source>non è un file</source>
        <translation>non è un file</translation>
    </message>
    <message>
        <source>il file è vuoto</source>
        <translation>il file è vuoto</translation>
    </message>
    <message>
        <source>il file è troppo grande per essere una song</source>
        <translation>il file è troppo grande per essere una song</translation>
    </message>
    <message>
        <source>formato sconosciuto o file danneggiato</source>
        <translation>formato sconosciuto o file danneggiato</translation>
    </message>
    <message>
        <source>la tabella non l&apos;ha accettata</source>
        <translation>la tabella non l&apos;ha accettata</translation>
    </message>
    <message>
        <source>il database Kordia non la contiene</source>
        <translation>il database Kordia non la contiene</translation>
    </message>
    <message>
        <source>la modifica è stata rifiutata</source>
        <translation>la modifica è stata rifiutata</translation>
    </message>
    <message>
        <source>esiste già e non doveva essere sostituita</source>
        <translation>esiste già e non doveva essere sostituita</translation>
    </message>
    <message>
        <source>operazione interrotta</source>
        <translation>operazione interrotta</translation>
    </message>
    <message>
        <source>esiste già</source>
        <translation>esiste già</translation>
    </message>
    <message>
        <source>al suo posto si trova un&apos;altra delle song scelte</source>
        <translation>al suo posto si trova un&apos;altra delle song scelte</translation>
    </message>
    <message>
        <source>la cartella non esiste più</source>
        <translation>la cartella non esiste più</translation>
    </message>
    <message>
        <source>un altro programma sta lavorando su questa memoria</source>
        <translation>un altro programma sta lavorando su questa memoria</translation>
    </message>
    <message>
        <source>la memoria è protetta da scrittura</source>
        <translation>la memoria è protetta da scrittura</translation>
    </message>
    <message>
        <source>manca il permesso di scrivere nella cartella</source>
        <translation>manca il permesso di scrivere nella cartella</translation>
    </message>
    <message>
        <source>spazio insufficiente sul disco</source>
        <translation>spazio insufficiente sul disco</translation>
    </message>
    <message>
        <source>non è stato possibile scrivere il file</source>
        <translation>non è stato possibile scrivere il file</translation>
    </message>
    <message>
        <source>con i nuovi dati il file sarebbe troppo grande</source>
        <translation>con i nuovi dati il file sarebbe troppo grande</translation>
    </message>
    <message>
        <source>gli archivi della memoria non sono completi</source>
        <translation>gli archivi della memoria non sono completi</translation>
    </message>
    <message>
        <source>la memoria non è preparata per Brisel</source>
        <translation>la memoria non è preparata per Brisel</translation>
    </message>
    <message>
        <source>non è stato possibile leggere il file fino alla fine</source>
        <translation>non è stato possibile leggere il file fino alla fine</translation>
    </message>
    <message>
        <source>nel frattempo un altro programma l&apos;ha cambiata</source>
        <translation>nel frattempo un altro programma l&apos;ha cambiata</translation>
    </message>
    <message>
        <source>gli archivi non si leggono o il file non si può scrivere</source>
        <translation>gli archivi non si leggono o il file non si può scrivere</translation>
    </message>
    <message>
        <source>%1 (%2): %3</source>
        <translation>%1 (%2): %3</translation>
    </message>
    <message>
        <source>la memoria non è più presente</source>
        <translation>la memoria non è più presente</translation>
    </message>
    <message numerus="yes">
        <source>e altri %n</source>
        <translation>
            <numerusform>e %n altro</numerusform>
            <numerusform>e altri %n</numerusform>
        </translation>
    </message>
    <message>
        <source>un altro programma sta usando la cronologia</source>
        <translation>un altro programma sta usando la cronologia</translation>
    </message>
    <message>
        <source>la cronologia è danneggiata</source>
        <translation>la cronologia è danneggiata</translation>
    </message>
    <message>
        <source>la ricerca per parole non è disponibile</source>
        <translation>la ricerca per parole non è disponibile</translation>
    </message>
    <message numerus="yes">
        <source>%n ripristinate</source>
        <translation>
            <numerusform>%n ripristinata</numerusform>
            <numerusform>%n ripristinate</numerusform>
        </translation>
    </message>
    <message>
        <source>Ripristino</source>
        <translation>Ripristino</translation>
    </message>
    <message>
        <source>Non ripristinata</source>
        <translation>Non ripristinata</translation>
    </message>
    <message>
        <source>la song è già come prima della modifica</source>
        <translation>la song è già come prima della modifica</translation>
    </message>
    <message>
        <source>nella cronologia non c&apos;è più la vecchia versione</source>
        <translation>nella cronologia non c&apos;è più la vecchia versione</translation>
    </message>
    <message>
        <source>un altro programma l&apos;ha cambiata dopo la modifica</source>
        <translation>un altro programma l&apos;ha cambiata dopo la modifica</translation>
    </message>
    <message>
        <source>Modificata: %1</source>
        <translation>Modificata: %1</translation>
    </message>
    <message>
        <source>(vuoto)</source>
        <translation>(vuoto)</translation>
    </message>
    <message>
        <source>«%1»</source>
        <translation>«%1»</translation>
    </message>
    <message>
        <source>%1: %2 → %3</source>
        <translation>%1: %2 → %3</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genere</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Autore</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Durata</translation>
    </message>
    <message>
        <source>Bpm</source>
        <translation>Bpm</translation>
    </message>
    <message>
        <source>Tonalità</source>
        <translation>Tonalità</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Marker</translation>
    </message>
    <message>
        <source>la lista del backup manca o è danneggiata</source>
        <translation>la lista del backup manca o è danneggiata</translation>
    </message>
    <message>
        <source>la sua riga nella lista del backup è danneggiata</source>
        <translation>la sua riga nella lista del backup è danneggiata</translation>
    </message>
    <message>
        <source>la lista del backup indica un file che non è una song di quel backup</source>
        <translation>la lista del backup indica un file che non è una song di quel backup</translation>
    </message>
    <message>
        <source>la lista del backup la indica più di una volta</source>
        <translation>la lista del backup la indica più di una volta</translation>
    </message>
    <message>
        <source>la cronologia è di una versione più recente del programma</source>
        <translation>la cronologia è di una versione più recente del programma</translation>
    </message>
    <message>
        <source>il file è cambiato dopo l&apos;anteprima</source>
        <translation>il file è cambiato dopo l&apos;anteprima</translation>
    </message>
    <message>
        <source>la song è già come nel backup</source>
        <translation>la song è già come nel backup</translation>
    </message>
    <message>
        <source>la copia nel backup manca o è stata cambiata</source>
        <translation>la copia nel backup manca o è stata cambiata</translation>
    </message>
    <message>
        <source>un altro programma l&apos;ha cambiata dopo il backup</source>
        <translation>un altro programma l&apos;ha cambiata dopo il backup</translation>
    </message>
    <message>
        <source>è diversa dalla copia e non doveva essere sostituita</source>
        <translation>è diversa dalla copia e non doveva essere sostituita</translation>
    </message>
    <message>
        <source>le modifiche occupano più spazio di quello concesso alla cronologia</source>
        <translation>le modifiche occupano più spazio di quello concesso alla cronologia</translation>
    </message>
    <message numerus="yes">
        <source>%n cancellate</source>
        <translation>
            <numerusform>%n cancellata</numerusform>
            <numerusform>%n cancellate</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancellazione</source>
        <translation>Cancellazione</translation>
    </message>
    <message>
        <source>Non cancellata</source>
        <translation>Non cancellata</translation>
    </message>
    <message>
        <source>non è stato possibile cancellare il file</source>
        <translation>non è stato possibile cancellare il file</translation>
    </message>
    <message>
        <source>i marker di questa song non si possono riscrivere</source>
        <translation>i marker di questa song non si possono riscrivere</translation>
    </message>
    <message>
        <source>un marker verrebbe letto come un altro dato della song</source>
        <translation>un marker verrebbe letto come un altro dato della song</translation>
    </message>
    <message>
        <source>si trova fuori dalla memoria</source>
        <translation>si trova fuori dalla memoria</translation>
    </message>
    <message>
        <source>non è una song</source>
        <translation>non è una song</translation>
    </message>
    <message numerus="yes">
        <source>%n rinominate</source>
        <translation>
            <numerusform>%n rinominata</numerusform>
            <numerusform>%n rinominate</numerusform>
        </translation>
    </message>
    <message>
        <source>Rinomina</source>
        <translation>Rinomina</translation>
    </message>
    <message>
        <source>Copia sul computer</source>
        <translation>Copia sul computer</translation>
    </message>
    <message>
        <source>Non rinominata</source>
        <translation>Non rinominata</translation>
    </message>
    <message>
        <source>il nuovo nome non è possibile</source>
        <translation>il nuovo nome non è possibile</translation>
    </message>
    <message>
        <source>non è stato possibile rinominare il file</source>
        <translation>non è stato possibile rinominare il file</translation>
    </message>
    <message>
        <source>nel frattempo la memoria è stata cambiata, e ora viene letta di nuovo</source>
        <translation>nel frattempo la memoria è stata cambiata, e ora viene letta di nuovo</translation>
    </message>
    <message>
        <source>più file o più song hanno questo percorso</source>
        <translation>più file o più song hanno questo percorso</translation>
    </message>
    <message>
        <source>la song ha ora questo nome</source>
        <translation>la song ha ora questo nome</translation>
    </message>
    <message>
        <source>una cartella del percorso ha un carattere che Brisel non conosce</source>
        <translation>una cartella del percorso ha un carattere che Brisel non conosce</translation>
    </message>
</context>
<context>
    <name>SongDeletion</name>
    <message>
        <source>Cancellazione file</source>
        <translation>Cancellazione file</translation>
    </message>
    <message>
        <source>Cancello i file...</source>
        <translation>Cancello i file...</translation>
    </message>
</context>
<context>
    <name>SongOutcome</name>
    <message>
        <source>sincronizzata con il database</source>
        <translation>sincronizzata con il database</translation>
    </message>
    <message>
        <source>modificata a mano</source>
        <translation>modificata a mano</translation>
    </message>
    <message>
        <source>ripristinata</source>
        <translation>ripristinata</translation>
    </message>
    <message>
        <source>non trovata nel database</source>
        <translation>non trovata nel database</translation>
    </message>
    <message>
        <source>rifiutata</source>
        <translation>rifiutata</translation>
    </message>
    <message>
        <source>non scritta</source>
        <translation>non scritta</translation>
    </message>
    <message>
        <source>non leggibile</source>
        <translation>non leggibile</translation>
    </message>
    <message>
        <source>importata</source>
        <translation>importata</translation>
    </message>
</context>
<context>
    <name>SongPicker</name>
    <message>
        <source>Lettura file</source>
        <translation>Lettura file</translation>
    </message>
    <message>
        <source>Cerco i brani...</source>
        <translation>Cerco i brani...</translation>
    </message>
</context>
<context>
    <name>SongPlayer</name>
    <message>
        <source>formato sconosciuto</source>
        <translation>formato sconosciuto</translation>
    </message>
    <message>
        <source>I dati MIDI del brano non si possono suonare.</source>
        <translation>I dati MIDI del brano non si possono suonare.</translation>
    </message>
    <message>
        <source>Il brano non si può leggere:</source>
        <translation>Il brano non si può leggere:</translation>
    </message>
</context>
<context>
    <name>SongPlayers</name>
    <message>
        <source>Questa versione del programma non suona i brani MIDI: è stata costruita senza FluidSynth.</source>
        <translation>Questa versione del programma non suona i brani MIDI: è stata costruita senza FluidSynth.</translation>
    </message>
    <message>
        <source>Manca un SoundFont General MIDI: installare il pacchetto timgm6mb-soundfont, o sceglierne uno in Preferenze.</source>
        <translation>Manca un SoundFont General MIDI: installare il pacchetto timgm6mb-soundfont, o sceglierne uno in Preferenze.</translation>
    </message>
    <message>
        <source>Questa versione del programma non suona gli MP3: è stata costruita senza Qt Multimedia.</source>
        <translation>Questa versione del programma non suona gli MP3: è stata costruita senza Qt Multimedia.</translation>
    </message>
</context>
<context>
    <name>SongRemoval</name>
    <message>
        <source>Rimozione dalla memoria</source>
        <translation>Rimozione dalla memoria</translation>
    </message>
    <message>
        <source>Rimuovo le song...</source>
        <translation>Rimuovo le song...</translation>
    </message>
</context>
<context>
    <name>SongRename</name>
    <message>
        <source>Scrivere un nome</source>
        <translation>Scrivere un nome</translation>
    </message>
    <message>
        <source>Il nome può avere al massimo %1 caratteri</source>
        <translation>Il nome può avere al massimo %1 caratteri</translation>
    </message>
    <message>
        <source>In un nome non è permesso il carattere «%1»</source>
        <translation>In un nome non è permesso il carattere «%1»</translation>
    </message>
    <message>
        <source>Brisel non conosce il carattere «%1»</source>
        <translation>Brisel non conosce il carattere «%1»</translation>
    </message>
    <message>
        <source>Il nome non può cominciare o finire con uno spazio</source>
        <translation>Il nome non può cominciare o finire con uno spazio</translation>
    </message>
    <message>
        <source>Questo nome è riservato ai sistemi operativi</source>
        <translation>Questo nome è riservato ai sistemi operativi</translation>
    </message>
    <message>
        <source>La song ha già questo nome</source>
        <translation>La song ha già questo nome</translation>
    </message>
    <message>
        <source>Nella cartella c&apos;è già un file con questo nome</source>
        <translation>Nella cartella c&apos;è già un file con questo nome</translation>
    </message>
    <message>
        <source>Il percorso della song sulla memoria sarebbe troppo lungo</source>
        <translation>Il percorso della song sulla memoria sarebbe troppo lungo</translation>
    </message>
    <message>
        <source>Una playlist contiene ancora una song cancellata con questo nome</source>
        <translation>Una playlist contiene ancora una song cancellata con questo nome</translation>
    </message>
</context>
<context>
    <name>SyncPreview</name>
    <message>
        <source>Anteprima</source>
        <translation>Anteprima</translation>
    </message>
    <message>
        <source>Cerco le song nel database...</source>
        <translation>Cerco le song nel database...</translation>
    </message>
</context>
<context>
    <name>Synchroniser</name>
    <message>
        <source>Aggiornamento file</source>
        <translation>Aggiornamento file</translation>
    </message>
    <message>
        <source>Aggiorno la libreria...</source>
        <translation>Aggiorno la libreria...</translation>
    </message>
</context>
<context>
    <name>TimeLeft</name>
    <message>
        <source>ancora pochi secondi</source>
        <translation>ancora pochi secondi</translation>
    </message>
    <message>
        <source>ancora circa %1 secondi</source>
        <translation>ancora circa %1 secondi</translation>
    </message>
    <message>
        <source>ancora circa %1 minuti</source>
        <translation>ancora circa %1 minuti</translation>
    </message>
    <message>
        <source>ancora circa %1 ore</source>
        <translation>ancora circa %1 ore</translation>
    </message>
</context>
<context>
    <name>Transfer</name>
    <message>
        <source>Trasferimento</source>
        <translation>Trasferimento</translation>
    </message>
    <message>
        <source>Trasferimento file...</source>
        <translation>Trasferimento file...</translation>
    </message>
    <message>
        <source>Aggiornamento</source>
        <translation>Aggiornamento</translation>
    </message>
    <message>
        <source>Aggiornamento database...</source>
        <translation>Aggiornamento database...</translation>
    </message>
    <message>
        <source>Confronto delle song...</source>
        <translation>Confronto delle song...</translation>
    </message>
</context>
<context>
    <name>TransferPlan</name>
    <message>
        <source>Piano del trasferimento</source>
        <translation>Piano del trasferimento</translation>
    </message>
    <message>
        <source>Confronto con la memoria...</source>
        <translation>Confronto con la memoria...</translation>
    </message>
</context>
<context>
    <name>WindowRun</name>
    <message>
        <source>Interrompi</source>
        <translation>Interrompi</translation>
    </message>
    <message>
        <source>%1 di %2</source>
        <translation>%1 di %2</translation>
    </message>
    <message>
        <source>esiste già, vuoi sostituirlo?</source>
        <translation>esiste già, vuoi sostituirlo?</translation>
    </message>
</context>
<context>
    <name>brisel::AboutDialog</name>
    <message>
        <source>Informazioni</source>
        <translation>Informazioni</translation>
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
        <translation>&lt;b&gt;Kordia&lt;/b&gt;&lt;br/&gt;Per informazioni e assistenza rivolgersi al servizio clienti Kordia o al proprio rivenditore.</translation>
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
        <translation>Si consiglia di effettuare un backup della libreria prima di procedere con l&apos;aggiornamento.
Selezionare una cartella di destinazione per il backup oppure premere &apos;Prosegui senza backup&apos;.</translation>
    </message>
    <message>
        <source>Sfoglia...</source>
        <translation>Sfoglia...</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Esegui backup</source>
        <translation>Esegui backup</translation>
    </message>
    <message>
        <source>Prosegui senza backup</source>
        <translation>Prosegui senza backup</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Scegli cartella</translation>
    </message>
    <message>
        <source>Cartella del backup</source>
        <translation>Cartella del backup</translation>
    </message>
    <message>
        <source>Cartella in cui salvare il backup</source>
        <translation>Cartella in cui salvare il backup</translation>
    </message>
    <message>
        <source>Sceglie la cartella del backup</source>
        <translation>Sceglie la cartella del backup</translation>
    </message>
    <message>
        <source>Rinuncia alla sincronizzazione</source>
        <translation>Rinuncia alla sincronizzazione</translation>
    </message>
    <message>
        <source>Copia i file scelti, poi li sincronizza</source>
        <translation>Copia i file scelti, poi li sincronizza</translation>
    </message>
    <message>
        <source>Sincronizza i file senza copiarli prima</source>
        <translation>Sincronizza i file senza copiarli prima</translation>
    </message>
    <message>
        <source>La cronologia non può conservare queste modifiche: %1</source>
        <translation>La cronologia non può conservare queste modifiche: %1</translation>
    </message>
</context>
<context>
    <name>brisel::BackupModel</name>
    <message>
        <source>Copia</source>
        <translation>Copia</translation>
    </message>
    <message>
        <source>Da dove viene</source>
        <translation>Da dove viene</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Nota</translation>
    </message>
</context>
<context>
    <name>brisel::BackupRestoreDialog</name>
    <message>
        <source>Ripristina backup</source>
        <translation>Ripristina backup</translation>
    </message>
    <message>
        <source>Le copie scelte tornano al loro posto. Prima di sostituire una song cambiata da un altro programma viene fatta una domanda.</source>
        <translation>Le copie scelte tornano al loro posto. Prima di sostituire una song cambiata da un altro programma viene fatta una domanda.</translation>
    </message>
    <message>
        <source>Copie del backup</source>
        <translation>Copie del backup</translation>
    </message>
    <message>
        <source>Le copie del backup, con il posto da cui vengono; quelle segnate vengono ripristinate</source>
        <translation>Le copie del backup, con il posto da cui vengono; quelle segnate vengono ripristinate</translation>
    </message>
    <message>
        <source>Segna tutte le copie</source>
        <translation>Segna tutte le copie</translation>
    </message>
    <message>
        <source>&amp;Tutte</source>
        <translation>&amp;Tutte</translation>
    </message>
    <message>
        <source>Toglie il segno a tutte le copie</source>
        <translation>Toglie il segno a tutte le copie</translation>
    </message>
    <message>
        <source>&amp;Nessuna</source>
        <translation>&amp;Nessuna</translation>
    </message>
    <message>
        <source>Rimette le copie segnate al loro posto</source>
        <translation>Rimette le copie segnate al loro posto</translation>
    </message>
    <message>
        <source>&amp;Ripristina</source>
        <translation>&amp;Ripristina</translation>
    </message>
    <message>
        <source>Lascia le song come sono</source>
        <translation>Lascia le song come sono</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Annulla</translation>
    </message>
</context>
<context>
    <name>brisel::CatalogueSearchDialog</name>
    <message>
        <source>Cerca nel catalogo</source>
        <translation>Cerca nel catalogo</translation>
    </message>
    <message>
        <source>&amp;Parole</source>
        <translation>&amp;Parole</translation>
    </message>
    <message>
        <source>Parole del titolo, dell&apos;artista o del nome del file</source>
        <translation>Parole del titolo, dell&apos;artista o del nome del file</translation>
    </message>
    <message>
        <source>Song del catalogo</source>
        <translation>Song del catalogo</translation>
    </message>
    <message>
        <source>Song del database Kordia; un doppio clic sceglie la riga</source>
        <translation>Song del database Kordia; un doppio clic sceglie la riga</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Nome file</source>
        <translation>Nome file</translation>
    </message>
    <message>
        <source>&amp;Scegli</source>
        <translation>&amp;Scegli</translation>
    </message>
    <message>
        <source>Usa i dati della riga per questa song</source>
        <translation>Usa i dati della riga per questa song</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Annulla</translation>
    </message>
    <message>
        <source>Chiude la ricerca senza scegliere</source>
        <translation>Chiude la ricerca senza scegliere</translation>
    </message>
    <message>
        <source>Nessuna song con queste parole</source>
        <translation>Nessuna song con queste parole</translation>
    </message>
    <message>
        <source>Le song più simili sono le prime</source>
        <translation>Le song più simili sono le prime</translation>
    </message>
    <message>
        <source>Song da cercare: %1</source>
        <translation>Song da cercare: %1</translation>
    </message>
</context>
<context>
    <name>brisel::ColumnLayout</name>
    <message>
        <source>Mostra o nasconde la colonna &quot;%1&quot;</source>
        <translation>Mostra o nasconde la colonna &quot;%1&quot;</translation>
    </message>
</context>
<context>
    <name>brisel::DataEditDialog</name>
    <message>
        <source>Modifica dati song</source>
        <translation>Modifica dati song</translation>
    </message>
    <message>
        <source>Percorso file:</source>
        <translation>Percorso file:</translation>
    </message>
    <message>
        <source>Formato:</source>
        <translation>Formato:</translation>
    </message>
    <message>
        <source>Titolo Song:</source>
        <translation>Titolo Song:</translation>
    </message>
    <message>
        <source>Usa il titolo</source>
        <translation>Usa il titolo</translation>
    </message>
    <message>
        <source>Usa il filename</source>
        <translation>Usa il filename</translation>
    </message>
    <message>
        <source>Applica a tutti</source>
        <translation>Applica a tutti</translation>
    </message>
    <message>
        <source>Interprete:</source>
        <translation>Interprete:</translation>
    </message>
    <message>
        <source>Genere Musicale:</source>
        <translation>Genere Musicale:</translation>
    </message>
    <message>
        <source>Autore:</source>
        <translation>Autore:</translation>
    </message>
    <message>
        <source>Durata:</source>
        <translation>Durata:</translation>
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
        <translation>Tonalità:</translation>
    </message>
    <message>
        <source>Salva</source>
        <translation>Salva</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Il titolo di tutte le song della lista verrà sovrascritto non il nome del file, sei sicuro?</source>
        <translation>Il titolo di tutte le song della lista verrà sovrascritto non il nome del file, sei sicuro?</translation>
    </message>
    <message>
        <source>L&apos;interprete inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>L&apos;interprete inserito verrà applicato a tutte le song della lista, sei sicuro?</translation>
    </message>
    <message>
        <source>Il genere inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>Il genere inserito verrà applicato a tutte le song della lista, sei sicuro?</translation>
    </message>
    <message>
        <source>L&apos;autore inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>L&apos;autore inserito verrà applicato a tutte le song della lista, sei sicuro?</translation>
    </message>
    <message>
        <source>ATTENZIONE</source>
        <translation>ATTENZIONE</translation>
    </message>
    <message>
        <source>Titolo della song</source>
        <translation>Titolo della song</translation>
    </message>
    <message>
        <source>Rimette il titolo letto dal file</source>
        <translation>Rimette il titolo letto dal file</translation>
    </message>
    <message>
        <source>Usa come titolo il nome del file senza estensione</source>
        <translation>Usa come titolo il nome del file senza estensione</translation>
    </message>
    <message>
        <source>Applica a tutti: titolo</source>
        <translation>Applica a tutti: titolo</translation>
    </message>
    <message>
        <source>Dà a ogni song della lista il nome del suo file come titolo</source>
        <translation>Dà a ogni song della lista il nome del suo file come titolo</translation>
    </message>
    <message>
        <source>Interprete: dall&apos;elenco oppure scritto a mano</source>
        <translation>Interprete: dall&apos;elenco oppure scritto a mano</translation>
    </message>
    <message>
        <source>Applica a tutti: interprete</source>
        <translation>Applica a tutti: interprete</translation>
    </message>
    <message>
        <source>Scrive questo interprete in tutte le song della lista</source>
        <translation>Scrive questo interprete in tutte le song della lista</translation>
    </message>
    <message>
        <source>Genere: dall&apos;elenco oppure scritto a mano</source>
        <translation>Genere: dall&apos;elenco oppure scritto a mano</translation>
    </message>
    <message>
        <source>Applica a tutti: genere</source>
        <translation>Applica a tutti: genere</translation>
    </message>
    <message>
        <source>Scrive questo genere in tutte le song della lista</source>
        <translation>Scrive questo genere in tutte le song della lista</translation>
    </message>
    <message>
        <source>Autore della song</source>
        <translation>Autore della song</translation>
    </message>
    <message>
        <source>Applica a tutti: autore</source>
        <translation>Applica a tutti: autore</translation>
    </message>
    <message>
        <source>Scrive questo autore in tutte le song della lista</source>
        <translation>Scrive questo autore in tutte le song della lista</translation>
    </message>
    <message>
        <source>Durata, minuti</source>
        <translation>Durata, minuti</translation>
    </message>
    <message>
        <source>Durata: minuti</source>
        <translation>Durata: minuti</translation>
    </message>
    <message>
        <source>Durata, secondi</source>
        <translation>Durata, secondi</translation>
    </message>
    <message>
        <source>Durata: secondi</source>
        <translation>Durata: secondi</translation>
    </message>
    <message>
        <source>Tempo, in battiti al minuto</source>
        <translation>Tempo, in battiti al minuto</translation>
    </message>
    <message>
        <source>Tonalità; il segno - indica il modo minore</source>
        <translation>Tonalità; il segno - indica il modo minore</translation>
    </message>
    <message>
        <source>Scrive i dati nel file della song</source>
        <translation>Scrive i dati nel file della song</translation>
    </message>
    <message>
        <source>Lascia il file com&apos;è</source>
        <translation>Lascia il file com&apos;è</translation>
    </message>
    <message>
        <source>Nel file diventeranno &quot;?&quot;: %1</source>
        <translation>Nel file diventeranno &quot;?&quot;: %1</translation>
    </message>
    <message>
        <source>Nei file che non sono MP3 diventeranno &quot;?&quot;: %1</source>
        <translation>Nei file che non sono MP3 diventeranno &quot;?&quot;: %1</translation>
    </message>
    <message>
        <source>Song da modificare: %1</source>
        <translation>Song da modificare: %1</translation>
    </message>
    <message>
        <source>Anche quelle nascoste dalla ricerca: %1</source>
        <translation>Anche quelle nascoste dalla ricerca: %1</translation>
    </message>
    <message>
        <source>Prende titolo e interprete dal nome del file: Interprete - Titolo</source>
        <translation>Prende titolo e interprete dal nome del file: Interprete - Titolo</translation>
    </message>
    <message>
        <source>Dal nome del file</source>
        <translation>Dal nome del file</translation>
    </message>
    <message>
        <source>Verrà svuotato in tutte le song selezionate</source>
        <translation>Verrà svuotato in tutte le song selezionate</translation>
    </message>
    <message>
        <source>%1 song selezionate</source>
        <translation>%1 song selezionate</translation>
    </message>
    <message>
        <source>Modifica dati di %1 song</source>
        <translation>Modifica dati di %1 song</translation>
    </message>
    <message>
        <source>&lt;diversi&gt;</source>
        <translation>&lt;diversi&gt;</translation>
    </message>
    <message>
        <source>&lt;dal nome del file&gt;</source>
        <translation>&lt;dal nome del file&gt;</translation>
    </message>
    <message>
        <source>Passa alla song precedente della tabella (Ctrl+Pag su)</source>
        <translation>Passa alla song precedente della tabella (Ctrl+Pag su)</translation>
    </message>
    <message>
        <source>Precedente</source>
        <translation>Precedente</translation>
    </message>
    <message>
        <source>Passa alla song successiva della tabella (Ctrl+Pag giù); Ctrl+Invio prima salva</source>
        <translation>Passa alla song successiva della tabella (Ctrl+Pag giù); Ctrl+Invio prima salva</translation>
    </message>
    <message>
        <source>Successiva</source>
        <translation>Successiva</translation>
    </message>
    <message>
        <source>Salvare le modifiche?</source>
        <translation>Salvare le modifiche?</translation>
    </message>
    <message>
        <source>Marker (%1)...</source>
        <translation>Marker (%1)...</translation>
    </message>
    <message>
        <source>Marker...</source>
        <translation>Marker...</translation>
    </message>
    <message>
        <source>Mostra e modifica i marker della song: battuta e testo</source>
        <translation>Mostra e modifica i marker della song: battuta e testo</translation>
    </message>
    <message>
        <source>I marker si modificano in una song alla volta</source>
        <translation>I marker si modificano in una song alla volta</translation>
    </message>
    <message>
        <source>Le song di questo formato non hanno marker</source>
        <translation>Le song di questo formato non hanno marker</translation>
    </message>
</context>
<context>
    <name>brisel::EntryGuess</name>
    <message>
        <source>è al percorso che il programma aveva annotato</source>
        <translation>è al percorso che il programma aveva annotato</translation>
    </message>
    <message>
        <source>ha lo stesso titolo, tempo e formato</source>
        <translation>ha lo stesso titolo, tempo e formato</translation>
    </message>
    <message>
        <source>ha lo stesso titolo</source>
        <translation>ha lo stesso titolo</translation>
    </message>
    <message>
        <source>ha un titolo simile</source>
        <translation>ha un titolo simile</translation>
    </message>
</context>
<context>
    <name>brisel::ExportListDialog</name>
    <message>
        <source>Esporta elenco</source>
        <translation>Esporta elenco</translation>
    </message>
    <message>
        <source>&amp;Ordine:</source>
        <translation>&amp;Ordine:</translation>
    </message>
    <message>
        <source>L&apos;ordine delle song nell&apos;elenco</source>
        <translation>L&apos;ordine delle song nell&apos;elenco</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genere</translation>
    </message>
    <message>
        <source>Le song che l&apos;elenco contiene</source>
        <translation>Le song che l&apos;elenco contiene</translation>
    </message>
    <message>
        <source>Tutte</source>
        <translation>Tutte</translation>
    </message>
    <message>
        <source>Solo MP3</source>
        <translation>Solo MP3</translation>
    </message>
    <message>
        <source>&amp;Formato:</source>
        <translation>&amp;Formato:</translation>
    </message>
    <message>
        <source>Un testo per fogli di calcolo, o una pagina da stampare</source>
        <translation>Un testo per fogli di calcolo, o una pagina da stampare</translation>
    </message>
    <message>
        <source>CSV, per fogli di calcolo</source>
        <translation>CSV, per fogli di calcolo</translation>
    </message>
    <message>
        <source>HTML, da stampare</source>
        <translation>HTML, da stampare</translation>
    </message>
    <message>
        <source>Chiede il nome del file e lo salva</source>
        <translation>Chiede il nome del file e lo salva</translation>
    </message>
    <message>
        <source>&amp;Salva...</source>
        <translation>&amp;Salva...</translation>
    </message>
    <message>
        <source>Non salva l&apos;elenco</source>
        <translation>Non salva l&apos;elenco</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Annulla</translation>
    </message>
    <message>
        <source>So&amp;ng:</source>
        <translation>So&amp;ng:</translation>
    </message>
</context>
<context>
    <name>brisel::FoldersModel</name>
    <message>
        <source>Doppioni</source>
        <translation>Doppioni</translation>
    </message>
    <message>
        <source>Nuove, non ancora nell&apos;indice</source>
        <translation>Nuove, non ancora nell&apos;indice</translation>
    </message>
    <message>
        <source>Troppo lunghi</source>
        <translation>Troppo lunghi</translation>
    </message>
    <message>
        <source>Non leggibili</source>
        <translation>Non leggibili</translation>
    </message>
    <message>
        <source>Grafica senza il suo MP3</source>
        <translation>Grafica senza il suo MP3</translation>
    </message>
    <message>
        <source>Cartella di lavoro del programma</source>
        <translation>Cartella di lavoro del programma</translation>
    </message>
    <message>
        <source>il percorso ha più di 45 caratteri: Brisel non può avere la song</source>
        <translation>il percorso ha più di 45 caratteri: Brisel non può avere la song</translation>
    </message>
    <message>
        <source>il nome ha più di otto caratteri</source>
        <translation>il nome ha più di otto caratteri</translation>
    </message>
    <message>
        <source>il nome della cartella ha più di otto caratteri</source>
        <translation>il nome della cartella ha più di otto caratteri</translation>
    </message>
    <message>
        <source>la cartella non si può leggere fino alla fine</source>
        <translation>la cartella non si può leggere fino alla fine</translation>
    </message>
    <message>
        <source>il file non si può leggere</source>
        <translation>il file non si può leggere</translation>
    </message>
    <message>
        <source>il file è vuoto o troppo corto</source>
        <translation>il file è vuoto o troppo corto</translation>
    </message>
    <message>
        <source>non è un file</source>
        <translation>non è un file</translation>
    </message>
    <message>
        <source>il nome non è valido</source>
        <translation>il nome non è valido</translation>
    </message>
    <message>
        <source>porta fuori dalla memoria</source>
        <translation>porta fuori dalla memoria</translation>
    </message>
    <message>
        <source>uguale a %1</source>
        <translation>uguale a %1</translation>
    </message>
    <message>
        <source>qui il programma tiene i nomi abbreviati e ciò che serve a finire un aggiornamento interrotto; Brisel non la usa</source>
        <translation>qui il programma tiene i nomi abbreviati e ciò che serve a finire un aggiornamento interrotto; Brisel non la usa</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Percorso</source>
        <translation>Percorso</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Dimensione</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Nota</translation>
    </message>
</context>
<context>
    <name>brisel::FoldersView</name>
    <message>
        <source>File e cartelle della memoria</source>
        <translation>File e cartelle della memoria</translation>
    </message>
    <message>
        <source>Ciò che sta sulla memoria e non è una song dell&apos;indice</source>
        <translation>Ciò che sta sulla memoria e non è una song dell&apos;indice</translation>
    </message>
    <message>
        <source>Legge le song di uguale dimensione e mostra quelle con lo stesso contenuto</source>
        <translation>Legge le song di uguale dimensione e mostra quelle con lo stesso contenuto</translation>
    </message>
    <message>
        <source>Cerca &amp;doppioni</source>
        <translation>Cerca &amp;doppioni</translation>
    </message>
    <message>
        <source>Ricerca dei doppioni</source>
        <translation>Ricerca dei doppioni</translation>
    </message>
    <message>
        <source>Quanto è stato letto</source>
        <translation>Quanto è stato letto</translation>
    </message>
    <message>
        <source>&amp;Interrompi</source>
        <translation>&amp;Interrompi</translation>
    </message>
    <message>
        <source>La memoria non è ancora letta</source>
        <translation>La memoria non è ancora letta</translation>
    </message>
    <message>
        <source>Nessun doppione</source>
        <translation>Nessun doppione</translation>
    </message>
    <message>
        <source>Sulla memoria ci sono solo le song dell&apos;indice</source>
        <translation>Sulla memoria ci sono solo le song dell&apos;indice</translation>
    </message>
</context>
<context>
    <name>brisel::HelpDialog</name>
    <message>
        <source>Aiuto Brisel2 PC</source>
        <translation>Aiuto Brisel2 PC</translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation>Aiuto</translation>
    </message>
    <message>
        <source>Guida all&apos;uso</source>
        <translation>Guida all&apos;uso</translation>
    </message>
</context>
<context>
    <name>brisel::HistoryDialog</name>
    <message>
        <source>Cronologia modifiche</source>
        <translation>Cronologia modifiche</translation>
    </message>
    <message>
        <source>Le operazioni, la più recente per prima; in ognuna le song, e per ogni song i dati di prima e di dopo</source>
        <translation>Le operazioni, la più recente per prima; in ognuna le song, e per ogni song i dati di prima e di dopo</translation>
    </message>
    <message>
        <source>Spazio &amp;massimo:</source>
        <translation>Spazio &amp;massimo:</translation>
    </message>
    <message>
        <source>Spazio massimo della cronologia; quando è piena, le operazioni più vecchie vengono tolte. Mai più del 5% del disco</source>
        <translation>Spazio massimo della cronologia; quando è piena, le operazioni più vecchie vengono tolte. Mai più del 5% del disco</translation>
    </message>
    <message>
        <source> MiB</source>
        <translation> MiB</translation>
    </message>
    <message>
        <source>Toglie tutte le operazioni dalla cronologia, dopo una domanda</source>
        <translation>Toglie tutte le operazioni dalla cronologia, dopo una domanda</translation>
    </message>
    <message>
        <source>&amp;Svuota</source>
        <translation>&amp;Svuota</translation>
    </message>
    <message>
        <source>Rimette le song selezionate, o tutte quelle delle operazioni selezionate, com&apos;erano prima</source>
        <translation>Rimette le song selezionate, o tutte quelle delle operazioni selezionate, com&apos;erano prima</translation>
    </message>
    <message>
        <source>&amp;Ripristina</source>
        <translation>&amp;Ripristina</translation>
    </message>
    <message>
        <source>Mostra il resoconto dell&apos;operazione selezionata</source>
        <translation>Mostra il resoconto dell&apos;operazione selezionata</translation>
    </message>
    <message>
        <source>&amp;Apri resoconto</source>
        <translation>&amp;Apri resoconto</translation>
    </message>
    <message>
        <source>Chiude la cronologia</source>
        <translation>Chiude la cronologia</translation>
    </message>
    <message>
        <source>C&amp;hiudi</source>
        <translation>C&amp;hiudi</translation>
    </message>
    <message>
        <source>Spazio usato: %1 (al massimo %2)</source>
        <translation>Spazio usato: %1 (al massimo %2)</translation>
    </message>
    <message>
        <source>La cronologia non si può leggere: %1</source>
        <translation>La cronologia non si può leggere: %1</translation>
    </message>
    <message>
        <source>La cronologia è vuota: il programma non ha ancora modificato song</source>
        <translation>La cronologia è vuota: il programma non ha ancora modificato song</translation>
    </message>
    <message>
        <source>Vuotare la cronologia? Le modifiche fatte finora non si potranno più annullare.</source>
        <translation>Vuotare la cronologia? Le modifiche fatte finora non si potranno più annullare.</translation>
    </message>
    <message>
        <source>La cronologia non si può vuotare: %1</source>
        <translation>La cronologia non si può vuotare: %1</translation>
    </message>
    <message>
        <source>La cronologia non si può vuotare</source>
        <translation>La cronologia non si può vuotare</translation>
    </message>
</context>
<context>
    <name>brisel::HistoryModel</name>
    <message>
        <source>Sincronizzazione</source>
        <translation>Sincronizzazione</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>Modifica</translation>
    </message>
    <message>
        <source>Applica a tutti</source>
        <translation>Applica a tutti</translation>
    </message>
    <message>
        <source>Ripristino</source>
        <translation>Ripristino</translation>
    </message>
    <message>
        <source>%1 - %2</source>
        <translation>%1 - %2</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n song</numerusform>
        </translation>
    </message>
    <message>
        <source>come scritta allora</source>
        <translation>come scritta allora</translation>
    </message>
    <message>
        <source>come prima della modifica</source>
        <translation>come prima della modifica</translation>
    </message>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>il file non c&apos;è più</translation>
    </message>
    <message>
        <source>modificata di nuovo in seguito</source>
        <translation>modificata di nuovo in seguito</translation>
    </message>
    <message>
        <source>cambiata in seguito da un altro programma</source>
        <translation>cambiata in seguito da un altro programma</translation>
    </message>
    <message>
        <source>Operazione, song, dato</source>
        <translation>Operazione, song, dato</translation>
    </message>
    <message>
        <source>Prima</source>
        <translation>Prima</translation>
    </message>
    <message>
        <source>Dopo</source>
        <translation>Dopo</translation>
    </message>
    <message>
        <source>Stato</source>
        <translation>Stato</translation>
    </message>
</context>
<context>
    <name>brisel::Index</name>
    <message>
        <source>File non importato, errore nel path:</source>
        <translation>File non importato, errore nel path:</translation>
    </message>
    <message>
        <source>File non importato, path troppo lungo: </source>
        <translation>File non importato, path troppo lungo: </translation>
    </message>
    <message>
        <source>File non importato, memoria piena: </source>
        <translation>File non importato, memoria piena: </translation>
    </message>
    <message>
        <source>Rinominato: </source>
        <translation>Rinominato: </translation>
    </message>
    <message>
        <source>File non importato, impossibile rinominare: </source>
        <translation>File non importato, impossibile rinominare: </translation>
    </message>
    <message>
        <source>verrà rinominato: </source>
        <translation>verrà rinominato: </translation>
    </message>
    <message>
        <source>Se il file non viene rinominato, è possibile che non venga rilevato da Brisel.</source>
        <translation>Se il file non viene rinominato, è possibile che non venga rilevato da Brisel.</translation>
    </message>
    <message>
        <source>TITOLO</source>
        <translation>TITOLO</translation>
    </message>
    <message>
        <source>ARTISTA</source>
        <translation>ARTISTA</translation>
    </message>
    <message>
        <source>GENERE</source>
        <translation>GENERE</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>File non importato, si trova fuori dalla memoria: </source>
        <translation>File non importato, si trova fuori dalla memoria: </translation>
    </message>
    <message>
        <source>Cartella non importata, impossibile leggerla: </source>
        <translation>Cartella non importata, impossibile leggerla: </translation>
    </message>
    <message>
        <source>Cartella importata solo in parte, errore di lettura: </source>
        <translation>Cartella importata solo in parte, errore di lettura: </translation>
    </message>
    <message>
        <source>File non importato, non è accessibile: </source>
        <translation>File non importato, non è accessibile: </translation>
    </message>
    <message>
        <source>File non importato, non è un file: </source>
        <translation>File non importato, non è un file: </translation>
    </message>
    <message>
        <source>File non importato, il collegamento non porta a nessun file: </source>
        <translation>File non importato, il collegamento non porta a nessun file: </translation>
    </message>
    <message>
        <source>File non leggibile, la song è indicizzata con il solo nome: </source>
        <translation>File non leggibile, la song è indicizzata con il solo nome: </translation>
    </message>
    <message>
        <source>File non leggibile, la song resta indicizzata com&apos;era: </source>
        <translation>File non leggibile, la song resta indicizzata com&apos;era: </translation>
    </message>
    <message>
        <source>File non importato, il nome non è valido: </source>
        <translation>File non importato, il nome non è valido: </translation>
    </message>
    <message>
        <source>File non importato, il collegamento porta a una cartella già importata: </source>
        <translation>File non importato, il collegamento porta a una cartella già importata: </translation>
    </message>
    <message>
        <source>Il nome ha caratteri che Brisel non conosce e la song non si può aprire, rinominare il file o la sua cartella: </source>
        <translation>Il nome ha caratteri che Brisel non conosce e la song non si può aprire, rinominare il file o la sua cartella: </translation>
    </message>
    <message>
        <source>L&apos;indice era danneggiato ed è stato riparato</source>
        <translation>L&apos;indice era danneggiato ed è stato riparato</translation>
    </message>
    <message>
        <source>Cartella rinominata, il suo nome serve all&apos;indice: </source>
        <translation>Cartella rinominata, il suo nome serve all&apos;indice: </translation>
    </message>
    <message>
        <source>Playlist non aggiornata: </source>
        <translation>Playlist non aggiornata: </translation>
    </message>
    <message>
        <source>Elenco delle song MP3</source>
        <translation>Elenco delle song MP3</translation>
    </message>
    <message>
        <source>Elenco delle song</source>
        <translation>Elenco delle song</translation>
    </message>
    <message>
        <source>it</source>
        <comment>la lingua della pagina</comment>
        <translation>it</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n song</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>brisel::IndexDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Ottimizza memoria</translation>
    </message>
    <message>
        <source>Seleziona la cartella principale della Compact Flash o della Penna USB che vuoi ottimizzare per Brisel:</source>
        <translation>Seleziona la cartella principale della Compact Flash o della Penna USB che vuoi ottimizzare per Brisel:</translation>
    </message>
    <message>
        <source>Sfoglia</source>
        <translation>Sfoglia</translation>
    </message>
    <message>
        <source>Seleziona l&apos;azione che vuoi eseguire:</source>
        <translation>Seleziona l&apos;azione che vuoi eseguire:</translation>
    </message>
    <message>
        <source>Ho inserito o eliminato alcune song, aggiorna database</source>
        <translation>Ho inserito o eliminato alcune song, aggiorna database</translation>
    </message>
    <message>
        <source>Ho problemi con gli archivi, ricostruisci database</source>
        <translation>Ho problemi con gli archivi, ricostruisci database</translation>
    </message>
    <message>
        <source>Controlla struttura memoria</source>
        <translation>Controlla struttura memoria</translation>
    </message>
    <message>
        <source>File found:</source>
        <translation>File trovati:</translation>
    </message>
    <message>
        <source>Report:</source>
        <translation>Report:</translation>
    </message>
    <message>
        <source>Inizia</source>
        <translation>Inizia</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Scegli cartella</translation>
    </message>
    <message>
        <source>Ottimizza memoria</source>
        <translation>Ottimizza memoria</translation>
    </message>
    <message>
        <source>Il percorso selezionato non esiste</source>
        <translation>Il percorso selezionato non esiste</translation>
    </message>
    <message>
        <source>Operazione completata</source>
        <translation>Operazione completata</translation>
    </message>
    <message>
        <source>Ottimizzazione memoria in corso...</source>
        <translation>Ottimizzazione memoria in corso...</translation>
    </message>
    <message>
        <source>Durante l&apos;operazione si sono verificati alcuni errori.
Consultare il report per maggiori informazioni.</source>
        <translation>Durante l&apos;operazione si sono verificati alcuni errori.
Consultare il report per maggiori informazioni.</translation>
    </message>
    <message>
        <source>Operazione completata con successo</source>
        <translation>Operazione completata con successo</translation>
    </message>
    <message>
        <source>Operazione non riuscita.
Assicurarsi che il disco abbia sufficiente spazio libero e che non sia protetto da scrittura.</source>
        <translation>Operazione non riuscita.
Assicurarsi che il disco abbia sufficiente spazio libero e che non sia protetto da scrittura.</translation>
    </message>
    <message>
        <source>Cartella della memoria</source>
        <translation>Cartella della memoria</translation>
    </message>
    <message>
        <source>Sfoglia: cartella della memoria</source>
        <translation>Sfoglia: cartella della memoria</translation>
    </message>
    <message>
        <source>Sceglie la cartella della memoria</source>
        <translation>Sceglie la cartella della memoria</translation>
    </message>
    <message>
        <source>Rilegge solo le song nuove o cambiate</source>
        <translation>Rilegge solo le song nuove o cambiate</translation>
    </message>
    <message>
        <source>Cancella gli archivi e li rifà da capo</source>
        <translation>Cancella gli archivi e li rifà da capo</translation>
    </message>
    <message>
        <source>Chiede anche un controllo della struttura della memoria</source>
        <translation>Chiede anche un controllo della struttura della memoria</translation>
    </message>
    <message>
        <source>Avanzamento</source>
        <translation>Avanzamento</translation>
    </message>
    <message>
        <source>Avanzamento del lavoro</source>
        <translation>Avanzamento del lavoro</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Report</translation>
    </message>
    <message>
        <source>Elenca i file rifiutati, uno per riga</source>
        <translation>Elenca i file rifiutati, uno per riga</translation>
    </message>
    <message>
        <source>Avvia il lavoro; con Maiusc premuto lavora proprio sulla cartella indicata</source>
        <translation>Avvia il lavoro; con Maiusc premuto lavora proprio sulla cartella indicata</translation>
    </message>
    <message>
        <source>Chiude la finestra</source>
        <translation>Chiude la finestra</translation>
    </message>
    <message>
        <source>Controllo memoria non eseguito!</source>
        <translation>Controllo memoria non eseguito!</translation>
    </message>
    <message>
        <source>Controllo memoria</source>
        <translation>Controllo memoria</translation>
    </message>
    <message>
        <source>Nessun errore trovato</source>
        <translation>Nessun errore trovato</translation>
    </message>
    <message>
        <source>ATTENZIONE</source>
        <translation>ATTENZIONE</translation>
    </message>
    <message>
        <source>Non è stato possibile correggere gli errori, è necesario formattare la memoria</source>
        <translation>Non è stato possibile correggere gli errori, è necesario formattare la memoria</translation>
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
        <translation>Seleziona le basi musicali che desideri inserire nella memoria di Brisel</translation>
    </message>
    <message>
        <source>Sincronizza song con il database Kordia</source>
        <translation>Sincronizza song con il database Kordia</translation>
    </message>
    <message>
        <source>Trasferisci song nella memoria di Brisel</source>
        <translation>Trasferisci song nella memoria di Brisel</translation>
    </message>
    <message>
        <source>Opzioni nascoste</source>
        <translation>Opzioni nascoste</translation>
    </message>
    <message>
        <source>Abilita log (riavvio necessario!)</source>
        <translation>Abilita log (riavvio necessario!)</translation>
    </message>
    <message>
        <source>Cancella log ad ogni avvio</source>
        <translation>Cancella log ad ogni avvio</translation>
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
        <translation>Preferenze</translation>
    </message>
    <message>
        <source>Lingua</source>
        <translation>Lingua</translation>
    </message>
    <message>
        <source>Messaggi Copyright</source>
        <translation>Messaggi Copyright</translation>
    </message>
    <message>
        <source>Strumenti</source>
        <translation>Strumenti</translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation>Aiuto</translation>
    </message>
    <message>
        <source>Esci</source>
        <translation>Esci</translation>
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
        <translation>Si</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Rigenera il database delle song</source>
        <translation>Rigenera il database delle song</translation>
    </message>
    <message>
        <source>Salva lista delle song</source>
        <translation>Salva lista delle song</translation>
    </message>
    <message>
        <source>Aiuto Brisel PC</source>
        <translation>Aiuto Brisel PC</translation>
    </message>
    <message>
        <source>Informazioni</source>
        <translation>Informazioni</translation>
    </message>
    <message>
        <source>Informazioni su QT</source>
        <translation>Informazioni su QT</translation>
    </message>
    <message>
        <source>Seleziona i file da importare</source>
        <translation>Seleziona i file da importare</translation>
    </message>
    <message>
        <source>Lettura file</source>
        <translation>Lettura file</translation>
    </message>
    <message>
        <source>Remove from list</source>
        <translation>Togli dalla lista</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>Cancella il file</translation>
    </message>
    <message>
        <source>Attenzione</source>
        <translation>Attenzione</translation>
    </message>
    <message>
        <source>Sei sicuro di voler cancellare il file?</source>
        <translation>Sei sicuro di voler cancellare il file?</translation>
    </message>
    <message>
        <source>Backup FALLITO !!!</source>
        <translation>Backup FALLITO !!!</translation>
    </message>
    <message>
        <source>Backup eseguito correttamente</source>
        <translation>Backup eseguito correttamente</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Scegli cartella</translation>
    </message>
    <message>
        <source>Trasferimento</source>
        <translation>Trasferimento</translation>
    </message>
    <message>
        <source>Tutti i file sono stati copiati correttamente</source>
        <translation>Tutti i file sono stati copiati correttamente</translation>
    </message>
    <message>
        <source>Non è stato possibile copiare uno o più file</source>
        <translation>Non è stato possibile copiare uno o più file</translation>
    </message>
    <message>
        <source>Non è possibile copiare i file sul disco di sistema</source>
        <translation>Non è possibile copiare i file sul disco di sistema</translation>
    </message>
    <message>
        <source>Non è possibile copiare i file sulla cartella principale, creare o selezionare una sottocartella</source>
        <translation>Non è possibile copiare i file sulla cartella principale, creare o selezionare una sottocartella</translation>
    </message>
    <message>
        <source>Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono riservate per funzionalità specifiche di Brisel, selezionare un&apos;altra cartella</source>
        <translation>Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono riservate per funzionalità specifiche di Brisel, selezionare un&apos;altra cartella</translation>
    </message>
    <message>
        <source>Cerca nella tabella</source>
        <translation>Cerca nella tabella</translation>
    </message>
    <message>
        <source>Nessun brano corrisponde alla ricerca</source>
        <translation>Nessun brano corrisponde alla ricerca</translation>
    </message>
    <message>
        <source>Non è stato trovato nessun brano</source>
        <translation>Non è stato trovato nessun brano</translation>
    </message>
    <message>
        <source>Attendere la fine dell&apos;operazione in corso</source>
        <translation>Attendere la fine dell&apos;operazione in corso</translation>
    </message>
    <message>
        <source>Sceglie i file delle song e li legge nella tabella (Ctrl+O)</source>
        <translation>Sceglie i file delle song e li legge nella tabella (Ctrl+O)</translation>
    </message>
    <message>
        <source>Mostra solo le song che contengono queste parole (Ctrl+F; Esc le mostra tutte)</source>
        <translation>Mostra solo le song che contengono queste parole (Ctrl+F; Esc le mostra tutte)</translation>
    </message>
    <message>
        <source>Song della libreria</source>
        <translation>Song della libreria</translation>
    </message>
    <message>
        <source>Corregge i dati nei file delle song secondo il database Kordia, dopo un backup</source>
        <translation>Corregge i dati nei file delle song secondo il database Kordia, dopo un backup</translation>
    </message>
    <message>
        <source>Copia le song nella memoria di Brisel e ne aggiorna gli archivi</source>
        <translation>Copia le song nella memoria di Brisel e ne aggiorna gli archivi</translation>
    </message>
    <message>
        <source>Scrive ciò che il programma fa nel file log.txt, dal prossimo avvio</source>
        <translation>Scrive ciò che il programma fa nel file log.txt, dal prossimo avvio</translation>
    </message>
    <message>
        <source>Comincia ogni volta con un log vuoto</source>
        <translation>Comincia ogni volta con un log vuoto</translation>
    </message>
    <message>
        <source>Testo del marker</source>
        <translation>Testo del marker</translation>
    </message>
    <message>
        <source>Testo del marker di prova</source>
        <translation>Testo del marker di prova</translation>
    </message>
    <message>
        <source>Battuta del marker</source>
        <translation>Battuta del marker</translation>
    </message>
    <message>
        <source>Non usato: la battuta è il numero della riga</source>
        <translation>Non usato: la battuta è il numero della riga</translation>
    </message>
    <message>
        <source>Salva la song della riga corrente con un marker di prova in test_addmarker.bin</source>
        <translation>Salva la song della riga corrente con un marker di prova in test_addmarker.bin</translation>
    </message>
    <message>
        <source>Salva la song della riga corrente in test_save.bin</source>
        <translation>Salva la song della riga corrente in test_save.bin</translation>
    </message>
    <message>
        <source>Importa di nuovo gli stessi file</source>
        <translation>Importa di nuovo gli stessi file</translation>
    </message>
    <message>
        <source>Propone un backup dei file scelti</source>
        <translation>Propone un backup dei file scelti</translation>
    </message>
    <message>
        <source>Apre la finestra di modifica vuota</source>
        <translation>Apre la finestra di modifica vuota</translation>
    </message>
    <message>
        <source>Mostra o nasconde il gruppo Debug</source>
        <translation>Mostra o nasconde il gruppo Debug</translation>
    </message>
    <message>
        <source>Chiude il programma</source>
        <translation>Chiude il programma</translation>
    </message>
    <message>
        <source>Mostra il programma in italiano</source>
        <translation>Mostra il programma in italiano</translation>
    </message>
    <message>
        <source>Mostra il programma in inglese</source>
        <translation>Mostra il programma in inglese</translation>
    </message>
    <message>
        <source>Mostra la guida in tedesco</source>
        <translation>Mostra la guida in tedesco</translation>
    </message>
    <message>
        <source>Chiede prima di modificare le song non pubblicate da Kordia</source>
        <translation>Chiede prima di modificare le song non pubblicate da Kordia</translation>
    </message>
    <message>
        <source>Modifica tutte le song senza chiedere</source>
        <translation>Modifica tutte le song senza chiedere</translation>
    </message>
    <message>
        <source>Prepara una memoria per Brisel o ne rifà gli archivi</source>
        <translation>Prepara una memoria per Brisel o ne rifà gli archivi</translation>
    </message>
    <message>
        <source>Salva l&apos;elenco delle song di una memoria in un file CSV</source>
        <translation>Salva l&apos;elenco delle song di una memoria in un file CSV</translation>
    </message>
    <message>
        <source>Apre la guida all&apos;uso (F1)</source>
        <translation>Apre la guida all&apos;uso (F1)</translation>
    </message>
    <message>
        <source>Mostra versione e data del programma</source>
        <translation>Mostra versione e data del programma</translation>
    </message>
    <message>
        <source>Mostra la versione della libreria grafica</source>
        <translation>Mostra la versione della libreria grafica</translation>
    </message>
    <message>
        <source>Nessun brano nella tabella.
Per cominciare premi il pulsante qui sopra, oppure trascina qui file o cartelle.</source>
        <translation>Nessun brano nella tabella.
Per cominciare premi il pulsante qui sopra, oppure trascina qui file o cartelle.</translation>
    </message>
    <message>
        <source>Toglie la riga dalla tabella; il file resta sul disco (Canc)</source>
        <translation>Toglie la riga dalla tabella; il file resta sul disco (Canc)</translation>
    </message>
    <message>
        <source>Invio modifica la song della riga, Canc toglie la riga dalla tabella</source>
        <translation>Invio modifica la song della riga, Canc toglie la riga dalla tabella</translation>
    </message>
    <message>
        <source>Ripristina</source>
        <translation>Ripristina</translation>
    </message>
    <message>
        <source>Mostra che cosa il programma ha cambiato nelle song, e lo annulla</source>
        <translation>Mostra che cosa il programma ha cambiato nelle song, e lo annulla</translation>
    </message>
    <message>
        <source>Cronologia modifiche...</source>
        <translation>Cronologia modifiche...</translation>
    </message>
    <message>
        <source>Rimette le song di un backup dove si trovavano</source>
        <translation>Rimette le song di un backup dove si trovavano</translation>
    </message>
    <message>
        <source>Ripristina backup...</source>
        <translation>Ripristina backup...</translation>
    </message>
    <message>
        <source>Ripristina backup</source>
        <translation>Ripristina backup</translation>
    </message>
    <message>
        <source>La cartella non contiene un backup che si possa ripristinare: %1</source>
        <translation>La cartella non contiene un backup che si possa ripristinare: %1</translation>
    </message>
    <message>
        <source>Mostra che cosa cambierebbe la sincronizzazione, prima di scrivere</source>
        <translation>Mostra che cosa cambierebbe la sincronizzazione, prima di scrivere</translation>
    </message>
    <message>
        <source>Anteprima sincronizzazione...</source>
        <translation>Anteprima sincronizzazione...</translation>
    </message>
    <message>
        <source>Cronologia modifiche</source>
        <translation>Cronologia modifiche</translation>
    </message>
    <message>
        <source>Con %1 MiB le operazioni più vecchie verranno eliminate dalla cronologia. Continuare?</source>
        <translation>Con %1 MiB le operazioni più vecchie verranno eliminate dalla cronologia. Continuare?</translation>
    </message>
    <message>
        <source>Vista</source>
        <translation>Vista</translation>
    </message>
    <message>
        <source>Mostra in fondo alla tabella i file scelti che non si sono potuti leggere</source>
        <translation>Mostra in fondo alla tabella i file scelti che non si sono potuti leggere</translation>
    </message>
    <message>
        <source>Mostra i file non leggibili</source>
        <translation>Mostra i file non leggibili</translation>
    </message>
    <message>
        <source>Rimette colonne, larghezze e ordinamento come alla prima apertura</source>
        <translation>Rimette colonne, larghezze e ordinamento come alla prima apertura</translation>
    </message>
    <message>
        <source>Ripristina disposizione</source>
        <translation>Ripristina disposizione</translation>
    </message>
    <message>
        <source>e altri %1</source>
        <translation>e altri %1</translation>
    </message>
    <message>
        <source>Sei sicuro di voler cancellare questi %1 file?</source>
        <translation>Sei sicuro di voler cancellare questi %1 file?</translation>
    </message>
    <message>
        <source>Ripristino</source>
        <translation>Ripristino</translation>
    </message>
    <message>
        <source>Cerco le modifiche...</source>
        <translation>Cerco le modifiche...</translation>
    </message>
    <message>
        <source>Come cercare</source>
        <translation>Come cercare</translation>
    </message>
    <message>
        <source>Mostra come cercare per campo, per esempio genere:rock bpm&gt;120</source>
        <translation>Mostra come cercare per campo, per esempio genere:rock bpm&gt;120</translation>
    </message>
    <message>
        <source>&lt;p&gt;Le parole si cercano nel titolo, nell&apos;artista, nel genere, nell&apos;autore, nel nome del file e della cartella e nello stato. Con il nome di un campo:&lt;/p&gt;&lt;p&gt;&lt;b&gt;genere:rock&lt;/b&gt; contiene&lt;br&gt;&lt;b&gt;artista=anna&lt;/b&gt; è uguale&lt;br&gt;&lt;b&gt;bpm&amp;gt;120&lt;/b&gt; &amp;nbsp; &lt;b&gt;bpm&amp;lt;=90&lt;/b&gt; &amp;nbsp; &lt;b&gt;durata&amp;lt;3:30&lt;/b&gt;&lt;br&gt;&lt;b&gt;senza:artista&lt;/b&gt; è vuoto&lt;br&gt;&lt;b&gt;cartella:&amp;quot;liscio lento&amp;quot;&lt;/b&gt; con spazi&lt;/p&gt;&lt;p&gt;Campi: titolo, artista, genere, autore, file, cartella, formato, tonalita, stato, bpm, durata. Dove manca un numero (bpm&amp;gt;abc), o il campo dopo &lt;b&gt;senza:&lt;/b&gt; non esiste, si cerca il testo come parola. Esc mostra di nuovo tutto.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Le parole si cercano nel titolo, nell&apos;artista, nel genere, nell&apos;autore, nel nome del file e della cartella e nello stato. Con il nome di un campo:&lt;/p&gt;&lt;p&gt;&lt;b&gt;genere:rock&lt;/b&gt; contiene&lt;br&gt;&lt;b&gt;artista=anna&lt;/b&gt; è uguale&lt;br&gt;&lt;b&gt;bpm&amp;gt;120&lt;/b&gt; &amp;nbsp; &lt;b&gt;bpm&amp;lt;=90&lt;/b&gt; &amp;nbsp; &lt;b&gt;durata&amp;lt;3:30&lt;/b&gt;&lt;br&gt;&lt;b&gt;senza:artista&lt;/b&gt; è vuoto&lt;br&gt;&lt;b&gt;cartella:&amp;quot;liscio lento&amp;quot;&lt;/b&gt; con spazi&lt;/p&gt;&lt;p&gt;Campi: titolo, artista, genere, autore, file, cartella, formato, tonalita, stato, bpm, durata. Dove manca un numero (bpm&amp;gt;abc), o il campo dopo &lt;b&gt;senza:&lt;/b&gt; non esiste, si cerca il testo come parola. Esc mostra di nuovo tutto.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Modifica dati song</source>
        <translation>Modifica dati song</translation>
    </message>
    <message>
        <source>La song non è stata salvata: %1</source>
        <translation>La song non è stata salvata: %1</translation>
    </message>
    <message>
        <source>Aggiungi da una cartella recente</source>
        <translation>Aggiungi da una cartella recente</translation>
    </message>
    <message>
        <source>Cancella il file dal disco, dopo una domanda (Maiusc+Canc)</source>
        <translation>Cancella il file dal disco, dopo una domanda (Maiusc+Canc)</translation>
    </message>
    <message>
        <source>Rimette la song com&apos;era prima dell&apos;ultima modifica (Ctrl+R)</source>
        <translation>Rimette la song com&apos;era prima dell&apos;ultima modifica (Ctrl+R)</translation>
    </message>
    <message>
        <source>Sceglie i file delle song e li legge nella tabella al posto di quelli di prima</source>
        <translation>Sceglie i file delle song e li legge nella tabella al posto di quelli di prima</translation>
    </message>
    <message>
        <source>Seleziona brani...</source>
        <translation>Seleziona brani...</translation>
    </message>
    <message>
        <source>Aggiunge altri file alla tabella; quelli che ci sono già non entrano due volte</source>
        <translation>Aggiunge altri file alla tabella; quelli che ci sono già non entrano due volte</translation>
    </message>
    <message>
        <source>Aggiungi brani...</source>
        <translation>Aggiungi brani...</translation>
    </message>
    <message>
        <source>Aggiunge alla tabella le song di una cartella e di quelle che contiene</source>
        <translation>Aggiunge alla tabella le song di una cartella e di quelle che contiene</translation>
    </message>
    <message>
        <source>Aggiungi cartella...</source>
        <translation>Aggiungi cartella...</translation>
    </message>
    <message>
        <source>Legge di nuovo i file che erano nella tabella l&apos;ultima volta</source>
        <translation>Legge di nuovo i file che erano nella tabella l&apos;ultima volta</translation>
    </message>
    <message>
        <source>Riprendi l&apos;ultima lista</source>
        <translation>Riprendi l&apos;ultima lista</translation>
    </message>
    <message>
        <source>L&apos;ultima lista non si può leggere</source>
        <translation>L&apos;ultima lista non si può leggere</translation>
    </message>
    <message>
        <source>Già nella lista: %1</source>
        <translation>Già nella lista: %1</translation>
    </message>
    <message>
        <source>I brani scelti sono già nella lista</source>
        <translation>I brani scelti sono già nella lista</translation>
    </message>
    <message>
        <source>Rilascia per aggiungere alla lista</source>
        <translation>Rilascia per aggiungere alla lista</translation>
    </message>
    <message>
        <source>Rilascia per sostituire la lista; con Ctrl aggiungi</source>
        <translation>Rilascia per sostituire la lista; con Ctrl aggiungi</translation>
    </message>
    <message>
        <source>Per le song scelte non c&apos;è nulla da ripristinare</source>
        <translation>Per le song scelte non c&apos;è nulla da ripristinare</translation>
    </message>
    <message>
        <source>Modifica i dati delle song scelte (Invio)</source>
        <translation>Modifica i dati delle song scelte (Invio)</translation>
    </message>
    <message>
        <source>Modifica...</source>
        <translation>Modifica...</translation>
    </message>
    <message>
        <source>Mostra le song, le cartelle e le playlist di una memoria</source>
        <translation>Mostra le song, le cartelle e le playlist di una memoria</translation>
    </message>
    <message>
        <source>Memoria...</source>
        <translation>Memoria...</translation>
    </message>
    <message>
        <source>Mostra, prima di copiare, che cosa succederà a ogni song, e fa scegliere quali copiare</source>
        <translation>Mostra, prima di copiare, che cosa succederà a ogni song, e fa scegliere quali copiare</translation>
    </message>
    <message>
        <source>Mostra il piano prima del trasferimento</source>
        <translation>Mostra il piano prima del trasferimento</translation>
    </message>
    <message>
        <source>La memoria non è più presente</source>
        <translation>La memoria non è più presente</translation>
    </message>
    <message>
        <source>Non ci sono song da trasferire</source>
        <translation>Non ci sono song da trasferire</translation>
    </message>
</context>
<context>
    <name>brisel::MarkersDialog</name>
    <message>
        <source>Marker della song</source>
        <translation>Marker della song</translation>
    </message>
    <message>
        <source>Un doppio clic o F2 modifica la battuta o il testo; Canc toglie le righe scelte</source>
        <translation>Un doppio clic o F2 modifica la battuta o il testo; Canc toglie le righe scelte</translation>
    </message>
    <message>
        <source>A&amp;ggiungi</source>
        <translation>A&amp;ggiungi</translation>
    </message>
    <message>
        <source>Aggiunge un marker dopo la riga scelta</source>
        <translation>Aggiunge un marker dopo la riga scelta</translation>
    </message>
    <message>
        <source>&amp;Togli</source>
        <translation>&amp;Togli</translation>
    </message>
    <message>
        <source>Toglie i marker delle righe scelte</source>
        <translation>Toglie i marker delle righe scelte</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Torna ai dati della song con questi marker; Salva li scrive nel file</source>
        <translation>Torna ai dati della song con questi marker; Salva li scrive nel file</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Annulla</translation>
    </message>
    <message>
        <source>Lascia i marker come sono</source>
        <translation>Lascia i marker come sono</translation>
    </message>
    <message>
        <source>In questa song i marker stanno dove il programma non può riscriverli: si possono solo guardare.</source>
        <translation>In questa song i marker stanno dove il programma non può riscriverli: si possono solo guardare.</translation>
    </message>
    <message>
        <source>La battuta di un marker va da 0 a %1.</source>
        <translation>La battuta di un marker va da 0 a %1.</translation>
    </message>
    <message>
        <source>Il testo di un marker ha al massimo %1 caratteri, solo dell&apos;alfabeto dell&apos;Europa occidentale.</source>
        <translation>Il testo di un marker ha al massimo %1 caratteri, solo dell&apos;alfabeto dell&apos;Europa occidentale.</translation>
    </message>
</context>
<context>
    <name>brisel::MarkersModel</name>
    <message>
        <source>Battuta</source>
        <translation>Battuta</translation>
    </message>
    <message>
        <source>Testo</source>
        <translation>Testo</translation>
    </message>
</context>
<context>
    <name>brisel::MemoryActions</name>
    <message>
        <source>&amp;Rimuovi dalla memoria...</source>
        <translation>&amp;Rimuovi dalla memoria...</translation>
    </message>
    <message>
        <source>Ri&amp;nomina...</source>
        <translation>Ri&amp;nomina...</translation>
    </message>
    <message>
        <source>&amp;Copia sul computer...</source>
        <translation>&amp;Copia sul computer...</translation>
    </message>
    <message>
        <source>A&amp;ggiorna</source>
        <translation>A&amp;ggiorna</translation>
    </message>
    <message>
        <source>Rig&amp;enera</source>
        <translation>Rig&amp;enera</translation>
    </message>
    <message>
        <source>Contro&amp;lla</source>
        <translation>Contro&amp;lla</translation>
    </message>
    <message>
        <source>E&amp;sporta elenco...</source>
        <translation>E&amp;sporta elenco...</translation>
    </message>
    <message>
        <source>Rimo&amp;zione sicura</source>
        <translation>Rimo&amp;zione sicura</translation>
    </message>
    <message>
        <source>Cancella dalla memoria le song scelte; l&apos;indice e le playlist le seguono</source>
        <translation>Cancella dalla memoria le song scelte; l&apos;indice e le playlist le seguono</translation>
    </message>
    <message>
        <source>Cambia il nome del file della song; l&apos;indice e le playlist lo seguono</source>
        <translation>Cambia il nome del file della song; l&apos;indice e le playlist lo seguono</translation>
    </message>
    <message>
        <source>Aggiorna l&apos;indice con le song nuove, cambiate e cancellate</source>
        <translation>Aggiorna l&apos;indice con le song nuove, cambiate e cancellate</translation>
    </message>
    <message>
        <source>Scrive di nuovo tutto l&apos;indice della memoria</source>
        <translation>Scrive di nuovo tutto l&apos;indice della memoria</translation>
    </message>
    <message>
        <source>Copia le song scelte in una cartella del computer</source>
        <translation>Copia le song scelte in una cartella del computer</translation>
    </message>
    <message>
        <source>Controlla se l&apos;indice, le playlist e le song vanno d&apos;accordo</source>
        <translation>Controlla se l&apos;indice, le playlist e le song vanno d&apos;accordo</translation>
    </message>
    <message>
        <source>Salva l&apos;elenco delle song come CSV o come pagina da stampare</source>
        <translation>Salva l&apos;elenco delle song come CSV o come pagina da stampare</translation>
    </message>
    <message>
        <source>Scrive tutti i dati e smonta la memoria, che poi si può togliere</source>
        <translation>Scrive tutti i dati e smonta la memoria, che poi si può togliere</translation>
    </message>
    <message>
        <source>Non tutto è riuscito. Il report dice che cosa manca.</source>
        <translation>Non tutto è riuscito. Il report dice che cosa manca.</translation>
    </message>
    <message>
        <source>Impossibile proseguire: %1.</source>
        <translation>Impossibile proseguire: %1.</translation>
    </message>
    <message>
        <source>Rimuovi dalla memoria</source>
        <translation>Rimuovi dalla memoria</translation>
    </message>
    <message numerus="yes">
        <source>%n song rimosse</source>
        <translation>
            <numerusform>%n song rimossa</numerusform>
            <numerusform>%n song rimosse</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Rimuovere %n song dalla memoria?</source>
        <translation>
            <numerusform>Rimuovere %n song dalla memoria?</numerusform>
            <numerusform>Rimuovere %n song dalla memoria?</numerusform>
        </translation>
    </message>
    <message>
        <source>Nessuna playlist le contiene.</source>
        <translation>Nessuna playlist le contiene.</translation>
    </message>
    <message numerus="yes">
        <source>%n playlist le contengono, e le perderanno.</source>
        <translation>
            <numerusform>%n playlist le contiene, e le perderà.</numerusform>
            <numerusform>%n playlist le contengono, e le perderanno.</numerusform>
        </translation>
    </message>
    <message>
        <source>I file vengono cancellati e non si possono riavere.</source>
        <translation>I file vengono cancellati e non si possono riavere.</translation>
    </message>
    <message>
        <source>Rinomina</source>
        <translation>Rinomina</translation>
    </message>
    <message>
        <source>Copia sul computer</source>
        <translation>Copia sul computer</translation>
    </message>
    <message>
        <source>Scegli la cartella delle copie</source>
        <translation>Scegli la cartella delle copie</translation>
    </message>
    <message numerus="yes">
        <source>%n song copiate</source>
        <translation>
            <numerusform>%n song copiata</numerusform>
            <numerusform>%n song copiate</numerusform>
        </translation>
    </message>
    <message>
        <source>Il percorso di destinazione non esiste</source>
        <translation>Il percorso di destinazione non esiste</translation>
    </message>
    <message>
        <source>La cartella è sulla memoria stessa: sceglierne una del computer</source>
        <translation>La cartella è sulla memoria stessa: sceglierne una del computer</translation>
    </message>
    <message>
        <source>Controllo la memoria...</source>
        <translation>Controllo la memoria...</translation>
    </message>
    <message>
        <source>File (*.html)</source>
        <translation>File (*.html)</translation>
    </message>
    <message>
        <source>Salvo l&apos;elenco...</source>
        <translation>Salvo l&apos;elenco...</translation>
    </message>
    <message>
        <source>Rimozione sicura</source>
        <translation>Rimozione sicura</translation>
    </message>
    <message numerus="yes">
        <source>Di %n song sono scelte tutte le copie: non ne resterà nessuna.</source>
        <translation>
            <numerusform>Di %n song sono scelte tutte le copie: non ne resterà nessuna.</numerusform>
            <numerusform>Di %n song sono scelte tutte le copie: non ne resterà nessuna.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file rimossi</source>
        <translation>
            <numerusform>%n file rimosso</numerusform>
            <numerusform>%n file rimossi</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Rimuovere %n file dalla memoria?</source>
        <translation>
            <numerusform>Rimuovere %n file dalla memoria?</numerusform>
            <numerusform>Rimuovere %n file dalla memoria?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n playlist non si possono leggere: forse le contengono.</source>
        <translation>
            <numerusform>%n playlist non si può leggere: forse le contiene.</numerusform>
            <numerusform>%n playlist non si possono leggere: forse le contengono.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file copiati</source>
        <translation>
            <numerusform>%n file copiato</numerusform>
            <numerusform>%n file copiati</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>brisel::MemoryCheck</name>
    <message>
        <source>%1: il file manca</source>
        <translation>%1: il file manca</translation>
    </message>
    <message>
        <source>%1: il file non si può leggere</source>
        <translation>%1: il file non si può leggere</translation>
    </message>
    <message>
        <source>%1: lunghezza errata: %2 byte</source>
        <translation>%1: lunghezza errata: %2 byte</translation>
    </message>
    <message>
        <source>index.id2, record %1: id %2 usato due volte</source>
        <translation>index.id2, record %1: id %2 usato due volte</translation>
    </message>
    <message>
        <source>index.id2, record %1: id %2 fuori ordine</source>
        <translation>index.id2, record %1: id %2 fuori ordine</translation>
    </message>
    <message>
        <source>index.id2, record %1: la song non c&apos;è: %2</source>
        <translation>index.id2, record %1: la song non c&apos;è: %2</translation>
    </message>
    <message>
        <source>index.id2, record %1: song indicizzata due volte: %2</source>
        <translation>index.id2, record %1: song indicizzata due volte: %2</translation>
    </message>
    <message>
        <source>index.id2: manca la song %1</source>
        <translation>index.id2: manca la song %1</translation>
    </message>
    <message>
        <source>%1, posto %2: il record %3 non c&apos;è</source>
        <translation>%1, posto %2: il record %3 non c&apos;è</translation>
    </message>
    <message>
        <source>%1, posto %2: record %3 ripetuto</source>
        <translation>%1, posto %2: record %3 ripetuto</translation>
    </message>
    <message>
        <source>%1, posto %2: fuori ordine: %3</source>
        <translation>%1, posto %2: fuori ordine: %3</translation>
    </message>
    <message>
        <source>%1: manca il record %2</source>
        <translation>%1: manca il record %2</translation>
    </message>
    <message>
        <source>%1: il conto di %2 è %3, non %4</source>
        <translation>%1: il conto di %2 è %3, non %4</translation>
    </message>
    <message>
        <source>%1, posto %2: la song non è nell&apos;indice</source>
        <translation>%1, posto %2: la song non è nell&apos;indice</translation>
    </message>
    <message>
        <source>%1, posto %2: il titolo è &quot;%3&quot;, quello della song &quot;%4&quot;</source>
        <translation>%1, posto %2: il titolo è &quot;%3&quot;, quello della song &quot;%4&quot;</translation>
    </message>
</context>
<context>
    <name>brisel::MemoryWindow</name>
    <message>
        <source>Memoria</source>
        <translation>Memoria</translation>
    </message>
    <message>
        <source>&amp;Memoria:</source>
        <translation>&amp;Memoria:</translation>
    </message>
    <message>
        <source>Le memorie collegate al computer</source>
        <translation>Le memorie collegate al computer</translation>
    </message>
    <message>
        <source>Spazio della memoria</source>
        <translation>Spazio della memoria</translation>
    </message>
    <message>
        <source>Quanto della memoria è occupato</source>
        <translation>Quanto della memoria è occupato</translation>
    </message>
    <message>
        <source>Come le mostra Brisel</source>
        <translation>Come le mostra Brisel</translation>
    </message>
    <message>
        <source>Cartelle</source>
        <translation>Cartelle</translation>
    </message>
    <message>
        <source>Chiude la finestra</source>
        <translation>Chiude la finestra</translation>
    </message>
    <message>
        <source>&amp;Chiudi</source>
        <translation>&amp;Chiudi</translation>
    </message>
    <message numerus="yes">
        <source>%n song, indice del %1</source>
        <translation>
            <numerusform>%n song, indice del %1</numerusform>
            <numerusform>%n song, indice del %1</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 liberi di %2</source>
        <translation>%1 liberi di %2</translation>
    </message>
    <message>
        <source>Nessuna memoria è collegata al computer</source>
        <translation>Nessuna memoria è collegata al computer</translation>
    </message>
    <message>
        <source>La memoria non è più presente</source>
        <translation>La memoria non è più presente</translation>
    </message>
    <message>
        <source>La memoria non è preparata per Brisel</source>
        <translation>La memoria non è preparata per Brisel</translation>
    </message>
    <message>
        <source>L&apos;indice della memoria non si può leggere</source>
        <translation>L&apos;indice della memoria non si può leggere</translation>
    </message>
    <message>
        <source>La memoria non si può leggere</source>
        <translation>La memoria non si può leggere</translation>
    </message>
    <message>
        <source>L&apos;indice è incompleto</source>
        <translation>L&apos;indice è incompleto</translation>
    </message>
    <message>
        <source>Non si può modificare: %1</source>
        <translation>Non si può modificare: %1</translation>
    </message>
    <message>
        <source>Confronto dell&apos;indice con le song...</source>
        <translation>Confronto dell&apos;indice con le song...</translation>
    </message>
    <message numerus="yes">
        <source>%n nuove</source>
        <translation>
            <numerusform>%n nuova</numerusform>
            <numerusform>%n nuove</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n mancanti</source>
        <translation>
            <numerusform>%n mancante</numerusform>
            <numerusform>%n mancanti</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cambiate</source>
        <translation>
            <numerusform>%n cambiata</numerusform>
            <numerusform>%n cambiate</numerusform>
        </translation>
    </message>
    <message>
        <source>Indice e song concordano</source>
        <translation>Indice e song concordano</translation>
    </message>
    <message>
        <source>Da aggiornare: %1</source>
        <translation>Da aggiornare: %1</translation>
    </message>
    <message>
        <source>Aggiunge le song scelte alla fine della playlist</source>
        <translation>Aggiunge le song scelte alla fine della playlist</translation>
    </message>
    <message>
        <source>Mostra il piano del trasferimento delle song della finestra principale</source>
        <translation>Mostra il piano del trasferimento delle song della finestra principale</translation>
    </message>
    <message>
        <source>&amp;Trasferisci...</source>
        <translation>&amp;Trasferisci...</translation>
    </message>
    <message>
        <source>&amp;Aggiungi le song scelte</source>
        <translation>&amp;Aggiungi le song scelte</translation>
    </message>
    <message>
        <source>Preparo la rimozione della memoria...</source>
        <translation>Preparo la rimozione della memoria...</translation>
    </message>
</context>
<context>
    <name>brisel::MidiPlayer</name>
    <message>
        <source>I dati MIDI del brano non si possono suonare.</source>
        <translation>I dati MIDI del brano non si possono suonare.</translation>
    </message>
    <message>
        <source>Nessun dispositivo audio è disponibile.</source>
        <translation>Nessun dispositivo audio è disponibile.</translation>
    </message>
    <message>
        <source>Il SoundFont non si può leggere:</source>
        <translation>Il SoundFont non si può leggere:</translation>
    </message>
</context>
<context>
    <name>brisel::Mp3Player</name>
    <message>
        <source>L&apos;MP3 non si può suonare.</source>
        <translation>L&apos;MP3 non si può suonare.</translation>
    </message>
    <message>
        <source>Manca il modulo di Qt Multimedia che suona gli MP3.</source>
        <translation>Manca il modulo di Qt Multimedia che suona gli MP3.</translation>
    </message>
    <message>
        <source>Nessun dispositivo audio è disponibile.</source>
        <translation>Nessun dispositivo audio è disponibile.</translation>
    </message>
</context>
<context>
    <name>brisel::NoCopyrightDialog</name>
    <message>
        <source>Richiesta conferma</source>
        <translation>Richiesta conferma</translation>
    </message>
    <message>
        <source>Il file:</source>
        <translation>Il file:</translation>
    </message>
    <message>
        <source>Non è stato pubblicato da Kordia. Si vuole procedere comunque con le modifiche?</source>
        <translation>Non è stato pubblicato da Kordia. Si vuole procedere comunque con le modifiche?</translation>
    </message>
    <message>
        <source>Si</source>
        <translation>Si</translation>
    </message>
    <message>
        <source>Si tutti</source>
        <translation>Si tutti</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>No tutti</source>
        <translation>No tutti</translation>
    </message>
    <message>
        <source>Sì, per questo file</source>
        <translation>Sì, per questo file</translation>
    </message>
    <message>
        <source>Sì, per questo file e per tutti quelli che seguono</source>
        <translation>Sì, per questo file e per tutti quelli che seguono</translation>
    </message>
    <message>
        <source>No, per questo file</source>
        <translation>No, per questo file</translation>
    </message>
    <message>
        <source>No, per questo file e per tutti quelli che seguono</source>
        <translation>No, per questo file e per tutti quelli che seguono</translation>
    </message>
</context>
<context>
    <name>brisel::OutcomeButtons</name>
    <message>
        <source>Mostra solo le song con lo stato: %1</source>
        <translation>Mostra solo le song con lo stato: %1</translation>
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
        <translation>Ascolto non riuscito. %1</translation>
    </message>
    <message>
        <source>Posizione nella song</source>
        <translation>Posizione nella song</translation>
    </message>
    <message>
        <source>Sposta l&apos;ascolto; le frecce lo spostano di 5 secondi, Pag su e Pag giù di 15</source>
        <translation>Sposta l&apos;ascolto; le frecce lo spostano di 5 secondi, Pag su e Pag giù di 15</translation>
    </message>
    <message>
        <source>Ferma</source>
        <translation>Ferma</translation>
    </message>
    <message>
        <source>Ascolta</source>
        <translation>Ascolta</translation>
    </message>
    <message>
        <source>Ferma l&apos;ascolto (barra spaziatrice sulla song)</source>
        <translation>Ferma l&apos;ascolto (barra spaziatrice sulla song)</translation>
    </message>
    <message>
        <source>Fa ascoltare la song della riga corrente (barra spaziatrice)</source>
        <translation>Fa ascoltare la song della riga corrente (barra spaziatrice)</translation>
    </message>
</context>
<context>
    <name>brisel::PlayerView</name>
    <message>
        <source>&amp;Elenco:</source>
        <translation>&amp;Elenco:</translation>
    </message>
    <message>
        <source>Gli elenchi che Brisel mostra</source>
        <translation>Gli elenchi che Brisel mostra</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genere</translation>
    </message>
    <message>
        <source>MP3 per titolo</source>
        <translation>MP3 per titolo</translation>
    </message>
    <message>
        <source>MP3 per artista</source>
        <translation>MP3 per artista</translation>
    </message>
    <message>
        <source>MP3 per genere</source>
        <translation>MP3 per genere</translation>
    </message>
    <message>
        <source>Ce&amp;rca:</source>
        <translation>Ce&amp;rca:</translation>
    </message>
    <message>
        <source>Mostra solo le song che contengono queste parole, anche per campo, per esempio genere:rock bpm&gt;120 (Ctrl+F; Esc le mostra tutte)</source>
        <translation>Mostra solo le song che contengono queste parole, anche per campo, per esempio genere:rock bpm&gt;120 (Ctrl+F; Esc le mostra tutte)</translation>
    </message>
    <message>
        <source>Song della memoria</source>
        <translation>Song della memoria</translation>
    </message>
    <message>
        <source>Le song nell&apos;ordine di Brisel; una nota dice che cosa Brisel non può aprire o mostra in modo sbagliato</source>
        <translation>Le song nell&apos;ordine di Brisel; una nota dice che cosa Brisel non può aprire o mostra in modo sbagliato</translation>
    </message>
    <message>
        <source>%1 di %2</source>
        <translation>%1 di %2</translation>
    </message>
    <message>
        <source>lo spazio</source>
        <translation>lo spazio</translation>
    </message>
    <message>
        <source>Va al primo testo che comincia con %1</source>
        <translation>Va al primo testo che comincia con %1</translation>
    </message>
    <message>
        <source>La voce %1 della tabella di Brisel non porta a nulla</source>
        <translation>La voce %1 della tabella di Brisel non porta a nulla</translation>
    </message>
    <message>
        <source>Vai a %1</source>
        <translation>Vai a %1</translation>
    </message>
</context>
<context>
    <name>brisel::PlaylistEntriesModel</name>
    <message>
        <source>la song non è nell&apos;indice della memoria</source>
        <translation>la song non è nell&apos;indice della memoria</translation>
    </message>
    <message>
        <source>il player suona un&apos;altra song: %1</source>
        <translation>il player suona un&apos;altra song: %1</translation>
    </message>
    <message>
        <source>il file della song manca</source>
        <translation>il file della song manca</translation>
    </message>
    <message>
        <source>N.</source>
        <translation>N.</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Formato</source>
        <translation>Formato</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Nota</translation>
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
        <translation>%1 (il file manca)</translation>
    </message>
    <message>
        <source>%1 (il file non si legge)</source>
        <translation>%1 (il file non si legge)</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 - sola lettura</source>
        <translation>%1 - sola lettura</translation>
    </message>
    <message>
        <source>%1 - da riparare: %2</source>
        <translation>%1 - da riparare: %2</translation>
    </message>
</context>
<context>
    <name>brisel::PlaylistsPanel</name>
    <message>
        <source>S&amp;u</source>
        <translation>S&amp;u</translation>
    </message>
    <message>
        <source>&amp;Giù</source>
        <translation>&amp;Giù</translation>
    </message>
    <message>
        <source>Playlist della memoria</source>
        <translation>Playlist della memoria</translation>
    </message>
    <message>
        <source>Song della playlist</source>
        <translation>Song della playlist</translation>
    </message>
    <message>
        <source>Stato delle playlist</source>
        <translation>Stato delle playlist</translation>
    </message>
    <message>
        <source>Trascina qui le song; Alt+Su e Alt+Giù le spostano, Canc le toglie</source>
        <translation>Trascina qui le song; Alt+Su e Alt+Giù le spostano, Canc le toglie</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>Playlist</translation>
    </message>
    <message>
        <source>Le playlist non sono state salvate: %1.</source>
        <translation>Le playlist non sono state salvate: %1.</translation>
    </message>
    <message>
        <source>un&apos;altra operazione è in corso</source>
        <translation>un&apos;altra operazione è in corso</translation>
    </message>
    <message>
        <source>Non tutte le playlist sono state salvate: %1.</source>
        <translation>Non tutte le playlist sono state salvate: %1.</translation>
    </message>
    <message>
        <source>Le playlist sono state modificate. Salvarle sulla memoria?</source>
        <translation>Le playlist sono state modificate. Salvarle sulla memoria?</translation>
    </message>
    <message>
        <source>Scegli prima una playlist che si può modificare.</source>
        <translation>Scegli prima una playlist che si può modificare.</translation>
    </message>
    <message>
        <source>Song aggiunte alla playlist: %1 di %2.</source>
        <translation>Song aggiunte alla playlist: %1 di %2.</translation>
    </message>
    <message>
        <source>Una playlist ha al massimo %1 song, e solo quelle dell&apos;indice della memoria.</source>
        <translation>Una playlist ha al massimo %1 song, e solo quelle dell&apos;indice della memoria.</translation>
    </message>
    <message>
        <source>La scaletta non è stata stampata.</source>
        <translation>La scaletta non è stata stampata.</translation>
    </message>
    <message>
        <source>Salva la scaletta</source>
        <translation>Salva la scaletta</translation>
    </message>
    <message>
        <source>File PDF (*.pdf)</source>
        <translation>File PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Playlist %1</source>
        <translation>Playlist %1</translation>
    </message>
    <message>
        <source>La scaletta non è stata salvata: %1.</source>
        <translation>La scaletta non è stata salvata: %1.</translation>
    </message>
    <message>
        <source>T&amp;ogli</source>
        <translation>T&amp;ogli</translation>
    </message>
    <message>
        <source>Ri&amp;para...</source>
        <translation>Ri&amp;para...</translation>
    </message>
    <message>
        <source>A&amp;nnulla</source>
        <translation>A&amp;nnulla</translation>
    </message>
    <message>
        <source>Ripet&amp;i</source>
        <translation>Ripet&amp;i</translation>
    </message>
    <message>
        <source>&amp;Stampa...</source>
        <translation>&amp;Stampa...</translation>
    </message>
    <message>
        <source>Sal&amp;va</source>
        <translation>Sal&amp;va</translation>
    </message>
    <message>
        <source>PD&amp;F...</source>
        <translation>PD&amp;F...</translation>
    </message>
    <message>
        <source>Sposta più su le song scelte della playlist (Alt+Su)</source>
        <translation>Sposta più su le song scelte della playlist (Alt+Su)</translation>
    </message>
    <message>
        <source>Sposta più giù le song scelte della playlist (Alt+Giù)</source>
        <translation>Sposta più giù le song scelte della playlist (Alt+Giù)</translation>
    </message>
    <message>
        <source>Toglie dalla playlist le song scelte, che restano nella memoria (Canc)</source>
        <translation>Toglie dalla playlist le song scelte, che restano nella memoria (Canc)</translation>
    </message>
    <message>
        <source>Sceglie un&apos;altra song al posto di quella scelta</source>
        <translation>Sceglie un&apos;altra song al posto di quella scelta</translation>
    </message>
    <message>
        <source>Annulla l&apos;ultima modifica delle playlist (Ctrl+Z)</source>
        <translation>Annulla l&apos;ultima modifica delle playlist (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Ripete la modifica annullata (Ctrl+Maiusc+Z)</source>
        <translation>Ripete la modifica annullata (Ctrl+Maiusc+Z)</translation>
    </message>
    <message>
        <source>Stampa la playlist come scaletta</source>
        <translation>Stampa la playlist come scaletta</translation>
    </message>
    <message>
        <source>Salva la playlist come scaletta in un file PDF</source>
        <translation>Salva la playlist come scaletta in un file PDF</translation>
    </message>
    <message>
        <source>Scrive nella memoria le playlist modificate</source>
        <translation>Scrive nella memoria le playlist modificate</translation>
    </message>
    <message>
        <source>Le playlist che sono state fatte sul player</source>
        <translation>Le playlist che sono state fatte sul player</translation>
    </message>
    <message>
        <source>La memoria è cambiata: delle modifiche non salvate non tutte si possono tenere.</source>
        <translation>La memoria è cambiata: delle modifiche non salvate non tutte si possono tenere.</translation>
    </message>
    <message>
        <source>Playlist: %1</source>
        <translation>Playlist: %1</translation>
    </message>
    <message>
        <source>la playlist non è più sulla memoria</source>
        <translation>la playlist non è più sulla memoria</translation>
    </message>
    <message>
        <source>la playlist non si può modificare</source>
        <translation>la playlist non si può modificare</translation>
    </message>
    <message>
        <source>Le song non sono state aggiunte alla playlist: %1.</source>
        <translation>Le song non sono state aggiunte alla playlist: %1.</translation>
    </message>
    <message>
        <source>la memoria non si legge</source>
        <translation>la memoria non si legge</translation>
    </message>
</context>
<context>
    <name>brisel::PreviewDialog</name>
    <message>
        <source>Anteprima sincronizzazione</source>
        <translation>Anteprima sincronizzazione</translation>
    </message>
    <message>
        <source>&amp;Mostra</source>
        <translation>&amp;Mostra</translation>
    </message>
    <message>
        <source>Sceglie le righe della tabella; i segni di spunta restano</source>
        <translation>Sceglie le righe della tabella; i segni di spunta restano</translation>
    </message>
    <message>
        <source>Tutte le song</source>
        <translation>Tutte le song</translation>
    </message>
    <message>
        <source>Song trovate</source>
        <translation>Song trovate</translation>
    </message>
    <message>
        <source>Song non trovate</source>
        <translation>Song non trovate</translation>
    </message>
    <message>
        <source>Song pubblicate da Kordia</source>
        <translation>Song pubblicate da Kordia</translation>
    </message>
    <message>
        <source>Testi che andrebbero persi</source>
        <translation>Testi che andrebbero persi</translation>
    </message>
    <message>
        <source>C&amp;erca nel catalogo...</source>
        <translation>C&amp;erca nel catalogo...</translation>
    </message>
    <message>
        <source>Cerca nel database Kordia la song della riga, per parole del titolo, dell&apos;artista o del nome del file</source>
        <translation>Cerca nel database Kordia la song della riga, per parole del titolo, dell&apos;artista o del nome del file</translation>
    </message>
    <message>
        <source>Modifiche</source>
        <translation>Modifiche</translation>
    </message>
    <message>
        <source>Una riga per ogni campo che cambierebbe; la barra spaziatrice mette o toglie il segno di spunta</source>
        <translation>Una riga per ogni campo che cambierebbe; la barra spaziatrice mette o toglie il segno di spunta</translation>
    </message>
    <message>
        <source>Seleziona &amp;tutto</source>
        <translation>Seleziona &amp;tutto</translation>
    </message>
    <message>
        <source>Mette il segno di spunta a tutte le righe mostrate</source>
        <translation>Mette il segno di spunta a tutte le righe mostrate</translation>
    </message>
    <message>
        <source>Seleziona &amp;niente</source>
        <translation>Seleziona &amp;niente</translation>
    </message>
    <message>
        <source>Toglie il segno di spunta a tutte le righe mostrate</source>
        <translation>Toglie il segno di spunta a tutte le righe mostrate</translation>
    </message>
    <message>
        <source>&amp;Scrivi</source>
        <translation>&amp;Scrivi</translation>
    </message>
    <message>
        <source>Scrive nei file ciò che ha il segno di spunta, dopo un backup</source>
        <translation>Scrive nei file ciò che ha il segno di spunta, dopo un backup</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Annulla</translation>
    </message>
    <message>
        <source>Chiude l&apos;anteprima senza scrivere nulla</source>
        <translation>Chiude l&apos;anteprima senza scrivere nulla</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n song</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n campi da scrivere</source>
        <translation>
            <numerusform>%n campo da scrivere</numerusform>
            <numerusform>%n campi da scrivere</numerusform>
        </translation>
    </message>
    <message>
        <source>Nessuna song da mostrare</source>
        <translation>Nessuna song da mostrare</translation>
    </message>
</context>
<context>
    <name>brisel::PreviewModel</name>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genere</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Autore</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Durata</translation>
    </message>
    <message>
        <source>Bpm</source>
        <translation>Bpm</translation>
    </message>
    <message>
        <source>Tonalità</source>
        <translation>Tonalità</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Marker</translation>
    </message>
    <message>
        <source>nome del file</source>
        <translation>nome del file</translation>
    </message>
    <message>
        <source>nome lungo</source>
        <translation>nome lungo</translation>
    </message>
    <message>
        <source>titolo</source>
        <translation>titolo</translation>
    </message>
    <message>
        <source>a mano</source>
        <translation>a mano</translation>
    </message>
    <message>
        <source>non letta: %1</source>
        <translation>non letta: %1</translation>
    </message>
    <message>
        <source>nessun dato cambia</source>
        <translation>nessun dato cambia</translation>
    </message>
    <message>
        <source>non trovata</source>
        <translation>non trovata</translation>
    </message>
    <message>
        <source>%1 (questo testo andrebbe perso)</source>
        <translation>%1 (questo testo andrebbe perso)</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message>
        <source>Campo</source>
        <translation>Campo</translation>
    </message>
    <message>
        <source>Testo attuale</source>
        <translation>Testo attuale</translation>
    </message>
    <message>
        <source>Testo nuovo</source>
        <translation>Testo nuovo</translation>
    </message>
    <message>
        <source>Trovata per</source>
        <translation>Trovata per</translation>
    </message>
</context>
<context>
    <name>brisel::ProceedDialog</name>
    <message>
        <source>Riassunto importazione</source>
        <translation>Riassunto importazione</translation>
    </message>
    <message>
        <source>Si vuole procedere alla sincronizzazione automatica con il database?</source>
        <translation>Si vuole procedere alla sincronizzazione automatica con il database?</translation>
    </message>
    <message>
        <source>Non mostrare più messaggi sul copyright</source>
        <translation>Non mostrare più messaggi sul copyright</translation>
    </message>
    <message>
        <source>Si</source>
        <translation>Si</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Sono stati esaminti %1 files, trovate %2 songs di cui %3 di (c)Kordia</source>
        <translation>Sono stati esaminti %1 files, trovate %2 songs di cui %3 di (c)Kordia</translation>
    </message>
    <message>
        <source>Spegne questo riassunto e le domande sulle song non pubblicate da Kordia</source>
        <translation>Spegne questo riassunto e le domande sulle song non pubblicate da Kordia</translation>
    </message>
    <message>
        <source>Sincronizza subito le song</source>
        <translation>Sincronizza subito le song</translation>
    </message>
    <message>
        <source>Lascia le song come sono</source>
        <translation>Lascia le song come sono</translation>
    </message>
</context>
<context>
    <name>brisel::RecentFoldersMenu</name>
    <message>
        <source>Nessuna cartella</source>
        <translation>Nessuna cartella</translation>
    </message>
</context>
<context>
    <name>brisel::RenameSongDialog</name>
    <message>
        <source>Rinomina song</source>
        <translation>Rinomina song</translation>
    </message>
    <message>
        <source>Il nuovo nome della song sulla memoria, al massimo 8 caratteri. L&apos;estensione resta.</source>
        <translation>Il nuovo nome della song sulla memoria, al massimo 8 caratteri. L&apos;estensione resta.</translation>
    </message>
    <message>
        <source>Il nome del file senza l&apos;estensione</source>
        <translation>Il nome del file senza l&apos;estensione</translation>
    </message>
    <message>
        <source>Nuovo nome</source>
        <translation>Nuovo nome</translation>
    </message>
    <message>
        <source>Rinomina la song; l&apos;indice e le playlist la seguono</source>
        <translation>Rinomina la song; l&apos;indice e le playlist la seguono</translation>
    </message>
    <message>
        <source>&amp;Rinomina</source>
        <translation>&amp;Rinomina</translation>
    </message>
    <message>
        <source>Lascia il nome com&apos;è</source>
        <translation>Lascia il nome com&apos;è</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Annulla</translation>
    </message>
</context>
<context>
    <name>brisel::RepairDialog</name>
    <message>
        <source>Ripara playlist</source>
        <translation>Ripara playlist</translation>
    </message>
    <message>
        <source>Quale song deve suonare al posto di &quot;%1&quot;?</source>
        <translation>Quale song deve suonare al posto di &quot;%1&quot;?</translation>
    </message>
    <message>
        <source>&amp;Cerca:</source>
        <translation>&amp;Cerca:</translation>
    </message>
    <message>
        <source>Cerca una song della memoria</source>
        <translation>Cerca una song della memoria</translation>
    </message>
    <message>
        <source>Song della memoria, le più probabili per prime</source>
        <translation>Song della memoria, le più probabili per prime</translation>
    </message>
    <message>
        <source>Mostra solo le song con queste parole nel titolo, nell&apos;artista o nel percorso</source>
        <translation>Mostra solo le song con queste parole nel titolo, nell&apos;artista o nel percorso</translation>
    </message>
    <message>
        <source>Dice per ogni song probabile perché lo è</source>
        <translation>Dice per ogni song probabile perché lo è</translation>
    </message>
</context>
<context>
    <name>brisel::ReportDialog</name>
    <message>
        <source>Resoconto</source>
        <translation>Resoconto</translation>
    </message>
    <message>
        <source>&amp;Copia</source>
        <translation>&amp;Copia</translation>
    </message>
    <message>
        <source>Copia il resoconto negli appunti</source>
        <translation>Copia il resoconto negli appunti</translation>
    </message>
    <message>
        <source>&amp;Salva...</source>
        <translation>&amp;Salva...</translation>
    </message>
    <message>
        <source>Salva il resoconto in un file di testo</source>
        <translation>Salva il resoconto in un file di testo</translation>
    </message>
    <message>
        <source>C&amp;hiudi</source>
        <translation>C&amp;hiudi</translation>
    </message>
    <message>
        <source>Chiude il resoconto</source>
        <translation>Chiude il resoconto</translation>
    </message>
    <message>
        <source>Salva resoconto</source>
        <translation>Salva resoconto</translation>
    </message>
    <message>
        <source>resoconto.txt</source>
        <translation>resoconto.txt</translation>
    </message>
    <message>
        <source>Testo (*.txt)</source>
        <translation>Testo (*.txt)</translation>
    </message>
    <message>
        <source>Il resoconto non è stato salvato: %1</source>
        <translation>Il resoconto non è stato salvato: %1</translation>
    </message>
    <message>
        <source>Una riga per ogni file non elaborato, con il motivo; poi le song modificate, con i dati di prima e di dopo</source>
        <translation>Una riga per ogni file non elaborato, con il motivo; poi le song modificate, con i dati di prima e di dopo</translation>
    </message>
</context>
<context>
    <name>brisel::RunDialog</name>
    <message>
        <source>Un altro programma sta lavorando su questa memoria.
Riprovare quando ha finito.</source>
        <translation>Un altro programma sta lavorando su questa memoria.
Riprovare quando ha finito.</translation>
    </message>
</context>
<context>
    <name>brisel::SafeRemoval</name>
    <message>
        <source>La memoria è stata smontata: ora si può togliere.</source>
        <translation>La memoria è stata smontata: ora si può togliere.</translation>
    </message>
    <message>
        <source>Tutti i dati sono scritti sulla memoria, ma il programma non può smontarla.
Smontarla con il gestore dei file prima di toglierla.</source>
        <translation>Tutti i dati sono scritti sulla memoria, ma il programma non può smontarla.
Smontarla con il gestore dei file prima di toglierla.</translation>
    </message>
    <message>
        <source>La memoria è stata smontata, ma un&apos;altra parte dello stesso disco è ancora in uso.
Smontare anche quella prima di togliere il disco.</source>
        <translation>La memoria è stata smontata, ma un&apos;altra parte dello stesso disco è ancora in uso.
Smontare anche quella prima di togliere il disco.</translation>
    </message>
    <message>
        <source>La memoria è in uso da un programma e non è stata smontata.
Chiudere i file aperti e riprovare.</source>
        <translation>La memoria è in uso da un programma e non è stata smontata.
Chiudere i file aperti e riprovare.</translation>
    </message>
    <message>
        <source>Manca il permesso di smontare la memoria, che è ancora montata.</source>
        <translation>Manca il permesso di smontare la memoria, che è ancora montata.</translation>
    </message>
    <message>
        <source>Il sistema non ha risposto in tempo: non togliere la memoria finché il gestore dei file non la mostra come smontata.</source>
        <translation>Il sistema non ha risposto in tempo: non togliere la memoria finché il gestore dei file non la mostra come smontata.</translation>
    </message>
    <message>
        <source>Non è stato possibile smontare la memoria: non toglierla.</source>
        <translation>Non è stato possibile smontare la memoria: non toglierla.</translation>
    </message>
    <message>
        <source>Non è stato possibile scrivere tutti i dati sulla memoria, che non è stata smontata.</source>
        <translation>Non è stato possibile scrivere tutti i dati sulla memoria, che non è stata smontata.</translation>
    </message>
    <message>
        <source>Un altro programma sta lavorando su questa memoria.
Riprovare quando ha finito.</source>
        <translation>Un altro programma sta lavorando su questa memoria.
Riprovare quando ha finito.</translation>
    </message>
    <message>
        <source>La memoria non è più presente.</source>
        <translation>La memoria non è più presente.</translation>
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
        <translation>Scaletta</translation>
    </message>
    <message>
        <source>Lettura delle song</source>
        <translation>Lettura delle song</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Tonalità</source>
        <translation>Tonalità</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Durata</translation>
    </message>
</context>
<context>
    <name>brisel::SongChoiceModel</name>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Percorso</source>
        <translation>Percorso</translation>
    </message>
    <message>
        <source>Perché</source>
        <translation>Perché</translation>
    </message>
</context>
<context>
    <name>brisel::SongFilter</name>
    <message>
        <source>%1 di %2</source>
        <translation>%1 di %2</translation>
    </message>
</context>
<context>
    <name>brisel::SongListModel</name>
    <message>
        <source>l&apos;indice non ha il suo percorso</source>
        <translation>l&apos;indice non ha il suo percorso</translation>
    </message>
    <message>
        <source>«?» nel percorso: Brisel non trova il file</source>
        <translation>«?» nel percorso: Brisel non trova il file</translation>
    </message>
    <message>
        <source>manca in un elenco di Brisel</source>
        <translation>manca in un elenco di Brisel</translation>
    </message>
    <message>
        <source>il suo numero c&apos;è due volte</source>
        <translation>il suo numero c&apos;è due volte</translation>
    </message>
    <message>
        <source>il file non c&apos;è</source>
        <translation>il file non c&apos;è</translation>
    </message>
    <message>
        <source>il file è cambiato dopo l&apos;ultimo aggiornamento</source>
        <translation>il file è cambiato dopo l&apos;ultimo aggiornamento</translation>
    </message>
    <message>
        <source>il file non si può leggere</source>
        <translation>il file non si può leggere</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n song</numerusform>
        </translation>
    </message>
    <message>
        <source>(non in questo elenco)</source>
        <translation>(non in questo elenco)</translation>
    </message>
    <message>
        <source>(senza nome)</source>
        <translation>(senza nome)</translation>
    </message>
    <message>
        <source>sì</source>
        <translation>sì</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Percorso</source>
        <translation>Percorso</translation>
    </message>
    <message>
        <source>Tempo</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Formato</source>
        <translation>Formato</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Marker</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Nota</translation>
    </message>
</context>
<context>
    <name>brisel::SongToolTip</name>
    <message>
        <source>Stato: %1</source>
        <translation>Stato: %1</translation>
    </message>
    <message>
        <source>Il file non è più leggibile</source>
        <translation>Il file non è più leggibile</translation>
    </message>
    <message>
        <source>Nessun marker</source>
        <translation>Nessun marker</translation>
    </message>
    <message>
        <source>Marker:</source>
        <translation>Marker:</translation>
    </message>
</context>
<context>
    <name>brisel::SongsListDialog</name>
    <message>
        <source>Salva lista song</source>
        <translation>Salva lista song</translation>
    </message>
    <message>
        <source>Cartella della memoria:</source>
        <translation>Cartella della memoria:</translation>
    </message>
    <message>
        <source>Sfoglia</source>
        <translation>Sfoglia</translation>
    </message>
    <message>
        <source>File di destinazione:</source>
        <translation>File di destinazione:</translation>
    </message>
    <message>
        <source>Ordina per:</source>
        <translation>Ordina per:</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genere</translation>
    </message>
    <message>
        <source>Inizia</source>
        <translation>Inizia</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Scegli cartella</translation>
    </message>
    <message>
        <source>Scegli nome del file</source>
        <translation>Scegli nome del file</translation>
    </message>
    <message>
        <source>File (*.csv)</source>
        <translation>File (*.csv)</translation>
    </message>
    <message>
        <source>Il percorso selezionato non esiste</source>
        <translation>Il percorso selezionato non esiste</translation>
    </message>
    <message>
        <source>Il percorso di destinazione non esiste</source>
        <translation>Il percorso di destinazione non esiste</translation>
    </message>
    <message>
        <source>Operazione completata</source>
        <translation>Operazione completata</translation>
    </message>
    <message>
        <source>Errore durante la creazione del file</source>
        <translation>Errore durante la creazione del file</translation>
    </message>
    <message>
        <source>Impossibile proseguire, la memoria non è preparata per Brisel</source>
        <translation>Impossibile proseguire, la memoria non è preparata per Brisel</translation>
    </message>
    <message>
        <source>Cartella principale della memoria</source>
        <translation>Cartella principale della memoria</translation>
    </message>
    <message>
        <source>Sfoglia: cartella della memoria</source>
        <translation>Sfoglia: cartella della memoria</translation>
    </message>
    <message>
        <source>Sceglie la cartella della memoria</source>
        <translation>Sceglie la cartella della memoria</translation>
    </message>
    <message>
        <source>File in cui salvare la lista</source>
        <translation>File in cui salvare la lista</translation>
    </message>
    <message>
        <source>Sfoglia: file della lista</source>
        <translation>Sfoglia: file della lista</translation>
    </message>
    <message>
        <source>Sceglie il file in cui salvare la lista</source>
        <translation>Sceglie il file in cui salvare la lista</translation>
    </message>
    <message>
        <source>Ordine delle song nella lista</source>
        <translation>Ordine delle song nella lista</translation>
    </message>
    <message>
        <source>Avanzamento</source>
        <translation>Avanzamento</translation>
    </message>
    <message>
        <source>Avanzamento del lavoro</source>
        <translation>Avanzamento del lavoro</translation>
    </message>
    <message>
        <source>Salva la lista</source>
        <translation>Salva la lista</translation>
    </message>
    <message>
        <source>Chiude la finestra</source>
        <translation>Chiude la finestra</translation>
    </message>
</context>
<context>
    <name>brisel::SoundFontAction</name>
    <message>
        <source>&amp;SoundFont per i MIDI...</source>
        <translation>&amp;SoundFont per i MIDI...</translation>
    </message>
    <message>
        <source>Sceglie i suoni con cui si ascoltano i brani MIDI</source>
        <translation>Sceglie i suoni con cui si ascoltano i brani MIDI</translation>
    </message>
    <message>
        <source>SoundFont</source>
        <translation>SoundFont</translation>
    </message>
    <message>
        <source>I brani MIDI si ascoltano con i suoni di un SoundFont General MIDI.</source>
        <translation>I brani MIDI si ascoltano con i suoni di un SoundFont General MIDI.</translation>
    </message>
    <message>
        <source>Il sistema non ne ha nessuno.</source>
        <translation>Il sistema non ne ha nessuno.</translation>
    </message>
    <message>
        <source>Sc&amp;egli un file...</source>
        <translation>Sc&amp;egli un file...</translation>
    </message>
    <message>
        <source>&amp;Usa quello del sistema</source>
        <translation>&amp;Usa quello del sistema</translation>
    </message>
    <message>
        <source>Scegli un SoundFont</source>
        <translation>Scegli un SoundFont</translation>
    </message>
    <message>
        <source>SoundFont (*.sf2 *.sf3)</source>
        <translation>SoundFont (*.sf2 *.sf3)</translation>
    </message>
</context>
<context>
    <name>brisel::StatusLine</name>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n song</numerusform>
        </translation>
    </message>
    <message>
        <source>Spazio: servono %1, liberi %2</source>
        <translation>Spazio: servono %1, liberi %2</translation>
    </message>
    <message>
        <source>Spazio insufficiente: servono %1, liberi %2</source>
        <translation>Spazio insufficiente: servono %1, liberi %2</translation>
    </message>
    <message>
        <source>&amp;Dettagli</source>
        <translation>&amp;Dettagli</translation>
    </message>
    <message>
        <source>Nessun file da segnalare</source>
        <translation>Nessun file da segnalare</translation>
    </message>
    <message>
        <source>Elenca i file che l&apos;ultima operazione non ha elaborato, con il motivo</source>
        <translation>Elenca i file che l&apos;ultima operazione non ha elaborato, con il motivo</translation>
    </message>
    <message>
        <source>Elenca le song che l&apos;ultima operazione ha modificato, con i dati di prima e di dopo, e i file che non ha elaborato</source>
        <translation>Elenca le song che l&apos;ultima operazione ha modificato, con i dati di prima e di dopo, e i file che non ha elaborato</translation>
    </message>
</context>
<context>
    <name>brisel::TransferPlanDialog</name>
    <message>
        <source>Piano del trasferimento</source>
        <translation>Piano del trasferimento</translation>
    </message>
    <message>
        <source>&amp;Mostra</source>
        <translation>&amp;Mostra</translation>
    </message>
    <message>
        <source>Sceglie le righe della tabella; i segni di spunta restano</source>
        <translation>Sceglie le righe della tabella; i segni di spunta restano</translation>
    </message>
    <message>
        <source>Tutte le song</source>
        <translation>Tutte le song</translation>
    </message>
    <message>
        <source>Nuove</source>
        <translation>Nuove</translation>
    </message>
    <message>
        <source>Uguali</source>
        <translation>Uguali</translation>
    </message>
    <message>
        <source>Quelle che sostituiscono</source>
        <translation>Quelle che sostituiscono</translation>
    </message>
    <message>
        <source>Quelle che non ci stanno</source>
        <translation>Quelle che non ci stanno</translation>
    </message>
    <message>
        <source>Quelle che non si possono copiare</source>
        <translation>Quelle che non si possono copiare</translation>
    </message>
    <message>
        <source>Song del piano</source>
        <translation>Song del piano</translation>
    </message>
    <message>
        <source>Una riga per ogni song scelta; la barra spaziatrice mette o toglie il segno di spunta</source>
        <translation>Una riga per ogni song scelta; la barra spaziatrice mette o toglie il segno di spunta</translation>
    </message>
    <message>
        <source>Seleziona &amp;tutte</source>
        <translation>Seleziona &amp;tutte</translation>
    </message>
    <message>
        <source>Mette il segno di spunta a tutte le righe mostrate</source>
        <translation>Mette il segno di spunta a tutte le righe mostrate</translation>
    </message>
    <message>
        <source>&amp;Deseleziona tutte</source>
        <translation>&amp;Deseleziona tutte</translation>
    </message>
    <message>
        <source>Toglie il segno di spunta a tutte le righe mostrate</source>
        <translation>Toglie il segno di spunta a tutte le righe mostrate</translation>
    </message>
    <message>
        <source>&amp;Copia</source>
        <translation>&amp;Copia</translation>
    </message>
    <message>
        <source>Copia le song con il segno di spunta e aggiorna gli archivi della memoria</source>
        <translation>Copia le song con il segno di spunta e aggiorna gli archivi della memoria</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Annulla</translation>
    </message>
    <message>
        <source>Chiude il piano senza copiare nulla</source>
        <translation>Chiude il piano senza copiare nulla</translation>
    </message>
    <message>
        <source>Nessuna song da mostrare</source>
        <translation>Nessuna song da mostrare</translation>
    </message>
    <message numerus="yes">
        <source>%n da copiare</source>
        <translation>
            <numerusform>%n da copiare</numerusform>
            <numerusform>%n da copiare</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n nuove</source>
        <translation>
            <numerusform>%n nuova</numerusform>
            <numerusform>%n nuove</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n uguali</source>
        <translation>
            <numerusform>%n uguale</numerusform>
            <numerusform>%n uguali</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n sostituiscono</source>
        <translation>
            <numerusform>%n sostituisce</numerusform>
            <numerusform>%n sostituiscono</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non ci stanno</source>
        <translation>
            <numerusform>%n non ci sta</numerusform>
            <numerusform>%n non ci stanno</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non si possono copiare</source>
        <translation>
            <numerusform>%n non si può copiare</numerusform>
            <numerusform>%n non si possono copiare</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n con un nome più corto</source>
        <translation>
            <numerusform>%n con un nome più corto</numerusform>
            <numerusform>%n con un nome più corto</numerusform>
        </translation>
    </message>
    <message>
        <source>Spazio: servono %1, liberi %2</source>
        <translation>Spazio: servono %1, liberi %2</translation>
    </message>
    <message>
        <source>Durata: si saprà dopo le prime song</source>
        <translation>Durata: si saprà dopo le prime song</translation>
    </message>
    <message>
        <source>Durata: meno di un minuto</source>
        <translation>Durata: meno di un minuto</translation>
    </message>
    <message>
        <source>Durata: circa %1 min</source>
        <translation>Durata: circa %1 min</translation>
    </message>
</context>
<context>
    <name>brisel::TransferPlanModel</name>
    <message>
        <source>nuova</source>
        <translation>nuova</translation>
    </message>
    <message>
        <source>c&apos;è già, uguale</source>
        <translation>c&apos;è già, uguale</translation>
    </message>
    <message>
        <source>sostituisce %1 (%2, %3)</source>
        <translation>sostituisce %1 (%2, %3)</translation>
    </message>
    <message>
        <source>sostituisce un&apos;altra song scelta: %1</source>
        <translation>sostituisce un&apos;altra song scelta: %1</translation>
    </message>
    <message>
        <source>non ci sta</source>
        <translation>non ci sta</translation>
    </message>
    <message>
        <source>non si può copiare: %1</source>
        <translation>non si può copiare: %1</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message>
        <source>Che cosa succede</source>
        <translation>Che cosa succede</translation>
    </message>
    <message>
        <source>Nome sulla memoria</source>
        <translation>Nome sulla memoria</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Dimensione</translation>
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
        <translation>Formato</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genere</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Autore</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Durata</translation>
    </message>
    <message>
        <source>Bpm</source>
        <translation>Bpm</translation>
    </message>
    <message>
        <source>Tonalita&apos;</source>
        <translation>Tonalita&apos;</translation>
    </message>
    <message>
        <source>Nome file</source>
        <translation>Nome file</translation>
    </message>
    <message>
        <source>%1 (un clic ordina le righe)</source>
        <translation>%1 (un clic ordina le righe)</translation>
    </message>
    <message>
        <source>Formato del file</source>
        <translation>Formato del file</translation>
    </message>
    <message>
        <source>Titolo della song</source>
        <translation>Titolo della song</translation>
    </message>
    <message>
        <source>Interprete della song</source>
        <translation>Interprete della song</translation>
    </message>
    <message>
        <source>Genere musicale</source>
        <translation>Genere musicale</translation>
    </message>
    <message>
        <source>Autore della song</source>
        <translation>Autore della song</translation>
    </message>
    <message>
        <source>Durata in minuti e secondi</source>
        <translation>Durata in minuti e secondi</translation>
    </message>
    <message>
        <source>Tempo in battiti al minuto</source>
        <translation>Tempo in battiti al minuto</translation>
    </message>
    <message>
        <source>Tonalità; il segno - indica il modo minore</source>
        <translation>Tonalità; il segno - indica il modo minore</translation>
    </message>
    <message>
        <source>Nome del file senza la cartella</source>
        <translation>Nome del file senza la cartella</translation>
    </message>
    <message>
        <source>Stato (simbolo)</source>
        <translation>Stato (simbolo)</translation>
    </message>
    <message>
        <source>Stato</source>
        <translation>Stato</translation>
    </message>
    <message>
        <source>Cartella</source>
        <translation>Cartella</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Marker</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Dimensione</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Data</translation>
    </message>
    <message>
        <source>Che cosa è stato della song</source>
        <translation>Che cosa è stato della song</translation>
    </message>
    <message>
        <source>Che cosa è stato della song, in parole</source>
        <translation>Che cosa è stato della song, in parole</translation>
    </message>
    <message>
        <source>Cartella del file</source>
        <translation>Cartella del file</translation>
    </message>
    <message>
        <source>Numero di marker</source>
        <translation>Numero di marker</translation>
    </message>
    <message>
        <source>Dimensione del file</source>
        <translation>Dimensione del file</translation>
    </message>
    <message>
        <source>Data dell&apos;ultima modifica del file</source>
        <translation>Data dell&apos;ultima modifica del file</translation>
    </message>
</context>
</TS>
