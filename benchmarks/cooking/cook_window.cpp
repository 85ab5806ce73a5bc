// What cook mode costs the main thread: opening a recipe of 200 paragraphs, each frame of walking it, and the
// tray with a thousand timers.

#include "cooking/CookTimers.h"
#include "ui/cook/CookWindows.h"
#include "ui/images/PhotoProvider.h"
#include "ui/images/RecipePhotos.h"
#include "ui/images/SymbolProvider.h"
#include "ui/support/Library.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>
#include <QtTest/QTest>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>

using namespace ovrin;

void qml_register_types_Ovrin();

namespace {

double threadMilliseconds()
{
    timespec now = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

RecipeDraft longRecipe()
{
    RecipeDraft draft;
    draft.title = QStringLiteral("Long");
    for (int i = 0; i < 30; ++i)
        draft.ingredients.append(QStringLiteral("%1 cups ingredient %2").arg(i).arg(QChar(u'a' + i % 26)));
    RecipeStep step;
    for (int i = 0; i < 200; ++i)
        step.paragraphs.append(
            QStringLiteral("Raise the heat, add the ingredient %1 and brown it well, breaking it "
                           "up, about %2 minutes, then let it rest.")
                .arg(QChar(u'a' + i % 26))
                .arg(i));
    draft.steps = {step};
    return draft;
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    qml_register_types_Ovrin();
    Library library;
    RecipePhotos photos(library.store());
    NullNotificationCenter center;
    CookTimers timers([] { return QDateTime::currentDateTimeUtc(); }, center);
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(":/"));
    engine.addImageProvider(QStringLiteral("symbol"), new SymbolProvider);
    engine.addImageProvider(QStringLiteral("photo"),
                            new PhotoProvider(&photos, [](const QString&) { return QByteArray(); }));
    CookWindows windows({engine, library.store(), photos, timers, {}});
    const QUuid small = library.add(QStringLiteral("Warm-up"))->id();
    const QUuid large = library.add(longRecipe())->id();

    const auto open = [&](const QUuid& id) {
        QElapsedTimer wall;
        wall.start();
        const double before = threadMilliseconds();
        QQuickWindow* const window = windows.open(id);
        bool isShown = false;
        const auto shown = QObject::connect(window, &QQuickWindow::frameSwapped, [&] { isShown = true; });
        if (!QTest::qWaitFor([&] { return isShown; }, 10'000))
            std::exit(1);
        QObject::disconnect(shown);
        std::printf("open to first frame: %.1f ms of the main thread, %lld ms by the clock\n",
                    threadMilliseconds() - before, static_cast<long long>(wall.elapsed()));
        return window;
    };
    open(small)->close();
    QTest::qWait(100);
    QQuickWindow* const window = open(large);
    QTest::qWait(500);

    // Here everything is drawn by the main thread; where there is a GPU another one does that. It is counted
    // apart.
    double drawing = 0;
    QObject::connect(window, &QQuickWindow::beforeRendering, [&] { drawing -= threadMilliseconds(); });
    QObject::connect(window, &QQuickWindow::frameSwapped, [&] { drawing += threadMilliseconds(); });
    // A frame is everything that the main thread does from one frame to the next.
    std::vector<double> frames;
    double last = threadMilliseconds() - drawing;
    const auto counting = QObject::connect(window, &QQuickWindow::frameSwapped, [&] {
        frames.push_back(threadMilliseconds() - drawing - last);
        last += frames.back();
    });
    for (int move = 0; move < 60; ++move) {
        QTest::keyClick(window, move % 20 < 15 ? Qt::Key_Down : Qt::Key_Up);
        QTest::qWait(200);
    }
    std::sort(frames.begin(), frames.end());
    const auto within = [&](double limit) {
        return 100.0 * double(std::lower_bound(frames.begin(), frames.end(), limit) - frames.begin()) /
               double(frames.size());
    };
    std::printf(
        "moving: %zu frames, median %.1f ms, 99 %% within %.1f ms, worst %.1f ms; %.1f %% within 16 ms\n",
        frames.size(), frames[frames.size() / 2], frames[frames.size() * 99 / 100], frames.back(),
        within(16));

    const auto perSecond = [&] {
        QTest::qWait(2000);
        const double before = threadMilliseconds() - drawing;
        QTest::qWait(5000);
        return (threadMilliseconds() - drawing - before) / 5;
    };
    const double idle = perSecond();
    for (int i = 0; i < 1000; ++i)
        timers.start(3600 + i, QStringLiteral("%1 minutes").arg(i), QStringLiteral("Long"));
    std::printf("main thread a second: %.2f ms without timers, %.2f ms with a thousand\n", idle, perSecond());
    double busy = -threadMilliseconds();
    for (int i = 0; i < 100; ++i)
        timers.refresh();
    busy += threadMilliseconds();
    std::printf("of that the timers' own refresh, twice a second: %.3f ms\n", busy / 50);
    return 0;
}
