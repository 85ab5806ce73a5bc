#include "support/FoundCases.h"
#include "fuzz/text/TextTargets.h"

#include <gtest/gtest.h>

namespace ovrin {

TEST(FoundCases, OfTheTextAnalysisStayMended)
{
    EXPECT_GT(replay(QStringLiteral("fuzz/text/seeds/markup"), fuzz::markup), 0);
    EXPECT_GT(replay(QStringLiteral("fuzz/text/seeds/durations"), fuzz::durations), 0);
    EXPECT_GT(replay(QStringLiteral("fuzz/text/seeds/ingredient-lines"), fuzz::ingredientLines), 0);
    EXPECT_GT(replay(QStringLiteral("fuzz/text/seeds/directions"), fuzz::directions), 0);
    // Whatever one target found is worth showing to all of them.
    for (const auto target : {fuzz::markup, fuzz::durations, fuzz::ingredientLines, fuzz::directions})
        EXPECT_GT(replay(QStringLiteral("fuzz/text/found"), target), 0);
}

} // namespace ovrin
