#include "ui/support/ViewsTest.h"

using namespace ovrin;

namespace {

TEST_F(ViewsTest, everyPageAndSheetOpensWithoutAWarning)
{
    fill(fixture.library, 30);
    open();
    openFirst();
    QTest::qWait(50);
    model->recipe()->setScale(2);
    model->recipe()->setNotes(u"Salt."_qs);
    model->editRecipe();
    QTest::qWait(50);
    model->editor()->cancel();
    model->goBack();
    model->library()->setSearch(u"no such thing"_qs);
    QTest::qWait(20);
    model->library()->setSearch({});
    for (const char* sheet : {"importSheet", "shortcutSheet"}) {
        QMetaObject::invokeMethod(window->findChild<QObject*>(QString::fromLatin1(sheet)), "open");
        QTest::qWait(20);
        key(Qt::Key_Escape);
    }
    model->drop({QUrl(u"https://example.org/nothing"_qs)}, {});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model->failure().isEmpty(); }));
    QTest::qWait(20);
    const auto surfaces = items(u"sheetSurface"_qs);
    ASSERT_EQ(surfaces.size(), 1);
    EXPECT_GT(surfaces.first()->height(), 100) << "the alert's words stand on its surface";
    key(Qt::Key_Escape);
    EXPECT_TRUE(model->failure().isEmpty());
    fixture.appearance.setDark(true);
    fixture.appearance.setTextScale(1.5);
    window->resize(640, 480);
    QTest::qWait(50);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    openFirst();
    QTest::qWait(50);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(ViewsTest, hostileRecipesAreShownAsText)
{
    RecipeDraft draft;
    draft.title = u"<img src=x onerror=y> "_qs + QString(2000, u'W');
    draft.publisher = u"<b>bold</b>"_qs;
    draft.yield = u"<i>4</i>"_qs;
    for (int i = 0; i < 500; ++i)
        draft.ingredients.append(u"%1 <img src=\"http://example.com/x\"> مرحبا 🍋"_qs.arg(i));
    for (int i = 0; i < 200; ++i)
        draft.steps.append(
            {QUuid::createUuid(), u"<h1>"_qs, {u"<a href='file:///etc/passwd'>x</a> for 5 minutes"_qs}});
    fixture.library.add(draft)->setImageData(QByteArray("no picture at all"));
    open();
    openFirst();
    QTest::qWait(100);
    model->editRecipe();
    QTest::qWait(100);
    EXPECT_EQ(model->editor()->ingredients()->rowCount(), 500);
    EXPECT_LT(items(u"ingredient"_qs).size(), 60) << "only what is near to be seen is made";
    QObject* const form = window->findChild<QObject*>(u"editorForm"_qs);
    form->setProperty("contentY", item(u"editorIngredients"_qs)->height() - 400);
    QTest::qWait(20);
    EXPECT_EQ(items(u"ingredient"_qs).last()->property("label").toString(), u"Ingredient 500"_qs);
    model->editor()->cancel();
}

TEST_F(ViewsTest, aMentionLightsItsLineHoweverLongTheRecipe)
{
    RecipeDraft draft = fullRecipe();
    draft.ingredients = {u"2 eggs"_qs};
    for (int i = 1; i < 400; ++i)
        draft.ingredients.append(u"%1 spoons of spice"_qs.arg(i));
    draft.ingredients.append(u"1 cup saffron"_qs);
    draft.steps = {{QUuid::createUuid(), std::nullopt, {u"Beat the eggs with the saffron."_qs}}};
    for (int i = 0; i < 100; ++i)
        draft.steps.append({QUuid::createUuid(), std::nullopt, {u"Stir."_qs}});
    fixture.library.add(draft);
    open();
    openFirst();
    const auto lines = [&] { return items(u"ingredientLine"_qs); };
    EXPECT_LT(lines().size(), 60) << "the rest comes frame by frame";
    EXPECT_LT(items(u"direction"_qs).size(), 60);

    const auto isLitInSight = [&](const QString& text) {
        return std::ranges::any_of(lines(), [&](QQuickItem* line) {
            const double y = line->mapToScene({}).y();
            return line->property("lineText") == text && line->property("isLit").toBool() && y > 0 &&
                   y + line->height() < window->height();
        });
    };
    // The keyboard comes to the first step's mentions, of the first line and of one that is not there yet.
    const auto mention = [&](int index) {
        const auto links = items(u"link"_qs);
        const auto found =
            std::ranges::find_if(links, [&](QQuickItem* link) { return link->property("index") == index; });
        return found == links.end() ? nullptr : *found;
    };
    for (const auto& [index, line] : {std::pair(1, u"1 cup saffron"_qs), std::pair(0, u"2 eggs"_qs)}) {
        ASSERT_TRUE(mention(index)) << index;
        mention(index)->forceActiveFocus(Qt::TabFocusReason);
        key(Qt::Key_Return);
        EXPECT_TRUE(isLitInSight(line)) << qPrintable(line);
    }
    const QVariant place = item(u"recipeScroller"_qs)->property("contentY");
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return lines().size() == 401 && items(u"direction"_qs).size() == 101; }));
    EXPECT_EQ(item(u"recipeScroller"_qs)->property("contentY"), place) << "nothing that is read moves";
}

