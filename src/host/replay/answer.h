// What comes into a program from outside, one thing after the other: the answers of its machine to what it
// asks, the messages it takes, and between them the marks at which a record says what was seen and heard.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "host/replay/range_coder.h"

namespace ink::host {

// The numbers are those of the file: new kinds come at the end.
enum class Kind : std::uint8_t {
    pause,  // the end of a block of answers, after which another one follows
    end,    // the program ended
    mark,
    message,
    timer,
    own_message,
    sent,
    get,
    milliseconds,
    clock,
    message_box,
    set_timer,
    kill_timer,
    open_window,
    close_window,
    default_procedure,
    realize_palette,
    client_to_screen,
    create_sound,
    cooperative_level,
    create_buffer,
    lock_buffer,
    unlock_buffer,
    restore_buffer,
    buffer_status,
    play_buffer,
    stop_buffer,
    buffer_position,
    buffer_volume,
    open_disc,
    close_disc,
    stop_disc,
    disc_time_format,
    disc_track_count,
    disc_track_length,
    disc_mode,
    play_disc,
    local_time,
    setting,
    is_cdrom,
    insert_disc,
};

struct KindFacts {
    const char *name;
    std::uint8_t values;  // how many numbers it carries
    bool text;            // whether it carries a text, too
};
inline constexpr std::uint32_t kKinds = static_cast<std::uint32_t>(Kind::insert_disc) + 1;
const KindFacts &facts_of(Kind kind);

struct Answer {
    static constexpr std::size_t kMostValues = 9;

    Kind kind = Kind::pause;
    std::uint64_t idle = 0;  // how often the queue was asked before it, since the last, and had nothing
    std::int64_t step = 0;   // the time since the last, in the units of the file
    std::array<std::int64_t, kMostValues> values{};
    std::string text;
};

// What has been learnt of the answers so far, which is all that is needed to write the next one or to read
// it.
class AnswerModel {
  public:
    static constexpr std::uint64_t kLongestText = 1 << 16;

    AnswerModel();
    template <class Coder>
    void code(Coder &coder, Answer &answer);

  private:
    struct Field {
        Chance same;
        NumberModel change;
        std::int64_t last = 0;
    };
    struct State {
        Chance has_idle;
        NumberModel idle;
        Field step;
        std::vector<Field> values;
    };

    template <class Coder>
    static void code_field(Coder &coder, Field &field, std::int64_t &value);
    template <class Coder>
    void code_text(Coder &coder, std::string &text);

    std::array<Tree<6>, 64> kinds_;  // by the kind before
    std::uint32_t before_ = 0;
    std::vector<State> states_;
    NumberModel text_length_;
    std::array<Tree<8>, 256> letters_;  // by the letter before
};

extern template void AnswerModel::code(Encoder &, Answer &);
extern template void AnswerModel::code(Decoder &, Answer &);

}  // namespace ink::host
