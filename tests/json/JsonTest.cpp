#include "json/JsonDocument.h"
#include "json/JsonRepair.h"
#include "json/JsonWriter.h"

#include <QtCore/QByteArray>

#include <gtest/gtest.h>

namespace ovrin {
namespace {

using namespace std::string_view_literals;

std::optional<JsonDocument> parse(std::string_view text)
{
    return JsonDocument::parse(QByteArrayView(text.data(), qsizetype(text.size())), 1'000'000);
}

QByteArray nested(int depth)
{
    return QByteArray(depth, '[') + QByteArray(depth, ']');
}

TEST(JsonDocument, WalksATreeWithoutChecks)
{
    const auto document =
        parse(R"({"a": [1, "två", null, true], "b": {"c": "d\u00e9"}, "a b": -2.5, "b": {"c": "last"}})");
    ASSERT_TRUE(document);
    const JsonValue root = document->root();
    EXPECT_EQ(root["a"].size(), 4);
    EXPECT_EQ(root["a"].at(1).string(), QStringLiteral("två"));
    EXPECT_TRUE(root["a"].at(2).isNull());
    EXPECT_EQ(root["a"].at(3).boolean(), true);
    EXPECT_EQ(root["b"]["c"].utf8(), "last");
    EXPECT_EQ(root.keyAt(2), "a b");
    EXPECT_EQ(root["a b"].number(), -2.5);
    EXPECT_TRUE(root["x"]["y"].at(3)["z"].isMissing());
    EXPECT_EQ(root["a"].string(), QString());
    int elements = 0;
    for (const JsonValue value : root["a"]) {
        EXPECT_FALSE(value.isMissing());
        ++elements;
    }
    EXPECT_EQ(elements, 4);
}

TEST(JsonDocument, NumbersReadAsPeopleWriteThem)
{
    struct Case
    {
        const char* json;
        const char* text;
        std::optional<qint64> integer;
    };
    const Case cases[] = {
        {"6", "6", 6},
        {"4.0", "4", 4},
        {"15.0", "15", 15},
        {"1e3", "1000", 1000},
        {"0.50", "0.5", std::nullopt},
        {"-2.25", "-2.25", std::nullopt},
        {"0.1", "0.1", std::nullopt},
        {"-0", "0", 0},
        {"9223372036854775807", "9223372036854775807", 9223372036854775807},
        {"9223372036854775808", "9223372036854775808", std::nullopt},
        {"1e300", "1e+300", std::nullopt},
        {"0.000000000000000000000000000000000e1", "0", 0},
        {"2.5E1", "25", 25},
        {"\"6\"", "", std::nullopt},
        {"true", "", std::nullopt},
    };
    for (const Case& c : cases) {
        const auto document = parse(c.json);
        ASSERT_TRUE(document) << c.json;
        EXPECT_EQ(document->root().numberText().toStdString(), c.text) << c.json;
        EXPECT_EQ(document->root().integer(), c.integer) << c.json;
    }
}

TEST(JsonDocument, RefusesWhatIsNotStrictJson)
{
    const std::string_view broken[] = {
        "",
        " ",
        "{",
        "[1,]",
        "{\"a\":1,}",
        "{a:1}",
        "'a'",
        "01",
        "1.",
        "NaN",
        "\"\t\"",
        "\"\n\"",
        "\"\\x\"",
        "\"\\ud800\"",
        "{} {}",
        "\"\xFF\"",
        "\"\xED\xA0\x80\"",
        "{}\0"sv,
        "{}\0x"sv,
        "\xEF\xBB\xBF{}",
        "/**/{}",
        "[1 2]",
        "1e999",
        "1e-999",
    };
    for (const std::string_view text : broken) {
        EXPECT_FALSE(parse(text)) << text;
    }
    for (const std::string_view text :
         {"null", "\"a\"", " [ ] ", "\"\x7F\"", "\"\\u0000\"", "\"\\ud83c\\udf45\""}) {
        EXPECT_TRUE(parse(text)) << text;
    }
}

TEST(JsonDocument, KeepsItsBounds)
{
    EXPECT_TRUE(parse(nested(512).toStdString()));
    EXPECT_FALSE(parse(nested(513).toStdString()));
    EXPECT_FALSE(parse(nested(100'000).toStdString()));
    QByteArray objects;
    for (int i = 0; i < 513; ++i) {
        objects += "{\"a\":";
    }
    EXPECT_FALSE(JsonDocument::parse(objects + "1" + QByteArray(513, '}'), 1'000'000));
    EXPECT_TRUE(JsonDocument::parse("[1]", 3));
    EXPECT_FALSE(JsonDocument::parse("[1] ", 3));

    QByteArray many = "[0";
    many += QByteArray(",0").repeated(JsonDocument::maxValues);
    EXPECT_FALSE(JsonDocument::parse(many + "]", many.size() + 1));
}

TEST(JsonRepair, MendsWhatTakesNoGuessing)
{
    struct Case
    {
        std::string_view broken;
        std::string_view mended;
    };
    const Case cases[] = {
        {R"({"a": [1, 2, ], })", R"({"a":[1,2]})"},
        {R"({"a": 1};)", R"({"a":1})"},
        {R"({"a": 1} , ; )", R"({"a":1})"},
        {"<![CDATA[ {\"a\": 1} ]]>", R"({"a":1})"},
        {"//<![CDATA[\n{\"a\": 1}\n//]]>", R"({"a":1})"},
        {"// <![CDATA[ {\"a\": 1} // ]]>", R"({"a":1})"},
        {"/*<![CDATA[*/{\"a\": 1}/*]]>*/", R"({"a":1})"},
        {"<!-- {\"a\": 1} -->", R"({"a":1})"},
        {"\xEF\xBB\xBF{\"a\": 1}", R"({"a":1})"},
        {"{\"a\": 1 // one\n}", R"({"a":1})"},
        {"\"a\tb\nc\x01\"", R"("a b c ")"},
        {R"("it\'s 50\% \\ \/ \n")", R"("it's 50% \\ / \n")"},
        {R"("\u00zz \ud83c\udf45 \ud83c \udf45 \u12")", "\"\\\\u00zz \U0001F345 \uFFFD \uFFFD \\\\u12\""},
        {R"(["<!-- kept, ]", "// too",])", R"(["<!-- kept, ]","// too"])"},
    };
    for (const Case& c : cases) {
        EXPECT_FALSE(parse(c.broken)) << c.broken;
        const QByteArray mended = repairedJson(QByteArrayView(c.broken.data(), qsizetype(c.broken.size())));
        const auto got = parse(mended.toStdString());
        const auto want = parse(c.mended);
        ASSERT_TRUE(got) << c.broken << " -> " << mended.toStdString();
        ASSERT_TRUE(want) << c.mended;
        if (want->root().isString()) {
            EXPECT_EQ(got->root().utf8(), want->root().utf8());
        } else {
            EXPECT_EQ(got->root().size(), want->root().size());
        }
    }
    // Here something is missing, and nobody knows what.
    for (const std::string_view text :
         {"[,]", "{,}", "[1,,2]", "{\"a\" 1}", "[1", "\"a", "\"\\", ",", "/* [1]", "['a']"}) {
        EXPECT_FALSE(parse(repairedJson(QByteArrayView(text.data(), qsizetype(text.size()))).toStdString()))
            << text;
    }
}

TEST(JsonWriter, WritesCompactJsonThatReadsBack)
{
    JsonWriter writer;
    writer.beginObject().key("text").string(u"½ \"cup\"\n\u0001 / \\");
    writer.key("half").string(QString(QChar(0xD800)));
    writer.key("list")
        .beginArray()
        .integer(-5)
        .number(1.5)
        .boolean(false)
        .null()
        .number(0.0 / 0.0)
        .endArray();
    writer.key("empty").string({}).key("base64").utf8("QUI=").endObject();
    EXPECT_EQ(writer.bytes(),
              QByteArrayLiteral("{\"text\":\"\xC2\xBD \\\"cup\\\"\\n\\u0001 / \\\\\",\"half\":\"?\","
                                "\"list\":[-5,1.5,false,null,null],\"empty\":\"\",\"base64\":\"QUI=\"}"));
    EXPECT_TRUE(parse(writer.bytes().toStdString()));
}

TEST(JsonWriter, WritesOneLine)
{
    const QString text = QStringLiteral("a\nb\rc\u0085d\u2028e\u2029f");
    JsonWriter writer;
    writer.string(text);
    EXPECT_EQ(writer.bytes(), "\"a\\nb\\rc\\u0085d\\u2028e\\u2029f\"");
    EXPECT_EQ(parse(writer.bytes().toStdString())->root().string(), text);
}

} // namespace
} // namespace ovrin
