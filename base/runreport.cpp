#include "base/runreport.h"

#include <algorithm>
#include <tuple>

namespace
{

constexpr int mostNamed = 1000; ///< files of a kind

/// What would end a line shows as a mark, so that no name forges a line of the report.
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

} // namespace

void RunReport::addRun(Run run)
{
    if (!m_runs.contains(run))
        m_runs.append(run);
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
    }
}

void RunReport::add(Lack lack, const QString &path, Reason reason)
{
    addEntry({lack, reason, path, {}});
}

void RunReport::addPulled(Lack lack, const QString &memory)
{
    addPulled({lack, memory, 1});
}

void RunReport::addPulled(const Pulled &pulled)
{
    for (Pulled &known : m_pulled) {
        if (known.memory == pulled.memory) {
            known.count += pulled.count;
            return;
        }
    }
    m_pulled.append(pulled);
}

bool RunReport::addMessage(const QString &message)
{
    return addEntry({Lack::Indexed, Reason::IndexIncomplete, {}, message});
}

bool RunReport::addNotice(const QString &message)
{
    return addEntry({Lack::Indexed, Reason::IndexIncomplete, {}, message, true});
}

void RunReport::append(const RunReport &part)
{
    for (const Run run : part.m_runs)
        addRun(run);
    for (const Entry &entry : part.m_entries)
        addEntry(entry);
    for (const Pulled &pulled : part.m_pulled)
        addPulled(pulled);
    for (const auto &[kind, count] : part.m_counts)
        m_counts[kind] += std::max(0, count - mostNamed);
    m_updated += part.m_updated;
    m_edited += part.m_edited;
    m_copied += part.m_copied;
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
    }
    return 0;
}

int RunReport::skipped() const
{
    return counted(true);
}

int RunReport::failed() const
{
    int sum = counted(false);
    for (const Pulled &pulled : m_pulled)
        sum += pulled.count;
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
    if (const int count = failed(); count > 0)
        counts.append(tr("%n non riuscite", "", count));
    if (const int count = skipped(); count > 0)
        counts.append(tr("%n saltate", "", count));
    if (counts.isEmpty())
        return {};
    QStringList runs;
    for (const Run run : m_runs)
        runs.append(runText(run));
    const QString numbers = counts.join(QStringLiteral(", "));
    return runs.isEmpty() ? numbers
                          : runs.join(QStringLiteral(", ")) + QStringLiteral(": ") + numbers;
}

QString RunReport::text() const
{
    QString text = summary() + u'\n';
    for (const Pulled &pulled : m_pulled)
        text += line({pulled.lack, Reason::MemoryGone, pulled.memory, {}}) +
                tr(" (%n song)", "", pulled.count) + u'\n';
    text += lines(false) + lines(true);
    const QStringList others = rest();
    for (const QString &line : others)
        text += line + u'\n';
    return text;
}

QStringList RunReport::rest() const
{
    QStringList lines;
    for (const auto &[kind, count] : m_counts) {
        if (count <= mostNamed)
            continue;
        const QString more = tr("e altri %n", "", count - mostNamed);
        lines.append(line(kind.start.isEmpty()
                              ? Entry{kind.lack, kind.reason, more, {}}
                              : Entry{kind.lack, kind.reason, {}, kind.start + more}));
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
    // The reason first: a path of any length may run out of sight.
    return tr("%1 (%2): %3")
        .arg(lackText(entry.lack), reasonText(entry.reason), onOneLine(entry.path));
}

RunReport::Kind RunReport::kindOf(const Entry &entry)
{
    const qsizetype path = entry.message.indexOf(u'/');
    return {entry.lack, entry.reason, entry.message.left(path), entry.isNotice};
}

bool RunReport::Kind::operator<(const Kind &other) const
{
    return std::tie(isNotice, lack, reason, start) <
           std::tie(other.isNotice, other.lack, other.reason, other.start);
}

bool RunReport::isSkipped(const Kind &kind)
{
    return kind.reason == Reason::Declined || kind.reason == Reason::Kept ||
           kind.reason == Reason::Interrupted;
}

/// False when only the count changes.
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

QString RunReport::runText(Run run)
{
    switch (run) {
    case Run::Import:
        return tr("Importazione");
    case Run::Synchronisation:
        return tr("Sincronizzazione");
    case Run::Backup:
        return tr("Backup");
    case Run::Edit:
        return tr("Modifica");
    case Run::Transfer:
        return tr("Trasferimento");
    case Run::Index:
        return tr("Ottimizzazione memoria");
    case Run::SongsList:
        return tr("Lista song");
    }
    return {};
}

QString RunReport::lackText(Lack lack)
{
    switch (lack) {
    case Lack::Read:
        return tr("Non letta");
    case Lack::Found:
        return tr("Non trovata");
    case Lack::Changed:
        return tr("Non modificata");
    case Lack::Saved:
        return tr("Non salvata");
    case Lack::Copied:
        return tr("Non copiata");
    case Lack::Indexed:
        return tr("Non indicizzata");
    }
    return {};
}

QString RunReport::reasonText(Reason reason)
{
    switch (reason) {
    case Reason::Missing:
        return tr("il file non esiste");
    case Reason::Unreachable:
        return tr("il file non è accessibile");
    case Reason::NoPlainFile:
        return tr("non è un file");
    case Reason::Empty:
        return tr("il file è vuoto");
    case Reason::TooLarge:
        return tr("il file è troppo grande per essere una song");
    case Reason::UnknownFormat:
        return tr("formato sconosciuto o file danneggiato");
    case Reason::NotInTable:
        return tr("la tabella non l'ha accettata");
    case Reason::NotInCatalogue:
        return tr("il database Kordia non la contiene");
    case Reason::Declined:
        return tr("la modifica è stata rifiutata");
    case Reason::Kept:
        return tr("esiste già e non doveva essere sostituita");
    case Reason::Interrupted:
        return tr("operazione interrotta");
    case Reason::AlreadyThere:
        return tr("esiste già");
    case Reason::PickedToo:
        return tr("al suo posto si trova un'altra delle song scelte");
    case Reason::FolderMissing:
        return tr("la cartella non esiste più");
    case Reason::MemoryGone:
        return tr("la memoria non è più presente");
    case Reason::InUse:
        return tr("un altro programma sta lavorando su questa memoria");
    case Reason::WriteProtected:
        return tr("la memoria è protetta da scrittura");
    case Reason::NotAllowed:
        return tr("manca il permesso di scrivere nella cartella");
    case Reason::NoSpace:
        return tr("spazio insufficiente sul disco");
    case Reason::Unwritable:
        return tr("non è stato possibile scrivere il file");
    case Reason::WouldBeTooLarge:
        return tr("con i nuovi dati il file sarebbe troppo grande");
    case Reason::IndexIncomplete:
        return tr("gli archivi della memoria non sono completi");
    case Reason::NotPrepared:
        return tr("la memoria non è preparata per Brisel");
    case Reason::CutShort:
        return tr("non è stato possibile leggere il file fino alla fine");
    case Reason::ChangedMeanwhile:
        return tr("nel frattempo un altro programma l'ha cambiata");
    case Reason::ListFailed:
        return tr("gli archivi non si leggono o il file non si può scrivere");
    }
    return {};
}
