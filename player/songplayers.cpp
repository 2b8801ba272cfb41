#include "player/songplayers.h"

#include "player/soundfont.h"

#ifdef BRISEL_HAS_FLUIDSYNTH
#include "player/midiplayer.h"
#endif
#ifdef BRISEL_HAS_MULTIMEDIA
#include "player/mp3player.h"
#endif

#include <utility>

namespace brisel
{

#ifdef BRISEL_HAS_FLUIDSYNTH
static constexpr bool hasFluidSynth = true;
#else
static constexpr bool hasFluidSynth = false;
#endif
#ifdef BRISEL_HAS_MULTIMEDIA
static constexpr bool hasMultimedia = true;
#else
static constexpr bool hasMultimedia = false;
#endif

const SongPlayers::Libraries SongPlayers::built{hasFluidSynth, hasMultimedia};

SongPlayers::SongPlayers(QString soundFont, Libraries libraries, SongPlayer::Output output)
    : m_soundFont(std::move(soundFont)), m_libraries(libraries), m_output(output)
{
}

std::unique_ptr<SongPlayer> SongPlayers::make(const PlayableSong &song, QString &trouble) const
{
    return song.isMidi() ? makeForMidi(trouble) : makeForMp3(trouble);
}

std::unique_ptr<SongPlayer> SongPlayers::makeForMidi(QString &trouble) const
{
    if (!m_libraries.midi) {
        trouble = tr("Questa versione del programma non suona i brani MIDI: è stata costruita "
                     "senza FluidSynth.");
        return nullptr;
    }
    const QString soundFont = soundFontFor(m_soundFont);
    if (soundFont.isEmpty()) {
        trouble = tr("Manca un SoundFont General MIDI: installare il pacchetto "
                     "timgm6mb-soundfont, o sceglierne uno in Preferenze.");
        return nullptr;
    }
#ifdef BRISEL_HAS_FLUIDSYNTH
    return std::make_unique<MidiPlayer>(soundFont, m_output);
#else
    return nullptr;
#endif
}

std::unique_ptr<SongPlayer> SongPlayers::makeForMp3(QString &trouble) const
{
    if (!m_libraries.mp3) {
        trouble = tr("Questa versione del programma non suona gli MP3: è stata costruita senza "
                     "Qt Multimedia.");
        return nullptr;
    }
#ifdef BRISEL_HAS_MULTIMEDIA
    return std::make_unique<Mp3Player>(m_output);
#else
    return nullptr;
#endif
}

} // namespace brisel
