#include "tests/testhome.h"

#include <QDir>

#include <filesystem>

namespace brisel
{

/// Removes \a folder with all of its content, including names that are invalid UTF-8, which QDir
/// can't list, and folders without permissions.
static void removeAll(const QTemporaryDir &folder)
{
    namespace fs = std::filesystem;
    const fs::path path(QFile::encodeName(folder.path()).constData());
    std::error_code failure;
    fs::remove_all(path, failure);
    if (!failure)
        return;
    // A folder must be readable before its subfolders can be found.
    fs::permissions(path, fs::perms::owner_all, fs::perm_options::add, failure);
    for (fs::recursive_directory_iterator entry(path, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        std::error_code ignored;
        if (entry->symlink_status(ignored).type() == fs::file_type::directory)
            fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
    fs::remove_all(path, failure);
    if (failure)
        qWarning("can't remove %s: %s", path.c_str(), failure.message().c_str());
}

TestHome::TestHome() : m_oldFolder(QDir::currentPath())
{
    m_folder.setAutoRemove(false);
    m_temporary.setAutoRemove(false);
    const QByteArray home = QFile::encodeName(m_folder.path());
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                             "XDG_CONFIG_DIRS", "XDG_STATE_HOME"})
        qputenv(name, home);
    for (const char *name : {"TMPDIR", "XDG_RUNTIME_DIR"})
        qputenv(name, QFile::encodeName(m_temporary.path()));
    qunsetenv("QT_LOGGING_RULES");
    QDir::setCurrent(m_folder.path());
}

TestHome::~TestHome()
{
    QDir::setCurrent(m_oldFolder);
    removeAll(m_folder);
    removeAll(m_temporary);
}

} // namespace brisel
