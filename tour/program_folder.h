#pragma once

#include "platform/program_file.h"

#include <filesystem>
#include <utility>

namespace tour {

/// A program file that is said to stand somewhere, whichever program runs.
class ProgramFile final : public platform::ProgramFile {
public:
    explicit ProgramFile(std::filesystem::path path) : m_path(std::move(path)) {}

    [[nodiscard]] std::filesystem::path path() const override { return m_path; }

    [[nodiscard]] bool isReadOnly() const override { return false; }

private:
    std::filesystem::path m_path;
};

/// Makes the folder anew, as customers have it before the first start, with the sample catalogues' zips.
void prepareProgramFolder(const std::filesystem::path& folder);

}
