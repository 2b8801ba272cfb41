#include "tests/testprogram.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTextDocumentFragment>
#include <QTranslator>
#include <QXmlStreamReader>

using namespace brisel;

/// The program's texts in both languages, and the guide that quotes them.
class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void italianRepeatsItalianSources();
    void keepsPlaceholdersAndLines_data();
    void keepsPlaceholdersAndLines();
    void readsAsAgreed_data();
    void readsAsAgreed();
    void guideQuotesTheProgram_data();
    void guideQuotesTheProgram();

private:
    struct Message {
        QString source;
        QString translation; ///< the plural if the text has a count
        QString singular;    ///< empty unless the text has a count
    };
    static QList<Message> messages(const QString &language);

    QTranslator m_english;
};

QList<TestTranslations::Message> TestTranslations::messages(const QString &language)
{
    QFile file(QStringLiteral(BRISEL_TREE "/resources/translations/brisel2pc_%1.ts").arg(language));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<Message> found;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QStringLiteral("source")) {
            found.append({reader.readElementText(), {}, {}});
        } else if (reader.name() == QStringLiteral("translation")) {
            if (!found.last().source.contains(QStringLiteral("%n"))) {
                found.last().translation = reader.readElementText();
                continue;
            }
            reader.readNextStartElement();
            found.last().singular = reader.readElementText();
            reader.readNextStartElement();
            found.last().translation = reader.readElementText();
        }
    }
    return reader.hasError() ? QList<Message>() : found;
}

void TestTranslations::initTestCase()
{
    QVERIFY(m_english.load(QStringLiteral(":/trans/brisel2pc_en")));
}

void TestTranslations::italianRepeatsItalianSources()
{
    const QList<Message> texts = messages(QStringLiteral("it"));
    QVERIFY(texts.size() > 100);
    QStringList english; // in the sources
    for (const Message &text : texts) {
        if (text.translation != text.source)
            english.append(text.source + u'|' + text.translation);
    }
    english.sort();
    QCOMPARE(english, QStringList({u"Delete file|Cancella il file"_qs,
                                   u"Dialog|Ottimizza memoria"_qs, u"File found:|File trovati:"_qs,
                                   u"Remove from list|Togli dalla lista"_qs}));
}

void TestTranslations::keepsPlaceholdersAndLines_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("translation");
    for (const QString &language : {QStringLiteral("it"), QStringLiteral("en")}) {
        for (const Message &text : messages(language)) {
            const QString name = language + u' ' + text.source.left(60);
            QTest::newRow(qPrintable(name)) << text.source << text.translation;
            if (!text.singular.isEmpty())
                QTest::newRow(qPrintable(name + u" of one"_qs)) << text.source << text.singular;
        }
    }
}

void TestTranslations::keepsPlaceholdersAndLines()
{
    QFETCH(QString, source);
    QFETCH(QString, translation);
    QVERIFY(!translation.isEmpty());
    for (const QString &part :
         {QStringLiteral("%1"), QStringLiteral("%2"), QStringLiteral("%3"), QStringLiteral("%n"),
          QStringLiteral("\n"), QStringLiteral("<br/>")})
        QCOMPARE(translation.count(part), source.count(part));
    // Texts that are appended need the blank at its end.
    QCOMPARE(translation.endsWith(u' '), source.endsWith(u' '));
    QCOMPARE(translation.endsWith(u':'), source.endsWith(u':'));
}

