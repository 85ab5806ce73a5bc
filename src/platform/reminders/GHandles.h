#pragma once

#include <QtCore/QString>

#include <gio/gio.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace ovrin {

struct GObjectDeleter
{
    void operator()(void* object) const { g_object_unref(object); }
};
template<typename T>
using GRef = std::unique_ptr<T, GObjectDeleter>;

struct GMainContextScope
{
    // Synchronous calls of this library iterate the thread's context; one of our own keeps them off Qt's.
    GMainContextScope()
        : context(g_main_context_new())
    {
        g_main_context_push_thread_default(context);
    }
    ~GMainContextScope()
    {
        g_main_context_pop_thread_default(context);
        g_main_context_unref(context);
    }
    GMainContextScope(const GMainContextScope&) = delete;
    GMainContextScope& operator=(const GMainContextScope&) = delete;
    GMainContext* context;
};

/// A GError to be filled by a call, freed with its scope.
class GFailure
{
public:
    GFailure() = default;
    GFailure(const GFailure&) = delete;
    GFailure& operator=(const GFailure&) = delete;
    ~GFailure() { g_clear_error(&m_error); }
    operator GError**() { return &m_error; }
    explicit operator bool() const { return m_error != nullptr; }
    bool is(GQuark domain, int code) const { return m_error && g_error_matches(m_error, domain, code); }

private:
    GError* m_error = nullptr;
};

/// Cancels `cancellable()` when the time limit has passed before the scope ends.
class Deadline
{
public:
    explicit Deadline(std::chrono::milliseconds limit)
        : m_cancellable(g_cancellable_new())
        , m_watch([this, limit](const std::stop_token& stop) {
            std::unique_lock lock(m_mutex);
            if (!m_ended.wait_for(lock, stop, limit, [&] { return stop.stop_requested(); }))
                g_cancellable_cancel(m_cancellable.get());
        })
    {
    }
    GCancellable* cancellable() const { return m_cancellable.get(); }

private:
    GRef<GCancellable> m_cancellable;
    std::mutex m_mutex;
    std::condition_variable_any m_ended;
    std::jthread m_watch;
};

} // namespace ovrin
