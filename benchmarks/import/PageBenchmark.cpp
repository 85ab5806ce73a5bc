#include "import/web/PageMarkup.h"
#include "import/web/PageParser.h"

#include <benchmark/benchmark.h>

#include <algorithm>

namespace {

using namespace ovrin;

/// A page as sites send them: `kilobytes` of markup around one JSON-LD script with thirty ingredients and
/// twenty steps.
QByteArray samplePage(qsizetype kilobytes)
{
    QByteArray json =
        R"({"@context":"https://schema.org","@graph":[{"@type":"WebPage","name":"Page"},{"@type":"Recipe",)"
        R"("name":"Soup","description":"Warm &amp; quick.","author":{"name":"Ann Lee"},"image":["/a.jpg"],)"
        R"("recipeYield":["4","4 servings"],"totalTime":"PT1H10M","recipeIngredient":[)";
    for (int i = 0; i < 30; ++i) {
        json += (i ? ",\"" : "\"") + QByteArray::number(i) +
                " &frac12; cups cr\xC3\xA8me fra\xC3\xAE"
                "che, chopped\"";
    }
    json += R"(],"recipeInstructions":[)";
    for (int i = 0; i < 20; ++i) {
        json += i ? "," : "";
        json +=
            R"({"@type":"HowToStep","text":"<p>Heat the oil over medium heat and fry the onions until soft.</p>"})";
    }
    json += "]}]}";

    const QByteArray markup =
        "<div class=\"post-content entry\"><p>Some words about soup and its long history.</p>"
        "<img src=\"/wp-content/uploads/soup.jpg\" alt=\"\"></div>\n";
    QByteArray page = "<!doctype html><html><head><title>Soup</title>";
    for (int i = 0; i < 30; ++i) {
        page += "<meta property=\"og:thing" + QByteArray::number(i) + "\" content=\"words &amp; more\">\n";
    }
    page += "<script type=\"application/ld+json\">" + json + "</script></head><body>";
    page += markup.repeated(kilobytes * 1024 / markup.size());
    return page + "</body></html>";
}

const QUrl address(QStringLiteral("https://www.site.example/soup"));

/// The yardstick: every byte of the page is looked at once by the plainest loop.
void BM_CountBrackets(benchmark::State& state)
{
    const QByteArray page = samplePage(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::count(page.begin(), page.end(), '<'));
    }
    state.SetBytesProcessed(state.iterations() * page.size());
}
BENCHMARK(BM_CountBrackets)->Arg(330);

void BM_ParsePage(benchmark::State& state)
{
    const QByteArray page = samplePage(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(parsePage(page, address));
    }
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * page.size());
}
BENCHMARK(BM_ParsePage)->Arg(0)->Arg(330)->Arg(3300);

/// Pages that invite a careless scanner to go back to the start again and again: time a byte stays the same.
void BM_HostilePage(benchmark::State& state, const char* piece)
{
    const QByteArray page =
        "<title>t</title>" + QByteArray(piece).repeated(state.range(0) / qsizetype(qstrlen(piece)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(parsePage(page, address));
    }
    state.SetBytesProcessed(state.iterations() * page.size());
}
BENCHMARK_CAPTURE(BM_HostilePage, brackets, "<")->Arg(1 << 16)->Arg(1 << 20);
BENCHMARK_CAPTURE(BM_HostilePage, scripts, "<script application/ld+json ")->Arg(1 << 16)->Arg(1 << 20);
BENCHMARK_CAPTURE(BM_HostilePage, metas, "<meta a='")->Arg(1 << 16)->Arg(1 << 20);

} // namespace
