#pragma once

#include <gio/gio.h>

namespace ovrin {

enum class TaskService { Reachable, Denied, Absent };

/// Whether the session bus has the task service or can start it. Asking for the service without that gives an
/// object that only logs what it lacks.
TaskService findTaskService(GCancellable* cancellable);

} // namespace ovrin
