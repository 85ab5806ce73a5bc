#include "helpers/document/Pdfs.h"
#include "support/LocalServer.h"
#include "support/ProgramTest.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace ovrin;

namespace {

/// The command line with a library folder of the test's own.
class CommandLineTest : public ProgramTest
{
protected:
    Answer run(const QStringList& arguments, const QByteArray& input = {})
    {
        return start(QStringLiteral(OVRIN_CLI), arguments, input);
    }
};

QByteArray page(const QByteArray& instructions)
{
    return R"(<title>t</title><script type="application/ld+json">{"@type": "Recipe", "name": "Onion Soup",
        "recipeIngredient": ["2 onions, sliced", "1 l stock"], "recipeInstructions": )" +
           instructions + "}</script>";
}

TEST_F(CommandLineTest, ShowsWhatTheAnalysersMakeOfATextLineByLine)
{
    const QByteArray draft =
        R"({"title":"","author":"","publisher":"","summary":"","yield":"","ingredients":["1 onion"],
        "steps":[{"id":"6D0B5C0E-0A0E-4A53-9B8E-5A1F3A1F7C11","paragraphs":["Fry the onion 5 minutes.","Rest."]}]})";
    struct Row
    {
        QStringList arguments;
        QByteArray input;
        QString output;
    };
    for (
        const Row& row : {
            Row{{QStringLiteral("scale"), QStringLiteral("2")},
                "1 1/2 cups flour\r\n\nSalt\n2-3 cloves",
                QStringLiteral("3 cups flour\n\nSalt\n4-6 cloves\n")},
            Row{{QStringLiteral("value")}, "1 ½\n3/0\n0.75\n", QStringLiteral("1.5\n\n0.75\n")},
            Row{{QStringLiteral("minutes")}, "PT1H30M\nPT45S\n", QStringLiteral("90\n\n")},
            Row{{QStringLiteral("clean")},
                "<p>Salt &amp; pepper<br>&frac12; cup</p>",
                QStringLiteral("Salt & pepper\n½ cup\n")},
            Row{{QStringLiteral("clean")}, "<p> </p>", QString()},
            Row{{QStringLiteral("segments"), QStringLiteral("-")},
                draft,
                QStringLiteral(
                    R"([[{"kind":"plain","text":"Fry the "},{"ingredientIndex":0,"kind":"ingredient","text":"onion"},)"
                    R"({"kind":"plain","text":" "},{"kind":"timer","seconds":300,"text":"5 minutes"},)"
                    R"({"kind":"plain","text":"."}],[{"kind":"plain","text":"Rest."}]])"
                    "\n")},
        }) {
        const Answer answer = run(row.arguments, row.input);
        EXPECT_EQ(answer.status, 0) << answer.err.toStdString();
        EXPECT_EQ(answer.out, row.output);
    }
    locale = QStringLiteral("de_DE.UTF-8");
    EXPECT_EQ(run({QStringLiteral("scale"), QStringLiteral("2")}, "0.1 cup\n").out,
              QStringLiteral("0,2 cup\n"));
}

TEST_F(CommandLineTest, KeepsALibraryFromAddingToRemoving)
{
    const QString file = write(QStringLiteral("page.html"), page(R"("Cook 20 minutes.")"));
    const Answer draft = run({QStringLiteral("draft"), file, QStringLiteral("--page-url"),
                              QStringLiteral("https://food.example/soup"), QStringLiteral("--no-photo")});
    ASSERT_EQ(draft.status, 0) << draft.err.toStdString();
    const Answer added =
        run({QStringLiteral("library"), QStringLiteral("add"), QStringLiteral("-")}, draft.out.toUtf8());
    ASSERT_EQ(added.status, 0) << added.err.toStdString();
    const QString id = added.out.trimmed();
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"))
                    .match(id)
                    .hasMatch());

    EXPECT_EQ(run({QStringLiteral("library"), QStringLiteral("list")}).out,
              id + QStringLiteral(" Onion Soup\n"));
    EXPECT_EQ(run({QStringLiteral("library"), QStringLiteral("list"), QStringLiteral("--filter=recent"),
                   QStringLiteral("--search"), QStringLiteral("ÓNION")})
                  .out,
              id + QStringLiteral(" Onion Soup\n"));
    EXPECT_EQ(run({QStringLiteral("library"), QStringLiteral("list"), QStringLiteral("--filter"),
                   QStringLiteral("saved")})
                  .out,
              QString());

    const Answer shown = run({QStringLiteral("library"), QStringLiteral("show"), id.toLower(),
                              QStringLiteral("--scale"), QStringLiteral("1.5")});
    EXPECT_EQ(
        shown.out,
        QStringLiteral(
            "Onion Soup\nfood.example\n\nINGREDIENTS\n• 3 onions, sliced\n• 1½ l stock\n\nDIRECTIONS\n\n"
            "Step 1\nCook 20 minutes.\n\nhttps://food.example/soup\n"));
    const auto json = QJsonDocument::fromJson(run({QStringLiteral("library"), QStringLiteral("show"), id,
                                                   QStringLiteral("--json")})
                                                  .out.toUtf8())
                          .object();
    EXPECT_EQ(json.value(QLatin1String("id")).toString(), id);
    EXPECT_EQ(json.value(QLatin1String("stepsData")).toArray().size(), 1);
    EXPECT_FALSE(json.contains(QLatin1String("imageData")));

    const QString tasks =
        run({QStringLiteral("--store"), home.filePath(QStringLiteral("ovrin")), QStringLiteral("library"),
             QStringLiteral("groceries"), id, QStringLiteral("--scale=2")})
            .out;
    EXPECT_TRUE(tasks.contains(QStringLiteral("SUMMARY:4 onions\\, sliced\r\n"))) << tasks.toStdString();

    const Answer sound = run({QStringLiteral("library"), QStringLiteral("check")});
    EXPECT_EQ(sound.status, 0) << sound.out.toStdString();
    EXPECT_EQ(sound.out, QString());
    EXPECT_EQ(run({QStringLiteral("library"), QStringLiteral("remove"), id}).status, 0);
    EXPECT_EQ(run({QStringLiteral("library"), QStringLiteral("list")}).out, QString());
    const Answer gone = run({QStringLiteral("library"), QStringLiteral("show"), id});
    EXPECT_EQ(gone.status, 1);
    EXPECT_EQ(gone.out, QString());
}

