#include "helpers/document/Pdfs.h"

#include "platform/reader/ReaderPdfTextLayer.h"
#include "support/Outcome.h"

#include <random>

using namespace ovrin;
using namespace std::chrono_literals;

namespace {

using Pages = std::optional<QList<QList<TextBox>>>;

Pages read(const QByteArray& pdf, std::chrono::milliseconds time = 10s)
{
    ReaderPdfTextLayer layer(QStringLiteral(OVRIN_DOCUMENT_READER), time);
    const auto outcome = finished(layer.pages(pdf, {}));
    EXPECT_TRUE(outcome.value) << "never throws, always ends";
    return outcome.value.value_or(std::nullopt);
}

std::vector<std::string> textsOf(const QList<TextBox>& boxes)
{
    std::vector<std::string> texts;
    for (const TextBox& box : boxes) {
        texts.push_back(box.text.toStdString());
    }
    return texts;
}

} // namespace

TEST(PdfTextLayer, GivesLinesWithTheirPlaces)
{
    const auto pages =
        read(Pdfs::pages({Pdfs::textAt(60, 720, "Lentil Soup", 24) + Pdfs::textAt(60, 400, "2 cups water")}));
    ASSERT_TRUE(pages);
    ASSERT_EQ(pages->size(), 1);
    EXPECT_THAT(textsOf(pages->first()), testing::UnorderedElementsAre("Lentil Soup", "2 cups water"));
    for (const TextBox& box : pages->first()) {
        EXPECT_NEAR(box.rect.left(), 0.1, 0.01);
        EXPECT_NEAR(box.rect.bottom(), box.text == u"Lentil Soup" ? 0.1 : 0.5, 0.01)
            << "y runs downwards from the top";
        EXPECT_NEAR(box.rect.height(), box.text == u"Lentil Soup" ? 24. / 800 : 12. / 800, 0.01);
    }
}

TEST(PdfTextLayer, GivesLinesAsTheyAreDrawn)
{
    // Two columns one after the other, a step's mark by itself at the end, a word that stands twice.
    const QByteArray columns = Pdfs::textAt(60, 700, "1 cup flour") + Pdfs::textAt(60, 680, "Salt") +
                               Pdfs::textAt(330, 700, "Mix the flour and the salt.") +
                               Pdfs::textAt(330, 680, "Salt") + Pdfs::textAt(60, 400, "Knead it well.") +
                               Pdfs::textAt(60, 740, "Bread, drawn last") + Pdfs::textAt(45, 400, "2.");
    QByteArray text;
    for (int y = 780; y > 20; y -= 14) {
        text += Pdfs::textAt(60, y, "A page of many words, whose memory the next page's words are put into.");
    }
    const auto pages = read(Pdfs::pages({columns, text, columns, text, columns}));
    ASSERT_TRUE(pages);
    for (const int page : {0, 2, 4}) {
        EXPECT_THAT(textsOf(pages->at(page)),
                    testing::ElementsAre("1 cup flour", "Salt", "Mix the flour and the salt.", "Salt",
                                         "2. Knead it well.", "Bread, drawn last"))
            << page;
    }
}

TEST(PdfTextLayer, StopsAfterTheTwelfthPage)
{
    QByteArrayList contents;
    for (int i = 0; i < 10'000; ++i) {
        contents << Pdfs::textAt(60, 700, "Page " + QByteArray::number(i));
    }
    const auto pages = read(Pdfs::pages(contents));
    ASSERT_TRUE(pages);
    ASSERT_EQ(pages->size(), 12);
    EXPECT_EQ(pages->last().first().text, u"Page 11");
}

TEST(PdfTextLayer, SaysNoToWhatCannotBeRead)
{
    const QByteArray good = Pdfs::pages({Pdfs::textAt(60, 700, "Soup")});
    QByteArray encrypted = good;
    encrypted.replace("/Root 1 0 R", "/Encrypt << /Filter /Standard /V 1 /R 2 /O (" + QByteArray(32, 'o') +
                                         ") /U (" + QByteArray(32, 'u') +
                                         ") /P -4 >> /ID [(a) (b)] /Root 1 0 R");
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("no PDF at all"), QByteArray("%PDF-1.5\n"), encrypted}) {
        EXPECT_FALSE(read(bytes)) << bytes.left(60).toStdString();
    }
}

TEST(PdfTextLayer, FindsNoPagesWhereThereAreNone)
{
    const auto pages = read(Pdfs::file({"<< /Type /Catalog >>"}));
    EXPECT_TRUE(pages && pages->isEmpty());
}

TEST(PdfTextLayer, GetsOutOfDocumentsThatLeadBackIntoThemselves)
{
    // What is asked is an end within the time, whatever text there is.
    const QByteArray catalogue = "<< /Type /Catalog /Pages 2 0 R >>";
    read(Pdfs::file({catalogue, "<< /Type /Pages /Count 0 /Kids [] >>"}));
    read(Pdfs::file({catalogue, "<< /Type /Pages /Count 5 /Kids [2 0 R 2 0 R] >>"}));
    read(Pdfs::file({catalogue, "<< /Type /Pages /Count 2147483647 /Kids 2 0 R >>"}));
    read(Pdfs::file(
        {catalogue, "<< /Type /Pages /Count 1 /Kids [3 0 R] >>",
         "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 1 1] /Contents 4 0 R /Resources << /XObject << /X 4 0 "
         "R "
         ">> >> >>",
         Pdfs::stream("/X Do /X Do", "/Type /XObject /Subtype /Form /BBox [0 0 9 9] /Resources << /XObject "
                                     "<< /X 4 0 R >> >>")}));
    const QByteArray good = Pdfs::pages({Pdfs::textAt(60, 700, "Soup")});
    for (const qsizetype length : {good.size() / 4, good.size() / 2, good.size() - 20}) {
        read(good.first(length));
    }
}

TEST(PdfTextLayer, GivesUpAPageThatDrawsForEver)
{
    // Each form draws the next one ten times: ten to the twelfth letters.
    QByteArrayList objects{
        "<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Count 1 /Kids [3 0 R] >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 600 800] /Contents 4 0 R /Resources << /XObject "
        "<< /X 5 0 R >> >> >>",
        Pdfs::stream("/X Do")};
    QByteArray tenTimes;
    for (int i = 0; i < 10; ++i) {
        tenTimes += "/X Do ";
    }
    for (int level = 5; level < 17; ++level) {
        objects << Pdfs::stream(
            tenTimes, "/Type /XObject /Subtype /Form /BBox [0 0 600 800] /Resources << /XObject << /X " +
                          QByteArray::number(level + 1) + " 0 R >> >>");
    }
    objects << Pdfs::stream("0 0 9 9 re f", "/Type /XObject /Subtype /Form /BBox [0 0 600 800]");
    EXPECT_FALSE(read(Pdfs::file(objects), 1500ms));
}

TEST(PdfTextLayer, SurvivesMutations)
{
    const QByteArray good = Pdfs::pages({Pdfs::textAt(60, 700, "Soup") + Pdfs::textAt(60, 650, "2 eggs")});
    std::mt19937 random(20241122);
    const auto below = [&](qsizetype bound) {
        return static_cast<qsizetype>(random() % static_cast<unsigned>(bound));
    };
    for (int round = 0; round < 20; ++round) {
        QByteArray bad = good;
        for (int change = 0; change < 8; ++change) {
            bad[below(bad.size())] = static_cast<char>(random());
        }
        read(bad, 5s);
    }
}
