#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstring>

#include <elf.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

// Preloaded into the kernel that scripts/realfat boots. The kernel saves the registers of its
// processes into buffers that are too small for newer processors, and so saving fails. The whole
// set is therefore kept here for each of the kernel's buffers, and the part that the kernel does
// not know is restored with the rest.

namespace
{

constexpr std::size_t largestSet = 16384;
constexpr std::size_t legacyPart = 512; ///< before the bits that say which parts are in use
constexpr unsigned long legacyBits = 7; ///< bits of the parts that the kernel changes

struct Registers {
    const void *buffer;
    std::size_t size;
    std::array<char, largestSet> bytes;
};
std::array<Registers, 512> kept;

Registers &keptFor(const void *buffer)
{
    const auto address = reinterpret_cast<unsigned long>(buffer);
    return kept.at(((address ^ address >> 13) >> 4) % kept.size());
}

long pass(long request, int process, void *address, void *data)
{
    return ::syscall(SYS_ptrace, request, process, address, data);
}

long getRegisters(int process, void *kind, iovec &wanted)
{
    Registers &registers = keptFor(wanted.iov_base);
    iovec whole = {registers.bytes.data(), registers.bytes.size()};
    const long result = pass(PTRACE_GETREGSET, process, kind, &whole);
    if (result < 0)
        return result;
    registers.buffer = wanted.iov_base;
    registers.size = whole.iov_len;
    wanted.iov_len = std::min(wanted.iov_len, whole.iov_len);
    std::memcpy(wanted.iov_base, registers.bytes.data(), wanted.iov_len);
    return 0;
}

unsigned long partsInUse(const char *registers)
{
    unsigned long parts = 0;
    std::memcpy(&parts, registers + legacyPart, sizeof parts);
    return parts;
}

long setRegisters(int process, void *kind, const iovec &given)
{
    static std::array<char, largestSet> bytes;
    iovec whole = {bytes.data(), bytes.size()};
    const Registers &registers = keptFor(given.iov_base);
    if (registers.buffer == given.iov_base) {
        bytes = registers.bytes;
        whole.iov_len = registers.size;
    } else if (const long result = pass(PTRACE_GETREGSET, process, kind, &whole); result < 0) {
        return result;
    }
    const unsigned long before = partsInUse(bytes.data());
    std::memcpy(bytes.data(), given.iov_base, std::min(given.iov_len, whole.iov_len));
    const unsigned long parts = (partsInUse(bytes.data()) & legacyBits) | (before & ~legacyBits);
    std::memcpy(bytes.data() + legacyPart, &parts, sizeof parts);
    return pass(PTRACE_SETREGSET, process, kind, &whole);
}

} // namespace

extern "C" long ptrace(__ptrace_request request, ...)
{
    va_list arguments;
    va_start(arguments, request);
    const int process = va_arg(arguments, int);
    void *const address = va_arg(arguments, void *);
    void *const data = va_arg(arguments, void *);
    va_end(arguments);
    const bool isWhole = address == reinterpret_cast<void *>(NT_X86_XSTATE);
    if (request == PTRACE_GETREGSET && isWhole)
        return getRegisters(process, address, *static_cast<iovec *>(data));
    if (request == PTRACE_SETREGSET && isWhole)
        return setRegisters(process, address, *static_cast<const iovec *>(data));
    if (request == PTRACE_PEEKTEXT || request == PTRACE_PEEKDATA || request == PTRACE_PEEKUSER) {
        long word = 0;
        const long result = pass(request, process, address, &word);
        if (result < 0)
            return result;
        errno = 0;
        return word;
    }
    return pass(request, process, address, data);
}
