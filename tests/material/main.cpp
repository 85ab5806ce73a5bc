#include "material/BookPages.h"
#include "material/HeldOutThree.h"
#include "material/HeldOutTwo.h"
#include "material/Typesetter.h"
#include "material/Words.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>

#include <iostream>

// Sets recipes in many page layouts, as PDF and as pictures, with what a reader of the page should find.

namespace {

using namespace ovrin::material;

void writePdf(const Sheet& pages, const QString& path)
{
    QPdfWriter writer(path);
    writer.setResolution(720);
    writer.setPageSize(QPageSize(pages.style().page, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setPageMargins({});
    QPainter painter(&writer);
    for (int page = 0; page < pages.pageCount(); ++page) {
        if (page > 0) {
            writer.newPage();
        }
        pages.draw(painter, page);
    }
}

void writePicture(const Sheet& pages, const QString& path)
{
    constexpr double pixelsPerPoint = 2.5;
    QImage image((pages.style().page * pixelsPerPoint).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(pixelsPerPoint / 10, pixelsPerPoint / 10);
    pages.draw(painter, 0);
    painter.end();
    image.save(path);
}

struct Target
{
    QDir folder;
    QString onlyLayout;
    bool pictures;
};

void write(const Sheet& pages, const Target& target, const QString& group, const QString& name)
{
    const QString base = target.folder.filePath(group + u'/' + name);
    writePdf(pages, base + QStringLiteral(".pdf"));
    if (target.pictures) {
        writePicture(pages, base + QStringLiteral(".png"));
    }
    QFile truth(base + QStringLiteral(".json"));
    if (truth.open(QIODevice::WriteOnly)) {
        truth.write(QJsonDocument(pages.truth()).toJson());
    }
}

struct Named
{
    QString name;
    Recipe recipe;
};

void set(const Named& one, const Recipe* next, const Target& target)
{
    const auto wanted = [&](const QString& layout) {
        return target.onlyLayout.isEmpty() || layout == target.onlyLayout;
    };
    const QString join = QStringLiteral("__");
    for (const Layout& layout : layouts()) {
        if (wanted(layout.name)) {
            write(Typesetter(one.recipe, layout), target,
                  layout.heldOut ? QStringLiteral("held-out") : QStringLiteral("known"),
                  one.name + join + layout.name);
        }
    }
    for (const auto& [group, pages] : {std::pair(QStringLiteral("known"), &bookPages()),
                                       {QStringLiteral("held-out-two"), &heldOutTwo()},
                                       {QStringLiteral("held-out-three"), &heldOutThree()}}) {
        for (const SetPage& page : *pages) {
            if (wanted(page.name)) {
                Sheet sheet(page.style);
                page.set(sheet, one.recipe, next);
                write(sheet, target, group, one.name + join + page.name);
            }
        }
    }
}

QJsonObject wordsJson(const Words& words)
{
    return {{QStringLiteral("ingredients"), words.ingredients},
            {QStringLiteral("directions"), words.directions},
            {QStringLiteral("otherIngredients"), words.otherIngredients},
            {QStringLiteral("otherDirections"), words.otherDirections},
            {QStringLiteral("notes"), words.notes},
            {QStringLiteral("nutrition"), words.nutrition},
            {QStringLiteral("prep"), words.prep},
            {QStringLiteral("cook"), words.cook},
            {QStringLiteral("yield"), words.yield},
            {QStringLiteral("serves"), words.serves},
            {QStringLiteral("step"), words.step}};
}

/// The recipes and the words around them, for pages that are set by something else.
void writeRecipes(const QList<Named>& recipes, const QString& path)
{
    QJsonArray all;
    for (const auto& [name, recipe] : recipes) {
        all.append(
            QJsonObject{{QStringLiteral("name"), name},
                        {QStringLiteral("title"), recipe.title},
                        {QStringLiteral("author"), recipe.author},
                        {QStringLiteral("intro"), recipe.intro},
                        {QStringLiteral("yield"), recipe.yield},
                        {QStringLiteral("prepTime"), recipe.prepTime},
                        {QStringLiteral("cookTime"), recipe.cookTime},
                        {QStringLiteral("ingredients"), QJsonArray::fromStringList(recipe.ingredients)},
                        {QStringLiteral("steps"), QJsonArray::fromStringList(recipe.steps)},
                        {QStringLiteral("notes"), QJsonArray::fromStringList(recipe.notes)},
                        {QStringLiteral("language"), recipe.language},
                        {QStringLiteral("words"), wordsJson(wordsOf(recipe.language))}});
    }
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(QJsonDocument(all).toJson());
    }
}

/// The recipe after this one that is in the same language.
const Recipe* nextOf(const QList<Named>& recipes, qsizetype index)
{
    for (qsizetype i = 1; i < recipes.size(); ++i) {
        const Recipe& other = recipes[(index + i) % recipes.size()].recipe;
        if (other.language == recipes[index].recipe.language) {
            return &other;
        }
    }
    return nullptr;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Sets recipes in many page layouts."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("recipes"), QStringLiteral("Folder of recipes in Markdown."));
    parser.addPositionalArgument(QStringLiteral("target"), QStringLiteral("Folder to write to."));
    const QCommandLineOption layout(QStringLiteral("layout"), QStringLiteral("Only this layout."),
                                    QStringLiteral("name"));
    const QCommandLineOption pictures(QStringLiteral("pictures"),
                                      QStringLiteral("The first page as a picture too."));
    parser.addOptions({layout, pictures});
    parser.process(application);
    if (parser.positionalArguments().size() != 2) {
        parser.showHelp(2);
    }
    const Target target{parser.positionalArguments()[1], parser.value(layout), parser.isSet(pictures)};
    for (const QString& group : {QStringLiteral("known"), QStringLiteral("held-out"),
                                 QStringLiteral("held-out-two"), QStringLiteral("held-out-three")}) {
        target.folder.mkpath(group);
    }
    QList<Named> recipes;
    const QDir source(parser.positionalArguments()[0]);
    for (const QFileInfo& info : source.entryInfoList({QStringLiteral("*.md")}, QDir::Files, QDir::Name)) {
        QFile file(info.filePath());
        if (file.open(QIODevice::ReadOnly)) {
            if (const auto recipe = readMarkdown(QString::fromUtf8(file.readAll()))) {
                recipes.append({info.completeBaseName(), *recipe});
            }
        }
    }
    writeRecipes(recipes, target.folder.filePath(QStringLiteral("recipes.json")));
    for (qsizetype i = 0; i < recipes.size(); ++i) {
        set(recipes[i], nextOf(recipes, i), target);
    }
    std::cout << recipes.size() << " recipes set\n";
    return recipes.isEmpty() ? 1 : 0;
}
