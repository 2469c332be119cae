#include "publish/supplier_id.h"

#include "base/text.h"
#include "catalog/program_folders.h"

#include <algorithm>

namespace publish {

bool isSupplierId(std::string_view id) {
    const auto allowed = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
               c == '-' || c == '.' || c == ' ';
    };
    return !id.empty() && base::trim(id) == id && id.front() != '-' && id.front() != '.' &&
           std::all_of(id.begin(), id.end(), allowed) && catalog::canNameSupplier(id);
}

}
