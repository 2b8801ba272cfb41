#include "base/csvreader.h"

#include <algorithm>

namespace brisel
{

static constexpr qsizetype mostFields = 100; ///< of a record

CsvReader::CsvReader(const QByteArray &content) : m_content(content)
{
    if (content.startsWith("\xEF\xBB\xBF"))
        m_pos = 3;
}

std::optional<QStringList> CsvReader::next()
{
    const qsizetype start = m_pos;
    QStringList fields;
    m_isLast = false;
    while (!m_isLast) {
        QByteArray field;
        const bool isRead = fields.size() < mostFields && readField(field);
        if (!isRead || !field.isValidUtf8()) {
            m_pos = start;
            return invalid();
        }
        fields.append(QString::fromUtf8(field));
    }
    return fields;
}

/// Skips the line.
std::optional<QStringList> CsvReader::invalid()
{
    const qsizetype end = m_content.indexOf('\n', m_pos);
    m_pos = end < 0 ? m_content.size() : end + 1;
    return std::nullopt;
}

/// Reads a field and what ends it.
bool CsvReader::readField(QByteArray &field)
{
    const bool isQuoted = m_pos < m_content.size() && m_content.at(m_pos) == '"';
    if (isQuoted && !readQuoted(field))
        return false;
    qsizetype end = m_pos;
    while (end < m_content.size() && m_content.at(end) != ',' && m_content.at(end) != '\n')
        ++end;
    QByteArray rest = m_content.mid(m_pos, end - m_pos);
    m_isLast = end >= m_content.size() || m_content.at(end) == '\n';
    m_pos = std::min(end + 1, m_content.size());
    if (m_isLast && rest.endsWith('\r'))
        rest.chop(1);
    if (isQuoted)
        return rest.isEmpty();
    field = rest;
    return !rest.contains('"');
}

/// Reads the text between two quotation marks.
bool CsvReader::readQuoted(QByteArray &field)
{
    qsizetype pos = m_pos + 1;
    for (;;) {
        const qsizetype mark = m_content.indexOf('"', pos);
        if (mark < 0)
            return false;
        field += m_content.mid(pos, mark - pos);
        pos = mark + 1;
        if (pos >= m_content.size() || m_content.at(pos) != '"')
            break;
        field += m_content.at(pos++);
    }
    m_pos = pos;
    return true;
}

QByteArray CsvReader::quoted(const QString &text)
{
    return '"' + text.toUtf8().replace('"', "\"\"") + '"';
}

} // namespace brisel
