#include "app/catalog_zips.h"
#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "fuzz/require.h"
#include "fuzz/scratch_folder.h"
#include "fuzz/sections.h"
#include "fuzz/stored_zip.h"
#include "platform/message_box.h"
#include "publish/zips/zip_reader.h"
#include "tests/app/quiet_window.h"
#include "ui/system/archive/zip_extractor.h"

#include <algorithm>
#include <map>
#include <string>

namespace {

namespace fs = std::filesystem;
using Result = platform::Archive::Result;

class DirectArchive final : public platform::Archive {
public:
    std::optional<std::vector<std::string>> topLevelFiles(const fs::path& archive) override {
        return ui::system::ZipExtractor::topLevelFiles(archive);
    }

    Result extract(const fs::path& archive, std::string_view mask, const fs::path& folder) override {
        return ui::system::ZipExtractor().extract(archive, mask, folder);
    }

    Result extractChanged(const fs::path& archive, const fs::path& folder,
                          const fs::path& installed) override {
        return ui::system::ZipExtractor().extractChanged(archive, folder, installed);
    }
};

class SilentBox final : public platform::MessageBox {
public:
    int shown = 0;

    void show(platform::Icon /*icon*/, std::string_view /*title*/, std::string_view /*text*/) override {
        ++shown;
    }

    platform::Answer ask(platform::Icon /*icon*/, std::string_view /*title*/, std::string_view /*text*/,
                         platform::Answer defaultAnswer) override {
        return defaultAnswer;
    }
};

using Files = std::map<std::string, std::string>; // contents by path; folders say that they are

std::string contentsOf(const fs::directory_entry& entry) {
    return entry.is_directory() ? "(folder)" : base::readFile(entry.path()).value_or("(unreadable)");
}

Files filesIn(const fs::path& folder) {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        fuzz::require(!entry.is_symlink(), "a link was unpacked");
        files.emplace(entry.path().lexically_relative(folder).string(), contentsOf(entry));
    }
    return files;
}

void clear(const fs::path& folder) {
    fs::remove_all(folder);
    fs::create_directories(folder);
}

// What begins with "+" is a list of entries, each a name, a line end and the contents; "@" in front of a name
// makes a link of it. Anything else is an archive's bytes.
std::string zipOf(std::string_view input) {
    if (!input.starts_with('+'))
        return std::string(input);
    constexpr std::uint32_t linkMode = 0120777;
    input.remove_prefix(1);
    fuzz::StoredZip zip;
    while (!input.empty()) {
        auto contents = fuzz::takeSection(input);
        auto name = contents.substr(0, contents.find('\n'));
        contents.remove_prefix(std::min(name.size() + 1, contents.size()));
        const bool isLink = name.starts_with('@');
        name.remove_prefix(isLink ? 1 : 0);
        zip.add(name, contents, isLink ? linkMode : 0);
    }
    return zip.bytes();
}

void checkExtraction(const fs::path& root, const fs::path& zip) {
    const auto target = root / "target";
    clear(target);
    const auto result = ui::system::ZipExtractor().extract(zip, "*", target);
    const auto files = filesIn(target);
    fuzz::require(result == Result::extracted || files.empty(), "a failed extraction left files behind");
    fs::remove_all(target);
}

// A supplier that is there, with a file of the user's; every second archive meets it.
void install(const fs::path& program) {
    fs::create_directories(program / "ACME");
    base::overwriteFile(program / "ACME.sup", "ACME|ACME Ltd\r\n");
    for (const auto name :
         {catalog::productsFile, catalog::groupsFile, catalog::indexFile, catalog::memosFile})
        base::overwriteFile(program / "ACME" / name, "old");
    std::string parameters(760, ' ');
    parameters.replace(29, 5, "00001");
    base::overwriteFile(program / "ACME" / catalog::parametersFile, parameters);
    base::overwriteFile(program / "ACME" / "User.ini", "mine");
}

bool mayChange(const std::string& name) {
    return name == "ACME" || name.starts_with("ACME/") || name == "ACME.sup" || name == "ACME.SUP" ||
           name == "ACME.jpg";
}

void checkUnchangedElsewhere(const Files& before, const Files& after) {
    for (const auto& [name, contents] : after)
        fuzz::require(base::equalIgnoringCase(name.substr(0, 8), "ACME.sup") || mayChange(name) ||
                          (before.contains(name) && before.at(name) == contents),
                      "a file was changed or made that is not the supplier's");
    for (const auto& [name, contents] : before)
        fuzz::require(name == "ACME.zip" || after.contains(name), "a file is gone");
    if (before.contains("ACME/User.ini"))
        fuzz::require(after.at("ACME/User.ini") == "mine", "the user's file was replaced");
}

void checkCatalogIsWhole(const Files& after) {
    if (!after.contains("ACME"))
        return;
    const auto parameters = after.find("ACME/PrdPrm.dat");
    const bool isWhole = std::any_of(after.begin(), after.end(), [](const auto& file) {
        return base::equalIgnoringCase(file.first, "ACME/PrdPrm.dat") && file.second.size() >= 760;
    });
    fuzz::require(isWhole || (parameters != after.end() && parameters->second.size() >= 760),
                  "half a catalogue");
}

/// Whether `tavorine-publish` finds nothing in the zip for which the viewer would not install it.
bool isFoundGood(const fs::path& zip) {
    try {
        const auto complaints = publish::ZipReader(zip).check();
        return std::none_of(complaints.begin(), complaints.end(), [](const publish::Complaint& complaint) {
            return complaint.weight == publish::Complaint::Weight::error &&
                   complaint.rule != "zip-marker-fields"; // which is told when it is listed
        });
    } catch (const base::FileError&) {
        return false;
    }
}

void checkInstallation(const fs::path& program, const std::string& zip, bool isUpdate) {
    clear(program);
    base::overwriteFile(program / "Start.ini", "settings");
    if (isUpdate)
        install(program);
    base::overwriteFile(program / "ACME.zip", zip);
    const bool isGood = isFoundGood(program / "ACME.zip");
    const auto before = filesIn(program);
    DirectArchive archive;
    SilentBox box;
    support::QuietWindow window;
    app::CatalogZips(program, archive, box, window).installAll();
    const auto after = filesIn(program);
    fuzz::require(!after.contains("ACME.zip") || box.shown > 0, "a zip stays and nothing is said");
    checkUnchangedElsewhere(before, after);
    checkCatalogIsWhole(after);
    fuzz::require(isUpdate || isGood == after.contains("ACME"),
                  "what is found good is not what is installed");
}

}

// An archive, made or made up: unpacked and installed, it changes nothing but the supplier's files and leaves
// nothing half done.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::ScratchFolder scratch;
    const auto root = scratch.path();
    const auto program = root / "program";
    clear(root);
    base::overwriteFile(root / "outside", "outside");
    const auto zip = zipOf(fuzz::textOf(data, size));
    base::overwriteFile(root / "A.zip", zip);
    checkExtraction(root, root / "A.zip");
    for (const bool isUpdate : {false, true})
        checkInstallation(program, zip, isUpdate);
    fs::remove_all(program);
    fuzz::require(filesIn(root) == Files{{"A.zip", zip}, {"outside", "outside"}},
                  "a file outside was touched");
    return 0;
}
