// The part of MetaSong that shows its changes to a keeper.

#include "base/plainfile.h"
#include "songfile/metasong.h"
#include "songfile/songkeeper.h"

#include <algorithm>

namespace brisel
{

/// What has to be done before the file is changed.
std::function<void()> MetaSong::keeping() const
{
    if (m_keeper == nullptr)
        return {};
    return [keeper = m_keeper] { keeper->flush(); };
}

/// Before \a content replaces what was read.
void MetaSong::keepMidi(const QByteArray &content)
{
    if (m_keeper == nullptr || content == m_content)
        return;
    m_keeper->keep({m_path, getFormatString(m_song.fileType()), Fingerprint::ofWhole(m_content),
                    Fingerprint::ofWhole(content), fieldChanges(m_loaded.info(), m_song.info()),
                    m_content});
}

/// Before the tag of \a file, which starts with \a head, is replaced. Returns false if the audio
/// can't be read.
bool MetaSong::keepMp3(const PlainFile &file, const QByteArray &head, qint64 audioStart)
{
    const QByteArray tag = m_song.tag();
    const QByteArray oldTag = head.left(audioStart);
    if (m_keeper == nullptr || tag == oldTag)
        return true;
    const qint64 audioSize = file.size() - oldTag.size();
    QByteArray audio;
    if (!file.read(oldTag.size(), std::min(audioSize, Fingerprint::checkedAudio), audio))
        return false;
    m_keeper->keep({m_path, getFormatString(m_song.fileType()),
                    Fingerprint::ofMp3(oldTag, audio, file.size()),
                    Fingerprint::ofMp3(tag, audio, tag.size() + audioSize),
                    fieldChanges(m_loaded.info(), m_song.info()), oldTag});
    return true;
}

} // namespace brisel
