#include "Fuzz.h"

#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <new>

// Only clang brings the header along: the fuzz targets meter the heap with the sanitizer's hooks,
// the replay with operators of its own.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KORVANE_SANITIZER_HOOKS 1
#include <sanitizer/allocator_interface.h>
#endif
#endif

namespace korvane::fuzz {
namespace {

// The readers run on one thread, and one meter at a time.
bool metering = false;
std::int64_t held = 0;
std::int64_t peak = 0;

void Taken(const volatile void*, std::size_t size) {
    if (!metering) return;
    held += static_cast<std::int64_t>(size);
    peak = std::max(peak, held);
}

void Given(std::size_t size) {
    if (metering) held -= static_cast<std::int64_t>(size);
}

void StartMetering() {
#ifdef KORVANE_SANITIZER_HOOKS
    static const bool installed = [] {
        const auto given = [](const volatile void* memory) {
            if (memory != nullptr)
                Given(__sanitizer_get_allocated_size(const_cast<const void*>(memory)));
        };
        return __sanitizer_install_malloc_and_free_hooks(Taken, given) != 0;
    }();
    Require(installed, "the memory can be metered");
#endif
    held = peak = 0;
    metering = true;
}

}  // namespace

HeapMeter::HeapMeter() {
    StartMetering();
}

HeapMeter::~HeapMeter() {
    metering = false;
}

void HeapMeter::RequireWithin(std::size_t bytes) const {
    if (peak <= static_cast<std::int64_t>(bytes)) return;
    std::fprintf(stderr, "%lld bytes held, %zu allowed\n", static_cast<long long>(peak), bytes);
    Require(false, "memory stays within a small multiple of the file");
}

void Require(bool holds, const char* property) {
    if (holds) return;
    std::fprintf(stderr, "Does not hold: %s\n", property);
    std::abort();
}

Bytes MakeTga(const TgaShape& shape, Input data) {
    constexpr std::size_t kHeader = 18;
    Bytes file(kHeader + data.size());
    const auto low = [](int value) { return static_cast<std::uint8_t>(value & 0xFF); };
    file[2] = low(shape.type);
    file[12] = low(shape.width);
    file[13] = low(shape.width >> 8);
    file[14] = low(shape.height);
    file[15] = low(shape.height >> 8);
    file[16] = low(shape.depth);
    file[17] = low(shape.descriptor);
    std::ranges::copy(data, file.begin() + kHeader);
    return file;
}

}  // namespace korvane::fuzz

#ifndef KORVANE_SANITIZER_HOOKS
void* operator new(std::size_t size) {
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    korvane::fuzz::Taken(memory, malloc_usable_size(memory));
    return memory;
}

void operator delete(void* memory) noexcept {
    korvane::fuzz::Given(malloc_usable_size(memory));
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
#endif
