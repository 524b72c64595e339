#include "support/injection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string_view>

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
constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

// While armed, operation number failing of the machine is refused, and with all_after every later one too.
class FailingMachine {
  public:
    FailingMachine(std::size_t failing, bool all_after) {
        left_ = failing;
        all_after_ = all_after;
        refused_ = false;
        HOST_observe([](const char *call) -> std::int32_t {
            if (!can_be_refused(call)) return 0;
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
    static bool can_be_refused(std::string_view call) {
        for (const char *never :
             {"release_", "delete_", "close_window", "kill_timer", "select_palette", "update_colors",
              "animate_palette", "set_cursor ", "show_cursor", "client_to_screen"})
            if (call.starts_with(never)) return false;
        return true;
    }

    static inline std::size_t left_;
    static inline bool all_after_, refused_;
};

// Files are counted all the same.
class NothingFails {
  public:
    bool disarm() { return files_.disarm(); }

  private:
    FailingFiles files_{kNever, FileFault::once};
};

template <class Refusal>
class WithCountedFiles {
  public:
    template <class... Arguments>
    explicit WithCountedFiles(Arguments... arguments) : refusal_(arguments...) {}
    bool disarm() {
        files_.disarm();
        return refusal_.disarm();
    }

  private:
    FailingFiles files_{kNever, FileFault::once};
    Refusal refusal_;
};

struct Trial {
    std::string outcome;
    bool refused = false;
    std::ptrdiff_t kept = 0;  // blocks of memory
};

template <class Arm>
Trial attempt(const Scenario &scenario, Arm arm) {
    scenario.prepare();
    take_log();
    auto failing = arm();
    scenario.use();
    Trial trial{{}, failing.disarm(), 0};
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
    Trial trial;
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
    trial.kept = static_cast<std::ptrdiff_t>(living_allocations()) - static_cast<std::ptrdiff_t>(before);
    if (open_files() != 0) trial.outcome.append(" and a file stays open");
    return trial;
}

#if defined(_WIN32)
template <class Arm>
Trial attempt_in_child(const Scenario &, Arm) {
    return {};
}
#else
// In a process of its own, which may end: it writes whether anything was refused, how much memory is kept, and the
// outcome.
template <class Arm>
Trial attempt_in_child(const Scenario &scenario, Arm arm) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDERR_FILENO);
        const Trial trial = attempt_twice(scenario, arm);
        std::fprintf(stderr, "%c%td %s", trial.refused ? 'r' : 'w', trial.kept, trial.outcome.c_str());
        std::_Exit(0);  // an exit handler may take away the place that the next one needs
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
        return {"ends: " + told.substr(0, told.find('\n')), true, 0};
    }
    const std::size_t space = told.find(' ');
    const bool told_well = WIFEXITED(status) && WEXITSTATUS(status) == 0 && space != told.npos;
    EXPECT_TRUE(told_well) << told;
    if (!told_well) return {told, false, 0};
    return {told.substr(space + 1), told.starts_with('r'), std::atol(&told[1])};
}
#endif

template <class Arm>
Trial attempt_where_it_belongs(const Scenario &scenario, Arm arm) {
    return scenario.in_process_of_its_own ? attempt_in_child(scenario, arm) : attempt_twice(scenario, arm);
}

template <class Fault>
void refuse_each(const Scenario &scenario, const char *kind, const Outcomes &expected, std::ptrdiff_t kept,
                 std::initializer_list<Fault> faults, auto arm) {
    Outcomes seen;
    std::size_t most = 0, total = 0;
    for (const Fault fault : faults) {
        for (std::size_t point = 0;; ++point, ++total) {
            const auto refuse = [&] { return arm(point, fault); };
            Trial trial = attempt_where_it_belongs(scenario, refuse);
            if (trial.kept > kept) trial.outcome.append(" and memory is lost");
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
    if (scenario.asks_for_nothing) {
        EXPECT_EQ(most, 0U) << scenario.group << ", " << kind;
    }
    // A line of the table that scripts/injection makes.
    if (std::getenv("INKSTONE_TELL_REFUSALS") != nullptr)
        std::printf("injected | %s | %s | %zu | %zu | %zu\n", scenario.group, kind, most, total, seen.size());
}

}  // namespace

void inject(const Scenario &scenario) {
#if defined(_WIN32)
    if (scenario.in_process_of_its_own) return;
#endif
    // The machine, and what watches it, stay for good.
    HOST_name();
    HOST_observe([](const char *) -> std::int32_t { return 0; });
    HOST_observe(nullptr);
    // What the first use keeps, such as a loaded file or room in a list, every other one may keep, too.
    const auto nothing = [] { return NothingFails(); };
    Trial undisturbed = attempt_where_it_belongs(scenario, nothing);
    EXPECT_EQ(undisturbed.outcome, scenario.right) << scenario.group;
    const std::ptrdiff_t kept = scenario.in_process_of_its_own ? undisturbed.kept : 0;
    if (kAllocationsCanFail)
        refuse_each(scenario, "memory", scenario.memory, kept, {false, true},
                    [](std::size_t point, bool all_after) {
                        return WithCountedFiles<FailingAllocation>(point, all_after);
                    });
    if (kFilesCanFail)
        refuse_each(scenario, "files", scenario.files, kept,
                    {FileFault::once, FileFault::all, FileFault::halves},
                    [](std::size_t point, FileFault fault) { return FailingFiles(point, fault); });
    refuse_each(
        scenario, "machine", scenario.machine, kept, {false, true},
        [](std::size_t point, bool all_after) { return WithCountedFiles<FailingMachine>(point, all_after); });
}

}  // namespace test
