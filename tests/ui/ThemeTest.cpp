#include <gtest/gtest.h>

#include <QtGui/QColor>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>

#include <cmath>

namespace {

double light(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * light(color.redF()) + 0.7152 * light(color.greenF()) + 0.0722 * light(color.blueF());
}

/// The contrast ratio of the Web Content Accessibility Guidelines 2.1, from 1 to 21.
double contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

struct Pair
{
    const char* words;
    const char* surface;
    double least;
};

constexpr double normal = 4.5;
constexpr double large = 3;

constexpr Pair pairs[]{
    {"text", "background", normal},
    {"text", "sidebar", normal},
    {"text", "card", normal},
    {"text", "hover", normal},
    {"text", "pressed", normal},
    {"text", "selection", normal},
    {"text", "notice", normal},
    {"text", "lit", normal},
    {"secondary", "background", normal},
    {"secondary", "sidebar", normal},
    {"secondary", "card", normal},
    {"secondary", "hover", normal},
    {"accent", "background", normal},
    {"accent", "card", normal},
    {"accent", "sidebar", large},
    {"accent", "selection", large},
    {"accent", "notice", large},
    {"inkOnAccent", "accent", normal},
    {"inkOnAccent", "accentHover", normal},
    {"inkOnAccent", "accentPressed", normal},
    {"destructive", "card", normal},
    {"destructive", "hover", normal},
    {"inkOnDestructive", "destructive", normal},
    {"inkOnDestructive", "destructiveHover", normal},
    {"photoInk", "photoWhite", normal},
};

} // namespace

TEST(Theme, everyPairOfWordsAndSurfaceIsReadable)
{
    QQmlEngine engine;
    engine.addImportPath(u":/"_qs);
    QQmlComponent component(&engine);
    component.setData("import QtQml\nimport Ovrin\nQtObject { property QtObject theme: Theme }", QUrl());
    const std::unique_ptr<QObject> holder(component.create());
    ASSERT_TRUE(holder) << qPrintable(component.errorString());
    auto* const theme = holder->property("theme").value<QObject*>();
    ASSERT_TRUE(theme);
    for (const bool dark : {false, true}) {
        theme->setProperty("dark", dark);
        for (const Pair& pair : pairs) {
            const auto words = theme->property(pair.words).value<QColor>();
            const auto surface = theme->property(pair.surface).value<QColor>();
            ASSERT_TRUE(words.isValid() && surface.isValid()) << pair.words << " on " << pair.surface;
            EXPECT_GE(contrast(words, surface), pair.least)
                << pair.words << " on " << pair.surface << (dark ? " (dark)" : " (light)");
        }
    }
}
