#include "library/dialogs/wheelguard.h"

#include "library/dialogs/dataeditdialog.h"
#include "songfile/metasong.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

using namespace brisel;

class TestWheelGuard : public QObject
{
    Q_OBJECT

private slots:
    void leavesUnfocusedListsOfTheEditDialog_data();
    void leavesUnfocusedListsOfTheEditDialog();
    void leavesAnUnfocusedNumber();

private:
    /// Turns the wheel by one notch over the middle of \a control, as the system reports it.
    static void turnWheel(QWidget *control)
    {
        QWidget *window = control->window();
        const QPointF place = control->mapTo(window, control->rect().center());
        QWheelEvent event(place, window->mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event); // others do not reach the parent of a line edit
        qApp->notify(window->windowHandle(), &event);
    }
};

void TestWheelGuard::leavesUnfocusedListsOfTheEditDialog_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("artist") << u"artistComboBox"_qs;
    QTest::newRow("genre") << u"genreComboBox"_qs;
    QTest::newRow("key") << u"keyComboBox"_qs;
}

void TestWheelGuard::leavesUnfocusedListsOfTheEditDialog()
{
    QFETCH(QString, name);
    DataEditDialog dialog;
    dialog.setArtistsCombo({u"A"_qs, u"B"_qs, u"C"_qs});
    dialog.setGenresCombo({u"A"_qs, u"B"_qs, u"C"_qs});
    dialog.setKeysCombo(MetaSong::getKeysList());
    SongInfo info;
    info.artist = info.genre = u"Typed"_qs;
    info.key = MetaSong::getKeysList().at(2);
    dialog.setOtherInfo(info);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    auto *combo = dialog.findChild<QComboBox *>(name);
    const QString before = combo->currentText();
    turnWheel(combo);
    QCOMPARE(combo->currentText(), before);
    QVERIFY(!combo->hasFocus());
    combo->setFocus();
    turnWheel(combo);
    QVERIFY(combo->currentText() != before);
}

void TestWheelGuard::leavesAnUnfocusedNumber()
{
    QDialog dialog;
    auto *layout = new QVBoxLayout(&dialog);
    auto *first = new QLineEdit;
    auto *number = new QSpinBox;
    layout->addWidget(first);
    layout->addWidget(number);
    number->setValue(50);
    new WheelGuard(dialog);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    first->setFocus();
    turnWheel(number);
    QCOMPARE(number->value(), 50);
    number->setFocus();
    turnWheel(number);
    QCOMPARE(number->value(), 49);
}

BRISEL_TEST(QApplication, TestWheelGuard)
#include "tst_wheelguard.moc"
