#pragma once

#include <filesystem>
#include <string_view>

namespace fuzz {

/// Writes a list of some kind: delimited text, the sheet and the shared parts of an "xlsx", or the content of
/// an "ods".
void writeList(const std::filesystem::path& file, std::string_view kind, std::string_view list);

}
