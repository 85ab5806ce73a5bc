#include "ui/library/LibraryWindow.h"

#include "ui/support/WindowFixture.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <gtest/gtest.h>

using namespace ovrin;

namespace {

RecipeDraft soup()
{
    RecipeDraft draft;
    draft.title = u"Soup"_qs;
    draft.sourceURL = QUrl(u"https://example.com/soup"_qs);
    draft.ingredients = {u"1 onion"_qs};
    draft.steps = {{QUuid::createUuid(), std::nullopt, {u"Boil the onion for 5 minutes."_qs}}};
    return draft;
}

class LibraryWindowTest : public testing::Test
{
protected:
    WindowFixture fixture;
    std::unique_ptr<LibraryWindow> window = fixture.makeWindow();

    RecipeStore& store() { return fixture.library.store(); }
    QString id(const RecipePtr& recipe) { return recipe->id().toString(QUuid::WithoutBraces); }
    /// The window of a second run over the same folders.
    void reopen()
    {
        window.reset();
        window = fixture.makeWindow();
        window->appear();
    }
};

TEST_F(LibraryWindowTest, seedsTheSampleOnceAndOnlyIntoAnEmptyLibrary)
{
    window->appear();
    EXPECT_EQ(store().count(), 1);
    store().remove(store().at(0));
    reopen();
    EXPECT_EQ(store().count(), 0);
}

TEST_F(LibraryWindowTest, aCompletePageIsSavedAndOpenedAndOpensAgain)
{
    fixture.imported = soup();
    window->importSheet()->setAddress(u"example.com/soup"_qs);
    window->startImport();
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->recipe()->isShown(); }));
    EXPECT_EQ(window->recipe()->title(), u"Soup"_qs);
    window->goBack();
    EXPECT_TRUE(window->drop({QUrl(u"https://example.com/soup"_qs)}, {}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->recipe()->isShown(); }));
    EXPECT_EQ(store().count(), 1);
    EXPECT_EQ(fixture.requests.size(), 1) << "what is there is opened without asking the network";
}

TEST_F(LibraryWindowTest, takesPastedLinksAndPictures)
{
    fixture.pasteboard.setText(u" https://a.example/4\n"_qs);
    EXPECT_TRUE(window->paste());
    fixture.pasteboard.setText(u"butter"_qs);
    EXPECT_FALSE(window->paste());
    fixture.pasteboard.put({"bytes", u"image/png"_qs});
    EXPECT_TRUE(window->paste());
    QTest::qWait(1);
    EXPECT_EQ(fixture.requests, QStringList({u"https://a.example/4"_qs, u"image/png"_qs}));
}

TEST_F(LibraryWindowTest, aFailureLeadsToTheEditorWithItsAddress)
{
    window->drop({QUrl(u"https://example.com/nothing"_qs)}, {});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window->failure().isEmpty(); }));
    window->addManually();
    EXPECT_TRUE(window->failure().isEmpty());
    ASSERT_TRUE(window->editor()->isOpen());
    EXPECT_EQ(window->editor()->webPage(), u"https://example.com/nothing"_qs);
    EXPECT_EQ(window->editor()->notice(),
              u"Type or paste the recipe, and it will be laid out like any other."_qs);
    window->editor()->setTitle(u"By Hand"_qs);
    window->editor()->save();
    EXPECT_EQ(store().at(0)->title(), u"By Hand"_qs);
    EXPECT_EQ(store().at(0)->sourceURL(), QUrl(u"https://example.com/nothing"_qs));
}

TEST_F(LibraryWindowTest, draftsWaitTheirTurnAndNoneIsLost)
{
    fixture.imported = soup();
    fixture.imported->sourceURL.reset();
    window->createRecipe();
    for (int i = 0; i < 5; ++i)
        window->drop({QUrl(u"file:///tmp/%1.pdf"_qs.arg(i))}, {});
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->waitingDrafts() == 4; }));
    EXPECT_EQ(window->editor()->heading(), u"New Recipe"_qs) << "what is being written stays";
    window->editor()->cancel();
    for (int i = 0; i < 5; ++i) {
        ASSERT_TRUE(window->editor()->isOpen());
        EXPECT_TRUE(window->isReviewing());
        window->editor()->save();
    }
    EXPECT_FALSE(window->editor()->isOpen());
    EXPECT_EQ(store().count(), 5);
}

TEST_F(LibraryWindowTest, deletingCanBeUndoneAsOftenAsItWasDone)
{
    const RecipePtr first = fixture.library.add(u"First"_qs);
    const RecipePtr second = fixture.library.add(u"Second"_qs);
    window->openRecipe(id(second));
    window->deleteRecipe(id(second));
    EXPECT_FALSE(window->recipe()->isShown());
    EXPECT_TRUE(window->message().isEmpty()) << "the undo says it all";
    window->deleteRecipe(id(first));
    EXPECT_EQ(window->deletedTitle(), u"First"_qs);
    window->undoDelete();
    window->undoDelete();
    window->undoDelete();
    EXPECT_EQ(store().count(), 2);
    EXPECT_EQ(store().at(0), second);
}

