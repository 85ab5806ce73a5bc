// How quick the library window is with many recipes: benchmark_ui [RECIPES]. Times are of the main thread's
// processor alone, drawing included, because QT_QPA_PLATFORM=offscreen draws on it; the first frame is by the
// clock.
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
#include <ctime>

using namespace ovrin;

namespace {

double threadMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

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

void report(const char* what, std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    const auto at = [&times](double part) {
        return times[std::min(times.size() - 1,
                              static_cast<size_t>(part * static_cast<double>(times.size())))];
    };
    std::printf("%-34s 50%% %7.2f  95%% %7.2f  99%% %7.2f  most %7.2f ms  (%zu)\n", what, at(0.5), at(0.95),
                at(0.99), times.back(), times.size());
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
        const Shown shown = show(whole, [&](QQmlEngine& engine) { fixture.prepare(engine); },
                                 {{u"model"_qs, QVariant::fromValue(model.get())}});
        ours.push_back(shown.firstFrame);
        ourMemory = std::max(ourMemory, residentMegabytes());
    }
    report("first frame, one label", plain);
    report("first frame, the library", ours);
    std::sort(plain.begin(), plain.end());
    std::sort(ours.begin(), ours.end());
    std::printf("first frame is %.2f times that of one label; %.0f MB above it\n", ours[3] / plain[3],
                ourMemory - plainMemory);

    const auto model = fixture.makeWindow();
    const Shown shown = show(whole, [&](QQmlEngine& engine) { fixture.prepare(engine); },
                             {{u"model"_qs, QVariant::fromValue(model.get())}});
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
