#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// The index files of one memory, and how a new set takes the place of the old one.
///
/// A memory has no journal, and a cut can leave any single step as the last one that reached it.
/// So the new files are first written into a work folder ".brisel2pc" and flushed; then a mark
/// with their names, sizes and checksums says that they are all there; then the old set is removed,
/// "fsinfos.id2" first, and the new one copied into its place, "fsinfos.id2" last. Until the mark
/// stands the old set is whole; from then on the next run can finish the swap. In between
/// isComplete() is false. See docs/formats/player-index.md, "How a set is replaced".
class IndexSet
{
public:
    void setRoot(const QString &root) { m_root = root; }
    QString filePath(const QString &name) const;

    /// The fifteen files that make a set.
    static const QStringList &names();

    bool isComplete() const;
    /// Removes the fifteen files and the two temporary ones whose names are reserved.
    void remove();

    /// Finishes a swap that was cut, or takes away what a run that was cut has left. Does nothing
    /// on a memory without a work folder.
    void recover();

    /// Starts a new set: an empty work folder. False when it can't be made.
    bool beginStaging();
    /// Writes one file of the new set, or a playlist that goes with it, into the work folder.
    /// \a name is relative to the root. False when it is not wholly there; commit() then fails.
    bool stage(const QString &name, const QByteArray &content);
    /// Puts the staged files in their places. False when one of the fifteen is missing or the
    /// memory refused; then the old set may be gone, and the caller removes what is there.
    bool commit();
    /// Takes the work folder away.
    void discard();

    /// Replaces one file of the memory as a whole, by way of the work folder.
    bool place(const QString &name, const QByteArray &content);

private:
    struct StagedFile {
        QString name;
        qint64 size = 0;
        QByteArray checksum;
    };

    QString workFolder() const;
    QString workFile(const QString &name) const;
    bool makeWorkFolder() const;
    bool writeMark() const;
    bool readMark(QList<StagedFile> &files) const;
    bool readStaged(const StagedFile &file, QByteArray &content) const;
    bool swap(const QList<StagedFile> &files);
    bool placeStaged(const StagedFile &file);

    QString m_root;
    QList<StagedFile> m_staged;
    bool m_stagingFailed = false;
};
