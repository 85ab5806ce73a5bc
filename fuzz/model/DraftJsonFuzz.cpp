#include "model/RecipeDraft.h"

#include <cstdlib>

using ovrin::RecipeDraft;

/// Whatever can be read as a draft can be written and read again, and is then the same.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto draft =
        RecipeDraft::fromJson(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    if (draft && RecipeDraft::fromJson(draft->toJson()) != draft)
        abort();
    return 0;
}
