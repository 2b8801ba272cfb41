#include "tests/app/workflowtest.h"
#include "tests/testprogram.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QTranslator>

using namespace brisel;

/// The language changes while a dialog is open: its texts change at once, and the user's input
/// stays.
class TestDialogLanguages : public WorkflowTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { openWindow(); }
    void cleanup();

    void inTheQuestionOfASynchronisation();
    void inTheQuestionOfATransfer();
    void inTheSummaryOfAnImport();
    void inTheOfferOfABackup();
    void inTheEditDialog();

private:
    /// A text of a dialog: of the widget with this object name, or the window's title.
    struct Text {
        const char *part;
        QString italian;
        QString english;
    };

    void changeTo(const char *language)
    {
        QCoreApplication::removeTranslator(&m_english);
        if (qstrcmp(language, "en") == 0)
            QCoreApplication::installTranslator(&m_english);
        QCoreApplication::processEvents(); // the event that reaches the windows is posted
    }
    static QString textOf(const QWidget *dialog, const char *part)
    {
        if (qstrcmp(part, "title") == 0)
            return dialog->windowTitle();
        const auto *widget = dialog->findChild<QWidget *>(QString::fromLatin1(part));
        return widget != nullptr ? widget->property("text").toString() : QString();
    }
    /// Changes to English and back with \a dialog open.
    void checkTexts(const QWidget *dialog, const QList<Text> &texts)
    {
        for (const char *language : {"it", "en", "it"}) {
            changeTo(language);
            for (const Text &text : texts)
                QCOMPARE(textOf(dialog, text.part),
                         qstrcmp(language, "en") == 0 ? text.english : text.italian);
        }
    }

    QTranslator m_english;
};

void TestDialogLanguages::initTestCase()
{
    QVERIFY(m_english.load(u":/trans/brisel2pc_en"_qs));
}

void TestDialogLanguages::cleanup()
{
    QCoreApplication::removeTranslator(&m_english);
    verifyScript();
    closeWindow();
}

void TestDialogLanguages::inTheQuestionOfASynchronisation()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    m_script->expect("NoCopyrightDialog", [this](QWidget *widget) {
        checkTexts(
            widget,
            {{"title", u"Richiesta conferma"_qs, u"Confirmation request"_qs},
             {"fileLabel", u"Il file:"_qs, u"File:"_qs},
             {"fileNameLabel", at(u"one.mid"_qs), at(u"one.mid"_qs)},
             {"messageLabel",
              u"Non è stato pubblicato da Kordia. Si vuole procedere comunque con le modifiche?"_qs,
              u"Was not published by Kordia. Do you want to proceed with editing?"_qs},
             {"yesPushButton", u"Si"_qs, u"Yes"_qs},
             {"yesAllPushButton", u"Si tutti"_qs, u"Yes to all"_qs},
             {"noPushButton", u"No"_qs, u"No"_qs},
             {"noAllPushButton", u"No tutti"_qs, u"No to all"_qs}});
        DialogScript::click(widget, u"noPushButton"_qs);
    });
    clickSync();
}

void TestDialogLanguages::inTheQuestionOfATransfer()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    const QString there = at(u"volumes/CARD/songs/one.mid"_qs);
    makeFile(there, "old");
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    m_script->expect("NoCopyrightDialog", [this, there](QWidget *widget) {
        // The message was translated when the question was asked.
        const QString message = u"esiste già, vuoi sostituirlo?"_qs;
        checkTexts(widget, {{"title", u"Richiesta conferma"_qs, u"Confirmation request"_qs},
                            {"fileNameLabel", there, there},
                            {"messageLabel", message, message},
                            {"yesAllPushButton", u"Si tutti"_qs, u"Yes to all"_qs}});
        DialogScript::click(widget, u"noPushButton"_qs);
    });
    m_script->expectMessage(u"Trasferimento"_qs,
                            u"Tutti i file sono stati copiati correttamente"_qs, QMessageBox::Ok);
    clickTransfer();
}

void TestDialogLanguages::inTheSummaryOfAnImport()
{
    m_window->enableCopyrightMessage(true);
    makeSongs({u"one.mid"_qs}, true);
    makeSongs({u"two.mid"_qs}, false);
    makeFile(at(u"bad.mid"_qs), "no song");
    m_script->expectFiles({at(u"one.mid"_qs), at(u"two.mid"_qs), at(u"bad.mid"_qs)});
    m_script->expect("ProceedDialog", [this](QWidget *widget) {
        auto *box = widget->findChild<QCheckBox *>();
        QTest::mouseClick(box, Qt::LeftButton, {}, {10, box->height() / 2});
        checkTexts(widget,
                   {{"title", u"Riassunto importazione"_qs, u"Import summary"_qs},
                    {"summaryLabel",
                     u"Sono stati esaminti 3 files, trovate 2 songs di cui 1 di (c)Kordia"_qs,
                     u"3 files have been examined, found 2 songs of which 1 (c) Kordia"_qs},
                    {"questionLabel",
                     u"Si vuole procedere alla sincronizzazione automatica con il database?"_qs,
                     u"Do you want to proceed with automatic synchronization?"_qs},
                    {"dontShowCheckBox", u"Non mostrare più messaggi sul copyright"_qs,
                     u"Don't show messages on copyright"_qs},
                    {"yesPushButton", u"Si"_qs, u"Yes"_qs},
                    {"noPushButton", u"No"_qs, u"No"_qs}});
        QVERIFY(box->isChecked());
        DialogScript::click(widget, u"noPushButton"_qs);
    });
    m_sample->press("selectDirToolButton");
}

