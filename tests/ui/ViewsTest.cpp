#include "ui/support/SampleLibrary.h"
#include "ui/support/WindowFixture.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QAccessible>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlComponent>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>
#include <QtTest/QTest>
#include <gtest/gtest.h>

using namespace ovrin;

namespace {

QStringList* warnings = nullptr;

void collect(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (warnings && type >= QtWarningMsg)
        warnings->append(text);
}

/// The whole interface over a library; every QML warning fails the test.
class ViewsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        warnings = &m_warnings;
        m_previous = qInstallMessageHandler(collect);
        fixture.flags.setFlag(u"didSeedSampleRecipes"_qs, true);
        fixture.appearance.setMotionReduced(true);
    }
    void TearDown() override
    {
        root.reset();
        qInstallMessageHandler(m_previous);
        warnings = nullptr;
        // Offscreen has no fonts to choose from in some places and says so.
        m_warnings.removeIf([](const QString& text) { return text.contains(u"QFont"_qs); });
        EXPECT_TRUE(m_warnings.isEmpty()) << qPrintable(m_warnings.join(u'\n'));
    }

    void open(int width = 1180, int height = 820)
    {
        model = fixture.makeWindow();
        engine = std::make_unique<QQmlEngine>();
        fixture.prepare(*engine);
        QQmlComponent component(engine.get(), mainWindowUrl());
        ASSERT_TRUE(component.isReady()) << qPrintable(component.errorString());
        root.reset(component.createWithInitialProperties({{u"model"_qs, QVariant::fromValue(model.get())}}));
        window = qobject_cast<QQuickWindow*>(root.get());
        ASSERT_TRUE(window);
        window->resize(width, height);
        window->show();
        window->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    void openFirst()
    {
        model->openRecipe(model->library()->index(0).data(LibraryModel::RecipeIdRole).toString());
    }
    QQuickItem* item(const QString& name) { return window->findChild<QQuickItem*>(name); }
    QList<QQuickItem*> items(const QString& name)
    {
        // Delegates are children in the scene, not in the tree of objects.
        QList<QQuickItem*> found;
        QList<QQuickItem*> queue{window->contentItem()};
        while (!queue.isEmpty()) {
            QQuickItem* const next = queue.takeFirst();
            if (next->objectName() == name)
                found.append(next);
            queue.append(next->childItems());
        }
        std::sort(found.begin(), found.end(), [](QQuickItem* a, QQuickItem* b) {
            return a->mapToScene(QPointF()).y() < b->mapToScene(QPointF()).y();
        });
        return found;
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window, key, modifiers);
        QCoreApplication::processEvents();
    }
    void type(const QString& text)
    {
        for (const QChar c : text)
            QTest::keyClick(window, c.toLatin1());
        QCoreApplication::processEvents();
    }
    QQuickItem* focused() { return window->activeFocusItem(); }

    WindowFixture fixture;
    std::unique_ptr<LibraryWindow> model;
    std::unique_ptr<QQmlEngine> engine;
    std::unique_ptr<QObject> root;
    QQuickWindow* window = nullptr;

private:
    QStringList m_warnings;
    QtMessageHandler m_previous = nullptr;
};

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
    model->editor()->cancel();
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

TEST_F(ViewsTest, theImportSheetTakesAnAddressAndReturn)
{
    fixture.imported = fullRecipe();
    open();
    key(Qt::Key_I, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return focused() && focused()->objectName() == u"address"_qs; }));
    type(u"example.com/soup"_qs);
    key(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return model->recipe()->isShown(); }));
    EXPECT_EQ(fixture.requests, QStringList({u"https://example.com/soup"_qs}));
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

TEST_F(ViewsTest, everyControlHasANameARoleAndAPressAction)
{
    fill(fixture.library, 6);
    open();
    openFirst();
    QTest::qWait(50);
    QList<QQuickItem*> queue{window->contentItem()};
    int controls = 0;
    while (!queue.isEmpty()) {
        QQuickItem* const next = queue.takeFirst();
        queue.append(next->childItems());
        if (!next->activeFocusOnTab() || !next->isVisible())
            continue;
        QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(next);
        ASSERT_TRUE(accessible) << next->metaObject()->className();
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << next->metaObject()->className();
        EXPECT_NE(accessible->role(), QAccessible::NoRole) << next->metaObject()->className();
        ++controls;
    }
    EXPECT_GT(controls, 12);
}

} // namespace
