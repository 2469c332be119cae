#pragma once

#include "order/delivery_details.h"
#include "tests/support/zip_builder.h"

#include <filesystem>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

/// What users do that changes files, each with a program folder in which it can be done.
namespace faults {

/// Every file below a folder with its contents, every empty folder with "/".
using Files = std::map<std::string, std::string>;

[[nodiscard]] Files filesIn(const std::filesystem::path& folder);

struct Action {
    std::string name;
    std::function<void(const std::filesystem::path& program)> prepare;

    /// Whether the user has been told that it failed.
    std::function<bool(const std::filesystem::path& program)> run;
};

[[nodiscard]] const std::vector<Action>& actions();

[[nodiscard]] std::string nameOf(const Action& action);

/// For the names of tests.
inline void PrintTo(const Action& action, std::ostream* out) {
    *out << action.name;
}

/// Starts the program in this folder, where no zip lies, chooses ACME where it is listed, and opens its
/// catalogue. Answers with what it complained about, a line each; ends of the program count.
[[nodiscard]] std::vector<std::string> startIn(const std::filesystem::path& program);

/// The files of a program folder after a start of the program, without what each start makes anew.
[[nodiscard]] Files afterStartIn(const std::filesystem::path& program);

}
