#pragma once

#include "tour/script.h"

#include <filesystem>
#include <functional>
#include <string>

namespace tour {

/// From the order view of the first scenes on: an order of 120 lines is previewed, printed to `order.pdf` in
/// the folder, and handed to a stand-in for the mail command, which keeps it as `order.eml` there.
/// What has left is looked at again, and a code is begun in quick entry. `photograph` keeps a picture of what
/// is on the screen.
void addOrderScenes(Script& script, const std::filesystem::path& folder,
                    const std::function<void(const std::string& name)>& photograph);

}
