#pragma once

#include <QList>
#include <QString>

/// One row of a catalogue to be written: see docs/formats/catalogue.md.
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

/// Writes the SQLite file \a path with \a rows in their order; a file of that name is replaced.
/// The same rows give the same bytes. False, with \a error filled and no file left, when a row is
/// refused (a file name twice) or the file can't be written.
bool writeCatalogue(const QString &path, const QList<CatalogueRow> &rows, QString &error);
