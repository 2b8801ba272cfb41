#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

/// The index files of one memory, and how a new set takes the place of the old one.
///
/// A memory has no journal, and a cut can leave any single step as the last one that reached it.
/// So the new files are first written into a work folder ".brisel2pc" and flushed; then a mark
/// with their names, sizes and checksums says that they are all there; then the old set is removed,
/// "fsinfos.id2" first, and the new one copied into its place, "fsinfos.id2" last. While
/// isComplete() is false the mark lets the next run finish the swap. See
/// docs/formats/player-index.md, "How a set is replaced".
class IndexSet
{
public:
    void setRoot(const QString &root) { m_root = root; }
    /// \a written is called after each file that was written: there may be thousands.
    void setPulse(std::function<void()> written) { m_written = std::move(written); }
    QString filePath(const QString &name) const;

    /// The fifteen files that make a set.
    static const QStringList &names();

    bool isComplete() const;
    /// Removes the fifteen files and the two temporary ones whose names are reserved.
    void remove();

    /// Finishes a swap that was cut while it had left no complete set, and takes away what else a
    /// run that was cut has left, but for the note of its path files. Does nothing on a memory
    /// without a work folder.
    void recover();

    /// Notes on the memory that path files of playlists are being written, before the first of
    /// them. The note stays until a run has used them. False when it can't be made.
    bool notePathFiles();
    /// True when a run wrote path files and came to no end that used them.
    bool hasUnusedPathFiles() const;

    /// Starts a new set: an empty work folder. False when it can't be made.
    bool beginStaging();
    /// Writes one file of the new set, or a playlist that goes with it, into the work folder.
    /// \a name is relative to the root. False when it is not wholly there; commit() then fails.
    bool stage(const QString &name, const QByteArray &content);
    /// Puts the staged files in their places. False when one of the fifteen is missing or the
    /// memory refused; then the old set may be gone, and the caller removes what is there. Either
    /// way the caller discards afterwards.
    bool commit();
    /// Takes the work folder away: the run has come to its end.
    void discard();
    /// Takes the work folder away but for the note of path files: the old index stays as it was.
    void abandon();

    /// Replaces one file of the memory as a whole, by way of the work folder.
    bool place(const QString &name, const QByteArray &content) const;

private:
    struct StagedFile {
        QString name;
        qint64 size = 0;
        QByteArray checksum;
        QByteArray content; ///< while the run that wrote it lasts; null when it is to be read back
    };

    QString workFolder() const;
    QString workFile(const QString &name) const;
    bool makeWorkFolder() const;
    void clearWorkFolder(const QString &kept);
    bool writeMark() const;
    bool readMark(QList<StagedFile> &files) const;
    bool readStaged(const StagedFile &file, QByteArray &content) const;
    bool swap(const QList<StagedFile> &files);
    bool placeStaged(const StagedFile &file);

    bool writeFile(const QString &path, const QByteArray &content,
                   QIODevice::OpenMode mode = QIODevice::WriteOnly) const;

    QString m_root;
    std::function<void()> m_written = [] {};
    QList<StagedFile> m_staged;
    qint64 m_kept = 0; ///< bytes of their contents
    bool m_stagingFailed = false;
};
