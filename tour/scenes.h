#pragma once

#include "tour/script.h"

#include <filesystem>
#include <string>

namespace tour {

/// Waits until the window in front has been drawn, keeps its picture and a description of it in the folder,
/// and complains of what cannot be seen whole.
void photograph(Script& script, const std::filesystem::path& folder, const std::string& name);

/// Adds the first scenes to the script: from the first start to an order with its delivery details and the
/// help book. Each is photographed.
void play(Script& script, const std::filesystem::path& folder);

/// The program started again, and the other supplier's catalogue.
void playSecondSupplier(Script& script, const std::filesystem::path& folder);

}
