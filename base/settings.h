#pragma once

#include "base/settingsstore.h"

#include <QStringList>
#include <QVariant>

namespace brisel
{

/// One setting: its key in the store, and its initial value.
template <typename Value>
struct Setting {
    QLatin1StringView key;
    Value initial;

    /// The value in \a settings, or the initial one.
    Value in(const QSettings &settings) const
    {
        return settings.value(key, initial).template value<Value>();
    }
    /// Stores \a value at once. One that can't be written is logged.
    void store(QSettings &settings, const Value &value) const { keepSetting(settings, key, value); }
};

/// All settings of the program.
namespace Settings
{

/// Language of the windows: "it", "en" or "de".
inline const Setting<QString> language{QLatin1StringView("language"), QStringLiteral("it")};
/// Whether to ask before songs of other publishers are changed.
inline constexpr Setting<bool> copyrightAsk{QLatin1StringView("copyrightAsk"), true};
/// Whether messages are written to the log.
inline constexpr Setting<bool> logEnabled{QLatin1StringView("logenabled"), false};
/// Whether each start of the program empties the log.
inline constexpr Setting<bool> logClear{QLatin1StringView("logclear"), false};
/// The most that the history of changes may take on the disk, in MiB.
inline constexpr Setting<int> historyLimit{QLatin1StringView("historylimit"), 1024};
/// The folder of the memory that was worked on last.
inline const Setting<QString> mediaRoot{QLatin1StringView("mediaroot"), QString()};
/// The columns of the library's table, as ColumnLayout describes them.
inline const Setting<QString> columns{QLatin1StringView("columns"), QString()};
/// The place and size of the main window: "x,y,width,height", and ",max" if it is maximised.
inline const Setting<QString> windowPlace{QLatin1StringView("windowplace"), QString()};
/// The same for the window of the memory.
inline const Setting<QString> memoryPlace{QLatin1StringView("memoryplace"), QString()};
/// Whether the table shows files that could not be read.
inline constexpr Setting<bool> showUnreadable{QLatin1StringView("showunreadable"), false};
/// Whether the plan is shown before a transfer.
inline constexpr Setting<bool> transferPlan{QLatin1StringView("transferplan"), false};
/// The folders that were chosen last in the dialogs for songs, transfer, backup, copies from a
/// memory, and report.
inline const Setting<QString> songsFolder{QLatin1StringView("songsfolder"), QString()};
inline const Setting<QString> transferFolder{QLatin1StringView("transferfolder"), QString()};
inline const Setting<QString> backupFolder{QLatin1StringView("backupfolder"), QString()};
inline const Setting<QString> copyBackFolder{QLatin1StringView("copybackfolder"), QString()};
inline const Setting<QString> reportFolder{QLatin1StringView("reportfolder"), QString()};
/// The folders from which songs were taken, the last one first.
inline const Setting<QStringList> recentFolders{QLatin1StringView("recentfolders"), QStringList()};
/// The memories that were worked on, the last one first.
inline const Setting<QStringList> recentMemories{QLatin1StringView("recentmemories"),
                                                 QStringList()};
/// How fast the memories were, the last one first: "bytes per second, blank, root".
inline const Setting<QStringList> memorySpeeds{QLatin1StringView("memoryspeeds"), QStringList()};
/// The sound font for MIDI songs; empty for the one that the system has.
inline const Setting<QString> soundFont{QLatin1StringView("soundfont"), QString()};

} // namespace Settings

} // namespace brisel
