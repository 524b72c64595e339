#include "mac/assembler.h"

#include <algorithm>
#include <array>
#include <limits>
#include <set>
#include <string_view>
#include <utility>

#include "core/reader.h"
#include "files/file.h"
#include "mac/expression.h"
#include "mac/line.h"
#include "script/instruction_set.h"

namespace ink::mac {
namespace {

constexpr int kDeepestInclude = 16;
constexpr std::size_t kReservedWords = 4;
constexpr std::size_t kLongestOperands = 255;
constexpr std::size_t kMostErrors = 20;
constexpr std::size_t kLongestScriptName = 79;
constexpr const char *kNothingElse =
    "a source that gives the whole file has no procedures and no instructions";

// How the value of an expression stands in the file.
enum class Form {
    constant,     // '#' and a word; a variable's name is its index
    by_variable,  // '@' and a word; a variable's name is its index
    number,       // either of the two: a variable's name alone is its value
    variable,     // '#' and the index of the variable that is named
    word,         // a procedure's name is its place in the code
    byte,
};

// Which procedures an operand may name.
enum class Reach { none, any, call };

// An operand whose names may be defined further down.
struct Pending {
    std::size_t at;  // in the code
    Form form;
    Expression expression;
    Place place;
    int scope;
    Reach procedure_for = Reach::none;
};

struct TableEntry {
    std::int64_t procedure;
    Expression expression;
    Place place;
    int scope;
};

// A name that a wrong line would have defined.
struct Missing {};

class Assembler {
  public:
    explicit Assembler(const ReadSource &read) : read_(read) {}

    void source(const std::string &name, const std::string &text, int depth = 0) {
        const std::vector<Place> lines = tool::lines_of(name, text);
        attempt("", [&] {
            tool::require_utf8(lines);
            for (const Place &place : lines)
                attempt(place.line, [&] {
                    Line line(place);
                    statement(line, depth);
                    if (!line.done()) line.fail_expected("the end of the line");
                });
        });
    }

    Program finish() {
        leave_procedure();
        for (const Pending &pending : pending_) attempt("", [&] { resolve(pending); });
        attempt("", [&] { program_.file = file(); });
        if (!errors_.empty()) throw tool::SourceErrors(errors_);
        warn_of_unreachable();
        std::erase_if(program_.symbols, [](const auto &symbol) { return symbol.first.front() == '.'; });
        return std::move(program_);
    }

  private:
    // ---- What is wrong ----

    // Notes what is wrong with a line and goes on with the next one, up to a number that fills a screen.
    template <class Action>
    void attempt(const std::string &line, Action action) {
        const std::size_t pending = pending_.size();
        try {
            action();
        } catch (const Missing &) {
            // The line that should have defined it has been told of.
        } catch (const SourceError &error) {
            errors_.push_back(error);
            if (errors_.size() == kMostErrors) throw tool::SourceErrors(errors_);
            // Half an instruction has no operands to resolve.
            if (!line.empty())
                pending_.erase(pending_.begin() + static_cast<std::ptrdiff_t>(pending), pending_.end());
            // What the line would have defined is not missed below.
            for (std::size_t at = 0; at < line.size(); ++at) {
                const std::size_t start = at;
                while (at < line.size() &&
                       std::string_view(" \t:,=#()[]").find(line[at]) == std::string_view::npos)
                    ++at;
                if (at > start) doubtful_.insert(line.substr(start, at - start));
            }
        }
    }

    void warn(Place place, std::size_t column, const std::string &message) {
        place.column = column;
        program_.warnings.emplace_back(place, "warning: " + message);
    }

    // A procedure whose last instruction leads on runs into what stands behind it.
    void leave_procedure() {
        if (leads_on_)
            warn(procedure_place_, procedure_place_.column,
                 "this procedure runs on into what follows it; end it with return, goto, stop or chain");
        leads_on_ = false;
    }

