#include "memory/dialogs/foldersview.h"
#include "memory/dialogs/playerview.h"
#include "memory/songdrag.h"
#include "tests/app/memorywindowtest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QItemSelectionModel>
#include <QMessageBox>
#include <QMimeData>
#include <QSignalSpy>
#include <QTabWidget>
#include <QToolBar>

using namespace brisel;

/// The lists and the folders in the window of the memory.
class TestMemoryLists : public MemoryWindowTest
{
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { end(); }
    void showsTheListsOfThePlayer();
    void showsTheDataOfASong();
    void saysWhyASongIsMarked();
    void showsMarkupAsText();
    void marksSongsAfterTheLook();
    void jumpsByTheAlphabet();
    void disablesJumpsThatLeadNowhere();
    void searches();
    void searchesByKeys();
    void opensGroupsWithFewSongs();
    void keepsTheCurrentSong();
    void keepsTheCurrentSongOverARebuild();
    void choosesSongs();
    void dragsSongs();
    void asksForAMenu();
    void showsFolders();
    void findsDuplicates();
    void keepsACopyOfDuplicates();
    void interruptsTheSearchForDuplicates();
    void choosesPaths();

private:
    void chooseList(int number) const { find<QComboBox>("listComboBox")->setCurrentIndex(number); }
    QLineEdit *field() const { return find<QLineEdit>("songSearchLineEdit"); }
    /// The buttons of the jumps that are enabled or not.
    QString jumps(bool areEnabled) const
    {
        QString texts;
        for (const QAction *action : find<QToolBar>("jumpsToolBar")->actions())
            texts += action->isEnabled() == areEnabled ? action->text() : QString();
        return texts;
    }
    void jump(const QString &text) const
    {
        for (QAction *action : find<QToolBar>("jumpsToolBar")->actions()) {
            if (action->text() == text)
                action->trigger();
        }
    }
    QString current() const { return songs()->currentIndex().siblingAtColumn(0).data().toString(); }
    QString tipOf(int row, int number) const
    {
        return songs()->model()->index(row, number).data(Qt::ToolTipRole).toString();
    }
};

void TestMemoryLists::showsTheListsOfThePlayer()
{
    open();
    const QStringList titles{u"FOUR"_qs, u"ONE"_qs, u"THREE"_qs, u"TWO"_qs};
    QCOMPARE(column(songs(), 0), titles);
    chooseList(1);
    QCOMPARE(column(songs(), 0), QStringList({u"ANNA"_qs, u"BRUNO"_qs}));
    QCOMPARE(column(songs(), 1), QStringList({u"2 song"_qs, u"2 song"_qs}));
    QCOMPARE(column(songs(), 0, group(songs(), 0)), QStringList({u"ONE"_qs, u"THREE"_qs}));
    QVERIFY(songs()->rootIsDecorated());
    chooseList(2);
    QCOMPARE(column(songs(), 0), QStringList({u"POP"_qs, u"ROCK"_qs}));
    chooseList(3);
    QCOMPARE(column(songs(), 0), QStringList({u"FOUR"_qs, u"TWO"_qs}));
    chooseList(4);
    QCOMPARE(column(songs(), 0), QStringList(u"BRUNO"_qs));
    chooseList(5);
    QCOMPARE(column(songs(), 0), QStringList({u"POP"_qs, u"ROCK"_qs}));
}

void TestMemoryLists::showsTheDataOfASong()
{
    m_memory->patch(u"title.id2"_qs, 127, Sample::hex("08")); // of "ONE": markers
    open();
    QStringList headings;
    for (int number = 0; number < songs()->model()->columnCount(); ++number)
        headings.append(songs()->model()->headerData(number, Qt::Horizontal).toString());
    QCOMPARE(headings.join(u'|'), u"Titolo|Percorso|Tempo|Formato|Marker|Nota"_qs);
    QStringList texts;
    for (int number = 0; number < headings.size(); ++number)
        texts.append(songs()->model()->index(1, number).data().toString());
    QCOMPARE(texts.join(u'|'), u"ONE|/A.MID|120|MIDI|sì|"_qs);
    QCOMPARE(column(songs(), 2).at(0), QString()); // an MP3 has no tempo
    QVERIFY(songs()->model()->index(1, 0).data(Qt::DecorationRole).isNull());
}

