#include "catalog/parameters.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"

#include <algorithm>
#include <fstream>

namespace catalog {
namespace {

using RecordsText = std::array<char, Parameters::recordCount * ParameterHeader::length>;

RecordsText firstRecords(const std::filesystem::path& path) {
    std::error_code ignored;
    std::ifstream file(path, std::ios::binary);
    if (!file || !std::filesystem::is_regular_file(path, ignored))
        throw base::MissingFile(path);
    RecordsText bytes{};
    if (!file.read(bytes.data(), bytes.size()))
        throw base::DamagedFile(path);
    return bytes;
}

}

Parameters::Parameters(const std::filesystem::path& path)
    : Parameters(std::as_bytes(std::span<const char>(firstRecords(path)))) {}

Parameters::Parameters(RecordBytes records) {
    std::copy_n(records.begin(), m_header.size(), m_header.begin());
    for (std::size_t number = 2; number <= recordCount; ++number)
        m_texts[number] = base::trim(
            base::readText(records, (number - 1) * ParameterHeader::length, ParameterHeader::length));
    std::erase(m_texts[static_cast<std::size_t>(ParameterText::taxName)], '%');
}

const std::string& Parameters::text(ParameterText which) const {
    return m_texts.at(static_cast<std::size_t>(which));
}

void storeCatalogPassword(const std::filesystem::path& path, std::string_view password) {
    static_cast<void>(Parameters(path)); // a file that is no parameters file stays as it is
    constexpr auto field = ParameterHeader::catalogPasswordField;
    std::array<char, field.width> stored{};
    base::writeText(std::as_writable_bytes(std::span(stored)), 0, field.width, base::upper(password));
    std::fstream file;
    if (!base::isReadOnly(path))
        file.open(path, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(field.offset);
    file.write(stored.data(), stored.size());
    file.close();
    if (!file)
        throw base::FileError("Cannot write the password to " + base::textOf(path) +
                              "\nPlease check that the file is not read-only and that you may change it");
}

}
