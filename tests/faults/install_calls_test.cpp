#include "app/catalog_zips.h"
#include "app/discarded_files.h"
#include "tests/app/quiet_window.h"
#include "tests/faults/file_faults.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/test_folder.h"
#include "tests/support/zip_builder.h"
#include "ui/system/archive/zip_extractor.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

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

/// A window that leaves what can be done later.
struct PatientWindow : support::QuietWindow {
    void later(const std::function<void(const std::stop_token&)>& /*work*/) override {}
};

class InstallCalls : public testing::Test {
protected:
    /// A catalogue with so many pictures, all of them others in another version.
    void drop(const std::string& version, int pictures) const {
        support::CatalogBuilder builder;
        builder.version = version;
        builder.writeTo(folder / "data");
        auto zip = support::ZipBuilder().add("ACME.sup", "ACME|ACME\r\n");
        for (const auto& file : fs::directory_iterator(folder / "data")) {
            std::ifstream in(file.path(), std::ios::binary);
            zip.add(file.path().filename().string(), {std::istreambuf_iterator<char>(in), {}});
        }
        for (int number = 0; number < pictures; ++number)
            zip.add("pics/" + std::to_string(number) + ".jpg", "picture of " + version);
        zip.writeTo(program / "ACME.zip");
    }

    [[nodiscard]] faults::FolderCalls install() {
        box.answers = {platform::Answer::yes};
        faults::begin(faults::Fault::none);
        app::CatalogZips(program, archive, box, window).installAll();
        faults::end();
        EXPECT_FALSE(fs::exists(program / "ACME.zip"));
        return faults::folderCalls();
    }

    struct All {
        faults::FolderCalls first;
        faults::FolderCalls update;
        faults::FolderCalls unchanged;
    };

    All installThrice(int pictures) {
        fs::remove_all(program);
        fs::create_directories(program);
        All calls;
        drop("00001", pictures);
        calls.first = install();
        drop("00002", pictures);
        calls.update = install();
        drop("00002", pictures);
        calls.unchanged = install();
        return calls;
    }

    fs::path folder = support::testFolder();
    fs::path program = folder / "program";
    support::Journal journal;
    support::FakeMessageBox box{journal};
    Zips archive;
    PatientWindow window;
};

TEST_F(InstallCalls, AreFewForEachFile) {
    constexpr int more = 200;
    const auto small = installThrice(100);
    const auto large = installThrice(100 + more);
    EXPECT_EQ(large.first.renames, small.first.renames) << "a new folder moves as a whole";
    EXPECT_LE(large.first.all - small.first.all, 1 * more) << "to make it";
    EXPECT_LE(large.update.all - small.update.all, 4 * more)
        << "to look at the old one, to make the new one, and to rename both";
    EXPECT_LE(large.unchanged.all - small.unchanged.all, 1 * more) << "to look at it";
    EXPECT_EQ(large.unchanged.renames, small.unchanged.renames);
}

TEST_F(InstallCalls, DeletingIsLeftForLaterAndMadeUpForByTheNextStart) {
    static_cast<void>(installThrice(3));
    ASSERT_TRUE(app::hasDiscarded(program));
    std::stop_source stopped;
    stopped.request_stop();
    app::deleteDiscarded(program, stopped.get_token());
    EXPECT_TRUE(app::hasDiscarded(program));
    support::QuietWindow next;
    app::CatalogZips(program, archive, box, next).installAll();
    EXPECT_FALSE(fs::exists(program / "Install.tmp"));
}

}
