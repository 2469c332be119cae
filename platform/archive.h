#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

/// Unpacks zip archives.
class Archive {
public:
    virtual ~Archive() = default;

    enum class Result { extracted, nothingMatched, failed, tooLarge };

    /// Extracts the entries that match the mask into the folder, over files that are there already.
    /// "*" means everything, sub-folders kept; any other mask ("ACME.sup", "*PrdPrm.dat") is compared
    /// with the names of top-level entries, without regard to case. Entries whose path would leave the
    /// folder are passed over. `extracted` means that at least one entry matched and every one that
    /// did is complete on the disk. An archive that would unpack to more than 2 GiB or 100,000 files
    /// is `tooLarge` and leaves nothing.
    /// The caller waits; the windows stay alive meanwhile.
    virtual Result extract(const std::filesystem::path& archive, std::string_view mask,
                           const std::filesystem::path& folder) = 0;
};

}
