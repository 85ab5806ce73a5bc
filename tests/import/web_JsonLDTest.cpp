#include "import/web/JsonLD.h"

#include <gtest/gtest.h>

namespace ovrin {
namespace {

const QUrl page(QStringLiteral("https://www.site.example/dir/page.html"));

JsonDocument value(const char* text)
{
    auto document = JsonLD::json(text);
    if (!document) {
        ADD_FAILURE() << "not JSON: " << text;
        return *JsonLD::json("null");
    }
    return *std::move(document);
}

std::string found(const char* text)
{
    const JsonDocument document = value(text);
    return std::string(JsonLD::findRecipe(document.root())["name"].utf8());
}

/// Steps as "title: paragraph / paragraph | ...".
std::string steps(const char* text)
{
    const JsonDocument document = value(text);
    QStringList all;
    for (const RecipeStep& step : JsonLD::steps(document.root())) {
        EXPECT_FALSE(step.id.isNull());
        all << (step.title ? *step.title + QStringLiteral(": ") : QString()) +
                   step.paragraphs.join(QStringLiteral(" / "));
    }
    return all.join(QStringLiteral(" | ")).toStdString();
}

TEST(JsonLD, FindsTheRecipe)
{
    const std::pair<const char*, const char*> cases[] = {
        {R"({"@graph":[{"@type":"WebPage"},{"@type":["Recipe","NewsArticle"],"name":"Soup"}]})", "Soup"},
        {R"({"@type":"recipe","name":"a"})", "a"},
        {R"({"@type":"https://schema.org/Recipe","name":"a"})", "a"},
        {R"({"@type":"https://schema.org/recipe","name":"a"})", ""},
        {R"({"@type":"RecipeCollection","name":"a"})", ""},
        {R"({"@type":["Recipe",1],"name":"a"})", ""},
        {R"({"@type":[],"mainEntity":{"@type":"Recipe","name":"a"}})", "a"},
        {R"([1,"x",null,[{"@type":"Recipe","name":"a"}],{"@type":"Recipe","name":"b"}])", "a"},
        {R"({"item":{"@type":"Recipe","name":"item"},"@graph":{"@type":"Recipe","name":"graph"}})", "graph"},
        {R"({"mainEntityOfPage":{"@type":"Recipe","name":"a"},"mainEntity":"x"})", "a"},
        {R"({"itemListElement":[{"item":{"@type":"Recipe","name":"a"}}]})", "a"},
        {R"({"hasPart":{"@type":"Recipe","name":"a"}})", ""},
        {R"({"@type":"Thing","@type":"Recipe","name":"x","name":"a"})", "a"},
    };
    for (const auto& [text, name] : cases) {
        EXPECT_EQ(found(text), name) << text;
    }
}

TEST(JsonLD, ReadsTextsAndLists)
{
    const std::pair<const char*, const char*> cases[] = {
        {R"("<b>A</b> &amp; B")", "A & B"},
        {R"("<br>")", ""},
        {"6", "6"},
        {"4.0", "4"},
        {"2.50", "2.5"},
        {"true", ""},
        {"null", ""},
        {R"({"name":"a","text":"b"})", "a"},
        {R"({"name":" ","text":{"@value":"b"}})", "b"},
        {R"({"@value":7})", "7"},
        {R"({"other":"a"})", ""},
        {R"(["", false, {"name":"a"}, ["", ["b", "c"]], 3])", "a, b, 3"},
    };
    for (const auto& [text, expected] : cases) {
        const JsonDocument document = value(text);
        EXPECT_EQ(JsonLD::people(document.root()).toStdString(), expected) << text;
    }
    const JsonDocument two = value(R"(["1 egg\n2 cups flour", "1 egg<br><br>salt"])");
    EXPECT_EQ(JsonLD::lines(two.root()).join(u'|').toStdString(), "1 egg|2 cups flour|1 egg|salt");
}

TEST(JsonLD, ReadsSteps)
{
    const std::pair<const char*, const char*> cases[] = {
        {R"("<p>Mix.</p><p>Bake.</p>Serve.")", "Mix. | Bake. | Serve."},
        {R"("  ")", ""},
        {R"(["Mix.", ["Bake."], 5, null])", "Mix. | Bake."},
        {R"({"@type":"HowToStep","text":"Mix.\nRest.","name":"ignored"})", "Mix. / Rest."},
        {R"({"@type":"HowToStep","text":"","name":"Mix."})", "Mix."},
        {R"({"@type":"HowToStep","image":"x"})", ""},
        {R"({"@type":"HowToStep","name":"A","itemListElement":[{"text":"b\nc"},"d"]})", "A / b / c / d"},
        {R"({"@type":"HowToSection","name":"For the sauce","itemListElement":[{"text":"Stir."},{"text":"Boil."}]})",
         "For the sauce: Stir. | Boil."},
        {R"({"@type":["HowToSection"],"name":"S","itemListElement":"One.\nTwo."})", "S: One. | Two."},
        {R"({"@type":"HowToSection","name":"Outer","itemListElement":[{"@type":"HowToSection","name":"Inner",
            "itemListElement":["a"]},"b"]})",
         "Outer: a | b"},
        {R"({"@type":"HowToSection","name":"Empty","itemListElement":[]})", ""},
        {R"({"@type":"HowToSection","name":"","itemListElement":["a"]})", "a"},
        {R"({"@type":"https://schema.org/HowToSection","name":"S","itemListElement":["a","b"]})",
         "S / a / b"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(steps(text), expected) << text;
    }
}

TEST(JsonLD, ReadsTheFirstPicture)
{
    const std::pair<const char*, const char*> cases[] = {
        {R"("/a.jpg?x=1&amp;y=2")", "https://www.site.example/a.jpg?x=1&y=2"},
        {R"(["", 5, null, {"@type":"ImageObject"}, "b.jpg", "c.jpg"])", "https://www.site.example/dir/b.jpg"},
        {R"({"url":"a.jpg","contentUrl":"b.jpg"})", "https://www.site.example/dir/a.jpg"},
        {R"({"url":"","contentUrl":["b.jpg"]})", "https://www.site.example/dir/b.jpg"},
        {R"({"@id":"x"})", "none"},
        {R"("http://")", "none"},
    };
    for (const auto& [text, expected] : cases) {
        const JsonDocument document = value(text);
        const auto url = JsonLD::imageURL(document.root(), page);
        EXPECT_EQ(url ? url->toEncoded().toStdString() : "none", expected) << text;
    }
}

TEST(JsonLD, ReadsMinutesOfStringsOnly)
{
    const std::pair<const char*, std::optional<qint64>> cases[] = {
        {R"("PT1H30M")", 90},           {R"("P1DT2H")", 1560},         {R"("P0DT0H20M")", 20},
        {R"("PT45S")", std::nullopt},   {R"(" PT20M")", std::nullopt}, {"20", std::nullopt},
        {R"(["PT20M"])", std::nullopt},
    };
    for (const auto& [text, expected] : cases) {
        const JsonDocument document = value(text);
        EXPECT_EQ(JsonLD::minutes(document.root()), expected) << text;
    }
    EXPECT_FALSE(JsonLD::minutes({}));
}

TEST(JsonLD, ReadsScriptsThatAreNotQuiteJson)
{
    for (const char* text : {"{\"a\": \"one\ntwo\"}", "{\"a\": \"one\r\ntwo\"}", "{\"a\": \"one\ttwo\",}",
                             "/*<![CDATA[*/{\"a\": \"one two\"}/*]]>*/;", "{\"a\": \"one\xFF two\"}"}) {
        const auto document = JsonLD::json(text);
        ASSERT_TRUE(document) << text;
        EXPECT_TRUE(document->root()["a"].string().startsWith(u"one")) << text;
    }
    for (const char* text : {"", "{", "{\"a\": \"b}", "window.x = {}", "{&quot;a&quot;:1}"}) {
        EXPECT_FALSE(JsonLD::json(text)) << text;
    }
    EXPECT_FALSE(JsonLD::json(std::string(100'000, '[')));
}

} // namespace
} // namespace ovrin
