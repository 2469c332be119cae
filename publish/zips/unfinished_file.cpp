#include "publish/zips/unfinished_file.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"

#include <array>
#include <random>
#include <string>
#include <system_error>
#include <vector>

namespace publish {
namespace fs = std::filesystem;

namespace {

fs::path beginningFor(const fs::path& target) {
    return fs::path(".").concat(target.filename().native()).concat(".");
}

bool isLeftover(const fs::path& file, const fs::path& target) {
    const auto beginning = base::textOf(beginningFor(target));
    const auto name = base::textOf(file.filename());
    return name.starts_with(beginning) && name.ends_with(base::unfinishedEnding) &&
           name.find('.', beginning.size()) == name.size() - base::unfinishedEnding.size();
}

void removeLeftovers(const fs::path& target) {
    std::error_code error;
    std::vector<fs::path> found;
    for (fs::directory_iterator it(target.parent_path(), error), end; !error && it != end;
         it.increment(error))
        if (isLeftover(it->path(), target))
            found.push_back(it->path());
    for (const auto& file : found)
        fs::remove(file, error);
}

// Two programs that write the same file at once must not write into each other's.
fs::path unfinishedPath(const fs::path& target) {
    const auto name = beginningFor(target).concat(std::to_string(std::random_device()()));
    return target.parent_path() / fs::path(name).concat(base::unfinishedEnding);
}

std::string whyNot(const fs::path& target) {
    constexpr std::uintmax_t little = 64 << 10;
    std::error_code error;
    if (fs::is_directory(target, error))
        return "there is a folder of that name\nPlease choose another name";
    if (!fs::is_directory(target.parent_path(), error))
        return "the folder " + base::textOf(target.parent_path()) + " does not exist\nPlease make it first";
    if (base::isReadOnly(target))
        return "the file is read-only\nPlease allow writing it, or choose another name";
    if (fs::space(target.parent_path(), error).available < little && !error)
        return "the disk is full\nPlease make room there, or choose another disk";
    return "the folder cannot be written\nPlease check that you may write there, that the disk is not full "
           "and that no other program writes the same file";
}

}

UnfinishedFile::UnfinishedFile(const fs::path& place)
    : m_place(place), m_target(base::behindLinks(fs::absolute(place))), m_path(unfinishedPath(m_target)) {
    std::error_code ignored;
    if (fs::is_directory(m_target, ignored) || base::isReadOnly(m_target))
        fail();
    removeLeftovers(m_target);
    m_file.open(m_path, std::ios::binary | std::ios::trunc);
    if (!m_file)
        fail();
}

UnfinishedFile::~UnfinishedFile() {
    m_file.close();
    std::error_code ignored;
    if (!m_path.empty())
        fs::remove(m_path, ignored);
}

void UnfinishedFile::fail() const {
    throw base::FileError("Cannot write " + base::textOf(m_place) + ": " + whyNot(m_target));
}

void UnfinishedFile::write(std::string_view bytes) {
    if (!m_file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())))
        fail();
}

void UnfinishedFile::append(std::string_view bytes) {
    write(bytes);
    m_size += bytes.size();
}

void UnfinishedFile::writeAt(std::uint64_t offset, std::string_view bytes) {
    m_file.seekp(static_cast<std::streamoff>(offset));
    write(bytes);
    m_file.seekp(static_cast<std::streamoff>(m_size));
}

void UnfinishedFile::finish() {
    m_file.close();
    if (!m_file || !base::flushToDisk(m_path))
        fail();
    std::error_code error;
    if (fs::is_regular_file(m_target, error))
        fs::permissions(m_path, fs::status(m_target, error).permissions(), error);
    fs::rename(m_path, m_target, error);
    if (error)
        fail();
    m_path.clear();
}

}
