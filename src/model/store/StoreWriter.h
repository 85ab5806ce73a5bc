#pragma once

#include "model/RecipeRecord.h"
#include "model/SaveResult.h"
#include "model/store/Sqlite.h"

#include <QtCore/QPromise>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace ovrin {

/// One change on its way to the disk.
struct Write
{
    /// A Barrier changes nothing: it answers when all before it are done, with the first error among those
    /// since the barrier before.
    enum class Kind { Insert, Update, Remove, Barrier };

    Kind kind = Kind::Barrier;
    RecipeRecord record;
    /// Of an update: what to write.
    RecipeAttributes attributes;
    std::optional<QPromise<SaveResult>> promise;
};

/// What became of a write.
struct Written
{
    Write::Kind kind = Write::Kind::Barrier;
    QUuid id;
    SaveResult result;
    /// It failed because the file is damaged.
    bool metDamage = false;
};

/// What became of the writes of one transaction.
struct WrittenBatch
{
    std::vector<Written> writes;
    /// The change log's last number before and after: what lies between is these writes' own.
    qint64 sequenceBefore = 0;
    qint64 sequenceAfter = 0;
};

/// Writes in order, on a thread and a connection of its own. Writes that wait together share a transaction,
/// for a synchronisation costs more than all the rest; each is answered only when that transaction is
/// durable.
class StoreWriter
{
public:
    /// `report` is called on the writer's thread, before the promises of the batch are kept.
    using Report = std::function<void(WrittenBatch)>;

    StoreWriter(sqlite::Connection connection, Report report);
    /// Returns when everything handed in has been tried.
    ~StoreWriter();
    StoreWriter(const StoreWriter&) = delete;
    StoreWriter& operator=(const StoreWriter&) = delete;

    void enqueue(Write write);

private:
    using Batch = std::deque<Write>;

    void run();
    Batch next();
    void perform(Batch& batch);
    WrittenBatch writeTogether(Batch& batch);
    SaveResult writeOne(Write& write);

    sqlite::Connection m_connection;
    Report m_report;
    /// The first failure since the last barrier.
    QString m_firstError;

    std::mutex m_mutex;
    std::condition_variable m_wake;
    Batch m_queue;
    bool m_ends = false;
    std::thread m_thread;
};

} // namespace ovrin
