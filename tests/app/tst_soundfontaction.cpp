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
    void storesAChoice();
    void keepsTheChoiceWhenNothingIsPicked();
    void returnsToTheSystemsOwn();
    void closingChangesNothing();

private:
    static QSettings &settings()
    {
        static QSettings settings(settingsOrganisation, settingsApplication);
        return settings;
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

void TestSoundFontAction::storesAChoice()
{
    const QString path = m_sample->at(u"mine.sf2"_qs);
    makeFile(path, "RIFF");
    expectButton(u"Sc&egli un file..."_qs);
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

void TestSoundFontAction::returnsToTheSystemsOwn()
{
    expectButton(u"&Usa quello del sistema"_qs);
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
