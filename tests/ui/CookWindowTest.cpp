#include "cooking/CookTimers.h"
#include "ui/cook/CookModeViewModel.h"
#include "ui/cook/CookWindows.h"
#include "ui/images/PhotoProvider.h"
#include "ui/images/RecipePhotos.h"
#include "ui/images/SymbolProvider.h"
#include "ui/support/Library.h"

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace ovrin;

// Made by Qt's build step.
void qml_register_types_Ovrin();

namespace {

constexpr int patience = 5'000;

RecipeDraft pasta()
{
    RecipeDraft draft;
    draft.title = QStringLiteral("Pasta");
    draft.ingredients = {QStringLiteral("1 onion"), QStringLiteral("salt"), QStringLiteral("To serve:")};
    const auto step = [](const QStringList& paragraphs) {
        return RecipeStep{.title = {}, .paragraphs = paragraphs};
    };
    draft.steps = {step({QStringLiteral("Boil for 9 minutes or 1 hour."), QStringLiteral("Chop the onion.")}),
                   step({QStringLiteral("Fry the onion for 3 minutes.")})};
    return draft;
}

class CookWindowTest : public testing::Test
{
protected:
    CookWindowTest()
    {
        qml_register_types_Ovrin();
        engine.addImportPath(QStringLiteral(":/"));
        engine.addImageProvider(QStringLiteral("symbol"), new SymbolProvider);
        engine.addImageProvider(QStringLiteral("photo"),
                                new PhotoProvider(&photos, [this](const QString& key) {
                                    return photos.bytes(key.section(u'/', 1));
                                }));
        QObject::connect(&engine, &QQmlEngine::warnings, [](const QList<QQmlError>& errors) {
            for (const QQmlError& error : errors)
                ADD_FAILURE() << error.toString().toStdString();
        });
    }

    QQuickWindow* open(const QUuid& id, int width = 1200, int height = 860)
    {
        QQuickWindow* const window = windows.open(id);
        window->resize(width, height);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
        return window;
    }
    static CookModeViewModel* model(QQuickWindow* window)
    {
        return window->property("cook").value<CookModeViewModel*>();
    }
    static QQuickItem* item(QQuickWindow* window, const char* name)
    {
        return window->findChild<QQuickItem*>(QString::fromLatin1(name));
    }
    /// What a list shows is not among the window's children.
    static QList<QQuickItem*> shown(QQuickItem* within, const QString& name)
    {
        QList<QQuickItem*> found;
        for (QQuickItem* child : within->childItems())
            found += child->objectName() == name ? QList{child} : shown(child, name);
        return found;
    }
    /// The middle of the current stop, from the middle of the column.
    static double offCentre(QQuickWindow* window)
    {
        QQuickItem* const stops = item(window, "stops");
        auto* const current = stops->property("currentItem").value<QQuickItem*>();
        return current->mapToItem(stops, QPointF(0, current->height() / 2)).y() - stops->height() / 2;
    }
    static bool comesToTheMiddle(QQuickWindow* window)
    {
        return QTest::qWaitFor([&] { return std::abs(offCentre(window)) < 1; }, patience);
    }

    Library library;
    RecipePhotos photos{library.store()};
    NullNotificationCenter center;
    QDateTime now = QDateTime::fromMSecsSinceEpoch(1700000000000, Qt::UTC);
    CookTimers timers{[this] { return now; }, center};
    QQmlEngine engine;
    std::weak_ptr<int> awake;
    CookWindows windows{{engine, library.store(), photos, timers, [this] {
                             const auto keeper = std::make_shared<int>();
                             awake = keeper;
                             return keeper;
                         }}};
};

TEST_F(CookWindowTest, TheKeysWalkTheStops)
{
    QQuickWindow* const window = open(library.add(pasta())->id());
    const auto after = [&](Qt::Key key) {
        QTest::keyClick(window, key);
        return model(window)->current();
    };
    EXPECT_EQ(model(window)->current(), 0);
    EXPECT_EQ(after(Qt::Key_Up), 0);
    EXPECT_EQ(after(Qt::Key_Down), 1);
    EXPECT_TRUE(comesToTheMiddle(window));
    EXPECT_EQ(after(Qt::Key_Space), 2);
    EXPECT_EQ(after(Qt::Key_Space), 2);
    EXPECT_TRUE(comesToTheMiddle(window));
    EXPECT_EQ(after(Qt::Key_Up), 1);
    EXPECT_TRUE(comesToTheMiddle(window));
}

TEST_F(CookWindowTest, TheCurrentStopStaysInTheMiddleWhenOthersChange)
{
    const RecipePtr recipe = library.add(pasta());
    QQuickWindow* const window = open(recipe->id());
    QQmlComponent theme(&engine);
    theme.setData("import QtQml\nimport Ovrin\nQtObject { function reduce(on) { Theme.reducedMotion = on } }",
                  {});
    const std::unique_ptr<QObject> motion(theme.create());
    for (const bool isReduced : {false, true}) {
        QMetaObject::invokeMethod(motion.get(), "reduce", Q_ARG(QVariant, isReduced));
        model(window)->select(0);
        EXPECT_TRUE(comesToTheMiddle(window));
        model(window)->select(2);
        EXPECT_TRUE(comesToTheMiddle(window)) << isReduced;
        RecipeDraft edited = recipe->draft();
        edited.steps[0].paragraphs[0] += QStringLiteral(" Stir now and then, and taste.").repeated(2);
        recipe->apply(edited);
        EXPECT_TRUE(comesToTheMiddle(window)) << isReduced;
    }
}

TEST_F(CookWindowTest, EscapeClosesAndLetsTheDisplaySleep)
{
    const QUuid id = library.add(pasta())->id();
    QQuickWindow* const window = open(id);
    EXPECT_FALSE(awake.expired());
    EXPECT_EQ(windows.open(id), window) << "a second request brings the first window forward";
    EXPECT_EQ(windows.count(), 1);
    // Not by QTest, which would go on to use the window.
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return windows.count() == 0; }, patience));
    EXPECT_TRUE(awake.expired());
}

