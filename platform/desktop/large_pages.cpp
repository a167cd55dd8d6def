// Large pages for the game's large buffers, on systems that give them to programs that ask.
//
// Start-up touches 340 MB of fresh memory. In pages of 4 KiB that is 83,000 page faults and takes
// most of the start; in pages of 2 MiB it is 170 (docs/performance.md). Nothing but the speed
// depends on the hint: a system that knows no large pages ignores it.
#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace {

constexpr std::size_t LARGE_PAGE = std::size_t{2} * 1024 * 1024;

} // namespace

/// The form of new that the game's buffers come from. What it returns is released with free, like
/// everything that the library's own operators return, so delete[] stays as it is.
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    if (size < LARGE_PAGE) {
        return std::malloc(size == 0 ? 1 : size);
    }
    const std::size_t whole_pages = (size + LARGE_PAGE - 1) / LARGE_PAGE * LARGE_PAGE;
    void* memory = std::aligned_alloc(LARGE_PAGE, whole_pages);
    if (memory != nullptr) {
        madvise(memory, whole_pages, MADV_HUGEPAGE);
    }
    return memory;
}
