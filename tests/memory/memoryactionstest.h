#pragma once

#include "base/filedescriptor.h"
#include "memory/dialogs/memoryactions.h"
#include "tests/dialogscript.h"
#include "tests/index/handmadeset.h"
#include "tests/scriptedrun.h"

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTranslator>

#include <memory>

namespace brisel
{

/// A translation of one action.
class EnglishActions : public QTranslator
{
public:
    QString translate(const char * /*context*/, const char *source, const char * /*comment*/,
                      int /*number*/) const override
    {
        return qstrcmp(source, "Ri&nomina...") == 0 ? u"Rename..."_qs : QString();
    }
    bool isEmpty() const override { return false; }
};

/// The actions over a plain window, for a memory with four songs.
class MemoryActionsTest : public QObject
{
protected:
    void setUp()
    {
        QSettings(u"kordia"_qs, u"brisel2pc"_qs).clear();
        m_memory = std::make_unique<HandMadeSet>();
        qputenv("BRISEL_VOLUMES", QFile::encodeName(QFileInfo(m_memory->root()).path()));
        m_window = std::make_unique<QWidget>();
        m_actions = new MemoryActions(m_window.get());
        m_actions->setUnmountService(nullptr);
        m_changes = 0;
        connect(m_actions, &MemoryActions::changed, this, [this] { ++m_changes; });
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        read();
    }
    void tearDown()
    {
        m_window.reset();
        m_memory.reset();
    }

    /// Reads the memory, as the window does after each change.
    void read()
    {
        const auto contents = std::make_shared<MemoryContents>();
        ScriptedRun run;
        QCOMPARE(contents->read(m_memory->root(), run), MemoryContents::Outcome::Done);
        m_contents = contents;
        m_actions->setContents(m_contents);
    }
    /// Chooses the songs with these paths.
    void choose(const QStringList &names)
    {
        QList<qsizetype> positions;
        for (qsizetype song = 0; song < m_contents->size(); ++song) {
            if (names.contains(m_contents->path(song).mid(1)))
                positions.append(song);
        }
        QCOMPARE(positions.size(), names.size());
        m_actions->setSongs(positions);
    }
    /// \a text without its mnemonic.
    static QString plain(QString text) { return text.remove(u'&'); }
    QList<QAction *> actions() const
    {
        return m_actions->songActions() + m_actions->memoryActions();
    }
    QAction *action(const QString &text) const
    {
        for (QAction *found : actions()) {
            if (plain(found->text()) == text)
                return found;
        }
        qFatal("no action %s", qPrintable(text));
    }
    /// The texts of the enabled actions.
    QStringList enabled() const
    {
        QStringList texts;
        for (const QAction *found : actions()) {
            if (found->isEnabled())
                texts.append(plain(found->text()));
        }
        return texts;
    }
    void trigger(const QString &text) const
    {
        QVERIFY(action(text)->isEnabled());
        action(text)->trigger();
    }
    static void expectYes(DialogScript &script)
    {
        script.expect("QMessageBox", [](QWidget *dialog) {
            qobject_cast<QMessageBox *>(dialog)->button(QMessageBox::Yes)->click();
        });
    }
    /// The report has \a text.
    static void expectReport(DialogScript &script, const QString &text)
    {
        script.expect("brisel::ReportDialog", [text](QWidget *dialog) {
            const QString report = dialog->findChild<QPlainTextEdit *>()->toPlainText();
            QVERIFY2(report.contains(text), qPrintable(report));
            dialog->close();
        });
    }

    const QStringList songTexts{u"Rimuovi dalla memoria..."_qs, u"Rinomina..."_qs,
                                u"Copia sul computer..."_qs};
    const QStringList memoryTexts{u"Aggiorna"_qs, u"Rigenera"_qs, u"Controlla"_qs,
                                  u"Esporta elenco..."_qs, u"Rimozione sicura"_qs};
    std::unique_ptr<HandMadeSet> m_memory;
    std::unique_ptr<QWidget> m_window;
    MemoryActions *m_actions = nullptr;
    std::shared_ptr<const MemoryContents> m_contents;
    int m_changes = 0;
};

} // namespace brisel
