#pragma once

#include <QtCore/QString>

namespace ovrin {

/// How a save ended: durably, or not at all and why.
struct SaveResult
{
    /// A sentence for the user; empty when the save is durable.
    QString error;

    bool isSaved() const { return error.isEmpty(); }
};

} // namespace ovrin