void TestTranslations::readsAsAgreed_data()
{
    QTest::addColumn<QString>("english");
    const auto row = [](const char *context, const char *source, const QString &english) {
        QTest::addRow("%s|%s", context, source) << english;
    };
    row("brisel::AboutDialog", "Informazioni", u"About"_qs);
    row("brisel::BackupDialog", "Sfoglia...", u"Browse..."_qs);
    row("brisel::DataEditDialog", "Modifica dati song", u"Edit song details"_qs);
    row("brisel::DataEditDialog", "Salva", u"Save"_qs);
    row("brisel::DataEditDialog", "ATTENZIONE", u"WARNING"_qs);
    row("brisel::HelpDialog", "Aiuto Brisel2 PC", u"Help for Brisel2 PC"_qs);
    row("brisel::HelpDialog", "Aiuto", u"Help for Brisel2 PC"_qs);
    row("brisel::IndexDialog", "Dialog", u"Optimize memory"_qs);
    row("brisel::IndexDialog", "Sfoglia", u"Browse"_qs);
    row("brisel::IndexDialog", "Inizia", u"Start"_qs);
    row("brisel::IndexDialog", "Chiudi", u"Close"_qs);
    row("brisel::IndexDialog", "Controlla struttura memoria", u"Check memory structure"_qs);
    row("brisel::IndexDialog", "Ho inserito o eliminato alcune song, aggiorna database",
        u"I have added or deleted some songs, update database"_qs);
    row("brisel::IndexDialog", "Ho problemi con gli archivi, ricostruisci database",
        u"I have problems with the archives, rebuild database"_qs);
    row("brisel::IndexDialog", "Ottimizzazione memoria in corso...", u"Optimizing memory..."_qs);
    row("brisel::IndexDialog", "Il percorso selezionato non esiste",
        u"The selected path does not exist"_qs);
    row("brisel::IndexDialog", "Operazione completata", u"Operation completed"_qs);
    row("brisel::IndexDialog", "Operazione completata con successo",
        u"Operation completed successfully"_qs);
    row("brisel::Index",
        "File non importato, errore nel path:", u"File not imported, path error:"_qs);
    row("brisel::Index",
        "File non importato, path troppo lungo: ", u"File not imported, path too long: "_qs);
    row("brisel::Index",
        "File non importato, memoria piena: ", u"File not imported, memory full: "_qs);
    row("brisel::Index", "File non importato, impossibile rinominare: ",
        u"File not imported, unable to rename: "_qs);
    row("brisel::Index", "verrà rinominato: ", u"will be renamed: "_qs);
    row("brisel::Index",
        "Se il file non viene rinominato, è possibile che non venga rilevato da Brisel.",
        u"If the file is not renamed, Brisel may not be able to find it."_qs);
    row("brisel::MainWindow",
        "Seleziona le basi musicali che desideri inserire nella memoria di Brisel",
        u"Select the songs you wish to put in the memory dedicated to Brisel2"_qs);
    row("brisel::MainWindow", "Sincronizza song con il database Kordia",
        u"Sync your songs with the Kordia database"_qs);
    row("brisel::MainWindow", "Trasferisci song nella memoria di Brisel",
        u"Transfer songs in the Brisel2 memory"_qs);
    row("brisel::MainWindow", "Opzioni nascoste", u"Hidden options"_qs);
    row("brisel::MainWindow", "Abilita log (riavvio necessario!)",
        u"Enable log (restart required!)"_qs);
    row("brisel::MainWindow", "Cancella log ad ogni avvio", u"Clear log every run"_qs);
    row("brisel::MainWindow", "File", u"File"_qs);
    row("brisel::MainWindow", "Esci", u"Quit"_qs);
    row("brisel::MainWindow", "Preferenze", u"Preferences"_qs);
    row("brisel::MainWindow", "Lingua", u"Language"_qs);
    row("brisel::MainWindow", "Italiano", u"Italiano"_qs);
    row("brisel::MainWindow", "English", u"English"_qs);
    row("brisel::MainWindow", "Deutsch", u"Deutsch"_qs);
    row("brisel::MainWindow", "Messaggi Copyright", u"Show copyright messages"_qs);
    row("brisel::MainWindow", "Si", u"Yes"_qs);
    row("brisel::MainWindow", "No", u"No"_qs);
    row("brisel::MainWindow", "Strumenti", u"Tools"_qs);
    row("brisel::MainWindow", "Rigenera il database delle song", u"Rebuild songs database"_qs);
    row("brisel::MainWindow", "Salva lista delle song", u"Save songs list"_qs);
    row("brisel::MainWindow", "Aiuto", u"Help"_qs);
    row("brisel::MainWindow", "Aiuto Brisel PC", u"Help for Brisel2 PC"_qs);
    row("brisel::MainWindow", "Informazioni", u"About"_qs);
    row("brisel::MainWindow", "Informazioni su QT", u"About QT"_qs);
    row("brisel::MainWindow", "Seleziona i file da importare", u"Select files to import"_qs);
    row("brisel::MainWindow", "Lettura file", u"Reading file"_qs);
    row("SongPicker", "Lettura file", u"Reading file"_qs);
    row("LibraryImport", "Lettura file", u"Reading file"_qs);
    row("LibraryImport", "Importo la libreria...", u"Importing library..."_qs);
    for (const char *context : {"Synchroniser", "ManualEdit"}) {
        row(context, "Aggiorno la libreria...", u"Updating library..."_qs);
        row(context, "Aggiornamento file", u"Updating file"_qs);
    }
    row("brisel::MainWindow", "Backup FALLITO !!!", u"Backup FAILED !!!"_qs);
    row("brisel::MainWindow", "Backup eseguito correttamente", u"Backup done correctly"_qs);
    row("brisel::MainWindow", "Attenzione", u"Warning"_qs);
    row("brisel::MainWindow", "Sei sicuro di voler cancellare il file?",
        u"Are you sure you want to permanently delete the file?"_qs);
    row("brisel::MainWindow", "Trasferimento", u"Transfer"_qs);
    row("brisel::MainWindow", "Non è possibile copiare i file sul disco di sistema",
        u"Can not copy the file on system disc"_qs);
    row("brisel::MainWindow",
        "Non è possibile copiare i file sulla cartella principale, creare o selezionare una "
        "sottocartella",
        u"It is not possible to copy files on the main folder, select or create a subfolder"_qs);
    row("brisel::MainWindow",
        "Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono riservate per "
        "funzionalità specifiche di Brisel, selezionare un'altra cartella",
        u"You can not use BRIDGE, SFX and PLAYLIST folders, they are reserved for BRISEL2. "
        "Select another folder"_qs);
    row("Transfer", "Trasferimento", u"Transfer"_qs);
    row("Transfer", "Trasferimento file...", u"Transferring files..."_qs);
    row("brisel::MainWindow", "Non è stato possibile copiare uno o più file",
        u"It was not possible to copy one or more files"_qs);
    row("brisel::MainWindow", "Tutti i file sono stati copiati correttamente",
        u"All the files have been copied successfully"_qs);
    row("WindowRun", "esiste già, vuoi sostituirlo?", u"is already present, replace it?"_qs);
    row("Transfer", "Aggiornamento database...", u"Updating database..."_qs);
    row("Transfer", "Aggiornamento", u"Update"_qs);
    row("brisel::NoCopyrightDialog", "Richiesta conferma", u"Confirmation request"_qs);
    row("brisel::NoCopyrightDialog", "Il file:", u"File:"_qs);
    row("brisel::NoCopyrightDialog",
        "Non è stato pubblicato da Kordia. Si vuole procedere comunque con le modifiche?",
        u"Was not published by Kordia. Do you want to proceed with editing?"_qs);
    row("brisel::ProceedDialog", "Riassunto importazione", u"Import summary"_qs);
    row("brisel::ProceedDialog",
        "Si vuole procedere alla sincronizzazione automatica con il database?",
        u"Do you want to proceed with automatic synchronization?"_qs);
    row("brisel::ProceedDialog", "Non mostrare più messaggi sul copyright",
        u"Don't show messages on copyright"_qs);
    row("WindowRun", "Interrompi", u"Stop"_qs);
    row("WindowRun", "%1 di %2", u"%1 of %2"_qs);
    row("brisel::SongsListDialog", "Ordina per:", u"Sort by:"_qs);
    row("brisel::SongsListDialog", "Il percorso di destinazione non esiste",
        u"The destination path does not exist"_qs);
    row("brisel::SongsListDialog", "Errore durante la creazione del file",
        u"Error while creating the file"_qs);
    row("brisel::SongsListDialog", "Impossibile proseguire, la memoria non è preparata per Brisel",
        u"Operation aborted, memory not optimized for Brisel2"_qs);
}

