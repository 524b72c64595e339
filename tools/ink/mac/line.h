// A line of tokens, read from left to right.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "mac/lexer.h"

namespace ink::mac {

class Line {
  public:
    explicit Line(const Place &place) : place_(place), tokens_(tokenise(place)) {}

    const Place &place() const { return place_; }
    const Token &peek(std::size_t ahead = 0) const {
        return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
    }
    bool done() const { return peek().kind == Token::Kind::end; }
    const Token &take() { return done() ? tokens_.back() : tokens_[at_++]; }

    bool next_is(std::string_view text, std::size_t ahead = 0) const {
        const Token &token = peek(ahead);
        return (token.kind == Token::Kind::symbol || token.kind == Token::Kind::word) && token.text == text;
    }
    bool accept(std::string_view text) {
        const bool here = next_is(text);
        if (here) take();
        return here;
    }
    void expect(std::string_view text) {
        if (!accept(text)) fail_expected('"' + std::string(text) + '"');
    }
    const Token &expect(Token::Kind kind, const char *what) {
        if (peek().kind != kind) fail_expected(what);
        return take();
    }

    [[noreturn]] void fail(std::size_t column, const std::string &message) const {
        Place place = place_;
        place.column = column;
        throw SourceError(place, message);
    }
    [[noreturn]] void fail_expected(const std::string &what) const {
        const std::string found = done() ? "the end of the line" : '"' + peek().text + '"';
        fail(peek().column, "expected " + what + ", found " + found);
    }

  private:
    Place place_;
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
};

}  // namespace ink::mac
