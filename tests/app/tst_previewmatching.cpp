#include "tests/app/previewtest.h"
#include "tests/testprogram.h"

#include <QLineEdit>
#include <QTableWidget>

using namespace brisel;

/// Songs that the preview did not find, matched by hand with a search in the catalogue.
class TestPreviewMatching : public PreviewTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void matchesASongByHand();
    void enterAndDoubleClickSearchForTheSong();
    void goesOnWithTheNextSong();
    void arrowKeysChooseASongWhileTyping();
};

void TestPreviewMatching::matchesASongByHand()
{
    makeFile(at(u"Artist - Kings.mid"_qs), Sample::midi("", true));
    import({u"Artist - Kings.mid"_qs});
    expectPreview([](QWidget *dialog, QTableView *view) {
        QCOMPARE(rows(view), QStringList(u"Artist - Kings.mid|non trovata|||"_qs));
        QVERIFY(!dialog->findChild<QPushButton *>(u"writePushButton"_qs)->isEnabled());
        DialogScript inner;
        inner.expect("CatalogueSearchDialog", [](QWidget *search) {
            auto *results = search->findChild<QTableWidget *>();
            QCOMPARE(results->item(0, 0)->text(), u"THREE KINGS"_qs);
            auto *words = search->findChild<QLineEdit *>(u"searchLineEdit"_qs);
            QCOMPARE(words->text(), u"Artist - Kings"_qs);
            words->selectAll();
            DialogScript::type(words, u"nothing"_qs);
            QCOMPARE(results->rowCount(), 0);
            QVERIFY(!search->findChild<QPushButton *>(u"choosePushButton"_qs)->isEnabled());
            words->selectAll();
            DialogScript::type(words, u"two"_qs);
            QCOMPARE(results->rowCount(), 1);
            DialogScript::click(search, u"choosePushButton"_qs);
        });
        view->setCurrentIndex(view->model()->index(0, 0));
        DialogScript::click(dialog, u"searchPushButton"_qs);
        QVERIFY2(inner.isDone(), qPrintable(inner.problems().join(u'\n')));
        QCOMPARE(rowText(view, 0), u"[x]Artist - Kings.mid|[x]Titolo||TWO SONGS|a mano"_qs);
        DialogScript::click(dialog, u"writePushButton"_qs);
    });
    expectBackup(u"exitPushButton"_qs);
    openPreview();
    QCOMPARE(title(u"Artist - Kings.mid"_qs), u"TWO SONGS"_qs);
    QCOMPARE(statuses(), u"1"_qs);
}

void TestPreviewMatching::enterAndDoubleClickSearchForTheSong()
{
    makeSongs({u"other.mid"_qs}, true);
    import({u"other.mid"_qs});
    expectPreview([](QWidget *dialog, QTableView *view) {
        DialogScript inner;
        for (int i = 0; i < 2; ++i)
            inner.expect("CatalogueSearchDialog", [](QWidget *search) {
                DialogScript::click(search, u"cancelPushButton"_qs);
            });
        view->setFocus();
        view->setCurrentIndex(view->model()->index(0, 0));
        QTest::keyClick(view, Qt::Key_Return);
        const QPoint place = view->visualRect(view->model()->index(0, 1)).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, place);
        QVERIFY2(inner.isDone(), qPrintable(inner.problems().join(u'\n')));
        QCOMPARE(rows(view), QStringList(u"other.mid|non trovata|||"_qs));
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    openPreview();
}

/// Songs that were not found are matched one after the other, by keys alone.
void TestPreviewMatching::goesOnWithTheNextSong()
{
    const QStringList names{u"a.mid"_qs, u"b.mid"_qs, u"c.mid"_qs};
    makeSongs(names, true);
    import(names);
    expectPreview([](QWidget *dialog, QTableView *view) {
        QCOMPARE(view->currentIndex().row(), 0);
        choose(dialog, PreviewModel::Filter::NotFound);
        view->setCurrentIndex(view->model()->index(1, 0));
        for (const QStringList &left : {QStringList{u"a.mid"_qs, u"c.mid"_qs}, {u"a.mid"_qs}}) {
            DialogScript inner;
            inner.expect("CatalogueSearchDialog", [](QWidget *search) {
                auto *words = search->findChild<QLineEdit *>(u"searchLineEdit"_qs);
                words->selectAll();
                DialogScript::type(words, u"two"_qs);
                QTest::keyClick(words, Qt::Key_Return);
            });
            QTest::keyClick(view, Qt::Key_Return);
            QVERIFY2(inner.isDone(), qPrintable(inner.problems().join(u'\n')));
            QCOMPARE(view->model()->rowCount(), left.size());
            QCOMPARE(view->currentIndex().data().toString(), left.last());
        }
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    openPreview();
}

void TestPreviewMatching::arrowKeysChooseASongWhileTyping()
{
    makeSongs({u"other.mid"_qs}, true);
    import({u"other.mid"_qs});
    expectPreview([](QWidget *dialog, QTableView *view) {
        DialogScript inner;
        inner.expect("CatalogueSearchDialog", [](QWidget *search) {
            QCOMPARE(search->findChild<QLabel *>(u"songLabel"_qs)->text(),
                     u"Song da cercare: other.mid"_qs);
            auto *words = search->findChild<QLineEdit *>(u"searchLineEdit"_qs);
            words->selectAll();
            DialogScript::type(words, u"artist"_qs);
            auto *results = search->findChild<QTableWidget *>();
            QVERIFY(results->rowCount() > 1);
            const QWidget *focused = search->focusWidget();
            QTest::keyClick(words, Qt::Key_Down);
            QCOMPARE(results->currentRow(), 1);
            QTest::keyClick(words, Qt::Key_Up);
            QCOMPARE(results->currentRow(), 0);
            QCOMPARE(search->focusWidget(), focused);
            DialogScript::click(search, u"cancelPushButton"_qs);
        });
        QTest::keyClick(view, Qt::Key_Return);
        QVERIFY2(inner.isDone(), qPrintable(inner.problems().join(u'\n')));
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    openPreview();
}

BRISEL_TEST(QApplication, TestPreviewMatching)
#include "tst_previewmatching.moc"
