#include "mac/big5.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "mac/diagnostic.h"

namespace ink::mac {
namespace {

class Converter {
  public:
    Converter(const char *to, const char *from) : handle_(iconv_open(to, from)) {
        if (handle_ == kNone) throw std::runtime_error("this system cannot convert to and from Big5");
    }
    ~Converter() { iconv_close(handle_); }
    Converter(const Converter &) = delete;
    Converter &operator=(const Converter &) = delete;

    std::optional<std::string> convert(std::string_view text) {
        std::array<char, 16> out;
        char *from = const_cast<char *>(text.data()), *to = out.data();
        std::size_t left = text.size(), room = out.size();
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        if (iconv(handle_, &from, &left, &to, &room) != 0 || left != 0) return std::nullopt;
        return std::string(out.data(), to);
    }

  private:
    static inline const iconv_t kNone = reinterpret_cast<iconv_t>(-1);
    iconv_t handle_;
};

}  // namespace

std::optional<std::string> to_big5(std::string_view character) {
    static Converter converter("BIG5", "UTF-8");
    return converter.convert(character);
}

std::optional<std::string> from_big5(std::string_view bytes) {
    static Converter converter("UTF-8", "BIG5");
    auto character = converter.convert(bytes);
    const bool one = character && std::ranges::count_if(*character, begins_character) == 1;
    if (!one || to_big5(*character) != bytes) return std::nullopt;
    return character;
}

}  // namespace ink::mac
