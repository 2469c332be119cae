#pragma once

#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace base {

/// Ends the program after one critical message box with this title and text.
/// Caught in one place, through which every event passes.
class ProgramEnd : public std::exception {
public:
    ProgramEnd(std::string title, std::string text);

    /// Under the title "Terminating error".
    explicit ProgramEnd(std::string text);

    [[nodiscard]] const std::string& title() const { return m_title; }

    [[nodiscard]] const std::string& text() const { return m_text; }

    [[nodiscard]] const char* what() const noexcept override { return m_text.c_str(); }

private:
    std::string m_title;
    std::string m_text;
};

/// A data file or template that is not there or cannot be read.
class MissingFile : public ProgramEnd {
public:
    explicit MissingFile(const std::filesystem::path& path);
};

/// A data file or template whose contents make no sense.
class DamagedFile : public ProgramEnd {
public:
    explicit DamagedFile(const std::filesystem::path& path);
};

/// The user has chosen to leave; nothing more is said.
class Quit : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override { return "left by the user"; }
};

/// A file that could not be written or read, in a sentence for the user. The program goes on.
class FileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}
