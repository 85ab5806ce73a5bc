#include "app/support/ProgramTest.h"
#include "support/LocalServer.h"

using namespace ovrin;
using namespace ovrin::testing;

namespace {

/// Without steps: it comes for review.
const char* const soup = R"(<html><head><title>Onion Soup</title><script type="application/ld+json">
{"@context": "https://schema.org", "@type": "Recipe", "name": "Onion Soup", "recipeYield": "4 servings",
 "recipeIngredient": ["2 onions", "1 cup stock"]}</script></head><body></body></html>)";

class WindowTest : public ProgramTest
{
protected:
    void SetUp() override
    {
        start();
        ASSERT_TRUE(appears(u"Lemony Garlic Spaghetti"_qs));
    }
};

/// Each that can be reached says what it is and what it is for.
void expectNames(const QList<Accessible>& seen, const char* where)
{
    const QStringList meaningless{QString(), u"invalid"_qs, u"unknown"_qs, u"filler"_qs};
    int controls = 0;
    for (const Accessible& node : seen) {
        if (node.role == u"separator"_qs || node.parent < 0)
            continue;
        controls += node.isControl();
        EXPECT_FALSE(node.name.trimmed().isEmpty())
            << where << ": a " << qPrintable(node.role) << " without a name";
        EXPECT_FALSE(meaningless.contains(node.role))
            << where << ": " << qPrintable(node.name) << " has no role";
    }
    EXPECT_GT(controls, 3) << where;
}

TEST_F(WindowTest, everyPageAndSheetSaysWhatItIs)
{
    expectNames(seen, "library");
    ASSERT_TRUE(press(u"Add a recipe"_qs) && appears(u"Import from Web…"_qs));
    expectNames(seen, "menu of ways in");
    ASSERT_TRUE(press(u"Import from Web…"_qs) && appears(u"Recipe Web Page"_qs));
    expectNames(seen, "import sheet");
    ASSERT_TRUE(press(u"Cancel"_qs) && disappears(u"Recipe Web Page"_qs));

    ASSERT_TRUE(press(u"Add a recipe"_qs) && press(u"Keyboard Shortcuts"_qs) && appears(u"Quit: Ctrl+Q"_qs));
    expectNames(seen, "list of shortcuts");
    ASSERT_TRUE(press(u"Done"_qs) && disappears(u"Quit: Ctrl+Q"_qs));

    ASSERT_TRUE(press(u"Lemony Garlic Spaghetti"_qs) && appears(u"Ingredients"_qs));
    expectNames(seen, "recipe");
    ASSERT_TRUE(press(u"Scale"_qs) && appears(u"2×"_qs));
    expectNames(seen, "scale menu");
    ASSERT_TRUE(press(u"2×"_qs) && appears(u"Amounts scaled 2×. Directions show the original amounts."_qs));
    ASSERT_TRUE(press(u"Share"_qs) && press(u"Copy Recipe"_qs) && appears(u"The recipe was copied."_qs));
    expectNames(seen, "recipe with a notice");
    ASSERT_TRUE(press(u"Add Notes"_qs) && write(u"Notes"_qs, u"More garlic."_qs));
    expectNames(seen, "notes");
    ASSERT_TRUE(press(u"Done"_qs) && appears(u"More garlic."_qs));
    ASSERT_TRUE(press(u"Edit"_qs) && appears(u"Edit Recipe"_qs));
    expectNames(seen, "editor");
    ASSERT_TRUE(press(u"Step 1: more"_qs) && appears(u"Delete Step"_qs));
    expectNames(seen, "menu of a step");
    ASSERT_TRUE(press(u"Move Down"_qs) && press(u"Cancel"_qs, u"Edit Recipe"_qs));
    ASSERT_TRUE(disappears(u"Edit Recipe"_qs));
    ASSERT_TRUE(press(u"Start a timer: 9 minutes"_qs) && appears(u"Timers"_qs));
    expectNames(seen, "timers");
    // The notifier would outlive the test by its nine minutes.
    ASSERT_TRUE(press(u"Stop timer"_qs) && disappears(u"Timers"_qs));

    ASSERT_TRUE(press(u"Start Cooking"_qs) && appears(u"Next"_qs));
    expectNames(seen, "cook mode");
    ASSERT_TRUE(press(u"Next"_qs) && press(u"Kosher salt"_qs));
    ASSERT_TRUE(until([&] {
        const auto salt = find(u"Kosher salt"_qs, u"Ingredients"_qs);
        return salt && salt->is(Accessible::Checked);
    }));
    ASSERT_TRUE(press(u"Close"_qs) && disappears(u"Next"_qs));

    ASSERT_TRUE(press(u"More"_qs) && press(u"Delete Recipe"_qs) &&
                appears(u"Delete “Lemony Garlic Spaghetti”?"_qs));
    expectNames(seen, "delete confirmation");
    ASSERT_TRUE(press(u"Delete"_qs, u"Delete “Lemony Garlic Spaghetti”?"_qs));
    ASSERT_TRUE(appears(u"No Recipes Yet"_qs));
    expectNames(seen, "empty library");
}

