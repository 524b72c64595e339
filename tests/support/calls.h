// The machine's operations as they come, recorded by an observer that can also make one fail.
#pragma once

#include <cstdio>
#include <map>
#include <regex>
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

// The record since the last look, ended. Windows, palettes and sound buffers stand in it by the order in which
// it first names them, from 1 on, since handles go on from test to test.
inline std::vector<std::string> take_calls() {
    HOST_observe(nullptr);
    std::map<std::string, std::map<std::string, std::size_t>> numbers;  // of each kind, by handles
    for (std::string &call : calls) {
        std::smatch parts;
        static const std::regex named(
            "((?:get_context|release_context|client_to_screen|copy_bitmap|set_timer|kill_timer|message_box)|"
            "(?:select|animate|delete)_palette|"
            "(?:(?:lock|unlock|restore|play|stop|release)_buffer|buffer_status|set_buffer_[a-z]+)) "
            "([1-9][0-9]*)(.*)");
        if (!std::regex_match(call, parts, named)) continue;
        const std::string name = parts[1], handle = parts[2];
        const char *kind = name.find("palette") != name.npos  ? "palette"
                           : name.find("buffer") != name.npos ? "buffer"
                                                              : "window";
        auto &known = numbers[kind];
        const std::size_t number = known.try_emplace(handle, known.size() + 1).first->second;
        call = name + ' ' + std::to_string(number) + parts[3].str();
    }
    return std::move(calls);
}

using Calls = std::vector<std::string>;

}  // namespace test
