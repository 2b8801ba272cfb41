#pragma once

#include "player/songplayer.h"

#include <memory>

namespace brisel
{

/// Makes the player for a song, as far as the libraries were there when the program was built.
class SongPlayers
{
    Q_DECLARE_TR_FUNCTIONS(SongPlayers)

public:
    /// What this program was built with.
    struct Libraries {
        bool midi; ///< FluidSynth
        bool mp3;  ///< Qt Multimedia
    };
    static const Libraries built;

    /// \a soundFont: the path that the user chose; empty for the usual ones.
    explicit SongPlayers(QString soundFont, Libraries libraries = built,
                         SongPlayer::Output output = SongPlayer::Output::Device);

    /// Returns a player for \a song. If the song can't be played, returns null and sets \a trouble
    /// to a text for the user.
    std::unique_ptr<SongPlayer> make(const PlayableSong &song, QString &trouble) const;

private:
    std::unique_ptr<SongPlayer> makeForMidi(QString &trouble) const;
    std::unique_ptr<SongPlayer> makeForMp3(QString &trouble) const;

    const QString m_soundFont;
    const Libraries m_libraries;
    const SongPlayer::Output m_output;
};

} // namespace brisel
