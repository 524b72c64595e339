// Short forms for the tables of calls on a stage.
#pragma once

#define CALL(...) \
    []([[maybe_unused]] bench::Stage &s, [[maybe_unused]] int x, [[maybe_unused]] int y) { __VA_ARGS__; }
#define RECTANGLE x, y, x + s.w - 1, y + s.h - 1
#define MEMORY bench::kWidth, bench::kHeight, s.screen
#define SPRITE x, y, s.w, s.h, s.pixels
