#include "model/Recipe.h"
#include "model/LibraryFilter.h"
#include "model/RecipeTint.h"

namespace ovrin {
namespace {

constexpr Instant noon{std::chrono::sys_days(std::chrono::year(2024) / 5 / 1) + std::chrono::hours(12)};

TEST(Recipe, StartsEmpty)
{
    const Recipe recipe(RecipeDraft(), noon);
    RecipeRecord initial;
    initial.id = recipe.id();
    initial.createdAt = noon;
    initial.stepsData = "[]";
    EXPECT_EQ(recipe.record(), initial);
    EXPECT_FALSE(recipe.id().isNull());
    EXPECT_NE(recipe.id(), Recipe(RecipeDraft(), noon).id());
}

TEST(Recipe, AppliesADraftCleanedUp)
{
    RecipeDraft draft;
    draft.title = QStringLiteral(" \u00a0Soup\n");
    draft.author = QStringLiteral(" Ann ");
    draft.ingredients = {QStringLiteral("  2 eggs "), QString(), QStringLiteral("   "),
                         QStringLiteral("salt")};
    draft.steps = {{.title = QString(), .paragraphs = {QString(), QStringLiteral("Stir.")}},
                   {.title = QStringLiteral("Rest"), .paragraphs = {QString(), QString()}},
                   {.title = QStringLiteral("Bake"), .paragraphs = {QStringLiteral(" 1 ")}}};
    const Recipe recipe(draft, noon);
    EXPECT_EQ(recipe.title(), QStringLiteral("Soup"));
    EXPECT_EQ(recipe.author(), QStringLiteral(" Ann "));
    EXPECT_EQ(recipe.ingredients(), QStringList({QStringLiteral("2 eggs"), QStringLiteral("salt")}));
    const QList<RecipeStep> steps = recipe.steps();
    ASSERT_EQ(steps.size(), 2);
    EXPECT_FALSE(steps[0].title);
    EXPECT_EQ(steps[0].paragraphs, QStringList(QStringLiteral("Stir.")));
    EXPECT_NE(steps[0].id, draft.steps[0].id);
    EXPECT_EQ(steps[1].title, QStringLiteral("Bake"));
    EXPECT_EQ(steps[1].paragraphs, QStringList(QStringLiteral(" 1 ")));
    EXPECT_EQ(recipe.draft().steps, steps);
}

TEST(Recipe, TintFollowsThePhotoOnlyWhenItChanges)
{
    RecipeDraft draft;
    draft.imageData = QByteArray("no photo at all");
    Recipe recipe(draft, noon);
    EXPECT_FALSE(recipe.tintHex());
    recipe.setTintHex(QStringLiteral("102030"));
    recipe.apply(draft);
    EXPECT_EQ(recipe.tintHex(), QStringLiteral("102030"));
    draft.imageData.reset();
    recipe.apply(draft);
    EXPECT_FALSE(recipe.tintHex());
    EXPECT_FALSE(recipe.hasImage());
}

TEST(Recipe, StepsReadAsNoneWhenUnreadable)
{
    Recipe recipe(RecipeDraft(), noon);
    for (const char* data : {"", "[", "{}", "[1]", R"([{"id":"x","paragraphs":[]}])"}) {
        recipe.setStepsData(data);
        EXPECT_TRUE(recipe.steps().isEmpty()) << data;
    }
}

TEST(Recipe, TimesAndByline)
{
    struct
    {
        std::optional<qint64> prep, cook, total;
        const char* text;
    } const cases[] = {
        {90, {}, 120, "Prep Time: 1 hr 30 min, Total Time: 2 hr"},
        {0, {}, {}, "Prep Time: 0 min"},
        {10, 15, 25, "Prep Time: 10 min, Cook Time: 15 min, Total Time: 25 min"},
        {{}, -61, {}, "Cook Time: -1 hr -1 min"},
        {{}, -59, 60, "Cook Time: -59 min, Total Time: 1 hr"},
        {{}, {}, {}, ""},
    };
    Recipe recipe(RecipeDraft(), noon);
    for (const auto& c : cases) {
        recipe.setPrepMinutes(c.prep);
        recipe.setCookMinutes(c.cook);
        recipe.setTotalMinutes(c.total);
        EXPECT_EQ(recipe.timeSummary(), QString::fromUtf8(c.text));
    }
    EXPECT_EQ(recipe.byline(), QString());
    recipe.setPublisher(QStringLiteral("Food Site"));
    EXPECT_EQ(recipe.byline(), QStringLiteral("Food Site"));
    recipe.setAuthor(QStringLiteral("Jane Doe"));
    EXPECT_EQ(recipe.byline(), QStringLiteral("Food Site • Jane Doe"));
}

TEST(Recipe, ShareText)
{
    RecipeDraft draft;
    draft.title = QStringLiteral("Soup");
    EXPECT_EQ(Recipe(draft, noon).shareText(QLocale::c()),
              QStringLiteral("Soup\n\nINGREDIENTS\n\nDIRECTIONS"));

    draft.author = QStringLiteral("Ann");
    draft.summary = QStringLiteral("Warm.");
    draft.ingredients = {QStringLiteral("For the broth:"), QStringLiteral("1/2 cup water")};
    draft.steps = {{.title = {}, .paragraphs = {QStringLiteral("Boil."), QStringLiteral("Wait.")}},
                   {.title = QStringLiteral("For the sauce"), .paragraphs = {QStringLiteral("Stir.")}}};
    draft.sourceURL = QUrl(QStringLiteral("https://example.org/ä"));
    Recipe recipe(draft, noon);
    recipe.setScale(2);
    EXPECT_EQ(recipe.shareText(QLocale::c()),
              QStringLiteral(
                  "Soup\nAnn\n\nWarm.\n\nINGREDIENTS\n• For the broth:\n• 1 cup water\n\nDIRECTIONS\n\n"
                  "Step 1\nBoil.\nWait.\n\nStep 2 — For the sauce\nStir.\n\nhttps://example.org/%C3%A4"));
}

TEST(Recipe, RecordingACookCountsAndNeverOverflows)
{
    Recipe recipe(RecipeDraft(), noon);
    recipe.recordCook(noon);
    EXPECT_EQ(recipe.timesCooked(), 1);
    EXPECT_EQ(recipe.lastCookedAt(), noon);
    recipe.setTimesCooked(std::numeric_limits<qint64>::max());
    recipe.recordCook(noon);
    EXPECT_EQ(recipe.timesCooked(), std::numeric_limits<qint64>::max());
}

TEST(Filter, LetsThrough)
{
    const Instant made = noon;
    Recipe recipe(RecipeDraft(), made);
    const auto recentAt = [&](Instant now) { return letsThrough(LibraryFilter::Recent, recipe, now); };
    EXPECT_TRUE(recentAt(made + std::chrono::hours(14 * 24 - 1)));
    EXPECT_FALSE(recentAt(made + std::chrono::days(14)));
    EXPECT_TRUE(recentAt(made - std::chrono::days(1)));

    EXPECT_TRUE(letsThrough(LibraryFilter::All, recipe, made));
    EXPECT_FALSE(letsThrough(LibraryFilter::Saved, recipe, made));
    EXPECT_FALSE(letsThrough(LibraryFilter::Cooked, recipe, made));
    recipe.setSaved(true);
    recipe.setTimesCooked(1);
    EXPECT_TRUE(letsThrough(LibraryFilter::Saved, recipe, made));
    EXPECT_TRUE(letsThrough(LibraryFilter::Cooked, recipe, made));
    EXPECT_EQ(libraryFilterFrom(QStringLiteral("Recently Added")), LibraryFilter::Recent);
    EXPECT_FALSE(libraryFilterFrom(QStringLiteral("all")));
}

TEST(Tint, ReadsHexStrictly)
{
    EXPECT_EQ(colorFromHex(QStringLiteral("FF8000")), (TintColor{1, 128 / 255.0, 0}));
    EXPECT_EQ(colorFromHex(QStringLiteral("+a00fF")), (TintColor{0x0a / 255.0, 0, 1}));
    for (const char* hex : {"#FF8000", "FFF", "", "FF800G", "++0000", "-00001", " FF800", "٠٠٠٠٠٠"})
        EXPECT_FALSE(colorFromHex(QString::fromUtf8(hex))) << hex;
    EXPECT_FALSE(colorFromHex(std::nullopt));
}

TEST(Tint, DependsOnTheTitleWithoutAPhoto)
{
    EXPECT_EQ(tint({}, QString()), (TintColor{0.8, 0.45, 0.25}));
    EXPECT_EQ(tint({}, QStringLiteral("A")), (TintColor{0.5, 0.35, 0.55}));
    EXPECT_EQ(tint(QStringLiteral("bad"), QStringLiteral("🍮")), tint({}, QStringLiteral("🍮")));
    EXPECT_EQ(tint(QStringLiteral("000000"), QStringLiteral("A")), TintColor());
}

TEST(Tint, MixesWithBlackPerceptually)
{
    // OKLab lightness of white at 0.45 is linear light 0.45³ on each component.
    const TintColor gray = mixedWithBlack({1, 1, 1}, 0.55);
    EXPECT_NEAR(gray.red, 0.3338, 0.0001);
    EXPECT_EQ(gray.red, gray.blue);
    EXPECT_EQ(mixedWithBlack({0.5, 0.2, 0.1}, 1), TintColor());
    EXPECT_NEAR(mixedWithBlack({0.5, 0.2, 0.1}, 0).green, 0.2, 1e-9);
}

} // namespace
} // namespace ovrin
