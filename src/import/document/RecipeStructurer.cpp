#include "import/document/RecipeStructurer.h"

#include "import/document/GeneratedRecipe.h"
#include "import/document/RecipeTextParser.h"

namespace ovrin {

namespace {

/// What small models still take in whole.
constexpr qsizetype longestText = 9000;

} // namespace

QString RecipeStructurer::instructions()
{
    return QStringLiteral(
        "You extract recipes from text recognized in screenshots and PDFs. Copy wording exactly; never "
        "invent, "
        "reword, or convert amounts. Ignore app buttons, ads, navigation and reviews. If text appears in two "
        "columns, ingredients and directions may be interleaved; put each line where it belongs. Each "
        "paragraph of "
        "the method is one step unless the text numbers its steps.");
}

QString RecipeStructurer::prompt(const QList<TextLine>& lines)
{
    const QString text = RecipeTextParser::paragraphs(lines).join(QStringLiteral("\n\n"));
    return QStringLiteral("Recipe text:\n") + text.left(longestText);
}

QCoro::Task<std::optional<RecipeDraft>>
RecipeStructurer::structure(LanguageModel& model, QList<TextLine> lines, std::stop_token stop)
{
    const auto answer =
        co_await model.respond(instructions(), prompt(lines), GeneratedRecipe::schema(), std::move(stop));
    const auto recipe = answer ? GeneratedRecipe::fromJson(*answer) : std::nullopt;
    co_return recipe ? recipe->checkedAgainst(lines) : std::nullopt;
}

QCoro::Task<std::optional<QByteArray>> NullLanguageModel::respond(QString /*instructions*/,
                                                                  QString /*prompt*/, QJsonObject /*schema*/,
                                                                  std::stop_token /*stop*/)
{
    co_return std::nullopt;
}

} // namespace ovrin
