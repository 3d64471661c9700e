#include "Fuzz.h"

#include <cstdio>
#include <cstdlib>

// Only clang brings the header along: the heap is metered in the fuzz targets themselves.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KORVANE_METER 1
#include <sanitizer/allocator_interface.h>
#endif
#endif

namespace korvane::fuzz {
namespace {

// The readers run on one thread, and one meter at a time.
[[maybe_unused]] bool metering = false;
[[maybe_unused]] std::int64_t held = 0;
std::int64_t peak = 0;

#ifdef KORVANE_METER
void Taken(const volatile void*, std::size_t size) {
    if (!metering) return;
    held += static_cast<std::int64_t>(size);
    peak = std::max(peak, held);
}

void Given(const volatile void* memory) {
    if (!metering || memory == nullptr) return;
    held -=
        static_cast<std::int64_t>(__sanitizer_get_allocated_size(const_cast<const void*>(memory)));
}

void StartMetering() {
    [[maybe_unused]] static const bool installed = [] {
        const bool done = __sanitizer_install_malloc_and_free_hooks(Taken, Given) != 0;
        Require(done, "the memory can be metered");
        return done;
    }();
    held = peak = 0;
    metering = true;
}
#else
void StartMetering() {
}
#endif

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
