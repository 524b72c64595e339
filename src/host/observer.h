// Reporting the machine's operations to whoever observes them, and letting the observer make them fail.
#pragma once

#include "inkstone/host.h"

namespace ink::host {

inline HOST_OBSERVER observer = nullptr;

[[gnu::format(printf, 1, 2)]] bool ask_observer(const char *format, ...);

// Whether an operation may happen: true without an observer, which costs one comparison.
template <class... Arguments>
bool allowed(const char *format, Arguments... arguments) {
    return observer == nullptr || ask_observer(format, arguments...);
}

}  // namespace ink::host
