#pragma once

#include "tour/script.h"

#include <filesystem>

namespace tour {

/// Adds the scenes to the script: from the first start to an order with its delivery details. Each keeps a
/// picture of the window in front in the folder, and complains of what can not be seen whole.
void play(Script& script, const std::filesystem::path& folder);

}
