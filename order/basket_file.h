#pragma once

#include "order/basket_line.h"
#include "platform/message_box.h"
#include "platform/positioned_file.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>

namespace order {

/// The scratch basket of an order, in `UserFolder`.
inline constexpr std::string_view basketFile = "Basket.dat";

/// The closing sequence's deletion. Deliberate: it is the file in `ProgramFolder` that goes; the one in
/// `UserFolder` stays until the next order starts. Errors are ignored.
void deleteProgramFolderBasket(const std::filesystem::path& programFolder);

/// Basket.dat, open for writing as long as this object lives; records are numbered from 1. Everything is
/// on its way to the disk when a call returns. The order itself is held in memory, so a file that cannot
/// be written is reported once in a message box, is left alone until it is cleared, and nothing else happens.
class BasketFile {
public:
    /// Deletes the file of an earlier order and makes an empty one; errors show with the first write.
    /// The file is this object's alone and must live as long, like the message box.
    BasketFile(const std::filesystem::path& userFolder, platform::PositionedFile& file,
               platform::MessageBox& messages);

    /// Writes this record and no other byte. Records before it that were never written are zeros.
    void write(std::int32_t number, const BasketLine& line);

    /// Writes these lines as the records from this one on, in one go.
    void write(std::int32_t first, std::span<const BasketLine> lines);

    /// Closes and deletes the file and makes an empty one.
    void clear();

private:
    void start();
    void put(std::int64_t position, std::span<const std::byte> bytes);

    std::filesystem::path m_path;
    platform::PositionedFile& m_file;
    platform::MessageBox& m_messages;
    bool m_isWritable = false;
    bool m_failureReported = false;
};

}
