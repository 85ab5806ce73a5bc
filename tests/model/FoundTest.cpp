#include "model/RecipeDraft.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>

namespace ovrin {
namespace {

/// What the fuzzer starts from and what it once found: a draft that is read is written and read again the
/// same.
TEST(Found, DraftsSurviveARoundTrip)
{
    int read = 0;
    for (const char* folder : {"fuzz/model/seeds", "fuzz/model/found"}) {
        QDirIterator files(QString::fromUtf8(folder), QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            if (const auto draft = RecipeDraft::fromJson(file.readAll())) {
                ++read;
                EXPECT_EQ(RecipeDraft::fromJson(draft->toJson()), draft) << file.fileName().toStdString();
            }
        }
    }
    EXPECT_GE(read, 2) << "run from the project's folder";
}

} // namespace
} // namespace ovrin
