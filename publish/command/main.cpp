#include "publish/command/commands.h"
#include "ui/system/cut_files.h"

#include <iostream>

int main(int argc, char** argv) {
    ui::system::endWhenFilesAreCut(
        "tavorine-publish: A file became shorter while it was read. Run the command again when "
        "nobody writes to it.\n");
    return publish::run({argv + 1, argv + argc}, {std::cout, std::cerr});
}
