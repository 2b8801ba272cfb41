#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace brisel
{

/// Reads the records of a table of comma-separated values (RFC 4180) in UTF-8, with or without a
/// byte order mark. Records may also end with a line feed alone.
class CsvReader
{
public:
    /// \a content must outlive this object.
    explicit CsvReader(const QByteArray &content);

    /// Returns true if there is another record; a line break at the end begins none.
    bool hasNext() const { return m_pos < m_content.size(); }
    /// The fields of the next record. Returns nothing if it is invalid: a quotation mark is in the
    /// wrong place or missing, a text is not UTF-8, or there are more than 100 fields. The next
    /// record then begins in the next line.
    std::optional<QStringList> next();

    /// \a text as a quoted field.
    static QByteArray quoted(const QString &text);

private:
    std::optional<QStringList> invalid();
    bool readField(QByteArray &field);
    bool readQuoted(QByteArray &field);

    const QByteArray &m_content;
    qsizetype m_pos = 0;
    bool m_isLast = false; ///< the last field ended its record
};

} // namespace brisel
