// Everything that a group of functions asks for, refused in turn: each allocation, each operation on a file, each
// operation of the machine.
#pragma once

#include <functional>
#include <set>
#include <string>

namespace test {

// What may come of a use: its outcome, and behind it "| " and the lines that were logged, with commas between them.
using Outcomes = std::set<std::string>;

struct Scenario {
    const char *group;                     // the functions, as the table names them
    std::function<void()> use;             // calls them; what it allocates or opens itself is refused, too
    std::function<std::string()> outcome;  // the results, and the state they left
    std::string right;                     // what comes of it when nothing is refused
    // What else comes of it when these are refused: all of it, and nothing else.
    Outcomes memory = {}, files = {}, machine = {};
    std::function<void()> prepare = [] {};  // before each use, with nothing refused
    // Each use then begins with what the process holds now, and may end it: the outcome is "ends: " and what the message
    // box says.
    bool in_process_of_its_own = false;
    bool asks_for_nothing = false;  // then there must be nothing to refuse
};

// Refuses the first, the second, ... until there is none left to refuse: once alone, and once with all that follow; of a
// file's operations also with half of what was asked. After each of them the same use must come out right, with no more
// memory held and no more files open than before.
void inject(const Scenario &scenario);

}  // namespace test
