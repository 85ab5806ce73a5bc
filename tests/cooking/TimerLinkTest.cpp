#include "cooking/TimerLink.h"

using namespace ovrin;

namespace {

TEST(TimerLink, IsBuiltWithAnEncodedLabel)
{
    EXPECT_EQ(TimerLink::url(300, QStringLiteral("5 minutes")).toString(QUrl::FullyEncoded),
              QStringLiteral("ovrin-timer://start?seconds=300&label=5%20minutes"));
}

TEST(TimerLink, CarriesAnyLabelThereAndBack)
{
    for (const QString& label :
         {QStringLiteral("10-12 minutes"), QStringLiteral("½ hour"), QStringLiteral("1+1=2 & 3 % #4?"),
          QStringLiteral("%20"), QStringLiteral("<b>two\nlines</b> \"'"), QStringLiteral("🍋")}) {
        const auto request = TimerLink::parse(TimerLink::url(60, label));
        ASSERT_TRUE(request) << label.toStdString();
        EXPECT_EQ(request->label, label);
        // Rich text hands an address over as a string.
        EXPECT_EQ(TimerLink::parse(QUrl(TimerLink::url(60, label).toString(QUrl::FullyEncoded))), request);
    }
}

struct Case
{
    const char* link;
    qint64 seconds; // 0: no timer link
    const char* label = "Timer";
};

class TimerLinkParse : public testing::TestWithParam<Case>
{
};

TEST_P(TimerLinkParse, TakesWholePositiveSecondsOnly)
{
    const auto request = TimerLink::parse(QUrl(QString::fromUtf8(GetParam().link)));
    ASSERT_EQ(request.has_value(), GetParam().seconds > 0);
    if (request) {
        EXPECT_EQ(request->seconds, GetParam().seconds);
        EXPECT_EQ(request->label, QString::fromUtf8(GetParam().label));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Links, TimerLinkParse,
    testing::Values(Case{"ovrin-timer://start?seconds=90", 90}, Case{"ovrin-timer://anything?seconds=90", 90},
                    Case{"ovrin-timer:?seconds=90", 90}, Case{"OVRIN-TIMER://start?seconds=90", 90},
                    Case{"ovrin-timer://start?seconds=%2B5", 5}, Case{"ovrin-timer://start?seconds=007", 7},
                    Case{"ovrin-timer://start?seconds=1&seconds=2&label=a&label=b", 1, "a"},
                    Case{"ovrin-timer://start?label=&seconds=9", 9},
                    Case{"ovrin-timer://start?seconds=9223372036854775807", 9223372036854775807},
                    Case{"ovrin-timer://start?seconds=9223372036854775808", 0},
                    Case{"ovrin-timer://start?seconds=0", 0}, Case{"ovrin-timer://start?seconds=-5", 0},
                    Case{"ovrin-timer://start?seconds=1.5", 0}, Case{"ovrin-timer://start?seconds=1e3", 0},
                    Case{"ovrin-timer://start?seconds=%2090", 0}, Case{"ovrin-timer://start?seconds=0x10", 0},
                    Case{"ovrin-timer://start?seconds=٣", 0}, Case{"ovrin-timer://start?seconds=", 0},
                    Case{"ovrin-timer://start?seconds=%2B", 0}, Case{"ovrin-timer://start?Seconds=90", 0},
                    Case{"ovrin-timer://start", 0}, Case{"https://start?seconds=90", 0},
                    Case{"ovrin://start?seconds=90", 0}, Case{"", 0}));

} // namespace
