#include "model/RecipeDraft.h"

#include <QtCore/QRegularExpression>

namespace ovrin {
namespace {

RecipeStep step(const QStringList& paragraphs)
{
    return {.title = {}, .paragraphs = paragraphs};
}

RecipeDraft lines(int count)
{
    RecipeDraft draft;
    for (int i = 0; i < count; ++i)
        draft.ingredients.append(QStringLiteral("line %1 of %2").arg(i).arg(count));
    return draft;
}

RecipeDraft fullDraft()
{
    RecipeDraft draft;
    draft.title = QStringLiteral("Crème “brûlée”\n\u0001 🍮");
    draft.author = QStringLiteral("Ann");
    draft.publisher = QStringLiteral("Food/Site");
    draft.summary = QStringLiteral("½ sweet");
    draft.sourceURL = QUrl(QStringLiteral("https://example.org/a%20b?q=%C3%A9&x=1+2#f"));
    draft.imageURL = QUrl(QStringLiteral("https://example.org/i.jpg"));
    draft.imageData = QByteArray("\x00\xff\x10jpeg", 7);
    draft.yield = QStringLiteral("4");
    draft.prepMinutes = 0;
    draft.totalMinutes = -5;
    draft.ingredients = {QStringLiteral("1 egg"), QString()};
    draft.steps = {step({QStringLiteral("Whisk.")}), {.title = QStringLiteral("Bake"), .paragraphs = {}}};
    return draft;
}

TEST(Step, TextIsCutAtBlankLinesAndJoinedByThem)
{
    RecipeStep written;
    written.setText(QStringLiteral("Mix well\n  and rest.\n\n\nBake."));
    EXPECT_EQ(written.paragraphs,
              QStringList({QStringLiteral("Mix well and rest."), QStringLiteral("Bake.")}));
    EXPECT_EQ(written.text(), QStringLiteral("Mix well and rest.\n\nBake."));

    written.setText(QStringLiteral("\r\n \u00a0\r\n\tOne\u2003\r\ntwo\r\n \t\r\nThree\n\n"));
    EXPECT_EQ(written.paragraphs, QStringList({QStringLiteral("One two"), QStringLiteral("Three")}));

    written.setText(QStringLiteral(" \n\t\n"));
    EXPECT_TRUE(written.paragraphs.isEmpty());
}

TEST(Draft, IsCompleteWithTitleIngredientAndStepWhateverTheyHold)
{
    RecipeDraft draft;
    draft.title = QStringLiteral(" ");
    draft.ingredients = {QString()};
    EXPECT_FALSE(draft.isComplete());
    draft.steps = {step({})};
    EXPECT_TRUE(draft.isComplete());
    draft.title.clear();
    EXPECT_FALSE(draft.isComplete());
}

TEST(Draft, MergingFillsGapsOnly)
{
    RecipeDraft stew;
    stew.title = QStringLiteral("Stew");
    stew.cookMinutes = 0;
    const RecipeDraft base = fullDraft();
    const RecipeDraft merged = stew.merged(base);
    EXPECT_EQ(merged.title, stew.title);
    EXPECT_EQ(merged.author, base.author);
    EXPECT_EQ(merged.yield, base.yield);
    EXPECT_EQ(merged.prepMinutes, 0);
    EXPECT_EQ(merged.cookMinutes, 0);
    EXPECT_EQ(merged.totalMinutes, -5);
    EXPECT_EQ(merged.steps, base.steps);
    EXPECT_FALSE(merged.sourceURL || merged.imageURL || merged.imageData);
}

TEST(Draft, MergingReplacesIngredientsOnlyBelowHalf)
{
    struct
    {
        int own, base, kept;
    } const cases[] = {{4, 9, 4}, {3, 9, 9}, {0, 1, 0}, {3, 7, 3}, {2, 7, 7}, {0, 2, 2}};
    for (const auto& c : cases)
        EXPECT_EQ(lines(c.own).merged(lines(c.base)).ingredients.size(), c.kept)
            << c.own << " over " << c.base;
}

TEST(DraftJson, KeepsEveryField)
{
    const RecipeDraft draft = fullDraft();
    const auto back = RecipeDraft::fromJson(draft.toJson());
    ASSERT_TRUE(back);
    EXPECT_EQ(*back, draft);

    const RecipeDraft empty;
    EXPECT_EQ(empty.toJson(),
              "{\"title\":\"\",\"author\":\"\",\"publisher\":\"\",\"summary\":\"\",\"yield\":\"\","
              "\"ingredients\":[],\"steps\":[]}");
    EXPECT_EQ(RecipeDraft::fromJson(empty.toJson()), empty);
}

QByteArray minimal(const QByteArray& more = {})
{
    return R"({"title":"T","author":"","publisher":"","summary":"","yield":"","ingredients":["i"],"steps":)"
           R"([{"id":"6f9619ff-8B86-D011-B42D-00CF4FC964FF","paragraphs":["p"],"title":null}])" +
           more + "}";
}

TEST(DraftJson, ReadsWhatIsAllowed)
{
    for (const char* more : {"", ",\"prepMinutes\":null", ",\"imageURL\":null,\"unknown\":[[]]",
                             ",\"prepMinutes\":15.0", ",\"imageData\":\"\"", ",\"imageData\":\"AA==\""})
        EXPECT_TRUE(RecipeDraft::fromJson(minimal(more))) << more;
    EXPECT_EQ(RecipeDraft::fromJson(minimal(",\"prepMinutes\":15.0"))->prepMinutes, 15);
    EXPECT_FALSE(RecipeDraft::fromJson(minimal())->prepMinutes);
    EXPECT_FALSE(RecipeDraft::fromJson(minimal())->steps.front().title);
}

TEST(DraftJson, IsUnreadableAsAWhole)
{
    for (const char* key : {"title", "author", "publisher", "summary", "yield", "ingredients", "steps"}) {
        QByteArray json = minimal();
        json.replace(QByteArray("\"") + key + "\":", QByteArray("\"x") + key + "\":");
        if (QByteArray(key) == "title")
            json.replace("\"xtitle\":null", "\"title\":null");
        EXPECT_FALSE(RecipeDraft::fromJson(json)) << key << " missing";
    }
    for (const char* more : {",\"prepMinutes\":\"15\"",
                             ",\"prepMinutes\":1.5",
                             ",\"cookMinutes\":true",
                             ",\"totalMinutes\":1e300",
                             ",\"imageData\":\"AA\"",
                             ",\"imageData\":\"A===\"",
                             ",\"imageData\":\"AA==AA==\"",
                             ",\"imageData\":\"AA=A\"",
                             ",\"imageData\":\"A_-A\"",
                             ",\"imageData\":[]",
                             ",\"sourceURL\":1",
                             ",\"sourceURL\":\"\"",
                             ",\"sourceURL\":\"http://[\"",
                             ",\"title\":false",
                             ",\"ingredients\":[1]",
                             ",\"ingredients\":{}",
                             ",\"steps\":[{\"id\":\"6f9619ff\",\"paragraphs\":[]}]",
                             ",\"steps\":[{\"paragraphs\":[]}]",
                             ",\"steps\":[{\"id\":\"6f9619ff-8B86-D011-B42D-00CF4FC964FF\"}]",
                             ",\"steps\":[\"s\"]",
                             ","})
        EXPECT_FALSE(RecipeDraft::fromJson(minimal(more))) << more;
    for (const QByteArray& json : {QByteArray(), QByteArray("null"), QByteArray("[]"), minimal().chopped(1),
                                   minimal(",\"x\":") + QByteArray(100'000, '['), minimal() + "x"})
        EXPECT_FALSE(RecipeDraft::fromJson(json)) << json.left(100).constData();
}

} // namespace
} // namespace ovrin
