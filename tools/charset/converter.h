// Converting one character from one character set into another, by the system's own tables.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace ink::tool {

// The sets are named CP950, BIG5, CP437, UTF-8, UTF-32BE and UTF-32LE. One that the system does not know
// converts nothing.
class Converter {
  public:
    Converter(const char *to, const char *from);
    ~Converter();
    Converter(const Converter &) = delete;
    Converter &operator=(const Converter &) = delete;

    // Nothing unless the whole of text is one character that has an exact counterpart.
    std::optional<std::string> convert(std::string_view text) const;

  private:
    struct Tables;
    std::unique_ptr<Tables> tables_;
};

}  // namespace ink::tool
