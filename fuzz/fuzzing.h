#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <cstddef>

/// What every fuzz target leans on. See docs/reliability.md.

/// Ends the program when a promise is broken; both the fuzzer and the replay notice that.
#define REQUIRE(condition)                                                                         \
    ((condition) ? static_cast<void>(0) : promiseBroken(#condition, __FILE__, __LINE__))

[[noreturn]] void promiseBroken(const char *condition, const char *file, int line);

/// The largest input, in bytes, and what the handling of one may take.
constexpr qsizetype maxInput = 1024 * 1024;
constexpr std::size_t maxHeap = 64 * 1024 * 1024; ///< bytes more than before the input
constexpr double maxCpuSeconds = 1;               ///< of an optimised build

/// Runs \a check with what \a raw stands for. Ends the program when that takes more memory or time
/// than it may.
void runBounded(void (*check)(const QByteArray &), const QByteArray &raw);

/// What begins an input that stands for a large one: behind it the number of bytes of a head (2
/// bytes, little-endian), the head, and a piece that is repeated up to `maxInput`. So what takes
/// too long for its size is found, and stays a small file.
inline const QByteArray repeatMark = QByteArrayLiteral("\xF5*REPEAT*");
QByteArray repeated(const QByteArray &head, const QByteArray &piece);
QByteArray expandedInput(const QByteArray &raw);

/// Silences the program's messages.
void silenceLog();

/// A new, empty folder for the process; on a memory disk where there is one.
QString scratchFolder();

/// Operations and values for the setters, taken from an input's end, so that its start is a plain
/// file of the format in question.
class Script
{
public:
    explicit Script(const QByteArray &input) : m_input(input), m_end(input.size()) {}

    bool atEnd() const { return m_end <= 0; }
    /// 0 at the end.
    quint8 byte();
    int number();
    /// Up to 255 bytes, read as Latin-1 or, where the length is odd, as UTF-8.
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

/// Makes the file \a path with \a content, and the folders above it.
void putFile(const QString &path, const QByteArray &content);
/// The content of \a path; null when there is no such file.
QByteArray fileBytes(const QString &path);
