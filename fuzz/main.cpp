// The entry point that libFuzzer calls, for the one function this program was built for.
#include OVRIN_FUZZ_HEADER

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ovrin::fuzz::OVRIN_FUZZ_FUNCTION({data, static_cast<qsizetype>(size)});
    return 0;
}
