#include "fuzz/fuzzing.h"

#include "base/bytes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) && !defined(__SANITIZE_ADDRESS__)
#define __SANITIZE_ADDRESS__
#endif
#endif

#ifdef __SANITIZE_ADDRESS__
// Both compilers have these functions; only one of them has the header.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*mallocHook)(const volatile void *,
                                                                            std::size_t),
                                                         void (*freeHook)(const volatile void *));
extern "C" std::size_t __sanitizer_get_allocated_size(const volatile void *block);
#else
#include <sys/resource.h>
#endif

using namespace brisel;

namespace
{

#ifdef __SANITIZE_ADDRESS__

constexpr double slowness = 8; ///< of the instrumented code

std::size_t heapInUse = 0;
std::size_t heapPeak = 0;

void noteAllocation(const volatile void *block, std::size_t size)
{
    static_cast<void>(block);
    heapInUse += size;
    heapPeak = std::max(heapPeak, heapInUse);
}

void noteRelease(const volatile void *block)
{
    // Blocks from before the first measurement may be released, too.
    const std::size_t size = block != nullptr ? __sanitizer_get_allocated_size(block) : 0;
    heapInUse -= std::min(heapInUse, size);
}

void startMeasuring()
{
    static const int installed =
        __sanitizer_install_malloc_and_free_hooks(noteAllocation, noteRelease);
    REQUIRE(installed > 0);
    heapPeak = heapInUse;
}

std::size_t peakSince(std::size_t start)
{
    return heapPeak - std::min(heapPeak, start);
}

std::size_t heapNow()
{
    return heapInUse;
}

#else

constexpr double slowness = 1;

void startMeasuring() {}

std::size_t heapNow()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

std::size_t peakSince(std::size_t start)
{
    return heapNow() - start;
}

#endif

double cpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void ignoreMessage(QtMsgType, const QMessageLogContext &, const QString &) {}

} // namespace

void promiseBroken(const char *condition, const char *file, int line)
{
    std::fprintf(stderr, "%s:%d: broken promise: %s\n", file, line, condition);
    std::fflush(stderr);
    std::abort();
}

void runBounded(void (*check)(const QByteArray &), const QByteArray &raw)
{
    const QByteArray input = expandedInput(raw);
    startMeasuring();
    const std::size_t heapBefore = heapNow();
    const double start = cpuSeconds();
    check(input);
    const double seconds = cpuSeconds() - start;
    const std::size_t heap = peakSince(heapBefore);
    if (seconds > maxCpuSeconds * slowness || heap > maxHeap) {
        std::fprintf(stderr, "%.3f s, %zu bytes\n", seconds, heap);
        promiseBroken("time and memory stay bounded", __FILE__, __LINE__);
    }
}

QByteArray repeated(const QByteArray &head, const QByteArray &piece)
{
    QByteArray size(2, '\0');
    putLe16(size, 0, static_cast<quint16>(head.size()));
    return repeatMark + size + head + piece;
}

QByteArray expandedInput(const QByteArray &raw)
{
    if (!raw.startsWith(repeatMark))
        return raw;
    const qsizetype headAt = repeatMark.size() + 2;
    const quint16 headSize = le16At(raw, repeatMark.size());
    QByteArray input = raw.mid(headAt, headSize);
    const QByteArray piece = raw.mid(headAt + headSize);
    if (!piece.isEmpty() && input.size() < maxInput)
        input += piece.repeated((maxInput - input.size()) / piece.size());
    return input;
}

void silenceLog()
{
    qInstallMessageHandler(ignoreMessage);
}

QString scratchFolder()
{
    static const QTemporaryDir folder;
    REQUIRE(folder.isValid());
    return folder.path();
}

quint8 Script::byte()
{
    return m_end > 0 ? static_cast<quint8>(m_input.at(--m_end)) : 0;
}

int Script::number()
{
    quint32 number = 0;
    for (int i = 0; i < 4; ++i)
        number = number << 8 | byte();
    return static_cast<int>(number);
}

QString Script::text()
{
    const quint8 size = byte();
    const qsizetype start = std::max<qsizetype>(m_end - size, 0);
    const QByteArray bytes = m_input.mid(start, m_end - start);
    m_end = start;
    return size % 2 == 0 ? QString::fromLatin1(bytes) : QString::fromUtf8(bytes);
}

QList<QByteArray> splitInput(const QByteArray &input, int count)
{
    QList<QByteArray> files(count);
    for (qsizetype pos = 0; fits(input, pos, 2);) {
        const quint8 length = byteAt(input, pos + 1);
        files[byteAt(input, pos) % count] += input.mid(pos + 2, length);
        pos += 2 + length;
    }
    return files;
}

QByteArray joinedPieces(int file, const QByteArray &content)
{
    constexpr qsizetype pieceSize = 64; // the size of most records
    QByteArray pieces;
    for (qsizetype pos = 0; pos < content.size(); pos += pieceSize) {
        const QByteArray piece = content.mid(pos, pieceSize);
        pieces += static_cast<char>(file);
        pieces += static_cast<char>(piece.size());
        pieces += piece;
    }
    return pieces;
}

void putFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        REQUIRE(QDir().mkpath(QFileInfo(path).path()));
        REQUIRE(file.open(QIODevice::WriteOnly));
    }
    REQUIRE(file.write(content) == content.size());
}

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray content = file.readAll();
    return content.isNull() ? QByteArray("") : content;
}
