#include "PageFuzzer.h"

#include "import/error/RecipeImportError.h"
#include "import/web/PageParser.h"

#include <QtCore/QByteArray>

#include <cstdlib>

namespace {

/// What every draft of a page promises, whatever the page.
void check(const ovrin::RecipeDraft& draft)
{
    bool good = !draft.title.isEmpty() && !draft.title.contains(u'\n') && !draft.summary.contains(u'\n');
    good = good && (!draft.imageURL || (draft.imageURL->isValid() && !draft.imageURL->isRelative()));
    for (const auto& minutes : {draft.prepMinutes, draft.cookMinutes, draft.totalMinutes}) {
        good = good && (!minutes || *minutes >= 1);
    }
    for (const QString& line : draft.ingredients) {
        good = good && !line.isEmpty() && !line.contains(u'\n');
    }
    for (const ovrin::RecipeStep& step : draft.steps) {
        good = good && !step.paragraphs.isEmpty();
        for (const QString& paragraph : step.paragraphs) {
            good = good && !paragraph.isEmpty() && !paragraph.contains(u'\n');
        }
    }
    if (!good) {
        std::abort();
    }
}

void parse(const QByteArray& html)
{
    try {
        check(ovrin::parsePage(html, QUrl(QStringLiteral("https://www.site.example/dir/page.html"))));
    } catch (const ovrin::RecipeImportError&) {
        // How it answers a page without a title.
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    parse(bytes);
    parse("<title>t</title><script type=\"application/ld+json\">" + bytes + "</script>");
    return 0;
}
