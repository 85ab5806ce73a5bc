#include "services/FileImport.h"

#include "import/error/RecipeImportError.h"
#include "support/Outcome.h"

#include <QtCore/QFile>
#include <QtCore/QMimeDatabase>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

using namespace ovrin;

namespace {

const char* const page = R"(<html><head><link rel="canonical" href="https://a.example/soup">
<script type="application/ld+json">{"@context": "https://schema.org", "@type": "Recipe", "name": "Onion Soup",
"recipeIngredient": ["2 onions", "1 cup stock"], "recipeInstructions": "Cook the onions in the stock."}
</script></head><body></body></html>)";

const char* const text =
    "Onion Soup\n\nIngredients\n2 onions\n1 cup stock\n\nDirections\nCook the onions in the stock.\n";

class FileImportTest : public testing::Test
{
protected:
    Outcome<DocumentRecipeImporter::Imported> importOf(const QString& name, const QByteArray& bytes)
    {
        QFile file(m_home.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        return finished(m_files.import(file.fileName(), {}));
    }
    static QString message(const Outcome<DocumentRecipeImporter::Imported>& outcome)
    {
        const auto error = outcome.failure<RecipeImportError>();
        return error ? error->errorDescription() : QString();
    }

private:
    QTemporaryDir m_home;
    PageImport m_pages{QStringLiteral(OVRIN_PROGRAMS)};
    DocumentImport m_documents{QStringLiteral(OVRIN_PROGRAMS)};
    FileImport m_files{m_pages, m_documents};
};

TEST_F(FileImportTest, ReadsSavedPagesAndTexts)
{
    for (const auto& [name, bytes] : {std::pair("Onion Soup.html", page),
                                      {"PAGE.HTM", page},
                                      {"page.xhtml", page},
                                      {"soup.txt", text},
                                      {"soup.md", text}}) {
        const auto outcome = importOf(QString::fromUtf8(name), bytes);
        ASSERT_TRUE(outcome.value) << name << qPrintable(message(outcome));
        EXPECT_EQ(outcome.value->draft.title, QStringLiteral("Onion Soup")) << name;
        EXPECT_EQ(outcome.value->draft.ingredients.size(), 2) << name;
        EXPECT_EQ(outcome.value->draft.steps.size(), 1U) << name;
    }
}

TEST_F(FileImportTest, SaysWhyAFileIsNone)
{
    EXPECT_EQ(message(importOf(QStringLiteral("empty.txt"), {})),
              RecipeImportError::noTextFound().errorDescription());
    EXPECT_EQ(message(importOf(QStringLiteral("empty.html"), "<p>Nothing to cook.")),
              RecipeImportError::noRecipeFound().errorDescription());
    for (const QByteArray& bytes : {QByteArray("%PDF-1.5 1 0 obj"), QByteArray("\x89PNG\0\0", 6)})
        EXPECT_EQ(message(importOf(QStringLiteral("other.txt"), bytes)),
                  RecipeImportError::damagedFile().errorDescription());
    EXPECT_EQ(message(importOf(QStringLiteral("log.txt"), QByteArray((1 << 20) + 1, 'x'))),
              RecipeImportError::tooLarge().errorDescription());
    for (const char* name : {"program.py", "table.csv", "letter.docx", "groceries.ics", "nothing"})
        EXPECT_EQ(message(importOf(QString::fromLatin1(name), text)),
                  RecipeImportError::unsupportedFile().errorDescription())
            << name;
}

TEST_F(FileImportTest, TheDesktopEntryPromisesNothingThatIsRefused)
{
    QFile entry(QStringLiteral(OVRIN_DESKTOP_ENTRY));
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    QByteArray types;
    for (const QByteArray& line : entry.readAll().split('\n'))
        if (line.startsWith("MimeType="))
            types = line.mid(line.indexOf('=') + 1);
    int files = 0;
    for (const QByteArray& name : types.split(';')) {
        if (name.isEmpty() || name.startsWith("x-scheme-handler/"))
            continue;
        const QMimeType type = QMimeDatabase().mimeTypeForName(QString::fromLatin1(name));
        ASSERT_TRUE(type.isValid()) << name.constData();
        const auto outcome = importOf(QStringLiteral("file.") + type.preferredSuffix(), "...");
        EXPECT_NE(message(outcome), RecipeImportError::unsupportedFile().errorDescription())
            << name.constData();
        EXPECT_NE(message(outcome), QString()) << "three dots are no recipe: " << name.constData();
        ++files;
    }
    EXPECT_GT(files, 0);
}

} // namespace
