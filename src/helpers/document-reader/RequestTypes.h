#pragma once

#include "reader/Frame.h"

#include <chrono>
#include <optional>
#include <string>

namespace ovrin::documentreader {

/// How one kind of request is answered. The work is done in a module, a shared object beside the program, so
/// that a library that is big is loaded only by the request that needs it.
struct RequestType
{
    reader::MessageKind kind;
    /// A larger request is not read.
    quint32 maximumBody;
    /// Bytes of address space, those of them that may be written to, and processor and wall time, until the
    /// process is ended.
    std::size_t memoryBytes;
    std::size_t writtenBytes;
    std::chrono::seconds time;
    /// The module for a request with this body.
    std::string (*module)(const QByteArray& body);
};

/// What a module exports, unmangled, under the name `ovrinAnswer`: false is the plain no. Runs in the cage.
using AnswerFunction = bool (*)(const QByteArray& body, QByteArray& answer);

const RequestType* requestType(reader::MessageKind kind);

/// The largest of all kinds: what holds until the kind is known.
std::size_t largestMemory();
std::chrono::seconds longestTime();

} // namespace ovrin::documentreader
