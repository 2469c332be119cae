#pragma once

#include <filesystem>
#include <stdexcept>

/// The Debian package holds one copy of the program for all users, but a program folder is one person's:
/// catalogues, settings and orders stand beside the program file. So each user works with a program folder
/// in the home folder, whose program files are copies of the installed ones.
namespace launcher {

/// What hinders the start, in a sentence for the user, UTF-8.
class CannotStart : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Makes the folder if need be and copies the installed program files into it, the program file last:
/// the folder is up to date when its program file is. Nothing is written where that is so, so a folder
/// that may only be read serves as well. Otherwise the catalogues and settings in it stay as they are, a
/// program that runs there goes on with the file it was started from, and of two that renew the same
/// folder one waits for the other. A program file that its user has made read-only stays read-only.
/// Throws CannotStart.
void renewProgramFolder(const std::filesystem::path& folder, const std::filesystem::path& installed);

/// Copies a catalogue's zip into the program folder, where the next start of the program installs it.
/// Throws CannotStart for what is no zip file or cannot be copied.
void deliverCatalogue(const std::filesystem::path& zip, const std::filesystem::path& folder);

/// Puts the folder's program file in this process's place, so it returns only by throwing CannotStart.
[[noreturn]] void becomeProgram(const std::filesystem::path& folder);

}
