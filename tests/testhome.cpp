#include "tests/testhome.h"

#include <QDir>

TestHome::TestHome() : m_oldFolder(QDir::currentPath())
{
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
}

QString TestHome::path() const
{
    return m_folder.path();
}

QString TestHome::filePath(const QString &name) const
{
    return m_folder.filePath(name);
}
