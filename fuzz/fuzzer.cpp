// The libFuzzer program of one check, which the build names in KORVANE_CHECK.
#include "Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvane::fuzz::KORVANE_CHECK({data, size});
    return 0;
}
