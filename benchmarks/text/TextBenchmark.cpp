// Each operation beside the patterns that it stands for, on the same texts: the ratio is what a scanner
// gains.
#include "text/DirectionTokenizer.h"
#include "text/Duration.h"
#include "text/HTMLText.h"
#include "text/IngredientScaler.h"
#include "text/PatternReference.h"

#include <benchmark/benchmark.h>

namespace ovrin {

namespace {

const QLocale locale(QLocale::English, QLocale::UnitedStates);

QStringList list(const char* lines)
{
    return QString::fromUtf8(lines).split(u'\n');
}

const QStringList ingredients = list("2 tablespoons extra virgin olive oil\n"
                                     "1 large yellow onion, finely chopped\n"
                                     "3 cloves garlic, minced\n"
                                     "1½ pounds boneless skinless chicken thighs\n"
                                     "1 1/2 teaspoons ground cumin\n"
                                     "1/4 tsp smoked paprika\n"
                                     "2 to 3 medium carrots, peeled and sliced\n"
                                     "1 (15 oz) can chickpeas, drained\n"
                                     "4 cups low-sodium chicken broth\n"
                                     "0.75 cup pearl couscous\n"
                                     "1 bunch fresh cilantro\n"
                                     "Salt and black pepper, to taste\n"
                                     "½ cup Greek yogurt\n"
                                     "1–2 lemons, juiced\n"
                                     "2 bay leaves");

const QStringList directions = list(
    "Heat the olive oil in a large Dutch oven over medium-high heat. Add the chicken thighs and brown them "
    "on both "
    "sides, 8 to 10 minutes in all, then lift them onto a plate.\n"
    "Lower the heat, add the onion and carrots and cook, stirring now and then, until soft and golden at the "
    "edges, "
    "about 12 minutes. Stir in the garlic, cumin and paprika and cook for 30 seconds.\n"
    "Pour in the chicken broth, scrape up what sticks to the pot, and return the chicken with the bay leaves "
    "and "
    "chickpeas. Bring to a boil, cover and simmer gently for 1½ hours.\n"
    "Add the couscous and cook until tender, 10-12 minutes more. Season with salt, pepper and lemon juice.\n"
    "Serve in warm bowls with a spoonful of yogurt and plenty of cilantro.");

const QString markup = QString::fromUtf8(
    "<p>Heat the oil in a large pot.</p><p>Add the onion &amp; cook until <b>soft</b>, "
    "8&ndash;10&nbsp;minutes.<br />"
    "Season with salt &#38; pepper.</p>\n<ul><li>1&frac12; cups flour</li><li>2 eggs</li></ul>");

const QStringList durations = list("PT20M\nPT1H30M\nP0DT1H\nP1DT2H\nPT45S\n20 minutes\nP0Y0M0DT0H35M0.000S");

template<typename Operation>
void each(benchmark::State& state, const QStringList& texts, Operation operation)
{
    for ([[maybe_unused]] auto round : state) {
        for (const QString& text : texts)
            benchmark::DoNotOptimize(operation(text));
    }
    state.SetItemsProcessed(state.iterations() * texts.size());
}

void scaleLines(benchmark::State& state)
{
    each(state, ingredients, [](const QString& line) { return IngredientScaler::scale(line, 1.5, locale); });
}

void scaleLinesByPattern(benchmark::State& state)
{
    each(state, ingredients, [](const QString& line) { return PatternReference::scale(line, 1.5, locale); });
}

/// The tokenizer made once, as for showing a recipe.
void tokenizeParagraphs(benchmark::State& state)
{
    const DirectionTokenizer tokenizer(ingredients);
    for ([[maybe_unused]] auto round : state)
        benchmark::DoNotOptimize(tokenizer.segments(directions));
    state.SetItemsProcessed(state.iterations() * directions.size());
}

void tokenizeRecipeWithNewTokenizer(benchmark::State& state)
{
    for ([[maybe_unused]] auto round : state)
        benchmark::DoNotOptimize(DirectionTokenizer(ingredients).segments(directions));
    state.SetItemsProcessed(state.iterations() * directions.size());
}

void tokenizeRecipeByPattern(benchmark::State& state)
{
    for ([[maybe_unused]] auto round : state)
        benchmark::DoNotOptimize(PatternReference::segments(ingredients, directions));
    state.SetItemsProcessed(state.iterations() * directions.size());
}

void cleanMarkup(benchmark::State& state)
{
    each(state, {markup}, HTMLText::clean);
    state.SetBytesProcessed(state.iterations() * markup.size());
}

void cleanMarkupByPattern(benchmark::State& state)
{
    each(state, {markup}, PatternReference::clean);
    state.SetBytesProcessed(state.iterations() * markup.size());
}

void readDurations(benchmark::State& state)
{
    each(state, durations, [](const QString& text) { return Duration::minutes(text); });
}

void readDurationsByPattern(benchmark::State& state)
{
    each(state, durations, PatternReference::minutes);
}

BENCHMARK(scaleLines);
BENCHMARK(scaleLinesByPattern);
BENCHMARK(tokenizeParagraphs);
BENCHMARK(tokenizeRecipeWithNewTokenizer);
BENCHMARK(tokenizeRecipeByPattern);
BENCHMARK(cleanMarkup);
BENCHMARK(cleanMarkupByPattern);
BENCHMARK(readDurations);
BENCHMARK(readDurationsByPattern);

} // namespace

} // namespace ovrin
