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

/// Reads no more than the header, until pixels are asked for from top to bottom.
Image opened(const QByteArray& bytes)
{
    return Image(vips_image_new_from_buffer(bytes.data(), static_cast<std::size_t>(bytes.size()), "",
                                            "access", VIPS_ACCESS_SEQUENTIAL, "fail_on", VIPS_FAIL_ON_ERROR,
                                            nullptr));
}

/// What a picture claims is checked before memory is taken for it.
bool isWithinBounds(const Image& picture)
{
    return qint64{vips_image_get_width(picture.get())} * vips_image_get_height(picture.get()) <=
           maximumPixels;
}

/// Upright and small, its colours what they were; inks have become sRGB already.
Image thumbnail(PictureFormat format, const QByteArray& bytes, const Image& picture)
{
    return made([&](VipsImage** out) {
        // Only these decoders leave out what would not be seen, for which the library wants the bytes once
        // more. With others it would forget that errors are to be fatal, and take a reduced copy that is too
        // small.
        const bool shrinksOnLoad = format == PictureFormat::Jpeg || format == PictureFormat::WebP;
        return shrinksOnLoad ? vips_thumbnail_buffer(const_cast<char*>(bytes.data()),
                                                     static_cast<std::size_t>(bytes.size()), out, maximumSide,
                                                     "height", maximumSide, "size", VIPS_SIZE_DOWN, "fail_on",
                                                     VIPS_FAIL_ON_ERROR, nullptr)
                             : vips_thumbnail_image(picture.get(), out, maximumSide, "height", maximumSide,
                                                    "size", VIPS_SIZE_DOWN, nullptr);
    });
}

/// The colour space that a profile describes, from its header (ICC.1, 7.2: a signature at byte 16); nothing
/// when the picture has no profile.
QByteArrayView profiledSpace(const Image& picture)
{
    const void* profile = nullptr;
    std::size_t size = 0;
    if (vips_image_get_typeof(picture.get(), VIPS_META_ICC_NAME) == 0 ||
        vips_image_get_blob(picture.get(), VIPS_META_ICC_NAME, &profile, &size) != 0 || size < 20) {
        return {};
    }
    return QByteArrayView(static_cast<const char*>(profile), 20).sliced(16);
}

/// From the picture's own profile to sRGB. A picture without one is in sRGB; so is one whose profile is
/// unusable, or describes inks, for these were converted when it was made small.
Image inSrgb(Image picture)
{
    if (const auto space = profiledSpace(picture); space == "RGB " || space == "GRAY") {
        auto converted = made([&](VipsImage** out) {
            return vips_icc_transform(picture.get(), out, "srgb", "embedded", TRUE, "depth", 8, nullptr);
        });
        if (converted) {
            return converted;
        }
    }
    return made([&](VipsImage** out) {
        return vips_colourspace(picture.get(), out, VIPS_INTERPRETATION_sRGB, nullptr);
    });
}

/// Three bands of eight bits, without transparency.
Image flattened(const Image& srgb)
{
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

/// All decoding happens here, once; what follows only reads it. A row that cannot be decoded is left black by
/// the library's cache, and only its list of errors tells.
Image inMemory(const Image& picture)
{
    vips_error_clear();
    Image pixels(vips_image_copy_memory(picture.get()));
    return *vips_error_buffer() == '\0' ? std::move(pixels) : nullptr;
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
    const auto picture = format && VipsLibrary::isReadyFor(*format, bytes) ? opened(bytes) : nullptr;
    if (!picture || !isWithinBounds(picture)) {
        return std::nullopt;
    }
    auto small = thumbnail(*format, bytes, picture);
    const auto srgb = small ? inSrgb(std::move(small)) : nullptr;
    const auto flat = srgb ? flattened(srgb) : nullptr;
    const auto pixels = flat ? inMemory(flat) : nullptr;
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
