#include "material/Typesetter.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>

#include <iostream>

// Sets recipes in many page layouts, as PDF and as pictures, with what a reader of the page should find.

namespace {

using namespace ovrin::material;

void writePdf(const Typesetter& pages, const Layout& layout, const QString& path)
{
    QPdfWriter writer(path);
    writer.setResolution(720);
    writer.setPageSize(QPageSize(layout.page, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setPageMargins({});
    QPainter painter(&writer);
    for (int page = 0; page < pages.pageCount(); ++page) {
        if (page > 0) {
            writer.newPage();
        }
        pages.draw(painter, page);
    }
}

void writePicture(const Typesetter& pages, const Layout& layout, const QString& path)
{
    constexpr double pixelsPerPoint = 2.5;
    QImage image((layout.page * pixelsPerPoint).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(pixelsPerPoint / 10, pixelsPerPoint / 10);
    pages.draw(painter, 0);
    painter.end();
    image.save(path);
}

void set(const Recipe& recipe, const QString& name, const QDir& folder, const QString& only, bool pictures)
{
    for (const Layout& layout : layouts()) {
        if (!only.isEmpty() && layout.name != only) {
            continue;
        }
        const QString group = layout.heldOut ? QStringLiteral("held-out") : QStringLiteral("known");
        const QString base = folder.filePath(group + u'/' + name + QStringLiteral("__") + layout.name);
        const Typesetter pages(recipe, layout);
        writePdf(pages, layout, base + QStringLiteral(".pdf"));
        if (pictures) {
            writePicture(pages, layout, base + QStringLiteral(".png"));
        }
        QFile truth(base + QStringLiteral(".json"));
        if (truth.open(QIODevice::WriteOnly)) {
            truth.write(QJsonDocument(pages.truth()).toJson());
        }
    }
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
    const QDir target(parser.positionalArguments()[1]);
    target.mkpath(QStringLiteral("known"));
    target.mkpath(QStringLiteral("held-out"));
    QDirIterator files(parser.positionalArguments()[0], {QStringLiteral("*.md")});
    int count = 0;
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly)) {
            continue;
        }
        if (const auto recipe = readMarkdown(QString::fromUtf8(file.readAll()))) {
            set(*recipe, files.fileInfo().completeBaseName(), target, parser.value(layout),
                parser.isSet(pictures));
            ++count;
        }
    }
    std::cout << count << " recipes set\n";
    return count > 0 ? 0 : 1;
}
