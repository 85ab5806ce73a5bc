#pragma once

#include "import/web/PageRenderer.h"

namespace ovrin {

/// Renders with WebKit in a program of its own, `page-renderer`, which is started for one page. When the task
/// ends, however it ends, that program and everything that it started are gone; when this process
/// dies, they go too. Nothing is kept between calls, and calls do not know of each other.
class WebPageLoader : public PageRenderer
{
public:
    /// `program`: path of `page-renderer`. What is not there renders nothing: each call then fails at once.
    explicit WebPageLoader(QString program);

    /// Throws TransportError: TimedOut when there was nothing to read by the time, UnsupportedAddress for
    /// what is neither http nor https, NoAnswer when the page or the machine does not allow it.
    QCoro::Task<QString> html(QUrl url, std::chrono::milliseconds timeout, std::stop_token stop) override;

private:
    QString m_program;
};

} // namespace ovrin
