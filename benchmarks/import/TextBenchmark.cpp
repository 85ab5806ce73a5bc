#include "import/document/RecipeTextParser.h"

#include <benchmark/benchmark.h>

namespace {

using namespace ovrin;

QList<TextLine> sampleLines(qsizetype count)
{
    const QStringList texts{QStringLiteral("2 cups of flour, sifted"),
                            QStringLiteral("Stir the flour into the butter and let it rest for ten minutes."),
                            QStringLiteral("1. Heat the oven to 180 degrees"),
                            QStringLiteral("Soup of the Day"),
                            QStringLiteral("Prep time: 10 min | serves 4")};
    QList<TextLine> lines;
    for (qsizetype i = 0; i < count; ++i) {
        lines.append(
            {texts[i % texts.size()], i % 7 == 0, i % 50 == 3 ? 2.0 : 1.0, static_cast<int>(i / 2000)});
    }
    return lines;
}

/// The yardstick: every letter is looked at once.
void BM_CountLetters(benchmark::State& state)
{
    const QList<TextLine> lines = sampleLines(state.range(0));
    for (auto _ : state) {
        qsizetype letters = 0;
        for (const TextLine& line : lines) {
            letters +=
                std::count_if(line.text.begin(), line.text.end(), [](QChar c) { return c.isLetter(); });
        }
        benchmark::DoNotOptimize(letters);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_CountLetters)->Arg(240);

/// A page, a small book, and more lines than the parser looks at.
void BM_ParseText(benchmark::State& state)
{
    const QList<TextLine> lines = sampleLines(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(RecipeTextParser::parseFirst(lines));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ParseText)->Arg(40)->Arg(240)->Arg(2400)->Arg(24000);

} // namespace