    void warn_of_unreachable() {
        const bool none = starts_.empty() && entries_.empty() && !program_.lines.empty() && !whole_file_;
        const bool before = !starts_.empty() && entries_.empty() && !program_.lines.empty() &&
                            std::ranges::none_of(starts_, [&](const auto &start) {
                                return start.second <= program_.lines.begin()->first;
                            });
        if (none || before)
            warn(first_place_, 0, "no procedure begins before this instruction, so nothing runs it");
    }

    // ---- Statements ----

    void statement(Line &line, int depth) {
        while (line.peek().kind == Token::Kind::word && line.next_is(":", 1)) {
            const Token name = line.take();
            line.take();
            define(line, name, {Symbol::Kind::label, here(), 0, {}});
            leads_on_ = leads_on_ || (scope_ > 0 && here() > procedure_start_);
        }
        if (line.done()) return;
        const Token word = line.expect(Token::Kind::word, "an instruction");
        const auto meaning = directive(word.text);
        if (whole_file_ && (!meaning || emits(*meaning))) line.fail(word.column, kNothingElse);
        if (!meaning) return plain_instruction(line, word);
        switch (*meaning) {
            case Directive::include: return include(line, depth);
            case Directive::constant: return define_constant(line);
            case Directive::variable: return define_variable(line);
            case Directive::command: return define_command(line);
            case Directive::procedure: return procedure(line);
            case Directive::raw: return raw_instruction(line);
            case Directive::data: return data(line);
            case Directive::header: return header(line);
            case Directive::count:
                procedures_ = bounded(line, "the number of procedures", 0, kMostProcedures);
                return;
            case Directive::entry: return entry(line);
            case Directive::size: stated_size_ = immediate(line); return;
            case Directive::file: return whole_file(line);
            case Directive::if_: return if_instruction(line);
        }
    }

    // Whether a source that gives the whole file cannot have it.
    static bool emits(Directive directive) {
        switch (directive) {
            case Directive::include:
            case Directive::constant:
            case Directive::variable:
            case Directive::command:
            case Directive::file: return false;
            default: return true;
        }
    }

    void plain_instruction(Line &line, const Token &word) {
        if (const Instruction *instruction = find_instruction(word.text)) return emit(line, *instruction);
        std::vector<std::string> words = statement_words();
        for (const auto &[name, command] : program_.commands) words.push_back(name);
        const std::string nearest = tool::suggestion(word.text, words);
        line.fail(word.column, "there is no instruction \"" + word.text + '"' +
                                   (nearest.empty() ? "; the game's own are declared with: command 24 " +
                                                          word.text + " number"
                                                    : nearest));
    }

    void include(Line &line, int depth) {
        const Token name = line.expect(Token::Kind::string, "a file name in quotes");
        if (depth == kDeepestInclude) line.fail(name.column, "too many files include each other");
        const auto beside = tool::path_of(line.place().file).parent_path() / tool::path_of(name.text);
        const std::u8string generic = beside.generic_u8string();
        const std::string path(generic.begin(), generic.end());
        const auto text = read_(path);
        if (!text) line.fail(name.column, "cannot read " + path);
        source(path, *text, depth + 1);
    }

    void define_constant(Line &line) {
        const Token name = line.expect(Token::Kind::word, "a name");
        line.expect("=");
        define(line, name, {Symbol::Kind::constant, immediate(line), 0, {}});
    }

    void define_variable(Line &line) {
        const Token name = line.expect(Token::Kind::word, "a name");
        if (line.next_is("="))
            line.fail(line.peek().column,
                      "a variable has no value to begin with; for its place write: var " + name.text + " #5");
        if (line.accept("#"))
            next_variable_ =
                bounded(line, "the index of a variable", 0, std::numeric_limits<std::int32_t>::max());
        if (const std::string taken = program_.variable_name(next_variable_); !taken.empty())
            warn(line.place(), name.column, '"' + name.text + "\" has the same place as \"" + taken + '"');
        define(line, name, {Symbol::Kind::variable, next_variable_++, 0, {}});
    }

