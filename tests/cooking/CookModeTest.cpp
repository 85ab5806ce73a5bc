#include "cooking/CookMode.h"
#include "cooking/Spring.h"

#include <cmath>
#include <limits>

using namespace ovrin;

namespace {

QStringList idsOf(const QList<CookMode::Item>& items)
{
    QStringList ids;
    for (const CookMode::Item& item : items)
        ids.append(item.id);
    return ids;
}

RecipeStep step(const QStringList& paragraphs, const std::optional<QString>& title = {})
{
    return {.title = title, .paragraphs = paragraphs};
}

const QList<RecipeStep> twoSteps = {
    step({QStringLiteral("Chop."), QStringLiteral("Fry 5 minutes.")}, QStringLiteral("Base")),
    step({QStringLiteral("Serve.")})};

TEST(CookMode, HasAStopForEachParagraph)
{
    const auto items = CookMode::items({}, twoSteps);
    EXPECT_EQ(idsOf(items),
              (QStringList{QStringLiteral("0-0"), QStringLiteral("0-1"), QStringLiteral("1-0")}));
    EXPECT_EQ(items.at(1).stepNumber, 1);
    EXPECT_EQ(items.at(1).stepTitle, QStringLiteral("Base"));
    EXPECT_FALSE(items.at(1).isFirstInStep);
    EXPECT_EQ(items.at(1).segments.at(1), DirectionSegment::timer(QStringLiteral("5 minutes"), 300));
    EXPECT_EQ(items.at(1).text(), QStringLiteral("Fry 5 minutes."));
    EXPECT_EQ(items.at(2).stepNumber, 2);
    EXPECT_EQ(items.at(2).stepTitle, std::nullopt);
    EXPECT_TRUE(items.at(2).isFirstInStep);
    EXPECT_TRUE(CookMode::items({QStringLiteral("salt")}, {}).isEmpty());
}

TEST(CookMode, MarksAnIngredientAtItsFirstMentionOfAll)
{
    const auto items = CookMode::items(
        {QStringLiteral("1 onion")},
        {step({QStringLiteral("Warm the pan."), QStringLiteral("Add the onion.")}),
         step({QStringLiteral("Stir."), QStringLiteral("Wait."), QStringLiteral("Take the onion out.")})});
    const auto isMarked = [](const CookMode::Item& item) {
        return std::any_of(item.segments.cbegin(), item.segments.cend(), [](const DirectionSegment& segment) {
            return segment.kind == DirectionSegment::Kind::Ingredient;
        });
    };
    EXPECT_EQ(std::count_if(items.cbegin(), items.cend(), isMarked), 1);
    EXPECT_TRUE(isMarked(items.at(1)));
}

TEST(CookMode, MovesAndStaysAtItsEnds)
{
    const auto items = CookMode::items({}, twoSteps);
    const auto moved = [&](const char* from, qsizetype count) {
        return CookMode::moved(items, QString::fromLatin1(from), count).toStdString();
    };
    EXPECT_EQ(moved("", 1), "0-1") << "none counts as the first";
    EXPECT_EQ(moved("9-9", 1), "0-1") << "so does one that is not there";
    EXPECT_EQ(moved("0-1", 1), "1-0");
    EXPECT_EQ(moved("1-0", 1), "1-0");
    EXPECT_EQ(moved("0-0", -1), "0-0");
    EXPECT_EQ(moved("1-0", std::numeric_limits<qsizetype>::min()), "0-0");
    EXPECT_EQ(moved("0-1", std::numeric_limits<qsizetype>::max()), "1-0");
    EXPECT_EQ(CookMode::moved({}, QStringLiteral("0-0"), 1), QStringLiteral("0-0"));
}

TEST(CookMode, GivesThePanelItsShareOfAWideWindow)
{
    EXPECT_EQ(CookMode::panelWidth(640), 0);
    EXPECT_EQ(CookMode::panelWidth(700), 0);
    EXPECT_DOUBLE_EQ(CookMode::panelWidth(701), 210.3);
    EXPECT_EQ(CookMode::panelWidth(2000), 400);
}

TEST(Spring, ComesToItsTargetWithoutPassingIt)
{
    Spring spring(0.5);
    spring.setTarget(100);
    // After a quarter of the period: 100 (1 - (1 + w t) e^(-w t)) with w t = pi / 2.
    spring.advance(0.125);
    EXPECT_NEAR(spring.value(), 100 * (1 - (1 + M_PI_2) * std::exp(-M_PI_2)), 1e-9);
    double before = spring.value();
    for (int frame = 0; frame < 120; ++frame) {
        spring.advance(1.0 / 60);
        EXPECT_GE(spring.value(), before);
        EXPECT_LE(spring.value(), 100);
        before = spring.value();
    }
    EXPECT_TRUE(spring.isAtRest());
    EXPECT_EQ(spring.value(), 100);
}

TEST(Spring, MovesAlikeAtAnyFrameRate)
{
    Spring smooth(0.5);
    Spring coarse(0.5);
    for (Spring* spring : {&smooth, &coarse}) {
        spring->setTarget(100);
        spring->advance(0.1);
        spring->setTarget(-50); // on its way, at full speed
    }
    for (int i = 0; i < 100; ++i)
        smooth.advance(0.001);
    coarse.advance(0.1);
    EXPECT_NEAR(smooth.value(), coarse.value(), 1e-6);
    smooth.shift(30);
    EXPECT_NEAR(smooth.value(), coarse.value() + 30, 1e-6);
    EXPECT_EQ(smooth.target(), -20);
}

} // namespace
