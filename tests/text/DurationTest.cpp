#include "text/Duration.h"

#include <gtest/gtest.h>

namespace ovrin {

struct DurationCase
{
    const char* text;
    std::optional<qint64> minutes;
};

class DurationTest : public testing::TestWithParam<DurationCase>
{
};

TEST_P(DurationTest, ReadsWholeMinutes)
{
    EXPECT_EQ(Duration::minutes(QString::fromUtf8(GetParam().text)), GetParam().minutes);
}

INSTANTIATE_TEST_SUITE_P(Readable, DurationTest,
                         testing::Values(DurationCase{"PT1H30M", 90}, DurationCase{"P1DT2H", 1560},
                                         DurationCase{"P2D", 2880}, DurationCase{"P0DT0H20M", 20},
                                         DurationCase{"PT1M30S", 1}, DurationCase{"PT1M2.75S", 1},
                                         DurationCase{"pt5m", 5}, DurationCase{"PT5M3ſ", 5},
                                         DurationCase{"PT5M٣S", 5},
                                         DurationCase{"PT000000000000000000000007M", 7},
                                         DurationCase{"PT9223372036854775807M", 9223372036854775807}));

INSTANTIATE_TEST_SUITE_P(Unreadable, DurationTest,
                         testing::Values(DurationCase{"", {}}, DurationCase{"P", {}}, DurationCase{"PT", {}},
                                         DurationCase{"PT0M", {}}, DurationCase{"P0D", {}},
                                         DurationCase{"PT45S", {}}, DurationCase{"PT90S", {}},
                                         DurationCase{" PT20M", {}}, DurationCase{"PT20M\n", {}},
                                         DurationCase{"PT20", {}}, DurationCase{"PT1.5H", {}},
                                         DurationCase{"PT5M3.S", {}}, DurationCase{"PT5M1H", {}},
                                         DurationCase{"P1M", {}}, DurationCase{"P1WT2H", {}},
                                         DurationCase{"-PT5M", {}}, DurationCase{"20 minutes", {}}));

INSTANTIATE_TEST_SUITE_P(TooLargeOrForeignDigits, DurationTest,
                         testing::Values(DurationCase{"PT9223372036854775808M", {}},
                                         DurationCase{"PT9223372036854775807H", {}},
                                         DurationCase{"PT1H9223372036854775800M", {}},
                                         DurationCase{"P99999999999999999999999D", {}},
                                         DurationCase{"PT٢H30M", {}}));

TEST(Duration, AnswersAMegabyteOfDigits)
{
    EXPECT_EQ(Duration::minutes(QStringLiteral("PT%1M").arg(QString(1 << 20, u'1'))), std::nullopt);
    EXPECT_EQ(Duration::minutes(QStringLiteral("PT%1S").arg(QString(1 << 20, u'1'))), std::nullopt);
}

} // namespace ovrin