void TestDialogLanguages::inTheOfferOfABackup()
{
    makeSongs({u"one.mid"_qs}, true);
    import({u"one.mid"_qs});
    QVERIFY(QDir(m_folder->path()).mkdir(u"backups"_qs));
    m_script->expect("BackupDialog", [this](QWidget *widget) {
        DialogScript inner;
        inner.expectFiles({at(u"backups"_qs)});
        DialogScript::click(widget, u"browsePushButton"_qs);
        checkTexts(
            widget,
            {{"title", u"Backup"_qs, u"Backup"_qs},
             {"messageLabel",
              u"Si consiglia di effettuare un backup della libreria prima di procedere con "
              "l'aggiornamento.\nSelezionare una cartella di destinazione per il backup oppure "
              "premere 'Prosegui senza backup'."_qs,
              u"It is advisable to back up the library before proceeding with the update.\n"
              "Select a destination folder for the backup or press 'Proceed without backup'."_qs},
             {"directoryLineEdit", at(u"backups"_qs), at(u"backups"_qs)},
             {"browsePushButton", u"Sfoglia..."_qs, u"Browse..."_qs},
             {"abortPushButton", u"Annulla"_qs, u"Cancel"_qs},
             {"doBackupPushButton", u"Esegui backup"_qs, u"Do backup"_qs},
             {"exitPushButton", u"Prosegui senza backup"_qs, u"Proceed without backup"_qs}});
        DialogScript::click(widget, u"abortPushButton"_qs);
    });
    clickSync();
}

void TestDialogLanguages::inTheEditDialog()
{
    makeSongs({u"one.mid"_qs}, false);
    import({u"one.mid"_qs});
    expectEdit([this](QWidget *widget) {
        const auto line = [widget](const char *name) {
            return widget->findChild<QLineEdit *>(QString::fromLatin1(name));
        };
        line("titleLineEdit")->setText(u"Typed"_qs);
        line("mmLineEdit")->setText(u"3"_qs);
        line("ssLineEdit")->setText(u"5"_qs);
        line("bpmLineEdit")->setText(u"120"_qs);
        widget->findChild<QComboBox *>(u"artistComboBox"_qs)->setEditText(u"Someone"_qs);
        auto *key = widget->findChild<QComboBox *>(u"keyComboBox"_qs);
        key->setCurrentIndex(1);
        const QString chosenKey = key->currentText();
        const QString format = textOf(widget, "formatLabel");
        QVERIFY(!chosenKey.isEmpty() && !format.isEmpty());
        const QString toAll = u"Applica a tutti"_qs;
        const QString toAllEnglish = u"Apply to all"_qs;
        checkTexts(widget, {{"title", u"Modifica dati song"_qs, u"Edit song details"_qs},
                            {"pathTextLabel", u"Percorso file:"_qs, u"File path:"_qs},
                            {"pathLabel", at(u"one.mid"_qs), at(u"one.mid"_qs)},
                            {"formatTextLabel", u"Formato:"_qs, u"Format:"_qs},
                            {"formatLabel", format, format},
                            {"titleTextLabel", u"Titolo Song:"_qs, u"Song title:"_qs},
                            {"titleLineEdit", u"Typed"_qs, u"Typed"_qs},
                            {"radioButtonTitle1", u"Usa il titolo"_qs, u"Use the title"_qs},
                            {"radioButtonTitle2", u"Usa il filename"_qs, u"Use the file name"_qs},
                            {"checkBoxToAllTitle", toAll, toAllEnglish},
                            {"artistTextLabel", u"Interprete:"_qs, u"Artist:"_qs},
                            {"checkBoxToAllArtist", toAll, toAllEnglish},
                            {"genreTextLabel", u"Genere Musicale:"_qs, u"Genre:"_qs},
                            {"checkBoxToAllGenre", toAll, toAllEnglish},
                            {"authorTextLabel", u"Autore:"_qs, u"Author:"_qs},
                            {"checkBoxToAllAuthor", toAll, toAllEnglish},
                            {"lengthTextLabel", u"Durata:"_qs, u"Length:"_qs},
                            {"mmLineEdit", u"3"_qs, u"3"_qs},
                            {"ssLineEdit", u"5"_qs, u"5"_qs},
                            {"bpmLineEdit", u"120"_qs, u"120"_qs},
                            {"keyTextLabel", u"Tonalità:"_qs, u"Key:"_qs},
                            {"savePushButton", u"Salva"_qs, u"Save"_qs},
                            {"exitPushButton", u"Annulla"_qs, u"Cancel"_qs}});
        QCOMPARE(widget->findChild<QComboBox *>(u"artistComboBox"_qs)->currentText(),
                 u"Someone"_qs);
        QCOMPARE(key->currentText(), chosenKey);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    doubleClick(0);
    const SongInfo info = Sample::infoOf(at(u"one.mid"_qs));
    QCOMPARE(info.title, u"Typed"_qs);
    QCOMPARE(info.artist, u"Someone"_qs);
    QCOMPARE(info.length, 185);
}

BRISEL_TEST(QApplication, TestDialogLanguages)
#include "tst_dialoglanguages.moc"