TEST_F(CommandLineTest, ImportsACompletePageOnceAndLeavesAnIncompleteOneForReview)
{
    LocalServer server;
    server.serve("/soup", page(R"(["Slice.", "Cook."])"));
    server.serve("/half", page("[]"));
    const QString soup = server.url("/soup").toString();
    const Answer first = run({QStringLiteral("library"), QStringLiteral("import"), soup});
    ASSERT_EQ(first.status, 0) << first.err.toStdString();
    const auto requests = server.requests().size();
    EXPECT_EQ(run({QStringLiteral("library"), QStringLiteral("import"), soup}).out, first.out);
    EXPECT_EQ(server.requests().size(), requests);

    const Answer half =
        run({QStringLiteral("library"), QStringLiteral("import"), server.url("/half").toString()});
    EXPECT_EQ(half.status, 3);
    EXPECT_EQ(QJsonDocument::fromJson(half.out.toUtf8()).object().value(QLatin1String("title")).toString(),
              QStringLiteral("Onion Soup"));
    EXPECT_EQ(
        run({QStringLiteral("draft"), QStringLiteral("--static"), server.url("/half").toString()}).status, 3);

    const Answer missing =
        run({QStringLiteral("library"), QStringLiteral("import"), server.url("/nowhere").toString()});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, QStringLiteral("The site responded with an error (HTTP 404).\n"));
    EXPECT_EQ(run({QStringLiteral("library"), QStringLiteral("list")}).out.count(u'\n'), 1);
}

TEST_F(CommandLineTest, AsksTheLanguageModelOfTheSettingsAndNoneElsewhere)
{
    const QString document = write(QStringLiteral("tea.pdf"),
                                   Pdfs::pages({Pdfs::textAt(60, 700, "A drink of hot water and leaves") +
                                                Pdfs::textAt(60, 680, "water, one cup or so")}));
    const auto drafted = [&](const QString& address) {
        write(QStringLiteral("ovrin/ovrin.conf"), "[languageModel]\naddress=" + address.toUtf8() + '\n');
        return run({QStringLiteral("draft"), document});
    };
    ASSERT_TRUE(QDir(home.path()).mkdir(QStringLiteral("ovrin")));
    LocalServer server;
    server.serve("/v1/models", R"({"data": [{"id": "small"}]})");
    const QString recipe = QStringLiteral(
        R"({"title": "Tea", "source": "", "author": "", "summary": "", "yield": "", "totalMinutes": 0,)"
        R"( "ingredients": ["water, one cup"], "steps": [{"paragraphs": ["1. Boil."]}]})");
    const QJsonObject message{{QStringLiteral("content"), recipe}};
    const QJsonObject choice{{QStringLiteral("message"), message}};
    server.serve("/v1/chat/completions",
                 QJsonDocument(QJsonObject{{QStringLiteral("choices"), QJsonArray{choice}}}).toJson());
    const Answer asked = drafted(server.url({}).toString());
    EXPECT_THAT(asked.out.toStdString(), testing::HasSubstr(R"("title":"Tea")"));
    EXPECT_EQ(asked.err, QString());
    const Answer refused = drafted(QStringLiteral("http://models.example:8080"));
    EXPECT_THAT(refused.err.toStdString(),
                testing::HasSubstr("The language model at “http://models.example:8080” is not "
                                   "asked, because it is not on this computer."));
    EXPECT_THAT(refused.out.toStdString(), testing::Not(testing::HasSubstr("Tea\"")));
}

