#include "json/Utf8.h"

#include <QtCore/QByteArrayView>

namespace ovrin {
namespace {

/// What a lead byte asks for: how many bytes follow it, and between which bounds the first of them lies.
struct Lead
{
    int following;
    unsigned char low;
    unsigned char high;
};

Lead leadOf(unsigned char byte)
{
    if (byte >= 0xC2 && byte <= 0xDF) {
        return {1, 0x80, 0xBF};
    }
    if (byte >= 0xE0 && byte <= 0xEF) {
        return {2, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    }
    if (byte >= 0xF0 && byte <= 0xF4) {
        return {3, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
    }
    return {0, 0, 0};
}

} // namespace

char32_t decodeUtf8(std::string_view bytes, size_t& at)
{
    constexpr char32_t replacement = 0xFFFD;
    const auto first = static_cast<unsigned char>(bytes[at++]);
    if (first < 0x80) {
        return first;
    }
    const Lead lead = leadOf(first);
    if (lead.following == 0) {
        return replacement;
    }
    char32_t character = first & (0x3Fu >> lead.following);
    for (int i = 0; i < lead.following; ++i, ++at) {
        const auto byte = static_cast<unsigned char>(at < bytes.size() ? bytes[at] : 0);
        const bool fits = i == 0 ? byte >= lead.low && byte <= lead.high : (byte & 0xC0) == 0x80;
        if (!fits) {
            return replacement;
        }
        character = (character << 6) | (byte & 0x3F);
    }
    return character;
}

QByteArray repairedUtf8(std::string_view bytes)
{
    const QByteArrayView view(bytes.data(), qsizetype(bytes.size()));
    if (view.isValidUtf8()) {
        return QByteArray::fromRawData(view.data(), view.size());
    }
    QByteArray repaired;
    repaired.reserve(view.size() + 16);
    for (size_t at = 0; at < bytes.size();) {
        const size_t start = at;
        if (decodeUtf8(bytes, at) == 0xFFFD) {
            repaired += "\xEF\xBF\xBD";
        } else {
            repaired.append(bytes.data() + start, qsizetype(at - start));
        }
    }
    return repaired;
}

QString stringFromUtf8(std::string_view bytes)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    QString marks = QString::fromLatin1("");
    for (; bytes.starts_with(mark); bytes.remove_prefix(mark.size())) {
        marks += QChar(QChar::ByteOrderMark);
    }
    const QString text = QString::fromUtf8(bytes.data(), qsizetype(bytes.size()));
    return marks.isEmpty() && !text.isEmpty() ? text : marks + text;
}

} // namespace ovrin