void TestMemoryLists::saysWhyASongIsMarked()
{
    m_memory->patch(u"index.id2"_qs, 4, Sample::field("/?.MID", 46));
    m_memory->patch(u"index.id2"_qs, 64, Sample::hex("00000003")); // the id of "THREE"
    m_memory->cut(u"genre3.id2"_qs, 64);
    m_memory->write(u"C.KAR"_qs, "1234");
    open();
    QCOMPARE(column(songs(), 0).join(u'|'), u"FOUR|ONE|THREE|TWO|"_qs);
    const QStringList notes = column(songs(), 5);
    QCOMPARE(notes.at(0), QString());
    QCOMPARE(notes.at(1), u"«?» nel percorso: Brisel non trova il file; il file non c'è"_qs);
    QCOMPARE(notes.at(3), u"l'indice non ha il suo percorso"_qs);
    QVERIFY(notes.at(2).contains(u"il suo numero c'è due volte"_qs));
    QVERIFY(notes.at(4).contains(u"manca in un elenco di Brisel"_qs));
    QVERIFY(notes.at(4).contains(u"il file è cambiato dopo l'ultimo aggiornamento"_qs));
    QVERIFY(notes.at(4).contains(u"il file non si può leggere"_qs));
    QVERIFY(!songs()->model()->index(1, 0).data(Qt::DecorationRole).isNull());
    QVERIFY(tipOf(1, 0).contains(u"Brisel non trova il file"_qs));
    QCOMPARE(tipOf(0, 1), u"<p>/BASI/D.MP3</p>"_qs);
    chooseList(2);
    QCOMPARE(column(songs(), 0).last(), u"(non in questo elenco)"_qs);
}

void TestMemoryLists::showsMarkupAsText()
{
    m_memory->patch(u"title.id2"_qs, 4, Sample::field("<b>BOLD</b>", 58));
    open();
    QCOMPARE(column(songs(), 0).first(), u"<b>BOLD</b>"_qs);
    QVERIFY(tipOf(0, 0).contains(u"&lt;b&gt;BOLD"_qs));
}

void TestMemoryLists::marksSongsAfterTheLook()
{
    m_memory->remove(u"A.MID"_qs);
    open();
    QCOMPARE(column(songs(), 5).at(1), u"il file non c'è"_qs);
    m_memory->write(u"A.MID"_qs, m_memory->read(u"C.KAR"_qs));
    dateSongs(*m_memory);
    m_window->readAgain();
    QCOMPARE(column(songs(), 5).at(1), QString());
    waitForLook();
    QCOMPARE(column(songs(), 5).at(1), QString());
}

void TestMemoryLists::jumpsByTheAlphabet()
{
    open();
    QCOMPARE(jumps(true), u"FOT"_qs);
    jump(u"T"_qs);
    QCOMPARE(current(), u"THREE"_qs);
    QVERIFY(songs()->hasFocus() || !songs()->isActiveWindow());
    chooseList(2);
    QCOMPARE(jumps(true), u"PR"_qs);
    jump(u"R"_qs);
    QCOMPARE(current(), u"ROCK"_qs);
    const QWidget *button = find<QToolBar>("jumpsToolBar")
                                ->widgetForAction(find<QToolBar>("jumpsToolBar")->actions().at(0));
    QCOMPARE(button->accessibleName(), u"Vai a P"_qs);
    QCOMPARE(button->toolTip(), u"Va al primo testo che comincia con P"_qs);
    m_sample->changeLanguage(u"en"_qs);
    QCOMPARE(find<QToolBar>("jumpsToolBar")->actions().at(0)->toolTip(),
             u"Goes to the first text that begins with P"_qs);
}

void TestMemoryLists::disablesJumpsThatLeadNowhere()
{
    m_memory->write(u"atitle.id2"_qs,
                    Sample::alphabet({{0, "00000000"}, {24, "00000040"}, {152, "00001000"}}));
    open();
    QCOMPARE(jumps(true), u"\u2423&&"_qs);
    QCOMPARE(jumps(false), u"F"_qs);
    QCOMPARE(find<QToolBar>("jumpsToolBar")->actions().last()->toolTip(),
             u"La voce F della tabella di Brisel non porta a nulla"_qs);
    QCOMPARE(find<QToolBar>("jumpsToolBar")->actions().first()->toolTip(),
             u"Va al primo testo che comincia con lo spazio"_qs);
    m_memory->remove(u"atitle.id2"_qs);
    m_window->readAgain();
    QVERIFY(find<QToolBar>("jumpsToolBar")->isHidden());
}

