// Arithmetic texts: tokens are taken from left to right; operations wait on a stack until what comes binds
// less tightly, values on another until their operation is carried out.
#include "inkstone/expression.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace ink {
namespace {

// A text has room for so many tokens. The end mark needs a place too: of a longer text the first token is
// lost, and all beyond the last place.
constexpr std::size_t kMostTokens = 512;

constexpr const char *kInvalidCharacter = "Error: invalid char found \n";
constexpr const char *kInvalidTurn = "Error: invalid operate char turn\n";
constexpr const char *kUnbalanced = "Error: unbalanced parentheses\n";
constexpr const char *kDivisionByZero = "Error: zero devide error\n";

// How tightly an operation binds; 0 for what waits until it is closed.
int rank(char operation) {
    switch (operation) {
        case '*':
        case '/': return 2;
        case '+':
        case '-': return 1;
        default: return 0;
    }
}

class Calculator {
  public:
    void number(std::uint32_t value) { values_[value_count_++] = value; }
    void operation(char coming) {
        if (coming == '(') {
            operations_[operation_count_++] = coming;
            return;
        }
        // What binds as tightly goes from left to right; a parenthesis closes with everything in it.
        const int coming_rank = rank(coming);
        while (operation_count_ > 0 && top_rank() > 0 && top_rank() >= coming_rank) apply();
        if (coming != ')')
            operations_[operation_count_++] = coming;
        else if (operation_count_ > 0)
            --operation_count_;
        else
            unbalanced_ = true;
    }
    // The end of the text. Returns what is wrong with it, or null.
    const char *finish() {
        while (operation_count_ > 0 && top_rank() > 0) apply();
        if (unbalanced_ || operation_count_ > 0) return kUnbalanced;
        return divided_by_zero_ ? kDivisionByZero : nullptr;
    }
    std::int32_t value() const {
        return value_count_ > 0 ? static_cast<std::int32_t>(values_[value_count_ - 1]) : 0;
    }

  private:
    int top_rank() const { return rank(operations_[operation_count_ - 1]); }

    std::uint32_t pop(std::uint32_t missing) { return value_count_ > 0 ? values_[--value_count_] : missing; }

    void apply() {
        const char operation = operations_[--operation_count_];
        const std::uint32_t b = pop(0), a = pop(rank(operation) == 2 ? 1 : 0);
        switch (operation) {
            case '+': number(a + b); break;
            case '-': number(a - b); break;
            case '*': number(a * b); break;
            case '/':
                divided_by_zero_ |= b == 0;
                // In 64 bits, where the smallest number has a negative.
                number(b == 0 ? 0
                              : static_cast<std::uint32_t>(std::int64_t{static_cast<std::int32_t>(a)} /
                                                           static_cast<std::int32_t>(b)));
                break;
            default: break;
        }
    }

    std::array<std::uint32_t, kMostTokens> values_;
    std::array<char, kMostTokens> operations_;
    std::size_t value_count_ = 0, operation_count_ = 0;
    bool unbalanced_ = false, divided_by_zero_ = false;
};

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

// Hands the tokens of a text over in their order. Returns what is wrong with it, or null.
template <class Number, class Operation>
const char *tokenise(const char *text, Number number, Operation operation) {
    bool after_number = false;
    char previous = ' ';  // the operation before
    for (const char *c = text; *c != '\0';) {
        if (is_digit(*c)) {
            std::uint32_t value = 0;
            do value = value * 10 + static_cast<std::uint32_t>(*c++ - '0');
            while (is_digit(*c));
            after_number = true;
            number(value);
        } else if (rank(*c) > 0 || *c == '(' || *c == ')') {
            if (!after_number && rank(previous) > 0 && rank(*c) > 0) return kInvalidTurn;
            after_number = false;
            previous = *c;
            operation(*c++);
        } else {
            return kInvalidCharacter;
        }
    }
    return nullptr;
}

}  // namespace
}  // namespace ink

int32_t string_2_number(const char *text) {
    using namespace ink;
    if (text == nullptr) return 0;
    std::size_t first = 0;  // token that is not lost
    if (std::strlen(text) >= kMostTokens) {
        std::size_t count = 0;
        const auto one = [&count](auto) { ++count; };
        tokenise(text, one, one);
        first = count >= kMostTokens ? 1 : 0;
    }
    Calculator calculator;
    std::size_t at = 0;
    const auto kept = [&] {
        const bool keep = at >= first && at < kMostTokens;
        ++at;
        return keep;
    };
    const char *error = tokenise(
        text,
        [&](std::uint32_t value) {
            if (kept()) calculator.number(value);
        },
        [&](char operation) {
            if (kept()) calculator.operation(operation);
        });
    if (error != nullptr) {
        std::printf("%s       %s\n", error, text);
        return 0;
    }
    error = calculator.finish();
    if (error != nullptr) std::fputs(error, stdout);
    return error == nullptr ? calculator.value() : 0;
}
