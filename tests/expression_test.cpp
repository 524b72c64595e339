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
struct Maker {
    std::string text;
    std::mt19937 random;

    bool chance() { return random() % 3 == 0; }
    std::uint32_t sum(int depth) {
        std::uint32_t value = product(depth);
        while (chance()) {
            const bool plus = random() % 2 == 0;
            text += plus ? '+' : '-';
            value += product(depth) * (plus ? 1U : ~0U);
        }
        return value;
    }
    std::uint32_t product(int depth) {
        std::uint32_t value = factor(depth);
        while (chance()) {
            if (chance()) {
                text += '*';
                value *= factor(depth);
            } else {  // by a number that is not 0
                text += '/' + std::to_string(random() % 9 + 1);
                value = static_cast<std::uint32_t>(static_cast<std::int32_t>(value) / (text.back() - '0'));
            }
        }
        return value;
    }
    std::uint32_t factor(int depth) {
        if (depth == 6 || !chance()) {
            const auto value = static_cast<std::uint32_t>(random() >> random() % 32);
            text += std::to_string(value);
            return value;
        }
        text += '(';
        const std::uint32_t value = sum(depth + 1);
        text += ')';
        return value;
    }
};

TEST(Expression, OfAnySoundTextIsWorkedOut) {
    for (std::uint32_t seed = 0; seed < 20000; ++seed) {
        Maker maker{"", std::mt19937(seed)};
        const auto value = static_cast<std::int32_t>(maker.sum(0));
        ASSERT_EQ(string_2_number(maker.text.c_str()), value) << maker.text;
    }
}

}  // namespace
