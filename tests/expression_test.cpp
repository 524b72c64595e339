// The value of arithmetic texts, and what is said about those that have none.
#include "inkstone/expression.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <string>

namespace {

// Each line of the table has a text and its value; lines behind "> " are what it prints.
TEST(Expression, HasTheValueAndTheOutputOfTheTable) {
    std::ifstream table(TEST_DATA "/expressions.txt");
    int count = 0;
    for (std::string line; std::getline(table, line); ++count) {
        const std::string text = line.substr(0, line.rfind(" = "));
        const std::int32_t value = std::stoi(line.substr(text.size() + 3));
        std::string output;
        while (table.peek() == '>' && std::getline(table, line)) output += line.substr(2) + '\n';
        ::testing::internal::CaptureStdout();
        EXPECT_EQ(string_2_number(text.c_str()), value) << text;
        EXPECT_EQ(::testing::internal::GetCapturedStdout(), output) << text;
    }
    EXPECT_EQ(count, 23);
}

TEST(Expression, LosesTheFirstTokenAndThoseBeyondThe512th) {
    const auto ones = [](int count) {
        std::string text = "1";
        while (--count > 0) text += "+1";
        return string_2_number(text.c_str());
    };
    EXPECT_EQ(ones(256), 256);  // 511 tokens
    EXPECT_EQ(ones(257), 255);  // "+1+ ... 1+" is left
    EXPECT_EQ(ones(600), 255);
    EXPECT_EQ(string_2_number((std::string(255, '(') + '7' + std::string(255, ')')).c_str()), 7);
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
