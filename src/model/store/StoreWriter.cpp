#include "model/store/StoreWriter.h"

#include "model/store/RecordSql.h"

#include <algorithm>

namespace ovrin {

namespace {

/// Writes that share a transaction; more would keep the first one waiting and the log growing.
constexpr std::size_t maxBatch = 256;

qint64 lastSequence(sqlite::Connection& connection)
{
    return connection.number("SELECT ifnull(max(sequence), 0) FROM Change");
}

} // namespace

StoreWriter::StoreWriter(sqlite::Connection connection, Report report)
    : m_connection(std::move(connection))
    , m_report(std::move(report))
    , m_thread([this] { run(); })
{
}

StoreWriter::~StoreWriter()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void StoreWriter::enqueue(Write write)
{
    {
        const std::lock_guard lock(m_mutex);
        m_queue.push_back(std::move(write));
    }
    m_wake.notify_one();
}

void StoreWriter::run()
{
    for (Batch batch = next(); !batch.empty(); batch = next())
        perform(batch);
}

StoreWriter::Batch StoreWriter::next()
{
    std::unique_lock lock(m_mutex);
    m_wake.wait(lock, [this] { return m_ends || !m_queue.empty(); });
    Batch batch;
    while (!m_queue.empty() && batch.size() < maxBatch) {
        batch.push_back(std::move(m_queue.front()));
        m_queue.pop_front();
    }
    return batch;
}

void StoreWriter::perform(Batch& batch)
{
    const auto answer = [this](Batch& writes, const WrittenBatch& written) {
        m_report(written);
        for (std::size_t i = 0; i < writes.size(); ++i) {
            if (auto& promise = writes[i].promise) {
                promise->addResult(written.writes[i].result);
                promise->finish();
            }
        }
    };
    try {
        answer(batch, writeTogether(batch));
        return;
    } catch (const sqlite::Error&) {
    }
    // One write's failure is not the others': each for itself.
    for (Write& write : batch) {
        Batch single;
        single.push_back(std::move(write));
        WrittenBatch written;
        try {
            written = writeTogether(single);
        } catch (const sqlite::Error& error) {
            written.writes = {
                {single.front().kind, single.front().record.id, {error.description()}, error.isDamage()}};
            if (m_firstError.isEmpty())
                m_firstError = error.description();
        }
        answer(single, written);
    }
}

WrittenBatch StoreWriter::writeTogether(Batch& batch)
{
    WrittenBatch written;
    const auto writeAll = [&] {
        for (Write& write : batch)
            written.writes.push_back({write.kind, write.record.id, writeOne(write), false});
    };
    if (std::ranges::all_of(batch, [](const Write& write) { return write.kind == Write::Kind::Barrier; })) {
        writeAll();
        return written;
    }
    const QString errorBefore = m_firstError;
    try {
        sqlite::Transaction transaction(m_connection);
        written.sequenceBefore = lastSequence(m_connection);
        writeAll();
        written.sequenceAfter = lastSequence(m_connection);
        transaction.commit();
    } catch (const sqlite::Error&) {
        m_firstError = errorBefore;
        throw;
    }
    return written;
}

SaveResult StoreWriter::writeOne(Write& write)
{
    bool found = true;
    switch (write.kind) {
    case Write::Kind::Insert:
        insertRecipe(m_connection, write.record);
        break;
    case Write::Kind::Update:
        found = updateRecipe(m_connection, write.record, write.attributes);
        break;
    case Write::Kind::Remove:
        // Gone already is as good as removed.
        removeRecipe(m_connection, write.record.id);
        break;
    case Write::Kind::Barrier:
        return {std::exchange(m_firstError, QString())};
    }
    if (found)
        return {};
    SaveResult gone{QStringLiteral("The recipe is no longer in the library.")};
    if (m_firstError.isEmpty())
        m_firstError = gone.error;
    return gone;
}

} // namespace ovrin
