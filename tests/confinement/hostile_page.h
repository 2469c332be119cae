#pragma once

#include <string>
#include <vector>

namespace confinement {

/// The names of all ways out as listeners know them: each once to a host by name, once by address, first
/// those that go side by side, then those that take the page away.
[[nodiscard]] std::vector<std::string> listenedWays();

/// The script that knows all ways: `ways` and `away` as arrays, `attempt` to try one.
[[nodiscard]] std::string waysScript();

/// Tries all of them, in the page and in a worker. `finished` of the top page counts the pages and workers
/// that are through.
[[nodiscard]] std::string tryAllScript();

}
