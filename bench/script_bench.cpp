// The interpreter beside Lua: a loop that adds up the numbers below a limit, four instructions a turn. Lua's
// peers are the same loop on local variables, which is Lua at its best; on a table, where script variables
// live; and with a hook that pumps messages before each instruction, as the interpreter does. And an
// arithmetic text of 51 tokens, which Lua compiles and runs.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "inkstone/expression.h"
#include "inkstone/mac.h"
#include "inkstone/runtime.h"
#include "support/script.h"

#if defined(INKSTONE_BENCH_LUA)
#include <lua.hpp>
#endif

namespace {

constexpr std::int32_t kTurns = 100000;
constexpr std::int64_t kInstructionsPerTurn = 4;

void load_script() {
    using namespace test;
    const std::string reset = op(17, constant(0) + constant(0));
    const std::string body = op(18, constant(1) + variable(0)) + op(18, constant(0) + constant(1));
    const auto loop = static_cast<std::int32_t>(reset.size());
    const std::int32_t end = loop + 17 + static_cast<std::int32_t>(body.size()) + 6;
    const std::string procedure =
        reset + op(2, word(end) + constant(0) + '<' + constant(kTurns)) + body + op(13, word(loop)) + op(1);
    const auto place = std::filesystem::temp_directory_path();
    std::ofstream(place / "bench.mac", std::ios::binary) << script_file({procedure});
    MAC_init(place.c_str(), place.c_str(), 16, nullptr);
    MAC_load("bench.mac");
    std::filesystem::remove(place / "bench.mac");
    std::filesystem::remove(place / "ERROR.MSG");
}

void Script(benchmark::State &state) {
    load_script();
    for (auto _ : state) benchmark::DoNotOptimize(MAC_driver(0));
    state.SetItemsProcessed(state.iterations() * kTurns * kInstructionsPerTurn);
}
BENCHMARK(Script)
    ->Name("Scripts/400,000 instructions, pumping before each/inkstone")
    ->Unit(benchmark::kMillisecond);

// What pumping before each instruction costs by itself.
void ScriptPumpAlone(benchmark::State &state) {
    for (auto _ : state)
        for (std::int64_t i = 0; i < kTurns * kInstructionsPerTurn; ++i) fnCheckMessage();
    state.SetItemsProcessed(state.iterations() * kTurns * kInstructionsPerTurn);
}
BENCHMARK(ScriptPumpAlone)->Name("Scripts/400,000 pumps/inkstone")->Unit(benchmark::kMillisecond);

constexpr const char *kExpression = "12*(3+4)-5+678/(9+1)*2-(34+56)*7+89-(1+2*(3+4*5))+60*7-890/11";

void Expression(benchmark::State &state) {
    for (auto _ : state) benchmark::DoNotOptimize(string_2_number(kExpression));
}
BENCHMARK(Expression)->Name("Scripts/string_2_number of 51 tokens/inkstone");

#if defined(INKSTONE_BENCH_LUA)

void LuaExpression(benchmark::State &state) {
    lua_State *lua = luaL_newstate();
    const std::string source = std::string("return ") + kExpression;
    for (auto _ : state) {
        luaL_loadstring(lua, source.c_str());
        lua_call(lua, 0, 1);
        benchmark::DoNotOptimize(lua_tointeger(lua, -1));
        lua_pop(lua, 1);
    }
    lua_close(lua);
}
BENCHMARK(LuaExpression)->Name("Scripts/string_2_number of 51 tokens/Lua 5.4");

void pump(lua_State *, lua_Debug *) {
    fnCheckMessage();
}

void Lua(benchmark::State &state, const char *source, bool pumping) {
    lua_State *lua = luaL_newstate();
    luaL_loadstring(lua, source);
    if (pumping) lua_sethook(lua, pump, LUA_MASKCOUNT, 1);
    for (auto _ : state) {
        lua_pushvalue(lua, -1);
        lua_call(lua, 0, 0);
    }
    lua_close(lua);
    state.SetItemsProcessed(state.iterations() * kTurns * kInstructionsPerTurn);
}
constexpr const char *kLocals = "local i, s = 0, 0 while i < 100000 do s = s + i i = i + 1 end";
constexpr const char *kTable =
    "local v = {0, 0} while v[1] < 100000 do v[2] = v[2] + v[1] v[1] = v[1] + 1 end";
BENCHMARK_CAPTURE(Lua, locals, kLocals, false)
    ->Name("Scripts/400,000 instructions, pumping before each/Lua 5.4 on locals, not pumping")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Lua, table, kTable, false)
    ->Name("Scripts/400,000 instructions, pumping before each/Lua 5.4 on a table, not pumping")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Lua, table_pumping, kTable, true)
    ->Name("Scripts/400,000 instructions, pumping before each/Lua 5.4 on a table, pumping")
    ->Unit(benchmark::kMillisecond);

#endif

}  // namespace
