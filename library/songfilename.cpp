#include "library/songfilename.h"

namespace brisel
{

QString titleFromFileName(const QString &path)
{
    const qsizetype start = path.lastIndexOf(u'/') + 1;
    const qsizetype length = path.lastIndexOf(u'.') - start;
    return path.mid(start, length < 0 ? -1 : length);
}

} // namespace brisel
