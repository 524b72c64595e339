// The title page, the desk that is painted at, and the last page.
#pragma once

#include "plain/page.h"

namespace plain {

Page title();
Page desk();
Page last_page();

}  // namespace plain
