// The LZSS compressor at its plainest: the search tree and the coding loop step by step, a byte at a time.
// What the library compresses has to come out exactly as it does here; the benchmarks measure against it too.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace test {

using Bytes = std::vector<std::uint8_t>;

class PlainLzss {
  public:
    // The tokens of the data as text in the order of the file form: each a literal or a match.
    struct Token {
        bool literal;
        unsigned byte_or_position, length;
    };

    std::vector<Token> tokens(const Bytes &data) {
        std::vector<Token> result;
        tree_.fill({});
        std::size_t next = 0;
        unsigned ahead = 0;
        while (ahead < 17 && next < data.size()) window[1 + ahead++] = data[next++];
        tree_[kRoot].larger = 1;
        tree_[1].parent = kRoot;
        unsigned p = 1, position = 0;
        unsigned m = 0;
        while (ahead > 0) {
            if (m > ahead) m = ahead;
            unsigned steps = 1;
            if (m <= 1) {
                result.push_back({true, window[p], 1});
            } else {
                result.push_back({false, position, m});
                steps = m;
            }
            while (steps-- > 0) {
                remove((p + 17) % 4096);
                if (next < data.size())
                    window[(p + 17) % 4096] = data[next++];
                else
                    --ahead;
                p = (p + 1) % 4096;
                if (ahead != 0) m = insert(p, position);
            }
        }
        return result;
    }

    Bytes file_form(const Bytes &data) {
        Bytes bits;
        const auto put = [&bits](unsigned code, int count) {
            while (count-- > 0) bits.push_back(code >> count & 1);
        };
        for (const Token &token : tokens(data)) {
            put(token.literal, 1);
            put(token.byte_or_position, token.literal ? 8 : 12);
            if (!token.literal) put(token.length - 2, 4);
        }
        put(0, 13);
        Bytes result((bits.size() + 7) / 8);
        for (std::size_t i = 0; i < bits.size(); ++i)
            result[i / 8] = static_cast<std::uint8_t>(result[i / 8] | bits[i] << (7 - i % 8));
        return result;
    }

    Bytes memory_form(const Bytes &data) {
        Bytes result;
        std::size_t flags = 0;
        int count = 0;
        for (const Token &token : tokens(data)) {
            if (count % 8 == 0) {
                flags = result.size();
                result.push_back(0);
            }
            if (token.literal)
                result[flags] = static_cast<std::uint8_t>(result[flags] | 1 << count % 8);
            else
                result.push_back(
                    static_cast<std::uint8_t>((token.length - 2) << 4 | token.byte_or_position >> 8));
            result.push_back(static_cast<std::uint8_t>(token.byte_or_position));
            ++count;
        }
        return result;
    }

    // Expands as much as the code and the expected length allow.
    Bytes expand_memory_form(const Bytes &code, std::size_t expected) {
        Bytes result(expected);
        result.resize(expand_memory_form(code.data(), code.data() + code.size(), result.data(), expected));
        return result;
    }
    // The same where the two may overlap; returns how many bytes came of it.
    std::size_t expand_memory_form(const std::uint8_t *code, const std::uint8_t *end, std::uint8_t *to,
                                   std::size_t expected) {
        std::size_t size = 0;
        here_ = 1;
        unsigned flags = 0;
        for (int token = 0; size < expected; ++token) {
            if (token % 8 == 0) {
                if (code == end) break;
                flags = *code++;
            }
            const bool literal = (flags >> token % 8 & 1) != 0;
            if (end - code < (literal ? 1 : 2)) break;
            if (literal) {
                to[size++] = keep(*code++);
                continue;
            }
            const unsigned high = *code++, low = *code++;
            for (unsigned i = 0; i < (high >> 4) + 2 && size < expected; ++i)
                to[size++] = keep(window[(((high & 15) << 8 | low) + i) % 4096]);
        }
        return size;
    }

    // Expands to the end code or the end of the code. failed is set to the call that would have hit the
    // latter.
    Bytes expand_file_form(const Bytes &code, std::string &failed) {
        Bytes result;
        here_ = 1;
        std::size_t at = 0;
        failed.clear();
        const auto get = [&](unsigned count) {
            unsigned bits = 0;
            if (at + count > 8 * code.size()) failed = count == 1 ? "BITIO_input_bit" : "BITIO_input_bits";
            for (; failed.empty() && count > 0; --count, ++at)
                bits = bits << 1 | (code[at / 8] >> (7 - at % 8) & 1);
            return bits;
        };
        for (;;) {
            const bool literal = get(1) == 1;
            const unsigned code_or_position = failed.empty() ? get(literal ? 8 : 12) : 0;
            if (!failed.empty() || (!literal && code_or_position == 0)) return result;
            const unsigned length = literal ? 0 : get(4) + 2;
            if (!failed.empty()) return result;
            if (literal) result.push_back(keep(static_cast<std::uint8_t>(code_or_position)));
            for (unsigned i = 0; i < length; ++i)
                result.push_back(keep(window[(code_or_position + i) % 4096]));
        }
    }

    std::array<std::uint8_t, 4096> window{};

  private:
    static constexpr unsigned kRoot = 4096;
    struct Node {
        unsigned parent, smaller, larger;
    };

    unsigned insert(unsigned p, unsigned &position) {
        if (p == 0) return 0;
        unsigned test = tree_[kRoot].larger;
        unsigned best = 0;
        for (;;) {
            unsigned count = 0;
            int difference = 0;
            while (count < 17) {
                difference = window[(p + count) % 4096] - window[(test + count) % 4096];
                if (difference != 0) break;
                ++count;
            }
            if (count >= best) {
                best = count;
                position = test;
            }
            if (count == 17) {
                tree_[p] = tree_[test];
                link_of(test) = p;
                if (tree_[test].smaller != 0) tree_[tree_[test].smaller].parent = p;
                if (tree_[test].larger != 0) tree_[tree_[test].larger].parent = p;
                tree_[test] = {};
                return best;
            }
            unsigned &child = difference > 0 ? tree_[test].larger : tree_[test].smaller;
            if (child == 0) {
                child = p;
                tree_[p] = {test, 0, 0};
                return best;
            }
            test = child;
        }
    }

    void remove(unsigned node) {
        if (tree_[node].parent == 0) return;
        const unsigned smaller = tree_[node].smaller, larger = tree_[node].larger;
        if (larger == 0) {
            put_in_place_of(node, smaller);
        } else if (smaller == 0) {
            put_in_place_of(node, larger);
        } else {
            unsigned before = smaller;
            while (tree_[before].larger != 0) before = tree_[before].larger;
            remove(before);
            const Node left = tree_[node];
            put_in_place_of(node, before);
            tree_[before].smaller = left.smaller;
            tree_[before].larger = left.larger;
            if (left.smaller != 0) tree_[left.smaller].parent = before;
            tree_[left.larger].parent = before;
        }
    }

    void put_in_place_of(unsigned old, unsigned node) {
        link_of(old) = node;
        if (node != 0) tree_[node].parent = tree_[old].parent;
        tree_[old].parent = 0;
    }

    // The link that names the node, in its parent.
    unsigned &link_of(unsigned node) {
        Node &parent = tree_[tree_[node].parent];
        return parent.larger == node ? parent.larger : parent.smaller;
    }

    // An expanded byte, put into the window.
    std::uint8_t keep(std::uint8_t byte) {
        window[here_] = byte;
        here_ = (here_ + 1) % 4096;
        return byte;
    }

    std::array<Node, 4097> tree_{};
    unsigned here_ = 1;
};

}  // namespace test
