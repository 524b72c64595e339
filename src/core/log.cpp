#include "core/log.h"

#include <cstdarg>
#include <cstdio>
#include <string>

#include "host/file_name.h"
#include "inkstone/runtime.h"

namespace ink {
namespace {

void append_line(const char *message, const char *file_name) {
    // Text mode, so that the platform's own line end is written.
    const host::File file = host::open_file(file_name, "a+");
    if (!file) return;
    std::fputs(message, file.get());
    std::fputc('\n', file.get());
}

void append_formatted(const char *file_name, const char *format, std::va_list arguments) {
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    std::string line(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    std::vsnprintf(line.data(), line.size() + 1, format, again);
    va_end(again);
    append_line(line.c_str(), file_name);
}

}  // namespace

void log_error(const char *message) {
    append_line(message, kErrorLog);
}

void log_error_format(const char *format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    append_formatted(kErrorLog, format, arguments);
    va_end(arguments);
}

void log_format_to_file(const char *file_name, const char *format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    append_formatted(file_name, format, arguments);
    va_end(arguments);
}

void log_open_error(const char *name) {
    log_error_format("File %s open error", name);
}

}  // namespace ink

void log_error_to_file(const char *message, const char *file_name) {
    ink::append_line(message, file_name);
}
