#include "db/database.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

namespace brisel
{

static void check(const QString &text)
{
    QList<Marker> markers{{QStringLiteral("left over"), 1}};
    Database::splitMarkers(text, markers);
    REQUIRE(markers.size() <= (text.size() + 1) / 4);
    qsizetype from = 0;
    for (const Marker &marker : markers) {
        REQUIRE(marker.bar >= 0);
        REQUIRE(!marker.text.isEmpty() && !marker.text.contains(u';'));
        // The texts are in the list in the same order.
        const qsizetype place = text.indexOf(marker.text, from);
        REQUIRE(place >= 0);
        from = place + marker.text.size();
    }
}

void checkMarkers(const QByteArray &input)
{
    check(QString::fromLatin1(input));
    check(QString::fromUtf8(input));
}

} // namespace brisel
