#include "helpers/document/MutationRun.h"
#include "helpers/document/Pdfs.h"
#include "import/document/DocumentRecipeImporter.h"
#include "import/document/LanguageModel.h"
#include "import/error/RecipeImportError.h"
#include "platform/reader/ReaderPdfTextLayer.h"
#include "support/Outcome.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QtEndian>

#include <numeric>

using namespace ovrin;

namespace {

/// What must be read is waited for, however busy the machine; what may hang is given up soon.
constexpr std::chrono::milliseconds patience{15'000};
constexpr std::chrono::milliseconds impatience{1500};

const QByteArray words = Pdfs::textAt(60, 740, "Lentil Soup", 24) + Pdfs::textAt(60, 700, "Ingredients", 15) +
                         Pdfs::textAt(60, 680, "250 g red lentils, rinsed") +
                         Pdfs::textAt(60, 660, "1 large onion") + Pdfs::textAt(60, 620, "Method", 15) +
                         Pdfs::textAt(60, 600, "1. Boil the lentils until they are soft.");

const QByteArray catalogue = "<< /Type /Catalog /Pages 2 0 R >>";
const QByteArray onePage = "<< /Type /Pages /Count 1 /Kids [3 0 R] >>";
const QByteArray font = "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>";
const QByteArray fontEntry = "/Font << /F1 5 0 R >>";

QByteArray page(const QByteArray& entries, const QByteArray& mediaBox = "[0 0 600 800]")
{
    return "<< /Type /Page /Parent 2 0 R /MediaBox " + mediaBox + " /Contents 4 0 R " + entries + " >>";
}

/// One page of `words` with further entries in its catalogue and page, and further objects from 6 on.
QByteArray soup(const QByteArray& inCatalogue, const QByteArray& inPage = {}, const QByteArrayList& more = {})
{
    return Pdfs::file(QByteArrayList{"<< /Type /Catalog /Pages 2 0 R " + inCatalogue + " >>", onePage,
                                     page("/Resources << " + fontEntry + " >> " + inPage),
                                     Pdfs::stream(words), font} +
                      more);
}

/// One page that draws `content`.
QByteArray drawing(const QByteArray& contentStream, const QByteArray& resources = fontEntry,
                   const QByteArrayList& more = {})
{
    return Pdfs::file(
        QByteArrayList{catalogue, onePage, page("/Resources << " + resources + " >>"), contentStream, font} +
        more);
}

QByteArray withMediaBox(const QByteArray& box)
{
    return Pdfs::file(
        {catalogue, onePage, page("/Resources << " + fontEntry + " >>", box), Pdfs::stream(words), font});
}

/// Each of twelve forms draws the next one ten times.
QByteArray drawingForEver()
{
    QByteArrayList forms;
    for (int level = 6; level < 18; ++level) {
        forms << Pdfs::stream(
            QByteArray("/X Do ").repeated(10),
            "/Type /XObject /Subtype /Form /BBox [0 0 600 800] /Resources << /XObject << /X " +
                QByteArray::number(level + 1) + " 0 R >> >>");
    }
    forms << Pdfs::stream("0 0 9 9 re f", "/Type /XObject /Subtype /Form /BBox [0 0 600 800]");
    return drawing(Pdfs::stream("/X Do"), "/XObject << /X 6 0 R >>", forms);
}

QByteArray deepPageTree(int depth)
{
    QByteArrayList objects{catalogue};
    for (int level = 2; level < depth; ++level) {
        objects << "<< /Type /Pages /Count 1 /Kids [" + QByteArray::number(level + 1) + " 0 R] >>";
    }
    return Pdfs::file(objects << "<< /Type /Page /MediaBox [0 0 9 9] >>");
}

QByteArray rc4(const QByteArray& key, const QByteArray& text)
{
    std::array<unsigned char, 256> state{};
    std::iota(state.begin(), state.end(), static_cast<unsigned char>(0));
    unsigned j = 0;
    for (unsigned i = 0; i < 256; ++i) {
        j = (j + state.at(i) + static_cast<unsigned char>(key[i % static_cast<unsigned>(key.size())])) % 256;
        std::swap(state.at(i), state.at(j));
    }
    QByteArray result;
    unsigned i = 0;
    j = 0;
    for (const char c : text) {
        i = (i + 1) % 256;
        j = (j + state.at(i)) % 256;
        std::swap(state.at(i), state.at(j));
        result += static_cast<char>(c ^ state.at((state.at(i) + state.at(j)) % 256));
    }
    return result;
}

QByteArray md5(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5);
}

/// Encrypted in the oldest way (ISO 32000-1, 7.6.3: forty bits). A password of no characters is what
/// documents have that only forbid printing.
QByteArray encrypted(const QByteArray& password)
{
    const QByteArray padding =
        QByteArray::fromHex("28bf4e5e4e758a4164004e56fffa01082e2e00b6d0683e802f0ca9fe6453697a");
    const QByteArray owner(32, 'o');
    const QByteArray id = "0123456789abcdef";
    const qint32 permissions = qToLittleEndian<qint32>(-44);
    const QByteArray key =
        md5((password + padding).first(32) + owner +
            QByteArray(reinterpret_cast<const char*>(&permissions), sizeof permissions) + id)
            .first(5);
    // The key of each stream has its object's number in it: here that of the content, 4.
    const QByteArray content = rc4(md5(key + QByteArray::fromHex("0400000000")).first(10), words);
    QByteArray file = drawing(Pdfs::stream(content));
    file.replace("/Root 1 0 R", "/Root 1 0 R /ID [<" + id.toHex() + "> <" + id.toHex() +
                                    ">] /Encrypt << /Filter /Standard /V 1 /R 2 /O <" + owner.toHex() +
                                    "> /U <" + rc4(key, padding).toHex() + "> /P -44 >>");
    return file;
}

/// What may become of a document.
enum class Allowed { Draft, NoText, Damaged, Any };

struct Case
{
    const char* name;
    QByteArray bytes;
    Allowed allowed;
};

class HostileDocuments : public testing::Test
{
protected:
    std::string outcomeOf(const QByteArray& bytes, std::chrono::milliseconds time)
    {
        ReaderPdfTextLayer layer(QStringLiteral(OVRIN_DOCUMENT_READER), time);
        DocumentRecipeImporter importer(layer, model);
        QElapsedTimer timer;
        timer.start();
        const auto outcome = finished(importer.import(bytes, QStringLiteral("application/pdf")));
        EXPECT_LT(timer.elapsed(), time.count() + 5000);
        if (outcome.value) {
            last = outcome.value->draft;
            return "draft";
        }
        const auto failure = outcome.failure<RecipeImportError>();
        return failure ? failure->errorDescription().toStdString() : "no specified error";
    }
    void expectOutcomes(const std::vector<Case>& cases)
    {
        using testing::AnyOf;
        const std::string noText = "No text could be read from this file.";
        const std::string damaged = "This file could not be read. It may be damaged.";
        for (const auto& [name, bytes, allowed] : cases) {
            const bool mustBeRead = allowed == Allowed::Draft || allowed == Allowed::NoText;
            const std::string outcome = outcomeOf(bytes, mustBeRead ? patience : impatience);
            RecordProperty(name, outcome);
            switch (allowed) {
            case Allowed::Draft:
                EXPECT_EQ(outcome, "draft") << name;
                EXPECT_TRUE(last.ingredients.contains(QStringLiteral("250 g red lentils, rinsed"))) << name;
                break;
            case Allowed::NoText:
                EXPECT_EQ(outcome, noText) << name;
                break;
            case Allowed::Damaged:
                EXPECT_EQ(outcome, damaged) << name;
                break;
            case Allowed::Any:
                EXPECT_THAT(outcome, AnyOf("draft", noText, damaged)) << name;
            }
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            EXPECT_EQ(childProcesses(), 0) << name;
        }
    }

