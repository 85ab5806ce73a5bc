#include "helpers/document-reader/photo/VipsPhoto.h"

#include "helpers/document-reader/photo/PictureFormat.h"
#include "helpers/document-reader/photo/VipsLibrary.h"

#include <vips/vips.h>

#include <array>
#include <memory>

namespace ovrin::documentreader {

namespace {

constexpr qint64 maximumPixels = 200'000'000;
constexpr int maximumSide = 1600;
constexpr int quality = 85;

struct Unreference
{
    void operator()(VipsImage* image) const { g_object_unref(image); }
};
using Image = std::unique_ptr<VipsImage, Unreference>;

/// Runs one operation of the library that writes its image to the address it is given and returns 0 for
/// success.
template<typename Operation>
Image made(const Operation& operation)
{
    VipsImage* result = nullptr;
    return Image(operation(&result) == 0 ? result : nullptr);
}

/// Reads no more than the header: what a picture claims is checked before memory is taken for it.
bool isWithinBounds(const QByteArray& bytes)
{
    const Image header(vips_image_new_from_buffer(bytes.data(), static_cast<std::size_t>(bytes.size()), "",
                                                  "access", VIPS_ACCESS_SEQUENTIAL, nullptr));
    return header &&
           qint64{vips_image_get_width(header.get())} * vips_image_get_height(header.get()) <= maximumPixels;
}

/// Upright and small; from its own colour profile, when it has one, to sRGB.
Image thumbnail(const QByteArray& bytes)
{
    return made([&](VipsImage** out) {
        return vips_thumbnail_buffer(const_cast<char*>(bytes.data()), static_cast<std::size_t>(bytes.size()),
                                     out, maximumSide, "height", maximumSide, "size", VIPS_SIZE_DOWN,
                                     "export_profile", "srgb", "fail_on", VIPS_FAIL_ON_ERROR, nullptr);
    });
}

/// Three bands of eight bits, without transparency.
Image flattened(const Image& picture)
{
    const auto srgb = made([&](VipsImage** out) {
        return vips_colourspace(picture.get(), out, VIPS_INTERPRETATION_sRGB, nullptr);
    });
    if (!srgb) {
        return nullptr;
    }
    const auto opaque = made([&](VipsImage** out) {
        const std::array white{255.0};
        const std::unique_ptr<VipsArrayDouble, void (*)(void*)> background(
            vips_array_double_new(white.data(), white.size()),
            [](void* area) { vips_area_unref(VIPS_AREA(area)); });
        return vips_image_hasalpha(srgb.get()) != 0
                   ? vips_flatten(srgb.get(), out, "background", background.get(), nullptr)
                   : vips_copy(srgb.get(), out, nullptr);
    });
    const auto bytes =
        made([&](VipsImage** out) { return opaque ? vips_cast_uchar(opaque.get(), out, nullptr) : -1; });
    return made([&](VipsImage** out) {
        return bytes ? vips_extract_band(bytes.get(), out, 0, "n", 3, nullptr) : -1;
    });
}

QString averageColorHex(VipsImage* pixels)
{
    const auto count = quint64(vips_image_get_width(pixels)) * quint64(vips_image_get_height(pixels));
    const auto* pixel = static_cast<const VipsPel*>(vips_image_get_data(pixels));
    std::array<quint64, 3> sum{};
    for (const auto* end = pixel + 3 * count; pixel != end; pixel += 3) {
        sum[0] += pixel[0];
        sum[1] += pixel[1];
        sum[2] += pixel[2];
    }
    const auto mean = [&](quint64 total) { return static_cast<int>((total + count / 2) / count); };
    return QString::asprintf("%02X%02X%02X", mean(sum[0]), mean(sum[1]), mean(sum[2]));
}

/// Without metadata: where a photo was taken is nobody's business, and sRGB needs no profile.
QByteArray jpeg(VipsImage* pixels)
{
    void* buffer = nullptr;
    std::size_t size = 0;
    if (vips_jpegsave_buffer(pixels, &buffer, &size, "Q", quality, "strip", TRUE, nullptr) != 0) {
        return {};
    }
    const std::unique_ptr<void, void (*)(void*)> owned(buffer, g_free);
    return QByteArray(static_cast<const char*>(buffer), static_cast<qsizetype>(size));
}

} // namespace

std::optional<reader::PhotoAnswer> vipsPhoto(const QByteArray& bytes)
{
    const auto format = pictureFormat(bytes);
    if (!format || !VipsLibrary::isReadyFor(*format, bytes) || !isWithinBounds(bytes)) {
        return std::nullopt;
    }
    const auto small = thumbnail(bytes);
    const auto flat = small ? flattened(small) : nullptr;
    // All decoding happens here, once, into memory; what follows only reads it.
    const Image pixels(flat ? vips_image_copy_memory(flat.get()) : nullptr);
    if (!pixels) {
        return std::nullopt;
    }
    auto encoded = jpeg(pixels.get());
    if (encoded.isEmpty()) {
        return std::nullopt;
    }
    return reader::PhotoAnswer{std::move(encoded), averageColorHex(pixels.get())};
}

} // namespace ovrin::documentreader
