#pragma once

#include "library/dialogs/previewmodel.h"
#include "tests/app/workflowtest.h"

#include <QAction>
#include <QComboBox>

namespace brisel
{

/// Common functions for tests of the preview through the real window.
class PreviewTest : public WorkflowTest
{
protected:
    QAction *action() const { return m_window->findChild<QAction *>(u"actionPreview"_qs); }
    QLabel *statusText() const { return m_window->findChild<QLabel *>(u"reportLabel"_qs); }

    /// The next dialog is the preview: \a step answers it.
    void expectPreview(const std::function<void(QWidget *, QTableView *)> &step)
    {
        m_script->expect("PreviewDialog", [step](QWidget *widget) {
            step(widget, widget->findChild<QTableView *>());
        });
    }
    void openPreview()
    {
        action()->trigger();
        verifyScript();
    }

    /// The texts of a row, with "[x]", "[-]" or "[ ]" before those with a tick.
    static QString rowText(const QTableView *view, int row)
    {
        QStringList texts;
        for (int column = 0; column < view->model()->columnCount(); ++column) {
            const QModelIndex index = view->model()->index(row, column);
            const QVariant tick = index.data(Qt::CheckStateRole);
            const QString mark = !tick.isValid()                 ? QString()
                                 : tick.toInt() == Qt::Checked   ? u"[x]"_qs
                                 : tick.toInt() == Qt::Unchecked ? u"[ ]"_qs
                                                                 : u"[-]"_qs;
            texts.append(mark + index.data().toString());
        }
        return texts.join(u'|');
    }
    static QStringList rows(const QTableView *view)
    {
        QStringList texts;
        for (int row = 0; row < view->model()->rowCount(); ++row)
            texts.append(rowText(view, row));
        return texts;
    }
    static QString countText(const QWidget *dialog)
    {
        return dialog->findChild<QLabel *>(u"countLabel"_qs)->text();
    }
    static void toggle(QTableView *view, int row, int column)
    {
        view->setFocus();
        view->setCurrentIndex(view->model()->index(row, column));
        QTest::keyClick(view, Qt::Key_Space);
    }
    static void choose(QWidget *dialog, PreviewModel::Filter filter)
    {
        dialog->findChild<QComboBox *>(u"filterComboBox"_qs)
            ->setCurrentIndex(static_cast<int>(filter));
    }
};

} // namespace brisel