TEST_F(CookWindowTest, TheStepperStopsAtTheEnds)
{
    QQuickWindow* const window = open(library.add(pasta())->id());
    QQuickItem* const up = item(window, "up");
    QQuickItem* const down = item(window, "down");
    EXPECT_FALSE(up->isEnabled());
    EXPECT_TRUE(down->isEnabled());
    for (int press = 0; press < 2; ++press)
        QMetaObject::invokeMethod(down, "clicked");
    EXPECT_EQ(model(window)->current(), 2);
    EXPECT_TRUE(up->isEnabled());
    EXPECT_FALSE(down->isEnabled());
    up->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window, Qt::Key_Return);
    EXPECT_EQ(model(window)->current(), 1);
}

TEST_F(CookWindowTest, F11FillsTheScreenAndGivesItBack)
{
    QQuickWindow* const window = open(library.add(pasta())->id());
    window->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    const auto becomes = [&](QWindow::Visibility visibility) {
        QTest::keyClick(window, Qt::Key_F11);
        return QTest::qWaitFor([&] { return window->visibility() == visibility; }, patience);
    };
    EXPECT_TRUE(becomes(QWindow::FullScreen));
    EXPECT_TRUE(becomes(QWindow::Windowed));
}

TEST_F(CookWindowTest, KeysSetTheSizeOfTheTypeWithinBounds)
{
    QQuickWindow* const window = open(library.add(pasta())->id());
    window->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    const auto typeAfter = [&](Qt::Key key, int times) {
        for (int press = 0; press < times; ++press)
            QTest::keyClick(window, key, Qt::ControlModifier);
        return item(window, "stops")->property("typeScale").toDouble();
    };
    const double usual = typeAfter(Qt::Key_0, 1);
    EXPECT_GT(typeAfter(Qt::Key_Plus, 1), usual);
    EXPECT_DOUBLE_EQ(typeAfter(Qt::Key_0, 1), usual);
    EXPECT_LT(typeAfter(Qt::Key_Minus, 1), usual);
    const double smallest = typeAfter(Qt::Key_Minus, 30);
    EXPECT_GT(smallest, usual / 2);
    EXPECT_DOUBLE_EQ(typeAfter(Qt::Key_Minus, 1), smallest);
    const double largest = typeAfter(Qt::Key_Equal, 60);
    EXPECT_LT(largest, usual * 3);
    EXPECT_DOUBLE_EQ(typeAfter(Qt::Key_Plus, 1), largest);
}

TEST_F(CookWindowTest, TabReachesTheTimesAndReturnStartsThem)
{
    QQuickWindow* const window = open(library.add(pasta())->id());
    for (int tab = 0; tab < 2; ++tab) {
        QTest::keyClick(window, Qt::Key_Tab);
        ASSERT_TRUE(window->activeFocusItem());
        EXPECT_EQ(window->activeFocusItem()->objectName(), QStringLiteral("timerLink"));
        QTest::keyClick(window, Qt::Key_Return);
    }
    ASSERT_EQ(timers.count(), 2);
    EXPECT_EQ(timers.timers().at(0).label, QStringLiteral("9 minutes"));
    EXPECT_EQ(timers.timers().at(1).label, QStringLiteral("1 hour"));
    EXPECT_EQ(timers.timers().at(1).recipeTitle, QStringLiteral("Pasta"));
    // The keys still walk from there.
    QTest::keyClick(window, Qt::Key_Down);
    EXPECT_EQ(model(window)->current(), 1);
    QTest::keyClick(window, Qt::Key_Down);
    EXPECT_EQ(model(window)->current(), 2);
}

