#include "base/errors.h"

#include "base/code_page.h"

namespace base {

ProgramEnd::ProgramEnd(std::string title, std::string text)
    : m_title(std::move(title)), m_text(std::move(text)) {}

ProgramEnd::ProgramEnd(std::string text) : ProgramEnd("Terminating error", std::move(text)) {}

MissingFile::MissingFile(const std::filesystem::path& path)
    : ProgramEnd("Terminate Tavorine", textOf(path) + " is missing. Please contact your supplier") {}

DamagedFile::DamagedFile(const std::filesystem::path& path)
    : ProgramEnd(textOf(path) + " is  corrupt \nPlease re-install your data files") {}

}
