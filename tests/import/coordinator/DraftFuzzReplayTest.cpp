#include "fuzz/import/DraftTargets.h"
#include "support/FoundCases.h"

#include <gtest/gtest.h>

using namespace ovrin;

/// The fuzz targets' promises on their seeds, and on what once broke a draft.
TEST(DraftFuzzTargets, HoldOnTheirSeeds)
{
    const QString root = QStringLiteral(OVRIN_SOURCE_DIR "/fuzz/");
    EXPECT_GE(replay(root + QStringLiteral("import/seeds/importLink"), fuzz::importLink), 4);
    EXPECT_GE(replay(root + QStringLiteral("import/seeds/inboxDraft"), fuzz::inboxDraft), 3);
    EXPECT_GE(replay(root + QStringLiteral("model/found"), fuzz::inboxDraft), 2);
    fuzz::inboxDraft({});
}
