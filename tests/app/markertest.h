#pragma once

#include "tests/app/reporttest.h"
#include "tests/songfile/midireader.h"

#include <QAction>
#include <QApplication>

namespace brisel
{

/// Common functions for tests of the markers in the edit dialog.
class MarkerTest : public ReportTest
{
protected:
    static QByteArray marker(int bar, const QByteArray &text)
    {
        const char bytes[] = {static_cast<char>(bar >> 8), static_cast<char>(bar)};
        return MidiBytes::kordiaEvent(6, QByteArray(bytes, 2) + text);
    }
    static QByteArray song(const QByteArray &head)
    {
        const QByteArray note = QByteArray::fromHex("00903c4060803c40");
        return MidiBytes::file({head + note + MidiBytes::endOfTrack()});
    }
    void importSong(const QByteArray &content, const QString &name = u"one.mid"_qs)
    {
        makeFile(at(name), content);
        import({name});
    }
    void choose(const QString &language)
    {
        m_window->findChild<QAction *>(u"action"_qs + language)->trigger();
        QCoreApplication::processEvents();
    }
    /// Opens the table of the markers from the edit dialog \a widget.
    static void openMarkers(QWidget *widget, const DialogScript::Step &step)
    {
        DialogScript inner;
        inner.expect("MarkersDialog", [step](QWidget *dialog) {
            dialog->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(dialog)); // an edit ends when the focus leaves it
            step(dialog);
        });
        DialogScript::click(widget, u"markersPushButton"_qs);
        QVERIFY2(inner.isDone(), qPrintable(inner.problems().join(u'\n')));
    }
    /// Opens the song in row 0, and in it the table; then saves.
    void editMarkers(const DialogScript::Step &step)
    {
        expectEdit([step](QWidget *widget) {
            openMarkers(widget, step);
            DialogScript::click(widget, u"savePushButton"_qs);
        });
        doubleClick(0);
        verifyScript();
    }
    static QTableView *tableIn(const QWidget *dialog) { return dialog->findChild<QTableView *>(); }
    static void ok(QWidget *dialog) { DialogScript::click(dialog, u"okPushButton"_qs); }
    /// The editor of a cell, which is opened.
    static QWidget *editorOf(const QWidget *dialog, int row, int column)
    {
        QTableView *table = tableIn(dialog);
        const QModelIndex cell = table->model()->index(row, column);
        table->setCurrentIndex(cell);
        table->edit(cell);
        for (auto *child : table->viewport()->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
            if (child->isVisible())
                return child;
        }
        return nullptr;
    }
    /// Types into a cell, as a user does.
    static void typeInto(const QWidget *dialog, int row, int column, const QString &text)
    {
        QWidget *editor = editorOf(dialog, row, column);
        QVERIFY(editor != nullptr);
        QTest::keySequence(editor, QKeySequence::SelectAll);
        DialogScript::type(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents(); // the editor is closed later
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static QStringList shownIn(const QWidget *dialog)
    {
        const QAbstractItemModel *model = tableIn(dialog)->model();
        QStringList rows;
        for (int row = 0; row < model->rowCount(); ++row)
            rows.append(model->index(row, 0).data().toString() + u' ' +
                        model->index(row, 1).data().toString());
        return rows;
    }
    static QString hintIn(const QWidget *dialog)
    {
        const auto *hint = dialog->findChild<QLabel *>(u"hintLabel"_qs);
        return hint->isVisible() ? hint->text() : QString();
    }
    QByteArray stored() const { return fileContent(at(u"one.mid"_qs)); }

    static constexpr MidiReader::Kind markerKind{0x4B, 6};
    const QByteArray m_two = marker(9, "Solo") + marker(300, "Coda");
};

} // namespace brisel
