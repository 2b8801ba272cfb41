<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT" sourcelanguage="it_IT">
<context>
    <name>AboutDialog</name>
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
    <name>BackupDialog</name>
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
</context>
<context>
    <name>DataEditDialog</name>
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
</context>
<context>
    <name>HelpDialog</name>
    <message>
        <source>Aiuto Brisel2 PC</source>
        <translation>Aiuto Brisel2 PC</translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation>Aiuto</translation>
    </message>
</context>
<context>
    <name>Index</name>
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
</context>
<context>
    <name>IndexDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Dialog</translation>
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
        <translation>File found:</translation>
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
</context>
<context>
    <name>MainWindow</name>
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
        <source>Importo la libreria...</source>
        <translation>Importo la libreria...</translation>
    </message>
    <message>
        <source>Aggiornamento file</source>
        <translation>Aggiornamento file</translation>
    </message>
    <message>
        <source>Aggiorno la libreria...</source>
        <translation>Aggiorno la libreria...</translation>
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
        <source>Eseguo backup dellla libreria...</source>
        <translation>Eseguo backup dellla libreria...</translation>
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
        <source>Trasferimento file...</source>
        <translation>Trasferimento file...</translation>
    </message>
    <message>
        <source>esiste già, vuoi sostituirlo?</source>
        <translation>esiste già, vuoi sostituirlo?</translation>
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
        <source>Cerca nella tabella</source>
        <translation>Cerca nella tabella</translation>
    </message>
    <message>
        <source>Nessun brano corrisponde alla ricerca</source>
        <translation>Nessun brano corrisponde alla ricerca</translation>
    </message>
    <message>
        <source>Cerco i brani...</source>
        <translation>Cerco i brani...</translation>
    </message>
    <message>
        <source>Non è stato trovato nessun brano</source>
        <translation>Non è stato trovato nessun brano</translation>
    </message>
    <message>
        <source>Attendere la fine dell&apos;operazione in corso</source>
        <translation>Attendere la fine dell&apos;operazione in corso</translation>
    </message>
</context>
<context>
    <name>NoCopyrightDialog</name>
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
</context>
<context>
    <name>ProceedDialog</name>
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
</context>
<context>
    <name>RunProgress</name>
    <message>
        <source>Interrompi</source>
        <translation>Interrompi</translation>
    </message>
    <message>
        <source>%1 di %2</source>
        <translation>%1 di %2</translation>
    </message>
</context>
<context>
    <name>SongsListDialog</name>
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
</context>
<context>
    <name>StatusLine</name>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n song</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UserSongsRelTableModel</name>
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
</context>
</TS>
