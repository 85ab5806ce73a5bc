#pragma once

#include <QCoro/QCoroTask>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>
#include <stop_token>

namespace ovrin {

/// A photo as it is stored.
struct Photo
{
    /// Longer side at most 1600 pixels, sRGB, turned upright.
    QByteArray jpeg;
    /// Average colour as six upper-case hexadecimal digits.
    QString averageColorHex;
};

/// Makes a photo of foreign bytes, out of reach of whatever these bytes might do to a decoder.
class PhotoMaker
{
public:
    virtual ~PhotoMaker() = default;

    /// Nothing when `bytes` is no picture, or one that cannot be read within bounds, or once `stop` is
    /// requested, which ends whatever works on it. Never throws.
    virtual QCoro::Task<std::optional<Photo>> photo(QByteArray bytes, std::stop_token stop) = 0;
};

/// Where no photo can be made.
class NullPhotoMaker : public PhotoMaker
{
public:
    QCoro::Task<std::optional<Photo>> photo(QByteArray bytes, std::stop_token stop) override;
};

} // namespace ovrin
