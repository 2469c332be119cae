#include "ui/system/archive/zip_delivery.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "ui/system/background_work.h"

#include <system_error>

namespace ui::system {
namespace fs = std::filesystem;

namespace {

void copyWhole(const fs::path& from, const fs::path& to, const fs::path& workFolder) {
    const auto part = workFolder / to.filename();
    std::error_code error;
    std::error_code ignored;
    fs::create_directory(workFolder, error);
    if (!error)
        fs::copy_file(from, part, fs::copy_options::overwrite_existing, error);
    if (!error)
        fs::rename(part, to, error);
    fs::remove(part, ignored);
    fs::remove(workFolder, ignored); // unless others are in it
    if (error)
        throw base::FileError(
            base::textOf(from) + " cannot be copied to " + base::textOf(to.parent_path()) +
            "\nPlease check that the disk is not full and that you may write to that folder");
}

}

fs::path deliverZip(const fs::path& zip, const fs::path& folder, std::string_view workFolder) {
    auto delivered = folder / zip.filename();
    std::error_code ignored;
    if (!fs::equivalent(zip, delivered, ignored))
        runInBackground([&] { copyWhole(zip, delivered, folder / workFolder); },
                        QEventLoop::ExcludeUserInputEvents);
    return delivered;
}

}
