#include "helpers/Pictures.h"
#include "helpers/WarmReader.h"
#include "reader/PhotoMessage.h"

#include <QtGui/QImage>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace ovrin {
namespace {

class WarmPhotoReader : public WarmReader
{
public:
    WarmPhotoReader()
        : WarmReader(QStringLiteral(OVRIN_WARM_READER))
    {
    }

    std::optional<reader::PhotoAnswer> photo(const QByteArray& bytes)
    {
        const auto frame = ask({reader::MessageKind::Photo, bytes}, reader::maximumPhotoAnswerBytes);
        return frame && frame->kind == reader::MessageKind::Photo ? reader::PhotoAnswer::decoded(frame->body)
                                                                  : std::nullopt;
    }
};

QImage decoded(const reader::PhotoAnswer& answer)
{
    return QImage::fromData(answer.jpeg, "jpeg").convertToFormat(QImage::Format_RGB888);
}

/// The mean difference of all bytes; more than any for pictures of different sizes.
double distance(const QImage& a, const QImage& b)
{
    if (a.size() != b.size()) {
        return 256;
    }
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int i = 0; i < 3 * a.width(); ++i) {
            sum += std::abs(a.constScanLine(y)[i] - b.constScanLine(y)[i]);
        }
    }
    return sum / (3.0 * a.width() * a.height());
}

struct Sample
{
    const char* name;
    QByteArray bytes;
};

std::vector<Sample> samples()
{
    return {
        {"jpeg", pictures::textured(".jpg[Q=80]")},
        {"progressive jpeg", pictures::textured(".jpg[Q=80,interlace]")},
        {"png", pictures::textured(".png")},
        {"webp", pictures::textured(".webp")},
        {"tiff", pictures::textured(".tif[compression=lzw]")},
        {"gif", pictures::textured(".gif")},
        {"heic", pictures::textured(".heic")},
        {"avif", pictures::textured(".avif")},
        {"bmp", pictures::bitmap(pictures::texturedSize)},
    };
}

TEST(HostilePhotos, CutShortAreNoPhotosOrRightOnes)
{
    WarmPhotoReader reader;
    for (const auto& [name, bytes] : samples()) {
        const auto whole = reader.photo(bytes);
        ASSERT_TRUE(whole) << name;
        const auto wholeImage = decoded(*whole);
        for (qsizetype size = 0; size < bytes.size(); size += 100) {
            if (const auto photo = reader.photo(bytes.first(size))) {
                EXPECT_LT(distance(decoded(*photo), wholeImage), 1)
                    << name << " cut to " << size << " of " << bytes.size();
            }
        }
        // Not all of them are refused for another reason than their being short.
        EXPECT_FALSE(reader.photo(bytes.first(bytes.size() / 2))) << name;
    }
    EXPECT_EQ(reader.ended(), 0);
}

TEST(HostilePhotos, ThatClaimFarTooManyPixelsAreRefusedAndNotTried)
{
    const QSize claim(60'000, 60'000);
    WarmPhotoReader reader;
    for (const auto& [name, bytes] : {
             Sample{"png", pictures::claimingPng(claim)},
             Sample{"jpeg", pictures::claimingJpeg(claim)},
             Sample{"gif", pictures::claimingGif(claim)},
             Sample{"tiff", pictures::claimingTiff(claim)},
             Sample{"heic", pictures::claimingHeif(".heic", claim)},
             Sample{"avif", pictures::claimingHeif(".avif", claim)},
             Sample{"bmp", pictures::bitmap(pictures::texturedSize, claim)},
         }) {
        EXPECT_FALSE(reader.photo(bytes)) << name;
    }
    EXPECT_EQ(reader.ended(), 0);
    EXPECT_TRUE(reader.photo(pictures::claimingPng({10, 10}))) << "it is the claim alone that is refused";
}

