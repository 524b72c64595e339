#include "title_page.h"

#include "landscape.h"

namespace demo {
namespace {

constexpr std::int32_t kTransparent = 1;  // mode word: only the ink is written
constexpr std::int32_t kCaretCounter = 0, kWaterCounter = 1;

// The typing line and the panel around it.
constexpr std::int32_t kPanelX = 64, kPanelY = 424, kPanelWidth = 512, kPanelHeight = 32;
constexpr std::int32_t kPanelGlass = 0;  // its glass table
constexpr std::size_t kLongestLine = 58;

void set_colours(std::int32_t first, std::int32_t second, std::int32_t third, std::int32_t outline) {
    set_ascii16_color(0, first);
    set_ascii16_color(1, second);
    set_ascii16_color(2, third);
    set_ascii16_color(3, outline);
}

// The title: double-size text, cut out as an image block and enlarged three times over a shadow of itself.
void draw_title(std::uint8_t *screen) {
    std::vector<std::uint8_t> page(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT);
    constexpr std::int32_t kWidth = 8 * 16 + 4, kHeight = 36;
    set_colours(kGold + 14, kGold + 10, kGold + 6, kVermilion + 5);
    print_ascii16(2, 2, "~Z1~O1INKSTONE~O0~Z0", kTransparent, page.data());
    std::vector<std::uint8_t> image(kWidth * kHeight + 4);
    BUF_get_image(0, 0, kWidth, kHeight, image.data(), page.data());
    std::vector<std::uint8_t> shadow(image.begin() + 4, image.end());
    for (std::uint8_t &pixel : shadow) pixel = pixel != 0 ? kMountain : 0;
    BUF_scale_pest_bitmap(126, 34, kWidth * 3, kHeight * 3, kWidth, kHeight, shadow.data(), screen);
    BUF_scale_pest_image(120, 28, kWidth * 3, kHeight * 3, image.data(), screen);
}

}  // namespace

void TitlePage::draw(Game &game) {
    std::uint8_t *screen = game.screen();
    paint_landscape(screen);
    draw_title(screen);

    set_colours(kPaper + 14, kGold + 13, kJade + 14, kInk);
    print_ascii16(152, 142, "~O1a runtime library for games in 256 colours~O0", kTransparent, screen);
    print_ascii16(96, 186, "~T1~C0colour slot 0  ~C1colour slot 1  ~C2colour slot 2~C0~T0", kTransparent,
                  screen);
    print_ascii16(96, 210, "~O1~C1outline~C0~O0   ~T1shadow~T0   ~O1~T1~C2both of them~C0~T0~O0",
                  kTransparent, screen);
    print_ascii16(96, 234, "~Z1double ~O1~C2size~C0~O0~Z0", kTransparent, screen);
    BUF_box(88, 282, 255, 309, kGold + 8, screen);
    print_ascii16(96, 288, "\x01 \x03 \x04 \x0E \xE3 \xE4 ~C1\xB0\xB1\xB2\xDB\xB2\xB1\xB0~C0", kTransparent,
                  screen);
    print_ascii16(280, 288, " an opaque ground ", (kVermilion + 5) * 256, screen);
    set_colours(kPaper + 12, kGold + 13, kJade + 14, kInk);
    print_ascii16(80, 462, "~O1type something    ~C1Tab~C0 next page    ~C1Esc~C0 leave~O0", kTransparent,
                  screen);

    // The panel of the typing line: what lies under it turns into dark greys.
    PAL_make_glass_table(kInk, kInk + 16, kPanelGlass, 30, game.palette().data());
    BUF_glass_bar(kPanelX, kPanelY, kPanelX + kPanelWidth - 1, kPanelY + kPanelHeight - 1, kPanelGlass,
                  screen);
    BUF_box(kPanelX, kPanelY, kPanelX + kPanelWidth - 1, kPanelY + kPanelHeight - 1, kGold + 8, screen);
    under_typing_.resize(kPanelWidth * kPanelHeight + 4);
    BUF_get_image(kPanelX, kPanelY, kPanelWidth, kPanelHeight, under_typing_.data(), screen);
    draw_typing(game);
}

void TitlePage::draw_typing(Game &game) {
    BUF_put_image(kPanelX, kPanelY, under_typing_.data(), game.screen());
    // A tilde would begin a control sequence.
    std::string shown = typed_;
    for (char &character : shown)
        if (character == '~') character = '\xF7';
    set_colours(kPaper + 15, kGold + 13, kJade + 14, kInk);
    print_ascii16(kPanelX + 8, kPanelY + 8, ("~C1\x10 ~C0" + shown + (caret_ ? "~C1\xDB~C0" : "")).c_str(),
                  kTransparent, game.screen());
}

void TitlePage::frame(Game &game, const Events &events) {
    if (GetTimerTick(kWaterCounter) >= 2) {
        SetTimerTick(kWaterCounter, 0);
        game.turn_water();
    }
    bool changed = false;
    if (events.key >= 32 && events.key < 127 && typed_.size() < kLongestLine) {
        typed_ += static_cast<char>(events.key);
        changed = true;
    } else if (events.key == '\b' && !typed_.empty()) {
        typed_.pop_back();
        changed = true;
    }
    if (changed) game.play(Game::kClick);
    if (changed || GetTimerTick(kCaretCounter) >= 7) {
        caret_ = changed || !caret_;
        SetTimerTick(kCaretCounter, 0);
        draw_typing(game);
        WViewMoveBuffer2Screen(kPanelX, kPanelY, kPanelWidth, kPanelHeight);
    }
}

}  // namespace demo
