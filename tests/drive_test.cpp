// The disc in a real drive: its table of contents, what is read of it, and drives that do not answer.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "inkstone/cdaudio.h"
#include "inkstone/host.h"
#include "support/allocation.h"
#include "support/fake_drive.h"
#include "support/sound.h"

namespace {

using test::FakeDisc;
using test::FakeDrive;

constexpr std::size_t kSector = 588;

// The sectors that are heard, each once, as the drive counts them.
std::vector<int> sectors_heard(std::size_t sectors) {
    std::vector<int> made;
    for (const auto &frame : test::listen(sectors * kSector))
        if (made.empty() || made.back() != frame[0]) made.push_back(frame[0]);
    return made;
}
// Numbers first to last, and the silence after them.
std::vector<int> then_silence(int first, int last) {
    std::vector<int> made;
    for (int number = first; number <= last; ++number) made.push_back(number);
    made.push_back(0);
    return made;
}

class Drive : public testing::Test {
  protected:
    void SetUp() override {
        if (!test::kDrivesCanBeFaked) GTEST_SKIP();
    }
    void TearDown() override { CDROM_open(), CDROM_stop(), CDROM_close(), HOST_eject_disc(); }
};

TEST_F(Drive, PlaysTheDiscThatLiesInIt) {
    // Sound, data, sound, as the drive counts from its own beginning.
    FakeDisc disc{{{150}, {180, true}, {200}}, 260};
    const FakeDrive drive(disc);
    ASSERT_EQ(HOST_insert_disc(test::kDriveName), 0);
    CDROM_open();
    ASSERT_EQ(CDROM_total(), 3);
    EXPECT_EQ(CDROM_track_time(1), 20U);
    EXPECT_EQ(CDROM_track_time(2), 60U);
    CDROM_play(0);
    EXPECT_EQ(sectors_heard(32), then_silence(150, 179));
    CDROM_play(2);
    EXPECT_EQ(sectors_heard(62), then_silence(200, 259));
    // Few large reads, of which none reaches beyond the disc.
    EXPECT_LE(disc.reads.size() / 2, 6U);
    disc.reads.clear();
    CDROM_play(1);
    EXPECT_EQ(sectors_heard(22), std::vector<int>{0});
    EXPECT_TRUE(disc.reads.empty()) << "data is not asked for as sound";
    disc.unreadable = 203;
    CDROM_play(2);
    const std::vector<int> heard = sectors_heard(62);
    EXPECT_EQ(heard.back(), 0) << "what comes after a scratch ends with the track";
    EXPECT_EQ(heard.front(), 0) << "nothing stands in for what cannot be read";
    EXPECT_EQ(CDROM_status(), 0);
    EXPECT_EQ(FakeDrive::open_files(), 1);
    HOST_eject_disc();
    EXPECT_EQ(FakeDrive::open_files(), 0);
}

TEST_F(Drive, RefusesTablesThatAreNone) {
    const std::pair<const char *, FakeDisc> cases[] = {
        {"no disc", {{{0}}, 10, 0}},
        {"an entry that fails", {{{0}, {5}}, 10, 2}},
        {"a lead-out that fails", {{{0}}, 10, 1 + 1}},
        {"no track", {{}, 10}},
        {"a place before the first", {{{-3}}, 10}},
        {"tracks that go back", {{{20}, {10}}, 30}},
        {"a lead-out before the last track", {{{0}, {20}}, 10}}};
    for (auto [what, disc] : cases) {
        const FakeDrive drive(disc);
        EXPECT_EQ(HOST_insert_disc(test::kDriveName), -2) << what;
        EXPECT_EQ(FakeDrive::open_files(), 0) << what;
    }
}

// Without memory there is no disc, and the drive is let go of.
TEST_F(Drive, IsClosedWhenThereIsNoMemoryForItsDisc) {
    FakeDisc disc{{{0}, {20}}, 40};
    const FakeDrive drive(disc);
    HOST_eject_disc();
    const std::size_t before = test::living_allocations();
    std::size_t refused = 0;
    for (std::int32_t result = -2; result != 0; ++refused) {
        test::FailingAllocation failing(refused);
        result = HOST_insert_disc(test::kDriveName);
        ASSERT_EQ(failing.disarm(), result != 0);
        EXPECT_EQ(FakeDrive::open_files(), result == 0 ? 1 : 0) << refused;
        HOST_eject_disc();
        EXPECT_EQ(test::living_allocations(), before) << refused;
    }
    EXPECT_GT(refused, 2U);
}

}  // namespace
