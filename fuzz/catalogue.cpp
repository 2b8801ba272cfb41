#include "db/database.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QDir>

#include <algorithm>

namespace brisel
{

static void checkRecord(bool found, const SongsDbRecord &record)
{
    REQUIRE(found || record.title == QStringLiteral("left over"));
    REQUIRE(std::all_of(record.markers.begin(), record.markers.end(),
                        [](const Marker &marker) { return marker.bar >= 0; }));
}

void checkCatalogue(const QByteArray &input)
{
    constexpr int maxLookUps = 8;
    const QString name = QStringLiteral("songsdb_debug");
    QDir::setCurrent(scratchFolder());
    putFile(name, input);
    {
        Database database;
        if (database.init()) {
            for (const QStringList *list : {database.genresList(), database.artistsList()})
                REQUIRE(!list->contains(QString()));
            Script script(input);
            QStringList names{QStringLiteral("amapola.mid"), QStringLiteral("%"),
                              QStringLiteral("X' UNION SELECT 1; --")};
            while (names.size() < maxLookUps && !script.atEnd())
                names.append(script.text());
            for (const QString &text : std::as_const(names)) {
                SongsDbRecord record;
                record.title = QStringLiteral("left over");
                checkRecord(database.getRecordByFilename(text, record), record);
                record.title = QStringLiteral("left over");
                checkRecord(database.getRecordByTitle(text, record), record);
            }
            REQUIRE(database.clearUserLibraryDb());
        }
    }
    // Any file is only read, and no other file is written beside it.
    REQUIRE(fileBytes(name) == input);
    REQUIRE(QDir(scratchFolder()).entryList(QDir::Files | QDir::Hidden) == QStringList{name});
}

} // namespace brisel