TEST_F(WindowTest, aRecipeIsImportedReadScaledEditedFoundDeletedAndBroughtBackByPressesAlone)
{
    LocalServer server;
    server.on("/slow", [](const LocalServer::Request&, QTcpSocket&) {});
    ASSERT_TRUE(press(u"Add a recipe"_qs) && press(u"Import from Web…"_qs));
    ASSERT_TRUE(write(u"Recipe Web Page"_qs, server.url("/slow").toString()) && press(u"Import"_qs));
    ASSERT_TRUE(appears(u"Importing from 127.0.0.1…"_qs) && press(u"Cancel import"_qs));
    ASSERT_TRUE(disappears(u"Importing from 127.0.0.1…"_qs));

    server.serve("/soup", soup, "200 OK", "Content-Type: text/html\r\n");
    ASSERT_TRUE(press(u"Add a recipe"_qs) && press(u"Import from Web…"_qs));
    ASSERT_TRUE(write(u"Recipe Web Page"_qs, server.url("/soup").toString()) && press(u"Import"_qs));
    ASSERT_TRUE(appears(u"Review Import"_qs));
    EXPECT_TRUE(find(u"This page didn’t include a complete recipe, so fill in what’s missing."_qs));
    EXPECT_EQ(reader.text(find(u"Title"_qs).value_or(Accessible())), u"Onion Soup"_qs);
    ASSERT_TRUE(press(u"Add Step"_qs) && write(u"Directions of step 1"_qs, u"Simmer for 40 minutes."_qs));
    ASSERT_TRUE(press(u"Save"_qs, u"Review Import"_qs) && disappears(u"Review Import"_qs));

    ASSERT_TRUE(press(u"Onion Soup, 127.0.0.1"_qs) && appears(u"2 onions"_qs));
    EXPECT_TRUE(find(u"Simmer for 40 minutes."_qs));
    ASSERT_TRUE(press(u"Scale"_qs) && press(u"2×"_qs) && appears(u"4 onions"_qs));
    ASSERT_TRUE(press(u"Edit"_qs) && write(u"Title"_qs, u"Soup of Onions"_qs, u"Edit Recipe"_qs));
    ASSERT_TRUE(write(u"Ingredient 2"_qs, u"3 cups stock"_qs) && press(u"Save"_qs, u"Edit Recipe"_qs));
    ASSERT_TRUE(appears(u"6 cups stock"_qs)) << "what was edited is scaled too";

    ASSERT_TRUE(press(u"Back"_qs) && appears(u"Lemony Garlic Spaghetti"_qs));
    ASSERT_TRUE(write(u"Recipes or ingredients"_qs, u"oni"_qs) && disappears(u"Lemony Garlic Spaghetti"_qs));
    ASSERT_TRUE(press(u"Soup of Onions, 127.0.0.1"_qs) && press(u"More"_qs) && press(u"Delete Recipe"_qs));
    ASSERT_TRUE(press(u"Delete"_qs, u"Delete “Soup of Onions”?"_qs) && appears(u"No Results for “oni”"_qs));
    ASSERT_TRUE(press(u"Undo"_qs) && press(u"Soup of Onions, 127.0.0.1"_qs));
    EXPECT_TRUE(appears(u"3 cups stock"_qs)) << "at its own amounts";
}

TEST_F(WindowTest, theSameGoesByTheKeyboardAlone)
{
    LocalServer server;
    server.serve("/soup", soup, "200 OK", "Content-Type: text/html\r\n");
    ASSERT_TRUE(desktop.strike({u"ctrl+i"_qs}) && focuses(u"Recipe Web Page"_qs));
    ASSERT_TRUE(desktop.type(server.url("/soup").toString()) && desktop.strike({u"Return"_qs}));
    ASSERT_TRUE(appears(u"Review Import"_qs) && focuses(u"Title"_qs));
    ASSERT_TRUE(desktop.strike({u"ctrl+Return"_qs}) && disappears(u"Review Import"_qs));

    ASSERT_TRUE(desktop.strike({u"ctrl+f"_qs}) && focuses(u"Recipes or ingredients"_qs));
    ASSERT_TRUE(desktop.type(u"oni"_qs) && disappears(u"Lemony Garlic Spaghetti"_qs));
    ASSERT_TRUE(desktop.strike({u"Down"_qs, u"Return"_qs}) && appears(u"2 onions"_qs));
    ASSERT_TRUE(goesTo(u"Scale"_qs, u"Tab"_qs) && desktop.strike({u"Return"_qs}) && appears(u"2×"_qs));
    ASSERT_TRUE(goesTo(u"2×"_qs, u"Down"_qs) && desktop.strike({u"Return"_qs}) && appears(u"4 onions"_qs));
    ASSERT_TRUE(desktop.strike({u"ctrl+e"_qs}) && focuses(u"Title"_qs));
    ASSERT_TRUE(desktop.strike({u"ctrl+a"_qs}) && desktop.type(u"Soup of Onions"_qs));
    ASSERT_TRUE(desktop.strike({u"ctrl+Return"_qs}) && disappears(u"Edit Recipe"_qs));
    ASSERT_TRUE(desktop.strike({u"alt+Left"_qs}) && appears(u"Soup of Onions, 127.0.0.1"_qs));
    ASSERT_TRUE(desktop.strike({u"Delete"_qs}) && disappears(u"Soup of Onions, 127.0.0.1"_qs));
    ASSERT_TRUE(desktop.strike({u"ctrl+z"_qs}) && appears(u"Soup of Onions, 127.0.0.1"_qs));
}

} // namespace
