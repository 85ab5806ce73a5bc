#pragma once

#include <QCoro/QCoroTask>

#include <exception>
#include <optional>

namespace ovrin {

namespace detail {

template<typename T>
QCoro::Task<void> keepOutcome(QCoro::Task<T> task, std::optional<T>& result, std::exception_ptr& error)
{
    try {
        result = co_await task;
    } catch (...) {
        error = std::current_exception();
    }
}

} // namespace detail

/// Waits for `task` while events go on, for programs that have nothing else to do. Throws what it throws.
template<typename T>
T awaited(QCoro::Task<T> task)
{
    // Waiting for a task that throws would never end: the outcome is caught inside.
    std::optional<T> result;
    std::exception_ptr error;
    QCoro::waitFor(detail::keepOutcome(std::move(task), result, error));
    if (error)
        std::rethrow_exception(error);
    return *std::move(result);
}

} // namespace ovrin
