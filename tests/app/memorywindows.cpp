#include "tests/app/memorywindows.h"

#include "base/run.h"
#include "index/indexset.h"
#include "memory/dialogs/exportlistdialog.h"
#include "memory/dialogs/memorywindow.h"
#include "memory/dialogs/renamesongdialog.h"
#include "memory/dialogs/repairdialog.h"
#include "memory/entryguess.h"
#include "memory/memorycontents.h"
#include "memory/playlistdocument.h"
#include "memory/songrename.h"
#include "tests/logcapture.h"
#include "tests/scriptedindex.h"
#include "tools/samplesongs.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QLineEdit>
#include <QProgressBar>
#include <QTabWidget>
#include <QTimeZone>
#include <QTreeView>

namespace brisel
{

namespace
{

const QString volumes = QStringLiteral("volumes");

/// Gives a file a known time: the pictures of a window are the same on every day.
bool setKnownTime(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadWrite) &&
           file.setFileTime(QDateTime({2024, 5, 4}, {12, 0}, QTimeZone::utc()),
                            QFileDevice::FileModificationTime);
}

bool write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// Writes two playlists of the memory \a root: some of its songs, and one that is not there.
bool writePlaylists(const QString &root)
{
    constexpr int record = 64; // bytes
    QFile titles(root + QStringLiteral("/title.id2"));
    if (!titles.open(QIODevice::ReadOnly) || !QDir(root).mkpath(QStringLiteral("playlist")))
        return false;
    const QByteArray songs = titles.readAll();
    QByteArray gone = songs.left(record);
    gone.replace(0, 4, QByteArray::fromHex("00000777")); // an id that no song has
    const QString folder = root + QStringLiteral("/playlist/");
    return write(folder + QStringLiteral("playlist.dat"),
                 QByteArray::fromHex("0100") + QByteArray(30, '\0') + QByteArray::fromHex("0200") +
                     QByteArray(30, '\0')) &&
           write(folder + QStringLiteral("play0001.dat"),
                 songs.mid(3 * record, 2 * record) + gone + songs.mid(record, record)) &&
           write(folder + QStringLiteral("play0002.dat"), songs.right(3 * record));
}

/// Makes a memory "BRISEL" with an index, which some of its songs no longer match. Returns its
/// root; empty on failure.
QString makeMemory()
{
    const LogCapture quiet;
    const QString root = QDir::current().filePath(volumes + QStringLiteral("/BRISEL"));
    const QString folder = root + QStringLiteral("/BASI");
    QStringList paths;
    if (!QDir(root).removeRecursively() || !QDir().mkpath(folder) ||
        !SampleSongs::writeSet(folder, &paths))
        return {};
    ScriptedIndex index;
    index.setRenameQuestion([](const QString &, const QString &) { return 1; });
    if (!index.createIndex(root) || !writePlaylists(root))
        return {};
    const QStringList songs =
        QDir(folder).entryList({QStringLiteral("*.mid")}, QDir::Files, QDir::Name);
    for (const QString &name : IndexSet::names()) {
        if (!setKnownTime(root + u'/' + name))
            return {};
    }
    const bool isChanged =
        songs.size() > 3 && QFile::remove(folder + u'/' + songs.at(1)) &&
        setKnownTime(folder + u'/' + songs.at(2)) &&
        QFile::copy(folder + u'/' + songs.at(0), folder + QStringLiteral("/NUOVA.MID")) &&
        QFile::copy(folder + u'/' + songs.at(0), folder + QStringLiteral("/VALZER.CDG"));
    return isChanged ? root : QString();
}

/// A window that closes the mount folder behind it.
class Window : public MemoryWindow
{
public:
    ~Window() override { qunsetenv("BRISEL_VOLUMES"); }
};

/// The contents of a memory and its playlists; empty on failure.
struct ReadMemory {
    ReadMemory()
    {
        const QString root = makeMemory();
        Run run;
        if (root.isEmpty() || contents->read(root, run) != MemoryContents::Outcome::Done)
            return;
        document.setContents(contents);
    }
    bool isRead() const { return contents->size() > 0 && document.count() > 0; }

    std::shared_ptr<MemoryContents> contents = std::make_shared<MemoryContents>();
    PlaylistDocument document;
};

struct Renaming {
    explicit Renaming(const ReadMemory &memory)
        : rename(memory.contents->root(), *memory.contents,
                 memory.contents->root() + (memory.isRead() ? memory.contents->path(0) : QString()))
    {
    }

    SongRename rename;
};

constexpr qsizetype goneEntry = 2; // of the first playlist

} // namespace

std::unique_ptr<QWidget> makeMemoryWindow()
{
    if (makeMemory().isEmpty())
        return nullptr;
    qputenv("BRISEL_VOLUMES", QFile::encodeName(QDir::current().filePath(volumes)));
    auto window = std::make_unique<Window>();
    const auto *folders = window->findChild<QTreeView *>(QStringLiteral("foldersTreeView"));
    constexpr int rounds = 10000; // at most; each works for some milliseconds
    for (int i = 0; i < rounds && folders->model()->rowCount() == 0; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    auto *bar = window->findChild<QProgressBar *>(QStringLiteral("spaceProgressBar"));
    const QStringList space{QStringLiteral("12 GB"), QStringLiteral("15 GB")};
    bar->setFormat(QCoreApplication::translate("brisel::MemoryWindow", "%1 liberi di %2")
                       .arg(space.at(0), space.at(1)));
    bar->setValue(180);
    auto *songs = window->findChild<QTreeView *>(QStringLiteral("songsTreeView"));
    songs->setCurrentIndex(songs->model()->index(2, 0));
    return window;
}

std::unique_ptr<QWidget> makeMemoryFoldersWindow()
{
    std::unique_ptr<QWidget> window = makeMemoryWindow();
    if (window != nullptr)
        window->findChild<QTabWidget *>()->setCurrentIndex(1);
    return window;
}

std::unique_ptr<QWidget> makeRenameSongDialog()
{
    class Dialog : private ReadMemory, private Renaming, public RenameSongDialog
    {
    public:
        Dialog() : Renaming(static_cast<const ReadMemory &>(*this)), RenameSongDialog(rename) {}
        using ReadMemory::isRead;
    };
    auto dialog = std::make_unique<Dialog>();
    dialog->findChild<QLineEdit *>()->setText(QStringLiteral("Santa:Lucia"));
    return dialog->isRead() ? std::move(dialog) : nullptr;
}

std::unique_ptr<QWidget> makeExportListDialog()
{
    return std::make_unique<ExportListDialog>(SetFiles::Titles);
}

std::unique_ptr<QWidget> makeRepairDialog()
{
    class Dialog : private ReadMemory, public RepairDialog
    {
    public:
        Dialog()
            : RepairDialog(*contents, isRead() ? document.title(0, goneEntry) : QString(),
                           isRead() ? EntryGuess::of(document, 0, goneEntry) : QList<EntryGuess>())
        {
        }
        using ReadMemory::isRead;
    };
    auto dialog = std::make_unique<Dialog>();
    return dialog->isRead() ? std::move(dialog) : nullptr;
}

} // namespace brisel
