#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "publish/command/commands.h"
#include "publish/command/opened_catalog.h"
#include "publish/templates/preview.h"

#include <cstdlib>

namespace publish {
namespace fs = std::filesystem;

namespace {

using Kind = OpenedCatalog::Kind;

// A path as an address holds it: what means something else in addresses is written percent-encoded.
std::string addressOf(const fs::path& folder) {
    std::string address;
    for (const char c : base::textOf(folder))
        if (c == '%' || c == '#' || c == '?')
            address += c == '%' ? "%25" : c == '#' ? "%23" : "%3F";
        else
            address += c;
    return address;
}

// Files that a page names without a folder are found where the catalogue's are, wherever the page lies.
std::string withBase(std::string page, const fs::path& folder) {
    const auto head = base::upper(page).find("<HEAD");
    const auto end = head == std::string::npos ? head : page.find('>', head);
    if (end != std::string::npos)
        page.insert(end + 1, "<base href=\"file://" + addressOf(folder) + "/\">");
    return page;
}

// In double quotation marks nothing but these four means anything to a shell.
[[maybe_unused]] std::string quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\' || c == '$' || c == '`')
            quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

void openInBrowser(const fs::path& page) {
#if defined(_WIN32)
    const auto command = "start \"\" \"" + page.string() + "\"";
#elif defined(__APPLE__)
    const auto command = "open " + quoted(page.string());
#else
    const auto command = "xdg-open " + quoted(page.string());
#endif
    if (std::system(command.c_str()) != 0)
        throw base::FileError("No browser could be started; open " + base::textOf(page) + " yourself.");
}

/// Where a page's pictures and styles are to be found for as long as it is looked at.
fs::path filesOf(const OpenedCatalog& catalog, const PreviewOptions& options, const fs::path& page) {
    if (catalog.kind() != Kind::zip)
        return meantPath(options.place);
    const auto folder = fs::path(page).replace_extension().concat("_files");
    std::error_code error;
    fs::remove_all(folder, error);
    fs::copy(catalog.folder(), folder, fs::copy_options::recursive, error);
    if (error)
        throw base::FileError("The pictures cannot be written to " + base::textOf(folder) + ".");
    return folder;
}

}

Outcome showPreview(const PreviewOptions& options, const Streams& streams) {
    Complaints complaints;
    WorkFolder shownFrom;
    const OpenedCatalog catalog(meantPath(options.place), complaints);
    if (catalog.kind() == Kind::source && holdsError(complaints)) {
        report(std::move(complaints), {}, streams.err);
        return Outcome::complaints;
    }
    const auto page = preview(catalog.folder(), options.what);
    if (options.output.empty() && !options.open) {
        streams.out << page.bytes;
        return Outcome::done;
    }
    const auto name = page.isHtml ? "preview.html" : "preview.txt";
    const auto file = options.output.empty() ? shownFrom.path() / name : meantPath(options.output);
    const auto files = filesOf(catalog, options, file);
    auto bytes = base::replaceAll(page.bytes, addressOf(catalog.folder()), addressOf(files));
    base::replaceFile(file, page.isHtml ? withBase(std::move(bytes), files) : bytes);
    streams.err << page.title << ": " << base::toUtf8(base::textOf(file)) << '\n';
    if (options.open) {
        shownFrom.keep(); // the browser reads it after this program has ended
        openInBrowser(file);
    }
    return Outcome::done;
}

}
