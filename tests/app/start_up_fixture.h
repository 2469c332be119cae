#pragma once

#include "app/welcome_window.h"
#include "base/code_page.h"
#include "base/files.h"
#include "platform/archive.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/fake_browser.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/journal.h"
#include "tests/support/test_folder.h"
#include "tests/support/zip_builder.h"
#include "ui/system/archive/zip_extractor.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>

/// What the tests of start-up share: a program folder with zips to drop in, and fakes around it.
class FakeWelcomeWindow : public app::WelcomeWindow {
public:
    explicit FakeWelcomeWindow(support::Journal& journal) : m_journal(journal) {}

    bool listOffered = false;
    std::string confinedTo; ///< whose files the pages have

    void confineToProgram(const std::filesystem::path&) override { confinedTo = "program"; }

    void confineToSupplier(const catalog::Folders& folders) override {
        confinedTo = folders.DataFolder.filename().string();
    }

    void setCaption(std::string_view caption) override { m_journal.add("caption " + std::string(caption)); }

    std::function<void()> watch = [] {}; ///< called before and after work that is waited for

    void waitFor(const std::function<void()>& work) override {
        watch();
        work();
        watch();
    }

    void setStatus(std::string_view text) override { m_journal.add("status " + std::string(text)); }

    void showPasswordEntry(std::string_view prompt) override {
        m_journal.add("password entry " + std::string(prompt));
    }

    void offerSupplierList(bool offered) override { listOffered = offered; }

    void hidePasswordEntry() override { m_journal.add("no password entry"); }

    void focusPasswordOncePageIsUp() override { m_journal.add("focus once page is up"); }

    void showPasswordConfirmation() override { m_journal.add("confirmation"); }

    void retryPassword() override { m_journal.add("retry password"); }

    void retryPasswordAndConfirmation() override { m_journal.add("retry both"); }

    void openMainWindow(const app::Session& session) override {
        m_journal.add("main window " + session.SelectedSupplier);
    }

private:
    support::Journal& m_journal;
};

/// Really unpacks, unless a test has another result for a mask. Writes down zip and mask.
class JournalingArchive : public platform::Archive {
public:
    explicit JournalingArchive(support::Journal& journal) : m_journal(journal) {}

    std::map<std::string, Result, std::less<>> results; // by mask

    std::optional<std::vector<std::string>> topLevelFiles(const std::filesystem::path& archive) override {
        return ui::system::ZipExtractor::topLevelFiles(archive);
    }

    Result extract(const std::filesystem::path& archive, std::string_view mask,
                   const std::filesystem::path& folder) override {
        m_journal.add("extract " + archive.filename().string() + " " + std::string(mask));
        const auto result = results.find(mask);
        return result != results.end() ? result->second
                                       : ui::system::ZipExtractor().extract(archive, mask, folder);
    }

private:
    support::Journal& m_journal;
};

class StartUpFixture : public testing::Test {
protected:
    static constexpr std::array otherDataFiles{"Prdlst.dat", "GrpIdx.idx", "PrdIdx.idx", "PrdMem.Dat"};

    /// The archive of a small catalogue; more can be added before it is written.
    [[nodiscard]] support::ZipBuilder catalogZip(const std::string& N, const std::string& version,
                                                 const std::string& password = {}) const {
        auto zip = support::ZipBuilder()
                       .add(N + ".sup", N + "|" + N + " Ltd\r\n")
                       .add("PrdPrm.dat", parameters(N + " Stores", version, password))
                       .add("Welcome.ECT", "{SUPNAME} {LS}{FS1}{FS2}")
                       .add("logo.jpg", N + " logo " + version);
        for (const auto* file : otherDataFiles)
            zip.add(file, version);
        return zip;
    }

    [[nodiscard]] std::string parameters(const std::string& name, const std::string& version,
                                         const std::string& password, const std::string& reset = {}) const {
        support::CatalogBuilder builder;
        builder.texts[catalog::ParameterText::supplierName] = name;
        builder.version = version;
        builder.catalogPassword = password;
        builder.resetPassword = reset;
        builder.writeTo(scratch);
        return base::readFile(scratch / "PrdPrm.dat").value();
    }

    void put(const std::filesystem::path& relative, std::string_view contents) const {
        std::filesystem::create_directories((program / relative).parent_path());
        base::replaceFile(program / relative, contents);
    }

    /// A supplier that is installed already.
    void install(const std::string& N, const std::string& version = "00001",
                 const std::string& password = {}) const {
        put(N + ".sup", N + "|" + N + " Ltd\r\n");
        put(N + "/PrdPrm.dat", parameters(N + " Stores", version, password));
        put(N + "/Welcome.ECT", "{SUPNAME} {LS}{FS1}{FS2}");
        for (const auto* file : otherDataFiles)
            put(std::filesystem::path(N) / file, version);
    }

    [[nodiscard]] std::string contents(const std::filesystem::path& relative) const {
        return base::readFile(program / relative).value_or("missing");
    }

    [[nodiscard]] bool exists(const std::filesystem::path& relative) const {
        return std::filesystem::exists(program / relative);
    }

    std::filesystem::path root = support::testFolder();
    std::filesystem::path program = make("program");
    std::filesystem::path scratch = make("scratch");
    support::Journal journal;
    support::FakeMessageBox box{journal};
    support::FakeBrowser browser{journal};
    FakeWelcomeWindow window{journal};
    JournalingArchive archive{journal};

private:
    [[nodiscard]] std::filesystem::path make(std::string_view name) const {
        std::filesystem::create_directories(root / name);
        return root / name;
    }
};
