#include "helpers/Pictures.h"

#include <QtCore/QtEndian>
#include <gtest/gtest.h>
#include <vips/vips.h>

#include <array>
#include <cstdlib>

#include <zlib.h>

namespace ovrin::pictures {

namespace {

/// The result of an operation that takes `in`'s place; an error stops the test program, for no test could go
/// on.
template<typename Operation>
VipsImage* replaced(VipsImage* in, const Operation& operation)
{
    VipsImage* out = nullptr;
    if (operation(in, &out) != 0) {
        ADD_FAILURE() << vips_error_buffer();
        std::abort();
    }
    g_object_unref(in);
    return out;
}

void startLibrary()
{
    static const bool started = vips_init("pictures") == 0;
    ASSERT_TRUE(started);
}

VipsImage* colored(QSize size, std::initializer_list<double> color)
{
    startLibrary();
    VipsImage* black = nullptr;
    vips_black(&black, size.width(), size.height(), "bands", static_cast<int>(color.size()), nullptr);
    auto* bytes = replaced(black, [&](VipsImage* in, VipsImage** out) {
        const std::vector<double> ones(color.size(), 1.0);
        return vips_linear(in, out, ones.data(), std::data(color), static_cast<int>(color.size()), "uchar",
                           TRUE, nullptr);
    });
    return replaced(bytes, [&](VipsImage* in, VipsImage** out) {
        const auto meaning = color.size() < 3 ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB;
        return vips_copy(in, out, "interpretation", meaning, nullptr);
    });
}

QByteArray encoded(VipsImage* image, const char* suffix, const Change& change)
{
    if (change) {
        image = change(image);
    }
    void* buffer = nullptr;
    std::size_t size = 0;
    const auto outcome = vips_image_write_to_buffer(image, suffix, &buffer, &size, nullptr);
    EXPECT_EQ(outcome, 0) << suffix << ": " << vips_error_buffer();
    const QByteArray bytes(static_cast<const char*>(buffer), static_cast<qsizetype>(size));
    g_free(buffer);
    g_object_unref(image);
    return bytes;
}

VipsImage* quarters(QSize size)
{
    const QSize quarter = size / 2;
    std::array parts{colored(quarter, {220, 30, 30}), colored(quarter, {30, 200, 30}),
                     colored(quarter, {30, 30, 220}), colored(quarter, {220, 220, 30})};
    VipsImage* joined = nullptr;
    vips_arrayjoin(parts.data(), &joined, 4, "across", 2, nullptr);
    for (auto* part : parts) {
        g_object_unref(part);
    }
    return joined;
}

QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray littleEndian(quint32 value, qsizetype size)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToLittleEndian(value, bytes.data());
    return bytes.first(size);
}

QByteArray pngChunk(const QByteArray& type, const QByteArray& data)
{
    const auto body = type + data;
    const auto crc =
        crc32(0, reinterpret_cast<const Bytef*>(body.constData()), static_cast<uInt>(body.size()));
    return bigEndian(static_cast<quint32>(data.size())) + body + bigEndian(static_cast<quint32>(crc));
}

} // namespace

QByteArray quartered(const char* suffix, const Change& change, int enlarged)
{
    auto* image = replaced(quarters(quarteredSize), [&](VipsImage* in, VipsImage** out) {
        return vips_zoom(in, out, enlarged, enlarged, nullptr);
    });
    return encoded(image, suffix, change);
}

QByteArray textured(const char* suffix)
{
    startLibrary();
    VipsImage* noise = nullptr;
    vips_gaussnoise(&noise, texturedSize.width(), texturedSize.height(), "mean", 0.0, "sigma", 12.0, "seed",
                    1, nullptr);
    auto* picture = quarters(texturedSize);
    VipsImage* sum = nullptr;
    vips_add(picture, noise, &sum, nullptr);
    g_object_unref(picture);
    g_object_unref(noise);
    auto* bytes =
        replaced(sum, [](VipsImage* in, VipsImage** out) { return vips_cast_uchar(in, out, nullptr); });
    return encoded(bytes, suffix, {});
}

QByteArray plain(const char* suffix, QSize size, std::initializer_list<double> color, const Change& change)
{
    return encoded(colored(size, color), suffix, change);
}

Change oriented(int exifOrientation)
{
    return [=](VipsImage* image) {
        auto* own =
            replaced(image, [](VipsImage* in, VipsImage** out) { return vips_copy(in, out, nullptr); });
        vips_image_set_int(own, VIPS_META_ORIENTATION, exifOrientation);
        return own;
    };
}

Change sixteenBit()
{
    return inColorSpace(VIPS_INTERPRETATION_RGB16);
}

