#pragma once

#include <filesystem>

namespace platform {

/// The file of the running program.
class ProgramFile {
public:
    virtual ~ProgramFile() = default;

    /// Absolute.
    [[nodiscard]] virtual std::filesystem::path path() const = 0;

    /// Its attributes are exactly "read-only"; where files have no such attribute, the current user has
    /// no permission to write to it.
    [[nodiscard]] virtual bool isReadOnly() const = 0;
};

}
