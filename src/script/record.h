// The saved state of the script system, kept as the very bytes that the game takes out and brings back:
// name (80 bytes), code size, position, variable count, variables.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/reader.h"
#include "script/memory.h"

namespace ink::script {

class Record {
  public:
    static constexpr std::size_t kNameSize = 80, kHeader = 92;

    // Bytes of a record of that many variables, or 0 when there cannot be one: sizes are given out as signed
    // numbers.
    static std::size_t size_for(std::uint32_t variable_count);

    // Releases the record and makes a new one with all variables 0; false, and no record, when memory is
    // exhausted.
    bool create(std::uint32_t variable_count);
    // The same with the contents of a saved state.
    bool assign(const std::uint8_t *source);
    void release();

    explicit operator bool() const { return bytes_ != nullptr; }
    std::size_t size() const { return bytes_ ? kHeader + std::size_t{4} * variable_count_ : 0; }
    const std::uint8_t *bytes() const { return bytes_.get(); }
    const char *name() const { return reinterpret_cast<const char *>(bytes_.get()); }

    // Longer names are cut.
    void set_name(const char *name);
    void set_code_size(std::uint32_t size) { put_u32(bytes_.get() + kCodeSizeAt, size); }
    void set_position(std::uint32_t position) { put_u32(bytes_.get() + kPositionAt, position); }

    // The variables, for a run that has checked its indices.
    std::uint8_t *variables() { return bytes_.get() + kHeader; }
    std::uint32_t variable_count() const { return variable_count_; }
    bool has_variable(std::int32_t index) const {
        return static_cast<std::uint32_t>(index) < variable_count_;
    }
    // 0 when there is no such variable.
    std::int32_t variable(std::int32_t index) const {
        return has_variable(index) ? static_cast<std::int32_t>(get_u32(place(index))) : 0;
    }
    void set_variable(std::int32_t index, std::int32_t value) {
        if (has_variable(index)) put_u32(place(index), static_cast<std::uint32_t>(value));
    }

  private:
    static constexpr std::size_t kCodeSizeAt = 80, kPositionAt = 84, kVariableCountAt = 88;
    std::uint8_t *place(std::int32_t index) const {
        return bytes_.get() + kHeader + std::size_t{4} * static_cast<std::uint32_t>(index);
    }

    Memory bytes_;
    std::uint32_t variable_count_ = 0;
};

}  // namespace ink::script
