// What the two forms of the LZSS family share: the window and its index, and the coding decisions.
#pragma once

#include <algorithm>

#include "data/lzss_window.h"
#include "data/match_index.h"

namespace ink::data {

// The one window with its index, which are too large for every caller's stack.
inline constinit MatchIndex lzss;

// Compresses what source gives. source.next() is the next byte, or below 0 at the end; sink.literal(byte) and
// sink.match(match) write the tokens.
template <typename Source, typename Sink>
void compress(Source &source, Sink &sink) {
    MatchIndex &index = lzss;
    Window &window = index.window;
    unsigned ahead = 0;
    for (int byte; ahead < kLongestMatch && (byte = source.next()) >= 0; ++ahead)
        window.put(kFirstPosition + ahead, static_cast<std::uint8_t>(byte));
    MatchIndex::Neighbours neighbours;
    if (ahead > 0) neighbours = index.insert(kFirstPosition);
    for (unsigned position = kFirstPosition; ahead > 0;) {
        Match match = index.longest_match(position, neighbours);
        match.length = std::min(match.length, ahead);
        unsigned steps = 1;
        if (match.length < kShortestMatch) {
            sink.literal(*window.at(position));
        } else {
            sink.match(match);
            steps = match.length;
        }
        for (; steps > 0; --steps) {
            const unsigned end = wrap(position + kLongestMatch);
            index.remove(end);
            if (const int byte = source.next(); byte >= 0)
                window.put(end, static_cast<std::uint8_t>(byte));
            else
                --ahead;
            position = wrap(position + 1);
            if (ahead != 0) neighbours = index.insert(position);
        }
    }
    index.clear();
}

}  // namespace ink::data
