#include "mac/disassembler.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <set>
#include <string_view>

#include "charset/big5.h"
#include "core/reader.h"
#include "script/instruction_set.h"

namespace ink::mac {
namespace {

constexpr std::size_t kBytesPerLine = 32;
constexpr std::size_t kInstructionHead = 2;

std::string hex(std::uint64_t value, int digits) {
    char text[24];
    std::snprintf(text, sizeof text, "%0*llX", digits, static_cast<unsigned long long>(value));
    return text;
}

std::string in_braces(std::span<const std::uint8_t> bytes) {
    std::string text = "{";
    for (const std::uint8_t byte : bytes) {
        if (text.size() > 1) text += ' ';
        text += hex(byte, 2);
    }
    return text + '}';
}

// At least one line, so that an empty file can be told from none.
std::string lines_of_bytes(const char *word, std::span<const std::uint8_t> bytes) {
    std::string text;
    do {
        const auto line = bytes.first(std::min(bytes.size(), kBytesPerLine));
        text += word + in_braces(line) + '\n';
        bytes = bytes.subspan(line.size());
    } while (!bytes.empty());
    return text;
}

std::string escaped(std::uint8_t byte, char quote) {
    const char c = static_cast<char>(byte);
    if (c == '\n') return "\\n";
    if (c == '\\' || c == quote) return {'\\', c};
    if (byte >= 0x20 && byte < 0x7F) return {c};
    return "\\x" + hex(byte, 2);
}

std::string quoted(std::span<const std::uint8_t> bytes) {
    std::string text = "\"";
    while (!bytes.empty()) {
        const std::string_view pair(reinterpret_cast<const char *>(bytes.data()),
                                    std::min<std::size_t>(bytes.size(), 2));
        const auto character =
            bytes[0] >= 0x80 && pair.size() == 2 ? tool::character_of_big5(pair) : std::nullopt;
        text += character ? *character : escaped(bytes[0], '"');
        bytes = bytes.subspan(character ? 2 : 1);
    }
    return text + '"';
}

std::string list(const std::vector<std::string> &items) {
    std::string text;
    for (const std::string &item : items) text += (text.empty() ? "" : ", ") + item;
    return text;
}

class Disassembler {
  public:
    Disassembler(std::span<const std::uint8_t> file, const Program &declarations)
        : file_(file), declarations_(declarations) {}

    std::string run(const std::string &include) {
        std::string text;
        if (!include.empty()) text += "include \"" + include + "\"\n";
        if (!read_head()) return text + lines_of_bytes("file ", file_);
        find_boundaries();
        find_targets();
        return text + head() + body();
    }

  private:
    // False when the file is no header and whole table.
    bool read_head() {
        Reader reader(file_);
        for (std::uint32_t &word : header_) word = reader.u32();
        const std::uint32_t count = header_[5];
        if (!reader.ok() || count > kMostProcedures || count > reader.left() / 4) return false;
        for (std::uint32_t i = 0; i < count; ++i) table_.push_back(reader.u32());
        code_ = reader.take(reader.left());
        return true;
    }

    std::size_t length_at(std::size_t at) const {
        const std::size_t left = code_.size() - at;
        const std::size_t length = left < kInstructionHead ? 0 : kInstructionHead + code_[at + 1];
        return length <= left ? length : 0;
    }

    void find_boundaries() {
        std::size_t at = 0;
        boundaries_.insert(at);
        for (std::size_t length = length_at(0); length != 0; length = length_at(at)) {
            at += length;
            boundaries_.insert(at);
        }
        end_ = at;
    }

    // Labels stand where an instruction that is written in words jumps to.
    void find_targets() {
        for (const std::size_t at : boundaries_)
            if (at != end_) instruction(at);
        collecting_ = false;
    }

    std::string free_name(std::string name) const {
        while (declarations_.symbols.contains(name)) name += '_';
        return name;
    }
    std::string procedure_name(std::size_t number) const {
        return free_name("proc_" + std::to_string(number));
    }
    std::string label(std::size_t at) const { return free_name("at_" + hex(at, 4)); }
    bool is_boundary(std::uint32_t at) const { return boundaries_.contains(at); }

    std::string head() const {
        std::string text;
        const std::vector<std::string> reserved = {number(header_[0]), number(header_[1]), number(header_[2]),
                                                   number(header_[4])};
        if (std::ranges::any_of(reserved, [](const std::string &word) { return word != "0"; }))
            text += "header " + list(reserved) + '\n';
        if (header_[3] != code_.size()) text += "size " + number(header_[3]) + '\n';
        if (!table_.empty() && !is_defined(table_.size() - 1))
            text += "procs " + std::to_string(table_.size()) + '\n';
        for (std::size_t i = 0; i < table_.size(); ++i)
            if (!is_defined(i) && table_[i] != 0xFFFFFFFF)
                text += "entry " + std::to_string(i) + " = " + number(table_[i]) + '\n';
        return text;
    }

