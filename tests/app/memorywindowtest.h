#pragma once

#include "memory/dialogs/memorywindow.h"
#include "memory/dialogs/playlistspanel.h"
#include "tests/app/samplewindow.h"
#include "tests/app/windowtest.h"
#include "tests/memory/readmemory.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QTreeView>

namespace brisel
{

/// A test of the window of the memory, opened from the real main window, with a memory "CARD" of
/// four songs whose index is written by hand.
class MemoryWindowTest : public QObject
{
protected:
    void begin()
    {
        m_sample = std::make_unique<SampleWindow>();
        m_memory = std::make_unique<HandMadeSet>();
        dateSongs(*m_memory);
        qputenv("BRISEL_VOLUMES", QFile::encodeName(volumes()));
    }
    void end()
    {
        closeVerified(m_sample);
        m_memory.reset();
    }
    QString volumes() const { return m_memory->root().section(u'/', 0, -2); }

    /// Opens the window, and waits until it has compared the index with the songs.
    void open()
    {
        m_sample->press("memoryToolButton");
        m_window = m_sample->window->findChild<MemoryWindow *>();
        QVERIFY(m_window != nullptr);
        QVERIFY(QTest::qWaitForWindowExposed(m_window));
        waitForLook();
    }
    /// Opens the window of a memory with the playlist 7 of the song 1, and adds the song 3.
    void openWithChange()
    {
        m_memory->write(QStringLiteral("playlist/playlist.dat"),
                        Sample::hex("0700") + QByteArray(30, '\x55'));
        m_memory->write(QStringLiteral("playlist/play0007.dat"), HandMadeSet::one());
        open();
        changePlaylist();
    }
    void changePlaylist() const { playlists().addSongs({3}); }
    PlaylistsPanel &playlists() const { return *m_window->findChild<PlaylistsPanel *>(); }
    /// The next message box is the question about unsaved playlists, and gets this answer.
    void answerUnsaved(QMessageBox::StandardButton button)
    {
        m_sample->script.expect("QMessageBox", [button](QWidget *widget) {
            auto *box = qobject_cast<QMessageBox *>(widget);
            QCOMPARE(box->text(),
                     QStringLiteral("Le playlist sono state modificate. Salvarle sulla memoria?"));
            box->button(button)->click();
        });
    }
    void waitForLook() const
    {
        QTRY_VERIFY(!text("stateLabel").contains(u"Confronto"_qs) &&
                    !text("stateLabel").contains(u"Comparing"_qs));
    }

    template <typename Kind>
    Kind *find(const char *name) const
    {
        return partOf<Kind>(*m_window, name);
    }
    QString text(const char *label) const { return find<QLabel>(label)->text(); }
    QTreeView *songs() const { return find<QTreeView>("songsTreeView"); }
    QTreeView *folders() const { return find<QTreeView>("foldersTreeView"); }

    /// The texts of one column of \a view, below \a parent.
    static QStringList column(const QTreeView *view, int number, const QModelIndex &parent = {})
    {
        QStringList texts;
        for (int row = 0; row < view->model()->rowCount(parent); ++row)
            texts.append(view->model()->index(row, number, parent).data().toString());
        return texts;
    }
    QModelIndex group(const QTreeView *view, int row) const { return view->model()->index(row, 0); }

    std::unique_ptr<SampleWindow> m_sample;
    std::unique_ptr<HandMadeSet> m_memory;
    QPointer<MemoryWindow> m_window;
};

} // namespace brisel
