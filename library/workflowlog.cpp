#include "library/workflowlog.h"

#include "base/debugstream.h"

#include <QByteArray>

namespace brisel
{

void logBanner(const char *name)
{
    const QByteArray rule(44, '=');
    const QByteArray title = QByteArray(10, ' ') + name;
    debug() << rule.constData();
    debug() << title.constData();
    debug() << rule.constData();
}

void logSongEnd()
{
    static const QByteArray rule(74, '=');
    debug() << rule.constData();
    debug() << "";
}

} // namespace brisel
