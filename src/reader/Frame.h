#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>

#include <optional>

/// What the application and its document reader say to each other: one request frame there, one answer frame
/// back. Both ends treat the other's bytes as hostile. Nothing here reads or writes anything but memory.
namespace ovrin::reader {

/// What a frame is about. An answer carries its request's kind, or `No`. Numbers are never reused.
enum class MessageKind : quint16 {
    /// The plain no: what was sent cannot be read. Its body is empty.
    No = 0,
    /// Request: the bytes of a picture. Answer: see `PhotoMessage.h`.
    Photo = 1,
    /// Request: the bytes of a PDF. Answer: see `DocumentMessage.h`.
    Document = 2,
};

struct Frame
{
    MessageKind kind = MessageKind::No;
    QByteArray body;
};

/// The twelve bytes before a body, little-endian: "OVRD", version (16 bits), kind (16 bits), size of the body
/// (32).
struct FrameHeader
{
    static constexpr qsizetype size = 12;
    static constexpr quint16 version = 1;

    MessageKind kind = MessageKind::No;
    quint32 bodySize = 0;

    QByteArray encoded() const;
    /// Nothing when `bytes` is not exactly one header of this version.
    static std::optional<FrameHeader> decoded(QByteArrayView bytes);
};

/// Header and body in one piece.
QByteArray encoded(const Frame& frame);

/// Puts one frame together from the pieces in which a pipe delivers it.
class FrameAssembler
{
public:
    /// A frame that announces more than `maximumBody` bytes is broken.
    explicit FrameAssembler(quint32 maximumBody);

    /// False when what has come is not, and cannot become, exactly one frame.
    bool append(QByteArrayView piece);
    /// The frame, once it is whole.
    std::optional<Frame> frame() const;

private:
    quint32 m_maximumBody;
    QByteArray m_received;
    std::optional<FrameHeader> m_header;
};

} // namespace ovrin::reader
