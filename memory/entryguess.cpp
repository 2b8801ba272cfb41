#include "memory/entryguess.h"

#include "base/bytes.h"
#include "base/lettercase.h"
#include "index/indexrecords.h"
#include "memory/playlistdocument.h"

#include <QSet>
#include <QStringList>

#include <algorithm>

namespace brisel
{

namespace
{

constexpr qsizetype mostSimilar = 10;

/// The words of \a text in lower case and without accents.
QSet<QString> wordsOf(const QString &text)
{
    QString folded;
    for (const QChar character : lowerCased(text).normalized(QString::NormalizationForm_KD)) {
        if (!character.isMark())
            folded += character.isLetterOrNumber() ? character : QChar(u' ');
    }
    const QStringList words = folded.split(u' ', Qt::SkipEmptyParts);
    return {words.cbegin(), words.cend()};
}

/// The common part of both sets of words, 0 to 1.
double similarity(const QSet<QString> &a, const QSet<QString> &b)
{
    const auto common =
        std::count_if(a.cbegin(), a.cend(), [&b](const QString &word) { return b.contains(word); });
    const qsizetype all = a.size() + b.size() - common;
    return all == 0 ? 0 : static_cast<double>(common) / static_cast<double>(all);
}

/// The guesses for one entry.
class Guessing
{
public:
    Guessing(const PlaylistDocument &document, qsizetype playlist, qsizetype entry)
        : m_contents(*document.contents()), m_names(document.names()),
          m_record(document.record(playlist, entry)),
          m_path(fieldAt(document.pathRecord(playlist, entry), 0, IndexRecord::size)),
          m_title(document.title(playlist, entry))
    {
    }

    void addSongAtPath(const QString &why)
    {
        if (m_path.isEmpty())
            return;
        const QString path = pathFromBytes(m_path);
        const QList<QByteArray> keys{pathSortKey(path), pathSortKey(QString::fromLatin1(m_path)),
                                     pathSortKey(m_names.follow(path))};
        for (const QByteArray &key : keys)
            addWhere(why,
                     [&](qsizetype song) { return pathSortKey(m_contents.path(song)) == key; });
    }

    void addSameRecord(const QString &why)
    {
        const QByteArray body = m_record.sliced(SongRecord::titleAt);
        addWhere(why, [&](qsizetype song) { return m_contents.record(song).endsWith(body); });
    }

    void addSameTitle(const QString &why)
    {
        addWhere(why, [this](qsizetype song) { return m_contents.title(song) == m_title; });
    }

    void addSimilarTitles(const QString &why)
    {
        const QSet<QString> words = wordsOf(m_title);
        QList<std::pair<double, qsizetype>> similar;
        for (qsizetype song = 0; song < m_contents.size(); ++song) {
            const double share = similarity(words, wordsOf(m_contents.title(song)));
            if (share > 0)
                similar.append({-share, song});
        }
        std::sort(similar.begin(), similar.end());
        for (const auto &[share, song] : similar.first(std::min(mostSimilar, similar.size())))
            add(song, why);
    }

    QList<EntryGuess> take() { return std::move(m_guesses); }

private:
    template <typename Condition>
    void addWhere(const QString &why, Condition isMeant)
    {
        for (qsizetype song = 0; song < m_contents.size(); ++song) {
            if (isMeant(song))
                add(song, why);
        }
    }

    void add(qsizetype song, const QString &why)
    {
        if (m_known.contains(song) || m_contents.record(song).isEmpty())
            return;
        m_known.insert(song);
        m_guesses.append({song, why});
    }

    const MemoryContents &m_contents;
    const GivenNames &m_names;
    const QByteArray m_record;
    const QByteArray m_path;
    const QString m_title;
    QSet<qsizetype> m_known;
    QList<EntryGuess> m_guesses;
};

} // namespace

QList<EntryGuess> EntryGuess::of(const PlaylistDocument &document, qsizetype playlist,
                                 qsizetype entry)
{
    Guessing guessing(document, playlist, entry);
    guessing.addSongAtPath(tr("è al percorso che il programma aveva annotato"));
    guessing.addSameRecord(tr("ha lo stesso titolo, tempo e formato"));
    guessing.addSameTitle(tr("ha lo stesso titolo"));
    guessing.addSimilarTitles(tr("ha un titolo simile"));
    return guessing.take();
}

} // namespace brisel
