#pragma once

#include "helpers/sandbox/Sandbox.h"

namespace ovrin::documentreader {

/// The cage of the document reader: libraries, fonts, and the data of its decoders, read-only.
sandbox::Confinement cage(const std::filesystem::path& programFolder);

} // namespace ovrin::documentreader
