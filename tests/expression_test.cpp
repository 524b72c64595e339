// The value of arithmetic texts, and what is said about those that have none.
#include "inkstone/expression.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

std::string ones(int count) {
    std::string text = "1";
    for (int i = 1; i < count; ++i) text += "+1";
    return text;
}

TEST(Expression, HasTheValueAndTheOutputOfTheTable) {
    const auto shown = [](const std::string &message, const std::string &text) {
        return message + "       " + text + "\n";
    };
    const std::string bad = "Error: invalid char found \n", turn = "Error: invalid operate char turn\n";
    const std::string open = "Error: unbalanced parentheses\n", zero = "Error: zero devide error\n";
    const std::string deep(255, '('), shallow(255, ')');
    struct {
        std::string text;
        std::int32_t value;
        std::string output;
    } const cases[] = {
        {"12*(3+4)-5", 79, ""},
        {"2+3*4", 14, ""},
        {"(2+3)*4", 20, ""},
        {"7/2", 3, ""},
        {"(0-7)/2", -3, ""},
        {"20-3-4", 13, ""},
        {"8/2/2", 2, ""},
        {"", 0, ""},
        {"-5", -5, ""},
        {"+5", 5, ""},
        {"5*", 5, ""},
        {"*5", 5, ""},
        {"/5", 0, ""},
        {"5-", -5, ""},
        {"(2+3)(4)", 4, ""},
        {"2(3+4)", 7, ""},
        {"()", 0, ""},
        {"2147483647+1", INT32_MIN, ""},
        {"4294967296", 0, ""},
        {"65536*65536*3+7", 7, ""},
        {"2147483648/(0-1)", INT32_MIN, ""},
        {deep + "7" + shallow, 7, ""},
        {ones(256), 256, ""},  // 511 tokens
        {ones(257), 255, ""},  // the first and the last are lost, and "+1+ ... 1+" is left
        {ones(600), 255, ""},
        {"10/0", 0, zero},
        {"10/(5-5)", 0, zero},
        {"1 +2", 0, shown(bad, "1 +2")},
        {"12a", 0, shown(bad, "12a")},
        {"1+\xA4\x40", 0, shown(bad, "1+\xA4\x40")},
        {"#", 0, shown(bad, "#")},
        {"12+-3", 0, shown(turn, "12+-3")},
        {"(1)*/2", 0, shown(turn, "(1)*/2")},
        {"(1+2", 0, open},
        {"1+2)", 0, open},
        {"2+)", 0, open},
        {")(", 0, open},
    };
    for (const auto &c : cases) {
        ::testing::internal::CaptureStdout();
        EXPECT_EQ(string_2_number(c.text.c_str()), c.value) << c.text;
        EXPECT_EQ(::testing::internal::GetCapturedStdout(), c.output) << c.text;
    }
}

// Random sound texts, whose values are worked out while they are made.
class Sum {
  public:
    explicit Sum(std::uint32_t seed) : random_(seed) {}
    std::uint32_t sum(int depth) {
        std::uint32_t value = product(depth);
        while (random_() % 3 == 0) {
            const bool plus = random_() % 2 == 0;
            text += plus ? '+' : '-';
            const std::uint32_t next = product(depth);
            value = plus ? value + next : value - next;
        }
        return value;
    }
    std::string text;

  private:
    std::uint32_t product(int depth) {
        std::uint32_t value = factor(depth);
        while (random_() % 3 == 0) {
            const bool times = random_() % 2 == 0;
            text += times ? '*' : '/';
            if (times) {
                value *= factor(depth);
            } else {  // by a number that is not 0
                text += std::to_string(random_() % 9 + 1);
                value = static_cast<std::uint32_t>(static_cast<std::int32_t>(value) / (text.back() - '0'));
            }
        }
        return value;
    }
    std::uint32_t factor(int depth) {
        if (depth < 6 && random_() % 3 == 0) {
            text += '(';
            const std::uint32_t value = sum(depth + 1);
            text += ')';
            return value;
        }
        const auto value = static_cast<std::uint32_t>(random_() >> random_() % 32);
        text += std::to_string(value);
        return value;
    }
    std::mt19937 random_;
};

TEST(Expression, OfAnySoundTextIsWorkedOut) {
    for (std::uint32_t seed = 0; seed < 20000; ++seed) {
        Sum made(seed);
        const auto value = static_cast<std::int32_t>(made.sum(0));
        ASSERT_EQ(string_2_number(made.text.c_str()), value) << made.text;
    }
}

}  // namespace
