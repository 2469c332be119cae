#pragma once

namespace ui::system {

/// So that what one thread frees another can use. To be called first in `main`.
void keepToFewHeaps();

/// From now on larger blocks that are freed go back to the system at once. Otherwise the C library keeps them
/// among small ones that are in use, and a program that shows pages all day grows by a third in the first
/// hour. To be called once the program has started: while it starts, blocks that go and come again take a
/// tenth of the processor's time. Where the C library has no such setting, nothing happens.
void returnFreedMemory();

}
