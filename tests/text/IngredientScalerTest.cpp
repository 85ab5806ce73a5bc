#include "text/IngredientScaler.h"

#include <gtest/gtest.h>

#include <limits>

namespace ovrin {

namespace {

const QLocale american(QLocale::English, QLocale::UnitedStates);
const QLocale german(QLocale::German, QLocale::Germany);

} // namespace

struct ScaleCase
{
    const char* line;
    double factor;
    const char* scaled;
};

class ScaleTest : public testing::TestWithParam<ScaleCase>
{
};

TEST_P(ScaleTest, RewritesTheLeadingAmount)
{
    const auto& [line, factor, scaled] = GetParam();
    EXPECT_EQ(IngredientScaler::scale(QString::fromUtf8(line), factor, american).toStdString(),
              QString::fromUtf8(scaled).toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Amounts, ScaleTest,
    testing::Values(ScaleCase{"1 1/2 cups flour", 2, "3 cups flour"},
                    ScaleCase{"1/3 cup sugar", 2, "⅔ cup sugar"}, ScaleCase{"1/8 tsp salt", 2, "¼ tsp salt"},
                    ScaleCase{"0.3 g yeast", 2, "⅝ g yeast"}, ScaleCase{"1 egg", .5, "½ egg"},
                    ScaleCase{"3 eggs", .5, "1½ eggs"}, ScaleCase{"½ cup", 3, "1½ cup"},
                    ScaleCase{"½cup", 2, "1cup"}, ScaleCase{"1 ½ cups", 2, "3 cups"},
                    ScaleCase{"1\u00A0½ cups", 2, "3 cups"}, ScaleCase{"1\t½ cups", 2, "3 cups"},
                    ScaleCase{"1 \t1/2 cups", 2, "3 cups"}, ScaleCase{"⅕ cup", 2, "⅜ cup"},
                    ScaleCase{"0.1 cup", 2, "0.2 cup"}, ScaleCase{"100 g", .5, "50 g"},
                    ScaleCase{"1 1/2", 2, "3"}, ScaleCase{"  1 cup", 2, "  2 cup"},
                    ScaleCase{"\u3000\n1 cup", 2, "\u3000\n2 cup"}, ScaleCase{"1 1/ cup", 2, "2 1/ cup"},
                    ScaleCase{"1 1 / 2", 2, "2 1 / 2"}, ScaleCase{"1. Mix", 2, "2. Mix"},
                    ScaleCase{"1.5.5 x", 2, "3.5 x"}, ScaleCase{"1,5 l", 2, "2,5 l"},
                    ScaleCase{"2¼½", 2, "4½½"}, ScaleCase{"2x", 1.5, "3x"}));

INSTANTIATE_TEST_SUITE_P(
    Ranges, ScaleTest,
    testing::Values(ScaleCase{"2-3 cloves garlic", 2, "4-6 cloves garlic"},
                    ScaleCase{"2 to 3 tbsp", 1.5, "3 to 4½ tbsp"}, ScaleCase{"1–2 pinches", 2, "2–4 pinches"},
                    ScaleCase{"1—2", 2, "2—2"}, ScaleCase{"1to2", 2, "2to4"},
                    ScaleCase{"1 TO 2", 2, "2 TO 2"}, ScaleCase{"1 tomato", 2, "2 tomato"},
                    ScaleCase{"1 - 1 1/2 kg", 2, "2 - 3 kg"}, ScaleCase{"1-3/0 cups", 2, "2 cups"},
                    ScaleCase{"1-2-3", 2, "2-4-3"}, ScaleCase{"1 1/2-2½", 2, "3-5"},
                    ScaleCase{"1-٢ cups", 2, "2 cups"}));

INSTANTIATE_TEST_SUITE_P(Unchanged, ScaleTest,
                         testing::Values(ScaleCase{"", 2, ""}, ScaleCase{"Salt to taste", 2, "Salt to taste"},
                                         ScaleCase{"3/0 cup", 2, "3/0 cup"},
                                         ScaleCase{"about 2", 2, "about 2"}, ScaleCase{".5 cup", 2, ".5 cup"},
                                         ScaleCase{"-1 cup", 2, "-1 cup"},
                                         ScaleCase{"1\u00A01/2 cup", 2, "1\u00A01/2 cup"},
                                         ScaleCase{"٢ cups", 2, "٢ cups"}, ScaleCase{"١½ cups", 2, "١½ cups"},
                                         ScaleCase{"𝟏 cup", 2, "𝟏 cup"},
                                         // Too large to be written, low or high.
                                         ScaleCase{"9223372036854775807 g", 2, "9223372036854775807 g"},
                                         ScaleCase{"1-9999999999999999999 g", 1.5, "1-9999999999999999999 g"},
                                         ScaleCase{"1 g", std::numeric_limits<double>::infinity(), "1 g"},
                                         ScaleCase{"1 g", std::numeric_limits<double>::quiet_NaN(), "1 g"}));

INSTANTIATE_TEST_SUITE_P(AtFactorOne, ScaleTest,
                         testing::Values(ScaleCase{"0.5 cup milk", 1, "½ cup milk"},
                                         ScaleCase{"1.5 cups", 1, "1½ cups"}, ScaleCase{"0.01", 1, "0"},
                                         ScaleCase{"1/2 cup", 1, "1/2 cup"},
                                         ScaleCase{"1 ½ cups", 1, "1 ½ cups"}, ScaleCase{"⅕ cup", 1, "⅕ cup"},
                                         ScaleCase{"1-2.5 cups", 1, "1-2.5 cups"},
                                         ScaleCase{"1.5-2.5", 1, "1½-2½"}));

TEST(IngredientScaler, FormatsAsACookWouldWrite)
{
    const std::vector<std::pair<double, const char*>> rows{
        {0, "0"},          {0.0299, "0"},       {0.03, "0.03"}, {0.1, "⅛"},
        {0.2, "0.2"},      {0.25, "¼"},         {0.35, "⅓"},    {0.364, "⅜"},
        {0.4, "⅜"},        {0.45, "0.45"},      {0.6, "⅝"},     {0.64, "⅝"},
        {0.66, "⅔"},       {0.7, "0.7"},        {1.234, "1¼"},  {1.45, "1.45"},
        {2.02, "2"},       {2.98, "3"},         {0.97, "0.97"}, {1234, "1234"},
        {1234.5, "1234½"}, {1234.2, "1,234.2"}, {-0.5, "-1½"},  {1e18, "1000000000000000000"},
    };
    for (const auto& [number, text] : rows)
        EXPECT_EQ(IngredientScaler::format(number, american).toStdString(),
                  QString::fromUtf8(text).toStdString())
            << number;
    EXPECT_EQ(IngredientScaler::format(1234.2, german), QStringLiteral("1.234,2"));
    EXPECT_EQ(IngredientScaler::scale(QStringLiteral("0.1 l"), 2, german), QStringLiteral("0,2 l"));
    for (const double number :
         {9223372036854775808.0, -9223372036854777856.0, std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()})
        EXPECT_TRUE(IngredientScaler::format(number, american).isEmpty()) << number;
    EXPECT_EQ(IngredientScaler::format(-9223372036854775808.0, american),
              QStringLiteral("-9223372036854775808"));
}

TEST(IngredientScaler, ReadsAmounts)
{
    const std::vector<std::pair<const char*, std::optional<double>>> rows{
        {"", 0.0},     {"  ", 0.0},    {"1 1/2", 1.5}, {"1 ½", 1.5},   {"1½", 1.5},     {"0.75", 0.75},
        {".5", 0.5},   {"⅚", 5.0 / 6}, {"1//2", 0.5},  {"1/x/2", 0.5}, {"about½", 0.5}, {"\u00A02\t", 2.0},
        {"3/0", {}},   {"1/2/3", {}},  {"/", {}},      {"1/", {}},     {"\t", {}},      {"1 cup", {}},
        {"½1", {}},    {"٢", {}},      {"1 ٢½", {}},   {"1e3", {}},    {"inf", {}},     {"nan", {}},
        {"1.2.3", {}}, {"1,5", {}},
    };
    for (const auto& [text, number] : rows)
        EXPECT_EQ(IngredientScaler::value(QString::fromUtf8(text)), number)
            << QString::fromUtf8(text).toStdString();
    EXPECT_EQ(IngredientScaler::value(QString(400, u'9')), std::nullopt);
    EXPECT_EQ(IngredientScaler::value(QStringLiteral("0.") + QString(400, u'0') + u'1'), 0.0);
}

TEST(IngredientScaler, NamesItsChoices)
{
    QStringList labels;
    for (const double choice : IngredientScaler::scaleChoices)
        labels << IngredientScaler::scaleLabel(choice, american);
    EXPECT_EQ(labels.join(u' '), QStringLiteral("½× Original 1½× 2× 3× 4×"));
}

TEST(IngredientScaler, MeasuresTheLeadingAmount)
{
    const std::vector<std::pair<const char*, qsizetype>> rows{
        {"1 ½ cups", 3}, {"  2 - 3 eggs", 7}, {"1 to taste", 1}, {"Salt", 0},
        {"  ", 0},       {"3/0 cup", 3},      {"𝟏x", 2},
    };
    for (const auto& [line, length] : rows)
        EXPECT_EQ(IngredientScaler::leadingAmountLength(QString::fromUtf8(line)), length)
            << QString::fromUtf8(line).toStdString();
}

TEST(IngredientScaler, KnowsSectionHeadings)
{
    for (const char* line : {"For the sauce:", "  Dough: \u00A0", ":"})
        EXPECT_TRUE(IngredientScaler::isSectionHeading(QString::fromUtf8(line)))
            << QString::fromUtf8(line).toStdString();
    for (const char* line : {"", "Salt", "2 eggs:", "½:", "To serve: lemon"})
        EXPECT_FALSE(IngredientScaler::isSectionHeading(QString::fromUtf8(line)))
            << QString::fromUtf8(line).toStdString();
}

TEST(IngredientScaler, AnswersAMegabyteOfAnything)
{
    for (const char* part : {"(", "1", "1 ", "1/", " ", "1.", "1-", "/", "½", "٣"}) {
        const QString line = QString::fromUtf8(part).repeated(1 << 20);
        EXPECT_LE(IngredientScaler::scale(line, 2, american).size(), line.size() + 32);
        IngredientScaler::value(line);
    }
}

} // namespace ovrin
