#pragma once

#include "index/dialogs/indexdialog.h"
#include "index/index.h"
#include "tests/dialogscript.h"
#include "tests/index/samplememory.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTest>
#include <QTranslator>

namespace brisel
{

namespace Sample
{

inline const QString boxTitle = QStringLiteral("Ottimizza memoria");
inline const QString success = QStringLiteral("Operazione completata con successo");
inline const QString someErrors =
    QStringLiteral("Durante l'operazione si sono verificati alcuni errori.\n"
                   "Consultare il report per maggiori informazioni.");
inline const QString noPath = QStringLiteral("Il percorso selezionato non esiste");
inline const QString quietReport =
    QStringLiteral("Ottimizzazione memoria in corso...\nOperazione completata");

/// The dialog on a sample memory with two songs, below the test's own mount folder.
class IndexDialogTest : public QObject
{
protected:
    void setUp();
    void tearDown();

    template <typename Widget>
    Widget *child(const char *name) const
    {
        return m_dialog->findChild<Widget *>(QLatin1StringView(name));
    }
    QPushButton *startButton() const { return child<QPushButton>("pushButtonStart"); }
    QString report() const { return child<QPlainTextEdit>("plainTextReport")->toPlainText(); }
    void typePath(const QString &path) const { child<QLineEdit>("lineEditPath")->setText(path); }
    void press(Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::mouseClick(startButton(), Qt::LeftButton, modifiers);
    }
    QByteArray firstId() const { return m_memory->read(QStringLiteral("index.id2")).left(4); }
    void addSongs(int count) const;
    /// Calls \a step from inside the first event loop that runs while the dialog works.
    void duringRun(const std::function<void()> &step);

    std::unique_ptr<SampleMemory> m_memory;
    std::unique_ptr<IndexDialog> m_dialog;
    std::unique_ptr<DialogScript> m_script;
};

inline void IndexDialogTest::setUp()
{
    m_memory = std::make_unique<SampleMemory>();
    qputenv("BRISEL_VOLUMES", QFile::encodeName(QFileInfo(m_memory->root()).path()));
    m_memory->write(QStringLiteral("BASI/A.MID"), midiSong("One", "Anna", "Pop"));
    m_memory->write(QStringLiteral("BASI/B.MP3"), mp3Song("Two", "Bruno", "Rock"));
    QSettings(QStringLiteral("kordia"), QStringLiteral("brisel2pc")).clear();
    m_script = std::make_unique<DialogScript>();
    m_dialog = std::make_unique<IndexDialog>();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    typePath(m_memory->root());
}

inline void IndexDialogTest::tearDown()
{
    QVERIFY2(m_script->isDone(), qPrintable(m_script->problems().join(u'\n')));
    m_dialog.reset();
    m_script.reset();
    m_memory.reset();
}

inline void IndexDialogTest::addSongs(int count) const
{
    for (int i = 0; i < count; ++i)
        m_memory->write(QStringLiteral("MANY/S%1.MID").arg(i), midiSong("Song", "Band", "Pop"));
}

inline void IndexDialogTest::duringRun(const std::function<void()> &step)
{
    auto *timer = new QTimer(m_dialog.get());
    timer->setInterval(0);
    connect(timer, &QTimer::timeout, m_dialog.get(), [this, timer, step] {
        if (startButton()->isEnabled() || QApplication::activeModalWidget() != nullptr)
            return;
        timer->stop();
        step();
    });
    timer->start();
}

} // namespace Sample

} // namespace brisel
