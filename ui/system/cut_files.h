#pragma once

namespace ui::system {

/// From now on a mapped file that is cut short while it is read ends the program, with this sentence on the
/// standard error output and the exit code 1. For programs without windows, whose results count only when all
/// is done; on Windows such a file cannot be cut. The text must stay.
void endWhenFilesAreCut(const char* sentence);

}