void TestTranslations::readsAsAgreed()
{
    QFETCH(QString, english);
    const QByteArray tag(QTest::currentDataTag());
    const qsizetype bar = tag.indexOf('|');
    QCOMPARE(m_english.translate(tag.left(bar).constData(), tag.mid(bar + 1).constData()), english);
}

void TestTranslations::guideQuotesTheProgram_data()
{
    QTest::addColumn<QString>("texts");
    QTest::newRow("it") << QStringLiteral("it");
    QTest::newRow("en") << QStringLiteral("en");
    // German readers see the program in English.
    QTest::newRow("de") << QStringLiteral("en");
}

void TestTranslations::guideQuotesTheProgram()
{
    QFETCH(QString, texts);
    QSet<QString> known;
    for (const Message &text : messages(texts)) {
        for (const QString &line : text.translation.split(u'\n'))
            known.insert(line.trimmed().remove(u'&')); // the mark of a shortcut
    }
    QFile page(
        QStringLiteral(":/help/help_%1.html").arg(QString::fromLatin1(QTest::currentDataTag())));
    QVERIFY(page.open(QIODevice::ReadOnly));
    static const QRegularExpression quoted(QStringLiteral("<span class=\"ui\">(.*?)</span>"),
                                           QRegularExpression::DotMatchesEverythingOption);
    int quotes = 0;
    for (auto it = quoted.globalMatch(QString::fromUtf8(page.readAll())); it.hasNext(); ++quotes) {
        const QString text =
            QTextDocumentFragment::fromHtml(it.next().captured(1)).toPlainText().trimmed();
        QVERIFY2(known.contains(text), qPrintable(text));
    }
    QVERIFY(quotes > 100);
}

BRISEL_TEST(QCoreApplication, TestTranslations)
#include "tst_translations.moc"
