#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace tables {

/// A spreadsheet's zip, of which parts are read piece by piece and only up to a size that a list can need,
/// whatever the zip says of itself. The bytes must live as long. What is wrong with it throws
/// base::FileError with the end of a sentence that begins with the file's name.
class PackedFile {
public:
    explicit PackedFile(std::span<const std::byte> bytes);
    ~PackedFile();

    [[nodiscard]] bool has(const std::string& part) const;

    /// Hands on the part's bytes as they are unpacked.
    void read(const std::string& part, const std::function<void(std::string_view)>& take) const;

private:
    struct Zip;
    std::unique_ptr<Zip> m_zip;
};

}
