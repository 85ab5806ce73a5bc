#pragma once

#include <QCoro/QCoroTask>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>

#include <exception>
#include <memory>
#include <optional>

namespace ovrin {

/// What became of a task: its value or what it threw.
template<typename T>
struct Outcome
{
    std::optional<T> value;
    std::exception_ptr error;
    bool done = false;

    /// The error as an `Error`, if it is one.
    template<typename Error>
    std::optional<Error> failure() const
    {
        try {
            if (error) {
                std::rethrow_exception(error);
            }
        } catch (const Error& thrown) {
            return thrown;
        } catch (...) {
        }
        return std::nullopt;
    }
};

namespace detail {

template<typename T>
QCoro::Task<> follow(QCoro::Task<T> task, std::shared_ptr<Outcome<T>> outcome)
{
    try {
        outcome->value = co_await task;
    } catch (...) {
        outcome->error = std::current_exception();
    }
    outcome->done = true;
}

} // namespace detail

/// Follows a running task; the outcome fills when it ends.
template<typename T>
std::shared_ptr<Outcome<T>> outcomeOf(QCoro::Task<T> task)
{
    auto outcome = std::make_shared<Outcome<T>>();
    detail::follow(std::move(task), outcome);
    return outcome;
}

/// Runs the event loop until `condition` holds; false when it does not within a generous time.
template<typename Condition>
bool runUntil(Condition condition)
{
    QDeadlineTimer deadline(20'000);
    while (!condition() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    }
    return condition();
}

/// Runs the event loop until the task ends.
template<typename T>
Outcome<T> finished(QCoro::Task<T> task)
{
    const auto outcome = outcomeOf(std::move(task));
    runUntil([&] { return outcome->done; });
    return *outcome;
}

} // namespace ovrin
