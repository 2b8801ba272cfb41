#include "tests/docs/formatpages.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>

namespace brisel
{

namespace
{

const QString fence = u"```"_qs;

/// Calls \a code for each line of code with the fence line above it; empty if the line is code
/// because it is indented.
template <typename Code>
void forEachCodeLine(const QString &text, Code code)
{
    QString opening;
    for (const QString &line : text.split(u'\n')) {
        if (line.startsWith(fence))
            opening = opening.isEmpty() ? line : QString();
        else if (!opening.isEmpty() || line.startsWith(u"    "_qs))
            code(opening, line);
    }
}

} // namespace

std::optional<HexExample> HexExample::parse(const QString &text)
{
    static const QRegularExpression line(
        u"^(?:([0-9A-Fa-f]{4,8})  )?((?:[0-9A-Fa-f]{2}|\\.\\.)(?:  ?(?:[0-9A-Fa-f]{2}|\\.\\.))*)"
        "(?:   .*)?$"_qs);
    HexExample example;
    for (const QString &written : text.split(u'\n', Qt::SkipEmptyParts)) {
        const QRegularExpressionMatch match = line.match(written);
        if (!match.hasMatch())
            return {};
        if (match.hasCaptured(1)) {
            const qsizetype offset = match.captured(1).toUInt(nullptr, 16);
            if (offset < example.m_bytes.size() || offset > 0xFFFF)
                return {};
            while (example.m_bytes.size() < offset)
                example.append(u".."_qs);
        }
        for (const QString &byte : match.captured(2).split(u' ', Qt::SkipEmptyParts))
            example.append(byte);
    }
    if (!example.m_isGiven.contains(true))
        return {};
    return example;
}

void HexExample::append(const QString &byte)
{
    m_isGiven.append(byte != u".."_qs);
    m_bytes.append(static_cast<char>(byte.toUInt(nullptr, 16)));
}

QByteArray HexExample::over(QByteArray base) const
{
    base.resize(std::max(base.size(), m_bytes.size()), '\0');
    for (qsizetype i = 0; i < m_bytes.size(); ++i) {
        if (m_isGiven.at(i))
            base[i] = m_bytes.at(i);
    }
    return base;
}

QStringList FormatPages::names()
{
    return QDir(QStringLiteral(BRISEL_FORMAT_PAGES)).entryList({u"*.md"_qs}, QDir::Files);
}

QString FormatPages::text(const QString &page)
{
    QFile file(QStringLiteral(BRISEL_FORMAT_PAGES "/") + page);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("can't read %s", qPrintable(page));
    return QString::fromUtf8(file.readAll());
}

QList<FormatPages::Block> FormatPages::blocksIn(const QString &text)
{
    QList<Block> blocks;
    QString last;
    forEachCodeLine(text, [&](const QString &opening, const QString &line) {
        const QStringList words = opening.mid(fence.size()).split(u' ', Qt::SkipEmptyParts);
        if (words.size() == 2) {
            if (opening != last)
                blocks.append({words.at(0), words.at(1), QString()});
            blocks.last().text += line + u'\n';
        }
        last = opening;
    });
    return blocks;
}

QStringList FormatPages::strayBytesIn(const QString &text)
{
    static const QRegularExpression bytes(
        u"^\\s*(?:[0-9A-Fa-f]{4,8}:?\\s+)?(?:[0-9A-Fa-f]{2}\\s+){2,}"_qs);
    QStringList stray;
    forEachCodeLine(text, [&](const QString &opening, const QString &line) {
        if (!opening.startsWith(fence + u"hex "_qs) && bytes.match(line + u' ').hasMatch())
            stray.append(line);
    });
    return stray;
}

} // namespace brisel
