#include "fuzz/import/DocumentTargets.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>

using namespace ovrin;

/// The seeds, each whole and cut short at several places, keep the promises that the fuzz targets hold every
/// input to.
TEST(DocumentFuzzTargets, HoldOnTheirSeeds)
{
    const std::pair<const char*, void (*)(QByteArrayView)> targets[] = {
        {"recipeText", fuzz::recipeText},         {"readingOrder", fuzz::readingOrder},
        {"documentAnswer", fuzz::documentAnswer}, {"readerFrame", fuzz::readerFrame},
        {"chatCompletion", fuzz::chatCompletion}, {"generatedRecipe", fuzz::generatedRecipe},
    };
    for (const auto& [name, target] : targets) {
        QDirIterator files(QStringLiteral(OVRIN_SOURCE_DIR "/fuzz/import/seeds/") + QString::fromLatin1(name),
                           QDir::Files);
        ASSERT_TRUE(files.hasNext()) << name;
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            for (qsizetype size = 0; size <= bytes.size(); size += 1 + bytes.size() / 16) {
                target(QByteArrayView(bytes).first(size));
            }
            target(bytes);
        }
    }
}