void TestMemoryLists::searches()
{
    open();
    QCOMPARE(text("songCountLabel"), QString());
    field()->setText(u"anna bpm>100"_qs);
    QCOMPARE(column(songs(), 0), QStringList({u"ONE"_qs, u"THREE"_qs}));
    QCOMPARE(text("songCountLabel"), u"2 di 4"_qs);
    m_sample->changeLanguage(u"en"_qs);
    QCOMPARE(text("songCountLabel"), u"2 of 4"_qs);
    field()->setText(u"nothing"_qs);
    QCOMPARE(songs()->model()->rowCount(), 0);
    QCOMPARE(text("songCountLabel"), u"0 of 4"_qs);
    field()->clear();
    QCOMPARE(songs()->model()->rowCount(), 4);
}

void TestMemoryLists::searchesByKeys()
{
    open();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    songs()->setFocus();
    QTest::keyClick(m_window, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(field()->hasFocus());
    DialogScript::type(field(), u"t"_qs);
    QTest::keyClick(field(), Qt::Key_Down);
    QVERIFY(songs()->hasFocus());
    QCOMPARE(current(), u"THREE"_qs);
    QTest::keyClick(songs(), Qt::Key_Escape);
    QCOMPARE(field()->text(), QString());
    QCOMPARE(songs()->model()->rowCount(), 4);
    QTest::keyClick(songs(), Qt::Key_O);
    QCOMPARE(current(), u"ONE"_qs);
    field()->setFocus();
    field()->setText(u"two"_qs);
    QTest::keyClick(field(), Qt::Key_Return);
    QVERIFY(songs()->hasFocus());
    QCOMPARE(current(), u"TWO"_qs);
    field()->setFocus();
    QTest::keyClick(field(), Qt::Key_Escape);
    QCOMPARE(songs()->model()->rowCount(), 4);
    QVERIFY(m_window->isVisible());
}

void TestMemoryLists::opensGroupsWithFewSongs()
{
    open();
    chooseList(1);
    QVERIFY(!songs()->isExpanded(group(songs(), 0)));
    field()->setText(u"three"_qs);
    QCOMPARE(column(songs(), 0), QStringList(u"ANNA"_qs));
    QCOMPARE(column(songs(), 1), QStringList(u"1 song"_qs));
    QVERIFY(songs()->isExpanded(group(songs(), 0)));
}

void TestMemoryLists::keepsTheCurrentSong()
{
    open();
    songs()->setCurrentIndex(songs()->model()->index(2, 0));
    field()->setText(u"anna"_qs);
    QCOMPARE(current(), u"THREE"_qs);
    chooseList(2);
    QCOMPARE(current(), u"THREE"_qs);
    songs()->setCurrentIndex(group(songs(), 0));
    m_window->readAgain();
    QCOMPARE(field()->text(), u"anna"_qs);
    QCOMPARE(column(songs(), 0), QStringList({u"POP"_qs, u"ROCK"_qs}));
}

void TestMemoryLists::keepsTheCurrentSongOverARebuild()
{
    open();
    songs()->setCurrentIndex(songs()->model()->index(2, 0));
    QCOMPARE(current(), u"THREE"_qs);
    // "TWO", in the last record, and "THREE" exchange their ids.
    m_memory->patch(u"title.id2"_qs, 2 * 64, Sample::hex("00000001"));
    m_memory->patch(u"title.id2"_qs, 3 * 64, Sample::hex("00000003"));
    m_memory->patch(u"index.id2"_qs, 1 * 64, Sample::hex("00000003"));
    m_memory->patch(u"index.id2"_qs, 2 * 64, Sample::hex("00000001"));
    m_window->readAgain();
    QCOMPARE(current(), u"THREE"_qs);
}

void TestMemoryLists::choosesSongs()
{
    m_memory->patch(u"genre.id2"_qs, 64, Sample::hex("00000009")); // "FOUR" without a path
    open();
    const PlayerView &view = *m_window->findChild<PlayerView *>();
    const QSignalSpy spy(&view, &PlayerView::choiceChanged);
    QCOMPARE(view.chosenSongs(), QList<qsizetype>());
    songs()->selectAll();
    QCOMPARE(view.chosenSongs(), QList<qsizetype>({3, 0, 2, 1}));
    QCOMPARE(spy.size(), 1);
    chooseList(2);
    songs()->clearSelection();
    songs()->setCurrentIndex(group(songs(), 0)); // a group stands for its songs
    QCOMPARE(view.chosenSongs(), QList<qsizetype>({0}));
}

void TestMemoryLists::dragsSongs()
{
    open();
    const QAbstractItemModel *model = songs()->model();
    QVERIFY(songs()->dragEnabled());
    const std::unique_ptr<QMimeData> data(
        model->mimeData({model->index(2, 0), model->index(2, 1), model->index(0, 0)}));
    QCOMPARE(data->formats(), QStringList(songDragType));
    QCOMPARE(idsFromDrag(m_memory->root(), data->data(songDragType)), QList<quint32>({7, 3}));
    QVERIFY(model->flags(model->index(0, 0)).testFlag(Qt::ItemIsDragEnabled));
    chooseList(1);
    const std::unique_ptr<QMimeData> whole(model->mimeData({model->index(1, 0)}));
    QCOMPARE(idsFromDrag(m_memory->root(), whole->data(songDragType)), QList<quint32>({7, 1}));
}

void TestMemoryLists::asksForAMenu()
{
    open();
    const PlayerView *player = m_window->findChild<PlayerView *>();
    const FoldersView *view = m_window->findChild<FoldersView *>();
    player->disconnect(m_window); // the menu would wait for an answer
    view->disconnect(m_window);
    QSignalSpy spy(player, &PlayerView::contextMenuRequested);
    emit songs()->customContextMenuRequested({3, 4});
    QCOMPARE(spy.takeFirst().first().toPoint(), songs()->viewport()->mapToGlobal(QPoint(3, 4)));
    QSignalSpy folderSpy(view, &FoldersView::contextMenuRequested);
    emit folders()->customContextMenuRequested({3, 4});
    QCOMPARE(folderSpy.size(), 1);
}

void TestMemoryLists::showsFolders()
{
    m_memory->write(u"NEW.MID"_qs, "12345");
    m_memory->write(u"LONGNAMES.MID"_qs, "1");
    m_memory->write(u"X.CDG"_qs, "123456");
    m_memory->write(u".brisel2pc/names"_qs, QByteArray(2048, 'x'));
    open();
    QCOMPARE(column(folders(), 0),
             QStringList({u"Nuove, non ancora nell'indice: 2"_qs, u"Troppo lunghi: 1"_qs,
                          u"Non leggibili: 1"_qs, u"Grafica senza il suo MP3: 1"_qs,
                          u"Cartella di lavoro del programma: 1"_qs}));
    const auto row = [this](int number) {
        QStringList texts;
        for (int i = 0; i < 3; ++i)
            texts.append(column(folders(), i, group(folders(), number)).last());
        return texts.join(u'|');
    };
    QCOMPARE(row(0), u"/NEW.MID|5 bytes|"_qs);
    QCOMPARE(row(1), u"/LONGNAMES.MID||il nome ha più di otto caratteri"_qs);
    QCOMPARE(row(2), u"/LONGNAMES.MID|1 bytes|il file è vuoto o troppo corto"_qs);
    QCOMPARE(row(3), u"/X.CDG|6 bytes|"_qs);
    QVERIFY2(row(4).startsWith(u"/.brisel2pc|2.0 kB|qui il programma tiene"_qs),
             qPrintable(row(4)));
    QVERIFY(folders()->isExpanded(group(folders(), 0)));
    QVERIFY(find<QLabel>("foldersLabel")->isHidden());
    m_sample->changeLanguage(u"en"_qs);
    QCOMPARE(column(folders(), 0).first(), u"New, not yet in the index: 2"_qs);
    QCOMPARE(folders()->model()->headerData(1, Qt::Horizontal).toString(), u"Size"_qs);
}

void TestMemoryLists::findsDuplicates()
{
    open();
    QCOMPARE(text("foldersLabel"), u"Sulla memoria ci sono solo le song dell'indice"_qs);
    find<QTabWidget>("tabWidget")->setCurrentIndex(1);
    DialogScript::click(m_window, u"duplicatesPushButton"_qs);
    QTRY_COMPARE(text("foldersLabel"), u"Nessun doppione"_qs);
    m_memory->write(u"X.MID"_qs, m_memory->read(u"A.MID"_qs));
    m_window->readAgain();
    waitForLook();
    QCOMPARE(column(folders(), 0), QStringList(u"Nuove, non ancora nell'indice: 1"_qs));
    DialogScript::click(m_window, u"duplicatesPushButton"_qs);
    QTRY_COMPARE(column(folders(), 0).last(), u"Doppioni: 2"_qs);
    const QModelIndex duplicates = group(folders(), 1);
    QCOMPARE(column(folders(), 0, duplicates), QStringList({u"/A.MID"_qs, u"/X.MID"_qs}));
    QCOMPARE(column(folders(), 2, duplicates),
             QStringList({u"uguale a /X.MID"_qs, u"uguale a /A.MID"_qs}));
}

void TestMemoryLists::keepsACopyOfDuplicates()
{
    m_memory->write(u"X.MID"_qs, m_memory->read(u"A.MID"_qs));
    m_memory->write(u"Y.MID"_qs, m_memory->read(u"C.KAR"_qs));
    open();
    find<QTabWidget>("tabWidget")->setCurrentIndex(1);
    DialogScript::click(m_window, u"duplicatesPushButton"_qs);
    QTRY_COMPARE(column(folders(), 0).last(), u"Doppioni: 4"_qs);
    const FoldersView &view = *m_window->findChild<FoldersView *>();
    const auto expectQuestion = [this](const QString &start) {
        m_sample->script.expect("QMessageBox", [start](QWidget *widget) {
            const QString text = qobject_cast<QMessageBox *>(widget)->informativeText();
            QVERIFY2(text.startsWith(start), qPrintable(text));
            widget->close();
        });
    };
    QAction *remove = find<QToolBar>("songActionsToolBar")->actions().first();
    const QModelIndex duplicates = group(folders(), 1);
    folders()->setCurrentIndex(duplicates);
    QCOMPARE(view.chosenPaths(),
             QStringList({m_memory->path(u"X.MID"_qs), m_memory->path(u"Y.MID"_qs)}));
    expectQuestion(u"Nessuna playlist"_qs);
    remove->trigger();
    QVERIFY(m_sample->script.isDone());
    // With the first copy, too.
    const QModelIndex copy = folders()->model()->index(2, 0, duplicates);
    folders()->selectionModel()->select(copy,
                                        QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QCOMPARE(view.chosenPaths().size(), 3);
    expectQuestion(u"Di 1 song sono scelte tutte le copie: non ne resterà nessuna.\n"_qs);
    remove->trigger();
    QVERIFY(m_sample->script.isDone());
    QVERIFY(m_memory->has(u"X.MID"_qs));
}

void TestMemoryLists::interruptsTheSearchForDuplicates()
{
    m_memory->write(u"X.MID"_qs, m_memory->read(u"A.MID"_qs));
    open();
    find<QTabWidget>("tabWidget")->setCurrentIndex(1);
    const auto *button = find<QPushButton>("duplicatesPushButton");
    DialogScript::click(m_window, u"duplicatesPushButton"_qs);
    QCOMPARE(button->text(), u"&Interrompi"_qs);
    QVERIFY(find<QWidget>("duplicatesProgressBar")->isVisible());
    DialogScript::click(m_window, u"duplicatesPushButton"_qs);
    QCOMPARE(button->text(), u"Cerca &doppioni"_qs);
    QVERIFY(!find<QWidget>("duplicatesProgressBar")->isVisible());
    QTest::qWait(30);
    QCOMPARE(column(folders(), 0).size(), 1);
    DialogScript::click(m_window, u"duplicatesPushButton"_qs);
    m_window->readAgain(); // ends it, too
    QCOMPARE(button->text(), u"Cerca &doppioni"_qs);
    QVERIFY(!button->isEnabled());
}

void TestMemoryLists::choosesPaths()
{
    m_memory->write(u"N1.MID"_qs, "12345");
    m_memory->write(u"N2.MID"_qs, "12345");
    m_memory->write(u"X.CDG"_qs, "123456");
    open();
    const FoldersView &view = *m_window->findChild<FoldersView *>();
    const QSignalSpy spy(&view, &FoldersView::choiceChanged);
    QCOMPARE(view.chosenPaths(), QStringList());
    folders()->selectAll();
    QCOMPARE(view.chosenPaths(),
             QStringList({m_memory->path(u"N1.MID"_qs), m_memory->path(u"N2.MID"_qs),
                          m_memory->path(u"X.CDG"_qs)}));
    QVERIFY(spy.size() > 0);
    folders()->clearSelection();
    folders()->setCurrentIndex(folders()->model()->index(1, 0, group(folders(), 0)));
    QCOMPARE(view.chosenPaths(), QStringList(m_memory->path(u"N2.MID"_qs)));
    folders()->setCurrentIndex(group(folders(), 0));
    QCOMPARE(view.chosenPaths().size(), 2);
}

BRISEL_TEST(QApplication, TestMemoryLists)
#include "tst_memorylists.moc"