TEST_F(LibraryWindowTest, aRecipeThatGoesWhileItIsEditedIsNotLost)
{
    const RecipePtr recipe = fixture.library.add(soup());
    window->openRecipe(id(recipe));
    window->editRecipe();
    window->editor()->setTitle(u"Better Soup"_qs);
    store().remove(recipe);
    EXPECT_FALSE(window->message().isEmpty());
    window->editor()->save();
    ASSERT_EQ(store().count(), 1);
    EXPECT_EQ(store().at(0)->title(), u"Better Soup"_qs);
}

TEST_F(LibraryWindowTest, unsavedWordsAreOfferedAgain)
{
    const RecipePtr recipe = fixture.library.add(soup());
    window->openRecipe(id(recipe));
    window->editRecipe();
    window->editor()->setTitle(u"Better Soup"_qs);
    reopen();
    ASSERT_TRUE(window->editor()->isOpen());
    EXPECT_EQ(window->editor()->title(), u"Better Soup"_qs);
    EXPECT_TRUE(window->editor()->isChanged());
    window->editor()->save();
    EXPECT_EQ(store().count(), 1);
    EXPECT_EQ(recipe->title(), u"Better Soup"_qs);
    reopen();
    EXPECT_FALSE(window->editor()->isOpen());
}

TEST_F(LibraryWindowTest, sharesTheScaledRecipe)
{
    const RecipePtr recipe = fixture.library.add(soup());
    window->openRecipe(id(recipe));
    window->recipe()->setScale(2);
    window->copyRecipe();
    EXPECT_TRUE(fixture.pasteboard.text().contains(u"• 2 onion"_qs)) << qPrintable(fixture.pasteboard.text());
    window->mailRecipe();
    ASSERT_EQ(fixture.desktop.opened.size(), 1);
    EXPECT_EQ(fixture.desktop.opened.first().scheme(), u"mailto"_qs);
    EXPECT_TRUE(fixture.desktop.opened.first().toEncoded().contains("subject=Soup"));
}

TEST_F(LibraryWindowTest, addsGroceriesOnceAPress)
{
    fixture.isHeld = true;
    const RecipePtr recipe = fixture.library.add(soup());
    window->openRecipe(id(recipe));
    window->recipe()->setScale(2);
    window->addGroceries();
    window->addGroceries();
    EXPECT_TRUE(window->isAddingGroceries());
    EXPECT_EQ(window->groceryMessage(), QString());
    fixture.isHeld = false;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window->isAddingGroceries(); }));
    EXPECT_EQ(fixture.groceries, QList<QStringList>{window->recipe()->groceryLines()});
    EXPECT_TRUE(window->groceryMessage().startsWith(u"Added "_qs));

    // Told where it belongs: not under the recipe that is shown meanwhile.
    fixture.isHeld = true;
    window->addGroceries();
    window->openRecipe(id(fixture.library.add(u"Cake"_qs)));
    fixture.isHeld = false;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window->isAddingGroceries(); }));
    EXPECT_EQ(window->groceryMessage(), QString());
}

TEST_F(LibraryWindowTest, savesGroceriesAsTheyAreScaled)
{
    window->openRecipe(id(fixture.library.add(soup())));
    window->recipe()->setScale(2);
    EXPECT_TRUE(window->groceryFile().toLocalFile().endsWith(u"/Soup – Groceries.ics"_qs));
    const QString path = fixture.library.path(u"list.ics"_qs);
    window->saveGroceries(QUrl::fromLocalFile(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray tasks = file.readAll();
    EXPECT_TRUE(tasks.contains("SUMMARY:2 onion")) << tasks.constData();
    EXPECT_EQ(tasks.count("BEGIN:VTODO"), window->recipe()->groceryLines().size());
    EXPECT_EQ(window->message(),
              u"Saved %1 items to “list.ics”."_qs.arg(window->recipe()->groceryLines().size()));
    window->saveGroceries(QUrl::fromLocalFile(fixture.library.path(u"no/where.ics"_qs)));
    EXPECT_EQ(window->message(), u"The grocery list couldn’t be saved to “where.ics”."_qs);
}

TEST_F(LibraryWindowTest, opensWebPagesAlone)
{
    RecipeDraft draft = soup();
    draft.sourceURL = QUrl(u"file:///usr/bin/something"_qs);
    window->openPage(id(fixture.library.add(draft)));
    EXPECT_TRUE(fixture.desktop.opened.isEmpty());
    EXPECT_FALSE(window->message().isEmpty());
    window->openPage(id(fixture.library.add(soup())));
    EXPECT_EQ(fixture.desktop.opened.size(), 1);
}

TEST_F(LibraryWindowTest, mentionsPointAtTheirLine)
{
    window->openRecipe(id(fixture.library.add(soup())));
    QSignalSpy wanted(window.get(), &LibraryWindow::ingredientWanted);
    window->activateLink(ingredientAddress(0));
    ASSERT_EQ(wanted.size(), 1);
    window->activateLink(u"https://example.com"_qs);
    window->activateLink(u"ovrin-ingredient:x"_qs);
    EXPECT_EQ(wanted.size(), 1);
    EXPECT_TRUE(fixture.desktop.opened.isEmpty());
}

} // namespace
