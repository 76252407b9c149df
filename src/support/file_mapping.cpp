#include "support/file_mapping.h"

#ifdef _WIN32

std::unique_ptr<FileMapping> FileMapping::of(int, std::size_t) { return nullptr; }
FileMapping::~FileMapping() = default;
bool FileMapping::failed() const { return false; }

#else

#include <array>
#include <atomic>
#include <csignal>
#include <cstdint>
#include <mutex>
#include <sys/mman.h>
#include <unistd.h>

namespace {

/// What the handler knows of a mapping. It runs in the middle of anything, so there are atoms alone.
struct Slot {
    std::atomic<bool> taken = false;
    std::atomic<std::uintptr_t> begin = 0, end = 0;
    std::atomic<bool> failed = false;
};

std::array<Slot, 64> slots; // more files than one run has open at a time
struct sigaction before = {};
std::uintptr_t page_size = 4096;

/// Puts NULs in place of what cannot be read, up to the end of the mapping.
bool replace_pages(std::uintptr_t at)
{
    for (Slot & slot : slots) {
        const std::uintptr_t begin = slot.begin, end = slot.end;
        if (at < begin || at >= end) continue;
        const std::uintptr_t page = at & ~(page_size - 1);
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the address comes from the processor
        void * const wanted = reinterpret_cast<void *>(page);
        if (mmap(wanted, end - page, PROT_READ, MAP_FIXED | MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) == MAP_FAILED) return false;
        slot.failed = true;
        return true;
    }
    return false;
}

void take_bus_error(int, siginfo_t * info, void *)
{
    if (replace_pages(reinterpret_cast<std::uintptr_t>(info->si_addr))) return;
    sigaction(SIGBUS, &before, nullptr); // no file of ours: what is tried again ends as it would have
}

void watch_for_bus_errors()
{
    static std::once_flag watched;
    std::call_once(watched, [] {
        page_size = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
        struct sigaction action = {};
        action.sa_sigaction = take_bus_error;
        action.sa_flags = SA_SIGINFO | SA_RESTART;
        sigaction(SIGBUS, &action, &before);
    });
}

int take_slot()
{
    for (std::size_t i = 0; i < slots.size(); ++i)
        if (!slots[i].taken.exchange(true)) return static_cast<int>(i);
    return -1;
}

}

std::unique_ptr<FileMapping> FileMapping::of(int descriptor, std::size_t size)
{
    watch_for_bus_errors();
    const int number = take_slot();
    if (number < 0) return nullptr;
    Slot & slot = slots[static_cast<std::size_t>(number)];
    void * const at = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (at == MAP_FAILED) {
        slot.taken = false;
        return nullptr;
    }
    madvise(at, size, MADV_SEQUENTIAL);
    slot.failed = false;
    slot.begin = reinterpret_cast<std::uintptr_t>(at);
    slot.end = slot.begin + size;
    return std::unique_ptr<FileMapping>(new FileMapping(number, static_cast<const char *>(at), size));
}

FileMapping::~FileMapping()
{
    Slot & slot = slots[static_cast<std::size_t>(slot_)];
    slot.begin = slot.end = 0;
    munmap(const_cast<char *>(data_), size_);
    slot.taken = false;
}

bool FileMapping::failed() const { return slots[static_cast<std::size_t>(slot_)].failed; }

#endif
