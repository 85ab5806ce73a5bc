#pragma once

#include <cstddef>
#include <cstdint>

/// libFuzzer's entry: takes the bytes as a page, and as the body of a JSON-LD script.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
