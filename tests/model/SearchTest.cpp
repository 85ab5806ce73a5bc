#include "model/LibraryQuery.h"
#include "model/Recipe.h"

namespace ovrin {
namespace {

bool finds(const char* needle, const char* title, const QLocale& locale = QLocale::c())
{
    RecipeDraft draft;
    draft.title = QString::fromUtf8(title);
    draft.publisher = QStringLiteral("Food Site");
    draft.author = QStringLiteral("Jane");
    draft.ingredients = {QStringLiteral("½ cup grated Parmesan"), QStringLiteral("salt")};
    const SearchFolding folding(locale);
    return LibraryQuery(LibraryFilter::All, QString::fromUtf8(needle), Instant(), folding)
        .letsThrough(Recipe(draft, Instant()));
}

TEST(Search, LooksInTitlePublisherAndLinesEachAlone)
{
    for (const char* found : {"", " ", "soup", "OUP", "food s", "PARM", "½ C", "salt"})
        EXPECT_TRUE(finds(found, "Soup")) << found;
    for (const char* missing : {"jane", "soupfood", "Soup Food", "parmesansalt", "  ", "1/2", "1⁄2", "\n"})
        EXPECT_FALSE(finds(missing, "Soup")) << missing;
}

TEST(Search, FoldsCaseAndMarks)
{
    struct
    {
        const char *needle, *title;
        bool found;
    } const cases[] = {
        {"creme", "Crème brûlée", true},
        {"BRULE\u0301E", "Crème brûlée", true},
        {"crème", "Creme", true},
        {"STRASSE", "Straße", true},
        {"σοφοσ", "ΣΟΦΌΣ", true},
        {"tiến", "TIEN", true},
        {"й", "и", true},
        {"øl", "ol", false},
        {"ﬁg", "fig", true},
        {"2", "m²", false},
        {"が", "か", true},
        {"𐐀", "𐐨", true},
        {"\u0301", "é", false},
        {"QI", "qı", false},
        {"i", "İzmir", true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(finds(c.needle, c.title), c.found) << c.needle << " in " << c.title;
}

TEST(Search, KnowsTheTwoTurkishLetters)
{
    for (const QLocale::Language language : {QLocale::Turkish, QLocale::Azerbaijani}) {
        const QLocale locale(language);
        EXPECT_TRUE(finds("ıspanak", "ISPANAK", locale));
        EXPECT_FALSE(finds("ispanak", "ISPANAK", locale));
        EXPECT_TRUE(finds("izmir", "İZMİR", locale));
        EXPECT_TRUE(finds("izmir", "I\u0307ZMİR", locale));
        EXPECT_FALSE(finds("ızmır", "İZMİR", locale));
    }
    EXPECT_TRUE(finds("ispanak", "ISPANAK", QLocale(QLocale::German)));
}

TEST(Search, HalfASurrogatePairIsNoHarm)
{
    const SearchFolding folding(QLocale::c());
    const QString broken = QStringLiteral("a") + QChar(0xd83c) + QStringLiteral("b") + QChar(0xdf4e);
    EXPECT_FALSE(folding.folded(broken).empty());
}

} // namespace
} // namespace ovrin
