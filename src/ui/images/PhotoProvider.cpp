#include "ui/images/PhotoProvider.h"

#include "ui/images/PhotoShape.h"

#include <QtCore/QCache>
#include <QtCore/QMutex>
#include <QtCore/QPointer>
#include <QtCore/QThreadPool>
#include <QtCore/QUrlQuery>

#include <atomic>

namespace ovrin {

namespace {

constexpr int largestSide = 4096;
const QString tintPrefix = QStringLiteral("tint/");

QImage nothing()
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

/// What a response and the work for it share. Either may be gone before the other.
struct Job
{
    QMutex mutex;
    QQuickImageResponse* response = nullptr;
    QImage image;
    std::atomic_bool isCancelled = false;

    void finish(const QImage& result)
    {
        const QMutexLocker lock(&mutex);
        image = result;
        if (response)
            Q_EMIT response->finished();
    }
};

class PhotoResponse : public QQuickImageResponse
{
public:
    explicit PhotoResponse(std::shared_ptr<Job> job)
        : m_job(std::move(job))
    {
        m_job->response = this;
    }
    ~PhotoResponse() override
    {
        const QMutexLocker lock(&m_job->mutex);
        m_job->response = nullptr;
    }
    QQuickTextureFactory* textureFactory() const override
    {
        const QMutexLocker lock(&m_job->mutex);
        return QQuickTextureFactory::textureFactoryForImage(m_job->image);
    }
    void cancel() override { m_job->isCancelled = true; }

private:
    std::shared_ptr<Job> m_job;
};

PhotoShape shapeOf(const QString& parameters, const QSize& requestedSize)
{
    const QUrlQuery query(parameters);
    PhotoShape shape;
    shape.size = requestedSize.boundedTo({largestSide, largestSide});
    shape.radius = query.queryItemValue(QStringLiteral("radius")).toInt();
    shape.isBlurred = query.hasQueryItem(QStringLiteral("blur"));
    return shape;
}

} // namespace

struct PhotoProvider::Cache
{
    mutable QMutex mutex;
    QCache<QString, QImage> images;

    QImage find(const QString& key) const
    {
        const QMutexLocker lock(&mutex);
        const QImage* image = images.object(key);
        return image ? *image : QImage();
    }
    void keep(const QString& key, const QImage& image)
    {
        const QMutexLocker lock(&mutex);
        images.insert(key, new QImage(image), image.sizeInBytes());
    }
};

/// Held by the provider, and for a moment on the main thread; never by the pool's work, which it waits for.
struct PhotoProvider::State
{
    Bytes bytes;
    QPointer<QObject> context;
    std::shared_ptr<Cache> cache = std::make_shared<Cache>();
    QThreadPool pool;
};

PhotoProvider::PhotoProvider(QObject* context, Bytes bytes, qsizetype budget)
    : m_state(std::make_shared<State>())
{
    m_state->bytes = std::move(bytes);
    m_state->context = context;
    m_state->cache->images.setMaxCost(budget);
    m_state->pool.setMaxThreadCount(qMax(1, QThread::idealThreadCount() - 1));
    m_state->pool.setThreadPriority(QThread::LowPriority);
}

PhotoProvider::~PhotoProvider() = default;

qsizetype PhotoProvider::cachedBytes() const
{
    const QMutexLocker lock(&m_state->cache->mutex);
    return m_state->cache->images.totalCost();
}

QQuickImageResponse* PhotoProvider::requestImageResponse(const QString& id, const QSize& requestedSize)
{
    const auto job = std::make_shared<Job>();
    auto* const response = new PhotoResponse(job);
    const QString cacheKey =
        QStringLiteral("%1 %2x%3").arg(id).arg(requestedSize.width()).arg(requestedSize.height());
    if (const QImage image = m_state->cache->find(cacheKey); !image.isNull()) {
        job->image = image;
        QMetaObject::invokeMethod(response, &QQuickImageResponse::finished, Qt::QueuedConnection);
        return response;
    }

    const qsizetype mark = id.indexOf(u'?');
    const QString key = mark < 0 ? id : id.first(mark);
    const PhotoShape shape = shapeOf(mark < 0 ? QString() : id.sliced(mark + 1), requestedSize);
    const std::weak_ptr<State> weak = m_state;
    if (key.startsWith(tintPrefix)) {
        m_state->pool.start([cache = m_state->cache, job, key, cacheKey, shape] {
            const QStringList tints = key.sliced(tintPrefix.size()).split(u'/');
            const QImage image =
                placeholder(QColor(u'#' + tints.value(0)), QColor(u'#' + tints.value(1)), shape);
            cache->keep(cacheKey, image);
            job->finish(image);
        });
        return response;
    }
    const auto fetch = [weak, job, key, cacheKey, shape] {
        const auto state = weak.lock();
        if (!state || job->isCancelled)
            return job->finish(nothing());
        const QByteArray jpeg = state->bytes(key);
        if (jpeg.isEmpty())
            return job->finish(nothing());
        state->pool.start([cache = state->cache, job, jpeg, cacheKey, shape] {
            const QImage image = job->isCancelled ? QImage() : shapedPhoto(jpeg, shape);
            if (!image.isNull())
                cache->keep(cacheKey, image);
            job->finish(image.isNull() ? nothing() : image);
        });
    };
    if (m_state->context)
        QMetaObject::invokeMethod(m_state->context, fetch, Qt::QueuedConnection);
    else
        QMetaObject::invokeMethod(response, &QQuickImageResponse::finished, Qt::QueuedConnection);
    return response;
}

} // namespace ovrin
