#include "base/files.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/text.h"

#include <algorithm>
#include <boost/interprocess/file_mapping.hpp>
#include <boost/interprocess/mapped_region.hpp>
#include <fstream>
#include <system_error>

namespace base {
namespace fs = std::filesystem;
namespace ipc = boost::interprocess;

namespace {

bool isFile(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

template <typename Wanted>
std::vector<fs::path> filesWhere(const fs::path& folder, Wanted wanted) {
    std::vector<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        if (wanted(textOf(it->path().filename())) && isFile(it->path()))
            found.push_back(it->path());
    return found;
}

// Writes a file anew; what was written of it goes when that fails.
bool writeNew(const fs::path& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (file)
        return true;
    std::error_code ignored;
    fs::remove(path, ignored);
    return false;
}

fs::path unfinished(const fs::path& target) {
    return fs::path(target).concat(unfinishedEnding);
}

[[noreturn]] void failWriting(const fs::path& path) {
    throw FileError("Cannot write " + textOf(path) +
                    "\nPlease check that the disk is not full and that you may write there");
}

template <typename Ready>
void replace(const fs::path& path, std::string_view bytes, Ready ready) {
    std::error_code error;
    const auto target = behindLinks(path);
    const auto beside = unfinished(target);
    if (isReadOnly(target) || !writeNew(beside, bytes))
        failWriting(path);
    if (isFile(target))
        fs::permissions(beside, fs::status(target, error).permissions(), error);
    if (ready(beside)) {
        fs::rename(beside, target, error);
        if (!error)
            return;
    }
    fs::remove(beside, error);
    failWriting(path);
}

}

std::optional<fs::path> findFile(const fs::path& folder, std::string_view name) {
    const auto exact = folder / pathOf(name);
    if (isFile(exact))
        return exact;
    const auto found =
        filesWhere(folder, [&](const std::string& other) { return equalIgnoringCase(other, name); });
    if (found.empty())
        return std::nullopt;
    return *std::min_element(found.begin(), found.end());
}

fs::path filePath(const fs::path& folder, std::string_view name) {
    return findFile(folder, name).value_or(folder / pathOf(name));
}

std::vector<fs::path> filesEndingWith(const fs::path& folder, std::string_view ending) {
    auto found = filesWhere(folder, [&](const std::string& name) { return endsIgnoringCase(name, ending); });
    std::sort(found.begin(), found.end(), [](const fs::path& a, const fs::path& b) {
        const auto upperA = upper(textOf(a.filename()));
        const auto upperB = upper(textOf(b.filename()));
        return upperA != upperB ? upperA < upperB : a < b;
    });
    return found;
}

std::optional<std::string> readFile(const fs::path& path) {
    if (!isFile(path))
        return std::nullopt;
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const std::streamoff size = file.tellg();
    if (size < 0)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.seekg(0);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file)
        return std::nullopt;
    return bytes;
}

bool isReadOnly(const fs::path& path) {
    constexpr auto write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code ignored;
    return isFile(path) && (fs::status(path, ignored).permissions() & write) == fs::perms::none;
}

void replaceFile(const fs::path& path, std::string_view bytes) {
    replace(path, bytes, [](const fs::path& /*written*/) { return true; });
}

void replaceFileDurably(const fs::path& path, std::string_view bytes) {
    replace(path, bytes, flushToDisk);
}

// What is mapped can be flushed without the system's own calls. On a file system that maps no file for
// writing, a power cut shortly after may still lose the bytes.
bool flushToDisk(const fs::path& path) {
    std::error_code error;
    const auto size = fs::file_size(path, error);
    if (error || size == 0)
        return !error;
    constexpr bool later = false;
    try {
        const ipc::file_mapping file(path.c_str(), ipc::read_write);
        return ipc::mapped_region(file, ipc::read_write).flush(0, static_cast<std::size_t>(size), later);
    } catch (const ipc::interprocess_exception&) {
        return true;
    }
}

fs::path behindLinks(const fs::path& path) {
    std::error_code error;
    auto target = fs::weakly_canonical(path, error);
    return error ? path : target;
}

std::string_view withoutUnfinishedEnding(std::string_view name) {
    if (endsIgnoringCase(name, unfinishedEnding))
        name.remove_suffix(unfinishedEnding.size());
    return name;
}

void removeUnfinished(const fs::path& path) {
    std::error_code ignored;
    fs::remove(unfinished(behindLinks(path)), ignored);
}

void overwriteFile(const fs::path& path, std::string_view bytes) {
    std::error_code error;
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    if (!file)
        file.open(path, std::ios::binary | std::ios::out | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        failWriting(path);
    if (fs::file_size(path, error) != bytes.size())
        fs::resize_file(path, bytes.size(), error);
    if (error)
        failWriting(path);
}

}
