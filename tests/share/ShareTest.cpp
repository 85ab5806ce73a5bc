#include "support/InboxTest.h"
#include "support/LocalServer.h"
#include "support/Photo.h"

#include <gtest/gtest.h>

using namespace ovrin;

namespace {

class ShareTest : public InboxTest
{
protected:
    Answer share(const QStringList& arguments, const QByteArray& input = {})
    {
        return start(QStringLiteral(OVRIN_SHARE), arguments, input);
    }
};

QByteArray page(const QByteArray& instructions)
{
    return R"(<!DOCTYPE html><title>t</title><script type="application/ld+json">{"@type": "Recipe",
        "name": "Onion Soup", "image": "/soup.png", "recipeIngredient": ["2 onions, sliced", "1 l stock"],
        "recipeInstructions": )" +
           instructions + "}</script>";
}

TEST_F(ShareTest, LeavesAPageWithItsPhotoInTheInbox)
{
    LocalServer server;
    server.serve("/soup", page(R"(["Slice.", "Cook."])"));
    server.serve("/soup.png", photo());
    const Answer answer = share({server.url("/soup").toString()});
    ASSERT_EQ(answer.status, 0) << answer.err.toStdString();

    const auto drafts = inbox();
    ASSERT_EQ(drafts.size(), 1);
    EXPECT_TRUE(drafts.first().isComplete());
    EXPECT_EQ(drafts.first().sourceURL, server.url("/soup"));
    ASSERT_TRUE(drafts.first().imageData);
    EXPECT_TRUE(drafts.first().imageData->startsWith("\xff\xd8"));
    EXPECT_EQ(DraftFolder::read(answer.out.trimmed()), drafts.first());
    // Nothing half-written stays behind.
    EXPECT_EQ(inboxFiles().size(), 1);
}

TEST_F(ShareTest, TakesFromStandardInputWhateverHoldsARecipe)
{
    const QByteArray draft =
        R"({"title":"Toast","author":"","publisher":"","summary":"","yield":"","ingredients":["1 slice bread"],
        "sourceURL":"https://food.example/toast",
        "steps":[{"id":"6D0B5C0E-0A0E-4A53-9B8E-5A1F3A1F7C11","paragraphs":["Toast it."]}]})";
    LocalServer server;
    server.serve("/soup", page(R"("Cook.")"));
    const QString address = QStringLiteral("https://food.example/soup");
    struct Row
    {
        const char* what;
        QByteArray input;
        QStringList options;
        int status;
        QString title;
        std::optional<QUrl> source;
    };
    const QList<Row> rows = {
        {"draft", draft, {}, 0, QStringLiteral("Toast"), QUrl(QStringLiteral("https://food.example/toast"))},
        {"page",
         "\xef\xbb\xbf\n" + page(R"("Cook.")"),
         {QStringLiteral("--page-url"), address},
         0,
         QStringLiteral("Onion Soup"),
         QUrl(address)},
        {"page of unknown address", page(R"("Cook.")"), {}, 3, QStringLiteral("Onion Soup"), std::nullopt},
        {"incomplete page",
         page("[]"),
         {QStringLiteral("--page-url"), address},
         3,
         QStringLiteral("Onion Soup"),
         QUrl(address)},
        {"address",
         server.url("/soup").toEncoded() + '\n',
         {},
         0,
         QStringLiteral("Onion Soup"),
         server.url("/soup")},
        {"text",
         "Onion Soup\n\nIngredients\n2 onions\n1 l stock\n\nDirections\nSlice and cook.\n",
         {},
         3,
         QStringLiteral("Onion Soup"),
         std::nullopt},
    };
    qsizetype left = 0;
    for (const Row& row : rows) {
        const Answer answer =
            share(QStringList{QStringLiteral("-"), QStringLiteral("--no-photo")} + row.options, row.input);
        EXPECT_EQ(answer.status, row.status) << row.what << ": " << answer.err.toStdString();
        const auto drafts = inbox();
        ASSERT_EQ(drafts.size(), ++left) << row.what;
        EXPECT_EQ(drafts.last().title, row.title) << row.what;
        EXPECT_EQ(drafts.last().sourceURL, row.source) << row.what;
        EXPECT_FALSE(drafts.last().ingredients.isEmpty()) << row.what;
    }
}

