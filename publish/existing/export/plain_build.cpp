#include "publish/existing/export/plain_build.h"

#include "publish/source/source_folder.h"

namespace publish {

void buildPlainly(const std::filesystem::path& sourceFolder, const std::filesystem::path& dataFolder,
                  Complaints& complaints) {
    const auto source = readSourceFolder(sourceFolder, {}, complaints);
    writeDataFiles(source, dataFolder, complaints);
}

}
