#pragma once

#include "catalog/records.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace catalog {

/// The parameter texts by their record numbers in PrdPrm.dat.
enum class ParameterText : std::size_t {
    supplierName = 2,
    supplierEmail,
    supplierFax,
    catalogName,
    supplierStreet,
    supplierCity,
    supplierState,
    supplierZip,
    supplierCountry,
    supplierPhone,
    supplierCell,
    supplierWeb,
    codeCaption,
    descriptionCaption,
    otherCaption,
    taxName,
    priceCaption,
    currency
};

/// The `CatalogPassword`, in upper case, of a catalogue that has neither welcome page nor password step.
inline constexpr std::string_view noWelcomePassword = "OMIT";

/// PrdPrm.dat, read whole (docs/file-formats.md, "Parameters").
class Parameters {
public:
    static constexpr std::size_t recordCount = 19;

    /// A missing file throws base::MissingFile, one with fewer than 19 records base::DamagedFile.
    explicit Parameters(const std::filesystem::path& path);

    /// From the bytes of such a file, which hold all records.
    explicit Parameters(RecordBytes records);

    /// A view of this object.
    [[nodiscard]] ParameterHeader header() const { return ParameterHeader(m_header); }

    /// Trimmed; the tax name without its "%" signs.
    [[nodiscard]] const std::string& text(ParameterText which) const;

    /// Only "N" means that the catalogue charges no tax.
    [[nodiscard]] bool chargesTax() const { return header().taxSwitch() != 'N'; }

private:
    std::array<std::byte, ParameterHeader::length> m_header{};
    std::array<std::string, recordCount + 1> m_texts; // by record number; 0 and 1 stay empty
};

/// Puts a password into the file in place: upper case, cut to nine characters, padded with blanks. An
/// empty one clears it. Only these nine bytes are written, in one go: the file is never cut or renamed,
/// so a crash leaves the old password or the new one. A missing or damaged file throws as in
/// `Parameters`, one that cannot be written base::FileError; it then stays as it was.
void storeCatalogPassword(const std::filesystem::path& path, std::string_view password);

}
