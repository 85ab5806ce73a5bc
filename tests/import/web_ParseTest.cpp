#include "import/error/RecipeImportError.h"
#include "import/web/PageParser.h"
#include "json/JsonDocument.h"

#include <gtest/gtest.h>

namespace ovrin {
namespace {

RecipeDraft parse(const QByteArray& html, const char* url = "https://www.site.example/soup")
{
    return parsePage(html, QUrl(QString::fromLatin1(url)));
}

RecipeDraft parseRecipe(const QByteArray& fields)
{
    return parse("<script type=\"application/ld+json\">{\"@type\":\"Recipe\",\"name\":\"Soup\"," + fields +
                 "}</script>");
}

TEST(PageParser, ReadsAWholeRecipe)
{
    const RecipeDraft draft = parse(R"(<html><head><meta property="og:title" content="not this">
<script type="application/ld+json">{"@type":"BreadcrumbList","itemListElement":[{"name":"Home"}]}</script>
<script type="application/ld+json">{"@context":"https://schema.org","@type":"Recipe","name":"Tomato &amp; rice
soup","description":"Warm.<br>Quick.","author":[{"name":"Ann Lee"},{"name":"Bo Park"}],
"publisher":{"@type":"Organization","name":"Food Site"},"image":["/a.jpg"],"recipeYield":["4","4 servings"],
"prepTime":"PT10M","cookTime":"PT1H","totalTime":"PT70M","recipeIngredient":["1 egg\n2 cups rice"," ","1 egg"],
"recipeInstructions":"Boil.\nStir."}</script>)");
    EXPECT_EQ(draft.title, QStringLiteral("Tomato & rice soup"));
    EXPECT_EQ(draft.summary, QStringLiteral("Warm. Quick."));
    EXPECT_EQ(draft.author, QStringLiteral("Ann Lee, Bo Park"));
    EXPECT_EQ(draft.publisher, QStringLiteral("Food Site"));
    EXPECT_EQ(draft.sourceURL, QUrl(QStringLiteral("https://www.site.example/soup")));
    EXPECT_EQ(draft.imageURL, QUrl(QStringLiteral("https://www.site.example/a.jpg")));
    EXPECT_FALSE(draft.imageData);
    EXPECT_EQ(draft.yield, QStringLiteral("4 servings"));
    EXPECT_EQ(draft.prepMinutes, 10);
    EXPECT_EQ(draft.cookMinutes, 60);
    EXPECT_EQ(draft.totalMinutes, 70);
    EXPECT_EQ(draft.ingredients.join(u'|'), QStringLiteral("1 egg|2 cups rice|1 egg"));
    ASSERT_EQ(draft.steps.size(), 2);
    EXPECT_EQ(draft.steps[1].paragraphs, QStringList{QStringLiteral("Stir.")});
    EXPECT_TRUE(draft.isComplete());
}

TEST(PageParser, PrefersAYieldInWords)
{
    const std::pair<const char*, const char*> cases[] = {
        {R"("recipeYield":["4","4 servings"])", "4 servings"},
        {R"("recipeYield":6)", "6"},
        {R"("recipeYield":["4","6"])", "4"},
        {R"("recipeYield":["4","6 人份"])", "6 人份"},
        {R"("recipeYield":null,"yield":"8")", ""},
        {R"("yield":"8 rolls")", "8 rolls"},
        {R"("recipeYield":{"@type":"QuantitativeValue","value":4})", ""},
    };
    for (const auto& [fields, expected] : cases) {
        EXPECT_EQ(parseRecipe(fields).yield.toStdString(), expected) << fields;
    }
    EXPECT_EQ(parseRecipe(R"("ingredients":"salt")").ingredients.value(0), QStringLiteral("salt"));
    EXPECT_TRUE(parseRecipe(R"("recipeIngredient":[],"ingredients":"salt")").ingredients.isEmpty());
}

TEST(PageParser, FillsGapsFromMetaTagsAndTitle)
{
    RecipeDraft draft = parse(R"(<title>Page title</title><meta property="og:title" content="Tomato&#10;Tart">
        <meta name=description content="unquoted name"><meta name="description" content="Crisp">
        <meta property="og:image" content="/tart.jpg"><meta property="og:site_name" content="Tarts">)");
    EXPECT_EQ(draft.title, QStringLiteral("Tomato Tart"));
    EXPECT_EQ(draft.summary, QStringLiteral("Crisp"));
    EXPECT_EQ(draft.publisher, QStringLiteral("Tarts"));
    EXPECT_EQ(draft.imageURL, QUrl(QStringLiteral("https://www.site.example/tart.jpg")));
    EXPECT_FALSE(draft.isComplete());

    draft = parse("<title>Page &amp;amp; title</title><meta property='og:image' content='http://'>");
    // Cleaned twice: once as the title element, once as the draft's title.
    EXPECT_EQ(draft.title, QStringLiteral("Page & title"));
    EXPECT_EQ(draft.publisher, QStringLiteral("site.example"));
    EXPECT_FALSE(draft.imageURL);
    EXPECT_EQ(parse("<title>a</title>", "https://wwwsite.example/").publisher,
              QStringLiteral("wwwsite.example"));
    EXPECT_EQ(parse("<title>a</title>", "https://www.www.example/").publisher, QStringLiteral("www.example"));
}

TEST(PageParser, NeedsATitle)
{
    for (const QByteArray& html :
         {QByteArray(), QByteArray("<html>"), QByteArray("<title> <b></b> </title>"),
          QByteArray(1'000'000, '<'),
          QByteArray(
              "<meta property='og:title' content=''><title>an empty tag is there all the same</title>")}) {
        try {
            parse(html);
            ADD_FAILURE() << html.left(60).toStdString();
        } catch (const RecipeImportError& error) {
            EXPECT_EQ(error, RecipeImportError::noRecipeFound());
        }
    }
}

TEST(PageParser, TakesTheFirstRecipeOfThePage)
{
    const RecipeDraft draft =
        parse("<script type='application/ld+json'>{broken</script>"
              "<script type='application/ld+json'>" +
              QByteArray(100'000, '[') +
              "</script>"
              "<script type='application/ld+json'>[{\"@type\":\"Recipe\",\"name\":\"One\"}]</script>"
              "<script type='application/ld+json'>{\"@type\":\"Recipe\",\"name\":\"Two\"}</script>");
    EXPECT_EQ(draft.title, QStringLiteral("One"));
}

TEST(PageParser, RepairsBrokenText)
{
    const RecipeDraft draft = parse("<script type='application/ld+json'>{\"@type\":\"Recipe\",\"name\":"
                                    "\"Cr\xE8me \xE2\x82 br\xC3\xBBl\xC3\xA9\x65\"}</script>");
    EXPECT_EQ(draft.title, QStringLiteral("Cr\uFFFDme \uFFFD brûlée"));
}

TEST(PageParser, ReadsTheDeepestNestingInTime)
{
    const int depth = JsonDocument::maxDepth - 4;
    for (const char* field : {"name", "recipeInstructions", "image", "author"}) {
        for (const QByteArray key : {"name", "text", "itemListElement", "url", "@value", ""}) {
            const QByteArray open =
                key.isEmpty() ? QByteArray("[") : "{\"@type\":\"HowToSection\",\"" + key + "\":";
            const QByteArray close = key.isEmpty() ? "]" : "}";
            const QByteArray value = open.repeated(depth) + "[\"x\"" + QByteArray(",\"x\"").repeated(2'000) +
                                     "]" + close.repeated(depth);
            const RecipeDraft draft =
                parse("<title>t</title><script type='application/ld+json'>{\"@type\":\"Recipe\","
                      "\"" +
                      QByteArray(field) + "\":" + value + "}</script>");
            EXPECT_FALSE(draft.title.isEmpty());
        }
    }
}

} // namespace
} // namespace ovrin
