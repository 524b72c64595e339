#include "support/injection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "inkstone/host.h"
#include "support/allocation.h"
#include "support/failing_files.h"
#include "support/files.h"
#if !defined(_WIN32)
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace test {
namespace {

constexpr std::size_t kMostPoints = 10000;  // nothing here asks for so much

// While armed, operation number failing of the machine is refused, and with all_after every later one too.
class FailingMachine {
  public:
    FailingMachine(std::size_t failing, bool all_after) {
        left_ = failing;
        all_after_ = all_after;
        refused_ = false;
        HOST_observe([](const char *) -> std::int32_t {
            if (refused_) return all_after_;
            refused_ = left_-- == 0;
            return refused_;
        });
    }
    ~FailingMachine() { disarm(); }
    FailingMachine(const FailingMachine &) = delete;
    FailingMachine &operator=(const FailingMachine &) = delete;

    bool disarm() {
        HOST_observe(nullptr);
        return refused_;
    }

  private:
    static inline std::size_t left_;
    static inline bool all_after_, refused_;
};

class NothingFails {
  public:
    bool disarm() { return false; }
};

struct Trial {
    std::string outcome;
    bool refused;
};

template <class Arm>
Trial attempt(const Scenario &scenario, Arm arm) {
    scenario.prepare();
    take_log();
    auto failing = arm();
    scenario.use();
    Trial trial{{}, failing.disarm()};
    trial.outcome = scenario.outcome();
    std::string log = take_log();
    if (!log.empty()) log.pop_back();
    for (std::size_t at = 0; (at = log.find('\n', at)) != log.npos;) log.replace(at, 1, ", ");
    if (!log.empty()) trial.outcome += "| " + log;
    return trial;
}

// With what is wrong afterwards added to the outcome.
template <class Arm>
Trial attempt_twice(const Scenario &scenario, Arm arm) {
    std::string afterwards;
    afterwards.reserve(4096);
    Trial trial{{}, false};
    trial.outcome.reserve(4096);
    const std::size_t before = living_allocations();
    const auto add = [&trial](const std::string &text) { trial.outcome.append(text); };
    {
        const Trial first = attempt(scenario, arm);
        trial.refused = first.refused;
        add(first.outcome);
    }
    if (trial.refused) {
        afterwards.append(attempt(scenario, [] { return NothingFails(); }).outcome);
        if (afterwards != scenario.right) trial.outcome.append(" and then " + afterwards);
    }
    if (living_allocations() > before) trial.outcome.append(" and memory is lost");
    if (open_files() != 0) trial.outcome.append(" and a file stays open");
    return trial;
}

#if defined(_WIN32)
template <class Arm>
Trial attempt_in_child(const Scenario &, Arm) {
    return {};
}
#else
// In a process of its own, which may end: it writes whether anything was refused, and the outcome.
template <class Arm>
Trial attempt_in_child(const Scenario &scenario, Arm arm) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDERR_FILENO);
        const Trial trial = attempt_twice(scenario, arm);
        std::fprintf(stderr, "%c%s", trial.refused ? 'r' : 'w', trial.outcome.c_str());
        std::exit(0);
    }
    close(ends[1]);
    std::string told;
    char bytes[512];
    for (ssize_t count; (count = read(ends[0], bytes, sizeof bytes)) > 0;)
        told.append(bytes, static_cast<std::size_t>(count));
    close(ends[0]);
    int status = -1;
    waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 1) {
        const std::string log = take_log();
        EXPECT_EQ(log, "") << told;
        return {"ends: " + told.substr(0, told.find('\n')), true};
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0 && !told.empty()) << told;
    return {told.substr(std::min<std::size_t>(told.size(), 1)), told.starts_with('r')};
}
#endif

template <class Fault>
void refuse_each(const Scenario &scenario, const char *kind, const Outcomes &expected,
                 std::initializer_list<Fault> faults, auto arm) {
    Outcomes seen;
    std::size_t most = 0, total = 0;
    for (const Fault fault : faults) {
        for (std::size_t point = 0;; ++point, ++total) {
            const auto refuse = [&] { return arm(point, fault); };
            const Trial trial = scenario.may_end_process ? attempt_in_child(scenario, refuse)
                                                         : attempt_twice(scenario, refuse);
            most = std::max(most, point);
            if (!trial.refused) {
                EXPECT_EQ(trial.outcome, scenario.right) << scenario.group << ", " << kind;
                break;
            }
            if (trial.outcome != scenario.right) seen.insert(trial.outcome);
            ASSERT_LT(point, kMostPoints) << scenario.group << ", " << kind;
        }
    }
    EXPECT_EQ(seen, expected) << scenario.group << ", " << kind;
    std::printf("injected | %s | %s | %zu | %zu | %zu\n", scenario.group, kind, most, total, seen.size());
}

}  // namespace

void inject(const Scenario &scenario) {
    EXPECT_EQ(attempt(scenario, [] { return NothingFails(); }).outcome, scenario.right) << scenario.group;
#if defined(_WIN32)
    if (scenario.may_end_process) return;
#endif
    HOST_observe([](const char *) -> std::int32_t { return 0; });  // what watches stays for good
    HOST_observe(nullptr);
    if (kAllocationsCanFail)
        refuse_each(scenario, "memory", scenario.memory, {false, true},
                    [](std::size_t point, bool all_after) { return FailingAllocation(point, all_after); });
    if (kFilesCanFail)
        refuse_each(scenario, "files", scenario.files, {FileFault::once, FileFault::all, FileFault::halves},
                    [](std::size_t point, FileFault fault) { return FailingFiles(point, fault); });
    refuse_each(scenario, "machine", scenario.machine, {false, true},
                [](std::size_t point, bool all_after) { return FailingMachine(point, all_after); });
}

}  // namespace test