    NullLanguageModel model;
    RecipeDraft last;
};

} // namespace

TEST_F(HostileDocuments, ThatAreNone)
{
    expectOutcomes({
        {"nothing", {}, Allowed::Damaged},
        {"a header alone", "%PDF-1.5\n", Allowed::Damaged},
        {"a picture",
         QByteArray::fromHex("ffd8ffe000104a46494600010100000100010000") + QByteArray(900, 'x') +
             QByteArray::fromHex("ffd9"),
         Allowed::Damaged},
        {"a page", "<!doctype html><html><body><h1>Soup</h1><p>%PDF is another format</p></body></html>",
         Allowed::Damaged},
        {"zeros", QByteArray(1 << 20, '\0'), Allowed::Damaged},
        {"half of one", drawing(Pdfs::stream(words)).first(500), Allowed::Any},
        {"one without its end", drawing(Pdfs::stream(words)).chopped(200), Allowed::Any},
        {"one behind a letter", "Dear reader,\nsee below.\n" + drawing(Pdfs::stream(words)), Allowed::Any},
    });
}

TEST_F(HostileDocuments, ThatAreEncrypted)
{
    expectOutcomes({
        {"with a password", encrypted("secret"), Allowed::Damaged},
        {"against printing only", encrypted({}), Allowed::Draft},
        {"in no known way",
         QByteArray(drawing(Pdfs::stream(words)))
             .replace("/Root 1 0 R", "/Root 1 0 R /Encrypt << /Filter /Mine /V 99 >>"),
         Allowed::Any},
    });
}

