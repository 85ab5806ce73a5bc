#include "helpers/document/MutationRun.h"

#include "helpers/WarmReader.h"
#include "helpers/document/Mutations.h"
#include "import/document/DocumentRecipeImporter.h"
#include "import/document/LanguageModel.h"
#include "import/error/RecipeImportError.h"
#include "platform/reader/ReaderPdfTextLayer.h"
#include "reader/DocumentMessage.h"
#include "support/Outcome.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <unistd.h>

namespace ovrin {

namespace {

/// As long as the application waits.
constexpr std::chrono::seconds readerTime{15};

class WarmPdfLayer : public PdfTextLayer
{
public:
    explicit WarmPdfLayer(const QString& program)
        : reader(program, readerTime)
    {
    }

    QCoro::Task<std::optional<QList<QList<TextBox>>>> pages(QByteArray pdf, std::stop_token /*stop*/) override
    {
        const auto frame =
            reader.ask({reader::MessageKind::Document, std::move(pdf)}, reader::maximumDocumentAnswerBytes);
        const bool isAnswer = frame && frame->kind == reader::MessageKind::Document;
        co_return ReaderPdfTextLayer::boxesOf(isAnswer ? std::optional(frame->body) : std::nullopt);
    }

    WarmReader reader;
};

} // namespace

MutationTally mutationRun(int count, unsigned seed, const QString& warmReader)
{
    MutationTally tally;
    std::mt19937 random(seed);
    WarmPdfLayer layer(warmReader);
    NullLanguageModel model;
    DocumentRecipeImporter importer(layer, model);
    for (int i = 0; i < count; ++i) {
        const int endedBefore = layer.reader.ended();
        const auto outcome =
            finished(importer.import(Mutations::next(random), QStringLiteral("application/pdf")));
        const auto failure = outcome.failure<RecipeImportError>();
        if (outcome.value) {
            ++tally.drafts;
        } else if (failure && failure->reason() == RecipeImportError::Case::NoTextFound) {
            ++tally.withoutText;
        } else if (failure && failure->reason() == RecipeImportError::Case::DamagedFile) {
            ++tally.damaged;
        } else {
            ++tally.unspecified;
        }
        if (layer.reader.ended() > endedBefore) {
            ++(layer.reader.tookTooLong() ? tally.timedOut : tally.ended);
        }
    }
    tally.longestMilliseconds = layer.reader.longestMilliseconds();
    return tally;
}

int childProcesses()
{
    int children = 0;
    for (const QString& process :
         QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}, QDir::Dirs)) {
        QFile file(QStringLiteral("/proc/%1/stat").arg(process));
        if (file.open(QIODevice::ReadOnly)) {
            // Behind the name, which may hold anything, stand state and parent.
            const QByteArray text = file.readAll();
            const QByteArrayList fields = text.sliced(text.lastIndexOf(')') + 1).simplified().split(' ');
            children += fields.value(1).toLongLong() == getpid() ? 1 : 0;
        }
    }
    return children;
}

} // namespace ovrin
