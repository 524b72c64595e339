// The machine's operations as they come, recorded by an observer that can also make one fail.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "inkstone/host.h"

namespace test {

inline std::vector<std::string> calls;
inline std::string failing;  // calls that begin with this fail

// Starts a new record. Operations that begin with fail are refused from now on.
inline void record_calls(const std::string &fail = {}) {
    calls.clear();
    failing = fail;
    HOST_observe([](const char *call) -> std::int32_t {
        calls.emplace_back(call);
        // A fatal exit takes the record with it, so whose box it shows is told here.
        if (calls.back().starts_with("message_box")) std::fprintf(stderr, "%s\n", call);
        return !failing.empty() && calls.back().starts_with(failing) ? 1 : 0;
    });
}

// The record since the last look, ended.
inline std::vector<std::string> take_calls() {
    HOST_observe(nullptr);
    return std::move(calls);
}

using Calls = std::vector<std::string>;

}  // namespace test
