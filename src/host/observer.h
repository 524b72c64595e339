// Reporting the machine's operations to whoever observes them, and letting the observer make them fail.
#pragma once

#include <cstdint>

#include "inkstone/host.h"

namespace ink::host {

inline HOST_OBSERVER observer = nullptr;

// Whether the operation, told as one line by a printf format, may happen; always true without an observer.
[[gnu::format(printf, 1, 2)]] bool allowed(const char *format, ...);

// The same for an operation that can fail in more than one way: the observer's answer, 0 for yes.
[[gnu::format(printf, 1, 2)]] std::int32_t answer(const char *format, ...);

}  // namespace ink::host
