#include "base/runreport.h"

#include <algorithm>
#include <tuple>

namespace brisel
{

namespace
{

constexpr int mostNamed = 1000;        ///< files of a kind
constexpr qsizetype longestText = 160; ///< characters of a field that are shown
constexpr qsizetype leadingText = 40;  ///< characters that are shown before a late difference

/// Replaces line breaks by a mark, so that no name can forge a line of the report.
QString onOneLine(QString text)
{
    for (QChar &character : text) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph)
            character = QChar::ReplacementCharacter;
    }
    return text;
}

/// The position in \a text, or the one before it if that would split a character.
qsizetype wholeCharacter(const QString &text, qsizetype position)
{
    const bool isSplit = position > 0 && position < text.size() &&
                         text.at(position).isLowSurrogate() &&
                         text.at(position - 1).isHighSurrogate();
    return isSplit ? position - 1 : position;
}

/// \a text from \a first on, at most longestText characters of it: its middle is left out.
QString shortened(const QString &text, qsizetype first)
{
    static const QString gap = QStringLiteral("[...]");
    const qsizetype start = wholeCharacter(text, first);
    const QString lead = start > 0 ? gap : QString();
    if (text.size() - start <= longestText)
        return lead + text.mid(start);
    const qsizetype half = longestText / 2;
    const qsizetype end = wholeCharacter(text, start + half);
    return lead + text.mid(start, end - start) + gap +
           text.mid(wholeCharacter(text, text.size() - half));
}

/// The position from which two texts are shown: 0, or before the difference of long ones.
qsizetype firstShown(const QString &before, const QString &after)
{
    if (before.size() <= longestText && after.size() <= longestText)
        return 0;
    const auto difference =
        std::mismatch(before.cbegin(), before.cend(), after.cbegin(), after.cend());
    const qsizetype equal = difference.first - before.cbegin();
    return equal < longestText / 2 ? 0 : equal - leadingText;
}

} // namespace

void RunReport::addOperation(Operation operation)
{
    if (!m_operations.contains(operation))
        m_operations.append(operation);
}

void RunReport::count(Success success)
{
    switch (success) {
    case Success::Updated:
        ++m_updated;
        break;
    case Success::Edited:
        ++m_edited;
        break;
    case Success::Copied:
        ++m_copied;
        break;
    case Success::Restored:
        ++m_restored;
        break;
    case Success::Deleted:
        ++m_deleted;
        break;
    case Success::Renamed:
        ++m_renamed;
        break;
    }
}

void RunReport::addShared(Step step, const QString &place, Reason reason)
{
    addShared({step, place, reason, 1});
}

void RunReport::addShared(const Shared &shared)
{
    for (Shared &known : m_shared) {
        if (known.place == shared.place) {
            known.count += shared.count;
            return;
        }
    }
    m_shared.append(shared);
}

bool RunReport::addMessage(const QString &message)
{
    return addEntry({Step::Index, std::nullopt, {}, message});
}

bool RunReport::addNotice(const QString &message)
{
    return addEntry({Step::Index, std::nullopt, {}, message, true});
}

void RunReport::addChanges(const QString &path, const QList<ChangedField> &changes)
{
    if (changes.isEmpty())
        return;
    ChangedSong song{path, {}};
    song.fields.reserve(changes.size());
    for (const ChangedField &change : changes) {
        const qsizetype first = firstShown(change.before, change.after);
        song.fields.append(
            {change.field, shortened(change.before, first), shortened(change.after, first)});
    }
    m_changed.append(song);
}

void RunReport::append(const RunReport &part)
{
    for (const Operation operation : part.m_operations)
        addOperation(operation);
    for (const Entry &entry : part.m_entries)
        addEntry(entry);
    for (const Shared &shared : part.m_shared)
        addShared(shared);
    for (const auto &[kind, count] : part.m_counts)
        m_counts[kind] += std::max(0, count - mostNamed);
    m_changed += part.m_changed;
    m_updated += part.m_updated;
    m_edited += part.m_edited;
    m_copied += part.m_copied;
    m_restored += part.m_restored;
    m_deleted += part.m_deleted;
    m_renamed += part.m_renamed;
}

bool RunReport::isUntouched() const
{
    return isEmpty() && m_operations.size() < 2 &&
           m_updated + m_edited + m_copied + m_restored + m_deleted + m_renamed == 0;
}

int RunReport::counted(Success success) const
{
    switch (success) {
    case Success::Updated:
        return m_updated;
    case Success::Edited:
        return m_edited;
    case Success::Copied:
        return m_copied;
    case Success::Restored:
        return m_restored;
    case Success::Deleted:
        return m_deleted;
    case Success::Renamed:
        return m_renamed;
    }
    return 0;
}

int RunReport::failed() const
{
    int sum = counted(false);
    for (const Shared &shared : m_shared)
        sum += shared.count;
    return sum;
}

