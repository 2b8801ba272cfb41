#include "library/dialogs/dataeditdialog.h"

#include "songfile/songinfo.h"
#include "tests/testprogram.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace brisel;

/// The list of artists in the edit dialog: its order, and what is offered during typing.
class TestPopupCompleter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_dialog.reset(); }
    void showsArtistsInAlphabeticalOrder();
    void offersEntriesWithTheTypedText();
    void keepsTheTypedText_data();
    void keepsTheTypedText();
    void takesTheChosenEntry();
    void returnSavesWithTheListOpen();
    void fillsTitleAndArtistFromTheFileName();

private:
    QLineEdit *edit() const
    {
        return m_dialog->findChild<QComboBox *>(u"artistComboBox"_qs)->lineEdit();
    }
    QAbstractItemView *offered() const
    {
        return m_dialog->findChild<QComboBox *>(u"artistComboBox"_qs)
            ->findChild<QCompleter *>()
            ->popup();
    }
    /// Types as a user does: while the list is open it gets the keys.
    void type(const QString &text)
    {
        for (const QChar character : text)
            QTest::keyClick(offered()->isVisible() ? static_cast<QWidget *>(offered()) : edit(),
                            character.toLatin1());
    }
    QString artist() const
    {
        SongInfo info;
        m_dialog->getInfo(info);
        return info.artist;
    }

    std::unique_ptr<DataEditDialog> m_dialog;
};

void TestPopupCompleter::init()
{
    m_dialog = std::make_unique<DataEditDialog>();
    m_dialog->setArtistsCombo({u"QUEEN"_qs, u"Zorro"_qs, u"àncora"_qs, u"anna"_qs, u"Beta"_qs,
                               u"ANNA ROSSI"_qs, u"The Queens"_qs});
    SongInfo info;
    info.fileName = u"/songs/03 - Anna Bianchi - Il mare.mid"_qs;
    m_dialog->setOtherInfo(info);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    edit()->setFocus();
}

void TestPopupCompleter::showsArtistsInAlphabeticalOrder()
{
    const auto *combo = m_dialog->findChild<QComboBox *>(u"artistComboBox"_qs);
    QStringList shown;
    for (int i = 0; i < combo->count(); ++i)
        shown.append(combo->itemText(i));
    QCOMPARE(shown, QStringList({u"àncora"_qs, u"anna"_qs, u"ANNA ROSSI"_qs, u"Beta"_qs,
                                 u"QUEEN"_qs, u"The Queens"_qs, u"Zorro"_qs}));
}

void TestPopupCompleter::offersEntriesWithTheTypedText()
{
    type(u"queen"_qs);
    QVERIFY(offered()->isVisible());
    QCOMPARE(offered()->model()->rowCount(), 2);
    QVERIFY(!offered()->currentIndex().isValid());
    type(u"x"_qs);
    QVERIFY(!offered()->isVisible());
}

void TestPopupCompleter::keepsTheTypedText_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Tab") << int(Qt::Key_Tab);
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

void TestPopupCompleter::keepsTheTypedText()
{
    QFETCH(int, key);
    type(u"queen"_qs);
    QTest::keyClick(offered(), Qt::Key(key));
    QVERIFY(!offered()->isVisible());
    QCOMPARE(artist(), u"queen"_qs);
    QCOMPARE(edit()->hasFocus(), key == Qt::Key_Escape); // Return closes the dialog
    m_dialog->findChild<QLineEdit *>(u"titleLineEdit"_qs)->setFocus();
    QCOMPARE(artist(), u"queen"_qs);
}

void TestPopupCompleter::takesTheChosenEntry()
{
    type(u"queen"_qs);
    QTest::keyClick(offered(), Qt::Key_Down);
    QCOMPARE(edit()->text(), u"queen"_qs);
    QTest::keyClick(offered(), Qt::Key_Return);
    QCOMPARE(artist(), u"QUEEN"_qs);
    QVERIFY(m_dialog->isVisible());
}

void TestPopupCompleter::returnSavesWithTheListOpen()
{
    const QSignalSpy accepted(m_dialog.get(), &QDialog::accepted);
    type(u"queen"_qs);
    QTest::keyClick(offered(), Qt::Key_Return);
    QCOMPARE(accepted.size(), 1);
    QCOMPARE(artist(), u"queen"_qs);
}

void TestPopupCompleter::fillsTitleAndArtistFromTheFileName()
{
    auto *button = m_dialog->findChild<QPushButton *>(u"fromNamePushButton"_qs);
    QTest::mouseClick(button, Qt::LeftButton);
    SongInfo info;
    m_dialog->getInfo(info);
    QCOMPARE(info.artist, u"Anna Bianchi"_qs);
    QCOMPARE(info.title, u"Il mare"_qs);
    info.fileName = u"/songs/Il mare.mid"_qs;
    info.artist = u"Kept"_qs;
    m_dialog->setOtherInfo(info);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(artist(), u"Kept"_qs);
}

BRISEL_TEST(QApplication, TestPopupCompleter)
#include "tst_popupcompleter.moc"
