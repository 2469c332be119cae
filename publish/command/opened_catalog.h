#pragma once

#include "publish/catalog_source.h"
#include "publish/command/work_folder.h"
#include "publish/complaint.h"

#include <filesystem>
#include <string>
#include <vector>

namespace publish {

/// A catalogue from wherever the supplier has it: a source folder, a zip, or the folder of an installed one.
class OpenedCatalog {
public:
    enum class Kind { source, zip, folder };

    /// Builds a source, unpacks a zip. What is wrong with it is complained of; where an error is among that,
    /// the folder may lack files. Throws base::FileError where there is no catalogue at all.
    OpenedCatalog(const std::filesystem::path& place, Complaints& complaints);

    [[nodiscard]] Kind kind() const { return m_kind; }

    /// Where data files and templates lie, and of zips and installed catalogues everything else too; of
    /// sources after `gatherContent`.
    [[nodiscard]] const std::filesystem::path& folder() const { return m_folder; }

    /// The files that are no data files.
    [[nodiscard]] const std::vector<ContentFile>& content() const { return m_content; }

    /// Copies what a source's folder holds besides. Throws base::FileError.
    void gatherContent();

    /// How the product list was read; of sources only.
    [[nodiscard]] const std::string& listSummary() const { return m_listSummary; }

private:
    void openSource(const std::filesystem::path& place, Complaints& complaints);
    void openZip(const std::filesystem::path& place, Complaints& complaints);

    WorkFolder m_work;
    Kind m_kind = Kind::folder;
    std::filesystem::path m_folder;
    std::vector<ContentFile> m_content;
    std::string m_listSummary;
};

/// What the place is. Throws base::FileError, which says what could stand there, where it is none of them.
[[nodiscard]] OpenedCatalog::Kind kindOf(const std::filesystem::path& place);

}
