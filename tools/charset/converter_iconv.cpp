#include <iconv.h>

#include <array>

#include "charset/converter.h"

namespace ink::tool {

struct Converter::Tables {
    iconv_t handle;
    bool known() const { return handle != reinterpret_cast<iconv_t>(-1); }
};

Converter::Converter(const char *to, const char *from) : tables_(new Tables{iconv_open(to, from)}) {}

Converter::~Converter() {
    if (tables_->known()) iconv_close(tables_->handle);
}

std::optional<std::string> Converter::convert(std::string_view text) const {
    if (!tables_->known()) return std::nullopt;
    iconv(tables_->handle, nullptr, nullptr, nullptr, nullptr);
    std::array<char, 16> bytes;
    char *in = const_cast<char *>(text.data()), *out = bytes.data();
    std::size_t in_left = text.size(), out_left = bytes.size();
    if (iconv(tables_->handle, &in, &in_left, &out, &out_left) != 0 || in_left != 0) return std::nullopt;
    return std::string(bytes.data(), bytes.size() - out_left);
}

}  // namespace ink::tool
