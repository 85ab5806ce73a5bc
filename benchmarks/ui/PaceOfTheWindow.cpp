// How quick the library window is with many recipes: benchmark_ui [RECIPES]. Times are of the main thread's
// processor alone, drawing included, because QT_QPA_PLATFORM=offscreen draws on it; the first frame is by the
// clock, and of the whole program by both.
#include "Figures.h"
#include "Program.h"
#include "ui/support/SampleLibrary.h"
#include "ui/support/WindowFixture.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlComponent>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

#include <algorithm>
#include <cstdio>

using namespace ovrin;

namespace {

double residentMegabytes()
{
    QFile file(u"/proc/self/statm"_qs);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').at(1).toDouble() * 4096 / 1e6;
}

class Frames
{
public:
    explicit Frames(QQuickWindow& window)
    {
        QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [this] { ++m_count; });
    }
    /// Lets the window work until it has drawn once more.
    void next(int patience = 1000)
    {
        const int before = m_count;
        QElapsedTimer timer;
        timer.start();
        while (m_count == before && timer.elapsed() < patience)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void settle(int milliseconds)
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < milliseconds) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            // Without a running event loop nothing else takes away what was to be deleted later.
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

private:
    int m_count = 0;
};

struct Shown
{
    std::unique_ptr<QQmlEngine> engine;
    std::unique_ptr<QObject> root;
    QQuickWindow* window = nullptr;
    double firstFrame = 0;
};

Shown show(const std::function<void(QQmlComponent&)>& load, const std::function<void(QQmlEngine&)>& prepare,
           const QVariantMap& properties)
{
    QElapsedTimer timer;
    timer.start();
    Shown shown;
    shown.engine = std::make_unique<QQmlEngine>();
    prepare(*shown.engine);
    QQmlComponent component(shown.engine.get());
    load(component);
    if (!component.isReady())
        qFatal("%s", qPrintable(component.errorString()));
    shown.root.reset(component.createWithInitialProperties(properties));
    shown.window = qobject_cast<QQuickWindow*>(shown.root.get());
    Frames frames(*shown.window);
    shown.window->resize(1180, 820);
    shown.window->show();
    frames.next(5000);
    shown.firstFrame = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    QObject::disconnect(shown.window, &QQuickWindow::frameSwapped, nullptr, nullptr);
    return shown;
}

