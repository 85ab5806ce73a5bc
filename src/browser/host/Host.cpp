#include "browser/host/Host.h"

#include "browser/host/NativeMessages.h"
#include "import/error/RecipeImportError.h"
#include "services/PageImport.h"
#include "json/JsonWriter.h"

namespace ovrin::browser {

namespace {

/// Enough to recognise a recipe by; a browser takes no more than 1 MB.
constexpr qsizetype maximumTitle = 500;

QByteArray answer(const Sent& sent)
{
    JsonWriter writer;
    writer.beginObject().key("sent").boolean(true);
    writer.key("title").string(QStringView(sent.title).left(maximumTitle));
    writer.key("complete").boolean(sent.isComplete).endObject();
    return writer.bytes();
}

QByteArray answer(const Refusal& refusal)
{
    JsonWriter writer;
    writer.beginObject().key("sent").boolean(false).key("message").string(refusal.message).endObject();
    return writer.bytes();
}

/// Nothing when the browser let go before the page was whole.
std::optional<SentPage> receivePage(QIODevice& in)
{
    PageAssembly assembly(PageImport::maximumPageBytes);
    while (const auto message = NativeMessages::read(in)) {
        if (auto page = assembly.take(*message))
            return page;
    }
    return std::nullopt;
}

} // namespace

bool isOurExtension(const QStringList& arguments)
{
    const QString chromium = QStringLiteral("chrome-extension://" OVRIN_CHROMIUM_EXTENSION "/");
    const QString firefox = QStringLiteral(OVRIN_FIREFOX_EXTENSION);
    return arguments.value(0) == chromium || arguments.value(1) == firefox;
}

bool takePage(QIODevice& in, QIODevice& out, const std::function<Sent(SentPage)>& leave)
{
    try {
        auto page = receivePage(in);
        return page && NativeMessages::write(out, answer(leave(*std::move(page))));
    } catch (const Refusal& refusal) {
        NativeMessages::write(out, answer(refusal));
    } catch (...) {
        const auto description = importErrorDescription(std::current_exception());
        NativeMessages::write(out, answer(Refusal{description.value_or(misunderstanding().message)}));
    }
    return false;
}

} // namespace ovrin::browser
