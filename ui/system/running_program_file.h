#pragma once

#include "platform/program_file.h"

namespace ui::system {

class RunningProgramFile final : public platform::ProgramFile {
public:
    [[nodiscard]] std::filesystem::path path() const override;
    [[nodiscard]] bool isReadOnly() const override;
};

/// The folder for the user's own files where the catalogue's folder cannot be written.
[[nodiscard]] std::filesystem::path ownFolder();

/// The folder for what is kept of the user's orders, apart from all files that catalogues have.
[[nodiscard]] std::filesystem::path keptFolder();

}
