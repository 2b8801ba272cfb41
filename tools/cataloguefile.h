#pragma once

#include <QList>
#include <QString>

namespace brisel
{

/// One row of a catalogue, see docs/formats/catalogue.md.
struct CatalogueRow {
    QString title;
    QString artist;
    QString genre;
    QString author;
    int length = 0; ///< whole seconds
    int bpm = 0;    ///< beats per minute
    QString key;
    QString fileName;
    QString markers; ///< bar;text; pairs; empty = NULL in the file
    QString altArtist;
};

/// Writes the SQLite file \a path with \a rows in their order, and replaces an existing file. The
/// same rows give the same bytes. Returns false, with \a error filled and no file left, if a row is
/// refused (a duplicate file name) or the file can't be written.
bool writeCatalogue(const QString &path, const QList<CatalogueRow> &rows, QString &error);

} // namespace brisel
