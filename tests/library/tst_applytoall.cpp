#include "library/dialogs/dataeditdialog.h"

#include "songfile/songinfo.h"
#include "tests/dialogscript.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QRadioButton>
#include <QTest>

using namespace brisel;

/// The checkboxes of the edit dialog that copy a field to the whole list, and their questions.
class TestApplyToAll : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void asksBefore_data();
    void asksBefore();
    void showsHowManySongsChange_data();
    void showsHowManySongsChange();
    void keysAnswerWithoutADefault_data();
    void keysAnswerWithoutADefault();
    void untickingAsksNothing();

private:
    template <typename Widget>
    Widget *find(const char *name) const
    {
        return m_dialog->findChild<Widget *>(QString::fromLatin1(name));
    }

    std::unique_ptr<DataEditDialog> m_dialog;
};

void TestApplyToAll::init()
{
    m_dialog = std::make_unique<DataEditDialog>();
    SongInfo info;
    info.fileName = u"/songs/MY.SONG.mid"_qs;
    m_dialog->setOtherInfo(info);
}

void TestApplyToAll::asksBefore_data()
{
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("answer");
    const struct {
        const char *box;
        QString text;
    } questions[] = {
        {"checkBoxToAllAuthor", u"L'autore inserito verrà applicato a tutte le song della lista, "
                                "sei sicuro?"_qs},
        {"checkBoxToAllArtist", u"L'interprete inserito verrà applicato a tutte le song della "
                                "lista, sei sicuro?"_qs},
        {"checkBoxToAllGenre", u"Il genere inserito verrà applicato a tutte le song della lista, "
                               "sei sicuro?"_qs},
        {"checkBoxToAllTitle", u"Il titolo di tutte le song della lista verrà sovrascritto non il "
                               "nome del file, sei sicuro?"_qs},
    };
    for (const auto &question : questions) {
        for (const int answer : {int(QMessageBox::Yes), int(QMessageBox::No)})
            QTest::addRow("%s %s", question.box, answer == QMessageBox::Yes ? "Yes" : "No")
                << QByteArray(question.box) << question.text << answer;
    }
}

void TestApplyToAll::asksBefore()
{
    QFETCH(QByteArray, box);
    QFETCH(QString, text);
    QFETCH(int, answer);
    m_dialog->show();
    QTest::mouseClick(find<QRadioButton>("radioButtonTitle2"), Qt::LeftButton);
    DialogScript script;
    script.expectMessage(u"ATTENZIONE"_qs, text, answer);
    QTest::mouseClick(find<QCheckBox>(box.constData()), Qt::LeftButton);
    QVERIFY2(script.isDone(), qPrintable(script.problems().join(u'\n')));
    const bool yes = answer == QMessageBox::Yes;
    QCOMPARE(find<QCheckBox>(box.constData())->isChecked(), yes);
    QCOMPARE(m_dialog->isApplyToAllAuthor(), yes && box == "checkBoxToAllAuthor");
    QCOMPARE(m_dialog->isApplyToAllArtist(), yes && box == "checkBoxToAllArtist");
    QCOMPARE(m_dialog->isApplyToAllGenre(), yes && box == "checkBoxToAllGenre");
    QCOMPARE(m_dialog->isApplyToAllFname(), yes && box == "checkBoxToAllTitle");
}

void TestApplyToAll::showsHowManySongsChange_data()
{
    QTest::addColumn<int>("songs");
    QTest::addColumn<int>("hidden");
    QTest::addColumn<QString>("shown");
    QTest::newRow("unknown") << 0 << 0 << QString();
    QTest::newRow("all in sight") << 364 << 0 << u"Song da modificare: 364"_qs;
    QTest::newRow("a search hides some")
        << 364 << 356 << u"Song da modificare: 364\nAnche quelle nascoste dalla ricerca: 356"_qs;
}

void TestApplyToAll::showsHowManySongsChange()
{
    QFETCH(int, songs);
    QFETCH(int, hidden);
    QFETCH(QString, shown);
    m_dialog->setListSize(songs, hidden);
    m_dialog->show();
    DialogScript script;
    script.expect("QMessageBox", [shown](QWidget *widget) {
        auto *question = qobject_cast<QMessageBox *>(widget);
        QCOMPARE(question->informativeText(), shown);
        QCOMPARE(question->focusWidget(), question->button(QMessageBox::No));
        QTest::keyClick(question->focusWidget(), Qt::Key_Return);
    });
    QTest::mouseClick(find<QCheckBox>("checkBoxToAllAuthor"), Qt::LeftButton);
    QVERIFY2(script.isDone(), qPrintable(script.problems().join(u'\n')));
    QVERIFY(!m_dialog->isApplyToAllAuthor());
}

void TestApplyToAll::keysAnswerWithoutADefault_data()
{
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("applies");
    for (const char *box : {"checkBoxToAllAuthor", "checkBoxToAllArtist", "checkBoxToAllGenre",
                            "checkBoxToAllTitle"}) {
        QTest::addRow("%s Return", box) << QByteArray(box) << int(Qt::Key_Return) << false;
        QTest::addRow("%s Left Return", box) << QByteArray(box) << int(Qt::Key_Left) << true;
        QTest::addRow("%s Escape", box) << QByteArray(box) << int(Qt::Key_Escape) << false;
    }
}

/// Return presses the button that has the focus, at first "No", and so does Escape.
void TestApplyToAll::keysAnswerWithoutADefault()
{
    QFETCH(QByteArray, box);
    QFETCH(int, key);
    QFETCH(bool, applies);
    m_dialog->show();
    QTest::mouseClick(find<QRadioButton>("radioButtonTitle2"), Qt::LeftButton);
    DialogScript script;
    script.expect("QMessageBox", [key](QWidget *widget) {
        auto *question = qobject_cast<QMessageBox *>(widget);
        QVERIFY(question->defaultButton() == nullptr);
        QCOMPARE(question->standardButtons(), QMessageBox::Yes | QMessageBox::No);
        if (key == Qt::Key_Left) {
            QTest::keyClick(question->focusWidget(), Qt::Key_Left);
            QTest::keyClick(question->focusWidget(), Qt::Key_Return);
        } else {
            QTest::keyClick(question->focusWidget(), Qt::Key(key));
        }
    });
    QTest::mouseClick(find<QCheckBox>(box.constData()), Qt::LeftButton);
    QVERIFY2(script.isDone(), qPrintable(script.problems().join(u'\n')));
    QCOMPARE(find<QCheckBox>(box.constData())->isChecked(), applies);
}

void TestApplyToAll::untickingAsksNothing()
{
    m_dialog->show();
    find<QCheckBox>("checkBoxToAllGenre")->setChecked(true);
    DialogScript script;
    QTest::mouseClick(find<QCheckBox>("checkBoxToAllGenre"), Qt::LeftButton);
    QVERIFY(script.isDone());
    QVERIFY(!m_dialog->isApplyToAllGenre());
}

BRISEL_TEST(QApplication, TestApplyToAll)
#include "tst_applytoall.moc"
