#include "publish/command/commands.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>

#ifdef SIGBUS
namespace {

// Product lists are mapped into memory. One that is cut short while it is read ends in this signal, and
// nothing of what was read counts.
void endOfACutFile(int) {
    static_cast<void>(
        std::fputs("tavorine-publish: A file became shorter while it was read. Run the command again when "
                   "nobody writes to it.\n",
                   stderr));
    std::_Exit(1);
}

}
#endif

int main(int argc, char** argv) {
#ifdef SIGBUS
    std::signal(SIGBUS, endOfACutFile);
#endif
    return publish::run({argv + 1, argv + argc}, {std::cout, std::cerr});
}