    void define_command(Line &line) {
        Instruction command;
        command.opcode = static_cast<std::uint8_t>(
            bounded(line, "an opcode of the game's", script::kFirstGameOpcode, 255));
        const Token name = line.expect(Token::Kind::word, "a name");
        if (const Instruction *taken = program_.command(command.opcode))
            line.fail(name.column,
                      "opcode " + std::to_string(command.opcode) + " is \"" + taken->name + "\" already");
        if (is_reserved(name.text) || program_.commands.contains(name.text))
            line.fail(name.column, '"' + name.text + "\" is an instruction already");
        command.name = name.text;
        while (!line.done()) {
            const auto kind = operand_kind(line.peek().text);
            if (!kind || line.peek().kind != Token::Kind::word)
                line.fail_expected("number, variable, procedure, long, char or string");
            command.operands.push_back(*kind);
            line.take();
            line.accept(",");
        }
        program_.commands[name.text] = std::move(command);
    }

    void procedure(Line &line) {
        leave_procedure();
        ++scope_;
        procedure_place_ = line.place();
        procedure_start_ = here();
        const Token first = line.peek();
        if (first.kind == Token::Kind::number)
            next_procedure_ = bounded(line, "the number of a procedure", 0, kMostProcedures - 1);
        else if (first.kind != Token::Kind::word)
            line.fail_expected("the number or the name of a procedure");
        const std::int64_t number = next_procedure_++;
        if (number >= kMostProcedures) line.fail(first.column, "there are too many procedures");
        if (!starts_.emplace(number, here()).second)
            line.fail(first.column, "procedure " + std::to_string(number) + " is defined already");
        if (line.peek().kind == Token::Kind::word) {
            const Token name = line.take();
            define(line, name, {Symbol::Kind::procedure, number, here(), {}});
        }
        line.accept(":");
    }

    void data(Line &line) {
        leads_on_ = false;
        do {
            const Token token = line.peek();
            if (token.kind == Token::Kind::string || token.kind == Token::Kind::bytes) {
                append(line.take().bytes);
            } else {
                defer(line, Form::byte, Expression::read(line));
            }
        } while (line.accept(","));
    }

    void entry(Line &line) {
        const std::int64_t number = bounded(line, "the number of a procedure", 0, kMostProcedures - 1);
        line.expect("=");
        entries_.push_back({number, Expression::read(line), line.place(), scope_});
    }

    void header(Line &line) {
        for (std::size_t i = 0; i < kReservedWords; ++i) {
            if (i > 0) line.expect(",");
            reserved_[i] = immediate(line);
        }
    }

    void whole_file(Line &line) {
        if (!whole_file_ && (!code_.empty() || !starts_.empty())) line.fail(0, kNothingElse);
        whole_file_ = true;
        append(line.expect(Token::Kind::bytes, "bytes in braces").bytes);
    }

    // ---- Instructions ----

    const Instruction *find_instruction(const std::string &name) const {
        if (const Instruction *found = built_in(name)) return found;
        const auto found = program_.commands.find(name);
        return found != program_.commands.end() ? &found->second : nullptr;
    }

    // Emits opcode and length around what write emits.
    template <class Write>
    void instruction(Line &line, std::uint8_t opcode, Write write) {
        const std::size_t start = code_.size();
        if (program_.lines.empty()) first_place_ = line.place();
        program_.lines.emplace(static_cast<std::uint32_t>(start), brief(line.place()));
        leads_on_ = scope_ > 0 && !ends_procedure(opcode);
        code_.push_back(opcode);
        code_.push_back(0);
        write();
        const std::size_t length = code_.size() - start - 2;
        if (length > kLongestOperands)
            line.fail(0, "the operands take " + std::to_string(length) + " bytes; there is room for 255");
        code_[start + 1] = static_cast<std::uint8_t>(length);
    }

    static bool ends_procedure(std::uint8_t opcode) {
        return opcode == script::kReturn || opcode == script::kEnd || opcode == script::kGoto ||
               opcode == script::kChain || opcode == script::kStop;
    }

