#include "helpers/document/MutationRun.h"
#include "helpers/document/Mutations.h"
#include "helpers/document/Pdfs.h"
#include "platform/reader/ReaderPdfTextLayer.h"
#include "support/Outcome.h"

using namespace ovrin;

TEST(MutatedDocuments, BeginWithSoundOnes)
{
    ReaderPdfTextLayer layer(QStringLiteral(OVRIN_DOCUMENT_READER), std::chrono::seconds(15));
    for (const QByteArray& document : Mutations::originals()) {
        const auto outcome = finished(layer.pages(document, {}));
        ASSERT_TRUE(outcome.value && *outcome.value);
        QStringList texts;
        for (const TextBox& box : outcome.value->value().value(0)) {
            texts += box.text;
        }
        EXPECT_THAT(texts, testing::Contains(QStringLiteral("250 g red lentils")));
    }
}

TEST(MutatedDocuments, BecomeADraftOrASpecifiedErrorAndLeaveNothingBehind)
{
    constexpr int count = 400;
    const auto tally = mutationRun(count, 20'261'123, QStringLiteral(OVRIN_WARM_READER));
    EXPECT_EQ(tally.unspecified, 0);
    EXPECT_EQ(tally.drafts + tally.withoutText + tally.damaged, count);
    EXPECT_EQ(childProcesses(), 0);
    // Some survive, some do not: else the changes would show nothing.
    EXPECT_GT(tally.drafts, count / 20);
    EXPECT_GT(tally.withoutText + tally.damaged, count / 20);
}
