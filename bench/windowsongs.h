#pragma once

#include "app/mainwindow.h"
#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "songfile/metasong.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <string>

class QAbstractItemView;
class QLineEdit;
class QTableView;
class QToolButton;

/// The large libraries of the benchmarks of the window, and what these measure without a peer.
namespace WindowBench
{

extern int librarySize; ///< songs

/// Paths of \a count songs of all kinds, the size of the library or twice as many. They are made
/// on the first call, with a catalogue of all of them; their folder becomes the working folder, so
/// that the window uses the catalogue.
const QStringList &songPaths(int count);

/// The record of the song at \a path, which \a song opens.
brisel::SongInfo readSong(brisel::MetaSong &song, const QString &path);

/// The program's window as users see it, with the question of an import switched off.
class Window
{
public:
    Window();

    /// Drops \a files on the window and waits until they are in the table.
    void import(const QStringList &files);
    /// Synchronises all rows and declines the backup.
    void synchronise();
    QTableView *table();
    QList<QToolButton *> outcomeButtons();
    QLineEdit *searchField();

private:
    brisel::MainWindow m_window;
};

/// The songs in a table, with the catalogue, without a window.
class Listed
{
public:
    explicit Listed(const QStringList &files);

    brisel::Database database;
    std::unique_ptr<brisel::UserSongsRelTableModel> model;
};

/// Prints measurements with a limit but without a peer: bench/run shows them below the rows.
void printLimit(const std::string &what, double value, const char *unit, const char *limit);
/// Processor time of \a step and of the events after it, so that other programs don't count.
double milliseconds(const std::function<void()> &step);
/// The longest step of scrolling a view from its beginning to its end, in milliseconds.
double longestScrolling(const QAbstractItemView &view);

/// Measures the table of a large library: scrolling, sorting, selecting, searching.
void measureTable();

} // namespace WindowBench