    void emit(Line &line, const Instruction &form) {
        if (form.opcode == script::kChain) check_chain(line);
        instruction(line, form.opcode, [&] {
            for (std::size_t i = 0; i < form.operands.size(); ++i) {
                if (i > 0) line.expect(",");
                const std::size_t before = pending_.size();
                operand(line, form.operands[i]);
                if (form.operands[i] == Operand::procedure && pending_.size() > before)
                    pending_.back().procedure_for = form.opcode == script::kCall ? Reach::call : Reach::any;
            }
        });
    }

    void check_chain(const Line &line) {
        const Token &name = line.peek();
        if (name.kind != Token::Kind::string) return;
        if (name.bytes.size() > kLongestScriptName)
            warn(line.place(), name.column,
                 "this name takes " + std::to_string(name.bytes.size()) +
                     " bytes; a script's name has at most 79");
        if (std::ranges::any_of(name.bytes,
                                [](char byte) { return static_cast<unsigned char>(byte) < 0x20; }))
            warn(line.place(), name.column,
                 "this name holds a control character; a backslash in a name is written \\\\");
    }

    // The place where a false comparison leads stands first in the code, last in the source.
    void if_instruction(Line &line) {
        instruction(line, script::kIf, [&] {
            const std::size_t target = code_.size();
            append(std::string(4, '\0'));
            operand(line, Operand::variable);
            const auto byte = comparison(line.peek().text);
            if (!byte || line.peek().kind != Token::Kind::symbol) line.fail_expected("<, =, >, >=, <= or <>");
            line.take();
            code_.push_back(*byte);
            operand(line, Operand::number);
            line.expect("else");
            pending_.push_back({target, Form::word, Expression::read(line), line.place(), scope_});
        });
    }

    // op OPCODE, and operands that say themselves what they are.
    void raw_instruction(Line &line) {
        const auto opcode = static_cast<std::uint8_t>(bounded(line, "an opcode", 0, 255));
        instruction(line, opcode, [&] {
            while (line.accept(",")) {
                if (line.peek().kind == Token::Kind::bytes)
                    append(line.take().bytes);
                else if (line.peek().kind == Token::Kind::string)
                    operand(line, Operand::string);
                else if (line.accept("long"))
                    operand(line, Operand::offset);
                else if (line.accept("char"))
                    operand(line, Operand::character);
                else if (line.accept("variable"))
                    operand(line, Operand::variable);
                else
                    operand(line, Operand::number);
            }
        });
    }

    void operand(Line &line, Operand kind) {
        switch (kind) {
            case Operand::offset: return defer(line, Form::word, Expression::read(line));
            case Operand::character: return defer(line, Form::byte, Expression::read(line));
            case Operand::string: {
                const Token text = line.expect(Token::Kind::string, "a string");
                if (text.bytes.size() > script::kLongestString)
                    line.fail(text.column, "this string takes " + std::to_string(text.bytes.size()) +
                                               " bytes; there is room for 253");
                code_.push_back(static_cast<std::uint8_t>(text.bytes.size()));
                return append(text.bytes);
            }
            default: break;
        }
        if (line.accept("#")) return defer(line, Form::constant, Expression::read(line));
        if (line.accept("@")) return defer(line, Form::by_variable, Expression::read(line));
        if (kind != Operand::variable) return defer(line, Form::number, Expression::read(line));
        if (line.accept("[")) {
            defer(line, Form::by_variable, Expression::read(line));
            return line.expect("]");
        }
        if (line.peek().kind != Token::Kind::word) line.fail_expected("a variable");
        const Token name = line.peek();
        defer(line, Form::variable, Expression::read(line));
        if (pending_.back().expression.single_name() == nullptr)
            line.fail(name.column, "expected a variable's name");
    }

    void defer(const Line &line, Form form, Expression expression) {
        pending_.push_back({code_.size(), form, std::move(expression), line.place(), scope_});
        append(std::string(form == Form::byte ? 1 : form == Form::word ? 4 : 5, '\0'));
    }

