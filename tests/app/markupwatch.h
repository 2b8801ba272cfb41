#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSet>
#include <QStatusBar>
#include <QTextDocument>
#include <QTextEdit>

namespace brisel
{

/// During its lifetime checks every widget that is painted, and records where data from songs would
/// be read as markup. The data are recognised by a word in them.
class MarkupWatch : public QObject
{
public:
    MarkupWatch() { qApp->installEventFilter(this); }

    /// The word. The data around it must appear unchanged on the screen.
    static QString word() { return QStringLiteral("zqx"); }
    static QString before() { return QStringLiteral("<b>"); }
    static QString after() { return QStringLiteral("<img src=x.png>&amp;"); }
    static QString text() { return before() + word() + after(); }

    /// The places where the data were seen, as "class of the window.name of the widget".
    const QSet<QString> &places() const { return m_places; }
    /// The places where they were not shown literally.
    const QStringList &problems() const { return m_problems; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType())
            look(static_cast<QWidget *>(watched));
        return false;
    }

private:
    /// The text that a widget that guesses the format of its texts shows for \a text.
    static QString shown(const QString &text, bool isRich)
    {
        if (!isRich)
            return text;
        QTextDocument document;
        document.setHtml(text);
        return document.toPlainText();
    }

    void look(QWidget *widget)
    {
        check(widget, "tool tip", widget->toolTip(), Qt::mightBeRichText(widget->toolTip()));
        check(widget, "help", widget->whatsThis(), Qt::mightBeRichText(widget->whatsThis()));
        if (const auto *label = qobject_cast<QLabel *>(widget))
            check(widget, "label", label->text(),
                  label->textFormat() == Qt::RichText || label->textFormat() == Qt::MarkdownText ||
                      (label->textFormat() == Qt::AutoText && Qt::mightBeRichText(label->text())));
        else if (const auto *line = qobject_cast<QLineEdit *>(widget))
            check(widget, "line", line->text(), false);
        else if (const auto *box = qobject_cast<QComboBox *>(widget))
            check(widget, "box", box->currentText(), false);
        else if (const auto *bar = qobject_cast<QStatusBar *>(widget))
            check(widget, "status", bar->currentMessage(), false);
        // Their viewports are what is painted.
        else if (const auto *report = qobject_cast<QPlainTextEdit *>(widget->parentWidget()))
            check(widget->parentWidget(), "report", report->toPlainText(), false);
        else if (const auto *page = qobject_cast<QTextEdit *>(widget->parentWidget()))
            check(widget->parentWidget(), "page", page->toHtml(), true);
        else if (const auto *view = qobject_cast<QAbstractItemView *>(widget->parentWidget()))
            lookAtItems(view);
    }

    void lookAtItems(const QAbstractItemView *view)
    {
        const QAbstractItemModel *model = view->model();
        if (model == nullptr)
            return;
        for (int row = 0; row < model->rowCount(view->rootIndex()); ++row) {
            for (int column = 0; column < model->columnCount(view->rootIndex()); ++column) {
                const QModelIndex index = model->index(row, column, view->rootIndex());
                const QString tip = index.data(Qt::ToolTipRole).toString();
                check(view, "cell", index.data(Qt::DisplayRole).toString(), false);
                check(view, "tool tip of a cell", tip, Qt::mightBeRichText(tip));
            }
        }
    }

    void check(const QWidget *widget, const char *kind, const QString &text, bool isRich)
    {
        if (!text.contains(word()))
            return;
        QString window = QString::fromLatin1(widget->window()->metaObject()->className());
        window.remove(QStringLiteral("brisel::"));
        const QString place = window + u'.' + widget->objectName();
        m_places.insert(place);
        // Without enough room, only a part of plain text may be shown.
        if (isRich && !shown(text, isRich).contains(MarkupWatch::text()))
            m_problems.append(
                QStringLiteral("%1 %2: %3").arg(place, QLatin1StringView(kind), text));
    }

    QSet<QString> m_places;
    QStringList m_problems;
};

} // namespace brisel
