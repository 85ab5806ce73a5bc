#include "cli/DraftVerb.h"

#include "cli/Sources.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace ovrin::cli {

namespace {

/// One line of a batch: the draft of a saved page, or why there is none.
QByteArray answerTo(const QByteArray& request, bool& failed)
{
    // The draft is spliced in as it is written, so that a batch costs no second reading of it.
    const QJsonObject wanted = QJsonDocument::fromJson(request).object();
    const QString path = wanted.value(QLatin1String("path")).toString();
    QByteArray line =
        QJsonDocument(QJsonObject{{QStringLiteral("path"), path}}).toJson(QJsonDocument::Compact);
    line.chop(1);
    try {
        if (path.isEmpty())
            throw Failure(QStringLiteral("A batch line is an object with “path” and “url”."));
        line += ",\"draft\":" +
                draftOfSavedPage(path, QUrl(wanted.value(QLatin1String("url")).toString())).toJson();
    } catch (const Failure& failure) {
        failed = true;
        QByteArray error =
            QJsonDocument(QJsonObject{{QStringLiteral("error"), QString::fromUtf8(failure.what())}})
                .toJson(QJsonDocument::Compact);
        line += ',' + error.mid(1, error.size() - 2);
    }
    return line + '}';
}

int batch(const Console& console)
{
    bool failed = false;
    while (!console.in.atEnd()) {
        const QByteArray request = console.in.readLine();
        if (!request.trimmed().isEmpty())
            console.print(answerTo(request, failed));
    }
    return failed ? Failed : Done;
}

int draft(const Arguments& arguments, const Console& console)
{
    if (arguments.has(QStringLiteral("batch")))
        return batch(console);
    const SourceOptions options{.rendersPages = !arguments.has(QStringLiteral("static")),
                                .fetchesPhotos = !arguments.has(QStringLiteral("no-photo")),
                                .pageUrl = arguments.value(QStringLiteral("page-url"))};
    const Imported imported = importSource(arguments.required(0, QStringLiteral("SOURCE")), options, console);
    console.print(imported.draft.toJson());
    return imported.needsReview ? NeedsReview : Done;
}

/// The lines that a document's recipe is read from.
int lines(const Arguments& arguments, const Console& console)
{
    console.print(TextLines::toJson(linesOf(arguments.required(0, QStringLiteral("FILE")))));
    return Done;
}

} // namespace

QList<Verb> draftVerbs()
{
    const QList<Option> options = {
        {QStringLiteral("page-url"), QStringLiteral("ADDRESS"),
         QStringLiteral("where a saved page came from")},
        {QStringLiteral("static"), {}, QStringLiteral("never render the page")},
        {QStringLiteral("no-photo"), {}, QStringLiteral("fetch and cut no photo")},
        {QStringLiteral("batch"),
         {},
         QStringLiteral("read {\"path\", \"url\"} lines of saved pages instead")},
    };
    return {{QStringLiteral("draft"), QStringLiteral("draft SOURCE | draft --batch"),
             QStringLiteral("Reads SOURCE, a web address, a document or a saved .html page with its\n"
                            "--page-url, and prints the draft of its recipe as JSON."),
             options, 1, draft},
            {QStringLiteral("lines"),
             QStringLiteral("lines FILE"),
             QStringLiteral("Prints the lines of a document in reading order as JSON."),
             {},
             1,
             lines}};
}

} // namespace ovrin::cli
