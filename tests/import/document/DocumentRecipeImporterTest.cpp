#include "import/document/DocumentRecipeImporter.h"

#include "import/document/RecipeStructurer.h"
#include "import/error/RecipeImportError.h"
#include "support/Outcome.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

using namespace ovrin;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// A PDF whose pages are given line by line, top to bottom.
class FakeLayer : public PdfTextLayer
{
public:
    std::optional<QList<QStringList>> content = QList<QStringList>();
    QByteArray asked;

    QCoro::Task<std::optional<QList<QList<TextBox>>>> pages(QByteArray pdf, std::stop_token /*stop*/) override
    {
        asked = pdf;
        if (!content) {
            co_return std::nullopt;
        }
        QList<QList<TextBox>> pages;
        for (const QStringList& lines : *content) {
            QList<TextBox> boxes;
            for (qsizetype i = 0; i < lines.size(); ++i) {
                boxes.append({lines[i], {0.1, 0.1 + 0.03 * static_cast<double>(i), 0.5, 0.02}});
            }
            pages.append(boxes);
        }
        co_return pages;
    }
};

class FakeModel : public LanguageModel
{
public:
    std::optional<QByteArray> answer;
    QStringList prompts;

    QCoro::Task<std::optional<QByteArray>> respond(QString /*instructions*/, QString prompt,
                                                   QJsonObject /*schema*/, std::stop_token /*stop*/) override
    {
        prompts.append(prompt);
        co_return answer;
    }
};

const QStringList wholePage{QStringLiteral("Tea"),
                            QStringLiteral("Ingredients"),
                            QStringLiteral("1 cup water"),
                            QStringLiteral("1 tsp tea leaves"),
                            QStringLiteral("Method"),
                            QStringLiteral("1. Boil the water."),
                            QStringLiteral("2. Add the tea.")};

class DocumentImport : public testing::Test
{
protected:
    FakeLayer layer;
    FakeModel model;
    DocumentRecipeImporter importer{layer, model};

    Outcome<DocumentRecipeImporter::Imported> import(const QString& path, std::stop_token stop = {})
    {
        return finished(importer.import(path, std::move(stop)));
    }
    std::optional<RecipeImportError::Case> failureOf(const QString& path)
    {
        const auto failure = import(path).failure<RecipeImportError>();
        return failure ? std::optional(failure->reason()) : std::nullopt;
    }
    QString file(const char* name, const QByteArray& bytes = "%PDF-1.4")
    {
        QFile file(folder.filePath(text(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(DocumentImport, ReadsAFileAndNeverAsksTheModelForAWholeRecipe)
{
    layer.content = {wholePage};
    const auto outcome = import(file("tea.PDF"));
    ASSERT_TRUE(outcome.value);
    EXPECT_EQ(layer.asked, "%PDF-1.4");
    EXPECT_EQ(outcome.value->draft.title, u"Tea");
    EXPECT_TRUE(outcome.value->draft.isComplete());
    EXPECT_FALSE(outcome.value->hasMoreRecipes);
    EXPECT_TRUE(model.prompts.isEmpty());
}

TEST_F(DocumentImport, AsksTheModelWhereTheRulesFoundNothingAndFillsItsGaps)
{
    layer.content = {
        {text("Serves: 4"), text("A drink of hot water and leaves"), text("water, one cup or so")}};
    model.answer =
        R"({"title": "Tea", "source": "", "author": "", "summary": "", "yield": "", "totalMinutes": 0,
        "ingredients": ["water, one cup", "sugar"], "steps": [{"paragraphs": ["1. Boil."]}]})";
    const auto outcome = import(file("tea.pdf"));
    ASSERT_TRUE(outcome.value);
    EXPECT_EQ(model.prompts.size(), 1);
    EXPECT_EQ(outcome.value->draft.title, u"Tea");
    EXPECT_EQ(outcome.value->draft.yield, u"4") << "taken from the rules' draft";
    EXPECT_EQ(outcome.value->draft.ingredients, QStringList(text("water, one cup")));
    EXPECT_EQ(outcome.value->draft.steps.first().paragraphs, QStringList(text("Boil.")));
    model.answer = "{";
    EXPECT_TRUE(import(file("tea.pdf")).value) << "a broken answer leaves what the rules found";
}

TEST_F(DocumentImport, GivesADraftWithoutATitleTheStandingOne)
{
    layer.content = {{text("• 2 cups of all-purpose flour, sifted"), text("• 3 eggs, beaten with a fork")}};
    EXPECT_EQ(import(file("x.pdf")).value->draft.title, u"Imported Recipe");
}

TEST_F(DocumentImport, CountsAPageOfFortyCharactersAsOneWithoutText)
{
    layer.content = {{QString(40, u'a')}};
    EXPECT_EQ(failureOf(file("a.pdf")), RecipeImportError::Case::NoTextFound);
    layer.content = {{QString(40, u'a')}, {QString(41, u'b')}};
    const auto lines = finished(importer.lines(file("a.pdf")));
    ASSERT_TRUE(lines.value);
    ASSERT_EQ(lines.value->size(), 1);
    EXPECT_EQ(lines.value->first().page, 1);
}

TEST_F(DocumentImport, FailsWithASentenceForWhatCannotBeRead)
{
    EXPECT_EQ(failureOf(file("letter.docx")), RecipeImportError::Case::UnsupportedFile);
    EXPECT_EQ(failureOf(file("pdf")), RecipeImportError::Case::UnsupportedFile);
    EXPECT_EQ(failureOf(file("photo.jpg")), RecipeImportError::Case::NoTextFound);
    EXPECT_EQ(failureOf(folder.filePath(text("gone.pdf"))), RecipeImportError::Case::DamagedFile);
    ASSERT_TRUE(QDir(folder.path()).mkdir(text("folder.pdf")));
    EXPECT_EQ(failureOf(folder.filePath(text("folder.pdf"))), RecipeImportError::Case::DamagedFile);
    EXPECT_EQ(failureOf(text("/dev/zero/../zero.pdf")), RecipeImportError::Case::DamagedFile);
    layer.content = std::nullopt;
    EXPECT_EQ(failureOf(file("broken.pdf")), RecipeImportError::Case::DamagedFile);
    QFile large(folder.filePath(text("large.pdf")));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    ASSERT_TRUE(large.resize(200LL * 1024 * 1024 + 1));
    EXPECT_EQ(failureOf(large.fileName()), RecipeImportError::Case::TooLarge);
}

TEST_F(DocumentImport, IsCalledOff)
{
    layer.content = {wholePage};
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(import(file("tea.pdf"), stop.get_token()).failure<ImportCancelled>());
}

TEST(RecipeStructurer, SendsAtMostNineThousandCharacters)
{
    const QList<TextLine> lines{{QString(12000, u'x')}};
    EXPECT_EQ(RecipeStructurer::prompt(lines), text("Recipe text:\n") + QString(9000, u'x'));
    EXPECT_EQ(RecipeStructurer::prompt(TextLines::fromPlainText(text("Tea\n\nBoil it."))),
              text("Recipe text:\nTea\n\nBoil it."));
}
