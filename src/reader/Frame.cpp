#include "reader/Frame.h"

#include "reader/Fields.h"

namespace ovrin::reader {

namespace {

constexpr QByteArrayView magic = "OVRD";

} // namespace

QByteArray FrameHeader::encoded() const
{
    FieldWriter fields;
    fields.raw(magic).u16(version).u16(static_cast<quint16>(kind)).u32(bodySize);
    return fields.bytes();
}

std::optional<FrameHeader> FrameHeader::decoded(QByteArrayView bytes)
{
    FieldReader fields(bytes);
    if (fields.raw(magic.size()) != magic || fields.u16() != version) {
        return std::nullopt;
    }
    FrameHeader header;
    header.kind = static_cast<MessageKind>(fields.u16());
    header.bodySize = fields.u32();
    return fields.isWhole() ? std::optional(header) : std::nullopt;
}

QByteArray encoded(const Frame& frame)
{
    return FrameHeader{frame.kind, static_cast<quint32>(frame.body.size())}.encoded() + frame.body;
}

FrameAssembler::FrameAssembler(quint32 maximumBody)
    : m_maximumBody(maximumBody)
{
}

bool FrameAssembler::append(QByteArrayView piece)
{
    m_received.append(piece);
    if (!m_header && m_received.size() >= FrameHeader::size) {
        m_header = FrameHeader::decoded(QByteArrayView(m_received).first(FrameHeader::size));
        if (!m_header || m_header->bodySize > m_maximumBody) {
            return false;
        }
    }
    return !m_header || m_received.size() <= FrameHeader::size + qsizetype{m_header->bodySize};
}

std::optional<Frame> FrameAssembler::frame() const
{
    if (!m_header || m_received.size() != FrameHeader::size + qsizetype{m_header->bodySize}) {
        return std::nullopt;
    }
    return Frame{m_header->kind, m_received.sliced(FrameHeader::size)};
}

} // namespace ovrin::reader
