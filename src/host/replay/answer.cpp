#include "host/replay/answer.h"

#include <iterator>

namespace ink::host {
namespace {

constexpr KindFacts kFacts[] = {
    {"pause", 0, false},
    {"end", 0, false},
    {"mark", 3, false},     // its number, check values of picture and sound
    {"message", 5, false},  // window, number, wparam, the halves of lparam
    {"timer", 2, false},    // window, number of the timer
    {"own message", 1, false},
    {"sent message", 5, false},  // as a message
    {"get message", 1, false},
    {"milliseconds", 1, false},
    {"clock", 1, false},
    {"message box", 0, false},
    {"set timer", 1, false},
    {"kill timer", 1, false},
    {"open window", 1, false},
    {"close window", 0, false},
    {"default procedure", 1, false},
    {"realize palette", 1, false},
    {"client to screen", 2, false},
    {"create sound", 1, false},
    {"cooperative level", 1, false},
    {"create buffer", 1, false},
    {"lock buffer", 1, false},
    {"unlock buffer", 1, false},
    {"restore buffer", 1, false},
    {"buffer status", 1, false},
    {"play buffer", 1, false},
    {"stop buffer", 1, false},
    {"buffer position", 1, false},
    {"buffer volume", 1, false},
    {"open disc", 1, false},
    {"close disc", 1, false},
    {"stop disc", 1, false},
    {"disc time format", 1, false},
    {"disc track count", 2, false},   // whether it was told, the count
    {"disc track length", 2, false},  // whether it was told, minutes, seconds and frames in a byte each
    {"disc mode", 2, false},          // whether it was told, the mode
    {"play disc", 1, false},
    {"local time", 9, false},  // the fields of a std::tm
    {"setting", 1, true},      // whether it is set, its value
    {"drive", 1, false},
    {"insert disc", 1, true},  // whether it went in, what it is
};
static_assert(std::size(kFacts) == kKinds && kKinds <= 64);

}  // namespace

const KindFacts &facts_of(Kind kind) {
    return kFacts[static_cast<std::size_t>(kind)];
}

AnswerModel::AnswerModel() : states_(kKinds) {
    for (std::uint32_t i = 0; i < kKinds; ++i) states_[i].values.resize(kFacts[i].values);
}

template <class Coder>
void AnswerModel::code_field(Coder &coder, Field &field, std::int64_t &value) {
    const auto change =
        static_cast<std::int64_t>(static_cast<std::uint64_t>(value) - static_cast<std::uint64_t>(field.last));
    if (coder.bit(field.same, change != 0))
        field.last =
            static_cast<std::int64_t>(static_cast<std::uint64_t>(field.last) +
                                      static_cast<std::uint64_t>(code_signed(coder, field.change, change)));
    value = field.last;
}

template <class Coder>
void AnswerModel::code_text(Coder &coder, std::string &text) {
    const std::uint64_t length = code_number(coder, text_length_, text.size());
    if (length > kLongestText) coder.fail();
    if (!coder.ok()) return;
    text.resize(static_cast<std::size_t>(length));
    std::uint8_t before = 0;
    for (char &letter : text) {
        before = static_cast<std::uint8_t>(
            code_tree<8>(coder, letters_[before], static_cast<std::uint8_t>(letter)));
        letter = static_cast<char>(before);
    }
}

template <class Coder>
void AnswerModel::code(Coder &coder, Answer &answer) {
    const std::uint32_t kind = code_tree<6>(coder, kinds_[before_], static_cast<std::uint32_t>(answer.kind));
    if (kind >= kKinds) coder.fail();
    if (!coder.ok()) return;
    before_ = kind;
    answer.kind = static_cast<Kind>(kind);
    if (answer.kind == Kind::pause) return;
    State &state = states_[kind];
    answer.idle =
        coder.bit(state.has_idle, answer.idle != 0) ? code_number(coder, state.idle, answer.idle) : 0;
    code_field(coder, state.step, answer.step);
    for (std::size_t i = 0; i < state.values.size(); ++i)
        code_field(coder, state.values[i], answer.values[i]);
    if (kFacts[kind].text) code_text(coder, answer.text);
}

template void AnswerModel::code(Encoder &, Answer &);
template void AnswerModel::code(Decoder &, Answer &);

}  // namespace ink::host
