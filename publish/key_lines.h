#pragma once

#include "publish/complaint.h"

#include <functional>
#include <string>
#include <string_view>

namespace publish {

/// Goes through a file of "Key = value" lines, UTF-8 with or without a mark: catalog.ini, list.ini. Empty
/// lines, those that begin with ";" and headings in brackets are passed over. Of every other one `read`
/// answers what is wrong with it, if anything; that is complained of by line under the rule.
void readKeyLines(std::string_view text, const char* file, const char* rule,
                  const std::function<std::string(std::string_view line, std::size_t number)>& read,
                  Complaints& complaints);

}
