#pragma once

#include "publish/catalog_source.h"
#include "publish/complaint.h"
#include "publish/file_names.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace publish {

/// The files in the folders, sub-folders too, that go into the zip as they are, ascending by name; of one
/// name the last folder's counts. What the catalogue is made of stays out, and hidden files. A folder that
/// cannot be read is complained of. The list's name is UTF-8.
[[nodiscard]] std::vector<ContentFile> contentOf(const std::vector<std::filesystem::path>& folders,
                                                 const std::string& listName, Complaints& complaints);

/// What of the files the viewer would miss: templates that it asks for, and products to which templates link.
/// Two files of one name in other letter case are complained of too.
void checkContent(const catalog::ParameterValues& parameters, const std::vector<ContentFile>& content,
                  const FileNames& files, const std::function<bool(std::string_view code)>& hasCode,
                  Complaints& complaints);

}
