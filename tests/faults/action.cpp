#include "tests/faults/action.h"

#include "app/catalog_zips.h"
#include "app/start_up.h"
#include "app/supplier_removal.h"
#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "order/basket_file.h"
#include "order/details_file.h"
#include "pages/scratch_page.h"
#include "tests/app/quiet_window.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/fake_browser.h"
#include "tests/support/fake_message_box.h"
#include "ui/system/archive/zip_extractor.h"
#include "ui/system/disk_file.h"

#include <algorithm>
#include <string_view>

namespace faults {
namespace fs = std::filesystem;

namespace {

struct Zips : platform::Archive {
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

struct Machine : platform::InstanceLock, platform::ProgramFile, platform::Screen {
    fs::path program;

    bool acquire(const fs::path& /*programFolder*/) override { return true; }

    [[nodiscard]] fs::path path() const override { return program / "Tavorine"; }

    [[nodiscard]] bool isReadOnly() const override { return false; }

    [[nodiscard]] platform::ScreenSize size() const override { return {1920, 1080}; }
};

/// What surrounds an action; whoever is asked says yes.
struct Surroundings {
    support::Journal journal;
    support::FakeMessageBox box{journal};
    support::FakeBrowser browser{journal};
    support::QuietWindow window;
    Zips archive;

    Surroundings() { box.answers.assign(100, platform::Answer::yes); }