    bool is_defined(std::size_t procedure) const { return is_boundary(table_[procedure]); }

    std::string body() {
        std::multimap<std::size_t, std::size_t> procedures;
        for (std::size_t i = 0; i < table_.size(); ++i)
            if (is_defined(i)) procedures.emplace(table_[i], i);
        std::string text;
        for (const std::size_t at : boundaries_) {
            const auto [first, last] = procedures.equal_range(at);
            for (auto here = first; here != last; ++here)
                text += "\nproc " + std::to_string(here->second) + ' ' + procedure_name(here->second) + '\n';
            if (targets_.contains(at)) text += label(at) + ":\n";
            if (at != end_) text += "    " + instruction(at) + '\n';
        }
        if (end_ < code_.size()) text += lines_of_bytes("    data ", code_.subspan(end_));
        return text;
    }

    // In words where the words make these very bytes, else as bytes.
    std::string instruction(std::size_t at) {
        const auto operands = code_.subspan(at + kInstructionHead, code_[at + 1]);
        const std::uint8_t opcode = code_[at];
        const Instruction *known =
            script::kFirstGameOpcode <= opcode ? declarations_.command(opcode) : built_in(opcode);
        std::optional<std::string> words;
        if (opcode == script::kIf)
            words = if_words(operands);
        else if (known != nullptr)
            words = in_words(*known, operands);
        if (words) return *words;
        return "op " + std::to_string(opcode) + (operands.empty() ? "" : ", " + in_braces(operands));
    }

    std::optional<std::string> in_words(const Instruction &known, std::span<const std::uint8_t> bytes) {
        Reader reader(bytes);
        std::vector<std::string> words;
        std::vector<std::uint32_t> targets;
        for (const Operand kind : known.operands) {
            const auto word = operand(kind, reader, targets);
            if (!word) return std::nullopt;
            words.push_back(*word);
        }
        if (reader.left() != 0) return std::nullopt;
        keep(targets);
        return known.name + (words.empty() ? "" : ' ' + list(words));
    }

    std::optional<std::string> if_words(std::span<const std::uint8_t> bytes) {
        Reader reader(bytes);
        std::vector<std::uint32_t> targets;
        const auto target = operand(Operand::offset, reader, targets);
        const auto left = operand(Operand::variable, reader, targets);
        const auto compared = comparison(reader.u8());
        const auto right = operand(Operand::number, reader, targets);
        if (!target || !left || !compared || !right || reader.left() != 0) return std::nullopt;
        keep(targets);
        return std::string(kIfWord) + ' ' + *left + ' ' + std::string(*compared) + ' ' + *right + " else " +
               *target;
    }

    std::optional<std::string> operand(Operand kind, Reader &reader,
                                       std::vector<std::uint32_t> &targets) const {
        switch (kind) {
            case Operand::offset: {
                const std::uint32_t to = reader.u32();
                const bool marked = is_boundary(to);
                if (marked) targets.push_back(to);
                return reader.ok() ? std::optional(marked ? label(to) : number(to)) : std::nullopt;
            }
            case Operand::character: {
                const std::uint8_t byte = reader.u8();
                const bool printable = byte >= 0x20 && byte < 0x7F;
                if (!reader.ok()) return std::nullopt;
                return printable ? '\'' + escaped(byte, '\'') + '\'' : std::to_string(byte);
            }
            case Operand::string: {
                const std::size_t length = reader.u8();
                const auto bytes = reader.take(length);
                if (!reader.ok() || length > script::kLongestString) return std::nullopt;
                return quoted(bytes);
            }
            default: break;
        }
        const std::uint8_t type = reader.u8();
        const std::uint32_t value = reader.u32();
        if (!reader.ok() || (type != script::kConstant && type != script::kVariable)) return std::nullopt;
        const std::string name = declarations_.variable_name(value);
        if (type == script::kConstant) {
            if (kind == Operand::variable) return name.empty() ? '#' + number(value) : name;
            const bool named = kind == Operand::procedure && value < table_.size() && is_defined(value);
            return named ? procedure_name(value) : number(value);
        }
        if (name.empty()) return '@' + number(value);
        return kind == Operand::variable ? '[' + name + ']' : name;
    }

    static std::string number(std::uint32_t value) {
        return std::to_string(static_cast<std::int32_t>(value));
    }

    void keep(const std::vector<std::uint32_t> &targets) {
        if (collecting_) targets_.insert(targets.begin(), targets.end());
    }

    std::span<const std::uint8_t> file_, code_;
    const Program &declarations_;
    std::uint32_t header_[6] = {};
    std::vector<std::uint32_t> table_;
    std::set<std::size_t> boundaries_;  // of whole instructions; the last one is where they end
    std::size_t end_ = 0;
    std::set<std::size_t> targets_;
    bool collecting_ = true;
};

}  // namespace

std::string disassemble(std::span<const std::uint8_t> file, const Program &declarations,
                        const std::string &include) {
    return Disassembler(file, declarations).run(include);
}

}  // namespace ink::mac
