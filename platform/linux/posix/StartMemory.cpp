#include "platform/linux/posix/StartMemory.h"

#include <cstddef>
#include <cstdint>
#include <link.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

namespace zv {

namespace {

/// What the linker has changed lies in writable segments, so those that are not hold the file's own bytes.
int giveBackCodeOf(dl_phdr_info* object, std::size_t, void*)
{
    auto const pageMask = ~(static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE)) - 1);
    for (auto const* segment = object->dlpi_phdr; segment != object->dlpi_phdr + object->dlpi_phnum; ++segment) {
        if (segment->p_type != PT_LOAD || (segment->p_flags & PF_W) != 0)
            continue;
        auto const begin = (object->dlpi_addr + segment->p_vaddr) & pageMask;
        auto const end = object->dlpi_addr + segment->p_vaddr + segment->p_memsz;
        ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_DONTNEED);
    }
    return 0;
}

} // namespace

void giveBackCodeOfTheStart() { ::dl_iterate_phdr(giveBackCodeOf, nullptr); }

void giveBackFreedMemory()
{
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}

} // namespace zv
