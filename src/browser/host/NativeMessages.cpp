#include "browser/host/NativeMessages.h"

#include <algorithm>
#include <cstring>

namespace ovrin::browser {

namespace {

/// `size` bytes, or fewer at the end of the stream. Memory grows with what comes, not with what was
/// announced.
QByteArray readWhole(QIODevice& in, qsizetype size)
{
    constexpr qsizetype piece = qsizetype(1) << 20;
    QByteArray bytes;
    while (bytes.size() < size) {
        const QByteArray more = in.read(std::min(size - bytes.size(), piece));
        if (more.isEmpty())
            break;
        bytes += more;
    }
    return bytes;
}

} // namespace

Refusal misunderstanding()
{
    return {QStringLiteral("Ovrin and this extension do not understand each other. Update both.")};
}

std::optional<QByteArray> NativeMessages::read(QIODevice& in)
{
    quint32 length = 0;
    const QByteArray head = readWhole(in, sizeof length);
    if (head.isEmpty())
        return std::nullopt;
    if (head.size() != sizeof length)
        throw misunderstanding();
    std::memcpy(&length, head.constData(), sizeof length);
    if (length > maximumBytes)
        throw misunderstanding();
    QByteArray message = readWhole(in, length);
    if (message.size() != qsizetype(length))
        throw misunderstanding();
    return message;
}

bool NativeMessages::write(QIODevice& out, const QByteArray& json)
{
    const auto length = quint32(json.size());
    QByteArray message(reinterpret_cast<const char*>(&length), sizeof length);
    message += json;
    return out.write(message) == message.size();
}

} // namespace ovrin::browser
