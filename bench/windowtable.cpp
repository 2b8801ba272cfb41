// The table of the real window with a large library.

#include "bench/windowsongs.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>
#include <QToolButton>

#include <algorithm>

using namespace brisel;

namespace WindowBench
{

namespace
{

/// Every other song gets an outcome of its own; then each button is pressed, twice.
void measureOutcomes(Window &window)
{
    auto *model = qobject_cast<UserSongsRelTableModel *>(window.table()->model());
    {
        const UserSongsRelTableModel::ManyChanges changes(*model);
        for (int row = 0; row < model->goodRowCount(); row += 2)
            model->setStatus(row, Database::Failed);
    }
    model->sortAgain(); // the numbers are shown at once
    double counting = 0;
    for (const SongOutcome outcome : allSongOutcomes)
        counting += milliseconds([&] { benchmark::DoNotOptimize(model->outcomeCount(outcome)); });
    printLimit("outcomes, counting", counting, "ms", "16 ms");
    double longest = 0;
    for (QToolButton *button : window.outcomeButtons()) {
        for (int press = 0; press < 2 && button->isVisible(); ++press)
            longest = std::max(longest, milliseconds([button] { button->click(); }));
    }
    printLimit("outcomes, longest choosing", longest, "ms", "16 ms");
}

/// Selects all rows at once, and row by row up to the last one by a key.
void measureSelection(QTableView &table)
{
    const auto press = [&table](int key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(&table, &event);
    };
    double all = 0;
    double extended = 0;
    double removed = 0;
    constexpr int times = 5;
    for (int i = 0; i < times; ++i) {
        press(Qt::Key_Home, Qt::ControlModifier);
        all = std::max(all, milliseconds([&] { press(Qt::Key_A, Qt::ControlModifier); }));
        removed =
            std::max(removed, milliseconds([&] { press(Qt::Key_Home, Qt::ControlModifier); }));
        extended = std::max(extended, milliseconds([&] {
                                press(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
                            }));
    }
    printLimit("selection, all rows", all, "ms", "16 ms");
    printLimit("selection, up to the last row by Shift", extended, "ms", "16 ms");
    printLimit("selection, one row again", removed, "ms", "16 ms");
}

/// Types \a text, letter by letter; prints what the longest took.
void measureTyping(QLineEdit &search, const std::string &what, const QString &text)
{
    double longest = 0;
    QString slowest;
    for (qsizetype length = 1; length <= text.size(); ++length) {
        const double time = milliseconds([&] { search.setText(text.left(length)); });
        slowest = time > longest ? text.left(length) : slowest;
        longest = std::max(longest, time);
    }
    printLimit("search, letters of " + what + " (longest: " + slowest.toStdString() + ")", longest,
               "ms", "16 ms");
    search.clear();
}

} // namespace

void measureTable()
{
    Window window;
    window.import(songPaths(librarySize));
    QTableView *table = window.table();
    printLimit("table, longest step of scrolling", longestScrolling(*table), "ms", "50 ms");
    double longest = 0;
    for (int column = 0; column < table->model()->columnCount(); ++column) {
        if (table->isColumnHidden(column))
            continue;
        for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
            const auto sort = [&] { table->sortByColumn(column, order); };
            longest = std::max(longest, milliseconds(sort));
        }
    }
    printLimit("table, longest sorting", longest, "ms", "50 ms");
    measureSelection(*table);
    measureOutcomes(window);
    // As for a user, some time passes before the first letter.
    QElapsedTimer sinceRun;
    sinceRun.start();
    while (sinceRun.elapsed() < 1000)
        QCoreApplication::processEvents();
    QLineEdit *search = window.searchField();
    const auto type = [&](const char *letters) {
        return milliseconds([&] { search->setText(QLatin1StringView(letters)); });
    };
    printLimit("search, first letter", type("b"), "ms", "16 ms");
    printLimit("search, second letter", type("br"), "ms", "16 ms");
    printLimit("search, all rows again", type(""), "ms", "16 ms");
    for (const char *text : {"genere:rock bpm>120", "bpm>120 durata<3:30", "cartella:lento",
                             "stato:modificata", "senza:artista tonalita:a"})
        measureTyping(*search, text, QString::fromLatin1(text));
}

} // namespace WindowBench
