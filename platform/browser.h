#pragma once

#include <filesystem>
#include <string_view>

namespace platform {

/// A browser control that shows pages from files.
class Browser {
public:
    virtual ~Browser() = default;

    /// Shows the page under the file's own address. The bytes are those just written to the file, and
    /// they are what is shown, whatever the file holds by the time the browser gets to it.
    /// Returns at once; of several calls in a burst only the last need be shown.
    /// `place` is where the page opens, as an address has it behind the file: "#" and a name, encoded. An
    /// empty one is the top.
    virtual void show(const std::filesystem::path& file, std::string_view bytes,
                      std::string_view place = {}) = 0;
};

}
