#include "base/caseless_tree.h"

#include "base/code_page.h"
#include "base/text.h"

#include <system_error>

namespace base {
namespace fs = std::filesystem;

namespace {

// What the listing itself tells costs no question to the disk.
fs::file_type typeOf(const fs::directory_entry& entry) {
    std::error_code ignored;
    if (entry.is_symlink(ignored))
        return fs::file_type::symlink;
    if (entry.is_directory(ignored))
        return fs::file_type::directory;
    return entry.is_regular_file(ignored) ? fs::file_type::regular : fs::file_type::unknown;
}

}

CaselessTree::Place CaselessTree::find(const fs::path& relative) {
    return findIn(folderFor(relative.parent_path()), relative.filename());
}

CaselessTree::Folder& CaselessTree::folderFor(const fs::path& relative) {
    const auto [known, isNew] = m_parents.try_emplace(relative.native());
    if (isNew) {
        auto path = relative.empty() ? m_root : find(relative).path;
        auto& folder = m_folders[path.native()];
        folder.path = std::move(path);
        known->second = &folder;
    }
    return *known->second;
}

CaselessTree::Place CaselessTree::findIn(Folder& folder, const fs::path& name) {
    auto exact = folder.path / name;
    if (folder.asked++ > 0)
        list(folder);
    if (!folder.isListed) {
        std::error_code ignored;
        const auto type = fs::symlink_status(exact, ignored).type();
        if (type != fs::file_type::not_found && type != fs::file_type::none)
            return {std::move(exact), type};
        list(folder);
    }
    if (const auto found = folder.names.find(name.native()); found != folder.names.end())
        return {std::move(exact), found->second};
    const auto& spelling = folder.spellings.try_emplace(upper(textOf(name)), name.native()).first->second;
    const auto found = folder.names.find(spelling);
    return {folder.path / spelling, found != folder.names.end() ? found->second : fs::file_type::not_found};
}

// One that cannot be listed is asked for every name.
void CaselessTree::list(Folder& folder) {
    if (folder.isListed)
        return;
    std::error_code error;
    for (fs::directory_iterator it(folder.path, error), end; !error && it != end; it.increment(error)) {
        const auto name = it->path().filename();
        folder.names.try_emplace(name.native(), typeOf(*it));
        folder.spellings.try_emplace(upper(textOf(name)), name.native());
    }
    folder.isListed = !error || error == std::errc::no_such_file_or_directory;
}

fs::path folderPath(const fs::path& parent, std::string_view name) {
    return CaselessTree(parent).place(pathOf(name));
}

}