TEST_F(ShareTest, TakesFilesAsTheCommandLineDoes)
{
    const QString saved = write(QStringLiteral("saved.html"), page(R"("Cook.")"));
    EXPECT_EQ(
        share({saved, QStringLiteral("--page-url=https://food.example/soup"), QStringLiteral("--no-photo")})
            .status,
        0);
    // What it has left can be passed on.
    const QString left = DraftFolder(inboxPath()).files(DraftFolder::Order::ByName).value(0);
    EXPECT_EQ(share({left}).status, 0);
    ASSERT_EQ(inbox().size(), 2);
    EXPECT_EQ(inbox().at(0), inbox().at(1));

    const QString notes =
        write(QStringLiteral("notes.txt"), "Toast\n\nIngredients\n1 slice bread\n\nDirections\nToast it.\n");
    EXPECT_EQ(share({notes}).status, 3);
    EXPECT_EQ(inbox().value(2).ingredients, QStringList{QStringLiteral("1 slice bread")});
}

TEST_F(ShareTest, LeavesNothingBehindWhenItFails)
{
    LocalServer server;
    struct Row
    {
        QStringList arguments;
        QByteArray input;
        int status;
        QString message;
    };
    const QString text = write(QStringLiteral("empty.txt"), " \n");
    const QString table = write(QStringLiteral("table.csv"), "onion,2\n");
    const QList<Row> rows = {
        {{server.url("/nowhere").toString(), QStringLiteral("--static")},
         {},
         1,
         QStringLiteral("The site responded with an error (HTTP 404).\n")},
        {{QStringLiteral("-")}, "<p>nothing here", 1, QStringLiteral("No recipe was found on this page.\n")},
        {{QStringLiteral("-")}, " \n", 1, QStringLiteral("No text could be read from this file.\n")},
        {{QStringLiteral("-")},
         R"({"title": 1})",
         1,
         QStringLiteral("Standard input is not a recipe draft.\n")},
        {{table}, {}, 1, QStringLiteral("Ovrin can import recipes from web pages, PDFs and images.\n")},
        {{text}, {}, 1, QStringLiteral("No text could be read from this file.\n")},
        {{QStringLiteral("nofile")},
         {},
         1,
         QStringLiteral("“nofile” is neither a file nor a web address.\n")},
        {{}, {}, 2, {}},
        {{QStringLiteral("-"), QStringLiteral("-")}, {}, 2, {}},
        {{QStringLiteral("--render"), QStringLiteral("-")}, {}, 2, {}},
    };
    for (const Row& row : rows) {
        const Answer answer = share(row.arguments, row.input);
        EXPECT_EQ(answer.status, row.status) << answer.err.toStdString();
        EXPECT_FALSE(answer.err.isEmpty());
        EXPECT_EQ(answer.out, QString());
        if (!row.message.isEmpty()) {
            EXPECT_EQ(answer.err, row.message);
        }
        EXPECT_FALSE(QFile::exists(group()));
    }

    // Where the inbox should be lies something else.
    write(QStringLiteral(OVRIN_APP_GROUP), {});
    const Answer answer = share({QStringLiteral("-"), QStringLiteral("--no-photo")}, page(R"("Cook.")"));
    EXPECT_EQ(answer.status, 1);
    EXPECT_TRUE(answer.err.contains(QStringLiteral("inbox"))) << answer.err.toStdString();

    EXPECT_EQ(share({QStringLiteral("--version")}).out, QStringLiteral("ovrin-share " OVRIN_VERSION "\n"));
}

} // namespace
