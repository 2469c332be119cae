#include "base/caseless_tree.h"

#include "base/code_page.h"
#include "base/text.h"

#include <system_error>

namespace base {
namespace fs = std::filesystem;

fs::path CaselessTree::place(const fs::path& relative) {
    auto at = m_root;
    for (const auto& part : relative)
        at = spelled(at, part);
    return at;
}

fs::path CaselessTree::spelled(const fs::path& folder, const fs::path& name) {
    auto exact = folder / name;
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(exact, ignored)))
        return exact;
    return folder / namesIn(folder).try_emplace(upper(textOf(name)), name).first->second;
}

CaselessTree::Names& CaselessTree::namesIn(const fs::path& folder) {
    const auto [entry, isNew] = m_folders.try_emplace(folder);
    std::error_code error;
    if (isNew)
        for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
            entry->second.try_emplace(upper(textOf(it->path().filename())), it->path().filename());
    return entry->second;
}

fs::path folderPath(const fs::path& parent, std::string_view name) {
    return CaselessTree(parent).place(pathOf(name));
}

}
