#pragma once

#include <QtCore/QStringList>

namespace ovrin {

/// What one run of a program with a window cost, from its start to its first frame.
struct Start
{
    /// By the clock, in milliseconds.
    double wall = 0;
    /// The same until the frame that shows what the window is there for; of a window that shows it at once
    /// the same.
    double filled = 0;
    /// Of all its threads' processor time, in milliseconds.
    double processor = 0;
    /// A second later, in megabytes: memory that it shares with others in proportion, and what is its alone.
    double proportional = 0;
    double own = 0;
};

/// Starts `program`, waits for its first frame, and ends it. `folder` takes its settings; `isOurs` tells that
/// it says when its window is filled. Ends this program when no frame comes.
Start startOf(const QString& program, const QStringList& arguments, const QString& folder, bool isOurs);

} // namespace ovrin
