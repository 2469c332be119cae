#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Unpacks zip archives.
class Archive {
public:
    virtual ~Archive() = default;

    enum class Result {
        extracted,      ///< at least one entry matched, and every one that did is complete on the disk
        nothingMatched, ///< the archive is readable and holds no such entry
        failed,     ///< damaged, encrypted, packed in a way that is not known, or with names that no disk can
                    ///< hold
        notWritten, ///< the folder cannot be written, or the disk is full
        tooLarge,   ///< all its entries together unpack to more than 2 GiB, or there are more than 100,000
        cancelled   ///< the user has closed the window meanwhile
    };

    /// The names of the files at the archive's top level, in the code page; nothing when it cannot be read or
    /// has names that no disk can hold.
    /// The caller waits; the windows stay alive meanwhile.
    virtual std::optional<std::vector<std::string>> topLevelFiles(const std::filesystem::path& archive) = 0;

    /// Extracts the entries that match the mask into the folder, over files that are there already in
    /// whatever letter case. "*" means everything, sub-folders kept; any other mask ("ACME.sup",
    /// "*PrdPrm.dat") is compared with the names of top-level entries, without regard to case. Entries
    /// whose path would leave the folder are passed over. Unless everything that matches is extracted,
    /// nothing is.
    /// The caller waits; the windows stay alive meanwhile.
    virtual Result extract(const std::filesystem::path& archive, std::string_view mask,
                           const std::filesystem::path& folder) = 0;

    /// As `extract` with "*", but leaves out what an update need not replace: files that stand in `installed`
    /// under the same path, in whatever letter case and through no link, with the same size and check sum. An
    /// archive that cannot compare extracts everything.
    virtual Result extractChanged(const std::filesystem::path& archive, const std::filesystem::path& folder,
                                  const std::filesystem::path& /*installed*/) {
        return extract(archive, "*", folder);
    }
};

}