TEST_F(HostileDocuments, ThatLeadBackIntoThemselves)
{
    const QByteArray form =
        "/Type /XObject /Subtype /Form /BBox [0 0 9 9] /Resources << /XObject << /X 4 0 R >> >>";
    QByteArray loopingTable = drawing(Pdfs::stream(words));
    const QByteArray start = loopingTable.mid(loopingTable.lastIndexOf("startxref") + 10).split('\n').first();
    loopingTable.replace("/Root 1 0 R", "/Root 1 0 R /Prev " + start);
    expectOutcomes({
        {"no pages", Pdfs::file({catalogue, "<< /Type /Pages /Count 0 /Kids [] >>"}), Allowed::NoText},
        {"no page tree", Pdfs::file({"<< /Type /Catalog >>"}), Allowed::NoText},
        {"a tree that is its own branch",
         Pdfs::file({catalogue, "<< /Type /Pages /Count 5 /Kids [2 0 R 2 0 R] >>"}), Allowed::Any},
        {"a tree that is its own parent",
         Pdfs::file({catalogue, "<< /Type /Pages /Count 1 /Kids [3 0 R] /Parent 2 0 R >>",
                     "<< /Type /Pages /Count 1 /Kids [2 0 R] /Parent 3 0 R >>"}),
         Allowed::Any},
        {"a form that draws itself", drawing(Pdfs::stream("/X Do /X Do", form), "/XObject << /X 4 0 R >>"),
         Allowed::Any},
        {"a stream as long as itself", drawing("<< /Length 4 0 R >>\nstream\n" + words + "\nendstream"),
         Allowed::Any},
        {"contents that contain themselves", drawing("[4 0 R 4 0 R]"), Allowed::Any},
        {"an object that means itself", drawing("4 0 R"), Allowed::Any},
        {"a table that comes before itself", loopingTable, Allowed::Any},
        {"resources of their own", drawing(Pdfs::stream(words), "/Font 3 0 R /XObject 3 0 R"), Allowed::Any},
        {"a font of itself",
         Pdfs::file({catalogue, onePage, page("/Resources << " + fontEntry + " >>"), Pdfs::stream(words),
                     "<< /Type /Font /Subtype /Type0 /BaseFont /X /Encoding 5 0 R /DescendantFonts [5 0 R] "
                     "/ToUnicode "
                     "5 0 R >>"}),
         Allowed::Any},
    });
}

TEST_F(HostileDocuments, ThatTakeForEver)
{
    const auto packedTwice = [](const QByteArray& content) {
        return Pdfs::stream(qCompress(qCompress(content).sliced(4)).sliced(4),
                            "/Filter [/FlateDecode /FlateDecode]");
    };
    expectOutcomes({
        {"forms of forms", drawingForEver(), Allowed::Damaged},
        {"packed blanks", drawing(packedTwice(QByteArray(128 << 20, ' '))), Allowed::Any},
        {"packed drawing", drawing(packedTwice(QByteArray("0 0 m ").repeated(30 << 20))), Allowed::Any},
        {"a million words",
         drawing(
             Pdfs::compressedStream("BT /F1 2 Tf " + QByteArray("1 0 Td (a) Tj ").repeated(1 << 20) + "ET")),
         Allowed::Any},
        {"one word of a million letters",
         drawing(Pdfs::compressedStream("BT /F1 1 Tf (" + QByteArray(1 << 20, 'a') + ") Tj ET")),
         Allowed::Any},
    });
}

