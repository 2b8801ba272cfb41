#pragma once

#include "base/runguard.h"
#include "index/index.h"
#include "tests/dialogscript.h"
#include "tests/index/samplememory.h"
#include "tests/logcapture.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include <sys/stat.h>

namespace brisel
{

namespace Sample
{

inline const QByteArray anySong = midiSong("Title", "Artist", "Genre");

/// The paths in "index.id2", in their order, decoded without the program.
inline QStringList indexedPaths(const SampleMemory &memory)
{
    const QByteArray index = memory.read(u"index.id2"_qs);
    QStringList paths;
    for (qsizetype pos = 0; pos + 64 <= index.size(); pos += 64)
        paths.append(QString::fromLatin1(index.mid(pos + 4).constData()));
    return paths;
}

inline QList<int> indexedIds(const SampleMemory &memory)
{
    const QByteArray index = memory.read(u"index.id2"_qs);
    QList<int> ids;
    for (qsizetype pos = 0; pos + 64 <= index.size(); pos += 64)
        ids.append(index.mid(pos, 4).toHex().toInt(nullptr, 16));
    return ids;
}

inline QStringList titles(const SampleMemory &memory)
{
    const QByteArray content = memory.read(u"title.id2"_qs);
    QStringList texts;
    for (qsizetype pos = 0; pos + 64 <= content.size(); pos += 64)
        texts.append(QString::fromLatin1(content.mid(pos + 4, 58).constData()));
    return texts;
}

inline AnswerFunction always(int answer, int *asked = nullptr)
{
    return [answer, asked](const QString &, const QString &) {
        if (asked != nullptr)
            ++*asked;
        return answer;
    };
}

inline QList<int> values(const QSignalSpy &spy)
{
    QList<int> list;
    for (const QList<QVariant> &arguments : spy)
        list.append(arguments.first().toInt());
    return list;
}

inline QStringList texts(const QSignalSpy &spy)
{
    QStringList list;
    for (const QList<QVariant> &arguments : spy)
        list.append(arguments.first().toString());
    return list;
}

} // namespace Sample

} // namespace brisel
