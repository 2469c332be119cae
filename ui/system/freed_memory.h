#pragma once

namespace ui::system {

/// From now on larger blocks that are freed go back to the system at once. Otherwise the C library keeps them
/// among small ones that are in use, and a program that shows pages all day grows by a third in the first
/// hour. Where the C library has no such setting, nothing happens. To be called first in `main`.
void returnFreedMemory();

}
