#include "packaging/launcher/own_program_folder.h"

#include "base/files.h"
#include "base/text.h"
#include "ui/system/replace_process.h"

#include <QLockFile>

#include <system_error>

namespace launcher {
namespace fs = std::filesystem;

namespace {

constexpr auto programFile = "Tavorine";
constexpr auto helpFolder = "help";
constexpr auto lockFile = ".renewal.lock";
constexpr int patienceMs = 30000;
constexpr auto written = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

[[noreturn]] void fail(const std::string& what, const fs::path& path, const std::string& reason) {
    throw CannotStart(what + " " + path.string() + ": " + reason);
}

// The path in the folder, in the letter case in which the user's copy of it may be stored.
fs::path copyIn(const fs::path& folder, const fs::path& name) {
    return base::filePath(folder / name.parent_path(), name.filename().string());
}

// Beside and renamed, so that nobody ever meets half a file.
void copyFile(const fs::path& from, const fs::path& to) {
    const auto beside = fs::path(to).concat(".new");
    std::error_code error;
    std::error_code ignored;
    fs::remove(beside, ignored);
    fs::copy_file(from, beside, error);
    if (!error && base::isReadOnly(to))
        fs::permissions(beside, written, fs::perm_options::remove, error);
    if (!error)
        fs::rename(beside, to, error);
    if (!error)
        return;
    fs::remove(beside, ignored);
    fail("Cannot write", to, error.message());
}

bool hasEverything(const fs::path& folder, const fs::path& installed) {
    for (const auto& entry : fs::directory_iterator(installed))
        if (!fs::exists(copyIn(folder, entry.path().filename())))
            return false;
    return true;
}

bool isUpToDate(const fs::path& folder, const fs::path& installed) {
    const auto program = base::readFile(installed / programFile);
    if (!program)
        fail("Cannot read", installed / programFile, "Please install Tavorine again");
    return base::readFile(folder / programFile) == program && hasEverything(folder, installed);
}

void copyProgramFiles(const fs::path& folder, const fs::path& installed) {
    // Only in a program folder is the help the program's own, and old pages in it go.
    if (fs::exists(folder / programFile))
        fs::remove_all(folder / helpFolder);
    for (const auto& entry : fs::recursive_directory_iterator(installed)) {
        const auto name = fs::relative(entry.path(), installed);
        if (entry.is_directory())
            fs::create_directories(folder / name);
        else if (name != programFile)
            copyFile(entry.path(), copyIn(folder, name));
    }
    copyFile(installed / programFile, folder / programFile);
}

[[noreturn]] void failWriting(const fs::path& folder, const std::string& reason) {
    fail("Cannot write to the folder", folder, reason);
}

// Whoever comes second finds the work done.
void renewAlone(const fs::path& folder, const fs::path& installed) {
    QLockFile lock(QString::fromStdString((folder / lockFile).string()));
    if (!lock.tryLock(patienceMs))
        failWriting(folder, lock.error() == QLockFile::LockFailedError ? "Another start is at work there"
                                                                       : "Permission denied");
    if (!isUpToDate(folder, installed))
        copyProgramFiles(folder, installed);
}

}

void renewProgramFolder(const fs::path& folder, const fs::path& installed) {
    std::error_code error;
    fs::create_directory(folder, error);
    if (error)
        fail("Cannot make the folder", folder, error.message());
    if (isUpToDate(folder, installed))
        return;
    try {
        renewAlone(folder, installed);
    } catch (const fs::filesystem_error& failure) {
        failWriting(folder, failure.code().message());
    }
}

void deliverCatalogue(const fs::path& zip, const fs::path& folder) {
    std::error_code error;
    if (!base::equalIgnoringCase(zip.extension().string(), ".zip"))
        fail("This is not a catalogue's zip file:", zip, "Please choose the file that your supplier sent");
    if (!fs::is_regular_file(zip, error))
        fail("Cannot read", zip, error ? error.message() : "It is not a file");
    const auto target = copyIn(folder, zip.filename());
    if (!fs::equivalent(zip, target, error))
        copyFile(zip, target);
}

void becomeProgram(const fs::path& folder) {
    const auto path = folder / programFile;
    fail("Cannot start", path, ui::system::replaceProcess(path));
}

}
