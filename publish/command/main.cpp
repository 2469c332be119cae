#include "publish/command/commands.h"

#include <iostream>

int main(int argc, char** argv) {
    return publish::run({argv + 1, argv + argc}, {std::cout, std::cerr});
}