    /// The boxes that do not ask.
    [[nodiscard]] std::vector<std::string> told() {
        auto lines = journal.take();
        std::erase_if(lines, [](const std::string& line) {
            return !line.starts_with("exclamation") && !line.starts_with("critical");
        });
        return lines;
    }
};

void put(const fs::path& file, std::string_view contents) {
    fs::create_directories(file.parent_path());
    base::replaceFile(file, contents);
}

/// A catalogue's files; those of the second version are others of the same names, some more, and a file and
/// a folder that have changed places.
Files catalogFiles(const std::string& N, const std::string& version, const fs::path& scratch) {
    support::CatalogBuilder builder;
    builder.version = version;
    builder.texts[catalog::ParameterText::supplierName] = N + version;
    for (int number = 1; number < 40; ++number)
        builder.products.push_back({std::to_string(number) + "\n" + version, 1.5F});
    builder.groups.push_back({"All " + version});
    builder.writeTo(scratch);
    auto files = filesIn(scratch);
    fs::remove_all(scratch);
    files["Welcome.ECT"] = "Welcome " + version;
    files["logo.jpg"] = "logo " + version;
    files["pics/a.jpg"] = std::string(5000, version.back());
    files["pics/same.jpg"] = "the same";
    if (version == "00001") {
        files["turn"] = "a file";
        files["back/inside.txt"] = "a folder";
        files["old only.htm"] = "stays";
    } else {
        files["turn/inside.txt"] = "a folder now";
        files["back"] = "a file now";
        files["deep/er/new.jpg"] = "new";
        files["new.htm"] = "new";
    }
    return files;
}

void install(const fs::path& program, const std::string& N) {
    put(program / (N + ".sup"), N + "|" + N + " Ltd\r\n");
    put(program / (N + ".jpg"), "logo 00001");
    for (const auto& [name, contents] : catalogFiles(N, "00001", program / "scratch"))
        put(program / N / name, contents);
    put(program / N / "User.ini", "[Order]\r\nCity=York\r\n");
}

void prepareStarted(const fs::path& program) {
    put(program / "Start.ini", "[Email]\r\nStatus=Yes\r\n");
    put(program / "Start.ect", "<R1>{SUPPID} </R1>");
    install(program, "BETA");
}

void prepareInstalled(const fs::path& program) {
    prepareStarted(program);
    install(program, "ACME");
}

void dropZip(const fs::path& program, const std::string& version) {
    support::ZipBuilder zip;
    zip.add("ACME.sup", "ACME|ACME " + version + "\r\n");
    for (const auto& [name, contents] : catalogFiles("ACME", version, program / "scratch"))
        zip.add(name, contents);
    zip.writeTo(program / "ACME.zip");
}

// Beside the program folder it would not be renewed with it.
fs::path keptFolder(const fs::path& program) {
    return fs::exists(program / "kept") ? program / "kept" : fs::path();
}

bool installZips(const fs::path& program) {
    Surroundings out;
    app::CatalogZips(program, out.archive, out.box, out.window, keptFolder(program)).installAll();
    return !out.told().empty();
}

/// Articles of before that are kept already, and what an update is to keep in their place.
void prepareKept(const fs::path& program) {
    for (const auto name : {catalog::productsFile, catalog::indexFile}) {
        put(program / "kept/previous/ACME/catalog" / name, "older");
        fs::copy_file(program / "ACME" / name, program / "kept" / name);
    }
    put(program / "kept/previous/ACME/catalog/folder.txt", (program / "ACME").string());
}

// How keeping went makes no difference to an installation, so it is not looked at here which articles of
// before there are, but that they are those of one catalogue.
void checkKept(Files& files) {
    const auto have = [&files](const std::string& folder) {
        const auto is = [&](const std::string& products, const std::string& index) {
            return files["kept/previous/ACME/" + folder + "/Prdlst.dat"] == products &&
                   files["kept/previous/ACME/" + folder + "/PrdIdx.idx"] == index;
        };
        return is("older", "older") || is(files["kept/Prdlst.dat"], files["kept/PrdIdx.idx"]);
    };
    const bool isThere = files.contains("kept/Prdlst.dat");
    if (isThere && !have(files.contains("kept/previous/ACME/catalog/folder.txt") ? "catalog" : "old"))
        files["complaint: the articles of before are not whole"] = "";
    std::erase_if(files, [](const auto& file) { return file.first.starts_with("kept/"); });
}

template <typename Work>
bool fails(Work work) {
    try {
        work();
        return false;
    } catch (const base::FileError&) {
        return true;
    }
}

bool removeAcme(const fs::path& program) {
    return fails([&] { app::removeSupplierFiles(program, {"ACME", "ACME", "Acme"}); });
}

bool storePassword(const fs::path& program) {
    return fails(
        [&] { catalog::storeCatalogPassword(program / "ACME" / catalog::parametersFile, "new one"); });
}

bool writeSetting(const fs::path& program) {
    return !catalog::SettingsFile(program / "Start.ini").write(catalog::setting::emailStatus, "No");
}

bool saveDetails(const fs::path& program) {
    Surroundings out;
    const catalog::SettingsFile settings(program / "ACME" / "User.ini");
    order::DetailsFile file(settings, out.box);
    file.save({true, "Ann", "Ayr", "Scotland", "Baker", "1", "", "High Street", "2"});
    file.tellFailure();
    return !out.told().empty();
}

bool editBasket(const fs::path& program) {
    Surroundings out;
    ui::system::DiskFile file;
    order::BasketFile basket(program / "ACME", file, out.box);
    for (const int number : {3, 1, 2})
        basket.write(number, order::BasketLine());
    basket.clear();
    basket.write(1, std::vector<order::BasketLine>(1000));
    return !out.told().empty();
}

bool writePages(const fs::path& program) {
    const pages::ScratchPage page(program / "ACME");
    return fails([&] {
        for (const std::size_t size : {9000U, 20U, 9000U, 0U})
            page.write(std::string(size, 'x'));
    });
}

}

Files filesIn(const fs::path& folder) {
    Files found;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const auto name = entry.path().lexically_relative(folder).generic_string();
        if (!entry.is_directory())
            found[name] = base::readFile(entry.path()).value_or("unreadable");
        else if (fs::is_empty(entry))
            found[name] = "/";
    }
    return found;
}

const std::vector<Action>& actions() {
    static const std::vector<Action> all{
        {"FirstStart",
         [](const fs::path& program) {
             prepareInstalled(program);
             fs::remove(program / "Start.ini");
         },
         [](const fs::path& program) { return !startIn(program).empty(); }},
        {"FirstInstall",
         [](const fs::path& program) {
             prepareStarted(program);
             dropZip(program, "00001");
         },
         installZips},
        {"Update",
         [](const fs::path& program) {
             prepareInstalled(program);
             prepareKept(program);
             dropZip(program, "00002");
         },
         installZips},
        {"Removal", prepareInstalled, removeAcme},
        {"Password", prepareInstalled, storePassword},
        {"Setting", prepareInstalled, writeSetting},
        {"Details", prepareInstalled, saveDetails},
        {"Basket", prepareInstalled, editBasket},
        {"Pages", prepareInstalled, writePages},
    };
    return all;
}

std::string nameOf(const Action& action) {
    return action.name;
}

std::vector<std::string> startIn(const fs::path& program) {
    Surroundings out;
    Machine machine;
    machine.program = program;
    app::StartUp start({machine, machine, machine, out.archive, out.box, out.browser, out.window,
                        program / "own", keptFolder(program)});
    try {
        start.run();
        start.linkClicked("\\ACME");
        if (!start.session().folders.DataFolder.empty())
            static_cast<void>(catalog::openCatalog(start.session().folders.DataFolder));
    } catch (const base::ProgramEnd& end) {
        out.box.show(platform::Icon::critical, end.title(), end.text());
    }
    return out.told();
}

Files afterStartIn(const fs::path& program) {
    auto complaints = startIn(program);
    auto files = filesIn(program);
    std::erase_if(files, [](const auto& file) {
        return file.first.ends_with("Tmp.htm") || file.first.ends_with("Basket.dat");
    });
    checkKept(files);
    for (const auto& complaint : complaints)
        files["complaint: " + complaint] = "";
    return files;
}

}
