#pragma once

#include "helpers/document-reader/RequestTypes.h"

#include <filesystem>

namespace ovrin::documentreader {

/// Lowers this process's limits to those of requests of this type.
void restrictTo(const RequestType& type);

/// Reads one request from `input`. Nothing when the other end is gone, or what comes is no request that is
/// known and within its bounds. `restrict` is called before the body is read.
std::optional<reader::Frame> receivedRequest(int input, void (*restrict)(const RequestType&) = restrictTo);

/// Answers `request` with the module for it from `modules`; `No` when there is none or it says so.
reader::Frame answer(const reader::Frame& request, const std::filesystem::path& modules);

/// False when the other end is gone.
bool send(const reader::Frame& frame, int output);

} // namespace ovrin::documentreader
