#pragma once

#include "base/bytes.h"
#include "base/text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The records of the data files as views of their bytes (docs/file-formats.md). A view is as cheap as
/// a pointer and lives as long as the bytes. Texts come as stored unless a comment says trimmed.
namespace catalog {

using RecordBytes = std::span<const std::byte>;

/// Where a text stands in its record.
struct TextField {
    std::size_t offset;
    std::size_t width;
};

/// Record 1 of PrdPrm.dat ("Parameter header").
class ParameterHeader {
public:
    static constexpr std::size_t length = 40;
    static constexpr TextField catalogPasswordField{4, 9};
    static constexpr TextField resetPasswordField{13, 9};
    static constexpr TextField groupPageStyleField{22, 1};
    static constexpr TextField taxSwitchField{24, 1};
    static constexpr std::size_t optionBytesOffset = 25; // two of them, not interpreted
    static constexpr std::size_t orderGridSwitchOffset = 27;
    static constexpr std::size_t quantityDecimalsOffset = 28;
    static constexpr TextField versionField{29, 5};
    static constexpr TextField otherColumnAlignmentField{35, 1};
    static constexpr int mostQuantityDecimals = 4;

    explicit ParameterHeader(RecordBytes bytes) : m_bytes(bytes) {}

    /// Trimmed, in upper case; empty means none.
    [[nodiscard]] std::string catalogPassword() const { return password(catalogPasswordField); }

    [[nodiscard]] std::string resetPassword() const { return password(resetPasswordField); }

    /// "I" chooses the first group page, anything else the second.
    [[nodiscard]] char groupPageStyle() const { return text(groupPageStyleField)[0]; }

    [[nodiscard]] char taxSwitch() const { return text(taxSwitchField)[0]; }

    [[nodiscard]] bool orderGridHasOtherColumn() const {
        return base::readNumber<std::uint8_t>(m_bytes, orderGridSwitchOffset) != 0;
    }

    /// 0 to 4, whatever the file says.
    [[nodiscard]] int quantityDecimals() const;

    /// Compared byte by byte, blanks included.
    [[nodiscard]] std::string_view version() const { return text(versionField); }

    /// "L", "R" or anything else for centred.
    [[nodiscard]] char otherColumnAlignment() const { return text(otherColumnAlignmentField)[0]; }

private:
    [[nodiscard]] std::string_view text(TextField field) const {
        return base::readText(m_bytes, field.offset, field.width);
    }

    [[nodiscard]] std::string password(TextField field) const { return base::upper(base::trim(text(field))); }

    RecordBytes m_bytes;
};

/// A record of Prdlst.dat ("Products"): a product, or the header record of a group.
class ProductRecord {
public:
    static constexpr std::size_t length = 138;
    static constexpr TextField firstFlagField{0, 1};
    static constexpr TextField flagField{1, 1};
    static constexpr std::size_t groupOffset = 2;
    static constexpr TextField textField{4, 100};
    static constexpr std::size_t taxRateOffset = 104;
    static constexpr std::size_t priceOffset = 108;
    static constexpr TextField pictureField{112, 20};
    static constexpr std::size_t memoPositionOffset = 132;
    static constexpr std::size_t memoLengthOffset = 136;
    static constexpr std::array textFields{firstFlagField, flagField, textField, pictureField};

    explicit ProductRecord(RecordBytes bytes) : m_bytes(bytes) {}

    [[nodiscard]] bool isProduct() const { return flag() == 'Y'; }

    [[nodiscard]] char flag() const { return base::readText(m_bytes, flagField.offset, flagField.width)[0]; }

    /// Record number in GrpIdx.idx.
    [[nodiscard]] std::int16_t group() const { return base::readNumber<std::int16_t>(m_bytes, groupOffset); }

    /// Code, description and other text, separated by line feeds, padded to 100 bytes.
    [[nodiscard]] std::string_view text() const {
        return base::readText(m_bytes, textField.offset, textField.width);
    }

    /// The text before the first line feed, trimmed; empty without a line feed.
    [[nodiscard]] std::string_view code() const;

    /// From behind the first line feed up to and including the second, trimmed: the line feed stays.
    /// Without a second, everything behind the first; empty without a first.
    [[nodiscard]] std::string_view description() const;

    /// The description as a cell or a list shows it: without the line feed that ends it.
    [[nodiscard]] std::string_view descriptionLine() const;

    /// Everything behind the second line feed, trimmed; empty without a second.
    [[nodiscard]] std::string_view other() const;

    /// Percent.
    [[nodiscard]] float taxRate() const { return base::readSingle(m_bytes, taxRateOffset); }

    /// Without tax.
    [[nodiscard]] float price() const { return base::readSingle(m_bytes, priceOffset); }

    /// File name of the picture as stored, 20 bytes; all blanks when the code names it.
    [[nodiscard]] std::string_view pictureName() const {
        return base::readText(m_bytes, pictureField.offset, pictureField.width);
    }

    /// In PrdMem.Dat, from 1; 0 or less means that there is no long description.
    [[nodiscard]] std::int32_t memoPosition() const {
        return base::readNumber<std::int32_t>(m_bytes, memoPositionOffset);
    }

    [[nodiscard]] std::int16_t memoLength() const {
        return base::readNumber<std::int16_t>(m_bytes, memoLengthOffset);
    }

private:
    RecordBytes m_bytes;
};

/// A record of GrpIdx.idx ("Groups").
class GroupRecord {
public:
    static constexpr std::size_t length = 72;
    static constexpr TextField nameField{0, 60};
    static constexpr std::size_t headerRecordOffset = 60;
    static constexpr std::size_t firstChildOffset = 64;
    static constexpr std::size_t parentOffset = 68;
    static constexpr std::array textFields{nameField};

    explicit GroupRecord(RecordBytes bytes) : m_bytes(bytes) {}

    /// Trimmed.
    [[nodiscard]] std::string_view name() const {
        return base::trim(base::readText(m_bytes, nameField.offset, nameField.width));
    }

    /// Record number of the group's own record in Prdlst.dat.
    [[nodiscard]] std::int32_t headerRecord() const {
        return base::readNumber<std::int32_t>(m_bytes, headerRecordOffset);
    }

    /// Record number of the first child group; below 1 means none.
    [[nodiscard]] std::int32_t firstChild() const {
        return base::readNumber<std::int32_t>(m_bytes, firstChildOffset);
    }

    /// Record number of the parent group, the same for all siblings.
    [[nodiscard]] std::int32_t parent() const {
        return base::readNumber<std::int32_t>(m_bytes, parentOffset);
    }

private:
    RecordBytes m_bytes;
};

/// A record of PrdIdx.idx ("Product index").
class IndexRecord {
public:
    static constexpr std::size_t length = 24;
    static constexpr TextField keyField{0, 20};
    static constexpr std::size_t productOffset = 20;
    static constexpr std::array textFields{keyField};

    explicit IndexRecord(RecordBytes bytes) : m_bytes(bytes) {}

    [[nodiscard]] std::string_view key() const {
        return base::readText(m_bytes, keyField.offset, keyField.width);
    }

    /// Record number in Prdlst.dat.
    [[nodiscard]] std::int32_t product() const {
        return base::readNumber<std::int32_t>(m_bytes, productOffset);
    }

private:
    RecordBytes m_bytes;
};

/// The key under which a code stands in the index: upper case, cut or padded to 20 bytes.
[[nodiscard]] std::array<char, IndexRecord::keyField.width> indexKey(std::string_view code);

}