QString RunReport::summary() const
{
    QStringList counts;
    if (m_updated > 0)
        counts.append(tr("%n aggiornate", "", m_updated));
    if (m_edited > 0)
        counts.append(tr("%n modificate", "", m_edited));
    if (m_copied > 0)
        counts.append(tr("%n copiate", "", m_copied));
    if (m_restored > 0)
        counts.append(tr("%n ripristinate", "", m_restored));
    if (m_deleted > 0)
        counts.append(tr("%n cancellate", "", m_deleted));
    if (m_renamed > 0)
        counts.append(tr("%n rinominate", "", m_renamed));
    if (const int count = failed(); count > 0)
        counts.append(tr("%n non riuscite", "", count));
    if (const int count = skipped(); count > 0)
        counts.append(tr("%n saltate", "", count));
    if (counts.isEmpty())
        return {};
    QStringList operations;
    for (const Operation operation : m_operations)
        operations.append(operationText(operation));
    const QString numbers = counts.join(QStringLiteral(", "));
    return operations.isEmpty()
               ? numbers
               : operations.join(QStringLiteral(", ")) + QStringLiteral(": ") + numbers;
}

QString RunReport::text() const
{
    QString text = summary() + u'\n';
    for (const Shared &shared : m_shared)
        text += line({shared.step, shared.reason, shared.place, {}}) +
                tr(" (%n song)", "", shared.count) + u'\n';
    text += lines(false) + lines(true);
    const QStringList others = rest();
    for (const QString &line : others)
        text += line + u'\n';
    for (const ChangedSong &song : m_changed) {
        text += tr("Modificata: %1").arg(onOneLine(song.path)) + u'\n';
        for (const ChangedField &change : song.fields)
            text += fieldLine(change) + u'\n';
    }
    return text;
}

QString RunReport::fieldLine(const ChangedField &change)
{
    const auto worded = [](const QString &text) {
        return text.isEmpty() ? tr("(vuoto)") : tr("«%1»").arg(onOneLine(text));
    };
    return QStringLiteral("    ") +
           tr("%1: %2 → %3").arg(tr(change.field), worded(change.before), worded(change.after));
}

QStringList RunReport::rest() const
{
    QStringList lines;
    for (const auto &[kind, count] : m_counts) {
        if (count <= mostNamed)
            continue;
        const QString more = tr("e altri %n", "", count - mostNamed);
        lines.append(line(kind.start.isEmpty()
                              ? Entry{kind.step, kind.reason, more, {}}
                              : Entry{kind.step, kind.reason, {}, kind.start + more}));
    }
    return lines;
}

QString RunReport::lines(bool areNotices) const
{
    QString lines;
    for (const Entry &entry : m_entries) {
        if (entry.isNotice == areNotices)
            lines += line(entry) + u'\n';
    }
    return lines;
}

QString RunReport::line(const Entry &entry)
{
    if (!entry.message.isEmpty())
        return onOneLine(entry.message);
    // The reason first, because long paths may not fit in the window.
    return tr("%1 (%2): %3").arg(stepText(entry.step), entry.reason->text(), onOneLine(entry.path));
}

RunReport::Kind RunReport::kindOf(const Entry &entry)
{
    const qsizetype path = entry.message.indexOf(u'/');
    return {entry.step, entry.reason, entry.message.left(path), entry.isNotice};
}

bool RunReport::Kind::operator<(const Kind &other) const
{
    return std::tie(isNotice, step, reason, start) <
           std::tie(other.isNotice, other.step, other.reason, other.start);
}

bool RunReport::isSkipped(const Kind &kind)
{
    return kind.reason.has_value() && kind.reason->isSkip();
}

/// Returns false if only the count changes.
bool RunReport::addEntry(const Entry &entry)
{
    const bool isNamed = ++m_counts[kindOf(entry)] <= mostNamed;
    if (isNamed)
        m_entries.append(entry);
    return isNamed;
}

int RunReport::counted(bool areSkipped) const
{
    int sum = 0;
    for (const auto &[kind, count] : m_counts)
        sum += !kind.isNotice && isSkipped(kind) == areSkipped ? count : 0;
    return sum;
}

QString RunReport::operationText(Operation operation)
{
    switch (operation) {
    case Operation::Import:
        return tr("Importazione");
    case Operation::Synchronisation:
        return tr("Sincronizzazione");
    case Operation::Backup:
        return tr("Backup");
    case Operation::Edit:
        return tr("Modifica");
    case Operation::Transfer:
        return tr("Trasferimento");
    case Operation::Index:
        return tr("Ottimizzazione memoria");
    case Operation::SongsList:
        return tr("Lista song");
    case Operation::Restore:
        return tr("Ripristino");
    case Operation::Deletion:
        return tr("Cancellazione");
    case Operation::Renaming:
        return tr("Rinomina");
    case Operation::CopyBack:
        return tr("Copia sul computer");
    }
    return {};
}

QString RunReport::stepText(Step step)
{
    switch (step) {
    case Step::Read:
        return tr("Non letta");
    case Step::Find:
        return tr("Non trovata");
    case Step::Change:
        return tr("Non modificata");
    case Step::Save:
        return tr("Non salvata");
    case Step::Copy:
        return tr("Non copiata");
    case Step::Index:
        return tr("Non indicizzata");
    case Step::Restore:
        return tr("Non ripristinata");
    case Step::Delete:
        return tr("Non cancellata");
    case Step::Rename:
        return tr("Non rinominata");
    }
    return {};
}

} // namespace brisel
