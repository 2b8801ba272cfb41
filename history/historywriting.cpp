// The part of History that writes the entries of a run.

#include "history/history.h"
#include "history/packing.h"

#include <QVariant>

namespace brisel
{

using namespace Qt::StringLiterals;

bool History::execWith(const QString &statement, const QVariantList &values)
{
    QSqlQuery query = m_file.query(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    return m_file.exec(query);
}

bool History::add(qint64 &run, RunKind kind, const QList<KeptSong> &kept, QList<qint64> &ids,
                  const QList<qint64> &unwritten)
{
    ids.clear();
    if (!m_file.openOrCreate() || !m_file.begin())
        return false;
    qint64 written = run;
    bool isWritten = deleteSongs(unwritten) && (run != 0 || insertRun(written, kind));
    for (qsizetype i = 0; isWritten && i < kept.size(); ++i) {
        const std::optional<qint64> id = insertSong(written, kept.at(i));
        isWritten = id.has_value();
        ids.append(id.value_or(0));
    }
    if (!isWritten)
        m_file.drop();
    if (!isWritten || !m_file.end()) {
        ids.clear();
        return false;
    }
    run = written;
    return true;
}

bool History::deleteSongs(const QList<qint64> &songs)
{
    for (const qint64 song : songs) {
        if (!execWith(u"DELETE FROM song WHERE id = ?"_s, {song}))
            return false;
    }
    return true;
}

bool History::insertRun(qint64 &run, RunKind kind)
{
    QSqlQuery query = m_file.query(u"INSERT INTO run(time, kind) VALUES (?, ?)"_s);
    query.addBindValue(QDateTime::currentMSecsSinceEpoch());
    query.addBindValue(static_cast<int>(kind));
    if (!m_file.exec(query))
        return false;
    run = query.lastInsertId().toLongLong();
    return true;
}

std::optional<qint64> History::insertSong(qint64 run, const KeptSong &song)
{
    QSqlQuery query = m_file.query(
        u"INSERT INTO song(run, path, format, before, sizebefore, tagbefore, after, sizeafter, "
        "tagafter) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"_s);
    query.addBindValue(run);
    query.addBindValue(song.path);
    query.addBindValue(song.format);
    for (const Fingerprint &fingerprint : {song.before, song.after}) {
        query.addBindValue(fingerprint.checksum);
        query.addBindValue(fingerprint.size);
        query.addBindValue(fingerprint.tagSize);
    }
    if (!m_file.exec(query))
        return {};
    const qint64 id = query.lastInsertId().toLongLong();
    const bool isWritten = insertFields(id, song.fields) && insertOld(id, song.oldBytes);
    return isWritten ? std::optional(id) : std::nullopt;
}

bool History::insertFields(qint64 song, const QList<FieldChange> &fields)
{
    for (const FieldChange &field : fields) {
        if (!execWith(u"INSERT INTO field VALUES (?, ?, ?, ?)"_s,
                      {song, static_cast<int>(field.field), field.before, field.after}))
            return false;
    }
    return true;
}

bool History::insertOld(qint64 song, const QByteArray &bytes)
{
    const Packed packed = pack(bytes);
    // Without any bytes the value would be null.
    const QByteArray stored = packed.bytes.isNull() ? QByteArray("") : packed.bytes;
    return execWith(u"INSERT INTO old VALUES (?, ?, ?, ?)"_s,
                    {song, static_cast<int>(packed.kind), bytes.size(), stored});
}

bool History::finish(qint64 run, const QList<qint64> &unwritten, const QString &report)
{
    if (!m_file.openOrCreate() || !m_file.begin())
        return false;
    const bool isWritten = deleteSongs(unwritten) &&
                           execWith(u"DELETE FROM run WHERE id = ? AND NOT EXISTS "
                                    "(SELECT 1 FROM song WHERE song.run = run.id)"_s,
                                    {run}) &&
                           execWith(u"UPDATE run SET report = ? WHERE id = ?"_s, {report, run});
    if (!isWritten)
        m_file.drop();
    return isWritten && m_file.end();
}

} // namespace brisel
