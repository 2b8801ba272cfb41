#pragma once

#include "base/bytes.h"
#include "songfile/lzhuff.h"
#include "songfile/metasong.h"
#include "tests/fulldisk.h"
#include "tests/logcapture.h"
#include "tests/songfile/samples.h"
#include "tests/testprogram.h"

#include <QtTest>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#endif

namespace brisel
{

namespace Samples
{

using namespace Qt::StringLiterals;

inline const QString readOnlyOk = u"remove read only flag: OK "_s;
inline const QString writeFailed =
    u"[MetaSong::saveToFile] Impossible to write to file. Maybe it's write "
    "protected? Aborting! "_s;

inline QByteArray oldSong(const QString &name)
{
    const QByteArray music = midi(metaEvent(3, "Old"));
    if (name.endsWith(u"mp3"_s))
        return tag(frame("TIT2", "Old")) + Samples::audio(250000);
    if (name.endsWith(u"zb3"_s))
        return Samples::container(Samples::containerHeader("_ZB3", 512), music);
    return music;
}

/// Songs in a separate folder, and the log.
class SongSavingTest : public QObject
{
protected:
    void setUp();
    void tearDown();

    void writeSong(const QString &name, const QByteArray &content);
    MetaSong changedSong(const QString &name);
    QStringList entries() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<LogCapture> m_log;
};

inline void SongSavingTest::setUp()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QDir::setCurrent(m_folder->path());
    m_log = std::make_unique<LogCapture>();
}

inline void SongSavingTest::tearDown()
{
    m_log.reset();
    QDir::setCurrent(u"/"_s);
    m_folder.reset();
}

inline QStringList SongSavingTest::entries() const
{
    return QDir(m_folder->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

inline void SongSavingTest::writeSong(const QString &name, const QByteArray &content)
{
    Samples::write(name, content);
}

/// The old song under \a name, opened and given another title.
inline MetaSong SongSavingTest::changedSong(const QString &name)
{
    if (!QFile::exists(name))
        writeSong(name, oldSong(name));
    MetaSong song;
    if (!song.importFile(name))
        qFatal("refused");
    SongInfo info;
    info.title = u"New"_s;
    song.setSongInfo(info, true);
    m_log->clear();
    return song;
}

} // namespace Samples

} // namespace brisel
