#include "bench/windowsongs.h"

#include "bench/benchprogram.h"
#include "library/cataloguelookup.h"
#include "tools/cataloguefile.h"
#include "tools/samplesongs.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

#include <algorithm>
#include <cstdio>
#include <ctime>

using namespace brisel;

using BenchProgram::require;

namespace WindowBench
{

int librarySize = 10000;

namespace
{

/// Songs of all kinds in two folders of the same size, and a catalogue with all of them. This is
/// the working folder, so that the window uses the catalogue.
class Songs
{
public:
    Songs()
    {
        require(m_folder.isValid(), "no folder for the songs");
        const QString first = all() + QStringLiteral("/songs");
        for (const QString &name : {first, QString(all() + QStringLiteral("/more"))})
            require(QDir().mkpath(name), "no folder");
        require(SampleSongs::writeMany(first, librarySize, &m_paths), "no songs");
        QList<CatalogueRow> rows;
        for (const QString &path : std::as_const(m_paths)) {
            const QString name = path.section(u'/', -1);
            m_twice.append(all() + QStringLiteral("/more/") + name);
            require(QFile::copy(path, m_twice.constLast()), "no copy");
            CatalogueRow row;
            row.fileName = catalogueKey(name);
            row.title = QStringLiteral("Title of ") + row.fileName;
            row.artist = QStringLiteral("Artist");
            row.altArtist = row.artist;
            row.genre = QStringLiteral("POP");
            row.author = QStringLiteral("Author");
            row.length = 185;
            row.bpm = 120;
            row.key = QStringLiteral("A -");
            row.markers = QStringLiteral("1;Intro;5;Verse;21;Fine;");
            rows.append(row);
        }
        m_twice += m_paths;
        QString error;
        require(writeCatalogue(all() + QStringLiteral("/songsdb_debug"), rows, error), "catalogue");
        QDir::setCurrent(all());
    }
    ~Songs() { QDir::setCurrent(QDir::rootPath()); }
    Songs(const Songs &) = delete;
    Songs &operator=(const Songs &) = delete;

    /// \a count songs: the size of the library or twice as many.
    const QStringList &paths(int count) const { return count == librarySize ? m_paths : m_twice; }

private:
    QString all() const { return m_folder.path(); }

    QTemporaryDir m_folder;
    QStringList m_paths;
    QStringList m_twice; ///< these and the same number of others
};

} // namespace

const QStringList &songPaths(int count)
{
    static const Songs all;
    return all.paths(count);
}

SongInfo readSong(MetaSong &song, const QString &path)
{
    require(song.importFile(path), "reading");
    SongInfo info;
    song.getSongInfo(info);
    return info;
}

Window::Window()
{
    m_window.enableCopyrightMessage(false);
    m_window.resize(1200, 800);
    m_window.show();
    QCoreApplication::processEvents();
}

void Window::import(const QStringList &files)
{
    QList<QUrl> urls;
    for (const QString &file : files)
        urls.append(QUrl::fromLocalFile(file));
    QMimeData data;
    data.setUrls(urls);
    const QPoint middle = m_window.rect().center();
    QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_window, &enter);
    QDropEvent drop(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_window, &drop);
    const auto *model = m_window.findChild<UserSongsRelTableModel *>();
    while (model->rowCount() != files.size())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void Window::synchronise()
{
    QTimer::singleShot(0, [] {
        QWidget *dialog = QApplication::activeModalWidget();
        require(dialog != nullptr, "no offer of a backup");
        dialog->findChild<QPushButton *>(QStringLiteral("exitPushButton"))->click();
    });
    require(m_window.updateUserLibrary(), "synchronisation");
}

QTableView *Window::table()
{
    return m_window.findChild<QTableView *>();
}

QList<QToolButton *> Window::outcomeButtons()
{
    return m_window.findChildren<QToolButton *>(
        QRegularExpression(QStringLiteral("^outcomeButton")));
}

QLineEdit *Window::searchField()
{
    return m_window.findChild<QLineEdit *>(QStringLiteral("searchLineEdit"));
}

Listed::Listed(const QStringList &files)
{
    require(database.init(), "catalogue");
    model = std::make_unique<UserSongsRelTableModel>(nullptr, *database.userLibraryDb());
    for (const QString &path : files) {
        MetaSong song;
        SongInfo info = readSong(song, path);
        info.fileName = path;
        info.shortName = path.section(u'/', -1);
        require(model->addSong(info), "row");
    }
}

void printLimit(const std::string &what, double value, const char *unit, const char *limit)
{
    std::printf("# %s: %.1f %s (%s at most)\n", what.c_str(), value, unit, limit);
}

double milliseconds(const std::function<void()> &step)
{
    const std::clock_t begin = std::clock();
    step();
    QCoreApplication::processEvents();
    return 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

double longestScrolling(const QAbstractItemView &view)
{
    QScrollBar *bar = view.verticalScrollBar();
    double longest = 0;
    for (int value = bar->minimum(); value <= bar->maximum(); value += bar->pageStep())
        longest = std::max(longest, milliseconds([&] { bar->setValue(value); }));
    return longest;
}

} // namespace WindowBench
