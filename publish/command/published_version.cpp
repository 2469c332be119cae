#include "publish/command/published_version.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "catalog/catalog.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>

namespace publish {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view versionKey = "Version";
constexpr std::string_view fingerprintKey = "Fingerprint";
constexpr std::size_t versionLength = 5;

/// FNV-1a, eight bytes at a step: quick, and good enough to see that something has changed.
class Fingerprint {
public:
    void add(std::string_view text) {
        step(text.size());
        while (text.size() >= sizeof(std::uint64_t)) {
            std::uint64_t word = 0;
            std::copy_n(text.data(), sizeof word, reinterpret_cast<char*>(&word));
            step(word);
            text.remove_prefix(sizeof word);
        }
        for (const char c : text)
            step(static_cast<unsigned char>(c));
    }

    [[nodiscard]] std::uint64_t value() const { return m_value ^ (m_value >> 29U); }

private:
    void step(std::uint64_t word) {
        m_value = (m_value ^ word) * 0x100000001B3U;
        m_value ^= m_value >> 32U;
    }

    std::uint64_t m_value = 0xCBF29CE484222325U;
};

void addFile(Fingerprint& fingerprint, std::string_view name, const fs::path& path) {
    fingerprint.add(name);
    std::string piece(std::size_t{1} << 20U, '\0');
    std::ifstream file(path, std::ios::binary);
    while (file) {
        file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        fingerprint.add(std::string_view(piece).substr(0, static_cast<std::size_t>(file.gcount())));
    }
    if (!file.eof())
        throw base::FileError("The file " + base::textOf(path) +
                              " cannot be read; look whether it is there and whether you may open it.");
}

template <typename Number>
std::optional<Number> numberIn(std::string_view text, int base) {
    Number value = 0;
    const auto* end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, value, base);
    return error == std::errc() && stopped == end ? std::optional(value) : std::nullopt;
}

std::string digits(std::uint64_t value, int base, std::size_t width) {
    std::array<char, 24> text{};
    const auto* end = std::to_chars(text.data(), text.data() + text.size(), value, base).ptr;
    const std::string plain(text.data(), static_cast<std::size_t>(end - text.data()));
    return std::string(width - std::min(width, plain.size()), '0') + plain;
}

}

std::optional<Published> readPublished(const fs::path& source) {
    const auto text = base::readFile(source / publishedFile);
    Published published;
    std::optional<std::uint64_t> fingerprint;
    for (const auto line : base::split(text ? std::string_view(*text) : std::string_view{}, '\n')) {
        const auto equals = std::min(line.find('='), line.size());
        const auto key = base::trim(line.substr(0, equals));
        auto value = base::trim(line.substr(std::min(equals + 1, line.size())));
        if (value.ends_with('\r'))
            value.remove_suffix(1);
        if (key == versionKey)
            published.version = value;
        else if (key == fingerprintKey)
            fingerprint = numberIn<std::uint64_t>(value, 16);
    }
    published.fingerprint = fingerprint.value_or(0);
    return fingerprint && published.version.size() == versionLength ? std::optional(published) : std::nullopt;
}

void writePublished(const fs::path& source, const Published& published) {
    base::replaceFileDurably(
        source / publishedFile,
        "; What was published last. tavorine-publish writes it; keep it with the source.\n" +
            std::string(versionKey) + " = " + published.version + "\n" + std::string(fingerprintKey) + " = " +
            digits(published.fingerprint, 16, 16) + "\n");
}

std::uint64_t fingerprintOf(const fs::path& dataFolder, const std::string& displayName,
                            const std::vector<ContentFile>& content) {
    Fingerprint fingerprint;
    fingerprint.add(displayName);
    for (const auto name : {catalog::parametersFile, catalog::productsFile, catalog::groupsFile,
                            catalog::indexFile, catalog::memosFile})
        addFile(fingerprint, name, dataFolder / name);
    for (const auto& [name, path] : content)
        addFile(fingerprint, name, path);
    return fingerprint.value();
}

std::optional<std::string> nextVersion(const std::optional<Published>& last, std::uint64_t fingerprint) {
    if (!last)
        return digits(1, 10, versionLength);
    if (last->fingerprint == fingerprint)
        return last->version;
    const auto number = numberIn<std::uint32_t>(last->version, 10);
    if (!number || *number == 99999)
        return std::nullopt;
    return digits(*number + 1, 10, versionLength);
}

}
