#pragma once

#include "history/history.h"
#include "library/dialogs/historymodel.h"
#include "tests/app/reporttest.h"

#include <QAction>
#include <QTreeView>

namespace brisel
{

/// Common functions for tests of the history of changes through the real window.
class HistoryTest : public ReportTest
{
protected:
    void openEmpty()
    {
        QFile::remove(History::defaultPath());
        openWindow();
    }
    using Step = std::function<void(QDialog *dialog, QTreeView *tree)>;

    /// Opens the history by its menu entry; \a step works in it, and it is closed.
    void openHistory(const Step &step)
    {
        expectHistory(step);
        triggerHistory();
    }
    void expectHistory(const Step &step)
    {
        m_script->expect("HistoryDialog", [step](QWidget *widget) {
            auto *dialog = qobject_cast<QDialog *>(widget);
            step(dialog, widget->findChild<QTreeView *>());
            if (dialog->isVisible())
                DialogScript::click(widget, u"closePushButton"_qs);
        });
    }
    void triggerHistory()
    {
        m_window->findChild<QAction *>(u"actionHistory"_qs)->trigger();
        verifyScript();
    }
    void synchronise(const QStringList &names)
    {
        importSongs(names, true);
        expectBackup(u"exitPushButton"_qs);
        clickSync();
        verifyScript();
    }
    static QString text(const QModelIndex &index, int column)
    {
        return index.siblingAtColumn(column).data().toString();
    }
    /// The texts in a column of the children of \a parent, which is opened.
    static QStringList texts(QTreeView *tree, const QModelIndex &parent, int column)
    {
        tree->expand(parent);
        QStringList found;
        for (int row = 0; row < tree->model()->rowCount(parent); ++row)
            found.append(text(tree->model()->index(row, 0, parent), column));
        return found;
    }
    static void restore(QDialog *dialog, QTreeView *tree, const QModelIndex &index)
    {
        tree->setCurrentIndex(index);
        DialogScript::click(dialog, u"restorePushButton"_qs);
    }
    /// Restores the newest run; a question is answered with \a answer.
    void restoreNewestRun(std::optional<Run::Answer> answer = {})
    {
        m_script->expect("HistoryDialog", [](QWidget *widget) {
            auto *tree = widget->findChild<QTreeView *>();
            restore(qobject_cast<QDialog *>(widget), tree, tree->model()->index(0, 0));
        });
        if (answer.has_value())
            expectQuestion(*answer);
        m_window->findChild<QAction *>(u"actionHistory"_qs)->trigger();
        verifyScript();
    }
    static QString message(const QDialog *dialog)
    {
        const auto *label = dialog->findChild<QLabel *>(u"messageLabel"_qs);
        return label->isVisible() ? label->text() : QString();
    }
};

} // namespace brisel
