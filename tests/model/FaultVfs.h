#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <random>
#include <string>
#include <vector>

struct sqlite3_file;
struct sqlite3_vfs;

namespace ovrin {

/// A file layer under SQLite that lies on the system's own and fails on demand. Nothing is really
/// synchronised: what a synchronisation would have made durable is kept in mind instead, so that a power cut
/// can be played.
class FaultVfs
{
public:
    enum class Operation { Write, Sync };
    /// Asked before each write and each sync, which are counted together from 1; an SQLite result code other
    /// than 0 is the operation's outcome. A failing write leaves half of its bytes behind, as a full disk
    /// would.
    using Fault = std::function<int(int number, Operation operation)>;

    FaultVfs();
    ~FaultVfs();
    FaultVfs(const FaultVfs&) = delete;
    FaultVfs& operator=(const FaultVfs&) = delete;

    QByteArray name() const { return "faulty"; }
    void setFault(Fault fault);
    int operations() const { return m_operations; }
    void startCounting() { m_operations = 0; }

    /// Keeps in mind from now on what lies on the disk's surface and what only in its cache.
    void trackDurability(bool track);
    /// Writes the files of `folder` as a power cut would leave them into `into`: what was synchronised, and
    /// of the rest some sectors and not others.
    void cutPower(const QString& folder, const QString& into, std::mt19937& random);

    int beforeOperation(Operation operation);
    void noteWrite(const std::string& path, const void* data, int size, long long offset);
    void noteTruncate(const std::string& path, long long size);
    void noteSync(const std::string& path);
    void noteDelete(const std::string& path);

    sqlite3_vfs* real() const { return m_real; }

private:
    struct PendingWrite
    {
        long long offset;
        QByteArray bytes;
    };
    struct TrackedFile
    {
        QByteArray durable;
        std::vector<PendingWrite> pending;
    };

    sqlite3_vfs* m_real = nullptr;
    std::unique_ptr<sqlite3_vfs> m_vfs;
    std::mutex m_mutex;
    Fault m_fault;
    std::atomic<int> m_operations = 0;
    bool m_tracks = false;
    std::map<std::string, TrackedFile> m_files;
};

/// Makes the n-th allocation of SQLite fail, and all after it too when `forGood`; 0 for none. With
/// `elsewhere` those of the calling thread neither fail nor count.
void failAllocation(int n, bool forGood = false, bool elsewhere = false);
int allocations();

} // namespace ovrin
