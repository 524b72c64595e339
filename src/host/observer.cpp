#include "host/observer.h"

#include <cstdarg>
#include <cstdio>

namespace ink::host {

bool allowed(const char *format, ...) {
    if (observer == nullptr) return true;
    char call[256];
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(call, sizeof call, format, arguments);
    va_end(arguments);
    return observer(call) == 0;
}

}  // namespace ink::host
