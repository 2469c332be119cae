#include "catalog/record_codec.h"

#include <span>

namespace catalog {
namespace {

void put(std::span<std::byte> record, TextField field, std::string_view text) {
    base::writeText(record, field.offset, field.width, text);
}

void put(std::span<std::byte> record, TextField field, char character) {
    put(record, field, std::string_view(&character, 1));
}

void putHeader(std::span<std::byte> record, const ParameterValues& values) {
    using Header = ParameterHeader;
    put(record, {0, Header::length}, "");
    base::writeNumber<std::uint32_t>(record, 0, 0);
    put(record, Header::catalogPasswordField, base::upper(values.catalogPassword));
    put(record, Header::resetPasswordField, base::upper(values.resetPassword));
    put(record, Header::groupPageStyleField, values.groupPageStyle);
    put(record, Header::taxSwitchField, values.chargesTax ? 'Y' : 'N');
    base::writeNumber<std::uint16_t>(record, Header::optionBytesOffset, 0);
    base::writeNumber<std::uint8_t>(record, Header::orderGridSwitchOffset,
                                    values.orderGridHasOtherColumn ? 1 : 0);
    base::writeNumber(record, Header::quantityDecimalsOffset,
                      static_cast<std::uint8_t>(values.quantityDecimals));
    put(record, Header::versionField, values.version);
    put(record, Header::otherColumnAlignmentField, values.otherColumnAlignment);
}

}

std::array<std::byte, Parameters::recordCount * ParameterHeader::length>
encode(const ParameterValues& values) {
    std::array<std::byte, Parameters::recordCount * ParameterHeader::length> file{};
    const auto record = [&file](std::size_t number) {
        return std::span(file).subspan((number - 1) * ParameterHeader::length, ParameterHeader::length);
    };
    putHeader(record(1), values);
    for (std::size_t number = 2; number <= Parameters::recordCount; ++number)
        put(record(number), {0, ParameterHeader::length}, values.texts[number]);
    return file;
}

Bytes<ProductRecord> encode(const ProductValues& values) {
    Bytes<ProductRecord> record{};
    put(record, ProductRecord::firstFlagField, ' ');
    put(record, ProductRecord::flagField, values.isProduct ? 'Y' : 'N');
    base::writeNumber(record, ProductRecord::groupOffset, values.group);
    put(record, ProductRecord::textField, values.text);
    base::writeSingle(record, ProductRecord::taxRateOffset, values.taxRate);
    base::writeSingle(record, ProductRecord::priceOffset, values.price);
    put(record, ProductRecord::pictureField, values.picture);
    base::writeNumber(record, ProductRecord::memoPositionOffset, values.memoPosition);
    base::writeNumber(record, ProductRecord::memoLengthOffset, values.memoLength);
    return record;
}

Bytes<GroupRecord> encode(const GroupValues& values) {
    Bytes<GroupRecord> record{};
    put(record, GroupRecord::nameField, values.name);
    base::writeNumber(record, GroupRecord::headerRecordOffset, values.headerRecord);
    base::writeNumber(record, GroupRecord::firstChildOffset, values.firstChild);
    base::writeNumber(record, GroupRecord::parentOffset, values.parent);
    return record;
}

Bytes<IndexRecord> encodeIndex(const std::array<char, IndexRecord::keyField.width>& key,
                               std::int32_t product) {
    Bytes<IndexRecord> record{};
    put(record, IndexRecord::keyField, std::string_view(key.data(), key.size()));
    base::writeNumber(record, IndexRecord::productOffset, product);
    return record;
}

}