/// Two programs in turn, so that what else the machine does meets both.
void compareStarts(const QString& library, const QString& settings)
{
    constexpr int rounds = 21;
    std::vector<double> wall[2];
    std::vector<double> filled[2];
    std::vector<double> processor[2];
    std::vector<double> proportional[2];
    std::vector<double> own[2];
    for (int round = -1; round < rounds; ++round)
        for (const int which : {0, 1}) {
            const Start start =
                which == 0 ? startOf(QStringLiteral(OVRIN_ONE_LABEL), {}, settings, false)
                           : startOf(QStringLiteral(OVRIN_PROGRAM), {u"--store"_qs, library}, settings, true);
            // The first of each reads its files from the disk.
            if (round < 0)
                continue;
            wall[which].push_back(start.wall);
            filled[which].push_back(start.filled);
            processor[which].push_back(start.processor);
            proportional[which].push_back(start.proportional);
            own[which].push_back(start.own);
        }
    report("one label, start to first frame", wall[0]);
    report("ovrin, start to first frame", wall[1]);
    report("ovrin, start to the frame with recipes", filled[1]);
    report("one label, processor time until then", processor[0]);
    report("ovrin, processor time until then", processor[1]);
    std::printf(
        "first frame of the program: %.2f times that of one label by the clock, %.2f by processor time; its "
        "recipes' %.2f\n",
        median(wall[1]) / median(wall[0]), median(processor[1]) / median(processor[0]),
        median(filled[1]) / median(wall[0]));
    std::printf("memory: %.0f MB above one label's %.0f in proportional set size, %.0f above %.0f in private "
                "dirty pages\n",
                median(proportional[1]) - median(proportional[0]), median(proportional[0]),
                median(own[1]) - median(own[0]), median(own[0]));
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const int count = argc > 1 ? std::atoi(argv[1]) : 10'000;
    WindowFixture fixture;
    fixture.flags.setFlag(u"didSeedSampleRecipes"_qs, true);
    QList<QByteArray> photos;
    for (int seed = 0; seed < 8; ++seed)
        photos.append(toJpeg(drawnDish(seed, seed % 3 == 2 ? QSize(360, 480) : QSize(640, 440))));
    fill(fixture.library, count, photos);
    fixture.library.store().saved().waitForFinished();
    compareStarts(fixture.library.store().folder(), fixture.library.path(u"settings"_qs));

    const auto label = [](QQmlComponent& component) {
        component.setData("import QtQuick\nWindow { Text { text: 'label' } }", QUrl());
    };
    const auto whole = [](QQmlComponent& component) { component.loadUrl(mainWindowUrl()); };
    std::vector<double> plain;
    std::vector<double> ours;
    double plainMemory = 0;
    double ourMemory = 0;
    for (int round = 0; round < 7; ++round) {
        plain.push_back(show(label, [](QQmlEngine&) {}, {}).firstFrame);
        plainMemory = std::max(plainMemory, residentMegabytes());
        const auto model = fixture.makeWindow();
        const Shown shown = show(
            whole, [&](QQmlEngine& engine) { fixture.prepare(engine); }, fixture.windowProperties(*model));
        ours.push_back(shown.firstFrame);
        ourMemory = std::max(ourMemory, residentMegabytes());
    }
    report("first frame, one label", plain);
    report("first frame, the library", ours);
    std::printf("first frame in one process: %.2f times that of one label; %.0f MB above it\n",
                median(ours) / median(plain), ourMemory - plainMemory);

    const auto model = fixture.makeWindow();
    const Shown shown = show(
        whole, [&](QQmlEngine& engine) { fixture.prepare(engine); }, fixture.windowProperties(*model));
    Frames frames(*shown.window);
    frames.settle(500);
    auto* const grid = shown.window->findChild<QQuickItem*>(u"grid"_qs);

    const auto timed = [&](const std::function<void()>& act) {
        const double before = threadMilliseconds();
        act();
        frames.next();
        return threadMilliseconds() - before;
    };
    std::vector<double> keys;
    for (int round = 0; round < 6; ++round)
        for (const QString& text : {u"c"_qs, u"cr"_qs, u"cre"_qs, u"crem"_qs, u"cre"_qs, u"s"_qs, u"sh"_qs,
                                    u"2"_qs, u"29"_qs, QString()}) {
            keys.push_back(timed([&] { model->library()->setSearch(text); }));
            frames.settle(60);
        }
    report("a keystroke in the search", keys);

    std::vector<double> opening;
    for (int row = 0; row < 20; ++row) {
        const QString id = model->library()->index(row).data(LibraryModel::RecipeIdRole).toString();
        opening.push_back(timed([&] { model->openRecipe(id); }));
        frames.settle(60);
        model->goBack();
        frames.settle(60);
    }
    report("opening a recipe", opening);

    RecipeDraft draft = fullRecipe();
    for (int i = 0; i < 500; ++i)
        draft.ingredients.append(u"%1 spoons of ingredient %1"_qs.arg(i));
    for (int i = 0; i < 200; ++i)
        draft.steps.append({QUuid::createUuid(), std::nullopt, {u"Stir for %1 minutes."_qs.arg(i + 1)}});
    const RecipePtr longRecipe = fixture.library.add(draft);
    std::vector<double> openingLong;
    std::vector<double> editing;
    for (int round = 0; round < 8; ++round) {
        const QString id = longRecipe->id().toString(QUuid::WithoutBraces);
        openingLong.push_back(timed([&] { model->openRecipe(id); }));
        frames.settle(60);
        editing.push_back(timed([&] { model->editRecipe(); }));
        frames.settle(60);
        model->editor()->cancel();
        model->goBack();
        frames.settle(60);
    }
    report("opening one of 500 lines and 200 steps", openingLong);
    report("editing it", editing);

    std::vector<double> scrolling;
    const double height = grid->property("contentHeight").toDouble();
    const double before = residentMegabytes();
    for (double y = 180; y < height - 800; y += 180)
        scrolling.push_back(timed([&] { grid->setProperty("contentY", y); }));
    report("a frame of scrolling through it", scrolling);
    std::printf("over 16 ms: %.2f %%\n",
                100.0 *
                    static_cast<double>(std::ranges::count_if(scrolling, [](double t) { return t > 16; })) /
                    static_cast<double>(scrolling.size()));
    const double once = residentMegabytes();
    for (int round = 0; round < 20; ++round)
        for (double y : {0.0, height / 3, height / 2, height - 900, height / 2, height / 4}) {
            grid->setProperty("contentY", y);
            frames.settle(40);
        }
    std::printf("memory: %.0f MB, %.0f after one pass, %.0f after twenty jumps up and down\n", before, once,
                residentMegabytes());
    return 0;
}
