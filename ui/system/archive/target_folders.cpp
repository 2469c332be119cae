#include "ui/system/archive/target_folders.h"

#include <system_error>

namespace ui::system {
namespace fs = std::filesystem;

TargetFolders::State TargetFolders::reach(const fs::path& relative, bool makes) {
    if (relative.empty())
        return State::ready;
    if (const auto known = m_known.find(relative.native()); known != m_known.end())
        return known->second;
    auto state = reach(relative.parent_path(), makes);
    if (state == State::ready)
        state = reachOne(m_tree.find(relative), makes);
    m_known.emplace(relative.native(), state);
    return state;
}

TargetFolders::State TargetFolders::reachOne(const base::CaselessTree::Place& place, bool makes) {
    if (place.type == fs::file_type::symlink)
        return State::link;
    if (place.type == fs::file_type::directory)
        return State::ready;
    if (place.type != fs::file_type::not_found)
        return State::blocked;
    if (!makes)
        return State::missing;
    std::error_code error;
    if (fs::create_directory(place.path, error))
        m_made.push_back(place.path);
    else if (error) // none where it has been made already, for a name in another letter case
        return error == std::errc::filename_too_long ? State::tooLong : State::blocked;
    return State::ready;
}

}