TEST_F(CookWindowTest, AForeignLinkIsDropped)
{
    QQuickWindow* const window = open(library.add(pasta())->id());
    for (const char* link :
         {"https://example.org/", "ovrin-timer://start?seconds=0", "ovrin-ingredient:0", ""})
        model(window)->openLink(QString::fromLatin1(link));
    EXPECT_EQ(timers.count(), 0);
}

TEST_F(CookWindowTest, ThePanelNeedsMoreThan700)
{
    QQuickWindow* const window = open(library.add(pasta())->id(), 700);
    const auto isReached = [&](double panel, bool hasButton) {
        return QTest::qWaitFor(
            [&] {
                QQuickItem* const shown = item(window, "ingredientsPanel");
                return shown->isVisible() == (panel > 0) &&
                       (panel == 0 || qFuzzyCompare(shown->width(), panel)) &&
                       item(window, "ingredientsButton")->isVisible() == hasButton;
            },
            patience);
    };
    EXPECT_TRUE(isReached(0, true));
    window->resize(701, 860);
    EXPECT_TRUE(isReached(210.3, false));
    window->resize(2000, 860);
    EXPECT_TRUE(isReached(400, false));
}

TEST_F(CookWindowTest, TicksAreSharedByPanelAndSheet)
{
    QQuickWindow* const window = open(library.add(pasta())->id(), 640);
    CheckList* const list = model(window)->ingredients();
    for (const int row : {1, 2, 7})
        list->toggle(row);
    EXPECT_EQ(list->checked(), QSet<int>{1}) << "a heading is not ticked";
    QMetaObject::invokeMethod(item(window, "ingredientsButton"), "clicked");
    QObject* const sheet = window->findChild<QObject*>(QStringLiteral("ingredientsSheet"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return sheet->property("opened").toBool(); }, patience));
    if (HasFailure())
        return;
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !sheet->property("visible").toBool(); }, patience));
    EXPECT_EQ(windows.count(), 1) << "the first Escape is the sheet's";
}

TEST_F(CookWindowTest, FollowsItsRecipe)
{
    const RecipePtr recipe = library.add(pasta());
    QQuickWindow* const window = open(recipe->id());
    model(window)->select(2);
    RecipeDraft edited = recipe->draft();
    edited.title = QStringLiteral("Spaghetti");
    edited.steps[0].paragraphs.append(QStringLiteral("Drain."));
    recipe->apply(edited);
    EXPECT_EQ(model(window)->title(), QStringLiteral("Spaghetti"));
    EXPECT_EQ(model(window)->stops()->rowCount(), 4);
    EXPECT_EQ(model(window)->current(), 3) << "the same stop";
    edited.steps.removeLast();
    recipe->apply(edited);
    EXPECT_EQ(model(window)->current(), 0);
    library.store().remove(recipe);
    EXPECT_FALSE(model(window)->isFound());
    library.store().insert(recipe);
    EXPECT_TRUE(model(window)->isFound());
}

TEST_F(CookWindowTest, SurvivesWhatItIsGiven)
{
    QQuickWindow* const missing = open(QUuid::createUuid());
    EXPECT_FALSE(model(missing)->isFound());
    QTest::keyClick(missing, Qt::Key_Down);

    QQuickWindow* const bare = open(library.add(QStringLiteral("No steps"))->id());
    QTest::keyClick(bare, Qt::Key_Down);
    EXPECT_EQ(model(bare)->stops()->rowCount(), 0);

    RecipeDraft draft = pasta();
    draft.title = QStringLiteral("<b>Long</b>");
    draft.steps[0].paragraphs[1] =
        QStringLiteral("<img src='x'> & a line\n").repeated(1000) + QStringLiteral("Wait 5 minutes.");
    QQuickWindow* const tall = open(library.add(draft)->id());
    QTest::keyClick(tall, Qt::Key_Down);
    EXPECT_EQ(model(tall)->current(), 1);
    QTest::keyClick(tall, Qt::Key_Down);
    EXPECT_TRUE(comesToTheMiddle(tall));
}

TEST_F(CookWindowTest, TheTraySaysWhatRuns)
{
    QQuickWindow* const window = open(library.add(pasta())->id());
    timers.start(60, QStringLiteral("<b>1</b>\nminute"), QStringLiteral("Pasta"));
    timers.start(600, QStringLiteral("10 minutes"), QStringLiteral("Pasta"));
    const auto buttons = [&] { return shown(window->contentItem(), QStringLiteral("stopTimer")); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return buttons().size() == 2; }, patience));
    now = now.addSecs(61);
    timers.refresh();
    QMetaObject::invokeMethod(buttons().at(0), "clicked");
    EXPECT_EQ(timers.count(), 1);
}

} // namespace
