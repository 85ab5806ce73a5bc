#pragma once

#include <QCoro/QCoroTask>

#include <QtCore/QString>
#include <QtCore/QUrl>

#include <chrono>
#include <stop_token>

namespace ovrin {

/// Shows a page the way a browser would, scripts and all, without a window.
class PageRenderer
{
public:
    virtual ~PageRenderer() = default;

    /// The outer HTML of the rendered document, as soon as it holds a JSON-LD script, else what there is when
    /// `timeout` has passed. Throws TransportError when nothing could be read by then, or at once when this
    /// machine cannot render. When `stop` is requested the rendering and all that belongs to it ends, and the
    /// task with ImportCancelled. (A task that nobody awaits any more would run on: hence the token.)
    virtual QCoro::Task<QString> html(QUrl url, std::chrono::milliseconds timeout, std::stop_token stop) = 0;
};

/// Where nothing can be rendered.
class NullPageRenderer : public PageRenderer
{
public:
    QCoro::Task<QString> html(QUrl url, std::chrono::milliseconds timeout, std::stop_token stop) override;
};

} // namespace ovrin