TEST_F(CommandLineTest, AnswersABatchInOrder)
{
    const QString good = write(QStringLiteral("good.html"), page(R"("Cook.")"));
    const QString bare = write(QStringLiteral("bare.html"), "<p>nothing here");
    QByteArray request;
    for (const QString& path : {good, bare, QStringLiteral("/nonexistent/x.html")})
        request +=
            QJsonDocument(QJsonObject{{QStringLiteral("path"), path},
                                      {QStringLiteral("url"), QStringLiteral("https://www.food.example/")}})
                .toJson(QJsonDocument::Compact) +
            '\n';
    const Answer answer = run({QStringLiteral("draft"), QStringLiteral("--batch")}, request + "not json\n");
    const QStringList lines = answer.out.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(answer.status, 1);
    const auto at = [&](int i) { return QJsonDocument::fromJson(lines.at(i).toUtf8()).object(); };
    EXPECT_EQ(at(0).value(QLatin1String("draft")).toObject().value(QLatin1String("publisher")).toString(),
              QStringLiteral("food.example"));
    EXPECT_EQ(at(1).value(QLatin1String("error")).toString(),
              QStringLiteral("No recipe was found on this page."));
    EXPECT_EQ(at(1).value(QLatin1String("path")).toString(), bare);
    EXPECT_TRUE(at(2).contains(QLatin1String("error")) && at(3).contains(QLatin1String("error")));
}

TEST_F(CommandLineTest, ListsWhatIsWrongWithALibrary)
{
    const QByteArray draft =
        R"({"title":"Toast","author":"","publisher":"","summary":"","yield":"","ingredients":[],"steps":[]})";
    ASSERT_EQ(run({QStringLiteral("library"), QStringLiteral("add"), QStringLiteral("-")}, draft).status, 0);
    QProcess sqlite;
    sqlite.start(
        QStringLiteral("python3"),
        {QStringLiteral("-c"),
         QStringLiteral("import sqlite3, sys; db = sqlite3.connect(sys.argv[1]); "
                        "db.execute(\"UPDATE Recipe SET stepsData = CAST('[{' AS BLOB)\"); db.commit()"),
         home.filePath(QStringLiteral("ovrin/Library.sqlite"))});
    ASSERT_TRUE(sqlite.waitForFinished() && sqlite.exitCode() == 0)
        << sqlite.readAllStandardError().constData();
    const Answer answer = run({QStringLiteral("library"), QStringLiteral("check")});
    EXPECT_EQ(answer.status, 1);
    EXPECT_TRUE(answer.out.contains(QStringLiteral("Toast"))) << answer.out.toStdString();
}

TEST_F(CommandLineTest, TellsWrongUsageFromFailure)
{
    const QString notADraft = write(QStringLiteral("draft.json"), "{\"title\": 1}");
    struct Row
    {
        const char* arguments;
        int status;
    };
    for (const auto& [arguments, status] :
         {Row{"", 2}, Row{"cook", 2}, Row{"scale", 2}, Row{"scale two", 2},
          Row{"library list --filter old", 2}, Row{"library show", 2}, Row{"library show 12", 2},
          Row{"value --fast", 2}, Row{"draft a b", 2},
          Row{"library groceries 6D0B5C0E-0A0E-4A53-9B8E-5A1F3A1F7C11", 1}, Row{"draft missing.html", 1},
          Row{"lines missing.pdf", 1}, Row{"draft ./run", 1}, Row{"library add missing.json", 1},
          Row{"--help", 0}, Row{"library list --help", 0}, Row{"--version", 0}}) {
        const Answer answer = run(QString::fromLatin1(arguments).split(u' ', Qt::SkipEmptyParts));
        EXPECT_EQ(answer.status, status) << arguments << answer.err.toStdString();
        EXPECT_EQ(answer.err.isEmpty(), status == 0) << arguments;
        EXPECT_EQ(answer.out.isEmpty(), status != 0) << arguments;
    }
    EXPECT_EQ(run({QStringLiteral("library"), QStringLiteral("add"), notADraft}).status, 1);
    const Answer closed =
        run({QStringLiteral("library"), QStringLiteral("list"), QStringLiteral("--store"), notADraft});
    EXPECT_EQ(closed.status, 1);
    EXPECT_TRUE(closed.err.startsWith(QStringLiteral("Couldn't open the recipe library: ")))
        << closed.err.toStdString();
}

} // namespace
