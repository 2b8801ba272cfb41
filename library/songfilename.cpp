#include "library/songfilename.h"

#include <QRegularExpression>

namespace brisel
{

QString titleFromFileName(const QString &path)
{
    const qsizetype start = path.lastIndexOf(u'/') + 1;
    const qsizetype length = path.lastIndexOf(u'.') - start;
    return path.mid(start, length < 0 ? -1 : length);
}

static QString withoutNumber(QString text)
{
    static const QRegularExpression number(QStringLiteral(
        "^(?:[(\\[]\\d{1,3}[)\\]]|\\d{1,3}\\s*(?:[-–—)]|\\.(?!\\d))|0\\d{0,2}\\s)\\s*(?=\\S)"));
    return text.remove(number);
}

NamedSong songFromFileName(const QString &path)
{
    static const QRegularExpression dash(QStringLiteral("\\s[-–—]\\s"));
    const QString name = withoutNumber(titleFromFileName(path).replace(u'_', u' ').simplified());
    const QRegularExpressionMatch match = dash.match(name);
    if (!match.hasMatch())
        return {{}, name};
    return {name.left(match.capturedStart()), withoutNumber(name.mid(match.capturedEnd()))};
}

} // namespace brisel
