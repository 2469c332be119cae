#pragma once

#include <cstdlib>
#include <iostream>

namespace fuzz {

/// Stops the run, so that the input is kept, when what must hold does not.
inline void require(bool holds, const char* what) {
    if (holds)
        return;
    std::cerr << what << '\n';
    std::abort();
}

}
