#include "script/record.h"

#include <cstring>
#include <limits>

namespace ink::script {

std::size_t Record::size_for(std::uint32_t variable_count) {
    const std::uint64_t size = kHeader + std::uint64_t{4} * variable_count;
    return size <= std::numeric_limits<std::int32_t>::max() ? static_cast<std::size_t>(size) : 0;
}

bool Record::create(std::uint32_t variable_count) {
    release();
    const std::size_t size = size_for(variable_count);
    if (size != 0) bytes_ = zeroed(size);
    if (!bytes_) return false;
    variable_count_ = variable_count;
    put_u32(bytes_.get() + kVariableCountAt, variable_count);
    return true;
}

bool Record::assign(const std::uint8_t *source) {
    if (!create(get_u32(source + kVariableCountAt))) return false;
    std::memcpy(bytes_.get(), source, size());
    bytes_[kNameSize - 1] = 0;  // a name from outside need not end
    return true;
}

void Record::release() {
    bytes_.reset();
    variable_count_ = 0;
}

void Record::set_name(const char *name) {
    char *field = reinterpret_cast<char *>(bytes_.get());
    std::memset(field, 0, kNameSize);
    std::strncpy(field, name, kNameSize - 1);
}

}  // namespace ink::script
