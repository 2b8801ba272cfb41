#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// The bytes that an example of a page spells out. Each line holds
///
///     an offset (four to eight digits and two blanks; may be left out), bytes, a remark
///
/// Bytes have two hexadecimal digits, or are "..", which stands for any. A remark stands three
/// blanks behind them. A line without an offset goes on where the one before ended.
class HexExample
{
public:
    /// Nothing when a line of \a text can't be read, or goes back, or there is no byte in it.
    static std::optional<HexExample> parse(const QString &text);

    /// True when every byte from 0 on is told.
    bool isComplete() const { return !m_isTold.contains(false); }
    /// From byte 0 on; a byte that is not told is 0.
    const QByteArray &bytes() const { return m_bytes; }
    /// \a base with the bytes that are told in their places.
    QByteArray over(QByteArray base) const;

private:
    void append(const QString &byte);

    QByteArray m_bytes;
    QList<bool> m_isTold; ///< one for each of m_bytes
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
/// The named blocks in the text of a page.
QList<Block> blocksIn(const QString &text);
/// The lines of code in the text of a page that look like bytes and stand in no "hex" block.
QStringList strayBytesIn(const QString &text);

} // namespace FormatPages
