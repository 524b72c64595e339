#include "core/log.h"

#include <cstdarg>
#include <cstdio>

#include "host/file_name.h"
#include "inkstone/runtime.h"

namespace ink {
namespace {

// Appends a line, written by write, in text mode, so that the platform's own line end follows it.
template <class Write>
void append_line(const char *file_name, Write write) {
    const host::File file = host::open_file(file_name, "a+");
    if (!file) return;
    write(file.get());
    std::fputc('\n', file.get());
}

void append_formatted(const char *file_name, const char *format, std::va_list arguments) {
    append_line(file_name, [&](std::FILE *file) { std::vfprintf(file, format, arguments); });
}

}  // namespace

void log_error(const char *message) {
    log_error_to_file(message, kErrorLog);
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
    log_error_format("File %s open error", text_of(name));
}

}  // namespace ink

void log_error_to_file(const char *message, const char *file_name) {
    ink::append_line(file_name, [message](std::FILE *file) { std::fputs(ink::text_of(message), file); });
}
