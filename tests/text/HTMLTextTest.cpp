#include "text/HTMLText.h"

#include <gtest/gtest.h>

namespace ovrin {

struct MarkupCase
{
    const char* markup;
    const char* text;
};

class CleanTest : public testing::TestWithParam<MarkupCase>
{
};

TEST_P(CleanTest, GivesPlainText)
{
    EXPECT_EQ(HTMLText::clean(QString::fromUtf8(GetParam().markup)).toStdString(),
              QString::fromUtf8(GetParam().text).toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    LineBreaks, CleanTest,
    testing::Values(MarkupCase{"Line one<br/>Line two<BR>Line three", "Line one\nLine two\nLine three"},
                    MarkupCase{"a<br \u00A0\n/>b", "a\nb"},
                    MarkupCase{"<p>Mix well.</p><p>Bake.</p>", "Mix well.\nBake."},
                    MarkupCase{"<ul><li>a</LI><li>b</li></ul>", "a\nb"},
                    MarkupCase{"<div>a</div><div>b</div>", "ab"},
                    MarkupCase{"a\r\nb\u0085c\u2028d\u2029e\vf\fg", "a\nb\nc\nd\ne\nf\ng"},
                    MarkupCase{"\n\n\nA\n\n", "A"}));

INSTANTIATE_TEST_SUITE_P(Tags, CleanTest,
                         testing::Values(MarkupCase{"", ""}, MarkupCase{" <b> </b>\t<i></i>\n", ""},
                                         MarkupCase{"a <b class=\"x\">bold</b> b", "a bold b"},
                                         MarkupCase{"a <> b", "a <> b"}, MarkupCase{"<>a>b", "<>a>b"},
                                         MarkupCase{"2 < 3", "2 < 3"}, MarkupCase{"<<b>c", "c"},
                                         MarkupCase{"x<a<br>b>y", "xy"}, MarkupCase{"x< <br> >y", "xy"},
                                         MarkupCase{"a</p b", "a</p b"}, MarkupCase{"a<br", "a<br"},
                                         MarkupCase{"&lt;b&gt;", "<b>"}, MarkupCase{"🍕<i>🍕</i>", "🍕🍕"}));

INSTANTIATE_TEST_SUITE_P(Blanks, CleanTest,
                         testing::Values(MarkupCase{"  a \t\u00A0 b  ", "a b"},
                                         MarkupCase{"\u2003a\u2003\u2003b\u3000", "a\u2003\u2003b"},
                                         MarkupCase{"a&nbsp;&nbsp;b", "a b"}, MarkupCase{"a&#10;b", "a\nb"}));

class EntityTest : public testing::TestWithParam<MarkupCase>
{
};

TEST_P(EntityTest, IsDecodedOnce)
{
    EXPECT_EQ(HTMLText::decodeEntities(QString::fromUtf8(GetParam().markup)).toStdString(),
              QString::fromUtf8(GetParam().text).toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Known, EntityTest,
    testing::Values(
        MarkupCase{"&#8217;&#x2019;&#X2019;&rsquo;", "’’’’"},
        MarkupCase{"Salt &amp; pepper", "Salt & pepper"}, MarkupCase{"&frac12; cup", "½ cup"},
        MarkupCase{"&#x1F355;&#127829;", "🍕🍕"}, MarkupCase{"&amp;lt;", "&lt;"},
        MarkupCase{"&&amp;&amp&amp;", "&&&amp&"}, MarkupCase{"&#0000000000000000000000065;", "A"},
        MarkupCase{"a&nbsp;b", "a b"},
        // The whole table.
        MarkupCase{"&amp;&lt;&gt;&quot;&apos;&nbsp;&ndash;&mdash;&hellip;&deg;&times;&lsquo;&rsquo;&ldquo;"
                   "&rdquo;&laquo;&raquo;&frac12;&copy;&reg;&trade;&frac14;&frac34;&frac13;&frac23;&frac18;"
                   "&eacute;&egrave;&ecirc;&aacute;&agrave;&acirc;&iacute;&oacute;&uacute;&ntilde;&ccedil;"
                   "&uuml;&ouml;&auml;&szlig;&bull;",
                   "&<>\"' –—…°×‘’“”«»½©®™¼¾⅓⅔⅛éèêáàâíóúñçüöäß•"}));

INSTANTIATE_TEST_SUITE_P(LeftAlone, EntityTest,
                         testing::Values(MarkupCase{"R&D", "R&D"}, MarkupCase{"&foo;", "&foo;"},
                                         MarkupCase{"&AMP;&Eacute;", "&AMP;&Eacute;"},
                                         MarkupCase{"&#xD800;&#55296;&#xDFFF;", "&#xD800;&#55296;&#xDFFF;"},
                                         MarkupCase{"&#99999999999;&#x110000;", "&#99999999999;&#x110000;"},
                                         MarkupCase{"&#4294967361;", "&#4294967361;"},
                                         MarkupCase{"&;&#;&#x;&#xg;&#6a;&1;", "&;&#;&#x;&#xg;&#6a;&1;"},
                                         MarkupCase{"&", "&"}, MarkupCase{"&amp", "&amp"},
                                         MarkupCase{"&#٣;", "&#٣;"}));

TEST(HTMLText, AnswersAMegabyteOfBeginnings)
{
    for (const char* part : {"<", "&", "<script", "<br ", "&#", "&#1", "&a", "<>", "</", "&&;", "\n", " "}) {
        QString text = QString::fromUtf8(part);
        text = text.repeated((1 << 20) / text.size());
        const QString cleaned = HTMLText::clean(text);
        if (QString::fromUtf8(part).trimmed().isEmpty())
            EXPECT_TRUE(cleaned.isEmpty());
        else
            EXPECT_GE(cleaned.size(), text.size() - 1) << part;
    }
}

} // namespace ovrin
