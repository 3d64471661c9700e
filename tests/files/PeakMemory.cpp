#include "files/PeakMemory.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

namespace {

std::size_t allocated = 0;  // the tests of this program run on one thread
std::size_t peak = 0;

void Release(void* memory) {
    allocated -= malloc_usable_size(memory);
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (!memory) throw std::bad_alloc();
    allocated += malloc_usable_size(memory);
    if (allocated > peak) peak = allocated;
    return memory;
}

void operator delete(void* memory) noexcept {
    Release(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    Release(memory);
}

namespace korvane::test {

std::size_t StartPeak() {
    peak = allocated;
    return allocated;
}

std::size_t PeakBytes() {
    return peak;
}

}  // namespace korvane::test
