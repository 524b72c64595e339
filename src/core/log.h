// The library's own way into the error log: every family reports its recoverable failures through here.
#pragma once

namespace ink {

inline constexpr const char *kErrorLog = "ERROR.MSG";

// Appends one line to ERROR.MSG.
void log_error(const char *message);

// A name given to the library, for a line that names it: a null one is no text.
inline const char *text_of(const char *name) {
    return name != nullptr ? name : "";
}

// Appends one line made by a printf format to ERROR.MSG. Names of any length are taken whole, and no memory
// is asked for: exhausted memory is reported through here too.
[[gnu::format(printf, 1, 2)]] void log_error_format(const char *format, ...);

// The same into another log file.
[[gnu::format(printf, 2, 3)]] void log_format_to_file(const char *file_name, const char *format, ...);

// Appends "File <name> open error", the line that several families share, to ERROR.MSG.
void log_open_error(const char *name);

}  // namespace ink
