// The task list: tracks played one after the other, whenever the game asks whether the current one is over.
#include <array>

#include "core/random.h"
#include "inkstone/cdaudio.h"
#include "platform/cdaudio/drive.h"

namespace {

constexpr std::int32_t kInOrder = 0, kInLoop = 1, kAtRandom = 2;

std::array<std::int32_t, 256> tasks;
std::int32_t task_count = 0, task_index = 0, task_type = kInOrder;

std::int32_t start_chosen() {
    CDROM_stop();
    return CDROM_play(tasks[static_cast<std::size_t>(task_index)]);
}

// Moves on to the entry to be played next; false when none is to be played this time.
bool choose_next() {
    if (task_type == kAtRandom) task_index = ink::random_number() % task_count;
    if (task_type != kInOrder && task_type != kInLoop) return true;
    if (++task_index < task_count) return true;
    task_index = 0;
    return task_type == kInLoop;
}

}  // namespace

int32_t CDROM_clear_task(void) {
    if (!ink::cdaudio::opened()) return -1;
    tasks.fill(-1);
    task_count = task_index = 0;
    return 0;
}

int32_t CDROM_push_task(int32_t track) {
    if (!ink::cdaudio::opened()) return -1;
    if (static_cast<std::size_t>(task_count) < tasks.size())
        tasks[static_cast<std::size_t>(task_count++)] = track;
    return 0;
}

void CDROM_task_type(int32_t new_type) {
    task_type = new_type;
}

int32_t CDROM_check_task(void) {
    if (!ink::cdaudio::opened()) return -1;
    if (task_count < 1) return -2;
    if (CDROM_status() != 0 || CDROM_now_track() == -1) return 0;
    if (choose_next())
        start_chosen();
    else
        CDROM_stop();
    return 0;
}

int32_t CDROM_exec_task(int32_t force) {
    if (!ink::cdaudio::opened()) return -1;
    if (task_count < 1) return -2;
    task_index = task_type == kAtRandom ? ink::random_number() % task_count : 0;
    if (force == 0 && tasks[static_cast<std::size_t>(task_index)] == CDROM_now_track()) return 0;
    return start_chosen();
}
