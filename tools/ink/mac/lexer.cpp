#include "mac/lexer.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "charset/big5.h"

namespace ink::mac {
namespace {

constexpr std::int64_t kLargestNumber = std::numeric_limits<std::uint32_t>::max();

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}
int hex_digit(char c) {
    if (is_digit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}
bool begins_word(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '.' ||
           static_cast<unsigned char>(c) >= 0x80;
}
bool is_blank(char c) {
    return c == ' ' || c == '\t';
}

// Characters of Chinese typing that look like one of the language's: their UTF-8, and what is meant.
struct Lookalike {
    std::string_view text;
    char meant;
};
constexpr Lookalike kLookalikes[] = {
    {"\u3000", ' '}, {"\u3001", ','}, {"\u2018", '\''}, {"\u2019", '\''}, {"\u201C", '"'}, {"\u201D", '"'},
};

// The same for the wide forms of ASCII characters, but letters, which names may be made of.
std::optional<Lookalike> lookalike(std::string_view text) {
    for (const Lookalike &known : kLookalikes)
        if (text.starts_with(known.text)) return known;
    if (text.size() < 3 || text[0] != '\xEF' || (text[1] != '\xBC' && text[1] != '\xBD')) return std::nullopt;
    const int meant = (text[1] == '\xBC' ? 0x20 : 0x60) + (static_cast<unsigned char>(text[2]) & 0x3F);
    const bool letter = (meant >= 'A' && meant <= 'Z') || (meant >= 'a' && meant <= 'z');
    if (meant > '~' || letter) return std::nullopt;
    return Lookalike{text.substr(0, 3), static_cast<char>(meant)};
}

class Lexer {
  public:
    explicit Lexer(const Place &place) : place_(place), line_(place.line) {}

    std::vector<Token> run() {
        std::vector<Token> tokens;
        do {
            tokens.push_back(next());
        } while (tokens.back().kind != Token::Kind::end);
        return tokens;
    }

  private:
    char peek(std::size_t ahead = 0) const { return at_ + ahead < line_.size() ? line_[at_ + ahead] : '\0'; }
    bool done() const { return at_ >= line_.size(); }

    [[noreturn]] void fail(std::size_t column, const std::string &message) const {
        Place place = place_;
        place.column = column;
        throw SourceError(place, message);
    }

    Token next() {
        while (is_blank(peek())) ++at_;
        Token token;
        token.column = at_;
        if (done() || peek() == ';') return token;
        if (const auto wide = lookalike(line_.substr(at_)))
            fail(at_, '"' + std::string(wide->text) + "\" is a character of another width; write " +
                          (wide->meant == ' ' ? std::string("a plain blank")
                                              : '"' + std::string(1, wide->meant) + '"'));
        if (is_digit(peek()))
            number(token);
        else if (begins_word(peek()))
            word(token);
        else if (peek() == '"')
            string(token);
        else if (peek() == '\'')
            character(token);
        else if (peek() == '{')
            bytes(token);
        else
            symbol(token);
        if (token.text.empty()) token.text = line_.substr(token.column, at_ - token.column);
        return token;
    }

    void number(Token &token) {
        token.kind = Token::Kind::number;
        const bool hexadecimal = peek() == '0' && (peek(1) == 'x' || peek(1) == 'X');
        if (hexadecimal) at_ += 2;
        const int base = hexadecimal ? 16 : 10;
        const std::size_t digits = at_;
        for (int digit = hex_digit(peek()); digit >= 0 && digit < base; digit = hex_digit(peek())) {
            token.value = token.value * base + digit;
            if (token.value > kLargestNumber) fail(token.column, "this number does not fit in 32 bits");
            ++at_;
        }
        if (at_ == digits || begins_word(peek()) || is_digit(peek())) fail(at_, "expected a digit");
    }

    void word(Token &token) {
        token.kind = Token::Kind::word;
        ++at_;
        while ((begins_word(peek()) || is_digit(peek())) && !lookalike(line_.substr(at_))) ++at_;
    }

    // A character after a backslash, or as it is; its Big5 bytes.
    std::string unit() {
        const std::size_t column = at_;
        if (peek() == '\\') {
            const char kind = peek(1);
            at_ += 2;
            if (kind == 'n') return "\n";
            if (kind == '\\' || kind == '"' || kind == '\'') return {kind};
            if (kind == 'x') return {pair(column, "expected two hexadecimal digits after \\x")};
            fail(column, "expected \\n, \\\\, \\\", \\' or \\x and two hexadecimal digits");
        }
        if (static_cast<unsigned char>(peek()) < 0x80) return {line_[at_++]};
        do ++at_;
        while (!done() && !begins_character(peek()));
        const std::string_view text = line_.substr(column, at_ - column);
        const auto big5 = tool::big5_of_character(text);
        if (!big5) fail(column, "there is no Big5 character for \"" + std::string(text) + '"');
        return *big5;
    }

    char pair(std::size_t column, const char *message) {
        const int high = hex_digit(peek()), low = hex_digit(peek(1));
        if (high < 0 || low < 0) fail(column, message);
        at_ += 2;
        return static_cast<char>(high * 16 + low);
    }

    void string(Token &token) {
        token.kind = Token::Kind::string;
        for (++at_; peek() != '"';) {
            if (done()) fail(token.column, "this string has no closing \"");
            token.bytes += unit();
        }
        ++at_;
        token.text = line_.substr(token.column + 1, at_ - token.column - 2);
    }

    void character(Token &token) {
        token.kind = Token::Kind::number;
        ++at_;
        const std::string one = done() || peek() == '\'' ? "" : unit();
        if (one.size() != 1 || peek() != '\'')
            fail(token.column, "expected one character of one byte in quotes");
        ++at_;
        token.value = static_cast<unsigned char>(one[0]);
    }

    void bytes(Token &token) {
        token.kind = Token::Kind::bytes;
        for (++at_; peek() != '}';) {
            if (done()) fail(token.column, "these bytes have no closing }");
            if (is_blank(peek()))
                ++at_;
            else
                token.bytes += pair(at_, "expected two hexadecimal digits or }");
        }
        ++at_;
    }

    void symbol(Token &token) {
        token.kind = Token::Kind::symbol;
        for (const std::string_view two : {"<=", ">=", "<>", "!="})
            if (line_.substr(at_, 2) == two) {
                at_ += 2;
                return;
            }
        if (std::string_view(":,=<>#@[]()+-*/%").find(peek()) == std::string_view::npos)
            fail(at_, "expected a name, a number, a string or an operator");
        ++at_;
    }

    const Place &place_;
    std::string_view line_;
    std::size_t at_ = 0;
};

}  // namespace

std::vector<Token> tokenise(const Place &line) {
    return Lexer(line).run();
}

}  // namespace ink::mac
