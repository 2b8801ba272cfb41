#include "base/filereading.h"

#include <QFile>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

bool readPlainFile(const QString &path, qint64 maximum, QByteArray &content)
{
    QFile file(path);
    if (!isRegularFile(path) || !file.open(QIODevice::ReadOnly) || file.size() > maximum)
        return false;
    // Room is made for what is asked for: a limit that itself comes from a file may be absurd.
    content = file.read(std::min(maximum, file.size()));
    return file.error() == QFileDevice::NoError;
}

#ifdef Q_OS_UNIX

bool readFileStart(const QString &path, qsizetype maximum, QByteArray &start, FileState &state)
{
    const QByteArray name = QFile::encodeName(path);
    const int handle = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    start.resize(0); // and not cleared: it keeps its room for the next file
    if (handle < 0) {
        state = fileState(path);
        return false;
    }
    state = fileState(handle);
    qsizetype done = 0;
    ssize_t count = state.kind == FileKind::Regular ? 1 : -1;
    start.resize(maximum);
    while (count > 0 && done < maximum) {
        count = ::read(handle, start.data() + done, static_cast<size_t>(maximum - done));
        done += std::max<ssize_t>(count, 0);
    }
    ::close(handle);
    start.resize(done);
    return count >= 0;
}

#else

bool readFileStart(const QString &path, qsizetype maximum, QByteArray &start, FileState &state)
{
    QFile file(path);
    start.clear();
    state = fileState(path);
    if (state.kind != FileKind::Regular || !file.open(QIODevice::ReadOnly))
        return false;
    start = file.read(maximum);
    return file.error() == QFileDevice::NoError;
}

#endif
