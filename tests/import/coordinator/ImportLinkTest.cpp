#include "import/ImportLink.h"

#include <QtCore/QUrlQuery>
#include <gtest/gtest.h>

using namespace ovrin;

namespace {

QString base64(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

QUrl draftLink(const QString& value)
{
    return QUrl(QStringLiteral("ovrin://draft?json=") + QString::fromLatin1(QUrl::toPercentEncoding(value)));
}

TEST(ImportLink, ReadsThePageOfAnImportLinkAlone)
{
    struct Row
    {
        const char* link;
        const char* page;
    };
    for (const auto& [link, page] : {
             Row{"ovrin://import?url=https%3A%2F%2Fa.example%2Fx%3Fq%3D1%26r%3D2%2B3",
                 "https://a.example/x?q=1&r=2+3"},
             Row{"ovrin://import?url=HTTPS://a.example/", "https://a.example/"},
             Row{"ovrin://import?x=1&url=http://a.example/&url=http://b.example/", "http://a.example/"},
             Row{"ovrin://import?url=https://a.example/a+b", "https://a.example/a+b"},
             Row{"ovrin://import?url=ftp://a.example/", nullptr},
             Row{"ovrin://import?url=file:///etc/passwd", nullptr},
             Row{"ovrin://import?url=javascript:alert(1)", nullptr},
             Row{"ovrin://import?url=", nullptr},
             Row{"ovrin://import", nullptr},
             Row{"ovrin://draft?url=https://a.example/", nullptr},
             Row{"https://import?url=https://a.example/", nullptr},
         }) {
        const auto read = ImportLink::page(QUrl(QString::fromUtf8(link)));
        EXPECT_EQ(read ? read->toString() : QString(), QString::fromUtf8(page)) << link;
    }
}

TEST(ImportLink, ReadsADraftOnlyFromStrictBase64)
{
    RecipeDraft draft;
    draft.title = QStringLiteral("Crème brûlée 🍮 ?>?>");
    const QString good = base64(draft.toJson());
    ASSERT_EQ(ImportLink::draft(draftLink(good)), draft);

    const QString unpadded = base64(draft.toJson() + ' ').remove(u'=');
    for (const QString& bad :
         {QString(), good + u'\n', unpadded.left(unpadded.size() / 4 * 4 - 1), good + QStringLiteral("===="),
          QStringLiteral("@@@@"), base64("[]"), base64("{}"), base64(QByteArray("\xff\xfe", 2))})
        EXPECT_FALSE(ImportLink::draft(draftLink(bad))) << bad.toStdString();
    EXPECT_FALSE(ImportLink::draft(QUrl(QStringLiteral("ovrin://import?json=") + good)));
}

TEST(ImportLink, SurvivesMegabytesOfBase64)
{
    const QUrl huge = draftLink(QString(8 << 20, u'A'));
    EXPECT_FALSE(ImportLink::draft(huge));
    EXPECT_TRUE(ImportLink::isOurs(huge));
}

} // namespace
