// One process for each test. The library's families are there once in a process and keep what a test did with
// them: a quit stack holds 64 procedures for good. So a run of several tests only starts each of them by
// itself, and their order does not matter.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace test {

class ProcessForEachTest : public testing::EmptyTestEventListener {
  public:
    // The program that runs, and the directory it made, which is removed.
    ProcessForEachTest(std::string program, std::filesystem::path place)
        : program_(std::filesystem::absolute(program).string()), place_(std::move(place)) {}

  private:
    void OnTestIterationStart(const testing::UnitTest &all, int) override {
        if (all.test_to_run_count() <= 1) return;
        std::vector<std::string> failed;
        for (int i = 0; i < all.total_test_suite_count(); ++i) {
            const testing::TestSuite &suite = *all.GetTestSuite(i);
            for (int j = 0; j < suite.total_test_count(); ++j) {
                const testing::TestInfo &test = *suite.GetTestInfo(j);
                const std::string name = std::string(suite.name()) + "." + test.name();
                if (test.should_run() && !passes(name)) failed.push_back(name);
            }
        }
        std::cout << all.test_to_run_count() - static_cast<int>(failed.size()) << " of "
                  << all.test_to_run_count() << " tests passed\n";
        for (const std::string &name : failed) std::cout << "failed: " << name << '\n';
        std::error_code ignored;
        std::filesystem::current_path(place_.parent_path());
        std::filesystem::remove_all(place_, ignored);
        std::exit(failed.empty() ? 0 : 1);
    }
    bool passes(const std::string &name) const {
        std::cout.flush();
        const std::string command = "\"" + program_ + "\" --gtest_brief=1 --gtest_filter=" + name;
        return std::system(command.c_str()) == 0;
    }

    std::string program_;
    std::filesystem::path place_;
};

}  // namespace test
