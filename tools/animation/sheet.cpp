#include <charconv>
#include <memory>
#include <stdexcept>

#include "animation/formats.h"
#include "files/source.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

constexpr int kFarthest = 0x7FFF, kLongest = 60'000;

struct Word {
    std::string text;
    std::size_t column;
};

class Description {
  public:
    explicit Description(const fs::path &name) : name_(name) {}

    RawAnimation read() {
        const auto lines = lines_of(name_of(name_), read_text(name_));
        require_utf8(lines);
        for (const Place &line : lines) {
            line_ = line;
            split();
            if (!words_.empty()) statement();
        }
        if (made_.frames.empty()) throw FileError(name_, "describes no frame");
        return std::move(made_);
    }

  private:
    void split() {
        words_.clear();
        next_ = 0;
        const std::string_view text = std::string_view(line_.line).substr(0, line_.line.find(';'));
        for (std::size_t at = 0; (at = text.find_first_not_of(" \t", at)) != std::string_view::npos;) {
            // A name with blanks in it stands in quotes.
            const bool quoted = text[at] == '"';
            const std::size_t start = at + (quoted ? 1 : 0);
            const std::size_t end = std::min(text.find_first_of(quoted ? "\"" : " \t", start), text.size());
            words_.push_back({std::string(text.substr(start, end - start)), at});
            at = std::min(end + (quoted ? 1 : 0), text.size());
        }
    }

    [[noreturn]] void fail(const std::string &message) const {
        Place place = line_;
        place.column = next_ > 0 ? words_[next_ - 1].column : 0;
        throw SourceError(place, message);
    }
    bool more() const { return next_ < words_.size(); }
    const std::string &take(const char *what) {
        if (!more()) fail(std::string("expected ") + what + " after this");
        return words_[next_++].text;
    }
    int number(int least, int most) {
        const std::string &text = take("a number");
        int value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc() || end != text.data() + text.size() || value < least || value > most)
            fail("expected a number, " + std::to_string(least) + " to " + std::to_string(most));
        return value;
    }

    void statement() {
        const std::string word = take("a word");
        if (word == "anchor") {
            made_.anchor_x = number(-kFarthest, kFarthest);
            made_.anchor_y = number(-kFarthest, kFarthest);
        } else if (word == "sheet") {
            sheet_ = std::make_unique<AnyPicture>(picture());
        } else if (word == "picture") {
            add({picture()});
        } else if (word == "frame") {
            const int x = number(0, kFarthest), y = number(0, kFarthest), width = number(1, kFarthest),
                      height = number(1, kFarthest);
            add({part(x, y, width, height)});
        } else if (word == "grid") {
            grid();
        } else {
            fail("there is no \"" + word + '"' +
                 suggestion(word, {"anchor", "picture", "sheet", "frame", "grid"}));
        }
        if (more()) {
            ++next_;
            fail("nothing follows here");
        }
    }

    AnyPicture picture() {
        const std::string file = take("a picture's name");
        try {
            return read_any_picture(name_.parent_path() / path_of(file));
        } catch (const FileError &error) {
            fail(error.what());
        }
    }

    std::pair<int, int> sheet_size() const {
        if (!sheet_) fail("the picture it is a part of is named first: sheet FILE");
        if (sheet_->indexed) return {sheet_->indexed->width, sheet_->indexed->height};
        return {sheet_->colours->width, sheet_->colours->height};
    }

    AnyPicture part(int x, int y, int width, int height) const {
        const auto [all_width, all_height] = sheet_size();
        if (x + width > all_width || y + height > all_height)
            fail("this part does not lie on the sheet, which is " + std::to_string(all_width) + " x " +
                 std::to_string(all_height));
        AnyPicture made;
        if (sheet_->indexed) {
            made.indexed = cut(*sheet_->indexed, x, y, width, height);
            return made;
        }
        made.colours = ColourPicture{width, height, {}};
        for (int row = y; row < y + height; ++row) {
            const auto start = sheet_->colours->pixels.begin() + std::ptrdiff_t{row} * all_width + x;
            made.colours->pixels.insert(made.colours->pixels.end(), start, start + width);
        }
        return made;
    }

    void grid() {
        const int width = number(1, kFarthest), height = number(1, kFarthest);
        const auto [all_width, all_height] = sheet_size();
        const int columns = all_width / width, rows = all_height / height;
        int count = columns * rows;
        if (count == 0) fail("no part of this size lies on the sheet");
        if (more() && words_[next_].text != "at" && words_[next_].text != "for") count = number(1, count);
        const RawFrame pattern = place_and_time({});
        for (int i = 0; i < count; ++i) {
            RawFrame frame = pattern;
            frame.picture = part(i % columns * width, i / columns * height, width, height);
            made_.frames.push_back(std::move(frame));
        }
    }

    RawFrame place_and_time(RawFrame frame) {
        while (more()) {
            const std::string &word = take("at or for");
            if (word == "at") {
                frame.x = number(-kFarthest, kFarthest);
                frame.y = number(-kFarthest, kFarthest);
            } else if (word == "for") {
                frame.milliseconds = number(1, kLongest);
            } else {
                fail("expected: at X Y, or: for MILLISECONDS");
            }
        }
        return frame;
    }
    void add(RawFrame frame) { made_.frames.push_back(place_and_time(std::move(frame))); }

    const fs::path name_;
    Place line_;
    std::vector<Word> words_;
    std::size_t next_ = 0;
    std::unique_ptr<AnyPicture> sheet_;
    RawAnimation made_;
};

}  // namespace

RawAnimation read_sheet(const fs::path &name) {
    return Description(name).read();
}

}  // namespace ink::tool
