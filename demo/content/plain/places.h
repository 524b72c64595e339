// The places of the game in plain shapes, each with the mask that says what is where.
#pragma once

#include "plain/page.h"

namespace plain {

struct Place {
    Page picture, mask;
};
Place study();
Place market();
Place lake();

// The title page, the desk that is painted at, and the last page.
Page title();
Page desk();
Page last_page();

}  // namespace plain
