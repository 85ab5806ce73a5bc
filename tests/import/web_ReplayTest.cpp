#include "PageFuzzer.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>

#include <gtest/gtest.h>

namespace {

// The fuzzer's seeds and everything that it ever found, again and again.
TEST(PageFuzzer, HasNothingLeftToFind)
{
    int replayed = 0;
    for (const char* folder : {"/seeds/page", "/found"}) {
        QDirIterator files(QStringLiteral(OVRIN_FUZZ_DIR) + QString::fromLatin1(folder), QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            // Whole, and cut short at every place.
            for (qsizetype size = 0; size <= bytes.size(); ++size) {
                LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.constData()), size_t(size));
            }
            ++replayed;
        }
    }
    EXPECT_GE(replayed, 6);
}

} // namespace
