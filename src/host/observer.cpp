#include "host/observer.h"

#include <cstdarg>
#include <cstdio>

namespace ink::host {

namespace {

std::int32_t ask(const char *format, std::va_list arguments) {
    char call[256];
    std::vsnprintf(call, sizeof call, format, arguments);
    return observer(call);
}

}  // namespace

bool allowed(const char *format, ...) {
    if (observer == nullptr) return true;
    std::va_list arguments;
    va_start(arguments, format);
    const std::int32_t answered = ask(format, arguments);
    va_end(arguments);
    return answered == 0;
}

std::int32_t answer(const char *format, ...) {
    if (observer == nullptr) return 0;
    std::va_list arguments;
    va_start(arguments, format);
    const std::int32_t answered = ask(format, arguments);
    va_end(arguments);
    return answered;
}

}  // namespace ink::host
