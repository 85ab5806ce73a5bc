#include "fuzz/import/DocumentTargets.h"

#include "fuzz/Require.h"
#include "helpers/document-reader/Conversation.h"
#include "platform/languagemodel/ChatCompletion.h"
#include "reader/PhotoMessage.h"

#include <sys/mman.h>
#include <unistd.h>

namespace ovrin::fuzz {

void readerFrame(QByteArrayView bytes)
{
    const int input = memfd_create("request", MFD_CLOEXEC);
    require(input >= 0 &&
                write(input, bytes.data(), static_cast<std::size_t>(bytes.size())) == bytes.size() &&
                lseek(input, 0, SEEK_SET) == 0,
            "a file in memory takes the bytes");
    // The limits of a request would hold for the fuzzer.
    const auto request = documentreader::receivedRequest(input, [](const documentreader::RequestType&) {});
    close(input);
    if (request) {
        const auto* type = documentreader::requestType(request->kind);
        require(type != nullptr && request->body.size() <= qsizetype{type->maximumBody},
                "a request that is taken is known and within its bounds");
        require(bytes.startsWith(reader::encoded(*request)), "a request is read as it was written");
        require(!type->module(request->body).empty(), "every request has a module");
    }
    if (const auto photo = reader::PhotoAnswer::decoded(bytes.toByteArray())) {
        require(photo->encoded() == bytes, "a photo that is read is written as it came");
    }
}

void chatCompletion(QByteArrayView bytes)
{
    const QByteArray answer = bytes.toByteArray();
    ChatCompletion::firstModel(answer);
    if (const auto content = ChatCompletion::content(answer)) {
        generatedRecipe(*content);
    }
}

} // namespace ovrin::fuzz
