#include "base/code_page.h"
#include "base/errors.h"
#include "publish/catalog_zip.h"
#include "publish/complaint.h"

#include <filesystem>
#include <iostream>
#include <vector>

namespace {

constexpr const char* usage =
    "tavorine-publish SOURCE ZIP [FOLDER...]\n"
    "\n"
    "Checks the catalogue in the folder SOURCE and writes it to ZIP, whose name without \".zip\" becomes\n"
    "the supplier's id. The files of every further FOLDER (pictures, for example) go into the zip too.\n"
    "Complaints are reported by file and line; where one is an error, no zip is written.\n";

int publishCatalog(const std::filesystem::path& folder, const std::filesystem::path& zip,
                   const std::vector<std::filesystem::path>& further) {
    publish::Complaints complaints;
    const auto source = publish::readSourceFolder(folder, further, complaints);
    for (const auto& complaint : complaints)
        std::cerr << textOf(complaint) << '\n';
    if (holdsError(complaints))
        return 1;
    writeZip(source, base::textOf(zip.stem()), zip);
    return 0;
}

}

int main(int argc, char** argv) {
    const std::vector<std::filesystem::path> arguments(argv + 1, argv + argc);
    if (arguments.size() < 2) {
        std::cerr << usage;
        return 2;
    }
    try {
        return publishCatalog(arguments[0], arguments[1], {arguments.begin() + 2, arguments.end()});
    } catch (const base::FileError& error) {
        std::cerr << base::toUtf8(error.what()) << '\n';
    } catch (const std::filesystem::filesystem_error& error) {
        std::cerr << error.what() << '\n';
    }
    return 1;
}