    void append(const std::string &bytes) { code_.insert(code_.end(), bytes.begin(), bytes.end()); }
    std::int64_t here() const { return static_cast<std::int64_t>(code_.size()); }

    // ---- Names and values ----

    // Local labels are kept with the number of their procedure, which no name of a source can contain.
    static std::string key(const std::string &name, int scope) {
        return name.front() == '.' ? name + '@' + std::to_string(scope) : name;
    }

    void define(const Line &line, const Token &name, Symbol symbol) {
        if (is_reserved(name.text)) line.fail(name.column, '"' + name.text + "\" is a word of the language");
        if (name.text.front() == '.' && symbol.kind != Symbol::Kind::label)
            line.fail(name.column, "only labels begin with a dot");
        symbol.defined_at = brief(line.place());
        const auto [place, fresh] = program_.symbols.emplace(key(name.text, scope_), symbol);
        if (!fresh)
            line.fail(name.column, '"' + name.text + "\" is defined already, in " + place->second.defined_at);
    }

    const Symbol &find(const Token &name, const Place &place, int scope) const {
        const auto found = program_.symbols.find(key(name.text, scope));
        if (found != program_.symbols.end()) return found->second;
        if (doubtful_.contains(name.text)) throw Missing{};
        std::vector<std::string> names;
        for (const auto &[known, symbol] : program_.symbols)
            if (const std::size_t mark = known.find('@'); mark == std::string::npos)
                names.push_back(known);
            else if (known.substr(mark + 1) == std::to_string(scope))
                names.push_back(known.substr(0, mark));
        fail(place, name.column, "there is no \"" + name.text + '"' + tool::suggestion(name.text, names));
    }

    [[noreturn]] static void fail(Place place, std::size_t column, const std::string &message) {
        place.column = column;
        throw SourceError(place, message);
    }

    // A value that is needed at once: of numbers and of names defined before.
    std::int64_t immediate(Line &line) {
        return Expression::read(line).value(line.place(), [&](const Token &name) {
            const Symbol &symbol = find(name, line.place(), scope_);
            if (symbol.kind != Symbol::Kind::constant && symbol.kind != Symbol::Kind::procedure)
                line.fail(name.column, '"' + name.text + "\" is no constant");
            return symbol.value;
        });
    }
    std::int64_t bounded(Line &line, const char *what, std::int64_t low, std::int64_t high) {
        const std::size_t column = line.peek().column;
        const std::int64_t value = immediate(line);
        if (value < low || value > high)
            line.fail(column, std::string("expected ") + what + ", " + std::to_string(low) + " to " +
                                  std::to_string(high));
        return value;
    }

    void resolve(const Pending &pending) {
        const auto fail_at = [&](std::size_t column, const std::string &message) {
            fail(pending.place, column, message);
        };
        const Token *single = pending.expression.single_name();
        const bool names_variable =
            single != nullptr && find(*single, pending.place, pending.scope).kind == Symbol::Kind::variable;
        Form form = pending.form;
        if (form == Form::variable && !names_variable)
            fail_at(single->column, '"' + single->text + "\" is no variable; put # before the index of one");
        if (form == Form::variable)
            form = Form::constant;
        else if (form == Form::number)
            form = names_variable ? Form::by_variable : Form::constant;
        const bool index_wanted =
            form == Form::by_variable || pending.form == Form::constant || pending.form == Form::variable;

        const std::int64_t value = pending.expression.value(pending.place, [&](const Token &name) {
            const Symbol &symbol = find(name, pending.place, pending.scope);
            if (symbol.kind == Symbol::Kind::label && pending.procedure_for != Reach::none)
                fail_at(name.column, '"' + name.text + "\" is a label; a procedure is meant here");
            if (symbol.kind == Symbol::Kind::variable && !index_wanted)
                fail_at(name.column, '"' + name.text + "\" is a variable, whose value is not known here");
            const bool place_wanted = symbol.kind == Symbol::Kind::procedure && form == Form::word;
            return place_wanted ? symbol.start : symbol.value;
        });
        if (pending.procedure_for != Reach::none && form == Form::constant) check_procedure(pending, value);
        if (form == Form::by_variable && value >= script::kReadableVariables)
            warn(pending.place, pending.expression.column(),
                 "variables from 16000 on are 0 wherever their value is read");
        std::uint8_t *to = code_.data() + pending.at;
        if (form == Form::byte) {
            if (value < 0 || value > 255) fail_at(pending.expression.column(), "expected 0 to 255");
            *to = static_cast<std::uint8_t>(value);
            return;
        }
        if (form != Form::word) *to++ = form == Form::constant ? script::kConstant : script::kVariable;
        put_u32(to, static_cast<std::uint32_t>(value));
    }

