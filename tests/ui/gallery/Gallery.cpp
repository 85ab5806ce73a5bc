// Writes pictures of the interface, to be looked at: ovrin-gallery OUT [--photos DIR] [--only TEXT]
#include "ui/cook/CookModeViewModel.h"
#include "ui/cook/CookWindows.h"
#include "ui/support/SampleLibrary.h"
#include "ui/support/WindowFixture.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

#include <cstdio>

using namespace ovrin;

namespace {

struct Scene
{
    QString name;
    QList<int> widths;
    int recipes = 0;
    /// Run when the window stands; what it shows afterwards is the picture.
    std::function<void(WindowFixture&, LibraryWindow&, QQuickWindow&)> arrange = {};
    /// Run before it stands.
    std::function<void(WindowFixture&)> seed = {};
    bool isMirrored = false;
    double textScale = 1;
};

void wait(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

void call(QQuickWindow& window, const char* object, const char* function)
{
    if (auto* const item = window.findChild<QObject*>(QString::fromLatin1(object)))
        QMetaObject::invokeMethod(item, function);
}

void openFirst(LibraryWindow& model)
{
    model.openRecipe(model.library()->index(0).data(LibraryModel::RecipeIdRole).toString());
}

const QList<int> allWidths{640, 900, 1180, 1920};

QList<Scene> plainScenes()
{
    const auto openRecipe = [](WindowFixture&, LibraryWindow& model, QQuickWindow&) { openFirst(model); };
    const auto withPhoto = [](QSize size, const QString& title = {}) {
        return [size, title](WindowFixture& fixture) {
            RecipeDraft draft = fullRecipe();
            if (!title.isEmpty())
                draft.title = title;
            if (!size.isEmpty())
                draft.imageData = toJpeg(drawnDish(3, size));
            fixture.library.add(draft);
        };
    };
    return {
        {u"empty"_qs, allWidths, 0},
        {u"one"_qs, {1180}, 1},
        {u"library"_qs, allWidths, 200},
        {u"focus"_qs,
         {1180},
         30,
         [](WindowFixture&, LibraryWindow&, QQuickWindow& window) {
             auto* const grid = window.findChild<QQuickItem*>(u"grid"_qs);
             grid->setProperty("currentIndex", 5);
             grid->forceActiveFocus(Qt::TabFocusReason);
         }},
        {u"nothing-found"_qs,
         {900},
         30,
         [](WindowFixture&, LibraryWindow& model, QQuickWindow&) {
             model.library()->setSearch(u"nutmeg grater"_qs);
         }},
        {u"importing"_qs,
         {640, 1180},
         30,
         [](WindowFixture& fixture, LibraryWindow& model, QQuickWindow&) {
             fixture.isHeld = true;
             model.drop({QUrl(u"https://casaemilia.example.org/lasagna"_qs)}, {});
             model.deleteRecipe(model.library()->index(2).data(LibraryModel::RecipeIdRole).toString());
         }},
        {u"recipe"_qs, allWidths, 0, openRecipe, withPhoto({1200, 900})},
        {u"recipe-portrait"_qs, {900, 1180}, 0, openRecipe, withPhoto({700, 1200})},
        {u"recipe-no-photo"_qs, {640, 1180}, 0, openRecipe, withPhoto({})},
        {u"recipe-long-title"_qs,
         {640, 1180},
         0,
         openRecipe,
         withPhoto({1200, 900}, u"An Extraordinarily Long Title That Goes On "_qs.repeated(46))},
        {u"recipe-scaled"_qs,
         {1180},
         0,
         [](WindowFixture&, LibraryWindow& model, QQuickWindow&) {
             openFirst(model);
             model.recipe()->setScale(1.5);
             model.recipe()->setNotes(u"Double the white sauce.\nSheets from the good shop."_qs);
             model.recipe()->recordCook();
         },
         withPhoto({1200, 900})},
        {u"editor"_qs,
         {640, 1180},
         30,
         [](WindowFixture&, LibraryWindow& model, QQuickWindow&) {
             openFirst(model);
             model.editRecipe();
         }},
        {u"editor-ingredients"_qs,
         {1180},
         30,
         [](WindowFixture&, LibraryWindow& model, QQuickWindow& window) {
             openFirst(model);
             model.editRecipe();
             wait(400);
             if (auto* const form = window.findChild<QObject*>(u"editorForm"_qs))
                 form->setProperty("contentY", 560);
         }},
        {u"editor-new"_qs,
         {1180},
         30,
         [](WindowFixture&, LibraryWindow& model, QQuickWindow&) { model.createRecipe(); }},
        {u"review"_qs,
         {1180},
         30,
         [](WindowFixture& fixture, LibraryWindow& model, QQuickWindow&) {
             fixture.imported = fullRecipe();
             fixture.imported->imageData.reset();
             for (const QString& file :
                  {u"file:///tmp/a.pdf"_qs, u"file:///tmp/b.pdf"_qs, u"file:///tmp/c.pdf"_qs})
                 model.drop({QUrl(file)}, {});
         }},
        {u"import-sheet"_qs,
         {640, 1180},
         30,
         [](WindowFixture&, LibraryWindow&, QQuickWindow& window) { call(window, "importSheet", "open"); }},
        {u"shortcuts"_qs,
         {1180},
         30,
         [](WindowFixture&, LibraryWindow&, QQuickWindow& window) { call(window, "shortcutSheet", "open"); }},
        {u"failure"_qs,
         {1180},
         30,
         [](WindowFixture&, LibraryWindow& model, QQuickWindow&) {
             model.drop({QUrl(u"https://example.org/nothing"_qs)}, {});
         }},
    };
}

/// The main scenes again from right to left, and with large text.
QList<Scene> scenes()
{
    QList<Scene> all = plainScenes();
    for (Scene scene : plainScenes()) {
        if (!QStringList(
                 {u"library"_qs, u"recipe"_qs, u"editor"_qs, u"editor-ingredients"_qs, u"import-sheet"_qs})
                 .contains(scene.name))
            continue;
        const QString name = scene.name;
        scene.widths = {640, 1180};
        scene.name = name + u"-mirrored"_qs;
        scene.isMirrored = true;
        all.append(scene);
        scene.name = name + u"-large"_qs;
        scene.isMirrored = false;
        scene.textScale = 1.5;
        all.append(scene);
    }
    return all;
}

struct CookScene
{
    QString name;
    QList<int> widths;
    /// None: "Recipe Not Found".
    std::optional<RecipeDraft> recipe;
    int stop = 0;
    bool hasTimers = false;
};

QList<CookScene> cookScenes()
{
    RecipeDraft withPhoto = fullRecipe();
    withPhoto.imageData = toJpeg(drawnDish(3, {1200, 900}));
    return {
        {u"cook"_qs, {640, 1180, 1920}, withPhoto, 1, true},
        {u"cook-no-photo"_qs, {1180}, fullRecipe(), 0, false},
        {u"cook-not-found"_qs, {900}, std::nullopt},
    };
}

void save(QQuickWindow& window, const QDir& out, const QString& scene, int width, bool dark)
{
    const QString file = u"%1-%2-%3.png"_qs.arg(scene).arg(width).arg(dark ? u"dark"_qs : u"light"_qs);
    window.grabWindow().save(out.filePath(file));
    std::printf("%s\n", qPrintable(file));
}

QSize sizeFor(int width)
{
    return {width, width > 1300 ? 1080 : width < 700 ? 720 : 820};
}

void shoot(const CookScene& scene, int width, bool dark, const QList<QByteArray>& photos, const QDir& out)
{
    WindowFixture fixture;
    fixture.appearance.setDark(dark);
    fixture.appearance.setMotionReduced(true);
    QUuid id = QUuid::createUuid();
    if (scene.recipe) {
        RecipeDraft draft = *scene.recipe;
        if (draft.imageData && !photos.isEmpty())
            draft.imageData = photos.first();
        id = fixture.library.add(draft)->id();
    }
    // The theme follows the library window's appearance.
    const auto model = fixture.makeWindow();
    QQmlEngine engine;
    fixture.prepare(engine);
    QQmlComponent theme(&engine, mainWindowUrl());
    const std::unique_ptr<QObject> library(
        theme.createWithInitialProperties(fixture.windowProperties(*model)));
    CookWindows windows({engine, fixture.library.store(), fixture.photos, fixture.timers, {}});
    QQuickWindow* const window = windows.open(id);
    window->resize(sizeFor(width));
    wait(200);
    auto* const cook = window->property("cook").value<CookModeViewModel*>();
    cook->select(scene.stop);
    cook->ingredients()->toggle(0);
    if (scene.hasTimers) {
        fixture.timers.start(60, u"12–15 minutes"_qs, cook->title());
        fixture.now = fixture.now.addSecs(61);
        fixture.timers.start(6127, u"2 hours"_qs, cook->title());
        fixture.timers.refresh();
    }
    wait(900);
    save(*window, out, scene.name, width, dark);
}

void shoot(const Scene& scene, int width, bool dark, const QList<QByteArray>& photos, const QDir& out)
{
    WindowFixture fixture;
    fixture.appearance.setDark(dark);
    fixture.appearance.setMotionReduced(true);
    fixture.appearance.setTextScale(scene.textScale);
    QGuiApplication::setLayoutDirection(scene.isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
    fixture.flags.setFlag(u"didSeedSampleRecipes"_qs, true);
    fill(fixture.library, scene.recipes, photos);
    if (scene.seed)
        scene.seed(fixture);
    if (!photos.isEmpty() && fixture.library.store().count() == 1 &&
        fixture.library.store().at(0)->hasImage() && !scene.name.contains(u"portrait"_qs))
        fixture.library.store().at(0)->setImageData(photos.first());
    const auto model = fixture.makeWindow();
    QQmlEngine engine;
    fixture.prepare(engine);
    QQmlComponent component(&engine, mainWindowUrl());
    if (!component.isReady())
        qFatal("%s", qPrintable(component.errorString()));
    const std::unique_ptr<QObject> root(
        component.createWithInitialProperties(fixture.windowProperties(*model)));
    auto* const window = qobject_cast<QQuickWindow*>(root.get());
    if (!window)
        qFatal("%s", qPrintable(component.errorString()));
    window->resize(sizeFor(width));
    window->show();
    wait(200);
    if (scene.arrange)
        scene.arrange(fixture, *model, *window);
    wait(900);
    save(*window, out, scene.name, width, dark);
    fixture.isHeld = false;
    wait(20);
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption photosOption(u"photos"_qs, u"Photos to use."_qs, u"folder"_qs);
    const QCommandLineOption onlyOption(u"only"_qs, u"Scenes whose name contains this."_qs, u"text"_qs);
    parser.addOptions({photosOption, onlyOption});
    parser.addPositionalArgument(u"out"_qs, u"Folder to write to."_qs);
    parser.addHelpOption();
    parser.process(application);
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(2);
    const QDir out(parser.positionalArguments().first());
    out.mkpath(u"."_qs);
    QList<QByteArray> photos;
    if (parser.isSet(photosOption)) {
        const QDir folder(parser.value(photosOption));
        for (const QString& name :
             folder.entryList({u"*.jpg"_qs, u"*.jpeg"_qs, u"*.png"_qs, u"*.webp"_qs}, QDir::Files))
            if (const QImage image(folder.filePath(name)); !image.isNull() && photos.size() < 24)
                photos.append(toJpeg(image));
    }
    const auto shootAll = [&](const auto& all) {
        for (const auto& scene : all)
            for (const int width : scene.widths)
                for (const bool dark : {false, true})
                    if (scene.name.contains(parser.value(onlyOption)))
                        shoot(scene, width, dark, photos, out);
    };
    shootAll(scenes());
    shootAll(cookScenes());
    return 0;
}
