#include "base/files.h"
#include "base/text.h"
#include "catalog/catalog.h"
#include "fuzz/require.h"
#include "fuzz/scratch_folder.h"
#include "fuzz/sections.h"
#include "pages/browse/link_rules.h"
#include "tests/support/catalog_builder.h"

#include <algorithm>
#include <string>

namespace {

namespace fs = std::filesystem;

/// A program folder with a catalogue, another one beside it, and secrets outside and inside.
struct Surroundings {
    fuzz::ScratchFolder scratch;
    fs::path program = scratch.path() / "prog # 1";
    fs::path data = program / "ACME";
    fs::path outside = scratch.path() / "outside.htm";
    catalog::Catalog catalog = made();
    pages::LinkRules rules{catalog, {program, data, data}};

private:
    void write(const fs::path& path) const {
        fs::create_directories(path.parent_path());
        base::overwriteFile(path, "text");
    }

    catalog::Catalog made() const {
        support::CatalogBuilder builder;
        builder.products = {{.text = "A1\nHammer\n"}, {.text = "B?2|3/4\nSaw\n"}, {.text = "C#1\\2\nNail\n"}};
        builder.groups = {{.name = "All"}};
        builder.writeTo(data);
        for (const auto& file : {data / "About.htm", data / "sub dir" / "Page.html", data / "50%.htm",
                                 data / "User.ini", data / "x.htm.ini", data / "Tmp.htm", outside})
            write(file);
        fs::create_symlink(outside, data / "link.htm");
        fs::create_directory_symlink(scratch.path(), data / "up.htm");
        return catalog::openCatalog(data);
    }
};

bool isInside(const fs::path& path, const fs::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

void checkPage(const pages::LeadsToPage& page, const fs::path& folder) {
    fuzz::require(isInside(fs::canonical(page.file), folder), "a link leads out of the folders");
    fuzz::require(fs::is_regular_file(page.file), "a link leads to what is no file");
    fuzz::require(base::upper(page.file.extension().string()) != ".INI", "a link leads to settings");
    fuzz::require(page.place.empty() || page.place.front() == '#', "a place is none");
}

void checkEnd(const pages::LinkEnd& end, std::string_view address, const Surroundings& around) {
    if (const auto* page = std::get_if<pages::LeadsToPage>(&end))
        checkPage(*page, around.program);
    if (const auto* product = std::get_if<pages::LeadsToProduct>(&end))
        fuzz::require(product->record >= 1 && product->record <= around.catalog.products.count(),
                      "a link leads to a product that is none");
    if (std::holds_alternative<pages::LeadsOutside>(end))
        fuzz::require(base::startsIgnoringCase(address, "http"), "a link leads out, and not to the web");
}

// "@" in front stands for the folder of the catalogue, "$" for the folder around everything.
std::string addressOf(std::string_view input, const Surroundings& around) {
    const auto behind = std::string(input.substr(std::min<std::size_t>(1, input.size())));
    if (input.starts_with('@'))
        return "file://" + base::replaceAll(base::replaceAll(around.data.string(), " ", "%20"), "#", "%23") +
               "/" + behind;
    if (input.starts_with('$'))
        return "file://" + around.scratch.path().string() + "/" + behind;
    return std::string(input);
}

}

// An address as the browser gives it: it leads to a product that is there, to a file that pages may have, to
// the web, or nowhere.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Surroundings around;
    const auto address = addressOf(fuzz::textOf(data, size), around);
    checkEnd(around.rules.follow(address), address, around);
    return 0;
}