    void check_procedure(const Pending &pending, std::int64_t number) {
        const bool entered = std::ranges::any_of(
            entries_, [number](const TableEntry &given) { return given.procedure == number; });
        if (!starts_.contains(number) && !entered)
            warn(pending.place, pending.expression.column(),
                 "there is no procedure " + std::to_string(number));
        else if (pending.procedure_for == Reach::call && number >= script::kCallableProcedures)
            warn(pending.place, pending.expression.column(), "only procedures 0 to 1023 can be called");
    }

    // ---- The file ----

    std::vector<std::uint32_t> table() const {
        std::int64_t count = starts_.empty() ? 0 : starts_.rbegin()->first + 1;
        for (const TableEntry &given : entries_) count = std::max(count, given.procedure + 1);
        std::vector<std::uint32_t> table(static_cast<std::size_t>(std::max(count, procedures_)), 0xFFFFFFFF);
        for (const auto &[number, start] : starts_)
            table[static_cast<std::size_t>(number)] = static_cast<std::uint32_t>(start);
        for (const TableEntry &given : entries_)
            table[static_cast<std::size_t>(given.procedure)] =
                static_cast<std::uint32_t>(given.expression.value(given.place, [&](const Token &name) {
                    const Symbol &symbol = find(name, given.place, given.scope);
                    return symbol.kind == Symbol::Kind::procedure ? symbol.start : symbol.value;
                }));
        return table;
    }

    std::vector<std::uint8_t> file() const {
        if (whole_file_) return code_;
        const std::vector<std::uint32_t> starts = table();
        std::vector<std::uint8_t> file;
        const auto word = [&file](std::int64_t value) {
            file.resize(file.size() + 4);
            put_u32(file.data() + file.size() - 4, static_cast<std::uint32_t>(value));
        };
        for (std::size_t i = 0; i < 3; ++i) word(reserved_[i]);
        word(stated_size_.value_or(here()));
        word(reserved_[3]);
        word(static_cast<std::int64_t>(starts.size()));
        for (const std::uint32_t start : starts) word(start);
        file.insert(file.end(), code_.begin(), code_.end());
        return file;
    }

    const ReadSource &read_;
    Program program_;
    std::vector<std::uint8_t> code_;
    std::vector<Pending> pending_;
    std::map<std::int64_t, std::int64_t> starts_;  // of procedures by number
    std::vector<TableEntry> entries_;
    std::array<std::int64_t, kReservedWords> reserved_{};
    std::optional<std::int64_t> stated_size_;
    std::int64_t next_variable_ = 0, next_procedure_ = 0, procedures_ = 0;
    int scope_ = 0;
    bool whole_file_ = false;
    Place procedure_place_, first_place_;  // of the procedure at hand, and of the first instruction
    std::int64_t procedure_start_ = 0;
    bool leads_on_ = false;  // from the last instruction of the procedure to what follows
    std::vector<SourceError> errors_;
    std::set<std::string> doubtful_;  // words of lines that were wrong
};

}  // namespace

Program assemble(const std::string &name, const std::string &text, const ReadSource &read) {
    Assembler assembler(read);
    assembler.source(name, text);
    return assembler.finish();
}

}  // namespace ink::mac
