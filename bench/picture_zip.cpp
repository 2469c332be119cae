#include "bench/picture_zip.h"

#include "tests/support/catalog_builder.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <random>

namespace bench {
namespace fs = std::filesystem;

namespace {

constexpr int pictures = 5000;
constexpr int products = 20000;
constexpr int pictureFolders = 5;

std::string noise(std::mt19937_64& random, std::size_t size) {
    std::string bytes;
    bytes.reserve(size + sizeof(std::uint64_t));
    while (bytes.size() < size) {
        const auto number = random();
        const auto rare = number & 1U ? ~std::uint64_t{0} : 0x3F7F7F7F3F7F7F7FU; // some bits are not even
        for (unsigned shift = 0; shift < 64; shift += 8)
            bytes += static_cast<char>((number & rare) >> shift);
    }
    bytes.resize(size);
    return bytes;
}

void put(const fs::path& file, std::string_view bytes) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
}

void writeData(const fs::path& folder, const std::string& version) {
    support::CatalogBuilder builder;
    builder.version = version;
    builder.groups.push_back({"All"});
    for (int number = 1; number <= products; ++number)
        builder.products.push_back({"P" + std::to_string(number) + "\n" + version, 1.5F});
    builder.writeTo(folder);
    put(folder / "Welcome.ECT", "<html><body>{SUPNAME}</body></html>");
    put(folder / "ACME.sup", "ACME|ACME Ltd\r\n");
}

void writePictures(const fs::path& folder, const std::string& version) {
    std::mt19937_64 random(std::stoull(version));
    std::uniform_int_distribution<std::size_t> size(8'000, 72'000);
    for (int number = 0; number < pictures; ++number)
        put(folder / ("pics" + std::to_string(number % pictureFolders)) /
                ("picture" + std::to_string(number) + ".jpg"),
            noise(random, size(random)));
    put(folder / "logo.jpg", noise(random, 20'000));
}

}

void makePictureZip(const fs::path& folder, const std::string& version) {
    const auto contents = folder / "contents";
    writeData(contents, version);
    writePictures(contents, version);
    const auto command = "cd '" + contents.string() + "' && zip -q -r -6 ../ACME.zip .";
    if (std::system(command.c_str()) != 0)
        std::abort(); // there is nothing to measure
    fs::remove_all(contents);
}

}
