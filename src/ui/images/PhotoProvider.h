#pragma once

#include <QtQuick/QQuickAsyncImageProvider>

#include <functional>
#include <memory>

namespace ovrin {

/// Shows photos: `image://photo/<key>?radius=14&blur=1`, at the `sourceSize` given, in device pixels.
///
/// `tint/<rrggbb>/<rrggbb>` is what stands where there is no photo: `placeholder` of PhotoShape.h.
///
/// The bytes are fetched on the main thread, decoded and shaped off it, and the results kept within a budget
/// of bytes. A photo that is missing or cannot be decoded comes back as one transparent pixel, without a
/// warning: what lies beneath is its placeholder.
class PhotoProvider : public QQuickAsyncImageProvider
{
public:
    /// The JPEG under a key; empty when there is none. Called on the main thread.
    using Bytes = std::function<QByteArray(const QString& key)>;
    static constexpr qsizetype defaultBudget = qsizetype(48) * 1024 * 1024;

    /// `context` lives on the main thread; once it is gone no bytes are fetched any more.
    PhotoProvider(QObject* context, Bytes bytes, qsizetype budget = defaultBudget);
    ~PhotoProvider() override;

    QQuickImageResponse* requestImageResponse(const QString& id, const QSize& requestedSize) override;

    qsizetype cachedBytes() const;

private:
    struct Cache;
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace ovrin
