#pragma once

#include "base/settingsstore.h"

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

} // namespace Settings

} // namespace brisel
