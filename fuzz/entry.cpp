// The fuzzer's entry point of one target; FUZZ_CHECK names its function.

#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdint>

using namespace brisel;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t maxSize);

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static const QCoreApplication application(*argc, *argv);
    silenceLog();
    return 0;
}

/// Occasionally makes an input that stands for a large one. Most mutations of such an input turn it
/// back into a small one, because large ones are slow.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size,
                                               std::size_t maxSize, unsigned seed)
{
    constexpr unsigned growEvery = 1000;
    constexpr unsigned keepEvery = 16;
    const QByteArray old(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    QByteArray changed;
    const qsizetype headAt = repeatMark.size() + 2;
    if (old.startsWith(repeatMark) && old.size() >= headAt && seed % keepEvery != 0) {
        changed = old.mid(headAt);
    } else if (seed % growEvery == 0 && !old.isEmpty()) {
        const qsizetype start = seed / growEvery % static_cast<unsigned>(old.size());
        const qsizetype length = 1 + seed / 7919 % 64;
        changed = repeated(old.left(std::min<qsizetype>(start, 0xFFFF)), old.mid(start, length));
    }
    if (!changed.isEmpty() && changed.size() <= static_cast<qsizetype>(maxSize)) {
        std::copy(changed.cbegin(), changed.cend(), data);
        size = static_cast<std::size_t>(changed.size());
    }
    return LLVMFuzzerMutate(data, size, maxSize);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    runBounded(FUZZ_CHECK,
               QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    return 0;
}
