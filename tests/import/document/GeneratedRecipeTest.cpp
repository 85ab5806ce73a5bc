#include "import/document/GeneratedRecipe.h"

#include <QtCore/QJsonArray>

using namespace ovrin;

namespace {

QList<TextLine> lines(std::initializer_list<const char*> texts)
{
    QList<TextLine> result;
    for (const char* text : texts) {
        result.append({QString::fromUtf8(text)});
    }
    return result;
}

GeneratedRecipe recipe(const QStringList& ingredients, const QList<GeneratedStep>& steps = {})
{
    GeneratedRecipe recipe;
    recipe.ingredients = ingredients;
    recipe.steps = steps;
    return recipe;
}

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

TEST(GeneratedRecipe, DropsIngredientsThatAreOnNoLineOfTheirOwn)
{
    const auto source = lines({"2 Cups flour, sifted", "3 large eggs",
                               "Whisk the butter into the sauce until everything is glossy and thick."});
    const auto draft = recipe({text(" 2 cups flour "), text("3 large eggs"), text("1 tsp salt"), text("—"),
                               text("butter"), text("2 cups flour, sifted 3 large eggs")})
                           .checkedAgainst(source);
    ASSERT_TRUE(draft);
    EXPECT_EQ(draft->ingredients, QStringList({text("2 cups flour"), text("3 large eggs")}));
}

TEST(GeneratedRecipe, AllowsALineOfLessThanTwiceTheIngredientAndEight)
{
    // "egg" normalised has 3 letters: a line of 13 letters may hold it, one of 14 may not.
    EXPECT_TRUE(recipe({text("egg")}).checkedAgainst(lines({"egg 1234567890"})));
    EXPECT_FALSE(recipe({text("egg")}).checkedAgainst(lines({"egg 12345678901"})));
}

TEST(GeneratedRecipe, CleansStepsAndDropsEmptyOnes)
{
    const auto draft = recipe({}, {{{text("Step 1: Heat the oven."), text(" 3) Bake. ")}},
                                   {{text("2."), text("  ")}},
                                   {{text("350 degrees is hot.")}}})
                           .checkedAgainst({});
    ASSERT_TRUE(draft);
    ASSERT_EQ(draft->steps.size(), 2);
    EXPECT_EQ(draft->steps[0].paragraphs, QStringList({text("Heat the oven."), text("Bake.")}));
    EXPECT_EQ(draft->steps[1].paragraphs, QStringList(text("350 degrees is hot.")));
    EXPECT_FALSE(recipe({text("1 tsp salt")}).checkedAgainst({})) << "nothing is left";
}

TEST(GeneratedRecipe, CarriesItsFieldsOver)
{
    auto generated = recipe({}, {{{text("Bake.")}}});
    generated.source = text("The Copper Ladle");
    for (const auto& [minutes, expected] :
         {std::pair<qint64, std::optional<qint64>>{0, {}}, {-5, {}}, {25, 25}}) {
        generated.totalMinutes = minutes;
        const auto draft = generated.checkedAgainst({});
        EXPECT_EQ(draft->totalMinutes, expected);
        EXPECT_EQ(draft->publisher, u"The Copper Ladle");
    }
}

TEST(GeneratedRecipe, IsReadOnlyFromAnswersThatFitTheSchema)
{
    const QByteArray whole = R"({"title": "Tea", "source": "", "author": "", "summary": "", "yield": "1 cup",
        "totalMinutes": 5, "ingredients": ["1 cup water"], "steps": [{"paragraphs": ["Boil."]}]})";
    const auto read = GeneratedRecipe::fromJson(whole);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->title, u"Tea");
    EXPECT_EQ(read->steps, QList<GeneratedStep>{{{text("Boil.")}}});
    for (const auto& [good, bad] :
         std::initializer_list<std::pair<QByteArray, QByteArray>>{{"\"Tea\"", "7"},
                                                                  {"5,", "\"5\","},
                                                                  {"[\"1 cup water\"]", "\"1 cup water\""},
                                                                  {"\"Boil.\"", "1"},
                                                                  {"\"yield\"", "\"yields\""},
                                                                  {"]})", "]"},
                                                                  {"{\"paragraphs\": [\"Boil.\"]}", "[]"}}) {
        QByteArray broken = whole;
        ASSERT_TRUE(broken.contains(good) || good == "]})") << good.toStdString();
        broken = good == "]})" ? whole.chopped(1) : broken.replace(good, bad);
        EXPECT_FALSE(GeneratedRecipe::fromJson(broken)) << broken.toStdString();
    }
    EXPECT_EQ(GeneratedRecipe::schema()[QStringLiteral("required")].toArray().size(), 8);
}
