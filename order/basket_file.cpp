#include "order/basket_file.h"

#include "base/code_page.h"
#include "base/files.h"

#include <array>
#include <fstream>
#include <system_error>
#include <utility>
#include <vector>

namespace order {
namespace {

constexpr auto recordLength = static_cast<std::int64_t>(BasketLine::length);

}

void deleteProgramFolderBasket(const std::filesystem::path& programFolder) {
    std::error_code ignored;
    std::filesystem::remove(base::filePath(programFolder, basketFile), ignored);
}

BasketFile::BasketFile(const std::filesystem::path& userFolder, platform::PositionedFile& file,
                       platform::MessageBox& messages)
    : m_path(base::filePath(userFolder, basketFile)), m_file(file), m_messages(messages) {
    start();
}

void BasketFile::start() {
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
    m_isWritable = m_file.create(m_path);
}

void BasketFile::write(std::int32_t number, const BasketLine& line) {
    std::array<std::byte, BasketLine::length> record;
    writeLine(record, line);
    put((number - 1) * recordLength, record);
}

void BasketFile::write(std::int32_t first, std::span<const BasketLine> lines) {
    if (lines.empty())
        return;
    std::vector<std::byte> records(lines.size() * BasketLine::length);
    auto rest = std::span(records);
    for (const auto& line : lines) {
        writeLine(rest, line);
        rest = rest.subspan(BasketLine::length);
    }
    put((first - 1) * recordLength, records);
}

void BasketFile::clear() {
    m_file.close();
    start();
}

void BasketFile::put(std::int64_t position, std::span<const std::byte> bytes) {
    m_isWritable = m_isWritable && m_file.write(position, bytes);
    if (m_isWritable || std::exchange(m_failureReported, true))
        return;
    m_messages.show(platform::Icon::exclamation, "Order",
                    base::textOf(m_path) +
                        " cannot be written.\n"
                        "You can go on ordering: your order is kept until you leave the catalogue.");
}

}
