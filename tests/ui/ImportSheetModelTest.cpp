#include "ui/importing/ImportSheetModel.h"

#include <gtest/gtest.h>

using namespace ovrin;

TEST(ImportSheet, takesWebAddressesAlone)
{
    struct Case
    {
        QString typed;
        QString address;
    };
    const Case cases[]{
        {u"  example.com/soup \n"_qs, u"https://example.com/soup"_qs},
        {u"http://example.com"_qs, u"http://example.com"_qs},
        {u"HTTPS://example.com/a|b"_qs, u"https://example.com/a%7Cb"_qs},
        {u"https://exämple.org/crème"_qs, u"https://xn--exmple-cua.org/cr%C3%A8me"_qs},
        {u"ftp://example.com/soup"_qs, {}},
        {u"https://"_qs, {}},
        {u""_qs, {}},
        {u" \n"_qs, {}},
        {u"how to make soup"_qs, {}},
        {u"file:///etc/passwd"_qs, {}},
        {u"https:///soup"_qs, {}},
    };
    ImportSheetModel sheet;
    for (const Case& c : cases) {
        sheet.setAddress(c.typed);
        EXPECT_EQ(sheet.canImport(), !c.address.isEmpty()) << qPrintable(c.typed);
        EXPECT_EQ(QString::fromLatin1(sheet.url().value_or(QUrl()).toEncoded()), c.address)
            << qPrintable(c.typed);
    }
}

TEST(ImportSheet, isFilledFromThePasteboardOnlyByAnAddress)
{
    ImportSheetModel sheet;
    sheet.open(u"https://example.com/soup"_qs);
    EXPECT_EQ(sheet.address(), u"https://example.com/soup"_qs);
    for (const QString& text : {u"example.com/soup"_qs, u"httpd is a server"_qs, u"HTTP://example.com"_qs,
                                u" https://example.com"_qs, QString(), u"http"_qs + QString(100000, u'x')}) {
        sheet.open(text);
        EXPECT_EQ(sheet.address(), QString()) << qPrintable(text.left(40));
    }
}
