#include "tour/program_folder.h"

namespace tour {
namespace fs = std::filesystem;

void prepareProgramFolder(const fs::path& folder) {
    fs::remove_all(folder);
    fs::create_directories(folder);
    for (const char* part : {"Start.ect", "help"})
        fs::copy(fs::path(TAVORINE_PROGRAM_FOLDER) / part, folder / part, fs::copy_options::recursive);
    for (const auto& entry : fs::directory_iterator(TAVORINE_SAMPLES_FOLDER))
        if (entry.path().extension() == ".zip")
            fs::copy_file(entry.path(), folder / entry.path().filename());
}

}
