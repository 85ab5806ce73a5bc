#include "fuzz/browser/BrowserTargets.h"

#include "browser/host/NativeMessages.h"
#include "browser/host/PageAssembly.h"
#include "fuzz/Require.h"

#include <QtCore/QBuffer>

namespace ovrin::fuzz {

void browserMessages(QByteArrayView data)
{
    constexpr qsizetype maximumPage = 4096;
    QByteArray bytes = data.toByteArray();
    QBuffer in(&bytes);
    in.open(QIODevice::ReadOnly);
    browser::PageAssembly assembly(maximumPage);
    try {
        while (const auto message = browser::NativeMessages::read(in)) {
            const auto page = assembly.take(*message);
            require(!page || page->html.size() <= maximumPage, "a page within its bound");
            require(!page || !page->address.host().isEmpty(), "a page of the web");
        }
    } catch (const browser::Refusal& refusal) {
        require(!refusal.message.isEmpty(), "a refusal says why");
    }
}

} // namespace ovrin::fuzz
