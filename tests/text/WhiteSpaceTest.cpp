#include "text/WhiteSpace.h"

#include <gtest/gtest.h>

namespace ovrin {

TEST(WhiteSpace, IsTheUnicodePropertyAndItsTwoHalvesAreApart)
{
    for (char32_t c = 0; c <= 0xFFFF; ++c) {
        const auto unit = static_cast<char16_t>(c);
        EXPECT_EQ(WhiteSpace::isWhiteSpace(unit), QChar::isSpace(c))
            << "U+" << std::hex << static_cast<unsigned>(c);
        EXPECT_FALSE(WhiteSpace::isSpaceOrTab(unit) && WhiteSpace::isNewline(unit))
            << "U+" << std::hex << static_cast<unsigned>(c);
    }
}

TEST(WhiteSpace, TrimsAtBothEndsOnly)
{
    const QString text = QStringLiteral("\n \u00A0\u2003a\t b\u3000\u2028 ");
    EXPECT_EQ(WhiteSpace::trimmed(text), QStringLiteral("a\t b"));
    EXPECT_EQ(WhiteSpace::trimmedSpaces(text), QStringLiteral("\n \u00A0\u2003a\t b\u3000\u2028"));
    EXPECT_TRUE(WhiteSpace::trimmed(QStringLiteral(" \t\r\n")).isEmpty());
    EXPECT_TRUE(WhiteSpace::trimmed(QString()).isEmpty());
}

TEST(WhiteSpace, CutsAtEveryNewlineAndOnceAtCrLf)
{
    EXPECT_EQ(WhiteSpace::lines(QStringLiteral("a\r\nb\rc\n\nd\u0085e\u2028f\u2029g\vh\fi")),
              QStringLiteral("a|b|c||d|e|f|g|h|i").split(u'|'));
    EXPECT_EQ(WhiteSpace::lines(QString()), QStringList{QString()});
    EXPECT_EQ(WhiteSpace::lines(QStringLiteral("a\n")), (QStringList{QStringLiteral("a"), QString()}));
    EXPECT_EQ(WhiteSpace::withUnixLineBreaks(QStringLiteral("a\r\n\r\rb\n")), QStringLiteral("a\n\r\rb\n"));
}

} // namespace ovrin
