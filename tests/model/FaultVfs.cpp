#include "model/FaultVfs.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <sqlite3.h>

#include <cstring>
#include <new>

namespace ovrin {

namespace {

struct FaultFile
{
    sqlite3_file base;
    FaultVfs* owner;
    std::string* path;

    sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

FaultFile* faulty(sqlite3_file* file)
{
    return reinterpret_cast<FaultFile*>(file);
}

sqlite3_file* real(sqlite3_file* file)
{
    return faulty(file)->real();
}

int closeFile(sqlite3_file* file)
{
    delete faulty(file)->path;
    return real(file)->pMethods->xClose(real(file));
}

int writeFile(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset)
{
    const int fault = faulty(file)->owner->beforeOperation(FaultVfs::Operation::Write);
    const int written = fault == SQLITE_OK ? size : size / 2;
    const int code = real(file)->pMethods->xWrite(real(file), data, written, offset);
    if (code == SQLITE_OK)
        faulty(file)->owner->noteWrite(*faulty(file)->path, data, written, offset);
    return fault != SQLITE_OK ? fault : code;
}

int syncFile(sqlite3_file* file, int)
{
    const int fault = faulty(file)->owner->beforeOperation(FaultVfs::Operation::Sync);
    if (fault == SQLITE_OK)
        faulty(file)->owner->noteSync(*faulty(file)->path);
    return fault;
}

int truncateFile(sqlite3_file* file, sqlite3_int64 size)
{
    faulty(file)->owner->noteTruncate(*faulty(file)->path, size);
    return real(file)->pMethods->xTruncate(real(file), size);
}

const sqlite3_io_methods methods{
    3,
    closeFile,
    [](sqlite3_file* f, void* data, int size, sqlite3_int64 offset) {
        return real(f)->pMethods->xRead(real(f), data, size, offset);
    },
    writeFile,
    truncateFile,
    syncFile,
    [](sqlite3_file* f, sqlite3_int64* size) { return real(f)->pMethods->xFileSize(real(f), size); },
    [](sqlite3_file* f, int lock) { return real(f)->pMethods->xLock(real(f), lock); },
    [](sqlite3_file* f, int lock) { return real(f)->pMethods->xUnlock(real(f), lock); },
    [](sqlite3_file* f, int* is) { return real(f)->pMethods->xCheckReservedLock(real(f), is); },
    [](sqlite3_file* f, int op, void* arg) { return real(f)->pMethods->xFileControl(real(f), op, arg); },
    [](sqlite3_file* f) { return real(f)->pMethods->xSectorSize(real(f)); },
    [](sqlite3_file* f) { return real(f)->pMethods->xDeviceCharacteristics(real(f)); },
    [](sqlite3_file* f, int page, int size, int extend, void volatile** to) {
        return real(f)->pMethods->xShmMap(real(f), page, size, extend, to);
    },
    [](sqlite3_file* f, int offset, int n, int flags) {
        return real(f)->pMethods->xShmLock(real(f), offset, n, flags);
    },
    [](sqlite3_file* f) { real(f)->pMethods->xShmBarrier(real(f)); },
    [](sqlite3_file* f, int remove) { return real(f)->pMethods->xShmUnmap(real(f), remove); },
    [](sqlite3_file* f, sqlite3_int64 offset, int size, void** to) {
        return real(f)->pMethods->xFetch(real(f), offset, size, to);
    },
    [](sqlite3_file* f, sqlite3_int64 offset, void* from) {
        return real(f)->pMethods->xUnfetch(real(f), offset, from);
    },
};

FaultVfs& ownerOf(sqlite3_vfs* vfs)
{
    return *static_cast<FaultVfs*>(vfs->pAppData);
}

int openFile(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    FaultVfs& owner = ownerOf(vfs);
    auto* opened = new (file) FaultFile{{nullptr}, &owner, nullptr};
    const int code = owner.real()->xOpen(owner.real(), name, opened->real(), flags, outFlags);
    if (code == SQLITE_OK) {
        opened->path = new std::string(name ? name : "");
        opened->base.pMethods = &methods;
    }
    return code;
}

int deleteFile(sqlite3_vfs* vfs, const char* name, int syncFolder)
{
    ownerOf(vfs).noteDelete(name);
    return ownerOf(vfs).real()->xDelete(ownerOf(vfs).real(), name, syncFolder);
}

sqlite3_mem_methods systemMemory;
std::atomic<int> allocationCount = 0;
std::atomic<int> failingAllocation = 0;
std::atomic<bool> failsForGood = false;

thread_local bool isExempt = false;

bool mayAllocate()
{
    if (isExempt)
        return true;
    const int number = ++allocationCount;
    const int failing = failingAllocation;
    return failing == 0 || (failsForGood ? number < failing : number != failing);
}

/// Before SQLite's first use, which is the only time that its allocator can be replaced.
const bool memoryInstalled = [] {
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &systemMemory);
    sqlite3_mem_methods wrapped = systemMemory;
    wrapped.xMalloc = [](int size) { return mayAllocate() ? systemMemory.xMalloc(size) : nullptr; };
    wrapped.xRealloc = [](void* old, int size) {
        return mayAllocate() ? systemMemory.xRealloc(old, size) : nullptr;
    };
    return sqlite3_config(SQLITE_CONFIG_MALLOC, &wrapped) == SQLITE_OK;
}();

} // namespace

FaultVfs::FaultVfs()
    : m_real(sqlite3_vfs_find(nullptr))
    , m_vfs(std::make_unique<sqlite3_vfs>(*m_real))
{
    m_vfs->szOsFile = static_cast<int>(sizeof(FaultFile)) + m_real->szOsFile;
    m_vfs->zName = "faulty";
    m_vfs->pAppData = this;
    m_vfs->pNext = nullptr;
    m_vfs->xOpen = openFile;
    m_vfs->xDelete = deleteFile;
    sqlite3_vfs_register(m_vfs.get(), 0);
}

FaultVfs::~FaultVfs()
{
    sqlite3_vfs_unregister(m_vfs.get());
}

void FaultVfs::setFault(Fault fault)
{
    const std::lock_guard lock(m_mutex);
    m_fault = std::move(fault);
}

int FaultVfs::beforeOperation(Operation operation)
{
    const int number = ++m_operations;
    const std::lock_guard lock(m_mutex);
    return m_fault ? m_fault(number, operation) : SQLITE_OK;
}

void FaultVfs::trackDurability(bool track)
{
    const std::lock_guard lock(m_mutex);
    m_tracks = track;
    m_files.clear();
}

namespace {

void overlay(QByteArray& content, long long offset, const QByteArray& bytes)
{
    const auto end = static_cast<qsizetype>(offset) + bytes.size();
    if (content.size() < end)
        content.append(end - content.size(), '\0');
    std::memcpy(content.data() + offset, bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

} // namespace

void FaultVfs::noteWrite(const std::string& path, const void* data, int size, long long offset)
{
    const std::lock_guard lock(m_mutex);
    if (m_tracks)
        m_files[path].pending.push_back({offset, QByteArray(static_cast<const char*>(data), size)});
}

void FaultVfs::noteTruncate(const std::string& path, long long size)
{
    const std::lock_guard lock(m_mutex);
    if (!m_tracks)
        return;
    TrackedFile& file = m_files[path];
    file.durable.truncate(static_cast<qsizetype>(size));
    std::erase_if(file.pending, [&](const PendingWrite& write) { return write.offset >= size; });
}

void FaultVfs::noteSync(const std::string& path)
{
    const std::lock_guard lock(m_mutex);
    if (!m_tracks)
        return;
    TrackedFile& file = m_files[path];
    for (const PendingWrite& write : file.pending)
        overlay(file.durable, write.offset, write.bytes);
    file.pending.clear();
}

void FaultVfs::noteDelete(const std::string& path)
{
    const std::lock_guard lock(m_mutex);
    m_files.erase(path);
}

void FaultVfs::cutPower(const QString& folder, const QString& into, std::mt19937& random)
{
    constexpr qsizetype sector = 512;
    const std::lock_guard lock(m_mutex);
    for (const auto& [path, file] : m_files) {
        const QString name = QString::fromStdString(path);
        // The index in shared memory is rebuilt from the log; it is no file of the disk.
        if (QFileInfo(name).absolutePath() != QFileInfo(folder).absoluteFilePath() ||
            name.endsWith(QStringLiteral("-shm")))
            continue;
        QByteArray content = file.durable;
        for (const PendingWrite& write : file.pending) {
            for (qsizetype at = 0; at < write.bytes.size(); at += sector) {
                if (random() % 2 == 0)
                    overlay(content, write.offset + at, write.bytes.mid(at, sector));
            }
        }
        QFile written(QDir(into).filePath(QFileInfo(name).fileName()));
        written.open(QIODevice::WriteOnly);
        written.write(content);
    }
}

void failAllocation(int n, bool forGood, bool elsewhere)
{
    isExempt = elsewhere;
    allocationCount = 0;
    failsForGood = forGood;
    failingAllocation = n;
}

int allocations()
{
    return allocationCount;
}

} // namespace ovrin
