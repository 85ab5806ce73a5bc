#include "import/web/PageParser.h"

#include "import/error/RecipeImportError.h"
#include "import/web/JsonLD.h"
#include "import/web/PageMarkup.h"
#include "text/HTMLText.h"

#include <algorithm>
#include <optional>

namespace ovrin {
namespace {

/// The page's recipe, with the document that holds it.
struct PageRecipe
{
    std::optional<JsonDocument> document;
    JsonValue value;
};

PageRecipe recipeIn(std::string_view page)
{
    JsonLDScripts scripts(page);
    while (const auto body = scripts.next()) {
        if (auto document = JsonLD::json(*body)) {
            if (const JsonValue recipe = JsonLD::findRecipe(document->root()); !recipe.isMissing()) {
                return {std::move(document), recipe};
            }
        }
    }
    return {};
}

bool containsLetter(const QString& text)
{
    const auto characters = text.toUcs4();
    return std::any_of(characters.begin(), characters.end(), [](char32_t c) { return QChar::isLetter(c); });
}

/// What says how many of what ("4 servings") before a bare number.
QString yieldOf(const QStringList& yields)
{
    const auto inWords = std::find_if(yields.begin(), yields.end(), containsLetter);
    return inWords != yields.end() ? *inWords : yields.value(0);
}

/// The value under the older name only where the newer one is not written at all.
JsonValue either(JsonValue object, std::string_view key, std::string_view olderKey)
{
    const JsonValue value = object[key];
    return value.isMissing() ? object[olderKey] : value;
}

RecipeDraft draftOf(JsonValue recipe, const QUrl& pageURL)
{
    RecipeDraft draft;
    draft.title = JsonLD::text(recipe["name"]).value_or(QString());
    draft.summary = JsonLD::text(recipe["description"]).value_or(QString());
    draft.author = JsonLD::people(recipe["author"]);
    draft.publisher = JsonLD::people(recipe["publisher"]);
    draft.imageURL = JsonLD::imageURL(recipe["image"], pageURL);
    draft.yield = yieldOf(JsonLD::list(either(recipe, "recipeYield", "yield")));
    draft.prepMinutes = JsonLD::minutes(recipe["prepTime"]);
    draft.cookMinutes = JsonLD::minutes(recipe["cookTime"]);
    draft.totalMinutes = JsonLD::minutes(recipe["totalTime"]);
    draft.ingredients = JsonLD::lines(either(recipe, "recipeIngredient", "ingredients"));
    draft.steps = JsonLD::steps(recipe["recipeInstructions"]);
    return draft;
}

QString siteName(const QUrl& pageURL)
{
    const QString host = pageURL.host();
    return host.startsWith(u"www.") ? host.mid(4) : host;
}

void fillGaps(RecipeDraft& draft, std::string_view page, const QUrl& pageURL)
{
    if (!draft.title.isEmpty() && !draft.summary.isEmpty() && !draft.publisher.isEmpty() && draft.imageURL) {
        return;
    }
    const MetaTags meta = MetaTags::in(page);
    if (draft.title.isEmpty()) {
        const auto title = meta["og:title"];
        draft.title = title ? *title : pageTitle(page).value_or(QString());
    }
    if (draft.summary.isEmpty()) {
        const auto summary = meta["og:description"];
        draft.summary = summary ? *summary : meta["description"].value_or(QString());
    }
    if (draft.publisher.isEmpty()) {
        const auto site = meta["og:site_name"];
        draft.publisher = site ? *site : siteName(pageURL);
    }
    if (!draft.imageURL) {
        if (const auto address = meta["og:image"]) {
            draft.imageURL = resolvedAddress(*address, pageURL);
        }
    }
}

QString oneLine(const QString& text)
{
    return HTMLText::clean(text).replace(u'\n', u' ');
}

} // namespace

RecipeDraft parsePage(QByteArrayView html, const QUrl& pageURL)
{
    const std::string_view page(html.data(), size_t(html.size()));
    const PageRecipe recipe = recipeIn(page);
    RecipeDraft draft = draftOf(recipe.value, pageURL);
    fillGaps(draft, page, pageURL);
    if (!pageURL.isEmpty()) {
        draft.sourceURL = pageURL;
    }
    draft.title = oneLine(draft.title);
    draft.summary = oneLine(draft.summary);
    if (draft.title.isEmpty()) {
        throw RecipeImportError::noRecipeFound();
    }
    return draft;
}

} // namespace ovrin
