#pragma once

#include <cstdint>

namespace ui::system {

/// Ends another process of this user at once, whatever it is doing. An id of 0 names none, and one whose
/// process is gone already does nothing.
void endProcess(std::int64_t id);

}