TEST(HostilePhotos, OfOtherFormatsAreNoPhotos)
{
    WarmPhotoReader reader;
    const QByteArray svg =
        "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><rect width='9' height='9'/></svg>";
    for (const auto& [name, bytes] : {
             Sample{"nothing", {}},
             Sample{"text", "Mix the flour with the butter.\n"},
             Sample{"html", "<!doctype html><html><body><img src='x.jpg'></body></html>"},
             Sample{"svg", svg},
             Sample{"svg behind an xml declaration", "<?xml version='1.0'?>\n" + svg},
             Sample{"svg behind a jpeg's first bytes", "\xff\xd8\xff" + svg},
             Sample{"pdf", "%PDF-1.4\n1 0 obj<</Type/Catalog>>endobj\ntrailer<</Root 1 0 R>>\n%%EOF\n"},
             Sample{"postscript", "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 9 9\nshowpage\n"},
             Sample{"portable pixmap", "P6 1 1 255\nabc"},
             Sample{"radiance", "#?RADIANCE\nFORMAT=32-bit_rle_rgbe\n\n-Y 1 +X 1\nabcd"},
             Sample{"x pixmap", "/* XPM */\nstatic char *x[]={\"1 1 1 1\",\"a c #fff\",\"a\"};"},
             Sample{"jpeg 2000", QByteArray("\0\0\0\x0cjP  \r\n\x87\n", 12)},
             Sample{"jpeg xl", "\xff\x0a\x7f"},
             Sample{"a script for the drawing program",
                    "push graphic-context\nviewbox 0 0 9 9\nfill 'url(https://x)'"},
             Sample{"a film", QByteArray("\0\0\0\x18"
                                         "ftypisom\0\0\0\0isommp42",
                                         24)},
         }) {
        EXPECT_FALSE(reader.photo(bytes)) << name;
    }
    EXPECT_EQ(reader.ended(), 0);
}

/// A few bytes of `bytes` changed, moved, left out or doubled; the same for the same random numbers.
QByteArray mutated(QByteArray bytes, std::mt19937& random)
{
    const auto below = [&](qsizetype limit) {
        return static_cast<qsizetype>(random() % std::max<qsizetype>(limit, 1));
    };
    for (auto changes = 1 + below(8); changes > 0 && !bytes.isEmpty(); --changes) {
        // Half of them in the first bytes, where the structure is.
        const auto at = below(random() % 2 == 0 ? std::min<qsizetype>(bytes.size(), 300) : bytes.size());
        switch (random() % 5) {
        case 0:
            bytes[at] = static_cast<char>(random());
            break;
        case 1:
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
            break;
        case 2:
            bytes.remove(at, 1 + below(20));
            break;
        case 3:
            bytes.insert(at, bytes.mid(below(bytes.size()), 1 + below(20)));
            break;
        default:
            bytes.replace(at, 4, random() % 2 == 0 ? QByteArray(4, '\xff') : QByteArray(4, '\0'));
        }
    }
    return bytes;
}

TEST(HostilePhotos, MutatedAreNoPhotosOrWithinBounds)
{
    constexpr int count = 2000;
    const auto originals = samples();
    std::mt19937 random(20'240'229);
    WarmPhotoReader reader;
    int photos = 0;
    for (int i = 0; i < count; ++i) {
        const auto& original = originals[static_cast<std::size_t>(i) % originals.size()];
        if (const auto photo = reader.photo(mutated(original.bytes, random))) {
            ++photos;
            const auto size = decoded(*photo).size();
            EXPECT_TRUE(!size.isEmpty() && std::max(size.width(), size.height()) <= 1600)
                << original.name << ' ' << i;
        }
    }
    // Some survive, some do not: else the mutations would show nothing.
    EXPECT_GT(photos, count / 50);
    EXPECT_LT(photos, count * 9 / 10);
    EXPECT_LT(reader.longestMilliseconds(), 25'000);
    RecordProperty("photos", photos);
    RecordProperty("ended", reader.ended());
    RecordProperty("longestMilliseconds", static_cast<int>(reader.longestMilliseconds()));
}

} // namespace
} // namespace ovrin
