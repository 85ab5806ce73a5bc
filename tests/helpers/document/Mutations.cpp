#include "helpers/document/Mutations.h"

#include "helpers/document/Pdfs.h"

#include <QtCore/QList>

#include <algorithm>

namespace ovrin {

namespace {

/// What a document draws, and how it is packed.
struct Original
{
    QByteArray content;
    QByteArray (*pack)(const QByteArray& content);
};

QByteArray recipe()
{
    QByteArray lines =
        Pdfs::textAt(60, 740, "Lentil Soup with Lemon", 24) + Pdfs::textAt(60, 700, "Ingredients", 15);
    int y = 680;
    for (const char* line :
         {"2 tablespoons olive oil", "250 g red lentils", "1 large onion, finely chopped"}) {
        lines += Pdfs::textAt(60, y -= 16, line);
    }
    lines += Pdfs::textAt(60, 580, "Method", 15) +
             Pdfs::textAt(60, 560, "1. Boil the lentils in the stock until soft.") +
             Pdfs::textAt(60, 544, "2. Stir in the lemon and the oil, and serve.");
    return lines;
}

QByteArray drawing()
{
    return "q 1 0 0 1 20 20 cm 0.4 w 1 0 0 RG 0 0 m 30 40 60 80 90 10 c 50 50 l h B* 10 10 200 100 re W n\n"
           "[3 2] 0 d /Tint cs 0.3 scn 0 0 300 300 re f Q q 0.7 0 0.2 1 0 0 cm\n" +
           recipe() +
           "Q BT /F1 9 Tf 1.2 Tc 3 Tw 90 Tz 2 Ts 14 TL 60 300 Td [(Se) -120 (rves) 400 (4)] TJ T* (again) ' "
           "0 Tr ET\n"
           "/Form Do\n";
}

QByteArray onPages(const QByteArray& content)
{
    return Pdfs::pages({content, content});
}

QByteArrayList objectsFor(const QByteArray& contentStream)
{
    return {"<< /Type /Catalog /Pages 2 0 R >>",
            "<< /Type /Pages /Count 1 /Kids [3 0 R] >>",
            "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 600 800] /Contents 4 0 R /Resources << /Font << /F1 "
            "5 0 R >> "
            "/XObject << /Form 6 0 R >> /ColorSpace << /Tint [/Separation /Red /DeviceRGB 7 0 R] >> >> >>",
            contentStream,
            "<< /Type /Font /Subtype /Type1 /BaseFont /Times-Roman /Encoding << /Type /Encoding /Differences "
            "[65 /B "
            "/A] >> >>",
            Pdfs::stream(
                "BT /F1 8 Tf 60 200 Td (Keeps for three days.) Tj ET 0 0 9 9 re f",
                "/Type /XObject /Subtype /Form /BBox [0 0 600 800] /Matrix [1 0 0 1 5 5] /Resources << /Font "
                "<< /F1 5 0 R >> >>"),
            "<< /FunctionType 2 /Domain [0 1] /C0 [1 1 1] /C1 [1 0 0] /N 1 >>"};
}

QByteArray plain(const QByteArray& content)
{
    return Pdfs::file(objectsFor(Pdfs::stream(content)));
}

QByteArray compressed(const QByteArray& content)
{
    return Pdfs::file(objectsFor(Pdfs::compressedStream(content)));
}

QByteArray inOneStream(const QByteArray& content)
{
    return Pdfs::packedFile(objectsFor(Pdfs::compressedStream(content)));
}

const QList<Original>& all()
{
    static const QList<Original> originals{
        {recipe(), onPages}, {drawing(), plain}, {drawing(), compressed}, {drawing(), inOneStream}};
    return originals;
}

class Mutator
{
public:
    explicit Mutator(std::mt19937& random)
        : m_random(random)
    {
    }

    qsizetype below(qsizetype limit)
    {
        return static_cast<qsizetype>(m_random() % static_cast<unsigned>(std::max<qsizetype>(limit, 1)));
    }

    QByteArray changed(QByteArray bytes)
    {
        for (auto changes = 1 + below(6); changes > 0 && !bytes.isEmpty(); --changes) {
            const auto at = below(bytes.size());
            switch (below(8)) {
            case 0:
                bytes[at] = static_cast<char>(m_random());
                break;
            case 1:
                bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
                break;
            case 2:
                bytes.remove(at, 1 + below(40));
                break;
            case 3:
                bytes.insert(at, bytes.mid(below(bytes.size()), 1 + below(200)));
                break;
            case 4:
                bytes.replace(at, 4, QByteArray(4, below(2) == 0 ? '\xff' : '\0'));
                break;
            case 5:
                bytes.truncate(at);
                break;
            default:
                exchangeNumber(bytes, at);
            }
        }
        return bytes;
    }

private:
    /// Where a number stands, another one: sizes, places, references.
    void exchangeNumber(QByteArray& bytes, qsizetype from)
    {
        static constexpr std::array numbers{"0",          "-1",         "1",    "4",
                                            "2147483647", "4294967296", "1e99", "-999999999",
                                            "0.00000001", "999999",     "nan",  "3 0 R"};
        const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
        auto* const first = std::find_if(bytes.begin() + from, bytes.end(), isDigit);
        auto* const last = std::find_if_not(first, bytes.end(), isDigit);
        bytes.replace(first - bytes.begin(), last - first,
                      numbers.at(static_cast<std::size_t>(below(numbers.size()))));
    }

    std::mt19937& m_random;
};

} // namespace

QByteArrayList Mutations::originals()
{
    QByteArrayList documents;
    for (const Original& original : all()) {
        documents << original.pack(original.content);
    }
    return documents;
}

QByteArray Mutations::next(std::mt19937& random)
{
    Mutator mutator(random);
    const Original& original = all()[mutator.below(all().size())];
    return mutator.below(2) == 0 ? mutator.changed(original.pack(original.content))
                                 : original.pack(mutator.changed(original.content));
}

} // namespace ovrin
