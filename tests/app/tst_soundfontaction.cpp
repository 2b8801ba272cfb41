#include "base/settings.h"
#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QMessageBox>

using namespace brisel;

/// The choice of a sound font in the menu of preferences.
class TestSoundFontAction : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsTheChosenOne();
    void storesAChoice_data();
    void storesAChoice();
    void keepsTheChoiceWhenNothingIsPicked();
    void returnsToTheSystemsOwn_data();
    void returnsToTheSystemsOwn();
    void closingChangesNothing();

private:
    static QSettings &settings()
    {
        static QSettings settings(settingsOrganisation, settingsApplication);
        return settings;
    }
    static void addButton(const QString &italian, const QString &english)
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("button");
        QTest::newRow("it") << u"it"_qs << italian;
        QTest::newRow("en") << u"en"_qs << english;
    }
    static QString stored() { return Settings::soundFont.in(settings()); }
    void trigger() const
    {
        m_sample->window->findChild<QAction *>(u"actionSoundFont"_qs)->trigger();
    }
    /// Presses the button with \a text in the next message box, or Escape.
    void expectButton(const QString &text)
    {
        m_sample->script.expect("QMessageBox", [this, text](QWidget *widget) {
            m_shown = qobject_cast<QMessageBox *>(widget)->informativeText();
            for (auto *button : widget->findChildren<QPushButton *>()) {
                if (button->text() == text) {
                    QTest::mouseClick(button, Qt::LeftButton);
                    return;
                }
            }
            QTest::keyClick(widget, Qt::Key_Escape);
        });
    }

    std::unique_ptr<SampleWindow> m_sample;
    QString m_shown;
};

void TestSoundFontAction::init()
{
    m_sample = std::make_unique<SampleWindow>();
    Settings::soundFont.store(settings(), u"/chosen/before.sf2"_qs);
}

void TestSoundFontAction::cleanup()
{
    closeVerified(m_sample);
}

void TestSoundFontAction::showsTheChosenOne()
{
    expectButton({});
    trigger();
    QCOMPARE(m_shown, u"/chosen/before.sf2"_qs);
}

void TestSoundFontAction::storesAChoice_data()
{
    addButton(u"Sc&egli un file..."_qs, u"C&hoose a file..."_qs);
}

void TestSoundFontAction::storesAChoice()
{
    QFETCH(QString, language);
    QFETCH(QString, button);
    m_sample->changeLanguage(language);
    const QString path = m_sample->at(u"mine.sf2"_qs);
    makeFile(path, "RIFF");
    expectButton(button);
    m_sample->script.expectFiles({path});
    trigger();
    QCOMPARE(stored(), path);
}

void TestSoundFontAction::keepsTheChoiceWhenNothingIsPicked()
{
    expectButton(u"Sc&egli un file..."_qs);
    m_sample->script.expectFilesCancelled();
    trigger();
    QCOMPARE(stored(), u"/chosen/before.sf2"_qs);
}

void TestSoundFontAction::returnsToTheSystemsOwn_data()
{
    addButton(u"&Usa quello del sistema"_qs, u"&Use the system's own"_qs);
}

void TestSoundFontAction::returnsToTheSystemsOwn()
{
    QFETCH(QString, language);
    QFETCH(QString, button);
    m_sample->changeLanguage(language);
    expectButton(button);
    trigger();
    QCOMPARE(stored(), QString());
}

void TestSoundFontAction::closingChangesNothing()
{
    expectButton({});
    trigger();
    QCOMPARE(stored(), u"/chosen/before.sf2"_qs);
}

BRISEL_TEST(QApplication, TestSoundFontAction)
#include "tst_soundfontaction.moc"
