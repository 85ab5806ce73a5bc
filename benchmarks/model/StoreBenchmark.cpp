#include "model/RecipeStore.h"
#include "model/StepsCoding.h"

#include <benchmark/benchmark.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <map>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

namespace ovrin {
namespace {

/// A recipe of ordinary size: twelve lines, six steps, a photo of 20 kB.
RecipePtr makeRecipe(int n, std::mt19937& random)
{
    static const QStringList words{
        QStringLiteral("butter"),   QStringLiteral("flour"),   QStringLiteral("crème fraîche"),
        QStringLiteral("sugar"),    QStringLiteral("parsley"), QStringLiteral("garlic"),
        QStringLiteral("jalapeño"), QStringLiteral("chopped"), QStringLiteral("unsalted"),
        QStringLiteral("fresh"),    QStringLiteral("grated"),  QStringLiteral("½ cup"),
        QStringLiteral("pepper"),   QStringLiteral("onion"),   QStringLiteral("tablespoons"),
        QStringLiteral("thinly")};
    const auto text = [&](int count) {
        QStringList picked;
        for (int i = 0; i < count; ++i)
            picked.append(words[static_cast<qsizetype>(random() % static_cast<unsigned>(words.size()))]);
        return picked.join(u' ');
    };
    RecipeRecord record;
    record.id = QUuid::createUuid();
    record.title = text(4);
    record.publisher = text(2);
    record.summary = text(30);
    record.sourceURL = QStringLiteral("https://example.org/recipes/%1").arg(n);
    record.tintHex = QStringLiteral("AABBCC");
    for (int i = 0; i < 12; ++i)
        record.ingredients.append(QString::number(i + 1) + u' ' + text(4));
    QList<RecipeStep> steps;
    for (int i = 0; i < 6; ++i)
        steps.append({.title = {}, .paragraphs = {text(35)}});
    record.stepsData = encodeSteps(steps);
    record.imageData = QByteArray(20'000, static_cast<char>(n));
    record.createdAt = Instant(std::chrono::seconds(n));
    return std::make_shared<Recipe>(record);
}

void fillLibrary(const QString& folder, int count)
{
    std::mt19937 random(1);
    const auto opened = RecipeStore::open({.folder = folder});
    for (int i = 0; i < count; ++i) {
        opened.store->insert(makeRecipe(i, random));
        if (i % 1000 == 999) {
            opened.store->saved().waitForFinished();
            QCoreApplication::processEvents();
        }
    }
}

/// A library of `count` recipes on the disk, made once in a run; by a child process, whose memory is not
/// counted.
QString libraryOf(int count)
{
    static std::map<int, std::unique_ptr<QTemporaryDir>> made;
    auto& folder = made[count];
    if (!folder) {
        folder = std::make_unique<QTemporaryDir>();
        const pid_t child = fork();
        if (child == 0) {
            fillLibrary(folder->path(), count);
            _exit(0);
        }
        waitpid(child, nullptr, 0);
    }
    return folder->path();
}

double residentMegabytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    return statm.readAll().split(' ').value(1).toDouble() * 4096 / 1e6;
}

/// What the hardware and the page cache can do at best: the file's bytes, once.
void readFile(benchmark::State& state)
{
    const QString path = libraryOf(static_cast<int>(state.range(0))) + QStringLiteral("/Library.sqlite");
    for (auto _ : state) {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        QByteArray buffer(1 << 20, Qt::Uninitialized);
        while (file.read(buffer.data(), buffer.size()) > 0)
            benchmark::DoNotOptimize(buffer.data());
        state.counters["MB"] = static_cast<double>(file.size()) / 1e6;
    }
}

void openAndList(benchmark::State& state)
{
    const QString folder = libraryOf(static_cast<int>(state.range(0)));
    double grown = 0;
    double searchable = 0;
    for (auto _ : state) {
        const double before = residentMegabytes();
        auto opened = RecipeStore::open({.folder = folder});
        qsizetype characters = 0;
        for (const RecipePtr& recipe : opened.store->recipes())
            characters += recipe->title().size() + recipe->publisher().size();
        benchmark::DoNotOptimize(characters);
        state.PauseTiming();
        grown = std::max(grown, residentMegabytes() - before);
        opened.store->visible(LibraryFilter::All, QStringLiteral("x"));
        searchable = std::max(searchable, residentMegabytes() - before);
        opened.store.reset();
        state.ResumeTiming();
    }
    state.counters["MB listed"] = grown;
    state.counters["MB searched"] = searchable;
}

void search(benchmark::State& state, const char* text)
{
    const auto opened = RecipeStore::open({.folder = libraryOf(static_cast<int>(state.range(0)))});
    const QString needle = QString::fromUtf8(text);
    opened.store->visible(LibraryFilter::All, needle);
    for (auto _ : state)
        benchmark::DoNotOptimize(opened.store->visible(LibraryFilter::All, needle));
}

void firstSearch(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto opened = RecipeStore::open({.folder = libraryOf(static_cast<int>(state.range(0)))});
        state.ResumeTiming();
        benchmark::DoNotOptimize(opened.store->visible(LibraryFilter::All, QStringLiteral("jal")));
        state.PauseTiming();
        opened.store.reset();
        state.ResumeTiming();
    }
}

/// A recipe shown: its details and its photo read.
void show(benchmark::State& state)
{
    const auto opened = RecipeStore::open({.folder = libraryOf(static_cast<int>(state.range(0)))});
    qsizetype next = 0;
    for (auto _ : state) {
        const RecipePtr recipe = opened.store->at(next++ % opened.store->count());
        benchmark::DoNotOptimize(recipe->imageData());
        benchmark::DoNotOptimize(recipe->record());
    }
}

/// One change, until it is durable.
void saveOne(benchmark::State& state)
{
    const QTemporaryDir folder;
    const auto opened = RecipeStore::open({.folder = folder.path()});
    std::mt19937 random(1);
    const RecipePtr recipe = makeRecipe(1, random);
    opened.store->insert(recipe);
    for (auto _ : state) {
        recipe->setSaved(!recipe->isSaved());
        opened.store->saved().waitForFinished();
    }
}

constexpr auto milliseconds = benchmark::kMillisecond;
// First, while the heap is as it was at the start.
BENCHMARK(openAndList)->Arg(10'000)->Unit(milliseconds);
BENCHMARK(readFile)->Arg(10'000)->Unit(milliseconds);
BENCHMARK(firstSearch)->Arg(10'000)->Unit(milliseconds);
BENCHMARK_CAPTURE(search, one_letter, "e")->Arg(10'000)->Unit(milliseconds);
BENCHMARK_CAPTURE(search, word, "jalapeno")->Arg(10'000)->Unit(milliseconds);
BENCHMARK_CAPTURE(search, nothing, "garlic pepperx")->Arg(10'000)->Unit(milliseconds);
BENCHMARK_CAPTURE(search, rare_letter, "q")->Arg(10'000)->Unit(milliseconds);
BENCHMARK(show)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(saveOne)->Unit(milliseconds);
// The large library takes a while to make: name these with --benchmark_filter=100000.
BENCHMARK(openAndList)->Arg(100'000)->Unit(milliseconds);
BENCHMARK(readFile)->Arg(100'000)->Unit(milliseconds);
BENCHMARK(firstSearch)->Arg(100'000)->Unit(milliseconds);
BENCHMARK_CAPTURE(search, one_letter, "e")->Arg(100'000)->Unit(milliseconds);
BENCHMARK_CAPTURE(search, nothing, "garlic pepperx")->Arg(100'000)->Unit(milliseconds);

} // namespace
} // namespace ovrin

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
