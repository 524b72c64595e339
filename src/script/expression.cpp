// Arithmetic texts in the classic form with stacks: tokens, their postfix order by operator precedence, the
// value.
#include "inkstone/expression.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string_view>

namespace ink {
namespace {

struct Token {
    enum class Kind { operation, number } kind;
    std::int32_t value;  // of an operation its character
};

// A full stack loses what is pushed: that decides what is left of a text with too many tokens.
class TokenStack {
  public:
    void push(Token token) {
        if (count_ < tokens_.size()) tokens_[count_++] = token;
    }
    std::optional<Token> pop() {
        if (count_ == 0) return std::nullopt;
        return tokens_[--count_];
    }
    const Token *begin() const { return tokens_.data(); }
    const Token *end() const { return tokens_.data() + count_; }

  private:
    std::array<Token, 512> tokens_;
    std::size_t count_ = 0;
};

Token operation(char c) {
    return {Token::Kind::operation, c};
}
Token number(std::uint32_t value) {
    return {Token::Kind::number, static_cast<std::int32_t>(value)};
}

constexpr std::string_view kOperations = "+-*/()#";

// By the operation on top of the stack (row) and the one that comes (column), in the order above: '<' stacks
// what comes, '>' puts the top out first, '=' drops both, '$' cannot be.
constexpr char kPrecedence[7][8] = {
    ">><<<>>",  // +
    ">><<<>>",  // -
    ">>>><>>",  // *
    ">>>><>>",  // /
    "<<<<<=$",  // (
    ">>>>$>>",  // )
    "<<<<<$=",  // # stands at both ends
};

char precedence(Token top, Token coming) {
    return kPrecedence[kOperations.find(static_cast<char>(top.value))]
                      [kOperations.find(static_cast<char>(coming.value))];
}

bool is_arithmetic(char c) {
    return c == '+' || c == '-' || c == '*' || c == '/';
}

bool tokenise(const char *text, TokenStack &tokens) {
    std::uint32_t value = 0;
    bool in_number = false;
    char previous = ' ';
    const auto reject = [text](const char *message) {
        std::printf("%s       %s\n", message, text);
        return false;
    };
    for (const char *c = text; *c != '\0'; ++c) {
        if (*c >= '0' && *c <= '9') {
            in_number = true;
            value = value * 10 + static_cast<std::uint32_t>(*c - '0');
            if (c[1] == '\0') tokens.push(number(value));
        } else if (is_arithmetic(*c) || *c == '(' || *c == ')') {
            if (in_number) {
                tokens.push(number(value));
                value = 0;
                in_number = false;
            } else if (is_arithmetic(previous) && is_arithmetic(*c)) {
                return reject("Error: invalid operate char turn\n");
            }
            tokens.push(operation(*c));
            previous = *c;
        } else {
            return reject("Error: invalid char found \n");
        }
    }
    return true;
}

bool to_postfix(TokenStack &tokens, TokenStack &postfix) {
    // The end mark goes in first and so comes out last; a stack full of tokens has no place for the first of
    // them.
    TokenStack input;
    input.push(operation('#'));
    while (const auto token = tokens.pop()) input.push(*token);

    TokenStack operations;
    operations.push(operation('#'));
    std::optional<Token> token = input.pop();
    while (token) {
        if (token->kind == Token::Kind::number) {
            postfix.push(*token);
            token = input.pop();
            continue;
        }
        const Token top = *operations.pop();
        switch (precedence(top, *token)) {
            case '<':
                operations.push(top);
                operations.push(*token);
                token = input.pop();
                break;
            case '>': postfix.push(top); break;
            case '=': token = input.pop(); break;
            default: std::fputs("Error: unbalanced parentheses\n", stdout); return false;
        }
    }
    return true;
}

std::int32_t evaluate(const TokenStack &postfix) {
    TokenStack values;
    for (const Token token : postfix) {
        if (token.kind == Token::Kind::number) {
            values.push(token);
            continue;
        }
        const bool sum = token.value == '+' || token.value == '-';
        const auto popped_right = values.pop(), popped_left = values.pop();
        const std::int32_t right = popped_right ? popped_right->value : 0;
        const std::int32_t left = popped_left ? popped_left->value : (sum ? 0 : 1);
        const auto a = static_cast<std::uint32_t>(left), b = static_cast<std::uint32_t>(right);
        switch (token.value) {
            case '+': values.push(number(a + b)); break;
            case '-': values.push(number(a - b)); break;
            case '*': values.push(number(a * b)); break;
            default:
                if (right == 0) {
                    std::fputs("Error: zero devide error\n", stdout);
                    return 0;
                }
                // In 64 bits, where the smallest number has a negative.
                values.push(number(static_cast<std::uint32_t>(std::int64_t{left} / right)));
        }
    }
    const auto result = values.pop();
    return result ? result->value : 0;
}

}  // namespace
}  // namespace ink

int32_t string_2_number(const char *text) {
    ink::TokenStack tokens, postfix;
    if (!ink::tokenise(text, tokens) || !ink::to_postfix(tokens, postfix)) return 0;
    return ink::evaluate(postfix);
}
