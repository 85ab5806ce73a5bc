#pragma once

#include "import/web/PhotoMaker.h"
#include "platform/reader/DocumentReader.h"

namespace ovrin {

/// Photos by way of the document reader, so that foreign bytes are decoded out of reach of everything.
class ReaderPhotoMaker : public PhotoMaker
{
public:
    /// Longer than any photo takes that is worth having, and shorter than the reader's own limit.
    static constexpr std::chrono::milliseconds defaultTime{20'000};

    /// `program` is the document reader's path. Every photo is ready, or given up, within `time`.
    explicit ReaderPhotoMaker(QString program, std::chrono::milliseconds time = defaultTime);

    QCoro::Task<std::optional<Photo>> photo(QByteArray bytes, std::stop_token stop) override;

private:
    DocumentReader m_reader;
    std::chrono::milliseconds m_time;
};

} // namespace ovrin