Change inColorSpace(int interpretation)
{
    return [=](VipsImage* image) {
        return replaced(image, [&](VipsImage* in, VipsImage** out) {
            return vips_colourspace(in, out, static_cast<VipsInterpretation>(interpretation), nullptr);
        });
    };
}

Change tagged(const char* profile)
{
    return [=](VipsImage* image) {
        auto* own =
            replaced(image, [](VipsImage* in, VipsImage** out) { return vips_copy(in, out, nullptr); });
        VipsBlob* blob = nullptr;
        EXPECT_EQ(vips_profile_load(profile, &blob, nullptr), 0) << vips_error_buffer();
        std::size_t size = 0;
        const auto* data = vips_blob_get(blob, &size);
        vips_image_set_blob_copy(own, VIPS_META_ICC_NAME, data, size);
        vips_area_unref(VIPS_AREA(blob));
        return own;
    };
}

Change animated(int height)
{
    return [=](VipsImage* image) {
        auto* own =
            replaced(image, [](VipsImage* in, VipsImage** out) { return vips_copy(in, out, nullptr); });
        vips_image_set_int(own, VIPS_META_PAGE_HEIGHT, height);
        return own;
    };
}

QByteArray bitmap(QSize size)
{
    return bitmap(size, size);
}

QByteArray bitmap(QSize size, QSize claimed)
{
    const auto pixelBytes = size.width() * size.height() * 3;
    auto bytes =
        QByteArrayLiteral("BM") + littleEndian(54 + pixelBytes, 4) + littleEndian(0, 4) + littleEndian(54, 4);
    bytes += littleEndian(40, 4) + littleEndian(claimed.width(), 4) + littleEndian(claimed.height(), 4);
    bytes += littleEndian(1, 2) + littleEndian(24, 2) + QByteArray(24, '\0');
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const auto left = x < size.width() / 2;
            // Rows run from the bottom up, colours from blue to red.
            const auto above = y >= size.height() / 2;
            bytes +=
                above ? (left ? "\x1e\x1e\xdc" : "\x1e\xc8\x1e") : (left ? "\xdc\x1e\x1e" : "\x1e\xdc\xdc");
        }
    }
    return bytes;
}

QByteArray claimingPng(QSize size)
{
    const auto header = bigEndian(size.width()) + bigEndian(size.height()) + QByteArray("\x08\x02\0\0\0", 5);
    // One row's worth of nothing, so that a decoder which believes the header has something to begin with.
    return QByteArrayLiteral("\x89PNG\r\n\x1a\n") + pngChunk("IHDR", header) +
           pngChunk("IDAT", qCompress(QByteArray(200'000, '\0')).mid(4)) + pngChunk("IEND", {});
}

QByteArray claimingJpeg(QSize size)
{
    auto bytes = plain(".jpg", {8, 8}, {10, 20, 30});
    const auto frame = bytes.indexOf(QByteArrayLiteral("\xff\xc0"));
    EXPECT_GT(frame, 0);
    bytes.replace(frame + 5, 4, bigEndian(size.height()).mid(2) + bigEndian(size.width()).mid(2));
    return bytes;
}

QByteArray claimingGif(QSize size)
{
    auto bytes = plain(".gif", {8, 8}, {10, 20, 30});
    const auto claim = littleEndian(size.width(), 2) + littleEndian(size.height(), 2);
    bytes.replace(6, 4, claim);
    const auto frame = bytes.indexOf(QByteArray(",\0\0\0\0\x08\0\x08\0", 9));
    EXPECT_GT(frame, 0);
    return bytes.replace(frame + 5, 4, claim);
}

QByteArray claimingTiff(QSize size)
{
    const auto entry = [](quint32 tag, quint32 type, quint32 value) {
        return littleEndian(tag, 2) + littleEndian(type, 2) + littleEndian(1, 4) + littleEndian(value, 4);
    };
    // Width, height, bits, no compression, black is zero, one strip of eight bytes, one sample, all rows in
    // it.
    return QByteArray("II*\0\x08\0\0\0", 8) + littleEndian(9, 2) + entry(256, 4, size.width()) +
           entry(257, 4, size.height()) + entry(258, 3, 8) + entry(259, 3, 1) + entry(262, 3, 1) +
           entry(273, 4, 122) + entry(277, 3, 1) + entry(278, 4, size.height()) + entry(279, 4, 8) +
           QByteArray(12, '\0');
}

QByteArray claimingHeif(const char* suffix, QSize size)
{
    auto bytes = quartered(suffix);
    const auto real = bigEndian(quarteredSize.width()) + bigEndian(quarteredSize.height());
    EXPECT_TRUE(bytes.contains("ispe" + QByteArray(4, '\0') + real));
    return bytes.replace(real, bigEndian(size.width()) + bigEndian(size.height()));
}

} // namespace ovrin::pictures
