#include "player/soundfont.h"

#include "base/fileidentity.h"

#include <algorithm>

namespace brisel
{

QStringList usualSoundFonts()
{
    const QString shared = QStringLiteral("/usr/share/");
    return {shared + QStringLiteral("sounds/sf2/TimGM6mb.sf2"),
            shared + QStringLiteral("sounds/sf2/default-GM.sf2"),
            shared + QStringLiteral("sounds/sf3/default-GM.sf3"),
            shared + QStringLiteral("sounds/sf2/FluidR3_GM.sf2"),
            shared + QStringLiteral("soundfonts/default.sf2"),
            shared + QStringLiteral("soundfonts/FluidR3_GM.sf2")};
}

QString soundFontFor(const QString &chosen, const QStringList &usual)
{
    if (!chosen.isEmpty())
        return chosen;
    const auto found = std::find_if(usual.cbegin(), usual.cend(), isRegularFile);
    return found == usual.cend() ? QString() : *found;
}

} // namespace brisel
