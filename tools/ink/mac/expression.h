// Arithmetic in sources: read where it stands, computed once every name is known.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "mac/lexer.h"

namespace ink::mac {

class Line;

class Expression {
  public:
    // Reads + - * / %, parentheses, signs, numbers and names from the line.
    static Expression read(Line &line);

    using Lookup = std::function<std::int64_t(const Token &name)>;
    // Throws SourceError where a result does not fit in 32 bits, signed or unsigned.
    std::int64_t value(const Place &place, const Lookup &lookup) const;

    // The name when there is nothing but one; null otherwise.
    const Token *single_name() const;
    std::size_t column() const { return steps_.empty() ? 0 : steps_.front().column; }

  private:
    void read_sum(Line &line, int depth);
    void read_product(Line &line, int depth);
    void read_factor(Line &line, int depth);

    // In postfix order: numbers and words are pushed, symbols applied to what was pushed before; "negate" to
    // one.
    std::vector<Token> steps_;
};

}  // namespace ink::mac
