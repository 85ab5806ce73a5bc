#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>
#include <QtCore/QString>

#include <optional>

namespace ovrin::browser {

/// Why a page was not taken, in words for its reader. Thrown by value.
struct Refusal
{
    QString message;
};

/// What came over the pipe is no conversation with our extension.
Refusal misunderstanding();

/// Browsers' native messaging: each message is its length in 32 bits of the machine's byte order and that
/// many bytes of UTF-8 JSON (developer.mozilla.org, WebExtensions, "Native messaging").
namespace NativeMessages {

/// The extension cuts pages into parts far below this.
constexpr quint32 maximumBytes = quint32(16) << 20;

/// The next message; nothing at the end of the stream. Throws Refusal when it is longer than `maximumBytes`,
/// or ends too early.
std::optional<QByteArray> read(QIODevice& in);

/// Whether it could be written. Browsers take at most 1 MB.
bool write(QIODevice& out, const QByteArray& json);

} // namespace NativeMessages

} // namespace ovrin::browser
