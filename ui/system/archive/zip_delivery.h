#pragma once

#include <filesystem>
#include <string_view>

namespace ui::system {

/// Copies a zip into a folder under its own name, over one of that name. The copy is there when it is
/// complete, never before; until then it grows in `workFolder`, a folder in that one, which is made if need
/// be and goes when it is empty. Windows stay alive meanwhile. Answers with its path; throws base::FileError.
/// A zip that lies in the folder already is left alone.
std::filesystem::path deliverZip(const std::filesystem::path& zip, const std::filesystem::path& folder,
                                 std::string_view workFolder);

}
