#include "helpers/document-reader/Conversation.h"

#include "helpers/sandbox/Sandbox.h"

#include <cerrno>
#include <iostream>

#include <dlfcn.h>
#include <unistd.h>

namespace ovrin::documentreader {

namespace {

bool fill(QByteArray& bytes, int input)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const auto got = read(input, bytes.data() + done, static_cast<std::size_t>(bytes.size() - done));
        // At the end of the input `errno` is what it was before.
        if (got == 0 || (got < 0 && errno != EINTR)) {
            return false;
        }
        done += std::max<ssize_t>(got, 0);
    }
    return true;
}

AnswerFunction load(const std::filesystem::path& module)
{
    auto* library = dlopen(module.c_str(), RTLD_LAZY | RTLD_LOCAL);
    auto* symbol = library == nullptr ? nullptr : dlsym(library, "ovrinAnswer");
    if (symbol == nullptr) {
        std::cerr << "document-reader: " << dlerror() << '\n';
    }
    return reinterpret_cast<AnswerFunction>(symbol);
}

} // namespace

void restrictTo(const RequestType& type)
{
    sandbox::restrictResources(type.memoryBytes, type.time);
    sandbox::restrictWrittenMemory(type.writtenBytes);
}

std::optional<reader::Frame> receivedRequest(int input, void (*restrict)(const RequestType&))
{
    QByteArray bytes(reader::FrameHeader::size, Qt::Uninitialized);
    const auto header = fill(bytes, input) ? reader::FrameHeader::decoded(bytes) : std::nullopt;
    const auto* type = header ? requestType(header->kind) : nullptr;
    if (type == nullptr || header->bodySize > type->maximumBody) {
        return std::nullopt;
    }
    restrict(*type);
    reader::Frame request{header->kind, QByteArray(header->bodySize, Qt::Uninitialized)};
    return fill(request.body, input) ? std::optional(std::move(request)) : std::nullopt;
}

reader::Frame answer(const reader::Frame& request, const std::filesystem::path& modules)
{
    const auto* type = requestType(request.kind);
    const auto name = "document-reader-" + type->module(request.body) + ".so";
    reader::Frame answer{request.kind, {}};
    const auto function = load(modules / name);
    return function != nullptr && function(request.body, answer.body) ? answer : reader::Frame{};
}

bool send(const reader::Frame& frame, int output)
{
    const auto bytes = reader::encoded(frame);
    for (qsizetype done = 0; done < bytes.size();) {
        const auto put = write(output, bytes.data() + done, static_cast<std::size_t>(bytes.size() - done));
        if (put < 0 && errno != EINTR) {
            return false;
        }
        done += std::max<ssize_t>(put, 0);
    }
    return true;
}

} // namespace ovrin::documentreader
