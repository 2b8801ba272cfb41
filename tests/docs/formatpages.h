#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace brisel
{

/// The bytes that an example of a page spells out. Each line holds
///
///     an offset (four to eight digits and two blanks; may be left out), bytes, a remark
/// A byte has two hexadecimal digits, or is "..", which means any byte. A remark follows after
/// three blanks. A line without an offset continues where the previous line ended.
class HexExample
{
public:
    /// Returns nothing if a line of \a text is invalid or goes back, or \a text has no bytes.
    static std::optional<HexExample> parse(const QString &text);

    /// True if every byte from 0 on is given.
    bool isComplete() const { return !m_isGiven.contains(false); }
    /// The bytes from offset 0 on; a byte that is not given is 0.
    const QByteArray &bytes() const { return m_bytes; }
    /// \a base with the given bytes written over it at their offsets.
    QByteArray over(QByteArray base) const;

private:
    void append(const QString &byte);

    QByteArray m_bytes;
    QList<bool> m_isGiven; ///< one for each of m_bytes
};

/// The pages of docs/formats. Their examples are fenced blocks that start with three backquotes,
/// what the block is ("hex" or "csv"), a blank and the example's name.
namespace FormatPages
{

struct Block {
    QString kind;
    QString name;
    QString text;
};

/// The pages' file names.
QStringList names();
QString text(const QString &page);
/// The named blocks of the kind in the text of a page.
QList<Block> blocksIn(const QString &text);
/// The lines of code in the text of a page that look like bytes and are not in a "hex" block.
QStringList strayBytesIn(const QString &text);

} // namespace FormatPages

} // namespace brisel
