// The authoring tool as an author uses it: what goes in comes out again, through every format.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <tuple>

#include "inkstone/bind.h"
#include "inkstone/palette.h"
#include "png/png_file.h"
#include "support/tool.h"
#if !defined(_WIN32)
#include <unistd.h>
#endif
#if defined(HAS_FLIC_PEER)
#include "support/film_peer.h"
#endif

namespace {

namespace fs = std::filesystem;
using namespace ink::tool;
using test::Bytes;
using test::ink;

constexpr int kWidth = 37, kHeight = 19;

// Colours of 6 bits a component as editors show them.
std::array<std::uint8_t, 768> palette(unsigned seed) {
    std::mt19937 random(seed);
    std::array<std::uint8_t, 768> colours;
    for (auto &component : colours) component = static_cast<std::uint8_t>(random() % 64 * 255 / 63);
    return colours;
}

// Pixels with runs and without, of all indices.
Bytes pixels(unsigned seed) {
    std::mt19937 random(seed);
    Bytes made;
    while (made.size() < kWidth * kHeight)
        made.insert(made.end(), random() % 3 == 0 ? random() % 90 : 1, static_cast<std::uint8_t>(random()));
    made.resize(kWidth * kHeight);
    return made;
}

void write_picture(const std::string &name, const Bytes &indices,
                   const std::array<std::uint8_t, 768> &colours) {
    test::write_file(name, encode_png(kWidth, kHeight, indices, colours));
}
PngPicture read_picture(const std::string &name) {
    return decode_png(test::read_file(name));
}
Bytes colours_of(const PngPicture &picture) {
    Bytes made;
    for (const auto &colour : picture.palette) made.insert(made.end(), colour.begin(), colour.begin() + 3);
    return made;
}

// Runs the tool, which must do what it is told.
#define INK(arguments) ASSERT_EQ(ink(arguments), 0) << (arguments) << '\n' << test::read_text("err")

TEST(PictureTool, KeepsPicturesOfEveryKindAsTheyAre) {
    const auto colours = palette(1);
    write_picture("a.png", pixels(1), colours);
    INK("palette convert a.png -o a.pal");
    for (const std::string kind : {"pcx", "img", "cim", "png"}) {
        fs::create_directory(kind);
        INK("picture a.png -o " + kind + " --as " + kind);
        INK("picture " + kind + "/a." + kind + " -o back.png --palette a.pal");
        const PngPicture back = read_picture("back.png");
        EXPECT_EQ(back.indices, pixels(1)) << kind;
        EXPECT_EQ(colours_of(back), Bytes(colours.begin(), colours.end())) << kind;
    }
    if (!std::string(CONVERT_PROGRAM).empty()) {
        ASSERT_EQ(std::system(CONVERT_PROGRAM " pcx/a.pcx -depth 8 rgb:a.rgb"), 0);
        const Bytes seen = test::read_file("a.rgb");
        ASSERT_EQ(seen.size(), 3U * kWidth * kHeight);
        for (std::size_t i = 0; i < seen.size(); ++i)
            ASSERT_EQ(seen[i] / 4, colours[3U * pixels(1)[i / 3] + i % 3] / 4) << i;
    }
    // Through every kind of palette, and only a part of one.
    INK("palette convert a.pal -o a.gpl");
    INK("palette convert a.gpl -o b.jasc");
    INK("palette convert b.jasc -o c.png");
    INK("palette convert c.png -o d.pal");
    EXPECT_EQ(test::read_file("a.pal"), test::read_file("d.pal"));
    INK("palette convert a.pal -o e.pal --entries 16-31");
    Bytes read(768), expected(768);
    PAL_read_palette("e.pal", read.data());
    for (std::size_t i = 48; i < 96; ++i) expected[i] = colours[i] / 4;
    EXPECT_EQ(read, expected);
    test::write_text("hand.gpl", "GIMP Palette\r\nName: x\r\n# 1 2 3\r\n255 128   3 white\r\n");
    INK("palette convert hand.gpl -o hand.pal");
    EXPECT_EQ(test::read_file("hand.pal"), (Bytes{0, 0, 1, 0, 63, 32, 0}));
}

TEST(PictureTool, FindsColoursAndNeverTakesABlackForTransparency) {
    // Few colours are kept exactly; more than the entries suffice for come near.
    const auto draw = [](int colours, const std::string &name) {
        Bytes rgb;
        for (int i = 0; i < kWidth * kHeight; ++i)
            for (int component = 0; component < 3; ++component)
                rgb.push_back(static_cast<std::uint8_t>(i % colours * (3 + component) % 256));
        write_png_rgb(name, kWidth, kHeight, rgb);
        return rgb;
    };
    const Bytes few = draw(100, "few.png"), many = draw(600, "many.png");
    const auto distance = [](const Bytes &rgb, const std::string &name, int first) {
        const PngPicture made = read_picture(name);
        double sum = 0;
        for (std::size_t i = 0; i < rgb.size(); ++i) {
            const std::uint8_t entry = made.indices[i / 3];
            EXPECT_GE(entry, first);
            sum += std::abs(rgb[i] / 4 - made.palette[entry][i % 3] / 4);
        }
        return sum / static_cast<double>(rgb.size());
    };
    INK("picture few.png -o few-indexed.png --entries 16-255");
    EXPECT_EQ(distance(few, "few-indexed.png", 16), 0);
    INK("picture many.png -o many-indexed.png --entries 200-255 --no-dither");
    EXPECT_LT(distance(many, "many-indexed.png", 200), 2);
    INK("palette join few.png many.png -o both.pal");
    INK("picture few.png -o few-both.png --palette both.pal");
    EXPECT_LT(distance(few, "few-both.png", 1), 1.5);

    // Five pixels of entries 0 (a black that is seen), 3 (transparent), 1 (red), 4 (transparent) and 0.
    const std::string file =
        "89504e470d0a1a0a0000000d4948445200000005000000010803000000212094c10000000f504c5445000000ff000000ff00"
        "0909090000ff254903b00000000574524e53ffffff00006892f3210000000e49444154789c6360606664610000001d00093d"
        "0d218d0000000049454e44ae426082";
    Bytes bytes;
    for (std::size_t i = 0; i < file.size(); i += 2)
        bytes.push_back(static_cast<std::uint8_t>(std::stoi(file.substr(i, 2), nullptr, 16)));
    test::write_file("five.png", bytes);
    INK("picture five.png -o five-indexed.png");
    const PngPicture five = read_picture("five-indexed.png");
    EXPECT_EQ(five.indices, (Bytes{3, 0, 1, 0, 3}));
    EXPECT_EQ(five.palette[3], (PngPicture::Colour{0, 0, 0, 255}));

    std::array<std::uint8_t, 768> black{};
    write_picture("plain.png", Bytes(kWidth * kHeight), black);
    INK("picture plain.png -o black.png --recolour --palette both.pal");
    EXPECT_EQ(read_picture("black.png").indices, Bytes(kWidth * kHeight));
    if (std::string(CONVERT_PROGRAM).empty()) return;
    ASSERT_EQ(
        std::system(CONVERT_PROGRAM " -size 4x1 xc:black -fill none -draw 'color 1,0 point' -fill '#FF0000' "
                                    "-draw 'color 2,0 point' PNG32:cut.png && " CONVERT_PROGRAM
                                    " cut.png PNG8:cut8.png"),
        0);
    for (const std::string name : {"cut.png", "cut8.png"}) {
        INK("picture " + name + " -o cut.img");
        const Bytes block = test::read_file("cut.img");
        ASSERT_EQ(block.size(), 8U);
        EXPECT_NE(block[4], 0) << name;
        EXPECT_EQ(block[5], 0) << name;
        EXPECT_NE(block[6], 0) << name;
        EXPECT_EQ(block[7], block[4]) << name;
    }
}

TEST(AnimationTool, TakesAnimationsAndFilmsApartAndPutsThemTogether) {
#if defined(_WIN32)
    GTEST_SKIP() << "this ink knows no animated files";
#endif
    const auto colours = palette(2);
    for (int i = 0; i < 4; ++i)
        write_picture("f" + std::to_string(i) + ".png", pixels(static_cast<unsigned>(i)), colours);
    test::write_text("a.sheet",
                     "; three\nanchor -3 4\npicture f0.png at 5 -6\nsheet f1.png\n"
                     "frame 1 2 10 11 at -7 0 for 140\ngrid 18 9 2 ; of four\n");
    INK("can build a.can a.sheet --save-palette a.pal");
    for (const std::string place : {"folder", "b.sheet"}) {
        INK("can extract a.can --palette a.pal -o " + place);
        INK("can build b.can " + (place == "folder" ? "folder/frames.sheet" : place));
        EXPECT_EQ(test::read_file("a.can"), test::read_file("b.can")) << place;
    }
    INK("info a.can");
    EXPECT_NE(test::read_text("out").find("(-10, 4)  10 x 11"), std::string::npos) << test::read_text("out");

    // A palette that changes needs a folder; a film has it.
    write_picture("f4.png", pixels(5), palette(3));
    INK("flic build a.flc 'f?.png'");
    INK("flic extract a.flc -o film");
    for (int i = 0; i < 5; ++i) {
        const PngPicture before = read_picture("f" + std::to_string(i) + ".png"),
                         after = read_picture("film/frame-00" + std::to_string(i) + ".png");
        EXPECT_EQ(after.indices, before.indices) << i;
        EXPECT_EQ(colours_of(after), colours_of(before)) << i;
    }
    EXPECT_EQ(ink("flic extract a.flc -o film.sheet"), 1);
    // Through an animated GIF, whose colours come in another order, and what others see of it.
    INK("flic build b.flc f0.png f1.png --speed 80");
    INK("flic extract b.flc -o b.gif");
    INK("flic extract b.flc -o b.apng");
    INK("flic build c.flc b.gif --entries 0-255");
    INK("flic extract c.flc -o c");
    for (int i = 0; i < 2; ++i) {
        const PngPicture before = read_picture("f" + std::to_string(i) + ".png"),
                         after = read_picture("c/frame-00" + std::to_string(i) + ".png");
        for (std::size_t pixel = 0; pixel < before.indices.size(); ++pixel)
            ASSERT_EQ(after.palette[after.indices[pixel]], before.palette[before.indices[pixel]]) << pixel;
    }
    const RgbPicture seen = read_png_rgb("b.apng");  // its first frame
    for (std::size_t i = 0; i < seen.rgb.size(); ++i)
        ASSERT_EQ(seen.rgb[i], colours[3U * pixels(0)[i / 3] + i % 3]);
#if defined(HAS_FLIC_PEER)
    // What another program makes of them: a film ends with the frame that leads back to the first.
    for (const auto &[name, count, times] : {std::tuple{"a.flc", 5, 6}, {"b.gif", 2, 2}, {"b.apng", 2, 2}}) {
        const std::vector<Bytes> frames = test::film_seen_by_peer(name);
        ASSERT_EQ(frames.size(), static_cast<std::size_t>(times)) << name;
        for (int i = 0; i < times; ++i) {
            const auto seed = static_cast<unsigned>(i % count);
            const Bytes wanted = pixels(seed == 4 ? 5 : seed);
            const auto of = palette(seed == 4 ? 3 : 2);
            for (std::size_t at = 0; at < 3 * wanted.size(); ++at)
                ASSERT_EQ(frames[static_cast<std::size_t>(i)][at], of[3U * wanted[at / 3] + at % 3])
                    << name << ' ' << i << ' ' << at;
        }
    }
#endif
}

TEST(DataTool, PacksCompressesAndSetsAndGivesItBack) {
#if defined(_WIN32)
    GTEST_SKIP() << "names that differ in the case of letters alone, and a shell that knows no UTF-8";
#endif
    fs::create_directories("box/sub");
    test::write_file("box/b.dat", pixels(1));
    test::write_text("box/a.txt", "");
    test::write_text("box/sub/c", "x");
    INK("bind pack box.bnd box");
    INK("bind check box.bnd");
    INK("bind extract box.bnd -o out-box");
    for (const char *name : {"a.txt", "b.dat", "sub/c"})
        EXPECT_EQ(test::read_file(std::string("box/") + name),
                  test::read_file(std::string("out-box/") + name))
            << name;
    std::string wanted = "B.dat";
    std::int32_t offset = 0, size = 0;
    EXPECT_EQ(BIND_open("box.bnd", wanted.data(), &offset, &size), 0);
    EXPECT_EQ(size, kWidth * kHeight);
    // Names are Big5 there, and what is none is spelled out; games find the first of two.
    fs::create_directory("chinese");
    test::write_file("chinese/\xE5\xA2\xA8.dat", pixels(2));
    INK("bind pack c.bnd chinese");
    Bytes chinese = test::read_file("c.bnd");
    EXPECT_EQ(chinese.size(), 48U + kWidth * kHeight);
    EXPECT_EQ(std::string(&chinese[24], &chinese[30]), "\xBE\xA5.dat");
    INK("bind extract c.bnd -o chinese-back");
    EXPECT_EQ(test::read_file("chinese-back/\xE5\xA2\xA8.dat"), pixels(2));
    chinese[24] = chinese[25] = 0xFF;
    test::write_file("d.bnd", chinese);
    INK("bind extract d.bnd -o chinese-back");
    EXPECT_EQ(test::read_file("chinese-back/%FF%FF.dat"), pixels(2));
    test::write_text("list", "; one\r\nbox/b.dat\r\n");
    INK("bind pack one.bnd list");
    test::write_text("box/A.TXT", "");
    EXPECT_EQ(ink("bind pack two.bnd box"), 1);
    test::write_text("box/sub/a-long-name", "");
    EXPECT_EQ(ink("bind pack two.bnd box"), 1);
    Bytes outward = test::read_file("one.bnd");
    std::copy_n("../out.dat", 11, outward.begin() + 24);
    test::write_file("outward.bnd", outward);
    EXPECT_EQ(ink("bind extract outward.bnd -o box"), 1);
    EXPECT_FALSE(test::exists("two.bnd") || test::exists("out.dat"));

    test::write_text("a", std::string(40, 'A'));
    INK("lzss compress a a.lz");
    EXPECT_EQ(test::read_file("a.lz"), (Bytes{0xA0, 0x80, 0x07, 0xC0, 0x25, 0xE0, 0x23, 0x30, 0x00, 0x00}));
    INK("lzss compress -m - a.lzm < a");
    EXPECT_EQ(test::read_file("a.lzm"), (Bytes{0x01, 0x41, 0xF0, 0x01, 0xF0, 0x12, 0x30, 0x23}));
    INK("lzss expand a.lz b");
    INK("lzss expand -m --length 40 a.lzm c");
    EXPECT_EQ(test::read_text("b"), test::read_text("a"));
    EXPECT_EQ(test::read_text("c"), test::read_text("a"));
    EXPECT_EQ(ink("lzss expand -m --length 41 a.lzm c"), 1);

    test::write_text("g.inf", "; mine\r\n[Video]\r\n\tMode , 3 ; x\r\n\r\n[Sound]\r\nVolume=\r\nLast = 1");
    INK("conf set g.inf video MODE 5");
    INK("conf set g.inf Video Name \xE5\xA2\xA8");
    INK("conf set g.inf Sound volume 80");
    INK("conf set g.inf New Key 1");
    EXPECT_EQ(test::read_text("g.inf"),
              "; mine\r\n[Video]\r\n\tMode , 5\r\nName = \xBE\xA5\r\n\r\n[Sound]\r\nvolume = 80\r\n"
              "Last = 1\r\n\r\n[New]\r\nKey = 1\r\n");
    INK("conf get g.inf sound LAST");
    EXPECT_EQ(test::read_text("out"), "1\n");
    EXPECT_EQ(ink("conf set g.inf Sound 'two words' 1"), 1);
    INK("expr '12*(3+4)-5'");
    EXPECT_EQ(test::read_text("out"), "79\n");
    EXPECT_EQ(ink("expr '1/0'"), 1);
}

TEST(InfoTool, KnowsFilesByTheirContentAndFindsWhereTheyBreak) {
#if defined(_WIN32)
    GTEST_SKIP() << "the standard library copies no file over another";
#endif
    write_picture("a.png", pixels(1), palette(1));
    test::write_text("s.mas", "proc a\n return\n");
    test::write_text("g.inf", "[A]\nb = 1\n");
    test::write_text("a.notes", "voice v\nv A4:1/4\n");
    for (const char *command :
         {"picture a.png -o a.pcx", "picture a.png -o a.cim", "picture a.png -o a.img",
          "palette convert a.png -o a.pal", "can build a.can a.png a.png", "flic build a.flc a.png",
          "bind pack a.bnd g.inf.d", "lzss compress a.can a.lz", "mac build s.mas",
          "disc build a.notes -o a.cue", "disc render a.notes -o a.wav"}) {
        fs::create_directories("g.inf.d");
        fs::copy_file("g.inf", "g.inf.d/g.inf", fs::copy_options::overwrite_existing);
        INK(command);
    }
    const std::pair<std::string, std::string> files[] = {{"a.png", "PNG picture"},
                                                         {"a.pcx", "PCX picture"},
                                                         {"a.cim", "compressed image"},
                                                         {"a.img", "image block"},
                                                         {"a.pal", "palette"},
                                                         {"a.can", "CAN animation"},
                                                         {"a.flc", "FLC film"},
                                                         {"a.bnd", "BIND archive"},
                                                         {"a.lz", "LZSS file"},
                                                         {"s.mac", "MAC script"},
                                                         {"g.inf", "configuration (INFO)"},
                                                         {"a.cue", "disc (CUE sheet)"},
                                                         {"a.wav", "wave sound"}};
    for (const auto &[name, format] : files) {
        EXPECT_EQ(ink("info " + name), 0) << test::read_text("out");
        EXPECT_TRUE(test::read_text("out").starts_with(name + ": " + format + "\n"))
            << test::read_text("out");
        // Cut short, no file is what it was.
        Bytes file = test::read_file(name);
        file.resize(file.size() - 2);
        const std::string ending = name.substr(name.rfind('.'));
        test::write_file("cut" + ending, file);
        if (ending == ".inf" || ending == ".cue") continue;
        EXPECT_EQ(ink("info cut" + ending), 1) << name << test::read_text("out");
    }
    EXPECT_EQ(ink("info --json a.lz"), 0);
    EXPECT_TRUE(test::read_text("out").starts_with(
        "[{\"file\": \"a.lz\", \"format\": \"LZSS file\", \"expands to\": " +
        std::to_string(fs::file_size("a.can")) + ", \"percent\": "))
        << test::read_text("out");
}

TEST(BuildTool, MakesWhatIsOutOfDateAndNothingElse) {
    fs::create_directory("c");
    write_picture("c/a-1.png", pixels(1), palette(1));
    test::write_text("c/x.mas", "proc a\n return\n");
    test::write_text("c/s.mas", "include \"x.mas\"\n");
    test::write_text("c/content.ink",
                     "; what is made\nmac build s.mas\n  can build a.can a-*.png ; the walk\n"
                     "lzss compress a.can \"a b.lz\"\n");
    const std::string script = "ink mac build s.mas\n", animation = "ink can build a.can a-*.png\n",
                      packed = "ink lzss compress a.can a b.lz\n", nothing = "everything is up to date\n";
    const auto made = [&] {
        EXPECT_EQ(ink("build c"), 0) << test::read_text("err");
        const std::string out = test::read_text("out");
        std::string lines;
        for (const std::string &line : {script, animation, packed, nothing})
            if (out.find(line) != std::string::npos) lines += line;
        return lines;
    };
    EXPECT_EQ(made(), script + animation + packed);
    EXPECT_EQ(made(), nothing);
    test::write_text("c/x.mas", "proc abc\n return\n");  // what a source includes
    EXPECT_EQ(made(), script);
    write_picture("c/a-2.png", pixels(2), palette(1));  // another file that the pattern matches
    EXPECT_EQ(made(), animation + packed);
    fs::remove("c/a b.lz");
    EXPECT_EQ(made(), packed);
    // A wrong line is named, and what stood before it is made all the same.
    test::write_text("c/content.ink", "mac build s.mas\n\n picture none.png -o b.pcx\n");
    test::write_text("c/x.mas", "proc a\n stop\n");
    EXPECT_EQ(ink("build c"), 1);
    EXPECT_EQ(test::read_text("out"), script + "ink picture none.png -o b.pcx\n");
    EXPECT_TRUE(test::read_text("err").starts_with((fs::path("c") / "content.ink").string() +
                                                   ":3:2: none.png: No such file"))
        << test::read_text("err");
    test::write_text("c/content.ink", "mac bild s.mas\n");
    EXPECT_EQ(ink("build c"), 1);
    EXPECT_NE(test::read_text("err").find("content.ink:1:1: "), std::string::npos);
}

TEST(ViewTool, ShowsWhatThereIsToSee) {
    write_picture("a.png", pixels(1), palette(1));
    write_picture("b.png", pixels(2), palette(1));
    INK("can build a.can a.png b.png --save-palette a.pal");
    INK("flic build a.flc a.png b.png");
    for (const std::string file : {"a.can", "a.flc"}) {
        INK("view " + file + " --palette a.pal --frame 2 --png seen.png");
        EXPECT_EQ(read_picture("seen.png").indices, pixels(2)) << file;
        EXPECT_EQ(colours_of(read_picture("seen.png")), colours_of(read_picture("b.png"))) << file;
    }
    EXPECT_EQ(ink("view a.can --frame 3 --png no.png"), 1);
    test::write_text("s.mas", "proc a\n return\n");
    INK("mac build s.mas");
    INK("view s.mac");
    EXPECT_EQ(test::read_text("out"), "\nproc 0 proc_0\n    return\n");
    INK("view a.pal --png swatch.png");
    EXPECT_EQ(read_picture("swatch.png").indices[17 * 256 + 40], 18);
}

// Whatever a command is given that is not what it wants: one line, exit code 1, and nothing written.
TEST(Tool, RefusesBrokenFilesInOneLineAndWritesNothing) {
#if defined(_WIN32)
    GTEST_SKIP() << "there is no /dev/null";
#else
    test::write_text("empty", "");
    test::write_text("noise", std::string(3000, '\x81') + '\x01');
    test::write_text("locked", "x");
    fs::permissions("locked", fs::perms::none);
    fs::create_directory("folder.d");
    write_picture("a.png", pixels(1), palette(1));
    test::write_text("s.mas", "proc a\n return\n");
    test::write_text("a.notes", "voice v\nv A4:1/4\n");
    test::write_text("a.lst", "a.png\n");
    for (const char *made : {"picture a.png -o a.pcx", "picture a.png -o a.cim", "picture a.png -o a.img",
                             "palette convert a.png -o a.pal", "can build a.can a.png a.png",
                             "flic build a.flc a.png a.png", "bind pack a.bnd a.lst",
                             "lzss compress a.png a.lz", "mac build s.mas", "disc render a.notes -o a.wav"})
        INK(made);
    // With % for the file; of a file that is right half is tried, too. Kinds of what some commands may well be
    // given: an empty text, a folder, a name that is to be.
    const struct {
        const char *command, *whole = "", *allowed = "";
    } cases[] = {{"picture % -o made.png", "a.pcx"},
                 {"picture % -o made.pcx", "a.png"},
                 {"picture % -o made.png", "a.cim"},
                 {"picture % -o made.png", "a.img"},
                 {"palette convert % -o made.gpl", "a.pal"},
                 {"palette join % -o made.pal", "a.png"},
                 {"can build made.can %", "a.png"},
                 {"can extract % -o made.gif", "a.can"},
                 {"flic build made.flc %", "a.png"},
                 {"flic extract % -o made", "a.flc"},
                 {"bind pack made.bnd %", "", "empty folder.d"},
                 {"bind list %", "a.bnd"},
                 {"bind extract % -o made", "a.bnd"},
                 {"bind check %", "a.bnd"},
                 {"lzss compress % made.lz", "", "empty noise"},
                 {"lzss expand % made.x", "a.lz"},
                 {"lzss expand -m --length 90000 % made.x", "a.lz"},
                 {"conf get % a b"},
                 {"conf set % a b c", "", "empty none"},
                 {"conf list %", "", "empty"},
                 {"mac build % -o made.mac", "", "empty"},
                 {"mac dump % -o made.mas", "s.mac"},
                 {"mac run %", "s.mac"},
                 {"save show %"},
                 {"strings % made.h", "", "empty"},
                 {"font build --ascii16 % -o made"},
                 {"font show -d % made.png"},
                 {"disc build -o made.cue %", "a.wav"},
                 {"disc render -o made.wav %", "a.wav"},
                 {"info %", "a.can"},
                 {"view % --png made.png", "a.flc"},
                 {"build %"},
                 {"build --description % folder.d", "", "empty"},
                 {"new %", "", "none"}};
    for (const auto &[command, whole, allowed] : cases)
        for (std::string file : {"empty", "noise", "none", "folder.d", "locked", whole}) {
            if (file.empty() || std::string(allowed).find(file) != std::string::npos) continue;
            if (file == "locked" && geteuid() == 0) continue;  // who may read everything
            if (file == whole) {
                Bytes half = test::read_file(file);
                half.resize(half.size() / 2);
                file = "half" + file.substr(1);
                test::write_file(file, half);
            }
            std::string words = command;
            words.replace(words.find('%'), 1, file);
            EXPECT_EQ(ink(words), 1) << words;
            const std::string said = test::read_text("err");
            EXPECT_EQ(std::count(said.begin(), said.end(), '\n'),
                      said.find("\n    ") == std::string::npos ? 1 : 3)
                << words << '\n'
                << said;
            for (const auto &entry : fs::directory_iterator("."))
                ASSERT_FALSE(entry.path().filename().string().starts_with("made")) << words;
            EXPECT_FALSE(test::exists("ERROR.MSG") || test::exists("folder.d/.ink-build")) << words;
        }
    // A device is written to, and stays one.
    EXPECT_EQ(ink("picture a.png -o /dev/null --as pcx"), 0);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(ink("picture a.png -o ./a.png"), 1);
#endif
}

TEST(Tool, IsCalledAsOneWouldTry) {
    const std::pair<const char *, const char *> wrong[] = {
        {"", "A subcommand is required\n"},
        {"pictrue", "\"pictrue\" is no command of ink; did you mean \"picture\"?\n"},
        {"bind unpack", "\"unpack\" is no command of ink bind; did you mean \"pack\"?\n"},
        {"disc", "A subcommand is required\n"},
        {"picture", "pictures is required\n"},
        {"picture a --what", "--output is required\n"},
        {"picture a.png -o a.bmp", "--as: say what to make"}};
    for (const auto &[words, message] : wrong) {
        EXPECT_EQ(ink(words), 2) << words;
        EXPECT_TRUE(test::read_text("err").starts_with(message)) << test::read_text("err");
    }
    // Every command and every format shows how it is called.
    INK("manual --bash");
    std::istringstream completions(test::read_text("out"));
    int helped = 0;
    for (std::string line; std::getline(completions, line);) {
        const std::size_t words = line.find(") words=");
        if (words == std::string::npos || line[4] != '"' || line[5] == '"') continue;
        const std::string command = line.substr(5, line.find('"', 5) - 5);
        INK(command + " --help");
        EXPECT_NE(test::read_text("out").find("\n  ink " + command), std::string::npos) << command;
        ++helped;
    }
    EXPECT_GT(helped, 35);
    EXPECT_EQ(ink("--version"), 0);
#if !defined(_WIN32)
    // Old disks have names in capitals, and streams hold the file alone.
    write_picture("A.PNG", pixels(1), palette(1));
    INK("picture A.PNG -o B.PCX");
    INK("view - --png - < B.PCX");
    EXPECT_EQ(read_picture("out").indices, pixels(1));
    INK("can build a.can A.PNG");
    INK("can build - A.PNG");
    EXPECT_EQ(test::read_file("a.can"), test::read_file("out"));
    EXPECT_EQ(ink("can extract a.can -o -"), 1);
    EXPECT_EQ(ink("info none a.can --json"), 1);
    EXPECT_NE(test::read_text("out").find("\"CAN animation\""), std::string::npos);
    EXPECT_FALSE(test::exists("-"));
#endif
}

}  // namespace