TEST_F(HostileDocuments, OfSizesThatNobodyPrints)
{
    const QByteArray deep = QByteArray(200'000, '[') + QByteArray(200'000, ']');
    QByteArray manyClaimed = drawing(Pdfs::stream(words));
    manyClaimed.replace("xref\n0 6", "xref\n0 2147483647");
    expectOutcomes({
        {"a page of a billion points", withMediaBox("[0 0 1000000000 1000000000]"), Allowed::Any},
        {"a page beyond all numbers", withMediaBox("[-1e38 -1e38 1e38 1e38]"), Allowed::Any},
        {"a page of nothing", withMediaBox("[0 0 0 0]"), Allowed::Any},
        {"a page inside out", withMediaBox("[600 800 0 0]"), Allowed::Draft},
        {"a page of no numbers", withMediaBox("[/A /B (c) null]"), Allowed::Any},
        {"a deep object", soup("/Deep " + deep), Allowed::Any},
        {"deep content", drawing(Pdfs::stream(deep + words)), Allowed::Any},
        {"many saved states", drawing(Pdfs::stream(QByteArray("q ").repeated(500'000) + words)),
         Allowed::Any},
        {"many marks", drawing(Pdfs::stream(QByteArray("/P BMC ").repeated(500'000) + words)), Allowed::Any},
        {"a deep tree of pages", deepPageTree(20'000), Allowed::Any},
        {"a count beyond all", Pdfs::file({catalogue, "<< /Type /Pages /Count 2147483647 /Kids 2 0 R >>"}),
         Allowed::Any},
        {"many claimed objects", manyClaimed, Allowed::Any},
        {"many objects", soup({}, {}, QByteArrayList(200'000, "<< /A [1 2 3] >>")), Allowed::Draft},
    });
}

TEST_F(HostileDocuments, ThatWantSomethingDone)
{
    const QTemporaryDir folder;
    const QByteArray mark = QFile::encodeName(folder.filePath(QStringLiteral("mark")));
    const QByteArray launch = "/S /Launch /F (/bin/touch) /Unix << /F (/bin/touch) /P (" + mark + ") >>";
    expectOutcomes({
        {"a script at the start",
         soup("/OpenAction << /S /JavaScript /JS (app.alert\\(1\\); while\\(1\\);) >>"), Allowed::Draft},
        {"a script by name",
         soup("/Names << /JavaScript << /Names [(a) << /S /JavaScript /JS (while\\(1\\);) >>] >> >>"),
         Allowed::Draft},
        {"a program at the start", soup("/OpenAction << " + launch + " >>"), Allowed::Draft},
        {"a program on a page", soup({}, "/AA << /O << " + launch + " >> >>"), Allowed::Draft},
        {"an address at the start", soup("/OpenAction << /S /URI /URI (http://127.0.0.1:9/soup) >>"),
         Allowed::Draft},
        {"a form that sends itself",
         soup("/AcroForm << /NeedAppearances true /Fields [6 0 R] >>", "/Annots [6 0 R]",
              {"<< /Type /Annot /Subtype /Widget /FT /Tx /T (a) /V (b) /Rect [0 0 9 9] /AA << /F << /S "
               "/SubmitForm /F "
               "(http://127.0.0.1:9/) >> >> >>"}),
         Allowed::Draft},
        {"a file in it",
         soup("/Names << /EmbeddedFiles << /Names [(a.exe) << /Type /Filespec /F (a.exe) /EF << /F 6 0 R >> "
              ">>] >> >>",
              {}, {Pdfs::stream("MZ", "/Type /EmbeddedFile")}),
         Allowed::Draft},
    });
    EXPECT_FALSE(QFile::exists(QFile::decodeName(mark)));
}

TEST_F(HostileDocuments, ThatDrawAnotherFileGetNothingOfIt)
{
    QTemporaryDir folder;
    QFile secret(folder.filePath(QStringLiteral("secret")));
    ASSERT_TRUE(secret.open(QIODevice::WriteOnly));
    secret.write(words);
    secret.close();
    const QByteArray elsewhere =
        "<< /Length 0 /F (" + QFile::encodeName(secret.fileName()) + ") >>\nstream\n\nendstream";
    expectOutcomes({{"content in another file", drawing(elsewhere), Allowed::NoText}});
}
