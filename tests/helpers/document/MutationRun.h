#pragma once

#include <QtCore/QString>

namespace ovrin {

/// What became of documents that were changed at random and imported.
struct MutationTally
{
    int drafts = 0;
    int withoutText = 0;
    int damaged = 0;
    /// Any other error, or none in time: there must be none.
    int unspecified = 0;
    /// Among the damaged: those that ended the reader, and those whose time ran out.
    int ended = 0;
    int timedOut = 0;
    qint64 longestMilliseconds = 0;
};

/// Imports `count` changed documents by way of the reader in its cage; the same ones for the same seed.
/// `warmReader` is the program `test-warm-reader`.
MutationTally mutationRun(int count, unsigned seed, const QString& warmReader);

/// Processes that this one has started and that are still there.
int childProcesses();

} // namespace ovrin
