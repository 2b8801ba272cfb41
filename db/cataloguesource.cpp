#include "db/cataloguesource.h"

#include "base/debugstream.h"
#include "base/filewriting.h"
#include "base/plainfile.h"
#include "db/sqliteconnection.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QUrl>

namespace brisel
{

namespace
{

const QString localCatalogue = QStringLiteral("songsdb_debug");
const QString localLog = QStringLiteral("songsdb_debug-wal");
const QString builtInCatalogue = QStringLiteral(":/db/songsdb");

/// Moves the content of the write-ahead log into the database at \a path. Returns the error; empty
/// if there was none.
QString joinedError(const QString &path)
{
    QString error;
    QSqlDatabase connection = addSqliteConnection(QStringLiteral("con_joined"));
    connection.setDatabaseName(path);
    if (!connection.open()) {
        error = connection.lastError().text();
    } else {
        QSqlQuery query(connection);
        // Fails if the log could not be moved as a whole.
        if (!query.exec(QStringLiteral("PRAGMA journal_mode=DELETE")) || !query.next())
            error = query.lastError().text();
        else if (query.value(0).toString() != QStringLiteral("delete"))
            error = QStringLiteral("its write-ahead log can't be read");
    }
    removeSqliteConnection(connection);
    return error;
}

} // namespace

CatalogueSource::CatalogueSource() = default;

CatalogueSource::~CatalogueSource() = default;

void CatalogueSource::clear()
{
    m_unpacked.reset();
    m_joined.reset();
    m_path.clear();
    m_uri.clear();
}

bool CatalogueSource::prepare()
{
    // Opening a FIFO would block forever.
    PlainFile file;
    const bool isOpen = file.open(localCatalogue);
    // In a working folder that can't be entered no entry exists for the program.
    if (file.state().kind == FileKind::Missing || (!isOpen && !entryExists(localCatalogue)))
        return unpack();
    debug() << "Using local file: 'songsdb_debug' as database";
    return useLocal(file);
}

bool CatalogueSource::refuse(const QString &reason) const
{
    debug() << qPrintable(
        QStringLiteral("[Database::init] FATAL: Unable to use the db: %1").arg(reason));
    return false;
}

bool CatalogueSource::use(const QString &path, const FileState &state)
{
    m_path = QFileInfo(path).absoluteFilePath();
    m_state = state;
    // Immutable: no locks, and no other file is created, for any header of the file.
    m_uri = QString::fromLatin1(QUrl::fromLocalFile(m_path).toEncoded() + "?immutable=1");
    return true;
}

bool CatalogueSource::useLocal(const PlainFile &file)
{
    if (!file.isOpen())
        return refuse(file.state().kind == FileKind::Regular ||
                              file.state().kind == FileKind::Unreachable
                          ? QStringLiteral("the file can't be read")
                          : QStringLiteral("it is not a file"));
    if (isRegularFile(localLog) && QFileInfo(localLog).size() > 0)
        return joinLog(file.state());
    return use(localCatalogue, file.state());
}

bool CatalogueSource::joinLog(const FileState &state)
{
    const FileState log = fileState(localLog);
    m_joined = std::make_unique<QTemporaryDir>();
    const QString copy = m_joined->filePath(localCatalogue);
    const QString logCopy = m_joined->filePath(localLog);
    if (!m_joined->isValid() || !QFile::copy(localCatalogue, copy) ||
        !QFile::copy(localLog, logCopy) ||
        !QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner) ||
        !QFile::setPermissions(logCopy, QFile::ReadOwner | QFile::WriteOwner))
        return refuse(QStringLiteral("its write-ahead log can't be copied"));
    if (fileState(localCatalogue) != state || fileState(localLog) != log)
        return refuse(QStringLiteral("another program is writing it"));
    if (const QString error = joinedError(copy); !error.isEmpty())
        return refuse(error);
    return use(copy, fileState(copy));
}

bool CatalogueSource::unpack()
{
    m_unpacked = std::make_unique<QTemporaryFile>();
    if (!m_unpacked->open()) {
        debug() << "[Database::init] FATAL: Unable to create temporary files !!!";
        return false;
    }
    debug() << "[Database::init] Created temporary db file: " << m_unpacked->fileName();

    QFile resource(builtInCatalogue);
    if (!resource.open(QIODevice::ReadOnly)) {
        debug() << "[Database::init] FATAL: Unable to open db resource file !!!";
        return false;
    }
    const QByteArray catalogue = resource.readAll();
    // SQLite silently opens an empty or truncated copy, so a full disk must be detected here.
    if (!writeAll(*m_unpacked, catalogue) || !m_unpacked->flush() ||
        m_unpacked->error() != QFileDevice::NoError || m_unpacked->size() != catalogue.size()) {
        debug() << "[Database::init] FATAL: Unable to create temporary files !!!";
        return false;
    }
    return use(m_unpacked->fileName(), fileState(m_unpacked->fileName()));
}

} // namespace brisel
