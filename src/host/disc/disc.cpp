#include "host/disc/disc.h"

#include "host/disc/disc_device.h"
#include "host/disc/disc_image.h"

namespace ink::host {

std::unique_ptr<DiscContents> DiscContents::open(const char *name) {
    if (name == nullptr) return nullptr;
    return is_disc_device(name) ? open_disc_device(name) : DiscImage::open(name);
}

}  // namespace ink::host
