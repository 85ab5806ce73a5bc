#include "helpers/document-reader/RequestTypes.h"

#include "reader/DocumentMessage.h"
#include "reader/PhotoMessage.h"

#include <algorithm>
#include <array>

namespace ovrin::documentreader {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t mebibyte = std::size_t(1) << 20;

/// Bitmaps go to Qt's reader, because the library that reads all else has none that it trusts.
std::string photoModule(const QByteArray& body)
{
    return body.startsWith("BM") ? "bitmap" : "photo";
}

// A request is registered here: its kind (Frame.h), its bounds, its module (CMakeLists.txt beside this file).
std::string documentModule(const QByteArray& /*body*/)
{
    return "document";
}

constexpr std::array types{
    RequestType{reader::MessageKind::Photo, reader::maximumPhotoBytes, 1536 * mebibyte, 1536 * mebibyte, 25s,
                photoModule},
    RequestType{reader::MessageKind::Document, reader::maximumDocumentBytes, 512 * mebibyte, 260 * mebibyte,
                20s, documentModule},
};

} // namespace

const RequestType* requestType(reader::MessageKind kind)
{
    const auto* type =
        std::find_if(types.begin(), types.end(), [&](const auto& t) { return t.kind == kind; });
    return type == types.end() ? nullptr : type;
}

std::size_t largestMemory()
{
    return std::max_element(types.begin(), types.end(),
                            [](const auto& a, const auto& b) { return a.memoryBytes < b.memoryBytes; })
        ->memoryBytes;
}

std::chrono::seconds longestTime()
{
    return std::max_element(types.begin(), types.end(),
                            [](const auto& a, const auto& b) { return a.time < b.time; })
        ->time;
}

} // namespace ovrin::documentreader
