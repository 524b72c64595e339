// Reporting the machine's operations to whoever observes them, and letting the observer make them fail.
#pragma once

#include "inkstone/host.h"

namespace ink::host {

inline HOST_OBSERVER observer = nullptr;

// Whether the operation, told as one line by a printf format, may happen; always true without an observer.
[[gnu::format(printf, 1, 2)]] bool allowed(const char *format, ...);

}  // namespace ink::host
