#pragma once

#include "tests/app/workflowtest.h"

#include <QPlainTextEdit>

namespace brisel
{

/// Common functions for tests of the report, which read it as a user does.
class ReportTest : public WorkflowTest
{
protected:
    QPushButton *details() const
    {
        return m_window->findChild<QPushButton *>(u"detailsPushButton"_qs);
    }
    /// The text of the status bar about the last run.
    QString outcome() const { return m_window->findChild<QLabel *>(u"outcomeLabel"_qs)->text(); }

    /// The lines of the report, which is opened by the button.
    QStringList reportLines()
    {
        QString text;
        m_script->expect("ReportDialog", [&text](QWidget *widget) {
            text = widget->findChild<QPlainTextEdit *>()->toPlainText();
            DialogScript::click(widget, u"closePushButton"_qs);
        });
        QTest::mouseClick(details(), Qt::LeftButton);
        return m_script->isDone() ? text.split(u'\n', Qt::SkipEmptyParts) : m_script->problems();
    }
    QString line(const QString &lack, const QString &name, const QString &reason) const
    {
        return lack + u" ("_qs + reason + u"): "_qs + at(name);
    }

    /// The lines about the song "one.mid" after its synchronisation.
    QStringList linesOfOne() const
    {
        return {u"Modificata: "_qs + at(u"one.mid"_qs),
                u"    Titolo: «one» → «ONE LOVE»"_qs,
                u"    Artista: (vuoto) → «ARTIST ALT»"_qs,
                u"    Genere: (vuoto) → «FOLK»"_qs,
                u"    Autore: (vuoto) → «AUTHOR»"_qs,
                u"    Durata: (vuoto) → «03:05»"_qs,
                u"    Bpm: (vuoto) → «120»"_qs,
                u"    Tonalità: (vuoto) → «A-»"_qs};
    }

    void importSongs(const QStringList &names, bool published)
    {
        makeSongs(names, published);
        import(names);
    }
};

} // namespace brisel
