#pragma once

#include "platform/archive.h"
#include "platform/message_box.h"

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace app {

class StagedFolder;
class WelcomeWindow;
struct CatalogIdentity;

/// Turns the zip files that lie in `ProgramFolder` into supplier folders, new or updated
/// (docs/supplier-folders.md). An install or update is all or nothing; what goes wrong with one zip is
/// reported in one message and does not stop the others.
class CatalogZips {
public:
    /// What an update replaces of the articles is kept in `keptFolder` (catalog::PreviousCatalog).
    CatalogZips(std::filesystem::path programFolder, platform::Archive& archive,
                platform::MessageBox& messages, WelcomeWindow& window, std::filesystem::path keptFolder = {});

    /// Puts an installation that was interrupted back to what it was and goes on with an interrupted
    /// removal, then takes the zips one by one.
    /// Throws base::Quit when the user closes the window meanwhile. What has been replaced is deleted later.
    void installAll();

    /// The next `installAll` takes this zip even if it has seen one of that name.
    void expect(const std::filesystem::path& zip) { m_processed.erase(zip); }

private:
    struct Zip;

    [[nodiscard]] std::optional<std::filesystem::path> nextZip() const;
    void process(const std::filesystem::path& path);
    [[nodiscard]] std::optional<std::string> supplierIn(const std::filesystem::path& zip) const;
    void undoInterrupted();
    void install(const Zip& zip);
    void bringIn(const Zip& zip, StagedFolder& staged);
    [[nodiscard]] bool isUpdate(const Zip& zip, const std::filesystem::path& installedParameters,
                                StagedFolder& staged);
    [[nodiscard]] bool isWanted(const CatalogIdentity& offered, const CatalogIdentity& installed);
    void moveIn(const Zip& zip, StagedFolder& staged, bool isInstalled);
    void unpackInto(const Zip& zip, const std::optional<std::filesystem::path>& installedParameters,
                    const StagedFolder& staged);
    void finish(const Zip& zip, const StagedFolder& staged) const;
    [[nodiscard]] bool extract(const Zip& zip, std::string_view mask, const std::filesystem::path& folder);
    [[nodiscard]] static bool isExtracted(const Zip& zip, platform::Archive::Result result);
    void addLogo(const Zip& zip, const StagedFolder& staged) const;
    void complain(std::string_view text);

    std::filesystem::path m_programFolder;
    platform::Archive& m_archive;
    platform::MessageBox& m_messages;
    WelcomeWindow& m_window;
    std::filesystem::path m_keptFolder;
    std::set<std::filesystem::path> m_processed;
    std::set<std::string> m_unseen; // suppliers of whom this run has brought in articles that nobody has seen
    std::filesystem::path m_lastInstalledParameters;
};

}
