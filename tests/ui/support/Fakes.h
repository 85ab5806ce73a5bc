#pragma once

#include "import/web/PhotoMaker.h"
#include "model/FlagStore.h"
#include "ui/desktop/DesktopActions.h"
#include "ui/desktop/Pasteboard.h"

#include <QtCore/QSet>

namespace ovrin {

/// Makes "photos" at once, or fails at once.
class FakePhotoMaker : public PhotoMaker
{
public:
    bool isBroken = false;

    QCoro::Task<std::optional<Photo>> photo(QByteArray bytes, std::stop_token) override
    {
        co_return isBroken ? std::nullopt
                           : std::optional(Photo{"made of " + bytes, QStringLiteral("808080")});
    }
};

class FakePasteboard : public Pasteboard
{
public:
    QString text() const override { return m_text; }
    std::optional<Picture> picture() const override { return m_picture; }
    void setText(const QString& text) override
    {
        m_text = text;
        m_picture.reset();
    }
    void put(const Picture& picture)
    {
        m_text.clear();
        m_picture = picture;
    }

private:
    QString m_text;
    std::optional<Picture> m_picture;
};

class FakeDesktop : public DesktopActions
{
public:
    bool isThere = true;
    QList<QUrl> opened;

    bool open(const QUrl& url) override
    {
        opened.append(url);
        return isThere;
    }
};

class FakeFlags : public FlagStore
{
public:
    QSet<QString> set;

    bool flag(const QString& key) const override { return set.contains(key); }
    void setFlag(const QString& key, bool value) override
    {
        if (value)
            set.insert(key);
        else
            set.remove(key);
    }
};

} // namespace ovrin
