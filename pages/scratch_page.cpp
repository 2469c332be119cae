#include "pages/scratch_page.h"

#include "base/files.h"

namespace pages {

ScratchPage::ScratchPage(const std::filesystem::path& folder)
    : m_path(base::filePath(folder, scratchPageFile)) {}

void ScratchPage::write(std::string_view text) const {
    base::overwriteFile(m_path, text);
}

}
