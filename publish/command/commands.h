#pragma once

#include "publish/command/report.h"

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace publish {

/// How a command ended, as its exit code.
enum class Outcome { done = 0, complaints = 1, misuse = 2 };

/// Where a command writes: what was asked for, and what a person should know besides.
struct Streams {
    std::ostream& out;
    std::ostream& err;
};

struct NewOptions {
    std::filesystem::path folder;
    std::filesystem::path list; ///< empty: the example
    std::string supplierName;   ///< UTF-8, like all texts here
    std::string email;
};

struct BuildOptions {
    std::filesystem::path source;
    std::filesystem::path zip; ///< empty: beside the source, named after the supplier's id
    std::vector<std::filesystem::path> further;
    std::optional<int> longestEdge; ///< of pictures, in pixels
    ReportForm form;
};

struct CheckOptions {
    std::filesystem::path place;
    ReportForm form;
};

struct PreviewOptions {
    std::filesystem::path place;
    std::string what;             ///< code, record number, or "welcome", "banner", "order", "mail"
    std::filesystem::path output; ///< empty: standard output, unless it is opened
    bool open = false;            ///< in the system's browser
};

struct ExportOptions {
    std::filesystem::path place;
    std::filesystem::path folder;
};

struct DiffOptions {
    std::filesystem::path before;
    std::filesystem::path after;
    bool json = false;
};

/// Each does what "tavorine-publish --help" says of it. What cannot be done throws base::FileError.
[[nodiscard]] Outcome makeNew(const NewOptions& options, const Streams& streams);
[[nodiscard]] Outcome build(const BuildOptions& options, const Streams& streams);
[[nodiscard]] Outcome check(const CheckOptions& options, const Streams& streams);
[[nodiscard]] Outcome showPreview(const PreviewOptions& options, const Streams& streams);
[[nodiscard]] Outcome exportSource(const ExportOptions& options, const Streams& streams);
[[nodiscard]] Outcome showDifference(const DiffOptions& options, const Streams& streams);

/// Runs the command that the arguments name, the program's name not among them; the first form of this
/// program, SOURCE ZIP [FOLDER...], is understood too. Whatever goes wrong is said on `streams.err`. The
/// answer is the exit code.
[[nodiscard]] int run(const std::vector<std::string>& arguments, const Streams& streams);

}
