#pragma once

#include <QCoreApplication>
#include <QList>
#include <QSet>
#include <QString>

namespace brisel
{

/// Adds up the room that copies into one folder take there, before the first of them is made.
class CopyRoom
{
    Q_DECLARE_TR_FUNCTIONS(FileCopier)

public:
    /// What one file takes.
    struct Need {
        QString place;
        qint64 bytes = 0; ///< more than the file that is there has
    };

    /// For copies into the existing \a folder, which keep \a reserve bytes free.
    explicit CopyRoom(const QString &folder, qint64 reserve = 0);

    /// The need of a copy of \a source at \a place, in whole units of the file system.
    [[nodiscard]] Need needOf(const QString &source, const QString &place) const;
    /// Returns true if there is enough room for \a needs besides what was added.
    [[nodiscard]] bool fits(const QList<Need> &needs) const;
    /// A place that is added twice, ignoring case, is counted once.
    void add(const Need &need);
    /// Empties the sum for copies that keep \a reserve bytes free.
    void restart(qint64 reserve);

    /// Bytes, with the reserve unless nothing is needed.
    qint64 needed() const { return withReserve(m_bytes); }
    qint64 free() const { return m_free; } ///< bytes; -1 if unknown
    bool isEnough() const { return m_free < 0 || needed() <= m_free; }
    /// A text with the needed and the free room; empty if there is enough.
    QString shortage() const;
    /// \a bytes in the units that people read.
    static QString sizeText(qint64 bytes);

private:
    qint64 withReserve(qint64 bytes) const { return bytes > 0 ? bytes + m_reserve : 0; }

    qint64 m_free;
    qint64 m_unit;
    qint64 m_reserve;
    qint64 m_bytes = 0;
    QSet<QString> m_places; ///< in lower case
};

} // namespace brisel
