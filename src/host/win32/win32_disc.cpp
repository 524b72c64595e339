#include "host/win32/win32_disc.h"

#include <mmsystem.h>

namespace ink::host {
namespace {

template <class Parameters>
bool send(MCIDEVICEID device, UINT command, DWORD_PTR flags, Parameters &parameters) {
    return mciSendCommandA(device, command, flags, reinterpret_cast<DWORD_PTR>(&parameters)) == 0;
}

bool status(MCIDEVICEID device, DWORD item, DWORD track, DWORD_PTR flags, DWORD_PTR &answer) {
    MCI_STATUS_PARMS parameters{};
    parameters.dwItem = item;
    parameters.dwTrack = track;
    const bool answered = send(device, MCI_STATUS, MCI_STATUS_ITEM | flags, parameters);
    answer = parameters.dwReturn;
    return answered;
}

}  // namespace

bool MciDrive::open() {
    MCI_OPEN_PARMSA parameters{};
    parameters.lpstrDeviceType = const_cast<char *>("cdaudio");
    if (!send(0, MCI_OPEN, MCI_OPEN_TYPE, parameters)) return false;
    device_ = parameters.wDeviceID;
    return true;
}

bool MciDrive::close() {
    MCI_GENERIC_PARMS parameters{};
    return send(device_, MCI_CLOSE, 0, parameters);
}

bool MciDrive::stop() {
    MCI_GENERIC_PARMS parameters{};
    return send(device_, MCI_STOP, 0, parameters);
}

bool MciDrive::set_time_format(DiscTime format) {
    MCI_SET_PARMS parameters{};
    parameters.dwTimeFormat = format == DiscTime::msf ? MCI_FORMAT_MSF : MCI_FORMAT_TMSF;
    return send(device_, MCI_SET, MCI_SET_TIME_FORMAT, parameters);
}

bool MciDrive::track_count(std::int32_t &count) {
    DWORD_PTR answer = 0;
    if (!status(device_, MCI_STATUS_NUMBER_OF_TRACKS, 0, 0, answer)) return false;
    count = static_cast<std::int32_t>(answer);
    return true;
}

bool MciDrive::track_length(std::int32_t track, std::uint32_t &packed_msf) {
    DWORD_PTR answer = 0;
    if (!status(device_, MCI_STATUS_LENGTH, static_cast<DWORD>(track), MCI_TRACK, answer)) return false;
    packed_msf = static_cast<std::uint32_t>(answer);
    return true;
}

bool MciDrive::mode(DiscMode &mode) {
    DWORD_PTR answer = 0;
    if (!status(device_, MCI_STATUS_MODE, 0, MCI_WAIT, answer)) return false;
    mode = static_cast<DiscMode>(answer);
    return true;
}

bool MciDrive::play(std::uint32_t from, std::uint32_t to) {
    MCI_PLAY_PARMS parameters{};
    parameters.dwFrom = from;
    parameters.dwTo = to;
    return send(device_, MCI_PLAY, MCI_NOTIFY | MCI_FROM | MCI_TO, parameters);
}

}  // namespace ink::host
