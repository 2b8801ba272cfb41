#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <cstddef>

/// Shared functions of the fuzz targets. See docs/reliability.md.

/// Ends the program if \a condition is false; both the fuzzer and the replay detect that.
#define REQUIRE(condition)                                                                         \
    ((condition) ? static_cast<void>(0) : promiseBroken(#condition, __FILE__, __LINE__))

[[noreturn]] void promiseBroken(const char *condition, const char *file, int line);

/// The largest input in bytes, and the limits of handling one.
constexpr qsizetype maxInput = 1024 * 1024;
constexpr std::size_t maxHeap = 64 * 1024 * 1024; ///< bytes more than before the input
constexpr double maxCpuSeconds = 1;               ///< of an optimised build

/// Runs \a check with expandedInput(\a raw). Ends the program if that exceeds a limit of memory or
/// time.
void runBounded(void (*check)(const QByteArray &), const QByteArray &raw);

/// Starts an input that stands for a large one. It is followed by the number of bytes of a head (2
/// bytes, little-endian), the head, and a piece that is repeated up to `maxInput`. So inputs that
/// take too long for their size can be found, and stay small files.
inline const QByteArray repeatMark = QByteArrayLiteral("\xF5*REPEAT*");
QByteArray repeated(const QByteArray &head, const QByteArray &piece);
QByteArray expandedInput(const QByteArray &raw);

/// Silences the program's messages.
void silenceLog();

/// A new, empty folder for the process; on a RAM disk if there is one.
QString scratchFolder();

/// Operations and values for the setters, taken from an input's end, so that its start is a plain
/// file of the format in question.
class Script
{
public:
    explicit Script(const QByteArray &input) : m_input(input), m_end(input.size()) {}

    bool atEnd() const { return m_end <= 0; }
    /// Returns 0 at the end.
    quint8 byte();
    int number();
    /// Up to 255 bytes, read as Latin-1 or, if the length is odd, as UTF-8.
    QString text();

private:
    QByteArray m_input;
    qsizetype m_end;
};

/// One input as the contents of several files: a sequence of pieces, each a byte that names the
/// file (modulo \a count), a byte with the length, and the bytes.
QList<QByteArray> splitInput(const QByteArray &input, int count);
/// The pieces that give the file number \a file \a content.
QByteArray joinedPieces(int file, const QByteArray &content);

/// Makes the file \a path with \a content, and its parent folders.
void putFile(const QString &path, const QByteArray &content);
/// The content of the file \a path; null if there is no such file.
QByteArray fileBytes(const QString &path);