TEST_F(ViewsTest, theMenuOfACardDoesWhatItSays)
{
    const RecipePtr recipe = fixture.library.add(fullRecipe());
    open();
    auto* const grid = item(u"grid"_qs);
    const auto byKey = [&] {
        grid->forceActiveFocus();
        key(Qt::Key_Menu);
    };
    const auto byShiftF10 = [&] {
        grid->forceActiveFocus();
        key(Qt::Key_F10, Qt::ShiftModifier);
    };
    const auto byPointer = [&] {
        QTest::mouseClick(window, Qt::RightButton, {}, grid->mapToScene({60, 60}).toPoint());
    };
    const auto choose = [&](const std::function<void()>& ask, int entry) {
        ask();
        for (int i = 0; i <= entry; ++i)
            key(Qt::Key_Down);
        key(Qt::Key_Return);
    };
    int times = 0;
    for (const std::function<void()>& ask : {std::function<void()>(byKey), std::function<void()>(byShiftF10),
                                             std::function<void()>(byPointer)}) {
        ++times;
        choose(ask, 0);
        EXPECT_TRUE(recipe->isSaved()) << times;
        choose(ask, 0);
        EXPECT_FALSE(recipe->isSaved()) << times;
        choose(ask, 1);
        EXPECT_EQ(fixture.desktop.opened.size(), times);
    }
    choose(byPointer, 2);
    EXPECT_EQ(model->library()->count(), 0);
    model->undoDelete();
    // Resting where the menu comes up, the pointer would choose an entry.
    QTest::mouseMove(window, {5, 5});
    choose(byKey, 0);
    EXPECT_TRUE(recipe->isSaved()) << "right after the card came back";
}

TEST_F(ViewsTest, theLayoutTurnsAt760)
{
    RecipeDraft draft = fullRecipe();
    fixture.library.add(draft);
    open();
    openFirst();
    auto* const page = item(u"recipePage"_qs);
    ASSERT_TRUE(page);
    struct Case
    {
        int width;
        bool isWide;
        double ingredients;
    };
    for (const Case& c : {Case{760, false, 720}, Case{761, true, 273.96}, Case{1200, true, 380}}) {
        window->resize(window->width() - static_cast<int>(page->width()) + c.width, 800);
        QTest::qWait(20);
        // The sidebar folds on the way; what counts is the page.
        window->resize(window->width() - static_cast<int>(page->width()) + c.width, 800);
        QTest::qWait(20);
        ASSERT_EQ(page->width(), c.width);
        EXPECT_EQ(page->property("isWide").toBool(), c.isWide);
        EXPECT_NEAR(page->property("ingredientsWidth").toDouble(), c.ingredients, 0.001);
    }
}

TEST_F(ViewsTest, typingSearchesAndTheKeyboardOpensAndDeletes)
{
    fill(fixture.library, 10);
    open();
    key(Qt::Key_F, Qt::ControlModifier);
    type(u"brul"_qs);
    EXPECT_EQ(model->library()->count(), 0);
    key(Qt::Key_Escape);
    EXPECT_EQ(model->library()->count(), 10);
    type(u"bread"_qs);
    ASSERT_EQ(model->library()->count(), 2);
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_TRUE(model->recipe()->isShown());
    key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_FALSE(model->recipe()->isShown());
    key(Qt::Key_Delete);
    EXPECT_EQ(model->library()->count(), 1);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(model->library()->count(), 2);
}

TEST_F(ViewsTest, tabGoesThroughTheWindowInOrder)
{
    fill(fixture.library, 3);
    open();
    key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(focused(), item(u"search"_qs));
    key(Qt::Key_Tab);
    EXPECT_EQ(focused(), item(u"add"_qs));
    key(Qt::Key_Tab);
    EXPECT_TRUE(item(u"grid"_qs)->hasActiveFocus()) << "with the focus on the card that is current";
    key(Qt::Key_Tab);
    EXPECT_EQ(focused()->property("text").toString(), u"All Recipes"_qs);
}

TEST_F(ViewsTest, theEditorFollowsTheKeyboard)
{
    fixture.library.add(fullRecipe());
    open();
    openFirst();
    key(Qt::Key_E, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return model->editor()->isOpen() && focused(); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return focused()->property("label").toString() == u"Title"_qs; }))
        << qPrintable(focused()->property("label").toString());

    const auto rows = items(u"ingredient"_qs);
    ASSERT_EQ(rows.size(), 9);
    rows.at(1)->forceActiveFocus();
    key(Qt::Key_Return);
    ASSERT_EQ(model->editor()->ingredients()->rowCount(), 10);
    EXPECT_EQ(focused()->property("label").toString(), u"Ingredient 3"_qs);
    type(u"2 eggs"_qs);
    EXPECT_EQ(model->editor()->draft().ingredients.at(2), u"2 eggs"_qs);
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(model->editor()->draft().ingredients.at(1), u"2 eggs"_qs);

    fixture.pasteboard.setText(u" or 3\n  1 cup milk\n\nsalt"_qs);
    key(Qt::Key_End);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(model->editor()->draft().ingredients.mid(1, 3),
              QStringList({u"2 eggs or 3"_qs, u"1 cup milk"_qs, u"salt"_qs}));
    EXPECT_EQ(focused()->property("label").toString(), u"Ingredient 4"_qs);

    key(Qt::Key_Escape);
    EXPECT_TRUE(model->editor()->isOpen()) << "unsaved words are asked about";
    key(Qt::Key_Escape);
    key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(model->editor()->isOpen());
    EXPECT_EQ(model->recipe()->ingredients()->rowCount(), 12);
}

TEST_F(ViewsTest, closingWithUnsavedWordsAsksFirst)
{
    open();
    model->createRecipe();
    model->editor()->setTitle(u"Half a thought"_qs);
    window->close();
    QTest::qWait(20);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(model->editor()->isOpen());
}

} // namespace
