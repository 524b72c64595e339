#include "mac/expression.h"

#include <cstdlib>
#include <limits>

#include "mac/line.h"

namespace ink::mac {
namespace {

constexpr int kDeepest = 64;
constexpr std::int64_t kLargest = std::numeric_limits<std::uint32_t>::max();
constexpr std::int64_t kSmallest = std::numeric_limits<std::int32_t>::min();
constexpr const char *kNegate = "negate";

}  // namespace

Expression Expression::read(Line &line) {
    Expression expression;
    expression.read_sum(line, 0);
    return expression;
}

void Expression::read_sum(Line &line, int depth) {
    read_product(line, depth);
    while (line.next_is("+") || line.next_is("-")) {
        const Token operation = line.take();
        read_product(line, depth);
        steps_.push_back(operation);
    }
}

void Expression::read_product(Line &line, int depth) {
    read_factor(line, depth);
    while (line.next_is("*") || line.next_is("/") || line.next_is("%")) {
        const Token operation = line.take();
        read_factor(line, depth);
        steps_.push_back(operation);
    }
}

void Expression::read_factor(Line &line, int depth) {
    if (depth > kDeepest) line.fail(line.peek().column, "too many signs or parentheses inside each other");
    const Token &token = line.peek();
    if (line.accept("(")) {
        read_sum(line, depth + 1);
        line.expect(")");
    } else if (line.accept("-")) {
        Token negate = token;
        negate.text = kNegate;
        read_factor(line, depth + 1);
        steps_.push_back(negate);
    } else if (token.kind == Token::Kind::number || token.kind == Token::Kind::word) {
        steps_.push_back(line.take());
    } else {
        line.fail_expected("a number or a name");
    }
}

const Token *Expression::single_name() const {
    return steps_.size() == 1 && steps_[0].kind == Token::Kind::word ? &steps_[0] : nullptr;
}

std::int64_t Expression::value(const Place &place, const Lookup &lookup) const {
    std::vector<std::int64_t> values;
    for (const Token &step : steps_) {
        const auto fail = [&](const char *message) {
            Place here = place;
            here.column = step.column;
            throw SourceError(here, message);
        };
        if (step.kind != Token::Kind::symbol) {
            values.push_back(step.kind == Token::Kind::number ? step.value : lookup(step));
            continue;
        }
        const std::int64_t right = values.back();
        values.pop_back();
        std::int64_t result = 0;
        if (step.text == kNegate) {
            result = -right;
        } else {
            const std::int64_t left = values.back();
            values.pop_back();
            if ((step.text == "/" || step.text == "%") && right == 0) fail("division by zero");
            switch (step.text[0]) {
                case '+': result = left + right; break;
                case '-': result = left - right; break;
                case '*':
                    if (right != 0 && std::abs(left) > kLargest / std::abs(right))
                        result = kLargest + 1;
                    else
                        result = left * right;
                    break;
                case '/': result = left / right; break;
                default: result = left % right;
            }
        }
        if (result < kSmallest || result > kLargest) fail("the result does not fit in 32 bits");
        values.push_back(result);
    }
    return values.back();
}

}  // namespace ink::mac
